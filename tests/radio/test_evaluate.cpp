#include "base/hooks.h"
#include "base/parallel.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "scene.h"
#include "slowevaluation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace
{
std::vector<int> cellsof(const QualityTable& table)
{
    std::vector<int> cells;
    for (int net = 1; net <= MAXNET; ++net)
        for (int a = 1; a <= MAXUNIT; ++a)
            for (int b = 1; b <= MAXUNIT; ++b)
                cells.push_back(table.at(net, a, b));
    return cells;
}

/// Stations in a row on flat ground, `step` cells apart, all in net 1.
struct Row {
    MapGrid map = scene::flatmap(160, 8, 100, 10);
    NetworkTables tables;
    QualityTable table;

    Row(int count, int step, Topology kind = Topology::voice, int role = 0)
    {
        tables.nets[1].topology = static_cast<std::int16_t>(static_cast<int>(kind) + visiblebit);
        for (int unit = 1; unit <= count; ++unit) {
            scene::place(tables.units[static_cast<std::size_t>(unit)],
                         static_cast<float>(2 + (unit - 1) * step), 4, 100);
            scene::join(tables.nets[1], unit, role);
        }
    }
    Net& net() { return tables.nets[1]; }
    void run(bool allnets = false) { evaluate(tables, map, allnets, 0, table); }
    int quality(int a, int b) const { return table.at(1, a, b); }
    int reach(int a, int b) const { return table.at(1, std::max(a, b), std::min(a, b)); }
    /// Sets the receivers so that the pair 1, 2 has this margin; both ends have system 1.
    void setmargin(double margin)
    {
        Link link;
        cutprofile(map, tables.units[1], tables.units[2], link.profile);
        setends(tables.units[1], tables.units[2], link.profile);
        setlink(tables, 1, 2, 1, link);
        const double now = linkmargin(net(), true, 0, link);
        tables.systems[1].threshold += static_cast<float>(now - margin);
    }
};

/// A net whose direct links are written into the table by hand: the second phase alone.
struct Relays {
    NetworkTables tables;
    QualityTable table;

    Relays(Topology kind, int count, int role, int maxretrans = 0)
    {
        Net& net = tables.nets[3];
        net.topology = static_cast<std::int16_t>(static_cast<int>(kind) + visiblebit);
        net.maxretrans = static_cast<std::int16_t>(maxretrans);
        for (int unit = 1; unit <= count; ++unit)
            scene::join(net, unit, role);
    }
    void setrole(int unit, int role) { scene::join(tables.nets[3], unit, role); }
    void connect(int a, int b) { table.at(3, std::max(a, b), std::min(a, b)) = 50; }
    void chain(int count)
    {
        for (int unit = 1; unit < count; ++unit)
            connect(unit, unit + 1);
    }
    void run() { addretransmissions(tables, 3, table); }
    int reach(int a, int b) const { return table.at(3, std::max(a, b), std::min(a, b)); }
};
} // namespace

TEST(Evaluate, AgreesWithTheRulesTakenLiterally)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        const MapGrid map = scene::hillymap(90, 70, seed, 45);
        const NetworkTables tables = scene::randomnetwork(map, seed);
        for (const bool allnets : {false, true}) {
            QualityTable fast;
            QualityTable slow;
            const std::int16_t interference = seed % 2 == 0 ? 1 : 0;
            evaluate(tables, map, allnets, interference, fast);
            slowevaluation(tables, map, allnets, interference, slow);
            ASSERT_EQ(cellsof(fast), cellsof(slow)) << "seed " << seed;
        }
    }
}

TEST(Evaluate, DoesNotDependOnTheNumberOfThreads)
{
    const MapGrid map = scene::hillymap(120, 110, 11, 60);
    const NetworkTables tables = scene::randomnetwork(map, 11);
    QualityTable one;
    setthreads(1);
    evaluate(tables, map, true, 0, one);
    const std::vector<int> expected = cellsof(one);
    EXPECT_GT(std::count_if(expected.begin(), expected.end(), [](int c) { return c > 0; }), 1000);
    for (const int threads : {0, 2, 4, 7}) {
        setthreads(threads);
        for (int again = 0; again < 3; ++again) {
            QualityTable many;
            evaluate(tables, map, true, 0, many);
            ASSERT_EQ(cellsof(many), expected) << threads << " threads";
        }
    }
    setthreads(0);
}

TEST(Evaluate, ClearsWhatTheTableHeld)
{
    Row row(2, 10);
    row.run();
    EXPECT_GT(row.quality(1, 2), 0);
    row.tables.units[2].enabled = 0;
    row.run();
    EXPECT_EQ(row.quality(1, 2), 0);
    EXPECT_EQ(row.reach(1, 2), 0);
}

TEST(EvaluateDirect, WritesSignalBelowAndReachabilityAbove)
{
    Row row(2, 10);
    row.setmargin(17);
    row.run();
    EXPECT_EQ(row.quality(1, 2), 67);
    EXPECT_EQ(row.reach(1, 2), 50);
    EXPECT_EQ(row.quality(1, 1), 0);
    EXPECT_EQ(row.table.at(2, 1, 2), 0) << "no members there";
}

TEST(EvaluateDirect, AMarginThatRoundsToZeroIsALink)
{
    Row row(2, 10);
    row.setmargin(-0.4);
    row.run();
    EXPECT_EQ(row.quality(1, 2), 50);
    EXPECT_EQ(row.reach(1, 2), 50);
    row.setmargin(-0.6);
    row.run();
    EXPECT_EQ(row.quality(1, 2), 49);
    EXPECT_EQ(row.reach(1, 2), 0);
}

TEST(EvaluateDirect, HoldsTheQualityWithin1To99)
{
    Row row(2, 10);
    for (const auto& [margin, expected] :
         {std::pair(60.0, 99), {49.0, 99}, {48.0, 98}, {-48.0, 2}, {-49.0, 1}, {-60.0, 1}}) {
        row.setmargin(margin);
        row.run();
        EXPECT_EQ(row.quality(1, 2), expected) << margin;
    }
}

TEST(EvaluateDirect, HoldsMarginsWithoutBoundsAndWithoutNumber)
{
    Row row(2, 10);
    row.tables.systems[1].threshold = -3e38F;
    row.run();
    EXPECT_EQ(row.quality(1, 2), 99);
    row.tables.systems[1].threshold = 3e38F;
    row.run();
    EXPECT_EQ(row.quality(1, 2), 1);
}

TEST(EvaluateDirect, GivesNoLinkWithoutAFiniteFrequencyAndGain)
{
    using Limits = std::numeric_limits<float>;
    for (const float bad : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
        const Row plain(2, 10);
        std::vector<Row> rows(5, plain);
        rows[0].net().fmin = bad;
        rows[1].net().fmax = bad;
        rows[2].tables.systems[1].gain = bad;
        rows[3].tables.systems[1].lineloss = bad;
        rows[4].tables.systems[1].threshold = bad;
        for (Row& row : rows) {
            row.run();
            EXPECT_EQ(row.quality(1, 2), 0) << bad;
            EXPECT_EQ(row.reach(1, 2), 0) << bad;
        }
    }
}

TEST(EvaluateDirect, NoDamagedByteOfASystemOrANetMakesALinkOfWhatIsNoNumber)
{
    const auto finite = [](float value) { return std::isfinite(value); };
    for (std::size_t at = 0; at < 5 * sizeof(float); ++at)
        for (const unsigned byte : {0x7FU, 0xFFU, 0x80U}) {
            Row row(2, 10);
            auto* bytes = reinterpret_cast<unsigned char*>(&row.tables.systems[1]);
            bytes[at] = static_cast<unsigned char>(byte);
            bytes[at ^ 1U] = static_cast<unsigned char>(0x80U | bytes[at ^ 1U]);
            row.run();
            const RadioSystem& system = row.tables.systems[1];
            if (!finite(system.gain) || !finite(system.lineloss) || !finite(system.threshold)) {
                EXPECT_EQ(row.quality(1, 2), 0) << at << " " << byte;
            }
        }
}

TEST(EvaluateDirect, LeavesOutNetsThatAreNotActiveUnlessAllAreAskedFor)
{
    Row row(2, 10);
    row.net().topology -= visiblebit;
    row.run();
    EXPECT_EQ(row.quality(1, 2), 0);
    row.run(true);
    EXPECT_GT(row.quality(1, 2), 0);
}

TEST(EvaluateDirect, LeavesOutDisabledStationsAndThoseThatAreNoMembers)
{
    Row row(4, 10);
    row.tables.units[2].enabled = 0;
    row.net().member[3] = 0;
    row.run();
    for (int a = 1; a <= 4; ++a)
        for (int b = a + 1; b <= 4; ++b)
            EXPECT_EQ(row.quality(a, b) > 0, a == 1 && b == 4) << a << ' ' << b;
}

TEST(EvaluateDirect, NeverLinksTwoSubordinates)
{
    for (const Topology kind : {Topology::voice, Topology::star, Topology::swarm}) {
        Row row(3, 10, kind, 1);
        scene::join(row.net(), 3, 0);
        row.run();
        EXPECT_EQ(row.quality(1, 2), 0);
        EXPECT_EQ(row.reach(1, 2), 0);
        EXPECT_GT(row.quality(1, 3), 0);
        EXPECT_GT(row.quality(2, 3), 0);
    }
}

TEST(EvaluateDirect, GivesAPairWithoutProfileNothingInAnyNet)
{
    Row row(3, 10);
    for (int net = 2; net <= 4; ++net)
        row.tables.nets[static_cast<std::size_t>(net)] = row.net();
    scene::place(row.tables.units[2], -20, 4);
    scene::place(row.tables.units[3], 2.25F, 4);
    row.run();
    for (const int cell : cellsof(row.table))
        ASSERT_EQ(cell, 0);
}

TEST(EvaluateDirect, PutsTheStationsElevationsAtTheEnds)
{
    Row row(2, 60);
    row.run();
    const int low = row.quality(1, 2);
    row.tables.units[1].elevation = 1100;
    row.tables.units[2].elevation = 1100;
    row.run();
    EXPECT_GT(row.quality(1, 2), low);
}

TEST(EvaluateDirect, InterferenceModeGivesNoLess)
{
    Row row(6, 22);
    row.run();
    QualityTable optimistic;
    evaluate(row.tables, row.map, false, 1, optimistic);
    int raised = 0;
    for (int a = 1; a <= 6; ++a)
        for (int b = a + 1; b <= 6; ++b) {
            EXPECT_GE(optimistic.at(1, a, b), row.quality(a, b));
            raised += optimistic.at(1, a, b) > row.quality(a, b) ? 1 : 0;
        }
    EXPECT_GT(raised, 0);
}

TEST(Reevaluate, AfterAnyMoveGivesTheTableOfAFullEvaluation)
{
    constexpr int moves = 12; // one after the other, so that what one leaves behind would show
    for (unsigned seed = 1; seed <= 12; ++seed) {
        const MapGrid map = scene::hillymap(120, 90, seed);
        NetworkTables tables = scene::randomnetwork(map, seed);
        const bool allnets = seed % 3 == 0;
        const auto mode = static_cast<std::int16_t>(seed % 2);
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> across(-5, 125);
        QualityTable kept;
        evaluate(tables, map, allnets, mode, kept);
        for (int i = 0; i < moves; ++i) {
            const int moving = 1 + static_cast<int>(random() % MAXUNIT);
            Unit& unit = tables.units[static_cast<std::size_t>(moving)];
            scene::place(unit, across(random), across(random));
            unit.elevation = scene::groundunder(map, unit) + static_cast<float>(random() % 60);
            unit.enabled = random() % 6 == 0 ? 0 : -1;
            reevaluate(tables, map, allnets, mode, moving, kept);
            QualityTable full;
            evaluate(tables, map, allnets, mode, full);
            ASSERT_EQ(cellsof(kept), cellsof(full)) << "seed " << seed << ", move " << i;
        }
    }
}

TEST(Reevaluate, ARelayThatLeavesTakesItsReachAlong)
{
    Row row(5, 20, Topology::swarm);
    row.net().maxretrans = 20;
    row.setmargin(0); // neighbours hear each other, the others don't
    row.run();
    ASSERT_EQ(row.reach(1, 3), 49);
    scene::place(row.tables.units[3], -9, -9);
    reevaluate(row.tables, row.map, false, 0, 3, row.table);
    EXPECT_EQ(row.reach(1, 2), 50);
    EXPECT_EQ(row.reach(1, 3), 0);
    EXPECT_EQ(row.reach(2, 4), 0);
    EXPECT_EQ(row.reach(1, 5), 0);
    scene::place(row.tables.units[3], 2 + 2 * 20, 4, 100);
    reevaluate(row.tables, row.map, false, 0, 3, row.table);
    EXPECT_EQ(row.reach(1, 5), 47);
}

TEST(Evalnets, FillsTheTableOfTheRunUnderTheBusyPointer)
{
    Row row(3, 10);
    network = row.tables;
    mapgrid = row.map;
    std::string order;
    hooks.busypointer = [&](bool busy) { order += busy ? "busy " : "free"; };
    hooks.pumpevents = [&] { order += "events "; };
    evalnets(false);
    resethooks();
    EXPECT_EQ(order, "busy events free");
    row.run();
    EXPECT_EQ(cellsof(quality), cellsof(row.table));
    network.nets[1].topology -= visiblebit;
    evalnets(false);
    EXPECT_EQ(quality.at(1, 1, 2), 0);
    evalnets(true);
    EXPECT_EQ(quality.at(1, 1, 2), row.quality(1, 2));
}

TEST(Evalnets, RunsInTheModeOfPropagationOfTheRun)
{
    Row row(2, 100);
    network = row.tables;
    mapgrid = row.map;
    interf = 1;
    evalnets(false);
    interf = 0;
    QualityTable expected;
    evaluate(row.tables, row.map, false, 1, expected);
    EXPECT_EQ(cellsof(quality), cellsof(expected));
}

TEST(Retransmissions, AVoiceNetIsJoinedThroughItsRelayOnce)
{
    Relays net(Topology::voice, 5, 1);
    net.setrole(3, 2);
    net.connect(1, 3);
    net.connect(2, 3);
    net.connect(4, 5);
    net.run();
    EXPECT_EQ(net.reach(1, 2), 49);
    EXPECT_EQ(net.reach(1, 3), 50);
    EXPECT_EQ(net.reach(1, 4), 0);
    EXPECT_EQ(net.reach(4, 5), 50);
}

TEST(Retransmissions, AVoiceNetDoesNotGoThroughTwoRelays)
{
    Relays net(Topology::voice, 4, 0, 20);
    net.setrole(2, 2);
    net.setrole(3, 2);
    net.chain(4);
    net.run();
    EXPECT_EQ(net.reach(1, 3), 49);
    EXPECT_EQ(net.reach(2, 4), 49);
    EXPECT_EQ(net.reach(1, 4), 0);
}

TEST(Retransmissions, AStarHasNone)
{
    Relays net(Topology::star, 3, 0, 5);
    net.chain(3);
    net.run();
    EXPECT_EQ(net.reach(1, 3), 0);
}

TEST(Retransmissions, ASwarmCountsTheHopsOfTheShortestWay)
{
    Relays net(Topology::swarm, 12, 0, 20);
    net.chain(12);
    net.run();
    for (int a = 1; a <= 12; ++a)
        for (int b = a + 1; b <= 12; ++b)
            EXPECT_EQ(net.reach(a, b), 51 - (b - a)) << a << ' ' << b;
}

TEST(Retransmissions, ASwarmHoldsToItsNumberOfHops)
{
    Relays net(Topology::swarm, 12, 0, 3);
    net.chain(12);
    net.run();
    for (int a = 1; a <= 12; ++a)
        for (int b = a + 1; b <= 12; ++b)
            EXPECT_EQ(net.reach(a, b), b - a <= 4 ? 51 - (b - a) : 0) << a << ' ' << b;
}

TEST(Retransmissions, ATerminalNeverRelays)
{
    Relays net(Topology::swarm, 3, 0, 5);
    net.setrole(2, 1);
    net.chain(3);
    net.run();
    EXPECT_EQ(net.reach(1, 3), 0);
    net.setrole(1, 1);
    net.setrole(2, 0);
    net.setrole(3, 1);
    net.run();
    EXPECT_EQ(net.reach(1, 3), 49) << "terminals reach one another through a node";
}

TEST(Retransmissions, ANetOfTwoHasNoSecondPhase)
{
    Relays net(Topology::swarm, 2, 0, 5);
    net.connect(1, 2);
    net.run();
    EXPECT_EQ(net.reach(1, 2), 50);
    Relays disabled(Topology::swarm, 3, 0, 5);
    disabled.chain(3);
    disabled.tables.units[2].enabled = 0;
    disabled.run();
    EXPECT_EQ(disabled.reach(1, 3), 0);
}

TEST(Retransmissions, MoreThan40HopsAreNone)
{
    Relays most(Topology::swarm, 50, 0, 40);
    most.chain(50);
    most.run();
    EXPECT_EQ(most.reach(1, 42), 10);
    EXPECT_EQ(most.reach(1, 43), 0);
    Relays more(Topology::swarm, 50, 0, 41);
    more.chain(50);
    more.run();
    EXPECT_EQ(more.reach(1, 3), 0);
}

TEST(Retransmissions, AnUnknownTopologyHasNone)
{
    Relays net(static_cast<Topology>(7), 3, 0, 5);
    net.chain(3);
    net.run();
    EXPECT_EQ(net.reach(1, 3), 0);
}

TEST(Retransmissions, TouchOnlyTheirOwnNet)
{
    Relays net(Topology::swarm, 4, 0, 5);
    net.chain(4);
    net.table.at(2, 2, 1) = 50;
    net.table.at(3, 1, 2) = 77;
    net.run();
    EXPECT_EQ(net.table.at(2, 2, 1), 50);
    EXPECT_EQ(net.table.at(2, 3, 1), 0);
    EXPECT_EQ(net.table.at(3, 1, 2), 77) << "signals stay";
}
