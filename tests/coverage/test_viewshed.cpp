#include "coverage/scene.h"
#include "coverage/slowcoverage.h"
#include "coverage/viewshed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace
{
std::vector<std::pair<int, int>> seenfrom(const MapGrid& map, const ViewOrder& order,
                                          const SweepCentre& centre, float ground_m)
{
    std::vector<std::pair<int, int>> all;
    const auto sweep = prepareview(map, order, centre, ground_m);
    EXPECT_TRUE(sweep);
    std::vector<int> seen;
    for (int k = 0; sweep && k < static_cast<int>(sweep->azimuths.size()); ++k) {
        viewradial(*sweep, k, seen);
        for (const int c : seen)
            all.emplace_back(k, c);
    }
    return all;
}

/// A ridge in column 40 of a plain, higher ground from column 60 on.
MapGrid ridgemap()
{
    MapGrid map = plainmap(80, 41, 100);
    for (int y = 0; y < 41; ++y) {
        map.at(40, y) = 150;
        for (int x = 60; x < 80; ++x)
            map.at(x, y) = 300;
    }
    return map;
}

ViewOrder eastward()
{
    ViewOrder order;
    order.bounds = {90, 90, 1, 0, 100};
    return order;
}

std::vector<int> columns(const std::vector<std::pair<int, int>>& seen)
{
    std::vector<int> found;
    for (const auto& [k, c] : seen)
        found.push_back(c);
    return found;
}
} // namespace

TEST(VisualCoverage, EqualsThePlainSweepForAnyOrder)
{
    const MapGrid map = hillymap(90, 70);
    std::mt19937 random(3);
    const auto any = [&](double low, double high) {
        return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random));
    };
    RadarDiagram radar;
    radar.gatesize_km = 0.4;
    radar.gates = {{0, 0}, {-50, 20}, {-60, 40}, {-80, 80}, {-90, 120}, {-100, 150}};
    for (int i = 0; i < 60; ++i) {
        ViewOrder order;
        order.bounds = {any(0, 180), any(180, 360), any(0.5, 9), any(0, 2), any(0.5, 12)};
        order.sensorh = any(0.1, 60);
        order.terrainfollow = i % 2 == 0;
        order.targeth = order.terrainfollow ? any(0.1, 30) : any(100, 400);
        if (i % 3 == 0)
            order.radar = radar;
        const SweepCentre centre{std::floor(double{any(0, 90)}), std::floor(double{any(0, 70)})};
        const float ground_m = any(100, 350);
        EXPECT_EQ(seenfrom(map, order, centre, ground_m),
                  slowviewshed(map, order, centre.x0, centre.y0, double{ground_m}))
            << i;
    }
}

TEST(VisualCoverage, RidgeHidesWhatStandsLowerBehindIt)
{
    const auto seen = columns(seenfrom(ridgemap(), eastward(), {0, 20}, 100));
    EXPECT_THAT(seen, testing::Contains(40)) << "the ridge itself";
    for (const int c : seen)
        EXPECT_TRUE(c <= 40 || c == 60) << c << ": only the edge of the high ground rises above";
    EXPECT_THAT(seen, testing::Contains(60));
}

TEST(VisualCoverage, FixedTargetBelowTheGroundIsSeenNowhereInTheShadow)
{
    ViewOrder order = eastward();
    order.terrainfollow = false;
    order.targeth = 50;
    for (const int c : columns(seenfrom(ridgemap(), order, {0, 20}, 100)))
        EXPECT_LE(c, 0) << "all ground lies above the target";
    order.targeth = 5000;
    EXPECT_EQ(seenfrom(ridgemap(), order, {0, 20}, 100).size(), 79U) << "high above everything";
}

TEST(VisualCoverage, EarthHidesADistantPlain)
{
    MapGrid map = plainmap(400, 11, 0);
    map.record.mapsize = 2; // cells of 200 m
    ViewOrder order = eastward();
    order.sensorh = 10;
    order.targeth = 0.1F;
    const auto seen = columns(seenfrom(map, order, {0, 5}, 0));
    // The horizon of 10 m lies at sqrt(2 R 10) = 11.3 km; a target of 0.1 m is seen 1.1 km farther.
    EXPECT_NEAR(seen.back() * 0.2, 12.4, 0.5);
}

TEST(VisualCoverage, NearLimitBeyondTheRangeLeavesTheLastCell)
{
    ViewOrder order = eastward();
    order.bounds.rmin = 1000;
    order.bounds.rmax = 3;
    const auto seen = columns(seenfrom(plainmap(80, 41, 100), order, {0, 20}, 100));
    EXPECT_THAT(seen, testing::ElementsAre(29)) << "3 km of 40 cells in 4.1 km";
}

TEST(VisualCoverage, RadarSeesWithinItsGatesOnly)
{
    ViewOrder order = eastward();
    order.radar.emplace();
    order.radar->gatesize_km = 1;
    order.radar->gates = {{0, 0}, {-100, 100}, {50, 100}, {-100, 100}};
    const auto seen = columns(seenfrom(plainmap(80, 41, 100), order, {0, 20}, 100));
    for (const int c : seen) {
        const double km = c * 4.1 / 40;
        EXPECT_GE(km, 0.9) << "the first gate begins the range";
        EXPECT_LE(km, 3.1);
        EXPECT_TRUE(km < 1.55 || km > 2.45) << km << ": gate 2 looks over the plain";
    }
    EXPECT_GE(seen.size(), 10U);
}

TEST(VisualCoverage, RadarThatReachesBeyondTheWorldEnds)
{
    ViewOrder order = eastward();
    order.radar.emplace();
    order.radar->gatesize_km = 1e200;
    order.radar->gates.resize(100);
    EXPECT_TRUE(seenfrom(plainmap(80, 41, 100), order, {0, 20}, 100).empty());
}

TEST(VisualCoverage, NeedsAMapAndACentreOnIt)
{
    EXPECT_FALSE(prepareview(MapGrid(), eastward(), {0, 0}, 0));
    EXPECT_FALSE(prepareview(plainmap(10, 10, 0), eastward(), {10, 0}, 0));
}

TEST(VisualCoverage, PaintsInOrderAndStopsWhereItIsTold)
{
    ViewOrder order;
    const MapGrid map = hillymap(60, 60);
    auto ready = prepareview(map, order, {30, 30}, 300);
    int painted = 0;
    std::vector<int> reported;
    runview(
        *ready, [&](const SectorSides&, std::span<const SampleRun>) { ++painted; },
        [&](int k) {
            reported.push_back(k);
            return k < 50;
        });
    EXPECT_EQ(painted, 51);
    EXPECT_THAT(reported, testing::ElementsAre(0, 10, 20, 30, 40, 50));
}
