#include "radio/linkrange.h"
#include "radio/linkscene.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace
{
/// A link whose reception is these levels, sample by sample from the first behind the left station.
Link received(std::initializer_list<double> levels)
{
    Link link;
    link.gain12 = 150;
    link.profile.elevations_m.resize(levels.size() + 1);
    link.losses = {0};
    for (const double level : levels)
        link.losses.push_back(link.gain12 - level);
    return link;
}
} // namespace

TEST(LinkRange, EndsAtTheFirstSampleThatIsNotAboveMinus1)
{
    EXPECT_EQ(rangesample(received({9, 5, -0.5, -1, 7})), 4);
    EXPECT_EQ(rangesample(received({9, -4, 8})), 2);
    EXPECT_EQ(rangesample(received({-20, 8})), 1);
}

TEST(LinkRange, IsTheWholePathWhereNothingFails)
{
    EXPECT_EQ(rangesample(received({9, 5, -0.99})), 3);
    EXPECT_EQ(rangesample(received({9})), 1);
}

TEST(LinkRange, TakesASampleWithoutALossAsReceived)
{
    Link link = received({9, 5, 4});
    link.losses[2] = 0;
    EXPECT_EQ(rangesample(link), 3);
}

TEST(LinkRange, NeedsLossesAndAProfile)
{
    Link link = received({9, 5});
    link.losses[1] = 0;
    EXPECT_FALSE(rangesample(link));
    EXPECT_FALSE(rangesample(Link{}));
    LinkScene scene;
    ASSERT_TRUE(scene.run(0));
    EXPECT_FALSE(rangesample(scene.link()));
    ASSERT_TRUE(scene.run());
    EXPECT_TRUE(rangesample(scene.link()));
}
