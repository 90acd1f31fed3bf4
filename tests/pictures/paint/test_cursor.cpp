#include "pictures/paint/cursor.h"
#include "pictures/paint/picturetest.h"
#include "relief/paint/drawmap.h"

namespace
{

class GeographicCursor : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        makemap(301, 201);
        picture = drawmap(nullptr, true);
        cursor = {};
    }

    OpenPicture* picture = nullptr;
};

} // namespace

TEST_F(GeographicCursor, TellsPositionHeightAndCell)
{
    movecursor(7.75F, 44.5F);
    EXPECT_EQ(label1, "007°45'00\"E  44°30'00\"N  850m  x=150 y=100");
    EXPECT_EQ(cursor.lon, 7.75F);
    EXPECT_EQ(cursor.x, 150);
    EXPECT_EQ(cursor.y, 100);
    EXPECT_EQ(cursor.h, 850);
}

TEST_F(GeographicCursor, HairsCrossOverThePosition)
{
    movecursor(7.25F, 44.75F);
    EXPECT_TRUE(picture->marks.Line1);
    EXPECT_TRUE(picture->marks.Line2);
    EXPECT_EQ(picture->marks.vertical, QLine(50, 0, 50, 201));
    EXPECT_EQ(picture->marks.horizontal, QLine(0, 50, 301, 50));
}

TEST_F(GeographicCursor, OffTheMapTheCellStaysAndPicturesThatContainItFollow)
{
    movecursor(7.75F, 44.5F);
    OpenPicture* other = openpic("", 2);
    other->data.lon = {10, 12, 12, 10};
    other->data.lat = {46, 46, 45, 45};
    movecursor(11, 45.5F);
    EXPECT_TRUE(label1.ends_with("  <Hors des limites de la carte>"));
    EXPECT_EQ(cursor.x, 150);
    EXPECT_EQ(cursor.h, 850);
    EXPECT_TRUE(other->marks.Line1);
    EXPECT_FALSE(picture->marks.Line1);
}

TEST_F(GeographicCursor, APictureThatDoesNotContainItLosesItsSelection)
{
    picture->marks.Shape2 = true;
    movecursor(20, 44.5F);
    EXPECT_FALSE(picture->marks.Shape2);
}

TEST_F(GeographicCursor, StereoPicturesHaveNoHairs)
{
    picture->data.source = "Stereo de carte";
    movecursor(7.25F, 44.75F);
    EXPECT_FALSE(picture->marks.Line1);
    EXPECT_FALSE(picture->marks.Line2);
}

TEST_F(GeographicCursor, StandsStillDuringALongOperation)
{
    opbusy = 1;
    movecursor(7.25F, 44.75F);
    EXPECT_EQ(cursor.lon, 0);
    EXPECT_FALSE(picture->marks.Line1);
}

TEST_F(GeographicCursor, HidingLastsUntilTheNextMove)
{
    movecursor(7.25F, 44.75F);
    hidecursor(*picture);
    EXPECT_FALSE(picture->marks.Line1);
    movecursor(7.25F, 44.75F);
    EXPECT_TRUE(picture->marks.Line1);
}

TEST_F(GeographicCursor, ComesBackWhereTheHairsWereAfterTheNetsWereErased)
{
    movecursor(7.25F, 44.75F);
    erasenets();
    EXPECT_FALSE(picture->marks.Line1);
    EXPECT_EQ(picture->marks.vertical.x1(), 50);
    EXPECT_EQ(picture->marks.horizontal.y1(), 50);
}

TEST_F(GeographicCursor, StepsByColumnsAndRowsOfTheMap)
{
    movecursor(7.75F, 44.5F);
    stepcursor(1, 0);
    EXPECT_EQ(cursor.x, 151);
    EXPECT_FLOAT_EQ(cursor.lon, 7 + 151 * 1.5F / 300);
    EXPECT_EQ(cursor.lat, 44.5F);
    stepcursor(0, 1);
    EXPECT_EQ(cursor.y, 101);
    EXPECT_FLOAT_EQ(cursor.lat, 44 + 101 / 200.0F);
    stepcursor(-1, 0);
    stepcursor(0, -1);
    EXPECT_FLOAT_EQ(cursor.lon, 7.75F);
    EXPECT_FLOAT_EQ(cursor.lat, 44.5F);
}

TEST_F(GeographicCursor, OnAMapOfOneColumnStepsChangeNothing)
{
    allocatemap(mapgrid, 1, 1);
    cursor.lon = 7.1F;
    cursor.lat = 44.1F;
    stepcursor(1, 0);
    stepcursor(0, 1);
    EXPECT_EQ(cursor.lon, 7.1F);
    EXPECT_EQ(cursor.lat, 44.1F);
}

namespace
{

class StereoCursor : public GeographicCursor
{
protected:
    void SetUp() override
    {
        GeographicCursor::SetUp();
        picture->data.source = "STEREO de colline";
        stereopos = {};
    }
    void TearDown() override
    {
        stereopos = {};
        GeographicCursor::TearDown();
    }

    std::array<int, 4> lefts() const
    {
        std::array<int, 4> found{};
        for (std::size_t i = 0; i < found.size(); ++i)
            found[i] = picture->marks.Shape1[i].left();
        return found;
    }
};

} // namespace

TEST_F(StereoCursor, TheBoxesLieRoundItsPlaceWithTheirFrames)
{
    stereocursor(*picture, 100, 60, 0, false);
    EXPECT_THAT(lefts(), testing::ElementsAre(96, 96, 95, 95));
    EXPECT_EQ(picture->marks.Shape1[0].top(), 56);
    EXPECT_EQ(picture->marks.Shape1[1].top(), 56);
    EXPECT_EQ(picture->marks.Shape1[2].top(), 55);
    EXPECT_EQ(picture->marks.Shape1[3].top(), 55);
}

TEST_F(StereoCursor, TheDisparityMovesTheBoxesApart)
{
    stereocursor(*picture, 100, 60, 0, false);
    for (int i = 0; i < 3; ++i)
        stereocursor(*picture, 0, 0, 1, true);
    EXPECT_EQ(stereopos.d, 3);
    EXPECT_THAT(lefts(), testing::ElementsAre(98, 95, 97, 94));
    stereocursor(*picture, 50, 50, 9, false); // an absolute place keeps the disparity
    EXPECT_EQ(stereopos.d, 3);
    EXPECT_THAT(lefts(), testing::ElementsAre(48, 45, 47, 44));
}

TEST_F(StereoCursor, NegativeDisparitiesRoundDownward)
{
    stereocursor(*picture, 100, 60, 0, false);
    stereocursor(*picture, 0, 0, -1, true);
    EXPECT_THAT(lefts(), testing::ElementsAre(96, 97, 95, 96));
    stereocursor(*picture, 0, 0, -1, true);
    EXPECT_THAT(lefts(), testing::ElementsAre(95, 97, 94, 96));
}

TEST_F(StereoCursor, TheDisparityIsHeld)
{
    for (int i = 0; i < 50; ++i)
        stereocursor(*picture, 0, 0, 1, true);
    EXPECT_EQ(stereopos.d, 30);
    for (int i = 0; i < 50; ++i)
        stereocursor(*picture, 0, 0, -1, true);
    EXPECT_EQ(stereopos.d, -10);
}

TEST_F(StereoCursor, RelativeStepsMoveItAndOtherPicturesHideIt)
{
    stereocursor(*picture, 100, 60, 0, false);
    stereocursor(*picture, 5, -7, 0, true);
    EXPECT_EQ(stereopos.x, 105);
    EXPECT_EQ(stereopos.y, 53);
    picture->data.source = "carte";
    stereocursor(*picture, 20, 20, 1, false);
    EXPECT_EQ(stereopos.x, 105);
    for (const QRect& box : picture->marks.Shape1)
        EXPECT_TRUE(box.isEmpty());
}

TEST_F(StereoCursor, ErasingTheNetsLeavesItsFirstBox)
{
    stereocursor(*picture, 100, 60, 0, false);
    erasenets();
    EXPECT_FALSE(picture->marks.Shape1[0].isEmpty());
    for (const std::size_t i : {1U, 2U, 3U})
        EXPECT_TRUE(picture->marks.Shape1[i].isEmpty());
}
