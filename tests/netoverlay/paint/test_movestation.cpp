#include "netoverlay/paint/movestation.h"
#include "network/moveunit.h"
#include "network/unsaved.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/picturetest.h"
#include "radio/evaluate.h"
#include "relief/paint/drawmap.h"

namespace
{

/// Four stations in one net on a picture of the map, 0.005 degrees a pixel.
class MoveStation : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        makemap(301, 201);
        picture = drawmap(nullptr, true);
        for (Unit& unit : network.units)
            unit.enabled = 0;
        for (const int i : {1, 2, 3, 4}) {
            station(i, 7.2F + 0.3F * static_cast<float>(i), 44.5F, "Poste");
            network.nets[1].member[static_cast<std::size_t>(i)] = memberbit;
            network.nets[1].system[static_cast<std::size_t>(i)] = 1;
        }
        network.nets[1].topology = visiblebit;
        marksaved();
        moved = false;
        picturehooks.stationmoved = [this](int unit, bool settled) {
            told.push_back(settled ? unit : -unit);
        };
    }

    void TearDown() override
    {
        marksaved();
        moved = false;
        PictureTest::TearDown();
    }

    /// What the pictures would show after a full evaluation.
    QImage fullydrawn() const
    {
        evaluate(network, mapgrid, false, 0, quality);
        paintnets();
        return surfaceimage(picture->surface);
    }

    OpenPicture* picture = nullptr;
    std::vector<int> told; ///< stations moved; negative: on their way
};

} // namespace

TEST_F(MoveStation, TheCurrentStationIsDrawnAloneAndTheTimerDrawsTheRest)
{
    drawnets();
    selection.curunit = 3;
    moveunit(7.25F, 44.75F);
    EXPECT_EQ(network.units[3].lon, 7.25F);
    EXPECT_EQ(picture->surface.over.size(), 1U);
    EXPECT_TRUE(moved);
    EXPECT_THAT(told, testing::ElementsAre(3));
    opbusy = 1;
    redrawmoved();
    EXPECT_EQ(picture->surface.over.size(), 1U);
    opbusy = 0;
    redrawmoved();
    EXPECT_FALSE(moved);
    EXPECT_EQ(surfaceimage(picture->surface), fullydrawn());
    erasenets();
    redrawmoved(); // nothing has moved since
    EXPECT_TRUE(picture->surface.over.empty());
}

TEST_F(MoveStation, CarryingAStationEvaluatesItsLinksOnTheWay)
{
    const StationDrag drag = begindrag(2);
    for (const float lon : {7.1F, 7.6F, 8.3F}) {
        dragunit(drag, lon, 44.2F);
        const QualityTable shown = quality;
        evaluate(network, mapgrid, false, 0, quality);
        for (int a = 1; a <= 4; ++a)
            for (int b = 1; b <= 4; ++b)
                EXPECT_EQ(shown.at(1, a, b), quality.at(1, a, b)) << a << " " << b;
    }
    EXPECT_TRUE(netedited);
    EXPECT_FALSE(netdirty) << "only the network dialog sets it";
    settle(drag);
    EXPECT_EQ(surfaceimage(picture->surface), fullydrawn());
    EXPECT_THAT(told, testing::ElementsAre(-2, -2, -2, 2));
}

TEST_F(MoveStation, TheLinkOnTheWayHasTheColourOfItsClass)
{
    network.systems[1].height = 100;
    for (const std::size_t i : {1U, 2U, 3U, 4U})
        network.units[i].elevation = 3000;
    const StationDrag drag = begindrag(1);
    network.systems[1].height = 3000; // from anywhere on the map, everything is in sight
    dragunit(drag, 7.8F, 44.1F);      // under the second station
    EXPECT_EQ(surfaceimage(picture->surface).pixel(160, 150), qRgb(0, 255, 0));
    network.systems[1].threshold = 100; // dBm: nothing is heard
    dragunit(drag, 7.8F, 44.1F);
    EXPECT_EQ(surfaceimage(picture->surface).pixel(160, 150), qRgb(255, 0, 0));
}

TEST_F(MoveStation, PutBackAStationIsWhereItWasAndNothingHasChanged)
{
    drawnets();
    network.units[2].elevation = 1234; // not the map's
    const NetworkTables before = network;
    const QImage shown = fullydrawn();
    const StationDrag drag = begindrag(2);
    dragunit(drag, 8.3F, 44.2F);
    EXPECT_NE(surfaceimage(picture->surface), shown);
    putback(drag);
    EXPECT_TRUE(network == before);
    EXPECT_FALSE(netedited);
    EXPECT_EQ(surfaceimage(picture->surface), shown);
}

TEST_F(MoveStation, WhatWasUnsavedStaysUnsavedAfterPuttingBack)
{
    markedited();
    const StationDrag drag = begindrag(2);
    dragunit(drag, 8.3F, 44.2F);
    putback(drag);
    EXPECT_TRUE(netedited);
}

TEST_F(MoveStation, CarryingLeavesHairsAndSelection)
{
    drawnets();
    movecursor(7.5F, 44.5F);
    picture->marks.Shape2 = true;
    picture->marks.selection = QRect(5, 5, 20, 20);
    const QLine hair = picture->marks.vertical;
    dragunit(begindrag(2), 8.3F, 44.2F);
    EXPECT_TRUE(picture->marks.Line1);
    EXPECT_TRUE(picture->marks.Shape2);
    EXPECT_EQ(picture->marks.vertical, hair);
    EXPECT_EQ(picture->marks.selection, QRect(5, 5, 20, 20));
}

TEST_F(MoveStation, ThePlaceIsToldOnTheWay)
{
    dragunit(begindrag(2), 7.25F, 44.75F);
    const std::string height = std::to_string(mapgrid.at(50, 150));
    EXPECT_EQ(label2, "Poste  " + height + "m  007°15'00\"E  44°45'00\"N  (Échap : annuler)");
}

TEST_F(MoveStation, TheStationOnTopIsHit)
{
    station(1, 7.5F, 44.5F, "Dessous");
    station(2, 7.52F, 44.5F, "Dessus"); // its label lies over the first one's
    drawnets();
    const PictureMarks& marks = picture->marks;
    const QPoint first = marks.stations[1].label.topLeft();
    EXPECT_EQ(stationat(marks, first + QPoint(1, 1)), 1);
    EXPECT_EQ(stationat(marks, marks.stations[1].label.center()), 2);
    EXPECT_EQ(stationat(marks, marks.stations[2].label.bottomRight()), 2);
    EXPECT_EQ(stationat(marks, QPoint(1, 1)), 0);
}

TEST_F(MoveStation, ACrossIsFoundByAHandThatTrembles)
{
    station(1, 7.5F, 44.5F, "");
    drawnets();
    EXPECT_EQ(stationat(picture->marks, QPoint(104, 96)), 1);
    EXPECT_EQ(stationat(picture->marks, QPoint(105, 100)), 0);
}

TEST_F(MoveStation, WhatIsNotDrawnIsNotHit)
{
    drawnets();
    const QPoint place = picture->marks.stations[1].label.center();
    ASSERT_EQ(stationat(picture->marks, place), 1);
    drawstations(2, true);
    EXPECT_EQ(stationat(picture->marks, place), 0);
    drawnets();
    erasenets();
    EXPECT_EQ(stationat(picture->marks, place), 0);
}
