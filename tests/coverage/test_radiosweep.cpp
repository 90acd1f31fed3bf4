#include "base/parallel.h"
#include "coverage/radiosweep.h"
#include "coverage/scene.h"
#include "coverage/slowcoverage.h"

#include <gtest/gtest.h>
#include <random>

namespace
{
CoverageOrder plainorder()
{
    CoverageOrder order;
    order.centre = 1;
    order.mobile = 2;
    order.net = 1;
    order.bounds = {0, 360, 5, 0.1F, 100};
    order.unit = LevelUnit::dbm;
    order.levels = {-107, -67};
    return order;
}

struct Swept {
    std::vector<SectorPaint> sectors;
    double area_km2 = 0;
    int lastreported = -1;
};

Swept sweep(const NetworkTables& tables, const MapGrid& map, const CoverageOrder& order,
            const SweepCentre& centre, int stopat = -1)
{
    Swept out;
    const auto ready = preparesweep(tables, map, order, centre, 0);
    EXPECT_TRUE(ready);
    if (!ready)
        return out;
    const auto rings = runsweep(
        *ready,
        [&](std::span<const SectorPaint> sectors) {
            out.sectors.insert(out.sectors.end(), sectors.begin(), sectors.end());
        },
        [&](int k) {
            out.lastreported = k;
            return k != stopat;
        });
    out.area_km2 = coveredarea(*ready, rings);
    return out;
}

void expectsame(const Swept& swept, const SlowCoverage& slow)
{
    ASSERT_EQ(swept.sectors.size(), slow.sectors.size());
    for (std::size_t i = 0; i < slow.sectors.size(); ++i) {
        const SectorPaint& a = swept.sectors[i];
        const SlowSector& b = slow.sectors[i];
        ASSERT_TRUE(a.quad == b.quad && a.fill == b.fill && a.across == b.across &&
                    a.along == b.along)
            << "radial " << b.k << " sample " << b.c;
    }
    EXPECT_NEAR(swept.area_km2, slow.area_km2, 1e-9 * (1 + slow.area_km2));
}
} // namespace

TEST(RadioCoverage, EqualsThePlainSweepForAnyOrder)
{
    const MapGrid map = hillymap(70, 55);
    NetworkTables tables = twostations();
    std::mt19937 random(7);
    const auto any = [&](double low, double high) {
        return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random));
    };
    for (int i = 0; i < 60; ++i) {
        CoverageOrder order = plainorder();
        const bool shortwave = i % 3 == 0;
        tables.nets[1].fmin = tables.nets[1].fmax = shortwave ? 25.0F : 150.0F;
        tables.nets[1].statmode = i % 4 == 0 ? 103 : 3;
        order.mobiletransmits = i % 2 == 1;
        order.unit = static_cast<LevelUnit>(i % 3);
        order.levels = order.unit == LevelUnit::sunit ? Levels{any(1, 9), any(10, 60)}
                                                      : Levels{any(-120, -90), any(-89, -40)};
        order.curve = i % 5 != 0;
        order.surface = i % 7 != 0;
        order.rainbow = i % 2 == 0;
        order.antaz = any(0, 360);
        for (float& gain_db : order.pattern)
            gain_db = any(-20, 0);
        order.bounds = {any(0, 180), any(180, 360), any(1, 9), any(0.1, 3), any(1, 12)};
        const SweepCentre centre{std::floor(double{any(0, 70)}), std::floor(double{any(0, 55)})};
        SCOPED_TRACE(i);
        expectsame(sweep(tables, map, order, centre),
                   slowcoverage(tables, map, order, centre.x0, centre.y0));
    }
}

TEST(RadioCoverage, DoesNotDependOnTheNumberOfThreads)
{
    const MapGrid map = hillymap(70, 55);
    const NetworkTables tables = twostations();
    CoverageOrder order = plainorder();
    order.rainbow = order.curve = true;
    setthreads(1);
    const Swept one = sweep(tables, map, order, {30, 20});
    setthreads(0);
    const Swept all = sweep(tables, map, order, {30, 20});
    ASSERT_EQ(one.sectors.size(), all.sectors.size());
    for (std::size_t i = 0; i < one.sectors.size(); ++i)
        EXPECT_EQ(one.sectors[i].fill, all.sectors[i].fill);
    EXPECT_EQ(one.area_km2, all.area_km2);
}

TEST(RadioCoverage, NeedsANetAndTwoStations)
{
    const MapGrid map = hillymap(20, 20);
    const NetworkTables tables = twostations();
    CoverageOrder order = plainorder();
    order.net = 0;
    EXPECT_FALSE(preparesweep(tables, map, order, {5, 5}, 0));
    order = plainorder();
    order.mobile = 1;
    EXPECT_FALSE(preparesweep(tables, map, order, {5, 5}, 0));
    order.mobile = 51;
    EXPECT_FALSE(preparesweep(tables, map, order, {5, 5}, 0));
    EXPECT_FALSE(preparesweep(tables, map, plainorder(), {20, 5}, 0)) << "off the map";
    EXPECT_FALSE(preparesweep(tables, map, plainorder(), {5, -1}, 0));
    EXPECT_FALSE(preparesweep(tables, map, plainorder(), {NAN, 5}, 0));
    EXPECT_FALSE(preparesweep(tables, MapGrid(), plainorder(), {0, 0}, 0)) << "no map";
}

TEST(RadioCoverage, NeedsAFiniteFrequencyAndGain)
{
    const MapGrid map = hillymap(20, 20);
    NetworkTables tables = twostations();
    ASSERT_TRUE(preparesweep(tables, map, plainorder(), {5, 5}, 0));
    tables.nets[static_cast<std::size_t>(plainorder().net)].fmin = NAN;
    EXPECT_FALSE(preparesweep(tables, map, plainorder(), {5, 5}, 0));
    tables = twostations();
    for (RadioSystem& system : tables.systems)
        system.gain = INFINITY;
    EXPECT_FALSE(preparesweep(tables, map, plainorder(), {5, 5}, 0));
}

TEST(RadioCoverage, ARainbowNeedsTwoLevels)
{
    const MapGrid map = hillymap(20, 20);
    CoverageOrder order = plainorder();
    order.surface = true;
    for (const LevelUnit unit : {LevelUnit::sunit, LevelUnit::dbm, LevelUnit::microvolt}) {
        order.unit = unit;
        order.rainbow = true;
        order.levels = {5, 9};
        EXPECT_TRUE(hasscale(*preparesweep(twostations(), map, order, {5, 5}, 0)));
        order.levels = {5, 5};
        EXPECT_FALSE(hasscale(*preparesweep(twostations(), map, order, {5, 5}, 0)));
        order.rainbow = false;
        EXPECT_TRUE(hasscale(*preparesweep(twostations(), map, order, {5, 5}, 0)));
    }
}

TEST(RadioCoverage, SamplesOfARadialAreAtMost160)
{
    const NetworkTables tables = twostations();
    CoverageOrder order = plainorder();
    order.bounds.rmax = 1000;
    const auto large = preparesweep(tables, plainmap(900, 700, 0), order, {450, 350}, 0);
    EXPECT_EQ(large->samples, 160);
    EXPECT_GT(large->d_cells, 3);
    const auto small = preparesweep(tables, plainmap(10, 10, 0), order, {5, 5}, 0);
    EXPECT_EQ(small->samples, 7);
    EXPECT_NEAR(small->d_cells, 1, 1e-12);
    order.bounds.rmax = 0.05F;
    EXPECT_EQ(preparesweep(tables, plainmap(10, 10, 0), order, {5, 5}, 0)->samples, 2);
}

TEST(RadioCoverage, NearLimitBeyondThePathLeavesTheLastSample)
{
    const MapGrid map = plainmap(60, 60, 100);
    CoverageOrder order = plainorder();
    order.rainbow = true;
    order.bounds = {0, 0, 1, 1000, 1000};
    const Swept swept = sweep(twostations(), map, order, {30, 30});
    ASSERT_EQ(swept.sectors.size(), 1U);
    const auto ready = preparesweep(twostations(), map, order, {30, 30}, 0);
    RadioRadial radial;
    sweepradial(*ready, 0, radial);
    EXPECT_EQ(swept.sectors[0].quad, sectorquad(radial.sides, {30, 30}, radial.count));
}

TEST(RadioCoverage, RadialsTowardsANearEdgeEndEarly)
{
    const MapGrid map = plainmap(60, 60, 100);
    const auto ready = preparesweep(twostations(), map, plainorder(), {30, 2}, 0);
    RadioRadial radial;
    sweepradial(*ready, 0, radial);
    EXPECT_EQ(radial.count, 2);
    sweepradial(*ready, 36, radial);
    EXPECT_EQ(ready->azimuths[36], 180);
    EXPECT_EQ(radial.count, 57);
}

TEST(RadioCoverage, RadialWithoutSamplesPaintsNothing)
{
    const MapGrid map = plainmap(60, 60, 100);
    CoverageOrder order = plainorder();
    order.rainbow = order.curve = true;
    order.bounds = {350, 360, 1, 0.1F, 1000};
    const Swept swept = sweep(twostations(), map, order, {30, 0});
    EXPECT_TRUE(swept.sectors.empty());
    EXPECT_EQ(swept.area_km2, 0);
}

TEST(RadioCoverage, PlainSurfaceOfZeroWidthPaintsNothing)
{
    CoverageOrder order = plainorder();
    order.levels = {-90, -90};
    const Swept swept = sweep(twostations(), hillymap(40, 40), order, {20, 20});
    EXPECT_TRUE(swept.sectors.empty());
    EXPECT_EQ(swept.lastreported, 70) << "the sweep went to its end";
}

TEST(RadioCoverage, RainbowOfZeroWidthEndsTheSweep)
{
    CoverageOrder order = plainorder();
    order.rainbow = true;
    order.levels = {-90, -90};
    const Swept swept = sweep(twostations(), hillymap(40, 40), order, {20, 20});
    EXPECT_TRUE(swept.sectors.empty());
    EXPECT_EQ(swept.lastreported, -1);
}

TEST(RadioCoverage, PatternHoleEmptiesItsDirection)
{
    const MapGrid map = plainmap(60, 60, 100);
    CoverageOrder order = plainorder();
    order.levels = {-90, 50};
    order.bounds = {90, 90, 1, 0.1F, 100};
    EXPECT_FALSE(sweep(twostations(), map, order, {10, 30}).sectors.empty());
    order.pattern[80] = -100;
    order.antaz = 10;
    EXPECT_TRUE(sweep(twostations(), map, order, {10, 30}).sectors.empty());
}

TEST(RadioCoverage, RainbowPaintsTheUnservedAreaToo)
{
    const MapGrid map = hillymap(40, 40);
    CoverageOrder order = plainorder();
    order.rainbow = true;
    order.levels = {50, 60};
    const Swept swept = sweep(twostations(), map, order, {20, 20});
    EXPECT_GT(swept.sectors.size(), 1000U);
    for (const SectorPaint& sector : swept.sectors)
        EXPECT_EQ(sector.fill, 0);
    EXPECT_EQ(swept.area_km2, 0);
}

TEST(RadioCoverage, AreaOfAServedDiscIsThatOfItsRings)
{
    const MapGrid map = plainmap(101, 101, 100);
    CoverageOrder order = plainorder();
    order.levels = {-200, 100};
    order.bounds = {0, 359, 1, 0, 4};
    const Swept swept = sweep(twostations(), map, order, {50, 50});
    // The innermost ring, up to sample 1.5, is never painted; 10.1 km have 100 cells.
    const double spacing_km = 0.1 * 101 / 100;
    const double outer = 4 + spacing_km / 2;
    const double inner = 1.5 * spacing_km;
    EXPECT_NEAR(swept.area_km2, 3.14159265 * (outer * outer - inner * inner), 0.3);
}

TEST(RadioCoverage, StopKeepsWhatWasPaintedUpToTheReport)
{
    const MapGrid map = hillymap(40, 40);
    CoverageOrder order = plainorder();
    order.rainbow = true;
    const Swept whole = sweep(twostations(), map, order, {20, 20});
    const Swept stopped = sweep(twostations(), map, order, {20, 20}, 20);
    EXPECT_EQ(stopped.lastreported, 20);
    ASSERT_LT(stopped.sectors.size(), whole.sectors.size());
    ASSERT_GT(stopped.sectors.size(), 100U);
    for (std::size_t i = 0; i < stopped.sectors.size(); ++i)
        EXPECT_EQ(stopped.sectors[i].quad, whole.sectors[i].quad);
}

TEST(RadioCoverage, WorksOnASmallMapAndOnGarbageHeights)
{
    MapGrid map = plainmap(10, 10, 0);
    for (std::size_t i = 0; i < map.samples.size(); ++i)
        map.samples[i] = static_cast<std::int16_t>(i % 2 ? 32767 : -32768);
    NetworkTables tables = twostations();
    tables.units[1].elevation = NAN;
    CoverageOrder order = plainorder();
    order.rainbow = order.curve = true;
    for (int x = 0; x < 10; ++x)
        sweep(tables, map, order, {double(x), 9.0 - x});
}
