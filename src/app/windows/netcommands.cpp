#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "netoverlay/paint/overlay.h"
#include "network/windows/frmNet.h"

void netproperties()
{
    frmNet(mainwindow).exec();
    refilllink(); // first: its one link gives way to the nets
    if (mainwindow->checked("mnuViewAuto"))
        autodrawnets();
    else
        erasenets();
}
