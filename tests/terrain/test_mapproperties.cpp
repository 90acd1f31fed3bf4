#include "terrain/gridcells.h"
#include "terrain/mapproperties.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{
MapRecord record(float lon, float lat, float size_km)
{
    MapRecord built;
    built.maplon0 = lon;
    built.maplat0 = lat;
    built.mapsize = size_km;
    return built;
}

double halfwidth(const MapCorners& corners)
{
    return static_cast<double>(corners.lon[1] - corners.lon[0]) / 2;
}
} // namespace

TEST(Mapcorners, LieHalfASizeAwayFromTheCentre)
{
    // 111.125 km of an earth of 6367 km is one degree.
    const auto size = static_cast<float>(6367 * 3.141592653589793 / 180);
    const MapCorners corners = mapcorners(record(10, 0, size), 300, 100);
    EXPECT_THAT(corners.lat, ElementsAre(0.5F, 0.5F, -0.5F, -0.5F));
    EXPECT_THAT(corners.lon, ElementsAre(8.5F, 11.5F, 11.5F, 8.5F));
}

TEST(Mapcorners, SpreadInLongitudeTowardsThePole)
{
    const double equator = halfwidth(mapcorners(record(0, 0, 100), 400, 300));
    const double north = halfwidth(mapcorners(record(0, 60, 100), 400, 300));
    EXPECT_NEAR(north / equator, 2, 1e-5);
}

TEST(Mapcorners, CountASizeUnderOneKilometreAsOne)
{
    const MapCorners small = mapcorners(record(5, 45, 0.5F), 20, 20);
    const MapCorners one = mapcorners(record(5, 45, 1), 20, 20);
    EXPECT_EQ(small.lat, one.lat);
    EXPECT_EQ(small.lon, one.lon);
}

TEST(Mapcorners, AreShownBlockByBlock)
{
    MapCorners corners;
    corners.lon = {-73, -72, -72, -73};
    corners.lat = {46, 46, 45, 45};
    EXPECT_EQ(cornerstext(corners), "Supérieur gauche\n073°00'00\"O\n46°00'00\"N\n\n"
                                    "Supérieur droit\n072°00'00\"O\n46°00'00\"N\n\n"
                                    "Inférieur gauche\n073°00'00\"O\n45°00'00\"N\n\n"
                                    "Inférieur droit\n072°00'00\"O\n45°00'00\"N");
}

TEST(Mapwidth, IsTheHeightOfASquareMap)
{
    EXPECT_EQ(mapwidth_km(record(0, 0, 80), 300, 300), 80);
    EXPECT_EQ(mapwidth_km(record(0, 0, 80), 600, 300), 160);
}

namespace
{
/// 8 x 6 cells; the height tells column and row.
MapGrid smallmap()
{
    MapGrid map;
    allocatemap(map, 8, 6);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            map.at(x, y) = static_cast<std::int16_t>(10 * x + y);
    map.maplon = {-3, 4, 4, -3};
    map.maplat = {45, 45, 40, 40};
    return map;
}
} // namespace

TEST(Gridtexts, StandNorthUpAroundTheCell)
{
    EXPECT_THAT(gridtexts(smallmap(), 3, 2), ElementsAre("14", "24", "34", "44", "54", //
                                                         "13", "23", "33", "43", "53", //
                                                         "12", "22", "32", "42", "52", //
                                                         "11", "21", "31", "41", "51", //
                                                         "10", "20", "30", "40", "50"));
}

TEST(Gridtexts, ShowADashWhereTheMapEnds)
{
    EXPECT_THAT(gridtexts(smallmap(), 7, 5), ElementsAre("-", "-", "-", "-", "-",    //
                                                         "-", "-", "-", "-", "-",    //
                                                         "55", "65", "75", "-", "-", //
                                                         "54", "64", "74", "-", "-", //
                                                         "53", "63", "73", "-", "-"));
    EXPECT_THAT(gridtexts(MapGrid(), 0, 0), testing::Each("-"));
}

TEST(Cellposition, IsLinearBetweenTheEdgesAndBeyond)
{
    const MapGrid map = smallmap();
    EXPECT_EQ(columnlon(map, 0), -3);
    EXPECT_EQ(columnlon(map, 7), 4);
    EXPECT_EQ(columnlon(map, 2), -1);
    EXPECT_EQ(columnlon(map, -1), -4);
    EXPECT_EQ(rowlat(map, 0), 40);
    EXPECT_EQ(rowlat(map, 5), 45);
    EXPECT_EQ(rowlat(map, 6), 46);
}

TEST(Cellposition, OfAMapOfOneCellIsItsEdge)
{
    MapGrid map;
    allocatemap(map, 1, 1);
    map.maplon = {7, 7, 7, 7};
    map.maplat = {50, 50, 50, 50};
    EXPECT_EQ(columnlon(map, 3), 7);
    EXPECT_EQ(rowlat(map, -2), 50);
}
