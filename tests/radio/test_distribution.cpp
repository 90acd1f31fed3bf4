#include "radio/distribution.h"
#include "radio/linkscene.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace
{
std::optional<Distribution> compute(LinkScene& scene, int net = 1, std::int16_t mode = 0)
{
    return distribution(scene.tables, scene.map, 1, 2, net, mode, scene.study);
}

/// Loss of the scene's link when its net asks for one percentage of everything.
double lossat(LinkScene scene, float percent)
{
    scene.net().ptime = scene.net().plocation = scene.net().psituation = percent;
    scene.run();
    return scene.link().record.loss;
}
} // namespace

TEST(LinkDistribution, IsTheLossAtTheMeanAndAtOneDeviation)
{
    for (const int urban : {0, 100}) {
        LinkScene scene;
        scene.net().statmode = static_cast<std::int16_t>(3 + urban);
        scene.net().ptime = 90;
        scene.net().plocation = 80;
        ASSERT_TRUE(scene.run());
        const double need = scene.link().record.loss;
        const double gain = scene.link().gain12;
        const auto found = compute(scene);
        ASSERT_TRUE(found);
        EXPECT_NEAR(found->mean, lossat(scene, 50), 1e-9);
        EXPECT_NEAR(found->spread, lossat(scene, 84.1F), 1e-4) << "84.1 as a single";
        EXPECT_EQ(found->need, need);
        EXPECT_EQ(found->gain12, gain);
        EXPECT_EQ(found->margin(), gain - need);
        EXPECT_GT(found->spread, found->mean + 1);
        EXPECT_EQ(found->deviation(), found->spread - found->mean);
    }
}

TEST(LinkDistribution, LaysTheAxisByTheWholeLoss)
{
    LinkScene scene;
    for (const double margin : {-30.0, 4.0, 60.0}) {
        scene.setmargin(margin);
        const auto d = compute(scene);
        ASSERT_TRUE(d);
        const double low = std::min(std::min(d->gain12, d->need), std::min(d->mean, d->spread));
        const double high = std::max(std::max(d->gain12, d->need), std::max(d->mean, d->spread));
        const double wide = high - low > 2 * d->spread ? high - low : 2 * d->spread;
        EXPECT_NEAR(d->lo, low - wide / 2, 1e-9);
        const double span = high - d->lo > d->spread ? high - d->lo : d->spread;
        EXPECT_NEAR(d->hi, high + span / 2, 1e-9);
    }
}

TEST(LinkDistribution, IsABellOverTheMean)
{
    const Distribution bell{.mean = 140, .spread = 148};
    EXPECT_EQ(bell.density(140), 1);
    EXPECT_NEAR(bell.density(148), std::exp(-0.5), 1e-15);
    EXPECT_EQ(bell.density(132), bell.density(148));
    const Distribution narrow{.mean = 140, .spread = 140.2};
    EXPECT_EQ(narrow.deviation(), 1) << "never narrower than 1 dB";
    const Distribution reversed{.mean = 140, .spread = 130};
    EXPECT_EQ(reversed.deviation(), 1);
}

TEST(LinkDistribution, LeavesTheLinkAsItsWindowKnowsIt)
{
    LinkScene scene;
    scene.raise(30, 180);
    scene.net().ptime = 70;
    ASSERT_TRUE(scene.run());
    const double loss = scene.link().record.loss;
    EXPECT_NE(scene.link().profile.sample(30), 180) << "raised by the bulge";
    ASSERT_TRUE(compute(scene));
    EXPECT_EQ(double{scene.link().record.loss}, loss);
    EXPECT_EQ(double{scene.link().record.ptime}, 84.1);
    EXPECT_EQ(double{scene.link().record.ploc}, 84.1);
    EXPECT_EQ(double{scene.link().record.psit}, 84.1);
    EXPECT_EQ(scene.link().profile.sample(30), 180) << "cut anew";
    EXPECT_EQ(scene.link().profile.sample(0), 100);
    ASSERT_TRUE(scene.run());
    EXPECT_EQ(double{scene.link().record.ptime}, 70) << "the next analysis takes the net's own";
}

TEST(LinkDistribution, FollowsThePropagationMode)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run());
    const auto normal = compute(scene);
    ASSERT_TRUE(scene.run());
    const auto optimistic = compute(scene, 1, 1);
    ASSERT_TRUE(normal && optimistic);
    EXPECT_LT(optimistic->mean, normal->mean);
}

TEST(LinkDistribution, NeedsANetAndAProfile)
{
    LinkScene scene;
    EXPECT_FALSE(compute(scene)) << "nothing studied";
    ASSERT_TRUE(scene.run(0));
    EXPECT_FALSE(compute(scene, 0));
    scene::place(scene.tables.units[2], -5, 4);
    scene.run();
    EXPECT_FALSE(compute(scene));
}
