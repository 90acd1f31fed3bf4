#include "radio/link.h"
#include "scene.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{
/// A net of two stations with two different systems.
NetworkTables twostations()
{
    NetworkTables tables;
    tables.systems[1] = RadioSystem{50, -110, 1.5F, 3, 10, {}};
    tables.systems[2] = RadioSystem{5, -103, 0.5F, 6, 20, {}};
    scene::join(tables.nets[1], 1, 0, 1);
    scene::join(tables.nets[1], 2, 0, 2);
    scene::place(tables.units[1], 10, 10, 500);
    scene::place(tables.units[2], 70, 40, 500);
    return tables;
}

/// The link of both stations over hills, evaluated.
Link evaluated(const NetworkTables& tables, bool farendonly, std::int16_t interference = 0)
{
    const MapGrid map = scene::hillymap(80, 60, 7, 60);
    Link link;
    EXPECT_GT(cutprofile(map, tables.units[1], tables.units[2], link.profile), 0);
    setends(tables.units[1], tables.units[2], link.profile);
    setlink(tables, 1, 2, 1, link);
    const double margin = linkmargin(tables.nets[1], farendonly, interference, link);
    EXPECT_DOUBLE_EQ(margin, std::min(link.gain12, link.gain21) - link.record.loss);
    return link;
}

double loss(const Link& link, int i)
{
    return link.losses.at(static_cast<std::size_t>(i));
}
} // namespace

TEST(SetLink, GainsCountBothSystems)
{
    Link link;
    setlink(twostations(), 1, 2, 1, link);
    // 50 W are 46.99 dBm, 5 W are 36.99 dBm
    EXPECT_NEAR(link.gain12, 46.9897 - 1.5 + 3 + 6 - 0.5 + 103, 1e-4);
    EXPECT_NEAR(link.gain21, 36.9897 - 0.5 + 6 + 3 - 1.5 + 110, 1e-4);
    Link other;
    setlink(twostations(), 2, 1, 1, other);
    EXPECT_EQ(other.gain12, link.gain21);
    EXPECT_EQ(other.gain21, link.gain12);
}

TEST(SetLink, NoPowerCountsAsMinus50dBm)
{
    for (const float power : {0.0F, -3.0F, std::numeric_limits<float>::quiet_NaN()}) {
        NetworkTables tables = twostations();
        tables.systems[1].power = power;
        Link link;
        setlink(tables, 1, 2, 1, link);
        EXPECT_NEAR(link.gain12, -50 - 1.5 + 3 + 6 - 0.5 + 103, 1e-9);
    }
}

TEST(SetLink, ASystemOutsideTheTableGivesNoGainAndNoHeight)
{
    for (const int slot : {0, 26, 255}) {
        NetworkTables tables = twostations();
        tables.nets[1].system[2] = static_cast<std::uint8_t>(slot);
        Link link;
        setlink(tables, 1, 2, 1, link);
        EXPECT_EQ(link.gain12, 0);
        EXPECT_EQ(link.gain21, 0);
        EXPECT_EQ(double{link.record.h1}, 10);
        EXPECT_EQ(double{link.record.h2}, 0);
    }
}

TEST(SetLink, CopiesTheNet)
{
    NetworkTables tables = twostations();
    Net& net = tables.nets[1];
    net.fmin = 400;
    net.fmax = 451;
    net.polarisation = 0;
    net.permittivity = 81;
    net.conductivity = 5;
    net.refractivity = 320;
    net.climate = 7;
    net.statmode = 103;
    net.ptime = 10;
    net.plocation = 20;
    net.psituation = 30;
    Link link;
    setlink(tables, 1, 2, 1, link);
    const LRRecord& record = link.record;
    EXPECT_EQ(double{record.freq}, 425.5);
    EXPECT_EQ(record.pol, 0);
    EXPECT_EQ(double{record.eps}, 81);
    EXPECT_EQ(double{record.sgm}, 5);
    EXPECT_EQ(double{record.ns}, 320);
    EXPECT_EQ(record.clim, 7);
    EXPECT_EQ(record.varmode, 3) << "the urban factor is no part of the model's mode";
    EXPECT_EQ(double{record.ptime}, 10);
    EXPECT_EQ(double{record.ploc}, 20);
    EXPECT_EQ(double{record.psit}, 30);
    EXPECT_EQ(double{record.h1}, 10);
    EXPECT_EQ(double{record.h2}, 20);
}

TEST(AntHeight, ThePrivateHeightGoesBeforeTheSystems)
{
    NetworkTables tables = twostations();
    EXPECT_EQ(antheight(tables, 1, 1), 10);
    tables.antheights[1][1] = 33.5F;
    tables.antheights[2][2] = 99;
    EXPECT_EQ(antheight(tables, 1, 1), 33.5F);
    EXPECT_EQ(antheight(tables, 1, 2), 20) << "that height belongs to another net";
}

TEST(LinkMargin, AsksForTheFarEndOrForAllSamples)
{
    const Link far = evaluated(twostations(), true);
    const Link all = evaluated(twostations(), false);
    const int n = far.profile.intervals();
    EXPECT_EQ(far.record.startpt, n);
    EXPECT_EQ(all.record.startpt, 0);
    EXPECT_EQ(double{far.record.loss}, double{all.record.loss});
    EXPECT_NEAR(loss(far, n), loss(all, n), 1e-6);
    for (int i = 0; i < n; ++i)
        EXPECT_EQ(loss(far, i), 0) << i;
    for (int i = 1; i <= n; ++i)
        EXPECT_GT(loss(all, i), 30) << i;
    EXPECT_EQ(loss(all, 0), 0) << "the left station has no loss to itself";
}

TEST(LinkMargin, InterferenceModeIsOptimistic)
{
    const Link normal = evaluated(twostations(), true, 0);
    const Link optimistic = evaluated(twostations(), true, 1);
    EXPECT_EQ(normal.record.interf, 0);
    EXPECT_EQ(optimistic.record.interf, 1);
    EXPECT_LT(double{optimistic.record.loss}, double{normal.record.loss});
}

TEST(LinkMargin, WithoutTheUrbanFactorThereIsNone)
{
    Link link = evaluated(twostations(), false);
    EXPECT_EQ(double{link.record.lurban}, 0);
}

TEST(LinkMargin, TheUrbanFactorFallsWithDistanceAndRisesWithFrequency)
{
    NetworkTables tables = twostations();
    const Link plain = evaluated(tables, false);
    tables.nets[1].statmode += 100;
    const Link urban = evaluated(tables, false);
    const int n = urban.profile.intervals();
    const double atend = std::log10(urban.record.freq / 100) + 16.5 - 0.12 * urban.profile.distkm;
    EXPECT_GT(atend, 1);
    EXPECT_NEAR(double{urban.record.lurban}, atend, 1e-9);
    EXPECT_NEAR(urban.record.loss - plain.record.loss, atend, 1e-9);
    for (int i = 1; i <= n; ++i) {
        const double here =
            std::log10(urban.record.freq / 100) + 16.5 - 0.00012 * i * urban.profile.spacing_m;
        EXPECT_NEAR(loss(urban, i) - loss(plain, i), std::max(1.0, here), 1e-9) << i;
    }
    EXPECT_EQ(loss(urban, 0), 0) << "a sample without value takes no factor";
}

TEST(LinkMargin, TheUrbanFactorTouchesOnlyTheFarEndIfOnlyThatIsWanted)
{
    NetworkTables tables = twostations();
    const Link plain = evaluated(tables, true);
    tables.nets[1].statmode += 100;
    const Link urban = evaluated(tables, true);
    const int n = urban.profile.intervals();
    EXPECT_NEAR(loss(urban, n) - loss(plain, n), double{urban.record.lurban}, 1e-9);
    for (int i = 0; i < n; ++i)
        EXPECT_EQ(loss(urban, i), 0);
}

TEST(LinkMargin, TheUrbanFactorIsAtLeast1dB)
{
    NetworkTables tables = twostations();
    tables.nets[1].statmode += 100;
    const MapGrid map = scene::flatmap(201, 201, 0, 300);
    scene::place(tables.units[1], 0, 0);
    scene::place(tables.units[2], 200, 0);
    Link link;
    ASSERT_EQ(cutprofile(map, tables.units[1], tables.units[2], link.profile), 157);
    ASSERT_NEAR(link.profile.distkm, 300, 1e-9);
    setlink(tables, 1, 2, 1, link);
    Link plain = link;
    linkmargin(tables.nets[1], false, 0, link);
    linkmargin(Net{}, false, 0, plain);
    EXPECT_EQ(double{link.record.lurban}, 1);
    EXPECT_NEAR(loss(link, 157) - loss(plain, 157), 1, 1e-9);
    EXPECT_NEAR(loss(link, 156) - loss(plain, 156), 1, 1e-9);
    EXPECT_GT(loss(link, 1) - loss(plain, 1), 15);
}

TEST(LinkMargin, WithoutAFrequencyTheUrbanFactorStartsFromNothing)
{
    NetworkTables tables = twostations();
    tables.nets[1].statmode += 100;
    tables.nets[1].fmin = tables.nets[1].fmax = 0;
    EXPECT_EQ(double{evaluated(tables, true).record.lurban}, 1);
    tables.nets[1].fmin = -500;
    EXPECT_EQ(double{evaluated(tables, true).record.lurban}, 1);
}

TEST(LinkMargin, IsThatOfTheWeakerDirection)
{
    NetworkTables tables = twostations();
    const Link link = evaluated(tables, true);
    EXPECT_NE(link.gain12, link.gain21);
    tables.systems[1].power *= 10; // only the stronger direction's
    tables.systems[1].threshold = -60;
    const Link changed = evaluated(tables, true);
    EXPECT_LT(changed.gain21, changed.gain12);
    EXPECT_NEAR(changed.gain21, link.gain21 - 50, 1e-4);
}

TEST(SUnits, CountFrom0To9OnShortWave)
{
    EXPECT_EQ(sunits(-100, 14), 0);
    EXPECT_EQ(sunits(-6, 14), 0);
    EXPECT_EQ(sunits(0, 14), 1);
    EXPECT_EQ(sunits(6, 14), 2);
    EXPECT_EQ(sunits(3, 14), 2) << "1.5 goes to even";
    EXPECT_EQ(sunits(9, 14), 2) << "2.5 goes to even";
    EXPECT_EQ(sunits(53.9F, 29.9F), 9);
}

TEST(SUnits, AreDecibelsAboveS9Beyond)
{
    EXPECT_EQ(sunits(54, 14), 10);
    EXPECT_EQ(sunits(63, 14), 20) << "1.5 goes to even";
    EXPECT_EQ(sunits(73, 14), 20) << "2.5 goes to even";
    EXPECT_EQ(sunits(1000, 14), 60);
}

TEST(SUnits, AreHalfAsWideFrom30MHz)
{
    EXPECT_EQ(sunits(-4, 30), 0);
    EXPECT_EQ(sunits(0, 30), 1);
    EXPECT_EQ(sunits(3, 146), 2);
    EXPECT_EQ(sunits(26.9F, 146), 9);
    EXPECT_EQ(sunits(27, 146), 10);
    EXPECT_EQ(sunits(39, 146), 20) << "1.5 goes to even";
    EXPECT_EQ(sunits(64, 146), 40);
    EXPECT_EQ(sunits(3e38F, 146), 60);
}

TEST(SUnits, HoldLevelsThatAreNoNumber)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(sunits(nan, 146), 0) << "never a signal that holds";
    EXPECT_EQ(sunits(std::numeric_limits<float>::infinity(), 14), 60);
    EXPECT_EQ(sunits(-std::numeric_limits<float>::infinity(), 14), 0);
}
