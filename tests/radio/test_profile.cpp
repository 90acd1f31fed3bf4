#include "radio/profile.h"
#include "scene.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace
{
constexpr double pi = std::numbers::pi;

/// A profile between two positions in cells.
Profile cut(const MapGrid& map, float column1, float row1, float column2, float row2)
{
    Unit a;
    Unit b;
    scene::place(a, column1, row1);
    scene::place(b, column2, row2);
    Profile profile;
    const int n = cutprofile(map, a, b, profile);
    EXPECT_EQ(n, profile.intervals());
    return profile;
}
} // namespace

TEST(Azimuth, IsClockwiseFromNorth)
{
    EXPECT_DOUBLE_EQ(azimuth(1, 0), 0);
    EXPECT_DOUBLE_EQ(azimuth(1, 1), pi / 4);
    EXPECT_DOUBLE_EQ(azimuth(0, 1), pi / 2);
    EXPECT_DOUBLE_EQ(azimuth(-1, 1), 3 * pi / 4);
    EXPECT_DOUBLE_EQ(azimuth(-1, 0), pi);
    EXPECT_DOUBLE_EQ(azimuth(-1, -1), 5 * pi / 4);
    EXPECT_DOUBLE_EQ(azimuth(0, -1), 3 * pi / 2);
    EXPECT_DOUBLE_EQ(azimuth(1, -1), 7 * pi / 4);
}

TEST(Azimuth, OfNoDisplacementIsNorth)
{
    EXPECT_EQ(azimuth(0, 0), 0);
}

TEST(Azimuth, PointsBackAlongTheDisplacement)
{
    for (int step = 0; step < 720; ++step) {
        const double angle = step * pi / 360;
        const double found = azimuth(7 * std::cos(angle), 7 * std::sin(angle));
        EXPECT_GE(found, 0);
        EXPECT_LE(found, 2 * pi);
        EXPECT_NEAR(std::sin(found), std::sin(angle), 1e-12) << step;
        EXPECT_NEAR(std::cos(found), std::cos(angle), 1e-12) << step;
    }
}

TEST(CutProfile, HasOneSamplePerCellOnAShortPath)
{
    MapGrid map = scene::flatmap(21, 11, 5, 10);
    for (int x = 0; x < 21; ++x)
        map.at(x, 4) = static_cast<std::int16_t>(100 + x);
    const Profile profile = cut(map, 3, 4, 15, 4);
    ASSERT_EQ(profile.intervals(), 12);
    for (int i = 0; i <= 12; ++i)
        EXPECT_EQ(profile.sample(i), 103 + i);
    EXPECT_EQ(profile.pathmin, 103);
    EXPECT_EQ(profile.pathmax, 115);
    EXPECT_NEAR(profile.azim, 90, 1e-12);
    // 10 rows span 10 km
    EXPECT_DOUBLE_EQ(profile.distkm, 12);
    EXPECT_DOUBLE_EQ(profile.spacing_m, 1000);
}

TEST(CutProfile, ReadsCellsByColumnAndRow)
{
    MapGrid map = scene::flatmap(5, 9);
    map.at(2, 7) = 777;
    EXPECT_EQ(cut(map, 2, 7, 2, 1).sample(0), 777);
    EXPECT_EQ(cut(map, 2, 1, 2, 7).sample(6), 777);
    EXPECT_NEAR(cut(map, 2, 7, 2, 1).azim, 180, 1e-12);
}

TEST(CutProfile, ThinsALongPathTo157Intervals)
{
    MapGrid map = scene::flatmap(1001, 3, 0, 2);
    for (int x = 0; x <= 1000; ++x)
        map.at(x, 1) = static_cast<std::int16_t>(x);
    const Profile exact = cut(map, 0, 1, 157, 1);
    EXPECT_EQ(exact.intervals(), 157);
    EXPECT_EQ(exact.sample(157), 157);
    const Profile profile = cut(map, 0, 1, 1000, 1);
    ASSERT_EQ(profile.intervals(), 157);
    EXPECT_DOUBLE_EQ(profile.spacing_m, 1000.0 * 1000 / 157);
    for (int i = 0; i <= 157; ++i)
        EXPECT_EQ(profile.sample(i), std::nearbyint(i * 1000.0 / 157));
}

TEST(CutProfile, RoundsTiesToEven)
{
    MapGrid map = scene::flatmap(12, 12);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x)
            map.at(x, y) = static_cast<std::int16_t>(100 * y + x);
    const Profile profile = cut(map, 0.5F, 1.5F, 4.5F, 1.5F);
    ASSERT_EQ(profile.intervals(), 4);
    const double expected[] = {200, 202, 202, 204, 204};
    for (int i = 0; i <= 4; ++i)
        EXPECT_EQ(profile.sample(i), expected[i]) << i;
    // The number of intervals, too: 2.5 cells give 2, 3.5 cells give 4.
    EXPECT_EQ(cut(map, 0, 0, 2.5F, 0).intervals(), 2);
    EXPECT_EQ(cut(map, 0, 0, 3.5F, 0).intervals(), 4);
}

TEST(CutProfile, OfTwoStationsInOneCellDoesNotExist)
{
    const MapGrid map = scene::flatmap(12, 12, 50);
    const Profile profile = cut(map, 3, 3, 3.25F, 3);
    EXPECT_EQ(profile.intervals(), 0);
    EXPECT_EQ(profile.distkm, 0);
    EXPECT_EQ(profile.pathmin, 0);
    EXPECT_EQ(profile.pathmax, 0);
    EXPECT_NEAR(profile.azim, 90, 1e-12);
}

TEST(CutProfile, OfAStationOutsideTheMapDoesNotExist)
{
    const MapGrid map = scene::flatmap(12, 12, 50);
    for (const auto& [column, row] :
         {std::pair(-0.125F, 5.0F), {11.125F, 5.0F}, {5.0F, -0.125F}, {5.0F, 11.125F}}) {
        const Profile profile = cut(map, 3, 3, column, row);
        EXPECT_EQ(profile.intervals(), 0);
        EXPECT_EQ(profile.azim, -1);
        EXPECT_EQ(cut(map, column, row, 3, 3).intervals(), 0);
    }
    EXPECT_GT(cut(map, 0, 0, 11, 11).intervals(), 0) << "the outermost cells belong to the map";
}

TEST(CutProfile, NeedsAMapWithASize)
{
    EXPECT_EQ(cut(scene::flatmap(12, 12, 50, 0), 1, 1, 9, 9).intervals(), 0);
    EXPECT_EQ(cut(scene::flatmap(12, 12, 50, -3), 1, 1, 9, 9).intervals(), 0);
    EXPECT_EQ(cut(MapGrid{}, 1, 1, 9, 9).intervals(), 0);
}

TEST(CutProfile, NeedsAFrameWithAnExtent)
{
    MapGrid map = scene::flatmap(12, 12, 50);
    map.maplon.fill(scene::west);
    EXPECT_EQ(cut(map, 0, 1, 0, 9).intervals(), 0);
    EXPECT_EQ(cut(scene::flatmap(1, 1), 0, 0, 0, 0).intervals(), 0);
    map = scene::flatmap(12, 12, 50);
    map.maplat[2] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(cut(map, 1, 1, 9, 9).intervals(), 0);
}

TEST(CutProfile, OfAPositionThatIsNoNumberDoesNotExist)
{
    const MapGrid map = scene::flatmap(12, 12, 50);
    EXPECT_EQ(cut(map, std::numeric_limits<float>::quiet_NaN(), 1, 9, 9).intervals(), 0);
    EXPECT_EQ(cut(map, 1, 1, 9, std::numeric_limits<float>::infinity()).intervals(), 0);
}

TEST(CutProfile, OnAMapOfOneRowHasNoLength)
{
    MapGrid map = scene::flatmap(12, 1, 50);
    map.maplat = {45, 45, 44, 44};
    const Profile profile = cut(map, 1, 0, 9, 0);
    EXPECT_EQ(profile.intervals(), 8);
    EXPECT_EQ(profile.distkm, 0);
    EXPECT_EQ(profile.spacing_m, 0);
}

TEST(CutProfile, CrossesThe180thMeridian)
{
    MapGrid map = scene::flatmap(65, 9);
    const float westedge = 179.5F;
    map.maplon = {westedge, westedge + 1, westedge + 1, westedge};
    Unit a;
    Unit b;
    scene::place(a, 0, 4);
    scene::place(b, 0, 4);
    a.lon = 179.75F;
    b.lon = -179.75F;
    Profile profile;
    EXPECT_EQ(cutprofile(map, a, b, profile), 32);
    EXPECT_NEAR(profile.azim, 90, 1e-12);
    // The same frame counted from the other side.
    map.maplon = {westedge - 360, westedge - 359, westedge - 359, westedge - 360};
    EXPECT_EQ(cutprofile(map, a, b, profile), 32);
}

TEST(CutProfile, LeavesNothingOfALongerOne)
{
    const MapGrid map = scene::hillymap(200, 200, 1);
    Unit a;
    Unit b;
    Unit c;
    scene::place(a, 0, 0);
    scene::place(b, 199, 199);
    scene::place(c, 3, 0);
    Profile profile;
    ASSERT_EQ(cutprofile(map, a, b, profile), 157);
    ASSERT_EQ(cutprofile(map, a, c, profile), 3);
    EXPECT_EQ(profile.elevations_m.size(), 4U);
    EXPECT_EQ(cutprofile(map, a, a, profile), 0);
    EXPECT_EQ(profile.intervals(), 0);
    EXPECT_EQ(profile.spacing_m, 0);
    EXPECT_EQ(profile.distkm, 0);
}

TEST(CutProfile, KeepsStationElevationsOutOfTheExtremes)
{
    const MapGrid map = scene::flatmap(12, 12, 50);
    Unit a;
    Unit b;
    scene::place(a, 1, 1, 900.25F);
    scene::place(b, 1, 9, -900);
    Profile profile;
    ASSERT_EQ(cutprofile(map, a, b, profile), 8);
    setends(a, b, profile);
    EXPECT_EQ(profile.sample(0), 900.25);
    EXPECT_EQ(profile.sample(8), -900);
    EXPECT_EQ(profile.sample(1), 50);
    EXPECT_EQ(profile.pathmin, 50);
    EXPECT_EQ(profile.pathmax, 50);
}

TEST(CutProfile, ExtremesStartFromMinus1000And9999)
{
    EXPECT_EQ(cut(scene::flatmap(12, 12, -2000), 1, 1, 9, 9).pathmax, -1000);
    EXPECT_EQ(cut(scene::flatmap(12, 12, 12000), 1, 1, 9, 9).pathmin, 9999);
}

TEST(CutProfile, IsTheSameTerrainFromEitherEnd)
{
    const MapGrid map = scene::hillymap(90, 70, 3);
    const Profile there = cut(map, 4, 60, 81, 11);
    const Profile back = cut(map, 81, 11, 4, 60);
    ASSERT_EQ(there.intervals(), back.intervals());
    EXPECT_DOUBLE_EQ(there.distkm, back.distkm);
    EXPECT_NEAR(std::abs(there.azim - back.azim), 180, 1e-9);
    EXPECT_EQ(there.pathmin, back.pathmin);
    EXPECT_EQ(there.pathmax, back.pathmax);
}
