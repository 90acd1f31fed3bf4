#include "pictures/layout.h"

#include <gtest/gtest.h>

namespace
{
constexpr int bar = 16;
}

TEST(Layout, ASmallSurfaceIsCentredWithoutBars)
{
    const PictureLayout layout = layoutpicture(500, 400, 300, 100, bar, -7, 33);
    EXPECT_FALSE(layout.hscroll);
    EXPECT_FALSE(layout.vscroll);
    EXPECT_EQ(layout.left, 100);
    EXPECT_EQ(layout.top, 150);
}

TEST(Layout, AWideSurfaceScrollsAcrossAndIsCentredUpward)
{
    const PictureLayout layout = layoutpicture(500, 400, 800, 100, bar, -50, 0);
    EXPECT_TRUE(layout.hscroll);
    EXPECT_FALSE(layout.vscroll);
    EXPECT_EQ(layout.visiblewidth, 500);
    EXPECT_EQ(layout.left, -50);
    EXPECT_EQ(layout.top, (400 - bar - 100) / 2);
}

TEST(Layout, OneBarCanForceTheOther)
{
    const PictureLayout layout = layoutpicture(500, 400, 501, 390, bar, 0, 0);
    EXPECT_TRUE(layout.hscroll);
    EXPECT_TRUE(layout.vscroll);
    EXPECT_EQ(layout.visiblewidth, 500 - bar);
    EXPECT_EQ(layout.visibleheight, 400 - bar);
    const PictureLayout turned = layoutpicture(400, 500, 390, 501, bar, 0, 0);
    EXPECT_TRUE(turned.hscroll);
    EXPECT_TRUE(turned.vscroll);
}

TEST(Layout, ASurfaceThatFitsExactlyHasNoBars)
{
    const PictureLayout layout = layoutpicture(500, 400, 500, 400, bar, 0, 0);
    EXPECT_FALSE(layout.hscroll);
    EXPECT_FALSE(layout.vscroll);
    EXPECT_EQ(layout.left, 0);
    EXPECT_EQ(layout.top, 0);
}

TEST(Layout, AScrolledSurfaceNeverLeavesTheEdge)
{
    EXPECT_EQ(layoutpicture(500, 400, 800, 900, bar, 20, 30).left, 0);
    EXPECT_EQ(layoutpicture(500, 400, 800, 900, bar, 20, 30).top, 0);
}

TEST(Layout, AWindowWithoutRoomShowsNothing)
{
    const PictureLayout layout = layoutpicture(5, 5, 800, 900, bar, 0, 0);
    EXPECT_EQ(layout.visiblewidth, 0);
    EXPECT_EQ(layout.visibleheight, 0);
}
