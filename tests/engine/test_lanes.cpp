#include "engine/itm/lanes.h"
#include "engine/rows.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

using namespace itm;

TEST(Lanes, LogarithmKeepsFifteenDigits)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> decades(-30, 30);
    for (int i = 0; i < 20000; ++i) {
        const double x = std::pow(10, decades(random));
        const double y = std::pow(10, decades(random));
        const auto both = logarithms(x, y);
        EXPECT_NEAR(logarithm(x), std::log(x), 1e-15 * std::max(1.0, std::abs(std::log(x))));
        EXPECT_NEAR(both.a, std::log(x), 1e-15 * std::max(1.0, std::abs(std::log(x))));
        EXPECT_NEAR(both.b, std::log(y), 1e-15 * std::max(1.0, std::abs(std::log(y))));
    }
    EXPECT_EQ(logarithm(1.0), 0);
}

TEST(Lanes, ExponentialKeepsFifteenDigitsAndStaysFinite)
{
    for (const double x : even(-690, 690, 0.37))
        EXPECT_NEAR(exponential(x) / std::exp(x), 1, 1e-15) << x;
    EXPECT_EQ(exponential(0.0), 1);
    EXPECT_EQ(exponential(-1e300), exponential(-700.0));
    EXPECT_EQ(exponential(1e300), exponential(700.0));
}

TEST(Lanes, InverseRootsKeepFourteenDigits)
{
    for (const double x : growing(1e-12, 1e15, 1.37)) {
        EXPECT_NEAR(inverseroot<3>(x) * std::cbrt(x), 1, 3e-15) << x;
        EXPECT_NEAR(inverseroot<4>(x) * std::pow(x, 0.25), 1, 3e-15) << x;
    }
}

TEST(Lanes, SineAndCosineHoldOverAQuarterTurn)
{
    for (const double u : even(-1.5707, 1.5708, 0.001)) {
        EXPECT_NEAR(sinecosine(u).sine, std::sin(u), 5e-16);
        EXPECT_NEAR(sinecosine(u).cosine, std::cos(u), 5e-16);
    }
}

TEST(Lanes, AVectorGivesTheBitsOfItsNumbers)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> decades(-3, 3);
    for (int i = 0; i < 2000; ++i) {
        Lanes x;
        for (int l = 0; l < width; ++l)
            x[l] = std::pow(10, decades(random));
        const Lanes logs = logarithm(x), exponentials = exponential(logs),
                    roots = inverseroot<3>(x);
        for (int l = 0; l < width; ++l) {
            EXPECT_EQ(logs[l], logarithm(static_cast<double>(x[l])));
            EXPECT_EQ(exponentials[l], exponential(static_cast<double>(logs[l])));
            EXPECT_EQ(roots[l], inverseroot<3>(static_cast<double>(x[l])));
        }
    }
}
