#include "radio/paint/linkpicture.h"
#include "radio/paint/painted.h"

#include <gtest/gtest.h>

namespace
{
constexpr QColor green{0, 255, 0};
constexpr QColor red{255, 0, 0};
constexpr QColor blue{0, 0, 255};
constexpr QColor gridgreen{0, 160, 0};
constexpr QSizeF usual{1000, 500};

class DistributionPicture : public testing::TestWithParam<double>
{
protected:
    Painted paint(const QSizeF& size = usual) const
    {
        return {size, GetParam(), [this](const QSizeF& picture, QPainter& painter) {
                    paintdistribution(bell, picture, painter);
                }};
    }
    QPointF at(double loss, double y) const
    {
        return {(bell.hi - loss) / (bell.hi - bell.lo) * 1000, (2 - y) / 2.1 * 500};
    }

    Distribution bell{.mean = 140, .spread = 155, .need = 146, .gain12 = 165, .lo = -15, .hi = 255};
};
} // namespace

TEST_P(DistributionPicture, FillsTheBellByWhatTheSystemCarries)
{
    const Painted painted = paint();
    EXPECT_EQ(painted.at(at(135.5, 0.5).x(), at(0, 0.5).y()), green);
    EXPECT_EQ(painted.at(at(160, 0.2).x(), at(0, 0.2).y()), green);
    EXPECT_EQ(painted.at(at(170, 0.05).x(), at(0, 0.05).y()), red);
    EXPECT_NE(painted.at(at(170, 0.6).x(), at(0, 0.6).y()), red) << "above the bell";
    // one deviation from the mean the curve has fallen to 0.6065
    EXPECT_EQ(painted.at(at(155, 0.58).x(), at(0, 0.58).y()), green);
    EXPECT_NE(painted.at(at(155, 0.64).x(), at(0, 0.64).y()), green);
    EXPECT_EQ(painted.count({at(164, 0).x(), at(0, 0.02).y(), 2, 1}, linkcanvas), 0)
        << "no gap at the threshold";
}

TEST_P(DistributionPicture, MarksThresholdNeedAndMean)
{
    const Painted painted = paint();
    const auto column = [&](double loss, double from, double to, const QColor& colour) {
        const double x = at(loss, 0).x();
        return painted.count({x - 1.5, at(0, to).y(), 3, at(0, from).y() - at(0, to).y()}, colour);
    };
    const auto greatest = [&](double loss, double y) {
        int most = 0;
        for (double x = at(loss, 0).x() - 1.5; x < at(loss, 0).x() + 1.5; x += 0.5)
            most = std::max(most, painted.at(x, at(0, y).y()).red());
        return most;
    };
    EXPECT_GT(greatest(165, 1.8), 180);
    EXPECT_GT(greatest(146, 1.6), 180);
    EXPECT_LT(greatest(146, 1.8), 180) << "the needed performance ends lower";
    EXPECT_LT(greatest(165, 1.97), 180);
    EXPECT_LT(greatest(140, 1.4), 140) << "and the mean lower still";
    EXPECT_GE(column(140, 1.05, 1.15, blue) + column(140, 0.3, 0.9, blue), GetParam() > 1 ? 5 : 0);
    int bluest = 0;
    for (double x = at(140, 0).x() - 1.5; x < at(140, 0).x() + 1.5; x += 0.5)
        bluest = std::max(bluest, painted.at(x, at(0, 1.1).y()).blue() -
                                      painted.at(x, at(0, 1.1).y()).red());
    EXPECT_GT(bluest, 100);
}

TEST_P(DistributionPicture, ShowsTheMarginAsSuccess)
{
    const Painted painted = paint();
    EXPECT_TRUE(painted.near(at(150, 1.45), green));
    EXPECT_TRUE(painted.near(at(162, 1.45), green));
    EXPECT_FALSE(painted.near(at(143, 1.45), green));
    EXPECT_EQ(painted.count({0, 0, 1000, at(0, 1.1).y()}, red), 0);
}

TEST_P(DistributionPicture, ShowsAMissingMarginAsFailure)
{
    bell.gain12 = 120;
    bell.need = 150;
    const Painted painted = paint();
    EXPECT_TRUE(painted.near(at(135, 1.45), red));
    EXPECT_TRUE(painted.near(at(148, 1.45), red));
    EXPECT_EQ(painted.count({0, 0, 1000, at(0, 1.1).y()}, green), 0);
}

TEST_P(DistributionPicture, HasALineEvery10dB)
{
    const Painted painted = paint();
    for (const double loss : {254.0, 244.0, 234.0, 44.0, 4.0}) {
        int greenest = 0;
        for (double x = at(loss, 0).x() - 1.5; x < at(loss, 0).x() + 1.5; x += 0.5)
            greenest = std::max(greenest, painted.at(x, at(0, 0.8).y()).green() -
                                              painted.at(x, at(0, 0.8).y()).red());
        EXPECT_GT(greenest, 60) << loss;
    }
    EXPECT_EQ(painted.at(at(249, 0).x(), at(0, 0.8).y()), linkcanvas);
    EXPECT_EQ(painted.count({0, 0, 1000, at(0, 1.05).y()}, gridgreen), 0);
}

TEST_P(DistributionPicture, OfAbsurdNumbersIsBare)
{
    bell.hi = 1e30;
    EXPECT_TRUE(paint().bare(linkcanvas));
    bell.hi = bell.lo;
    EXPECT_TRUE(paint().bare(linkcanvas));
}

TEST_P(DistributionPicture, OfATinySizeIsDrawn)
{
    EXPECT_FALSE(paint({40, 20}).bare(linkcanvas));
}

INSTANTIATE_TEST_SUITE_P(AtDensity, DistributionPicture, testing::Values(1.0, 2.0));
