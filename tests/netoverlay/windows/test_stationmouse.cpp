#include "base/windows/undostack.h"
#include "netoverlay/windows/stationmouse.h"
#include "network/unsaved.h"
#include "pictures/windows/picturewindowtest.h"
#include "radio/evaluate.h"

namespace
{

class StationMouseTest : public PictureWindowTest
{
protected:
    void SetUp() override
    {
        PictureWindowTest::SetUp();
        for (Unit& unit : network.units)
            unit.enabled = 0;
        for (const int i : {1, 2, 3}) {
            station(i, 7.2F + 0.3F * static_cast<float>(i), 44.5F, "Poste");
            network.nets[1].member[static_cast<std::size_t>(i)] = memberbit;
            network.nets[1].system[static_cast<std::size_t>(i)] = 1;
        }
        network.nets[1].topology = visiblebit;
        selection = {};
        marksaved();
        forgetedits();
        picturewindowhooks.editstation = [this] { edited.push_back(selection.curunit); };
        picturewindowhooks.showlink = [this](int a, int b) { links.emplace_back(a, b); };
        drawnets();
    }

    void TearDown() override
    {
        picturewindowhooks = {};
        selection = {};
        marksaved();
        PictureWindowTest::TearDown();
    }

    /// In the middle of a station's label.
    QPoint on(int unit) const
    {
        return picture->marks.stations[static_cast<std::size_t>(unit)].label.center();
    }

    const Unit& unit(int number) const { return network.units[static_cast<std::size_t>(number)]; }

    void press(Qt::MouseButton button, const QPoint& at, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::mousePress(surface, button, keys, at);
    }
    void release(const QPoint& at) const { QTest::mouseRelease(surface, Qt::LeftButton, {}, at); }

    std::vector<int> edited;
    std::vector<std::pair<int, int>> links;
    const std::string movequestion = "Déplacer la station à la position du curseur?";
};

} // namespace

TEST_F(StationMouseTest, ADoubleClickEditsTheStation)
{
    QTest::mouseDClick(surface, Qt::LeftButton, {}, on(2));
    EXPECT_THAT(edited, testing::ElementsAre(2));
    EXPECT_EQ(selection.curunit, 2);
    QTest::mouseDClick(surface, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(edited.size(), 1U);
}

TEST_F(StationMouseTest, PressesWithShiftPickTheEndsOfALink)
{
    QTest::mouseClick(surface, Qt::LeftButton, Qt::ShiftModifier, on(3));
    EXPECT_TRUE(links.empty());
    QTest::mouseClick(surface, Qt::RightButton, Qt::ShiftModifier, on(3));
    EXPECT_TRUE(links.empty()); // one station is no link
    QTest::mouseClick(surface, Qt::RightButton, Qt::ShiftModifier, on(1));
    EXPECT_THAT(links, testing::ElementsAre(std::pair(3, 1)));
    QTest::mouseClick(surface, Qt::LeftButton, Qt::ShiftModifier, on(2));
    EXPECT_THAT(links, testing::ElementsAre(std::pair(3, 1), std::pair(2, 1)));
    EXPECT_EQ(cursor.lon, 0); // nothing of it reached the picture
}

TEST_F(StationMouseTest, ARightPressMovesTheStationToTheCursor)
{
    movecursor(7.25F, 44.75F);
    answers = {Answer::yes};
    QTest::mouseClick(surface, Qt::RightButton, {}, on(2));
    EXPECT_THAT(questions, testing::ElementsAre(movequestion));
    EXPECT_EQ(unit(2).lon, 7.25F);
    EXPECT_EQ(unit(2).lat, 44.75F);
    EXPECT_EQ(unit(2).elevation, mapgrid.at(50, 150));
    EXPECT_TRUE(netedited);
    EXPECT_EQ(picture->marks.stations[2].label.topLeft(), QPoint(50, 50));
    EXPECT_TRUE(picture->marks.stations[1].visible);
}

TEST_F(StationMouseTest, ARightPressThatIsDeclinedLeavesTheStation)
{
    const NetworkTables before = network;
    answers = {Answer::no};
    QTest::mouseClick(surface, Qt::RightButton, {}, on(2));
    EXPECT_TRUE(network == before);
    EXPECT_FALSE(netunsaved());
}

TEST_F(StationMouseTest, AStationTakesThePressFromTheSelection)
{
    press(Qt::LeftButton, QPoint(200, 20));
    release(QPoint(200, 20));
    const float lon = cursor.lon;
    press(Qt::LeftButton, on(2));
    move(on(2) + QPoint(2, 2), Qt::LeftButton);
    release(on(2) + QPoint(2, 2));
    EXPECT_EQ(cursor.lon, lon);
    EXPECT_FALSE(picture->marks.Shape2);
    EXPECT_EQ(unit(2).lon, 7.2F + 0.6F); // a trembling hand moves nothing
    EXPECT_FALSE(netunsaved());
}

TEST_F(StationMouseTest, ADragCarriesTheStationByTheWayOfTheMouse)
{
    const QPoint from = on(2);
    const QPoint place = picture->marks.stations[2].label.topLeft();
    press(Qt::LeftButton, from);
    move(from + QPoint(30, -40), Qt::LeftButton);
    EXPECT_EQ(surface->cursor().shape(), Qt::ClosedHandCursor);
    QApplication::processEvents();
    EXPECT_EQ(picture->marks.stations[2].label.topLeft(), place + QPoint(30, -40));
    move(from + QPoint(10, 20), Qt::LeftButton);
    release(from + QPoint(10, 20));
    EXPECT_EQ(picture->marks.stations[2].label.topLeft(), place + QPoint(10, 20));
    EXPECT_TRUE(netedited);
    const int column = place.x() + 10;
    const int row = mapgrid.uppery() - (place.y() + 20);
    EXPECT_EQ(unit(2).elevation, mapgrid.at(column, row));
    EXPECT_FALSE(picture->marks.Shape2);
}

TEST_F(StationMouseTest, TheStatusLineTellsTheMoveAndHowToTakeItBack)
{
    std::string shown;
    hooks.setlabel2 = [&shown](const std::string& text) { shown = text; };
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    move(from + QPoint(30, -40), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(shown.starts_with("Poste  ")) << shown;
    EXPECT_TRUE(shown.ends_with("(Échap : annuler)")) << shown;
    release(from + QPoint(30, -40));
    EXPECT_TRUE(shown.ends_with("(Ctrl+Z : annuler le déplacement)")) << shown;
    press(Qt::LeftButton, on(2));
    move(on(2) + QPoint(30, 0), Qt::LeftButton);
    QApplication::processEvents();
    QTest::keyClick(surface, Qt::Key_Escape);
    EXPECT_EQ(shown.find("annuler"), std::string::npos) << shown;
    release(on(2) + QPoint(30, 0));
}

TEST_F(StationMouseTest, ASelectionThatPassesAStationLeavesItWhereItIs)
{
    const NetworkTables before = network;
    const QPoint label = on(2);
    press(Qt::LeftButton, label - QPoint(60, 40));
    for (int step = -50; step <= 50; step += 10)
        move(label + QPoint(step, step * 2 / 3), Qt::LeftButton);
    release(label + QPoint(50, 33));
    QApplication::processEvents();
    EXPECT_TRUE(network == before);
    EXPECT_FALSE(netunsaved());
    EXPECT_TRUE(picture->marks.Shape2) << "the selection stands";
}

TEST_F(StationMouseTest, MovesFasterThanTheDrawingFallTogether)
{
    int drawn = 0;
    picturehooks.stationmoved = [&drawn](int, bool) { ++drawn; };
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    for (int i = 5; i < 60; ++i)
        move(from + QPoint(i, 0), Qt::LeftButton);
    EXPECT_EQ(drawn, 0);
    QApplication::processEvents();
    EXPECT_EQ(drawn, 1);
    EXPECT_NEAR(unit(2).lon, 7.8F + 59 * 0.005F, 1e-5);
    release(from);
}

TEST_F(StationMouseTest, EscapePutsTheStationBack)
{
    network.units[2].elevation = 1234;
    drawnets();
    const NetworkTables before = network;
    const QImage shown = surfaceimage(picture->surface);
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    move(from + QPoint(30, -40), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_FALSE(network == before);
    QTest::keyClick(surface, Qt::Key_Escape);
    EXPECT_TRUE(network == before);
    EXPECT_FALSE(netunsaved());
    EXPECT_EQ(surfaceimage(picture->surface), shown);
    move(from + QPoint(60, 0), Qt::LeftButton); // the button is still down
    QApplication::processEvents();
    release(from + QPoint(60, 0));
    EXPECT_TRUE(network == before);
    EXPECT_FALSE(picture->marks.Shape2);
    press(Qt::LeftButton, from); // the next drag works as any other
    move(from + QPoint(30, 0), Qt::LeftButton);
    release(from + QPoint(30, 0));
    EXPECT_FALSE(network == before);
}

TEST_F(StationMouseTest, ADragStaysWithinThePicture)
{
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    move(QPoint(5000, -3000), Qt::LeftButton);
    release(QPoint(5000, -3000));
    EXPECT_TRUE(picture->marks.stations[2].visible);
    EXPECT_FLOAT_EQ(unit(2).lon, 8.5F);
    EXPECT_FLOAT_EQ(unit(2).lat, 45);
}

TEST_F(StationMouseTest, HairsAndSelectionStayWhileAStationIsCarried)
{
    movecursor(7.25F, 44.75F);
    picture->marks.Shape2 = true;
    picture->marks.selection = QRect(1, 2, 30, 40);
    drag(on(2), on(2) + QPoint(20, 20));
    EXPECT_TRUE(picture->marks.Line1);
    EXPECT_TRUE(picture->marks.Shape2);
    EXPECT_EQ(cursor.lon, 7.25F);
}

TEST_F(StationMouseTest, ThePointerShowsWhatCanBeGrabbed)
{
    move(on(2));
    EXPECT_EQ(surface->cursor().shape(), Qt::OpenHandCursor);
    move(QPoint(5, 5));
    EXPECT_EQ(surface->cursor().shape(), Qt::CrossCursor);
}

TEST_F(StationMouseTest, ClosingThePictureLeavesTheStationWhereItIs)
{
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    move(from + QPoint(30, 0), Qt::LeftButton);
    window->close();
    QApplication::processEvents();
    EXPECT_TRUE(openpictures.empty());
    EXPECT_NEAR(unit(2).lon, 7.8F + 30 * 0.005F, 1e-5);
}

TEST_F(StationMouseTest, ADragIsOneThingToTakeBack)
{
    const NetworkTables before = network;
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    for (const int way : {10, 20, 30}) {
        move(from + QPoint(way, 5), Qt::LeftButton);
        QApplication::processEvents();
    }
    release(from + QPoint(30, 5));
    const NetworkTables after = network;
    EXPECT_EQ(undostack().count(), 1);
    EXPECT_EQ(undotext(), QStringLiteral("déplacer Poste"));
    marksaved();
    undolast();
    EXPECT_TRUE(network == before);
    EXPECT_TRUE(netunsaved());
    redolast();
    EXPECT_TRUE(network == after);
}

TEST_F(StationMouseTest, ADragThatIsTakenBackWhileItLastsGoesOn)
{
    const NetworkTables before = network;
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    move(from + QPoint(30, 0), Qt::LeftButton);
    QApplication::processEvents();
    settleedits();
    undolast();
    EXPECT_TRUE(network == before);
    release(from + QPoint(30, 0));
    EXPECT_TRUE(network == before);
}

TEST_F(StationMouseTest, NothingIsTakenBackOfADragThatWasGivenUp)
{
    const QPoint from = on(2);
    press(Qt::LeftButton, from);
    move(from + QPoint(30, -40), Qt::LeftButton);
    QApplication::processEvents();
    QTest::keyClick(surface, Qt::Key_Escape);
    release(from);
    EXPECT_EQ(undostack().count(), 0);
}

TEST_F(StationMouseTest, AMoveToTheCursorIsOneThingToTakeBack)
{
    const NetworkTables before = network;
    movecursor(7.25F, 44.75F);
    answers = {Answer::yes};
    QTest::mouseClick(surface, Qt::RightButton, {}, on(2));
    EXPECT_EQ(undostack().count(), 1);
    undolast();
    EXPECT_TRUE(network == before);
}
