#include "pictures/georeference.h"

#include <gtest/gtest.h>

namespace
{

Picture placed(std::int16_t kind, const std::array<float, 4>& lon, const std::array<float, 4>& lat,
               int width, int height)
{
    Picture picture;
    picture.Pictype = kind;
    picture.lon = lon;
    picture.lat = lat;
    picture.scalewidth = width;
    picture.scaleheight = height;
    return picture;
}

Picture map(float west, float east, float south, float north, int width = 401, int height = 301)
{
    return placed(pictype::map, {west, east, east, west}, {north, north, south, south}, width,
                  height);
}

struct Pixel {
    bool inside;
    float x, y;
};

Pixel pixel(const Picture& picture, float lon, float lat)
{
    Pixel found{};
    found.inside = ll2pic(picture, lon, lat, found.x, found.y);
    return found;
}

struct Degrees {
    bool inside;
    float lon, lat;
};

Degrees degrees(const Picture& picture, float x, float y)
{
    Degrees found{false, 77, 77};
    found.inside = pic2ll(picture, x, y, found.lon, found.lat);
    return found;
}

void expectinverse(const Picture& picture, float x, float y)
{
    const Degrees at = degrees(picture, x, y);
    EXPECT_TRUE(at.inside);
    const Pixel back = pixel(picture, at.lon, at.lat);
    EXPECT_TRUE(back.inside) << x << " " << y;
    EXPECT_EQ(back.x, x);
    EXPECT_EQ(back.y, y);
}

} // namespace

TEST(Georeference, AMapsCornersAreItsCornerPixels)
{
    const Picture picture = map(-74, -72, 44, 46);
    const Pixel topleft = pixel(picture, -74, 46);
    EXPECT_TRUE(topleft.inside);
    EXPECT_EQ(topleft.x, 0);
    EXPECT_EQ(topleft.y, 0);
    const Pixel bottomright = pixel(picture, -72, 44);
    EXPECT_TRUE(bottomright.inside);
    EXPECT_EQ(bottomright.x, 400);
    EXPECT_EQ(bottomright.y, 300);
    const Degrees middle = degrees(picture, 200, 150);
    EXPECT_TRUE(middle.inside);
    EXPECT_FLOAT_EQ(middle.lon, -73);
    EXPECT_FLOAT_EQ(middle.lat, 45);
}

TEST(Georeference, BothWaysAgreeOnEveryPixelOfAMap)
{
    const Picture picture = map(6.5F, 7.75F, 43.25F, 44, 57, 43);
    for (int y = 0; y < 43; ++y)
        for (int x = 0; x < 57; ++x)
            expectinverse(picture, static_cast<float>(x), static_cast<float>(y));
}

TEST(Georeference, APixelBeyondTheEdgeGivesExtrapolatedDegreesBesideFalse)
{
    const Degrees beyond = degrees(map(0, 4, 0, 3), 401, 300);
    EXPECT_FALSE(beyond.inside);
    EXPECT_FLOAT_EQ(beyond.lon, 4.01F);
    EXPECT_FLOAT_EQ(beyond.lat, 0);
}

TEST(Georeference, APositionOutsideStillGetsItsPixel)
{
    const Pixel outside = pixel(map(0, 4, 0, 3), 5, 4);
    EXPECT_FALSE(outside.inside);
    EXPECT_EQ(outside.x, 500);
    EXPECT_EQ(outside.y, -100);
}

TEST(Georeference, TheEdgeHasATolerance)
{
    const Picture picture = map(0, 1, 0, 1);
    EXPECT_TRUE(pixel(picture, -0.00009F, 0.5F).inside);
    EXPECT_FALSE(pixel(picture, -0.00011F, 0.5F).inside);
    EXPECT_TRUE(pixel(picture, 1.00009F, 0.5F).inside);
    EXPECT_FALSE(pixel(picture, 1.0001F, 0.5F).inside); // the bound itself is outside
    EXPECT_FALSE(pixel(picture, 1.00011F, 0.5F).inside);
}

TEST(Georeference, PixelsAreRoundedTiesToEven)
{
    const Picture picture = map(0, 8, 0, 8, 5, 5); // two degrees a pixel
    EXPECT_EQ(pixel(picture, 1, 8).x, 0);
    EXPECT_EQ(pixel(picture, 3, 8).x, 2);
    EXPECT_EQ(pixel(picture, 5, 8).x, 2);
    EXPECT_EQ(pixel(picture, 7, 8).x, 4);
}

TEST(Georeference, MapsAcrossTheDateLineTakePositionsOfTheOtherSide)
{
    const Pixel east = pixel(map(170, 190, 0, 10), -175, 5);
    EXPECT_TRUE(east.inside);
    EXPECT_EQ(east.x, 300);
    const Pixel west = pixel(map(-190, -170, 0, 10), 175, 5);
    EXPECT_TRUE(west.inside);
    EXPECT_EQ(west.x, 100);
}

TEST(Georeference, APlainPictureHasNoPositions)
{
    const Picture picture = placed(pictype::plain, {0, 1, 1, 0}, {1, 1, 0, 0}, 101, 51);
    const Degrees at = degrees(picture, 10, 10);
    EXPECT_FALSE(at.inside);
    EXPECT_EQ(at.lon, 77);
    EXPECT_EQ(at.lat, 77);
    for (const float lon : {-50.0F, 0.5F, 12.0F}) {
        const Pixel found = pixel(picture, lon, 0.5F);
        EXPECT_FALSE(found.inside);
        EXPECT_EQ(found.x, -100);
        EXPECT_EQ(found.y, -50);
    }
}

TEST(Georeference, CornersThatFallTogetherGiveFalseAndMinusOne)
{
    for (const std::int16_t kind : {pictype::map, pictype::fourcorners}) {
        for (const float same : {0.0F, 7.0F}) {
            const Picture picture =
                placed(kind, {same, same, same, same}, {same, same, same, same}, 101, 51);
            const Pixel found = pixel(picture, 1, 1);
            EXPECT_FALSE(found.inside);
            EXPECT_EQ(found.x, -1);
            EXPECT_EQ(found.y, -1);
        }
    }
}

TEST(Georeference, APictureOfOnePixelWidthHasNoDegrees)
{
    const Degrees at = degrees(map(0, 1, 0, 1, 1, 10), 0, 0);
    EXPECT_FALSE(at.inside);
    EXPECT_EQ(at.lon, 77);
}

TEST(Georeference, ARectangleOfFourCornersIsInvertedExactly)
{
    const Picture picture = placed(pictype::fourcorners, {1, 3, 3, 1}, {46, 46, 45, 45}, 41, 21);
    for (int y = 0; y < 21; ++y)
        for (int x = 0; x < 41; ++x)
            expectinverse(picture, static_cast<float>(x), static_cast<float>(y));
}

TEST(Georeference, APictureWithNorthToTheRightIsInvertedAtItsCorners)
{
    // The top edge runs from south to north in the west.
    const Picture picture = placed(pictype::fourcorners, {1, 1, 2, 2}, {45, 46, 46, 45}, 101, 101);
    for (const float x : {0.0F, 100.0F})
        for (const float y : {0.0F, 100.0F})
            expectinverse(picture, x, y);
    const Pixel found = pixel(picture, 1.25F, 45.5F);
    EXPECT_TRUE(found.inside);
    EXPECT_EQ(found.x, 50);
    EXPECT_EQ(found.y, 25);
}

TEST(Georeference, ASkewedPictureIsInvertedExactlyOnItsCorners)
{
    const Picture picture =
        placed(pictype::fourcorners, {1, 3, 3.2F, 0.9F}, {46, 46.2F, 45, 44.9F}, 101, 81);
    for (const float x : {0.0F, 100.0F})
        for (const float y : {0.0F, 80.0F})
            expectinverse(picture, x, y);
}

TEST(Georeference, AllCornersCountOnTheWayToDegrees)
{
    Picture picture = map(0, 1, 0, 1, 101, 101);
    picture.lon[2] = 2; // bottom right
    EXPECT_FLOAT_EQ(degrees(picture, 100, 100).lon, 2);
    EXPECT_EQ(pixel(picture, 1, 0).x, 100); // the way back takes two corners only
}
