#include "app/windows/arrange.h"
#include "app/windows/askfile.h"
#include "app/windows/commands.h"
#include "app/windows/frmAbout.h"
#include "app/windows/frmMain.h"
#include "app/windows/statusbar.h"
#include "app/windows/toolbar.h"
#include "base/operation.h"
#include "base/session.h"
#include "coverage/windows/frmCoverage.h"
#include "coverage/windows/frmVisual.h"
#include "netoverlay/paint/overlay.h"
#include "netoverlay/windows/stationmouse.h"
#include "pictures/paint/cursor.h"
#include "pictures/windows/frmPic.h"
#include "radio/windows/frmLink.h"
#include "reports/windows/frmReport.h"

#include <QElapsedTimer>
#include <QMdiArea>

/// The active picture is the one that coverages are painted on.
static void takeactivepicture()
{
    if (OpenPicture* active = mainwindow->activepicture())
        currentpic = active;
}

void radiolink()
{
    showlink(mainwindow);
}

void refilllink()
{
    if (frmLink* window = mainwindow ? linkwindow(mainwindow) : nullptr)
        window->refill();
}

void restudylink()
{
    if (frmLink* window = linkwindow(mainwindow))
        window->restudy();
}

void connectlinkwindow()
{
    linkwindowhooks.asktextfile = [](const std::string& offered) {
        return askfilename({.title = "Enregistrer le profile",
                            .filter = "Fichier texte (*.TXT)",
                            .patterns = "*.TXT",
                            .offered = offered,
                            .saving = true,
                            .extension = "TXT"});
    };
    linkwindowhooks.showlink = linkoverlay;
    linkwindowhooks.movecursor = movecursor;
    linkwindowhooks.closed = [] {
        if (mainwindow)
            autodrawnets();
    };
    picturehooks.stationmoved = [](int unit, bool) {
        if (frmLink* window = mainwindow ? linkwindow(mainwindow) : nullptr)
            window->followstation(unit);
    };
    picturewindowhooks.showlink = [](int a, int b) { showlink(mainwindow)->choosestations(a, b); };
}

void radiocoverage()
{
    takeactivepicture();
    showcoverage(mainwindow);
}

void visualcoverage()
{
    takeactivepicture();
    showvisual(mainwindow);
}

void performancereport()
{
    showreport(mainwindow);
}

void autodrawnets()
{
    constexpr qint64 longest_ms = 5000;
    if (!mainwindow->checked("mnuViewAuto"))
        return;
    QElapsedTimer clock;
    clock.start();
    drawnets();
    if (clock.elapsed() > longest_ms)
        mainwindow->setchecked("mnuViewAuto", false);
}

void showhidetoolbar()
{
    mainwindow->toolbar->setVisible(mainwindow->checked("mnuViewToolbar"));
}

void showhidestatusbar()
{
    mainwindow->statusbar->setwanted(mainwindow->checked("mnuViewStatus"));
}

void followmouse()
{
    session.mousecoordinates = mainwindow->checked("mnuMouseCoor");
}

void cascadewindows()
{
    arrangewindows(*mainwindow->area, Arrangement::cascade);
}

void tilehorizontally()
{
    arrangewindows(*mainwindow->area, Arrangement::horizontal);
}

void tilevertically()
{
    arrangewindows(*mainwindow->area, Arrangement::vertical);
}

void arrangeicons()
{
    arrangewindows(*mainwindow->area, Arrangement::icons);
}

void showabout()
{
    frmAbout(mainwindow).exec();
}

void stopoperation()
{
    opbusy = 0;
}
