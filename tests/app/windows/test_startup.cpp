#include "app/windows/frmMain.h"
#include "app/windows/frmSplash.h"
#include "app/windows/geometry.h"
#include "app/windows/shelltest.h"
#include "app/windows/startup.h"
#include "app/windows/statusbar.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/processmark.h"
#include "base/session.h"
#include "base/settings.h"
#include "network/netfile.h"
#include "network/tables.h"
#include "pictures/paint/openpictures.h"
#include "terrain/mapfile.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <gmock/gmock.h>

using Startup = ShellTest;

static frmSplash* opensplash()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* splash = qobject_cast<frmSplash*>(widget))
            return splash;
    return nullptr;
}

TEST_F(Startup, WithNothingStoredComesUpWithTheDefaultNetwork)
{
    start();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velmora - ..\\default.net"));
    EXPECT_EQ(session.netfile, "default.net");
    EXPECT_EQ(network, defaulttables());
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(opensplash(), nullptr);
    EXPECT_EQ(session.tempfolder, tempdir());
    EXPECT_FALSE(window->windowIcon().isNull());
}

TEST_F(Startup, AnEngineThatDoesNotAnswerEndsTheProgram)
{
    expectquestion("VELMOR32.DLL non trouvée", Answer::ok);
    StartOptions options;
    options.engineprobe = [] { return false; };
    EXPECT_EQ(startup("", options), nullptr);
    EXPECT_EQ(mainwindow, nullptr);
}

TEST_F(Startup, TheBuiltInEngineAnswers)
{
    EXPECT_TRUE(engineanswers());
}

TEST_F(Startup, TheSplashStaysForItsTimeOverADisabledWindow)
{
    bool seen = false;
    QTimer::singleShot(100, [&seen] {
        const frmSplash* splash = opensplash();
        seen = splash && splash->isVisible() && !mainwindow->isEnabled() && mainwindow->isVisible();
    });
    StartOptions options;
    options.splash_s = 0.4;
    options.winddown_s = 0;
    QElapsedTimer clock;
    clock.start();
    window = startup("", options);
    EXPECT_GE(clock.elapsed(), 390);
    EXPECT_TRUE(seen);
    EXPECT_EQ(opensplash(), nullptr);
}

TEST_F(Startup, OpensTheLastNetwork)
{
    network.units[1].lon = -73;
    network.units[1].lat = 45;
    network.units[1].name.assign("Sommet");
    std::string file = path("dernier.net");
    ASSERT_TRUE(savenet(file)); // stores it as the last one
    session = Session();
    network = defaulttables();
    start();
    EXPECT_EQ(network.units[1].name.text(), "Sommet");
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velmora - ..\\dernier.net"));
    EXPECT_EQ(session.recent[0], lowercase(file));
}

TEST_F(Startup, AMissingLastNetworkKeepsItsName)
{
    writesetting("LastProject", path("parti.net"));
    start();
    EXPECT_EQ(nameof(session.netfile), "parti.net");
    EXPECT_EQ(network, defaulttables());
    EXPECT_EQ(nameof(session.recent[0]), "parti.net");
}

TEST_F(Startup, ALastNetworkThatIsNoneIsNotSavedOver)
{
    const std::string file = path("lettre.net");
    ASSERT_TRUE(writefile(file, "Ceci n'est pas un réseau, mais une lettre."));
    writesetting("LastProject", file);
    start();
    EXPECT_EQ(session.netfile, "default.net");
    EXPECT_EQ(network, defaulttables());
}

TEST_F(Startup, TellsWhereAnInterruptedWriteHasLeftTheOldBytes)
{
    std::string mark = processmark();
    mark.replace(9, 8, "00000000"); // an earlier start of the machine
    const std::string copies = userfolder() + "copies/";
    QDir().mkpath(QString::fromStdString(copies));
    ASSERT_TRUE(writefile(copies + "nord.net." + mark + ".copie", "old"));
    start();
    EXPECT_EQ(label2(), "Enregistrement interrompu, l'ancien contenu est dans " + copies +
                            "nord.net." + mark + ".copie");
}

TEST_F(Startup, TakesANetworkFromTheCommandLineInQuotesToo)
{
    network.units[3].name.assign("Relais");
    std::string file = path("plan.net");
    ASSERT_TRUE(savenet(file));
    network = defaulttables();
    writesetting("LastProject", "autre.net");
    start("\"" + file + "\"");
    EXPECT_EQ(network.units[3].name.text(), "Relais");
    EXPECT_EQ(session.netfile, lowercase(file));
}

TEST_F(Startup, TakesAPictureFromTheCommandLineInAnyCase)
{
    std::vector<std::pair<std::string, int>> opened;
    hooks.openpicture = [&](const std::string& name, int kind) { opened.emplace_back(name, kind); };
    start(path("VUE.BMP"));
    EXPECT_THAT(opened, testing::ElementsAre(std::pair(path("VUE.BMP"), 0)));
    EXPECT_EQ(network, defaulttables()) << "no network is loaded";
}

TEST_F(Startup, TakesAMapFromTheCommandLine)
{
    allocatemap(mapgrid, 7, 5);
    mapframe(mapgrid);
    ASSERT_TRUE(savemap(path("petite.map")));
    start(path("petite.map"));
    EXPECT_EQ(mapgrid.width, 7);
    EXPECT_EQ(mapgrid.height, 5);
    EXPECT_EQ(nameof(mapname), "petite.map");
}

TEST_F(Startup, TheFirstPictureOpensMaximisedInAMaximisedWindow)
{
    writesetting("MainWidth", 0);
    hooks.openpicture = [this](const std::string& name, int) {
        window.reset(mainwindow); // the fixture's help works on the window of this start
        addpicture(name);
        (void)window.release();
    };
    start(path("a.bmp"));
    EXPECT_TRUE(window->isMaximized());
    EXPECT_TRUE(window->area->subWindowList().constFirst()->isMaximized());
    EXPECT_EQ(window->activepicture(), openpictures.front().get());
    EXPECT_TRUE(window->action("mnuFileSavePic")->isEnabled());
}

TEST_F(Startup, AReplayOfTheLastRunDoesNotResume)
{
    writesetting("GPSstatus", "43");
    start();
    EXPECT_EQ(session.live.gpsstatus, 41);
}

TEST_F(Startup, TheTimerTicksAndSwallowsErrors)
{
    start();
    EXPECT_EQ(window->timer->interval(), 200);
    EXPECT_TRUE(window->timer->isActive());
    int ticks = 0;
    window->timersteps.emplace_back([] { throw std::runtime_error("port"); });
    window->timersteps.emplace_back([&ticks] { ++ticks; });
    EXPECT_TRUE(QTest::qWaitFor([&ticks] { return ticks >= 2; }, 3000));
}

class StoredPlace : public ShellTest
{
protected:
    static void store(int left, int top, int width, int height)
    {
        writesetting("MainLeft", left);
        writesetting("MainTop", top);
        writesetting("MainWidth", width);
        writesetting("MainHeight", height);
    }
    static QSize screen()
    {
        return QGuiApplication::primaryScreen()->virtualSize() * unitsperpixel;
    }
};

TEST_F(StoredPlace, IsTakenWhenItFitsTheScreen)
{
    store(160, 240, 4000, 3200);
    start();
    EXPECT_FALSE(window->isMaximized());
    EXPECT_EQ(window->pos(), QPoint(20, 30));
    EXPECT_EQ(window->size(), QSize(500, 400));
}

TEST_F(StoredPlace, WithoutOneTheDefaultPlaceIsTaken)
{
    const WindowPlace place = storedplace();
    EXPECT_EQ(place.left_px, 1000 / 8);
    EXPECT_EQ(place.top_px, 1000 / 8);
    EXPECT_EQ(place.width_px, std::lround(6500 / 8.0));
    EXPECT_EQ(place.height_px, std::lround(6500 / 8.0));
    EXPECT_EQ(place.maximised, screen().height() <= 6500);
}

TEST_F(StoredPlace, IsRaisedWhereTheStatusBarWouldLeaveTheScreen)
{
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    store(80, room.height() * unitsperpixel - 400, 4000, 3200);
    start();
    EXPECT_FALSE(window->isMaximized());
    EXPECT_LE(window->geometry().bottom(), room.bottom());
    EXPECT_EQ(window->size(), QSize(500, 400));
}

TEST_F(StoredPlace, IsRefusedWhenItDoesNotFit)
{
    const QSize edge = screen();
    const std::vector<std::array<int, 4>> places{
        {0, 0, 0, 0},
        {-1, 10, 5000, 4000},
        {10, -1, 5000, 4000},
        {edge.width(), 10, 5000, 4000},
        {10, 10, 5000, edge.height()},
        {10, 10, 5000, -1},
    };
    for (const auto& [left, top, width, height] : places) {
        store(left, top, width, height);
        const WindowPlace place = storedplace();
        EXPECT_TRUE(place.maximised) << left << " " << top << " " << width << " " << height;
        EXPECT_EQ(place.width_px, std::lround(6500 / 8.0));
    }
    store(edge.width() - 1, 10, 5000, edge.height() - 1);
    EXPECT_FALSE(storedplace().maximised);
}
