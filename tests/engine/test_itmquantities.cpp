// The model's quantities one by one.

#include "engine/itm/itmattenuation.h"
#include "engine/itm/itmvariability.h"
#include "engine/rows.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

using namespace itm;

static Paths<double> path(const Radio& radio, double d, double he1, double he2, double dl1,
                          double dl2, double theta, double dh)
{
    Paths<double> p;
    p.d = d;
    p.he1 = he1;
    p.he2 = he2;
    p.dl1 = dl1;
    p.dl2 = dl2;
    p.the1 = p.the2 = theta;
    p.dh = dh;
    sumhorizons(radio, p);
    return p;
}

TEST(Curvature, OfTheStandardAtmosphereIsThatOfFourThirdsOfTheEarth)
{
    EXPECT_NEAR(1 / curvature(301), 4.0 / 3 * 6370e3, 20e3);
    EXPECT_GT(curvature(250), curvature(301));
    EXPECT_GT(curvature(301), curvature(400));
    EXPECT_GT(curvature(400), 0);
}

TEST(Impedance, OfDryGroundIsTheRootOfItsPermittivity)
{
    const Impedance across = impedance(15, 1e-9, 1000, false);
    EXPECT_NEAR(across.re, std::sqrt(14.0), 1e-6);
    const Impedance within = impedance(15, 1e-9, 1000, true);
    EXPECT_NEAR(within.re, std::sqrt(14.0) / 15, 1e-6);
}

TEST(Impedance, OfSeaFallsAsItConducts)
{
    const Impedance sea = impedance(81, 5, 100, true);
    EXPECT_LT(std::hypot(sea.re, sea.im), 0.04);
    EXPECT_LT(sea.im, 0);
}

TEST(Deviate, IsTheInverseOfTheNormalTail)
{
    for (const double z : {-3.0, -1.5, -0.3, 0.2, 1.0, 2.5})
        EXPECT_NEAR(deviate(0.5 * std::erfc(z / std::sqrt(2.0))), z, 4.5e-4);
    for (const double q : even(0.001, 0.5, 0.01))
        EXPECT_NEAR(deviate(q), -deviate(1 - q), 1e-12);
}

TEST(KnifeEdges, GrowFromGrazingIncidence)
{
    const auto loss = [](double v2) {
        const auto k = knifeedges(v2, v2);
        return (k.sum + 10 * std::log10(k.product)) / 2;
    };
    EXPECT_NEAR(loss(0), 6.02, 1e-12);
    double before = 0;
    for (const double v2 : even(0, 100, 0.01)) {
        EXPECT_GT(loss(v2), before - 0.012); // the two approximations meet at 5.76 to that
        before = loss(v2);
    }
    EXPECT_NEAR(loss(100), 12.953 + 20, 1e-12);
}

TEST(HeightGain, MeetsAtItsSeams)
{
    const auto gain = [](double x, double K) {
        return heightgain(x, K, 1 / K, std::log(K), std::log(std::max(x, 1.0)));
    };
    EXPECT_NEAR(gain(2000 - 1e-6, 0.01), gain(2000 + 1e-6, 0.01), 0.1);
    EXPECT_NEAR(gain(3000, 0.01), 0.05751 * 3000 - 4.343 * std::log(3000.0), 1e-9);
    EXPECT_NEAR(gain(0.5, 1e-6), -117, 1e-12);
    EXPECT_NEAR(gain(10, 1e-6), 17.372 * std::log(10.0) - 117, 1e-9);
    EXPECT_NEAR(gain(50, 0.1), 2.5e-5 * 2500 / 0.1 + 8.686 * std::log(0.1) - 15, 1e-9);
}

TEST(Roughness, SeenGrowsToItsWholeOverDistance)
{
    EXPECT_NEAR(roughnessat(0.0, 100.0), 20, 1e-12);
    EXPECT_NEAR(roughnessat(1e7, 100.0), 100, 1e-9);
    EXPECT_EQ(heightdeviation(0.0), 0);
    for (const double dh : {1.0, 16.0, 90.0, 700.0})
        EXPECT_NEAR(heightdeviation(dh), 0.78 * dh * std::exp(-std::pow(dh / 16, 0.25)),
                    1e-12 * dh);
}

TEST(DiffractionLine, RisesWithDistanceAndWithTheHorizons)
{
    for (const double f : {30.0, 100.0, 300.0, 1000.0, 3000.0, 10000.0}) {
        ItmInput in;
        in.freq_mhz = f;
        const Radio radio = makeradio(in);
        double before = 0;
        for (const double theta : {-0.001, 0.0, 0.002, 0.01, 0.05}) {
            const auto p = path(radio, 40e3, 20, 20, 15e3, 15e3, theta, 90);
            const auto line = diffractionline(radio, p);
            EXPECT_GT(line.slope, 0);
            EXPECT_GT(line.start + line.slope * p.d, before);
            before = line.start + line.slope * p.d;
        }
    }
}

TEST(DiffractionLine, IsTheSameFromEitherEnd)
{
    ItmInput in;
    const Radio radio = makeradio(in);
    const auto there = diffractionline(radio, path(radio, 40e3, 20, 5, 15e3, 9e3, 0.001, 60));
    const auto back = diffractionline(radio, path(radio, 40e3, 5, 20, 9e3, 15e3, 0.001, 60));
    EXPECT_NEAR(there.start, back.start, 1e-9);
    EXPECT_NEAR(there.slope, back.slope, 1e-12);
}

TEST(TwoRays, CancelAtGrazingIncidenceOverSmoothGround)
{
    ItmInput in;
    const Radio radio = makeradio(in);
    const auto p = path(radio, 20e3, 10, 10, 12e3, 12e3, -0.001, 0);
    double before = 10;
    for (const double s : growing(2e3, 40e3, 1.3)) {
        const double phase = 2 * radio.k * p.he1 * p.he2;
        const double power = tworays(radio, p, s, 1 / s, phase, 1 / phase);
        EXPECT_GT(power, 0);
        EXPECT_LT(power, before);
        before = power;
    }
}

TEST(Reference, IsContinuousAtTheSmoothEarthHorizons)
{
    for (const double f : {50.0, 400.0, 5000.0}) {
        ItmInput in;
        in.freq_mhz = f;
        const Radio radio = makeradio(in);
        auto p = path(radio, 1, 30, 10, 20e3, 12e3, -0.001, 50);
        const auto at = [&](double d) {
            p.d = d;
            return reference(radio, p, std::log(d));
        };
        EXPECT_EQ(at(p.dls - 0.01).region, 1);
        EXPECT_EQ(at(p.dls + 0.01).region, 2);
        EXPECT_NEAR(at(p.dls - 0.01).aref, at(p.dls + 0.01).aref, 1e-4);
    }
}

TEST(Reference, IsContinuousWhereScatterTakesOver)
{
    ItmInput in;
    in.freq_mhz = 900;
    const Radio radio = makeradio(in);
    auto p = path(radio, 1, 30, 30, 20e3, 20e3, 0.0, 90);
    const auto far = scatterline(radio, p, diffractionline(radio, p));
    const auto at = [&](double d) {
        p.d = d;
        return reference(radio, p, std::log(d));
    };
    EXPECT_EQ(at(far.from - 1).region, 2);
    EXPECT_EQ(at(far.from + 1).region, 3);
    EXPECT_NEAR(at(far.from - 1).aref, at(far.from + 1).aref, 0.01);
    EXPECT_LT(far.slope, diffractionline(radio, p).slope);
}

TEST(ScatterFunction, MeetsAtItsSeamsToAThirdOfADecibel)
{
    for (const double D : {10e3, 70e3})
        EXPECT_NEAR(scatterfunction(D - 1e-3, 301), scatterfunction(D + 1e-3, 301), 0.33);
    EXPECT_GT(scatterfunction(5e3, 250), scatterfunction(5e3, 350)); // denser air scatters more
}

TEST(FrequencyGain, FallsWithHeightAndIsContinuousInEfficiency)
{
    double before = 1e9;
    for (const double r : growing(0.1, 100, 1.2)) {
        EXPECT_LT(frequencygain(r, 1.5), before);
        before = frequencygain(r, 1.5);
        for (const double eta : {2.0, 3.0, 4.0, 5.0})
            EXPECT_NEAR(frequencygain(r, eta - 1e-9), frequencygain(r, eta + 1e-9), 1e-6);
    }
}

TEST(Curve, OfAClimateVanishesAtNoDistance)
{
    for (const Climate& c : climates)
        for (const ClimateCurve& one : {c.median, c.minus, c.plus}) {
            EXPECT_EQ(curve(one, 0.0), 0);
            const double de = 150e3;
            const double bump = (de - one.x2) / one.x3;
            const double r = de / one.x1;
            EXPECT_NEAR(curve(one, de), (one.c1 + one.c2 / (1 + bump * bump)) * r * r / (1 + r * r),
                        1e-9);
        }
}

TEST(EffectiveDistance, IsContinuousAndGrows)
{
    const Radio radio = makeradio({});
    double before = 0;
    for (const double d : even(1e3, 500e3, 1e3)) {
        const double de = effectivedistance(radio, d, 30e3);
        EXPECT_GT(de, before);
        EXPECT_LT(de - before, 5e3);
        before = de;
    }
}

TEST(LocationSpread, SaturatesAtTenDecibels)
{
    const Radio radio = makeradio({});
    EXPECT_EQ(locationspread(radio, 0.0), 0);
    EXPECT_LT(locationspread(radio, 1e6), 10);
    EXPECT_GT(locationspread(radio, 200.0), locationspread(radio, 50.0));
}

TEST(Variability, TakesOutWhatTheModeLeavesOut)
{
    ItmInput in;
    in.ptime = in.ploc = in.psit = 20;
    const auto varies = [&](int mode) {
        in.varmode = mode;
        const Radio radio = makeradio(in);
        const auto p = path(radio, 60e3, 30, 10, 20e3, 12e3, 0.001, 90);
        return varied(radio, 40.0, p);
    };
    EXPECT_LT(varies(3), varies(13));
    EXPECT_LT(varies(3), varies(23));
    EXPECT_LT(varies(13), varies(33));
}
