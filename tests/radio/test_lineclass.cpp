#include "radio/evaluate.h"
#include "slowevaluation.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>

namespace
{
using LineStyle = std::array<std::uint8_t, 3>;

constexpr std::uint8_t on = 128;
/// Red, yellow from -3 dB, green from +3 dB: the start state.
constexpr LineStyle all{on + 47, on + 53, on + 1};
constexpr LineStyle nored{47, on + 53, on + 1};

/// One pair, stations 1 and 2, in several nets.
struct Pair {
    NetworkTables tables;
    QualityTable table;

    void setnet(int net, int signal, Topology kind = Topology::voice, int maxretrans = 0,
                int reach = 0)
    {
        Net& record = tables.nets[static_cast<std::size_t>(net)];
        record.topology = static_cast<std::int16_t>(static_cast<int>(kind) + visiblebit);
        record.maxretrans = static_cast<std::int16_t>(maxretrans);
        table.at(net, 1, 2) = static_cast<std::uint8_t>(signal);
        table.at(net, 2, 1) = static_cast<std::uint8_t>(reach);
    }
    int lines(const LineStyle& style = all) const { return lineclass(tables, table, style, 1, 2); }
};

int classofsignal(int signal, const LineStyle& style = all)
{
    Pair pair;
    pair.setnet(1, signal);
    return pair.lines(style);
}
} // namespace

TEST(LineClass, GradesTheSignalByTheThresholds)
{
    EXPECT_EQ(classofsignal(0), 0);
    EXPECT_EQ(classofsignal(1), 1);
    EXPECT_EQ(classofsignal(43), 1);
    EXPECT_EQ(classofsignal(44), 2);
    EXPECT_EQ(classofsignal(46), 2);
    EXPECT_EQ(classofsignal(47), 3);
    EXPECT_EQ(classofsignal(52), 3);
    EXPECT_EQ(classofsignal(53), 4);
    EXPECT_EQ(classofsignal(55), 4);
    EXPECT_EQ(classofsignal(56), 5);
    EXPECT_EQ(classofsignal(58), 5);
    EXPECT_EQ(classofsignal(59), 6);
    EXPECT_EQ(classofsignal(99), 6);
}

TEST(LineClass, AColourThatIsOffHasNoLines)
{
    EXPECT_EQ(classofsignal(20, {47, on + 53, on}), 0);
    EXPECT_EQ(classofsignal(46, {47, on + 53, on}), 0);
    EXPECT_EQ(classofsignal(50, {on + 47, 53, on}), 0);
    EXPECT_EQ(classofsignal(60, {on + 47, on + 53, 0}), 0);
    EXPECT_EQ(classofsignal(60, {on + 47, on + 53, 1}), 0) << "the opaque ground is no line";
}

TEST(LineClass, EqualThresholdsLeaveNoYellow)
{
    for (int signal = 1; signal <= 99; ++signal)
        EXPECT_NE(classofsignal(signal, {on + 53, on + 53, on}), 3);
}

TEST(LineClass, OfARelayingSwarmGoesByReachability)
{
    for (const auto& [reach, expected] :
         {std::pair(50, 6), {49, 5}, {48, 4}, {47, 4}, {10, 4}, {0, 2}}) {
        Pair pair;
        pair.setnet(1, 20, Topology::swarm, 3, reach);
        EXPECT_EQ(pair.lines(), expected) << reach;
    }
    Pair pair;
    pair.setnet(1, 99, Topology::swarm, 3, 50);
    EXPECT_EQ(pair.lines({on, on, 0}), 0);
    pair.setnet(1, 99, Topology::swarm, 3, 0);
    EXPECT_EQ(pair.lines({0, on, on}), 0);
}

TEST(LineClass, OfASwarmWithoutRetransmissionsGoesBySignal)
{
    Pair pair;
    pair.setnet(1, 50, Topology::swarm, 0, 50);
    EXPECT_EQ(pair.lines(), 3);
}

TEST(LineClass, APairNotEvaluatedHasNoLineEvenIfReachable)
{
    Pair pair;
    pair.setnet(1, 0, Topology::swarm, 3, 49);
    EXPECT_EQ(pair.lines(), 0);
}

TEST(LineClass, NetsThatAreNotActiveDoNotCount)
{
    Pair pair;
    pair.setnet(1, 60);
    pair.setnet(2, 10);
    pair.tables.nets[2].topology -= visiblebit;
    EXPECT_EQ(pair.lines(), 6);
}

TEST(LineClass, TheWorstNetWins)
{
    Pair pair;
    pair.setnet(1, 60);
    pair.setnet(2, 50);
    pair.setnet(7, 57);
    EXPECT_EQ(pair.lines(), 3);
}

TEST(LineClass, AWeakLinkWithoutColourBeforeAStrongOneIsForgotten)
{
    Pair pair;
    pair.setnet(1, 20);
    pair.setnet(2, 60);
    EXPECT_EQ(pair.lines(nored), 6);
}

TEST(LineClass, AWeakLinkWithoutColourBehindAStrongOneWipesItOut)
{
    Pair pair;
    pair.setnet(1, 60);
    pair.setnet(2, 20);
    EXPECT_EQ(pair.lines(nored), 0);
    pair.setnet(3, 57);
    EXPECT_EQ(pair.lines(nored), 5) << "the net behind it starts afresh";
}

TEST(LineClass, AgreesWithTheRulesTakenLiterally)
{
    std::mt19937 random(5);
    const auto below = [&](int count) {
        return std::uniform_int_distribution<int>(0, count - 1)(random);
    };
    for (int round = 0; round < 4000; ++round) {
        Pair pair;
        for (int net = 1; net <= 3; ++net)
            pair.setnet(net, below(100), static_cast<Topology>(below(3)), below(3),
                        below(2) * (40 + below(11)));
        LineStyle style;
        for (std::uint8_t& byte : style)
            byte = static_cast<std::uint8_t>(below(256));
        ASSERT_EQ(pair.lines(style), slowlineclass(pair.tables, pair.table, style, 1, 2));
    }
}
