#include "coverage/levels.h"

#include <gtest/gtest.h>

using enum LevelUnit;

TEST(Levels, MicrovoltsBecomeDecibelsOverOneMilliwatt)
{
    EXPECT_FLOAT_EQ(microvolts2dbm(1), -107);
    EXPECT_FLOAT_EQ(microvolts2dbm(100), -67);
    EXPECT_FLOAT_EQ(microvolts2dbm(0.5), -113.0206F);
    EXPECT_EQ(microvolts2dbm(0), -200) << "held before the logarithm and after it";
    EXPECT_EQ(microvolts2dbm(-5), -200);
    EXPECT_EQ(microvolts2dbm(1e30), -10);
    EXPECT_NEAR(dbm2microvolts(-87), 10, 1e-12);
}

TEST(Levels, TypedNumbersAreHeldByUnit)
{
    EXPECT_EQ(typedlevel(sunit, 0), 1);
    EXPECT_EQ(typedlevel(sunit, 61), 60);
    EXPECT_EQ(typedlevel(dbm, -201), -200);
    EXPECT_EQ(typedlevel(dbm, 0), -10);
    EXPECT_FLOAT_EQ(typedlevel(microvolt, 10), -87);
}

TEST(Levels, AreShownByUnit)
{
    EXPECT_EQ(leveltext(sunit, 7), "7");
    EXPECT_EQ(leveltext(sunit, -107), "1");
    EXPECT_EQ(leveltext(dbm, -107.25F), "-107.2");
    EXPECT_EQ(leveltext(microvolt, -107), "1.000");
    EXPECT_EQ(leveltext(microvolt, -67), "100.000");
}

TEST(Levels, ChangeWithTheUnit)
{
    EXPECT_EQ(changeunit(sunit, dbm, {5, 9}), (Levels{-107, -67}));
    EXPECT_EQ(changeunit(sunit, microvolt, {5, 9}), (Levels{-107, -67}));
    EXPECT_EQ(changeunit(dbm, microvolt, {-120, -5}), (Levels{-120, -10}));
    EXPECT_EQ(changeunit(microvolt, sunit, {-120, -67}), (Levels{1, 1}));
    EXPECT_EQ(changeunit(sunit, sunit, {5, 70}), (Levels{5, 60}));
}

TEST(Levels, OfANetworkThatHadNoneInSUnitsOpenFromOneToNine)
{
    EXPECT_EQ(openinglevels(sunit, {-107, -67}), (Levels{1, 9}));
    EXPECT_EQ(openinglevels(sunit, {1, 1}), (Levels{1, 9}));
    EXPECT_EQ(openinglevels(sunit, {5, 70}), (Levels{5, 60}));
    EXPECT_EQ(openinglevels(dbm, {-107, -67}), (Levels{-107, -67}));
    EXPECT_EQ(openinglevels(dbm, {-300, -5}), (Levels{-200, -10}));
}

TEST(Margins, OfSUnitsDependOnTheBand)
{
    EXPECT_EQ(smargin(1, 10), -3);
    EXPECT_EQ(smargin(8.5F, 10), 42);
    EXPECT_EQ(smargin(9, 10), 57);
    EXPECT_EQ(smargin(1, 30), -1.5);
    EXPECT_EQ(smargin(5, 144), 10.5);
    EXPECT_EQ(smargin(9, 144), 33);
    EXPECT_EQ(smargin(60, 144), 84);
}

TEST(Margins, OfAPlainSurfaceInSUnitsSpanHalfAnSUnit)
{
    EXPECT_EQ(levelmargins(sunit, {5, 9}, false, 144, -107).high, 12);
    EXPECT_EQ(levelmargins(sunit, {5, 9}, false, 10, -107).high, 24);
    EXPECT_EQ(levelmargins(sunit, {5, 9}, true, 144, -107).high, 33);
}

TEST(Margins, OfDecibelsCountFromTheReceiversThreshold)
{
    const Margins margins = levelmargins(dbm, {-107, -67}, false, 144, -110);
    EXPECT_EQ(margins.low, 3);
    EXPECT_EQ(margins.high, 43);
    EXPECT_EQ(levelmargins(microvolt, {-107, -67}, true, 144, -110).low, 3);
}

TEST(SignalLevels, AreEqualStepsAsTyped)
{
    const auto steps = signallevels(dbm, {-107, -67});
    EXPECT_EQ(steps[0], -107);
    EXPECT_EQ(steps[1], -103);
    EXPECT_EQ(steps[10], -67);
    const auto volts = signallevels(microvolt, {-107, -67});
    EXPECT_NEAR(volts[0], 1, 1e-6);
    EXPECT_NEAR(volts[5], 50.5, 1e-4);
    EXPECT_NEAR(volts[10], 100, 1e-4);
}

TEST(LevelUnit, OfAStrangeNumberIsSUnits)
{
    EXPECT_EQ(levelunit(1), dbm);
    EXPECT_EQ(levelunit(2), microvolt);
    EXPECT_EQ(levelunit(3), sunit);
    EXPECT_EQ(levelunit(-1), sunit);
}
