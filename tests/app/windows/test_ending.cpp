#include "app/windows/ending.h"
#include "app/windows/endsignals.h"
#include "app/windows/frmMain.h"
#include "app/windows/recovery.h"
#include "app/windows/shelltest.h"
#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "network/tables.h"
#include "network/unsaved.h"
#include "terrain/mapgrid.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <filesystem>

static const std::string endquestion = "Terminer l'exécution du logiciel Velmora?";

using Ending = ShellTest;

TEST_F(Ending, TheFirstRequestOnlyStopsARunningOperation)
{
    start();
    opbusy = 7;
    EXPECT_FALSE(window->close());
    EXPECT_EQ(opbusy, 0);
    EXPECT_TRUE(window->isVisible());
    expectquestion(endquestion, Answer::yes);
    EXPECT_TRUE(window->close());
}

TEST_F(Ending, AnythingButYesKeepsTheProgram)
{
    start();
    expectquestion(endquestion, Answer::no);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->timer->isActive());
    EXPECT_EQ(getsetting("DrawFontName", "none"), "none") << "nothing was stored";
}

TEST_F(Ending, StoresThePlaceOfANormalWindowAndTheSession)
{
    start();
    window->move(40, 50);
    window->resize(700, 500);
    session.drawfontname = "DejaVu Sans";
    session.recent = {"/a/x.net", "", "", ""};
    expectquestion(endquestion, Answer::yes);
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->timer->isActive());
    EXPECT_EQ(getsetting("MainLeft", ""), "320");
    EXPECT_EQ(getsetting("MainTop", ""), "400");
    EXPECT_EQ(getsetting("MainWidth", ""), "5600");
    EXPECT_EQ(getsetting("MainHeight", ""), "4000");
    EXPECT_EQ(getsetting("DrawFontName", ""), "DejaVu Sans");
    EXPECT_EQ(getsetting("Previous0", ""), "/a/x.net");
    EXPECT_EQ(getsetting("Previous1", "none"), "");
}

TEST_F(Ending, RemembersAMaximisedWindowByZeros)
{
    start();
    window->showMaximized();
    expectquestion(endquestion, Answer::yes);
    EXPECT_TRUE(window->close());
    for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        EXPECT_EQ(getsetting(key, "none"), "0") << key;
}

TEST_F(Ending, CancelAtAnUnsavedNetworkKeepsTheProgramButTheSettingsAreStored)
{
    start();
    addpicture("a.bmp");
    netdirty = true;
    expectquestion(endquestion, Answer::yes);
    expectquestion("Enregistrer " + session.netfile + "?", Answer::cancel);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->childwindows().size(), 1U);
    EXPECT_TRUE(window->timer->isActive()) << "live positions go on";
    EXPECT_EQ(getsetting("DrawFontName", "none"), "MS Sans Serif");
}

TEST_F(Ending, ASecondRequestWhileTheUserIsAskedDoesNothing)
{
    start();
    int asked = 0;
    hooks.askuser = [this, &asked](const Question&) {
        ++asked;
        window->close();
        return Answer::no;
    };
    EXPECT_FALSE(window->close());
    EXPECT_EQ(asked, 1);
}

TEST_F(Ending, AWindowThatIsStillStartingDoesNotClose)
{
    start();
    window->setEnabled(false);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(Ending, TheFileMenuEndsTheProgramToo)
{
    start();
    expectquestion(endquestion, Answer::yes);
    choose("mnuFileExit");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Ending, GivesPortsTimeToWindDown)
{
    start();
    window->winddown_s = 0.2;
    bool handled = false;
    QTimer::singleShot(50, [&handled] { handled = true; });
    expectquestion(endquestion, Answer::yes);
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(handled);
}

/// The program, ended by the system.
class EndingBySignal : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        addpicture("image1.bmp");
        markedited();
        mapdirty = true;
        hooks.writerecovery = [this, write = hooks.writerecovery] {
            ++recoveries;
            write();
        };
        endonsignals();
    }
    void TearDown() override
    {
        endonsignals(); // nothing is ending any more
        for (const int signal : {SIGTERM, SIGHUP, SIGINT})
            std::signal(signal, SIG_DFL);
        marksaved();
        mapdirty = false;
        endrecovery();
    }
    void expectended()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
        EXPECT_EQ(recoveries, 1);
        const std::filesystem::directory_iterator copies(userfolder() + "recovery");
        EXPECT_EQ(std::distance(begin(copies), end(copies)), 1) << "the next start offers it";
        EXPECT_EQ(getsetting("DrawFontName", "none"), "MS Sans Serif") << "settings are stored";
    }

    int recoveries = 0;
};

TEST_F(EndingBySignal, AsksNothingAndKeepsWhatIsUnsaved)
{
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        std::raise(signal); // one end is enough
    expectended();
}

TEST_F(EndingBySignal, GivesUpTheOpenDialogs)
{
    QDialog outer(window.get());
    int asked = 0;
    QTimer::singleShot(0, &outer, [&] {
        QDialog inner(&outer);
        QTimer::singleShot(0, &inner, [] { std::raise(SIGTERM); });
        inner.exec();
        ++asked;
    });
    outer.exec();
    EXPECT_EQ(asked, 1);
    expectended();
}

TEST_F(EndingBySignal, StopsTheOperationFirst)
{
    beginop({.number = 1, .total = 100});
    std::raise(SIGHUP);
    while (opstep(1) != 0)
        EXPECT_TRUE(window->isVisible());
    endop();
    expectended();
}
