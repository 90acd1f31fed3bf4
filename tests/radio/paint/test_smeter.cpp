#include "radio/paint/linkpicture.h"
#include "radio/paint/painted.h"

#include <gtest/gtest.h>
#include <utility>

namespace
{
/// Boxes that are lit at a level: of the S numbers and of the decibels above.
std::pair<int, int> lit(float level, double density = 1)
{
    const Painted painted({390, 22}, density, [level](const QSizeF& size, QPainter& painter) {
        paintsmeter(level, size, painter);
    });
    std::pair<int, int> found;
    for (int i = 1; i <= 12; ++i) {
        const QColor box = painted.at(2 * (i * 16 - 8), 2 * 5);
        if (i <= 9) {
            EXPECT_TRUE(box == QColor(0, 255, 0) || box == QColor(0, 128, 0)) << i;
            found.first += box == QColor(0, 255, 0);
        } else {
            EXPECT_TRUE(box == QColor(255, 0, 0) || box == QColor(128, 0, 0)) << i;
            found.second += box == QColor(255, 0, 0);
        }
    }
    return found;
}
} // namespace

TEST(SMeter, LightsABoxPerSNumberAndPer10dBAbove)
{
    for (const double density : {1.0, 2.0}) {
        EXPECT_EQ(lit(0, density), std::pair(0, 0));
        EXPECT_EQ(lit(1, density), std::pair(1, 0));
        EXPECT_EQ(lit(9, density), std::pair(9, 0));
        EXPECT_EQ(lit(10, density), std::pair(9, 1));
        EXPECT_EQ(lit(20, density), std::pair(9, 2));
        EXPECT_EQ(lit(30, density), std::pair(9, 3));
        EXPECT_EQ(lit(40, density), std::pair(9, 3));
        EXPECT_EQ(lit(60, density), std::pair(9, 3));
    }
}

TEST(SMeter, RoundsItsLevelToEven)
{
    EXPECT_EQ(lit(4.5F), std::pair(4, 0));
    EXPECT_EQ(lit(5.5F), std::pair(6, 0));
    EXPECT_EQ(lit(9.6F), std::pair(9, 1));
    EXPECT_EQ(lit(-3), std::pair(0, 0));
}

TEST(SMeter, HasItsBoxesWhereTheScaleSays)
{
    const Painted painted(
        {195, 11}, 4, [](const QSizeF& size, QPainter& painter) { paintsmeter(9, size, painter); });
    for (int i = 1; i <= 12; ++i) {
        const QColor box = i <= 9 ? QColor(0, 255, 0) : QColor(128, 0, 0);
        EXPECT_EQ(painted.at(i * 16 - 13.7, 2.3), box);
        EXPECT_EQ(painted.at(i * 16 - 2.3, 7.7), box);
        EXPECT_NE(painted.at(i * 16 - 14.3, 5), box);
        EXPECT_NE(painted.at(i * 16 - 1.7, 5), box);
        EXPECT_NE(painted.at(i * 16 - 8, 1.7), box);
        EXPECT_NE(painted.at(i * 16 - 8, 8.3), box);
    }
}
