#include "coverage/radar.h"

#include <gtest/gtest.h>

TEST(RadarFile, HoldsItsGatesInOrder)
{
    const auto radar = parseradar("3,0.5\r\n-10,20\r\n-30.5,40\r\n-50,60\r\n");
    ASSERT_TRUE(radar);
    EXPECT_EQ(radar->count(), 3);
    EXPECT_EQ(radar->gatesize_km, 0.5);
    EXPECT_EQ(radar->gates[1].lower, -10);
    EXPECT_EQ(radar->gates[2].lower, -30.5F);
    EXPECT_EQ(radar->gates[3].upper, 60);
    EXPECT_EQ(radar->gates[0].upper, 0);
}

TEST(RadarFile, MayHaveOneNumberALine)
{
    const auto radar = parseradar("2\n1\n0\n5\n0\n6");
    ASSERT_TRUE(radar);
    EXPECT_EQ(radar->gates[2].upper, 6);
}

TEST(RadarFile, IsRefusedWhenItIsShortOrHoldsWords)
{
    EXPECT_FALSE(parseradar(""));
    EXPECT_FALSE(parseradar("2"));
    EXPECT_FALSE(parseradar("2,1,0,5,0"));
    EXPECT_FALSE(parseradar("2,1,0,five,0,6"));
    EXPECT_FALSE(parseradar("gates,1,0,5"));
    EXPECT_FALSE(readradar("no such file.rad"));
}

TEST(RadarFile, IsRefusedWhenItsSizesAreNoSizes)
{
    EXPECT_FALSE(parseradar("0,1"));
    EXPECT_FALSE(parseradar("-1,1,0,5"));
    EXPECT_FALSE(parseradar("1,0,0,5"));
    EXPECT_FALSE(parseradar("1,-2,0,5"));
    EXPECT_FALSE(parseradar("nan,1,0,5"));
}

TEST(RadarFile, ThatClaimsABillionGatesTakesNoMemory)
{
    EXPECT_FALSE(parseradar("1000000000,1,0,5"));
    EXPECT_FALSE(parseradar("1e300,1,0,5"));
}
