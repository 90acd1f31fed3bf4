#include "coverage/scene.h"
#include "coverage/sweep.h"

#include <gtest/gtest.h>
#include <random>

TEST(Radials, BothEndsOfAFullCircleAreSwept)
{
    EXPECT_EQ(lastradial({0, 360, 1, 0, 100}), 360);
    const auto azimuths = radialazimuths({0, 360, 1, 0, 100});
    ASSERT_EQ(azimuths.size(), 361U);
    EXPECT_EQ(azimuths.front(), 0);
    EXPECT_EQ(azimuths.back(), 360);
    EXPECT_EQ(lastradial({0, 360, 0.1F, 0, 100}), 3600);
}

TEST(Radials, LastOneMayPassTheLastAzimuthByTheRounding)
{
    const auto azimuths = radialazimuths({10, 14.5F, 1.25F, 0, 100});
    ASSERT_EQ(azimuths.size(), 5U) << "4.5 / 1.25 = 3.6";
    EXPECT_EQ(azimuths.back(), 15);
}

TEST(Radials, ThereAreNoneForBadBounds)
{
    EXPECT_TRUE(radialazimuths({90, 10, 1, 0, 100}).empty()) << "swapped";
    EXPECT_TRUE(radialazimuths({0, 360, 0, 0, 100}).empty());
    EXPECT_TRUE(radialazimuths({0, 360, -1, 0, 100}).empty());
    EXPECT_TRUE(radialazimuths({0, 360, NAN, 0, 100}).empty());
    EXPECT_TRUE(radialazimuths({NAN, 360, 1, 0, 100}).empty());
    EXPECT_TRUE(radialazimuths({0, 360, 1e-9F, 0, 100}).empty());
    EXPECT_EQ(radialazimuths({30, 30, 1, 0, 100}).size(), 1U);
}

TEST(NearestCell, RoundsTiesToEven)
{
    for (const double value : {0.5, 1.5, -0.5, -1.5, 2.49999, -7.5, 1e6 + 0.5, 3.0, -123456.7})
        EXPECT_EQ(nearestcell(value), static_cast<int>(std::nearbyint(value))) << value;
}

TEST(Reach, IsTheDistanceToTheFarthestCorner)
{
    const MapGrid map = plainmap(301, 401, 0);
    EXPECT_EQ(reachcells(map, {0, 0}), 500);
    EXPECT_EQ(reachcells(map, {300, 400}), 500);
    EXPECT_EQ(reachcells(map, {150, 200}), 250);
}

TEST(SamplesInside, StopAtTheFirstCellOffTheMap)
{
    const MapGrid map = plainmap(80, 60, 0);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> any(0, 1);
    for (int i = 0; i < 5000; ++i) {
        const SweepCentre centre{std::floor(any(random) * 80), std::floor(any(random) * 60)};
        const double angle = any(random) * 7;
        const double length = any(random) * 3;
        const double ux = length * std::cos(angle);
        const double uy = length * std::sin(angle);
        int expected = 0;
        for (int c = 1; c <= 160; ++c, ++expected) {
            const int x = static_cast<int>(std::nearbyint(c * ux + centre.x0));
            const int y = static_cast<int>(std::nearbyint(c * uy + centre.y0));
            if (x < 0 || x > 79 || y < 0 || y > 59)
                break;
        }
        ASSERT_EQ(samplesinside(map, centre, ux, uy, 160), expected);
    }
}

TEST(SectorQuads, OfNeighboursShareTheirCorners)
{
    const SweepCentre centre{100, 90};
    const SectorSides left = sectorsides(30, 0.5, 1.3);
    const SectorSides right = sectorsides(31, 0.5, 1.3);
    for (int c = 1; c < 200; ++c) {
        const SectorQuad a = sectorquad(left, centre, c);
        const SectorQuad b = sectorquad(right, centre, c);
        EXPECT_EQ(a[3], b[0]);
        EXPECT_EQ(a[2], b[1]);
        EXPECT_EQ(sectorquad(left, centre, c + 1)[0], a[1]);
    }
}

TEST(SectorQuads, AzimuthZeroPointsUpThePicture)
{
    const SectorQuad quad = sectorquad(sectorsides(0, 5, 10), {50, 50}, 4);
    EXPECT_LT(quad[1].y, 10);
    EXPECT_LT(quad[1].x, 50);
    EXPECT_GT(quad[2].x, 50);
}

TEST(SweepRadials, ComputesAllAndTakesInOrder)
{
    std::vector<int> computed(101);
    std::vector<int> taken;
    sweepradials(
        100, 10, [&](int k) { ++computed[static_cast<std::size_t>(k)]; },
        [&](int k) {
            taken.push_back(k);
            return true;
        });
    EXPECT_EQ(std::count(computed.begin(), computed.end(), 1), 101);
    ASSERT_EQ(taken.size(), 101U);
    EXPECT_TRUE(std::is_sorted(taken.begin(), taken.end()));
}

TEST(SweepRadials, EndWhenNoMoreAreTaken)
{
    int count = 0;
    sweepradials(
        100, 10, [](int) {},
        [&](int k) {
            ++count;
            return k < 20;
        });
    EXPECT_EQ(count, 21);
    sweepradials(
        -1, 10, [](int) { FAIL(); }, [](int) { return true; });
}
