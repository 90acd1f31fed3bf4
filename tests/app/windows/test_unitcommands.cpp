#include "app/windows/firststeps.h"
#include "app/windows/frmMain.h"
#include "app/windows/shelltest.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/session.h"
#include "netoverlay/paint/overlay.h"
#include "network/tables.h"
#include "network/windows/frmUnit.h"
#include "pictures/paint/cursor.h"
#include "pictures/windows/frmPic.h"
#include "relief/paint/drawmap.h"
#include "terrain/mapgrid.h"

#include <QAction>
#include <QApplication>
#include <QCommandLinkButton>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

/// Two stations of one net on a picture of level ground.
class UnitCommands : public ShellTest
{
protected:
    void SetUp() override
    {
        start();
        mapgrid = MapGrid();
        mapgrid.record.maplon0 = 2;
        mapgrid.record.maplat0 = 45;
        mapgrid.record.mapsize = 20;
        allocatemap(mapgrid, 201, 201);
        mapframe(mapgrid);
        for (const int u : {1, 2}) {
            Unit& unit = unitat(u);
            unit.lon = u == 1 ? 1.95F : 2.05F;
            unit.lat = 45;
            unit.name.assign(u == 1 ? "Ouest" : "Est");
            netat(1).member[static_cast<std::size_t>(u)] = memberbit;
            netat(1).system[static_cast<std::size_t>(u)] = 1;
        }
        picture = drawmap(nullptr, true);
        drawnets();
        surface = windowof(*picture)->findChild<QWidget*>(QStringLiteral("surface"));
    }
    frmUnit& open()
    {
        choose("mnuEditUnit");
        frmUnit* found = unitwindow(window.get());
        EXPECT_NE(found, nullptr);
        return *found;
    }
    const StationMark& mark(int unit) const
    {
        return picture->marks.stations[static_cast<std::size_t>(unit)];
    }
    void clickmenu(const QPoint& at, const char* entry) const
    {
        QTest::mouseClick(surface, Qt::RightButton, {}, at);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        auto* action = menu->findChild<QAction*>(QString::fromLatin1(entry));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        QApplication::processEvents();
    }

    OpenPicture* picture = nullptr;
    QWidget* surface = nullptr;
};

TEST_F(UnitCommands, TheEditorStaysOpenBesideThePictures)
{
    const frmUnit& editor = open();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_FALSE(editor.isModal());
    EXPECT_TRUE(picture->surface.over.empty()) << "it opens over clear pictures";
    EXPECT_EQ(&open(), &editor);
}

TEST_F(UnitCommands, ADoubleClickOnAStationEditsIt)
{
    const QPoint label = mark(2).label.center();
    QTest::mouseDClick(surface, Qt::LeftButton, {}, label);
    ASSERT_NE(unitwindow(window.get()), nullptr);
    EXPECT_EQ(unitwindow(window.get())->unit(), 2);
}

TEST_F(UnitCommands, AKeystrokeRedrawsTheStationAndLeavesTheNets)
{
    frmUnit& editor = open();
    drawnets();
    const auto strokes = picture->surface.over.size();
    const int width = mark(1).label.width();
    auto* name = editor.findChild<QLineEdit*>(QStringLiteral("name"));
    QTest::keyClicks(name, QStringLiteral("Un poste au loin"));
    EXPECT_GT(mark(1).label.width(), width);
    EXPECT_EQ(picture->surface.over.size(), strokes);
    EXPECT_TRUE(mark(2).visible);
}

TEST_F(UnitCommands, OnAClearPictureTheStationIsDrawnAlone)
{
    frmUnit& editor = open();
    QTest::keyClicks(editor.findChild<QLineEdit*>(QStringLiteral("name")), QStringLiteral("x"));
    EXPECT_TRUE(mark(1).visible);
    EXPECT_FALSE(mark(2).visible);
}

TEST_F(UnitCommands, TheStationGoesToTheCursorAndTheNetsFollow)
{
    frmUnit& editor = open();
    movecursor(2.02F, 45.03F);
    QTest::mouseClick(editor.findChild<QPushButton*>(QStringLiteral("gotocursor")), Qt::LeftButton);
    EXPECT_EQ(unitat(1).lon, 2.02F);
    EXPECT_TRUE(mark(1).visible);
    EXPECT_FALSE(mark(2).visible);
    QTest::qWait(300); // a tick of the main timer
    EXPECT_TRUE(mark(2).visible);
    EXPECT_TRUE(picture->links != nullptr);
}

TEST_F(UnitCommands, ClosingTheEditorBringsTheNetsBack)
{
    frmUnit& editor = open();
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_TRUE(mark(1).visible);
    EXPECT_TRUE(mark(2).visible);
}

TEST_F(UnitCommands, ItShowsAStationThatThePictureMenuPlaces)
{
    frmUnit& editor = open();
    clickmenu(QPoint(30, 30), "placehere");
    EXPECT_EQ(editor.unit(), 3);
    EXPECT_TRUE(mark(3).visible);
}

TEST_F(UnitCommands, OnlyStopIsLiveWhileAnOperationRuns)
{
    frmUnit& editor = open();
    beginop({.number = 11});
    EXPECT_FALSE(editor.isEnabled());
    opbusy = 0;
    endop();
    EXPECT_TRUE(editor.isEnabled());
}

TEST_F(UnitCommands, ThreeStationsArePlacedFromAnEmptyNetwork)
{
    expectquestion("Effacer toutes les données du réseau " + session.netfile, Answer::yes);
    expectquestion("Enregistrer " + lowercase(picture->data.Filename) + "?", Answer::no);
    choose("mnuFileNewNet");
    picture = drawmap(nullptr, true);
    surface = windowof(*picture)->findChild<QWidget*>(QStringLiteral("surface"));
    for (const QPoint at : {QPoint(50, 50), QPoint(150, 60), QPoint(90, 150)})
        clickmenu(at, "placehere");
    for (const int unit : {1, 2, 3})
        EXPECT_TRUE(mark(unit).visible) << unit;
    EXPECT_EQ(mark(3).label.topLeft(), QPoint(90, 150));
}

class FirstStepsTest : public ShellTest
{
protected:
    void SetUp() override { start(); }
    QCommandLinkButton* step(const char* name) const
    {
        return panel()->findChild<QCommandLinkButton*>(QString::fromLatin1(name));
    }
    FirstSteps* panel() const { return window->findChild<FirstSteps*>(); }
};

TEST_F(FirstStepsTest, AreShownWhileNoPictureIsOpen)
{
    EXPECT_TRUE(panel()->isVisible());
    EXPECT_TRUE(panel()->parentWidget()->rect().contains(panel()->geometry()));
    QWidget* picture = addpicture("a.bmp");
    EXPECT_FALSE(panel()->isVisible());
    picture->window()->activateWindow();
    while (!openpictures.empty())
        closepicture(*openpictures.back());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    EXPECT_TRUE(panel()->isVisible());
}

TEST_F(FirstStepsTest, EachIsAButtonThatTakesIt)
{
    expectfilename("Ouvrir des réseaux", "");
    QTest::mouseClick(step("opennet"), Qt::LeftButton);
    QTest::mouseClick(step("stationproperties"), Qt::LeftButton);
    EXPECT_NE(unitwindow(window.get()), nullptr);
    QTest::mouseClick(step("mapproperties"), Qt::LeftButton);
    EXPECT_NE(window->findChild<QWidget*>(QStringLiteral("frmMapPro")), nullptr);
    EXPECT_TRUE(step("newpicture")->isEnabled());
}

TEST_F(FirstStepsTest, RestWhileAnOperationRuns)
{
    window->setbusy(true);
    EXPECT_FALSE(step("opennet")->isEnabled());
    window->setbusy(false);
    EXPECT_TRUE(step("opennet")->isEnabled());
}

TEST_F(FirstStepsTest, FitIntoALowWindow)
{
    window->resize(window->width(), 420);
    QApplication::processEvents();
    EXPECT_TRUE(panel()->parentWidget()->rect().contains(panel()->geometry()));
    EXPECT_TRUE(step("opennet")->description().isEmpty());
    window->resize(window->width(), 700);
    QApplication::processEvents();
    EXPECT_FALSE(step("opennet")->description().isEmpty());
}

TEST_F(FirstStepsTest, APictureWithoutStationsTellsHowTheFirstIsPlaced)
{
    const auto* hint = window->findChild<QWidget*>(QStringLiteral("placehint"));
    const auto ticked = [hint] {
        QTest::qWait(300); // a tick of the main timer
        return hint->isVisible();
    };
    EXPECT_FALSE(ticked()) << "there is no picture";
    drawmap(nullptr, true);
    EXPECT_TRUE(ticked());
    EXPECT_TRUE(hint->parentWidget()->rect().contains(hint->geometry()));
    unitat(1).lon = unitat(1).lat = 1;
    EXPECT_FALSE(ticked());
    unitat(1).lon = unitat(1).lat = 0;
    EXPECT_TRUE(ticked());
    QTest::mouseClick(hint->findChild<QWidget*>(QStringLiteral("close")), Qt::LeftButton);
    EXPECT_FALSE(ticked());
}
