#include "terrain/mapgrid.h"

#include <cmath>
#include <gtest/gtest.h>

static MapGrid makemap(int width, int height, float lon, float lat, float size)
{
    MapGrid map;
    allocatemap(map, width, height);
    map.record.maplon0 = lon;
    map.record.maplat0 = lat;
    map.record.mapsize = size;
    mapframe(map);
    return map;
}

TEST(AllocateMap, GivesZerosAndKeepsTheFrame)
{
    MapGrid map = makemap(3, 2, 5, 45, 100);
    map.samples.assign(6, 9);
    const auto corners = map.maplon;
    allocatemap(map, 4, 5);
    EXPECT_EQ(map.samples, std::vector<std::int16_t>(20));
    EXPECT_EQ(map.upperx(), 3);
    EXPECT_EQ(map.uppery(), 4);
    EXPECT_EQ(map.maplon, corners);
}

TEST(AllocateMap, WithoutExtentLeavesNoSamples)
{
    MapGrid map = makemap(3, 2, 5, 45, 100);
    allocatemap(map, 0, 5);
    EXPECT_TRUE(map.samples.empty());
    allocatemap(map, 5, -1);
    EXPECT_TRUE(map.samples.empty());
    EXPECT_EQ(map.width, 0);
    EXPECT_EQ(map.height, 0);
}

TEST(MapFrame, IsCentredWithCellsSquareOnTheGround)
{
    const MapGrid map = makemap(401, 301, -73, 45, 200);
    const double latspan = 200 / 6367.0 / 0.017453292519943278;
    const double lonspan = latspan / 300 * 400 / std::cos(45 * 0.017453292519943278);
    EXPECT_EQ(map.maplat[0], static_cast<float>(45 + latspan / 2));
    EXPECT_EQ(map.maplat[1], map.maplat[0]);
    EXPECT_EQ(map.maplat[2], static_cast<float>(45 - latspan / 2));
    EXPECT_EQ(map.maplat[3], map.maplat[2]);
    EXPECT_EQ(map.maplon[0], static_cast<float>(-73 - lonspan / 2));
    EXPECT_EQ(map.maplon[3], map.maplon[0]);
    EXPECT_EQ(map.maplon[1], static_cast<float>(-73 + lonspan / 2));
    EXPECT_EQ(map.maplon[2], map.maplon[1]);
}

TEST(MapFrame, ASizeBelowOneBecomesOne)
{
    for (const float size : {0.5F, 0.0F, -21600.0F, std::nanf("")})
        EXPECT_EQ(makemap(11, 11, 0, 0, size).record.mapsize, 1) << size;
    EXPECT_EQ(makemap(11, 11, 0, 0, 1.5F).record.mapsize, 1.5F);
}

TEST(MapFrame, IsNotWrappedAtThe180thMeridian)
{
    const MapGrid map = makemap(101, 101, 179.5F, 0, 200);
    EXPECT_GT(map.maplon[2], 180);
    EXPECT_LT(map.maplon[0], 180);
}

class MapLookupTest : public testing::Test
{
protected:
    MapLookupTest()
    {
        map = makemap(101, 51, 10, 45, 50);
        for (int row = 0; row < 51; ++row)
            for (int column = 0; column < 101; ++column)
                map.at(column, row) = static_cast<std::int16_t>(column + 200 * row);
    }
    bool look(float lon, float lat) { return maplookup(map, lon, lat, x, y, elev); }

    MapGrid map;
    float x = -7, y = -8, elev = -9;
};

TEST_F(MapLookupTest, TheCentreAndTheCornersAreCells)
{
    EXPECT_TRUE(look(10, 45));
    EXPECT_EQ(x, 50);
    EXPECT_EQ(y, 25);
    EXPECT_EQ(elev, 50 + 200 * 25);
    EXPECT_TRUE(look(map.maplon[0], map.maplat[0]));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 50);
    EXPECT_TRUE(look(map.maplon[2], map.maplat[2]));
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, 0);
}

TEST_F(MapLookupTest, RoundsToTheNearestCell)
{
    const float cell = (map.maplon[2] - map.maplon[0]) / 100;
    EXPECT_TRUE(look(map.maplon[0] - 0.45F * cell, 45));
    EXPECT_EQ(x, 0);
    EXPECT_TRUE(look(map.maplon[0] + 2.55F * cell, 45));
    EXPECT_EQ(x, 3);
}

TEST_F(MapLookupTest, OutsideTheCellIsToldAndTheHeightStays)
{
    const float cell = (map.maplon[2] - map.maplon[0]) / 100;
    EXPECT_FALSE(look(map.maplon[2] + 3 * cell, 45));
    EXPECT_EQ(x, 103);
    EXPECT_EQ(y, 25);
    EXPECT_EQ(elev, -9);
    EXPECT_FALSE(look(10, 47));
    EXPECT_GT(y, 50);
    EXPECT_FALSE(look(10, -89));
    EXPECT_LT(y, 0);
}

TEST_F(MapLookupTest, TiesGoToTheEvenCell)
{
    map.maplon = {0, 100, 100, 0};
    map.maplat = {50, 50, 0, 0};
    EXPECT_TRUE(look(2.5F, 3.5F));
    EXPECT_EQ(x, 2);
    EXPECT_EQ(y, 4);
}

TEST_F(MapLookupTest, AMapAcrossThe180thMeridianTakesBothSigns)
{
    map.maplon = {-181, -179, -179, -181};
    EXPECT_TRUE(look(179.5F, 45));
    EXPECT_EQ(x, 25); // as -180.5
    EXPECT_TRUE(look(-179.5F, 45));
    EXPECT_EQ(x, 75);
    map.maplon = {179, 181, 181, 179};
    EXPECT_TRUE(look(-179.5F, 45));
    EXPECT_EQ(x, 75);
    EXPECT_TRUE(look(179.5F, 45));
    EXPECT_EQ(x, 25);
}

TEST_F(MapLookupTest, WithoutSamplesItIsTrueAndChangesNothing)
{
    map = MapGrid();
    EXPECT_TRUE(look(10, 45));
    EXPECT_EQ(x, -7);
    EXPECT_EQ(y, -8);
    EXPECT_EQ(elev, -9);
}

TEST_F(MapLookupTest, AFrameWithoutExtentOrAPositionThatIsNoneIsOutside)
{
    EXPECT_FALSE(look(std::nanf(""), 45));
    EXPECT_FALSE(look(10, HUGE_VALF));
    map = makemap(1, 1, 10, 45, 50);
    EXPECT_FALSE(look(10, 45));
    EXPECT_EQ(x, -7);
    EXPECT_EQ(elev, -9);
}
