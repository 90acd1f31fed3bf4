#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "netoverlay/paint/overlay.h"
#include "network/windows/frmNet.h"
#include "radio/windows/frmLink.h"

void netproperties()
{
    frmNet(mainwindow).exec();
    if (frmLink* window = linkwindow(mainwindow))
        window->followtables(); // first: its one link gives way to the nets
    if (mainwindow->checked("mnuViewAuto"))
        autodrawnets();
    else
        erasenets();
}
