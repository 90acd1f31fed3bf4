#include "network/netfields.h"

#include <gmock/gmock.h>
#include <limits>

using testing::ElementsAre;

TEST(NetFields, TheUrbanFactorIsAHundredOnTheMode)
{
    Net net;
    setstatmode(net, StatMode::mobile, true);
    EXPECT_EQ(net.statmode, 102);
    EXPECT_TRUE(urban(net));
    EXPECT_EQ(statmode(net), StatMode::mobile);
    setstatmode(net, StatMode::trial, false);
    EXPECT_EQ(net.statmode, 0);
    EXPECT_FALSE(urban(net));
}

TEST(NetFields, AModeOfAForeignFileIsShownWithinTheFour)
{
    Net net;
    const auto shown = [&net](int value) {
        net.statmode = static_cast<std::int16_t>(value);
        return statmode(net);
    };
    EXPECT_EQ(shown(3), StatMode::broadcast);
    EXPECT_EQ(shown(9), StatMode::broadcast);
    EXPECT_EQ(shown(-7), StatMode::trial);
    EXPECT_EQ(shown(201), StatMode::accidental);
    EXPECT_TRUE(urban(net));
}

TEST(NetFields, EachModeReadsItsOwnShares)
{
    EXPECT_FALSE(usestime(StatMode::trial));
    EXPECT_FALSE(usestime(StatMode::accidental));
    EXPECT_TRUE(usestime(StatMode::mobile));
    EXPECT_TRUE(usestime(StatMode::broadcast));
    EXPECT_FALSE(useslocation(StatMode::trial));
    EXPECT_TRUE(useslocation(StatMode::accidental));
    EXPECT_FALSE(useslocation(StatMode::mobile));
    EXPECT_TRUE(useslocation(StatMode::broadcast));
}

TEST(NetFields, TopologyAndVisibilityKeepEachOther)
{
    Net net;
    settopology(net, 2);
    EXPECT_EQ(net.topology, 258);
    settopology(net, 0);
    EXPECT_EQ(net.topology, 256) << "from data to voice the net stays visible";
    setvisible(net, false);
    EXPECT_EQ(net.topology, 0);
    settopology(net, 1);
    EXPECT_EQ(net.topology, 1);
    setvisible(net, true);
    EXPECT_EQ(net.topology, 257);
}

TEST(NetFields, ARoleThatTheTopologyLacksIsShownAsTheFirstAndKept)
{
    Net net;
    setmember(net, 4, true);
    setrole(net, 4, 2);
    EXPECT_EQ(net.member[4], 130);
    EXPECT_EQ(shownrole(net, 4), 2);
    settopology(net, 1);
    EXPECT_EQ(shownrole(net, 4), 0);
    EXPECT_EQ(net.member[4], 130);
    setmember(net, 4, false);
    EXPECT_EQ(net.member[4], 2);
    setrole(net, 4, 1);
    EXPECT_EQ(net.member[4], 1);
}

TEST(NetFields, VoiceHasThreeRolesAndTheDataNetsTwo)
{
    EXPECT_EQ(rolecount(0), 3);
    EXPECT_EQ(rolecount(1), 2);
    EXPECT_EQ(rolecount(2), 2);
    EXPECT_EQ(rolecount(7), 0);
}

TEST(NetFields, OneMicrovoltIsMinus107dBm)
{
    EXPECT_DOUBLE_EQ(microvolts(-107), 1);
    EXPECT_DOUBLE_EQ(microvolts(-87), 10);
    EXPECT_DOUBLE_EQ(thresholdlevel(1), -107);
    EXPECT_DOUBLE_EQ(thresholdlevel(bounds::threshold.low), -147);
    EXPECT_NEAR(thresholdlevel(microvolts(-118.3)), -118.3, 1e-9);
}

TEST(NetFields, TheBytesOfANewNetworkAsRules)
{
    const LineRules rules = linerules({175, 181, 129});
    EXPECT_EQ(rules, (LineRules{true, true, true, true, -3, 3}));
    EXPECT_THAT(linestylebytes(rules), ElementsAre(175, 181, 129));
}

TEST(NetFields, RulesWithoutLinesKeepTheirMargins)
{
    const LineRules rules{false, false, false, false, 0, 10};
    EXPECT_THAT(linestylebytes(rules), ElementsAre(50, 60, 0));
    EXPECT_EQ(linerules({50, 60, 0}), rules);
}

TEST(NetFields, YellowAboveGreenTakesGreensByte)
{
    EXPECT_THAT(linestylebytes({true, true, true, false, 20, 5}), ElementsAre(183, 183, 128));
}

TEST(NetFields, MarginsAreHeldOnTheirScaleAndRounded)
{
    EXPECT_THAT(linestylebytes({false, false, false, false, -60, 60}), ElementsAre(1, 99, 0));
    EXPECT_THAT(linestylebytes({false, false, false, false, 1.5, 2.6}), ElementsAre(52, 53, 0));
    const double most = std::numeric_limits<double>::max();
    EXPECT_THAT(linestylebytes({false, false, false, true, -most, most}), ElementsAre(1, 99, 1));
}
