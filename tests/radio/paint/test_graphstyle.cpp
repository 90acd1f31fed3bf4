#include "radio/paint/graphstyle.h"
#include "radio/paint/painted.h"

#include <QPolygonF>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

TEST(GraphTicks, Are1Or2Or5TimesAPowerOfTen)
{
    EXPECT_DOUBLE_EQ(tickstep(10, 10), 1);
    EXPECT_DOUBLE_EQ(tickstep(10.1, 10), 2);
    EXPECT_DOUBLE_EQ(tickstep(47, 10), 5);
    EXPECT_DOUBLE_EQ(tickstep(51, 10), 10);
    EXPECT_DOUBLE_EQ(tickstep(0.3, 10), 0.05);
    EXPECT_DOUBLE_EQ(tickstep(2900, 6), 500);
}

TEST(GraphTicks, AreNeverMoreThanAsked)
{
    for (int k = -40; k < 100; ++k)
        for (const double most : {2.0, 5.5, 12.0}) {
            const double range = std::pow(1.13, k);
            const double step = tickstep(range, most);
            EXPECT_LE(range / step, most * (1 + 1e-9));
            EXPECT_GT(range / step, most / 2.6) << "nor much fewer";
        }
}

TEST(GraphTicks, AreNoneOfARangeThatIsNone)
{
    EXPECT_EQ(tickstep(0, 5), 0);
    EXPECT_EQ(tickstep(-4, 5), 0);
    EXPECT_EQ(tickstep(std::numeric_limits<double>::quiet_NaN(), 5), 0);
    EXPECT_EQ(tickstep(std::numeric_limits<double>::infinity(), 5), 0);
    EXPECT_EQ(tickstep(10, 0.5), 0);
}

TEST(GraphTicks, HaveAsManyDecimalsAsTheirDistance)
{
    EXPECT_EQ(ticktext(1200, 200), QStringLiteral("1200"));
    EXPECT_EQ(ticktext(3, 1), QStringLiteral("3"));
    EXPECT_EQ(ticktext(0.5, 0.5), QStringLiteral("0.5"));
    EXPECT_EQ(ticktext(0.3, 0.05), QStringLiteral("0.30"));
    EXPECT_EQ(ticktext(-40, 20), QStringLiteral("-40"));
}

TEST(GraphFont, GrowsModeratelyWithThePicture)
{
    EXPECT_EQ(graphfont({400, 200}).pixelSize(), 9);
    EXPECT_EQ(graphfont({1000, 500}).pixelSize(), 14);
    EXPECT_EQ(graphfont({2000, 1000}).pixelSize(), 19);
    EXPECT_EQ(graphfont({9000, 200}).pixelSize(), 9);
}

TEST(GraphCurves, AreWithoutSeamsWhereTheyAreCut)
{
    // A flat curve of two pixels on a dark ground, level with the pixels: every column is whole.
    for (const double density : {1.0, 2.0}) {
        const Painted painted({200, 40}, density, [](const QSizeF&, QPainter& painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            QPolygonF curve;
            for (int i = 0; i <= 20; ++i)
                curve << QPointF(7.3 + 9.1 * i, 20);
            paintcurve(curve, 2, Qt::white, painter);
        });
        EXPECT_EQ(painted.count({9, 19, 178, 2}, Qt::white), 178 * 2 * density * density);
        EXPECT_EQ(painted.count({9, 22, 178, 10}, Qt::black), 178 * 10 * density * density);
    }
}

TEST(GraphCurves, FillWhatLiesBelow)
{
    const Painted painted({200, 100}, 1, [](const QSizeF& size, QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        QPolygonF curve;
        for (int i = 0; i <= 17; ++i)
            curve << QPointF(3.4 + 11.3 * i, 50 + 20 * std::sin(i));
        fillbelow(curve, size.height(), Qt::red, painter);
    });
    EXPECT_EQ(painted.count({4, 71, 190, 29}, Qt::red), 190 * 29) << "without seams";
    EXPECT_EQ(painted.count({0, 0, 200, 29}, Qt::black), 200 * 29);
}
