#include "radio/earth.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(Earth, FactorFallsWithRefractivity)
{
    EXPECT_DOUBLE_EQ(earthfactor(301), (1 - 0.04665 * std::exp(301 / 179.3)) / 12.75);
    // The standard atmosphere of four thirds of the earth's radius
    EXPECT_NEAR(curvaturefactor(301), 4.0 / 3, 0.01);
    EXPECT_GT(earthfactor(250), earthfactor(400));
    EXPECT_LT(earthfactor(0), standardearth);
}

TEST(Earth, BulgeIsHighestAtMidPath)
{
    EXPECT_EQ(bulge(standardearth, 0, 50), 0);
    EXPECT_EQ(bulge(standardearth, 1, 50), 0);
    EXPECT_NEAR(bulge(standardearth, 0.5, 50), 25 * 25 / 12.75, 1e-12);
    EXPECT_LT(bulge(standardearth, 0.4, 50), bulge(standardearth, 0.5, 50));
    EXPECT_NEAR(bulge(standardearth, 0.3, 50), bulge(standardearth, 0.7, 50), 1e-12);
}

TEST(Earth, FresnelRadiusFollowsDistanceAndFrequency)
{
    // sqrt(lambda d1 d2 / d) at mid path: 10 km at 300 MHz, a wave of nearly 1 m
    EXPECT_NEAR(fresnelradius(0.5, 10, 300), std::sqrt(0.25 * 10 / 300) / 0.001827906, 1e-12);
    EXPECT_NEAR(fresnelradius(0.5, 10, 300), std::sqrt(299.792458e6 / 300e6 * 10000 / 4), 0.1);
    EXPECT_NEAR(fresnelradius(0.2, 40, 300), 2 * fresnelradius(0.2, 10, 300), 1e-12);
    EXPECT_EQ(fresnelradius(0, 10, 300), 0);
}
