#include "pictures/paint/cursor.h"
#include "pictures/paint/drawmap.h"
#include "picturetest.h"

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
