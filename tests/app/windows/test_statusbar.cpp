#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "app/windows/statusbar.h"
#include "base/operation.h"

#include <QAction>
#include <QProgressBar>
#include <QTest>

class StatusBarTest : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        window->resize(900, 500);
        QTest::qWait(1);
    }
    StatusBar& bar() { return *window->statusbar; }
};

TEST_F(StatusBarTest, ShowsThreeDarkLightsAndReady)
{
    hooks.setlabel1("Prêt");
    EXPECT_EQ(label1(), "Prêt");
    EXPECT_EQ(bar().lampnames[0]->text(), QStringLiteral("Rx"));
    EXPECT_EQ(bar().lampnames[1]->text(), QStringLiteral("Tx"));
    EXPECT_EQ(bar().lampnames[2]->text(), QStringLiteral("GPS"));
    for (const Lamp* lamp : bar().lamps)
        EXPECT_EQ(lamp->colour(), QColor(0, 96, 0));
}

TEST_F(StatusBarTest, PanelsStandAtTheRightAndTheTextTakesTheRest)
{
    const int before = bar().text->width();
    const int right = bar().width() - bar().place->geometry().right();
    window->resize(1100, 500);
    QTest::qWait(1);
    EXPECT_EQ(bar().text->width(), before + 200);
    EXPECT_EQ(bar().width() - bar().place->geometry().right(), right);
    EXPECT_LT(bar().text->geometry().right(), bar().lamps[0]->x());
    EXPECT_LT(bar().lamps[0]->x(), bar().lamps[1]->x());
    EXPECT_LT(bar().lampnames[2]->geometry().right(), bar().place->x());
}

TEST_F(StatusBarTest, MakesRoomForALongPosition)
{
    const std::string position = "073°15'02\"O  45°30'12\"N  <Hors des limites de la carte>";
    hooks.setlabel1(position);
    EXPECT_GE(bar().place->width(),
              bar().fontMetrics().horizontalAdvance(QString::fromStdString(position)));
    QTest::qWait(1); // the panels move once the event loop runs
    const int width = bar().text->width();
    hooks.setlabel1("50%");
    QTest::qWait(1);
    EXPECT_GT(bar().text->width(), width + 100) << "a short text leaves its room";
    const int ready = bar().place->width();
    hooks.setlabel1("Prêt");
    EXPECT_EQ(bar().place->width(), ready) << "and panels don't move with each text";
}

TEST_F(StatusBarTest, TheBarShowsThePercentage)
{
    const QProgressBar& progress = *bar().progress;
    EXPECT_FALSE(progress.isVisible());
    hooks.setprogress(25);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_EQ(progress.value(), 25);
    EXPECT_EQ(progress.maximum(), 100);
    hooks.setprogress(100);
    EXPECT_EQ(progress.value(), 100);
    hooks.setprogress(0);
    EXPECT_FALSE(progress.isVisible());
}

TEST_F(StatusBarTest, PaintsNoProgressWhileHidden)
{
    choose("mnuViewStatus");
    EXPECT_FALSE(bar().isVisible());
    hooks.setprogress(50);
    EXPECT_FALSE(bar().progress->isVisibleTo(&bar()));
    choose("mnuViewStatus");
    EXPECT_TRUE(bar().isVisible());
}

TEST_F(StatusBarTest, GoesWhenTheWindowIsTooNarrow)
{
    window->resize(124, 300); // 992 window units
    QTest::qWait(1);
    EXPECT_FALSE(bar().isVisible());
    window->resize(125, 300);
    QTest::qWait(1);
    EXPECT_TRUE(bar().isVisible());
    choose("mnuViewStatus");
    window->resize(900, 300);
    QTest::qWait(1);
    EXPECT_FALSE(bar().isVisible()) << "the user's choice outlives a resize";
}

TEST_F(StatusBarTest, AnOperationRunsItsFrame)
{
    const auto clock = timeofday;
    timeofday = [] { // each look at the clock a second later: every report is painted
        static double now = 0;
        return now += 1;
    };
    beginop({.number = 4, .text = "Compilation des statistiques de la carte...", .total = 100});
    opstep(40);
    timeofday = clock;
    EXPECT_EQ(label1(), "40%");
    EXPECT_EQ(label2(), "Compilation des statistiques de la carte...");
    EXPECT_FALSE(window->action("mnuFile")->isEnabled());
    EXPECT_TRUE(bar().progress->isVisible());
    endop();
    EXPECT_EQ(label2(), "Complété.");
    EXPECT_EQ(label1(), "Prêt");
    EXPECT_FALSE(bar().progress->isVisible());
    EXPECT_TRUE(window->action("mnuFile")->isEnabled());
}
