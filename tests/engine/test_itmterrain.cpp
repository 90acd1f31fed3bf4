// What the model reads from a profile: horizons, lines, irregularity.

#include "engine/itm/itmroughness.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

using namespace itm;

static constexpr double halfgme = 0.5 * 1.17e-7;

/// Elevations with room behind them for vectors to read on.
static std::vector<double> padded(std::vector<double> z)
{
    z.resize(z.size() + 16);
    return z;
}

static std::vector<double> rough(int n, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> kick(0, 10);
    std::vector<double> z;
    double height = 500;
    for (int i = 0; i <= n; ++i)
        z.push_back(std::round(height += kick(random)));
    return padded(z);
}

TEST(Horizons, OverFlatGroundAreEachOther)
{
    const auto z = padded(std::vector<double>(21, 100.0));
    const Horizons h = horizons({z.data(), 100, halfgme}, 20, 130, 110);
    EXPECT_TRUE(h.clear);
    EXPECT_EQ(h.left.distance, 2000);
    EXPECT_EQ(h.right.distance, 2000);
    EXPECT_NEAR(h.left.angle, -20.0 / 2000 - halfgme * 2000, 1e-15);
    EXPECT_NEAR(h.right.angle, 20.0 / 2000 - halfgme * 2000, 1e-15);
}

TEST(Horizons, MeetOnASingleRidge)
{
    std::vector<double> flat(21, 0.0);
    flat[7] = 200;
    const auto z = padded(flat);
    const Horizons h = horizons({z.data(), 500, halfgme}, 20, 10, 20);
    EXPECT_FALSE(h.clear);
    EXPECT_EQ(h.left.distance, 3500);
    EXPECT_EQ(h.right.distance, 6500);
    EXPECT_NEAR(h.left.angle, 190.0 / 3500 - halfgme * 3500, 1e-15);
    EXPECT_NEAR(h.right.angle, 180.0 / 6500 - halfgme * 6500, 1e-15);
}

TEST(Horizons, OfAPathOfOneIntervalAreClear)
{
    const auto z = padded({0, 0});
    EXPECT_TRUE(horizons({z.data(), 100, halfgme}, 1, 1, 1).clear);
}

TEST(Horizons, SwapWithTheEnds)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        const int n = 5 + static_cast<int>(seed) * 3;
        const auto z = rough(n, seed);
        std::vector<double> turned(z.begin(), z.begin() + n + 1);
        std::reverse(turned.begin(), turned.end());
        turned = padded(turned);
        const double a = z[0] + 15, b = z[static_cast<std::size_t>(n)] + 4;
        const Horizons there = horizons({z.data(), 250, halfgme}, n, a, b);
        const Horizons back = horizons({turned.data(), 250, halfgme}, n, b, a);
        EXPECT_EQ(there.clear, back.clear);
        EXPECT_EQ(there.left.distance, back.right.distance);
        EXPECT_EQ(there.right.distance, back.left.distance);
        EXPECT_NEAR(there.left.angle, back.right.angle, 1e-15);
    }
}

TEST(Hull, FindsWhatALookAtEverySampleFinds)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        const int n = 200;
        const double step = 5 + 20 * seed;
        auto z = rough(n, seed);
        if (seed % 4 == 0)
            std::fill(z.begin(), z.end(), 3.0); // every sample is on the hull
        std::vector<int> samples(static_cast<std::size_t>(n));
        std::vector<double> y(samples.size());
        Hull hull{samples.data(), y.data()};
        for (int i = 1; i <= n; ++i) {
            const double top = z[static_cast<std::size_t>(i)] + 2 + seed;
            const double s = i * step;
            if (i > 1) {
                double best = -1e300;
                for (int j = 1; j < i; ++j)
                    best = std::max(best, sightangle(z[static_cast<std::size_t>(j)], top,
                                                     (i - j) * step, halfgme));
                const int at = hull.highest(i, top - halfgme * s * s);
                EXPECT_NEAR(
                    sightangle(z[static_cast<std::size_t>(at)], top, (i - at) * step, halfgme),
                    best, 1e-12);
            }
            hull.add(i, z[static_cast<std::size_t>(i)] - halfgme * s * s);
        }
    }
}

TEST(LineWindow, TakesWholeSamplesAndWidensWhenTooShort)
{
    const Window wide = linewindow(20, 2.7, 17.2);
    EXPECT_EQ(wide.first, 2);
    EXPECT_EQ(wide.last, 18);
    const Window narrow = linewindow(20, 10.2, 9.0);
    EXPECT_EQ(narrow.first, 9);
    EXPECT_EQ(narrow.last, 10);
    const Window atend = linewindow(20, 20, 20);
    EXPECT_EQ(atend.first, 19);
    EXPECT_EQ(atend.last, 20);
}

TEST(LineFit, OfAStraightSlopeIsTheSlope)
{
    std::vector<double> slope;
    for (int i = 0; i <= 50; ++i)
        slope.push_back(100 + 3.0 * i);
    const auto z = padded(slope);
    // The trapezoid rule's weights make the line of a slope exact but for 2 / (length^2 + 2) of it.
    const LineEnds line = linefit(z.data(), 50, {0, 50});
    EXPECT_NEAR(line.left, 100, 1e-9);
    EXPECT_NEAR(line.right, 250, 1e-9);
}

TEST(LineFit, FromRunningSumsIsTheSame)
{
    const int n = 1500;
    const auto z = rough(n, 9);
    std::vector<double> rows[4];
    for (auto& row : rows)
        row.resize(static_cast<std::size_t>(n) + 2);
    const RunningSums sums{rows[0].data(), rows[1].data(), rows[2].data(), rows[3].data()};
    makesums(z.data(), n, sums);
    for (int first = 0; first < n; first += 97)
        for (int last = first + 1; last <= n; last = last * 3 / 2 + 1) {
            const LineEnds direct = linefit(z.data(), n, {first, last});
            const LineEnds carried = linefit(z.data(), sums, n, {first, last});
            EXPECT_NEAR(direct.left, carried.left, 1e-7);
            EXPECT_NEAR(direct.right, carried.right, 1e-7);
        }
}

TEST(Largest, IsTheElementOfThatRankAmongEquals)
{
    double c[32] = {5, 1, 5, 3, 5, 2, 9};
    EXPECT_EQ(largest(c, 7, 1), 9);
    EXPECT_EQ(largest(c, 7, 2), 5);
    EXPECT_EQ(largest(c, 7, 4), 5);
    EXPECT_EQ(largest(c, 7, 5), 3);
    EXPECT_EQ(largest(c, 7, 7), 1);
}

TEST(Quantile, FromAnyBracketIsThatOfASort)
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> value(0, 60); // many equal ones
    for (int turn = 0; turn < 300; ++turn) {
        const int count = 35 + turn % 211;
        double r[pointroom];
        std::fill_n(r, pointroom, -1e300);
        for (int i = 0; i < count; ++i)
            r[i] = turn % 3 == 0 ? value(random) : value(random) + 1e-3 * value(random);
        std::vector<double> sorted(r, r + count);
        std::sort(sorted.begin(), sorted.end(), std::greater<>());
        const int rank = 1 + turn * 7 % count;
        Census census;
        census.begin(value(random) * 4.0 - 100, 150);
        if (turn % 2 == 0)
            census.begin(value(random), census.low + 1);
        if (census.high <= census.low)
            census.begin(0, 1);
        census.take(r, count);
        EXPECT_EQ(quantile(r, count, rank, census), sorted[static_cast<std::size_t>(rank) - 1]);
    }
}

TEST(Interdecile, OfEvenGroundIsZero)
{
    std::vector<double> slope;
    for (int i = 0; i <= 120; ++i)
        slope.push_back(1000.7 - 7.3 * i);
    const auto z = padded(slope);
    Deciles seen;
    EXPECT_EQ(interdecile(z.data(), 1.5, 118.2, seen), 0);
    EXPECT_EQ(interdecile(z.data(), 1.5, 117.2, seen), 0);
}

TEST(Interdecile, OfAStretchBelowTwoStepsIsZero)
{
    const auto z = padded({0, 100, 0, 100});
    Deciles seen;
    EXPECT_EQ(interdecile(z.data(), 0.5, 2.4, seen), 0);
}

TEST(Interdecile, GrowsWithTheHeightsAndForgetsSlopes)
{
    const auto z = rough(150, 11);
    auto twice = z;
    auto tilted = z;
    for (std::size_t i = 0; i < 151; ++i) {
        twice[i] *= 2;
        tilted[i] += 5.0 * static_cast<double>(i);
    }
    Deciles a, b, c;
    const double range = interdecile(z.data(), 1, 149, a);
    EXPECT_GT(range, 0);
    EXPECT_NEAR(interdecile(twice.data(), 1, 149, b), 2 * range, 1e-9);
    EXPECT_NEAR(interdecile(tilted.data(), 1, 149, c), range, 1e-9);
}

TEST(Interdecile, DoesNotDependOnWhereTheLastDecilesWere)
{
    const auto z = rough(400, 12);
    Deciles seen;
    for (int to = 10; to < 400; to += 3) {
        Deciles fresh;
        EXPECT_EQ(interdecile(z.data(), 0.75, to, seen), interdecile(z.data(), 0.75, to, fresh));
    }
}
