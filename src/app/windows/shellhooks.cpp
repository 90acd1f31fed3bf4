#include "app/windows/shellhooks.h"

#include "app/windows/askbox.h"
#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "app/windows/recovery.h"
#include "app/windows/statusbar.h"
#include "base/hooks.h"
#include "netoverlay/paint/overlay.h"
#include "netoverlay/windows/placemenu.h"
#include "netoverlay/windows/stationmouse.h"
#include "pictures/windows/frmPic.h"
#include "relief/paint/drawmap.h"

#include <QApplication>
#include <QDesktopServices>
#include <QScreen>
#include <QThread>
#include <QUrl>

static void busypointer(bool busy)
{
    if (busy && !QApplication::overrideCursor())
        QApplication::setOverrideCursor(Qt::WaitCursor);
    while (!busy && QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

void pumpslowly()
{
    static constexpr unsigned long rest_ms = 5;
    hooks.pumpevents();
    QThread::msleep(rest_ms);
}

void fillhooks()
{
    hooks.askuser = askbox;
    hooks.pumpevents = [] { QApplication::processEvents(); };
    hooks.busypointer = busypointer;
    hooks.setlabel1 = [](const std::string& text) {
        if (mainwindow)
            mainwindow->statusbar->setplace(QString::fromStdString(text));
    };
    hooks.setlabel2 = [](const std::string& text) {
        if (mainwindow)
            mainwindow->statusbar->settext(QString::fromStdString(text));
    };
    hooks.screensize = [] {
        const QSize size = QApplication::primaryScreen()->size();
        return std::pair(size.width(), size.height());
    };
    hooks.recentchanged = [] {
        if (mainwindow)
            mainwindow->showrecent();
    };
    hooks.setbusyinterface = [](bool busy) {
        if (mainwindow)
            mainwindow->setbusy(busy);
    };
    hooks.writerecovery = saverecovery;
    hooks.setprogress = [](int percent) {
        if (mainwindow)
            mainwindow->statusbar->setprogress(percent);
    };
    connectpictures();
    connectrelief();
    connectnetoverlay();
    connectstationmouse();
    connectplacemenu();
    hooks.drawmap = [draw = hooks.drawmap](const std::string& name) {
        draw(name);
        if (mainwindow)
            autodrawnets();
    };
    connectpicturewindows([](QWidget* picture) {
        if (mainwindow)
            mainwindow->addpicture(picture);
    });
    connectmapwindows();
    connectlinkwindow();
    connectundo();
    connectunitwindow();
    hooks.netsloaded = [] {
        refilllink(); // first: its one link gives way to the nets
        shownetwork();
    };
    hooks.writerecovery = saverecovery;
    hooks.viewtext = [](const std::string& path) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
    };
}
