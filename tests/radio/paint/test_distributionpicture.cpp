#include "radio/paint/linkpicture.h"
#include "radio/paint/painted.h"

#include <gtest/gtest.h>

namespace
{
constexpr QColor green{0, 255, 0};
constexpr QColor red{255, 0, 0};
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
    const auto around = [&](double loss, double y) {
        return QRectF(at(loss, y).x() - 1.5, at(loss, y).y(), 3, 0.5);
    };
    const auto white = [&](double loss, double y) {
        return painted.greatest(around(loss, y), [](const QColor& pixel) { return pixel.red(); }) >
               180;
    };
    EXPECT_TRUE(white(165, 1.8));
    EXPECT_FALSE(white(165, 1.97));
    EXPECT_TRUE(white(146, 1.6));
    EXPECT_FALSE(white(146, 1.8)) << "the needed performance ends lower";
    EXPECT_FALSE(white(140, 1.4)) << "and the mean lower still";
    const auto blueness = [](const QColor& pixel) { return pixel.blue() - pixel.red(); };
    EXPECT_GT(painted.greatest(around(140, 1.1), blueness), 100);
    EXPECT_GT(painted.greatest(around(140, 0.5), blueness), 100);
    EXPECT_LT(painted.greatest(around(140, 1.3), blueness), 50);
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
        const QRectF around(at(loss, 0).x() - 1.5, at(0, 0.8).y(), 3, 0.5);
        EXPECT_GT(painted.greatest(around,
                                   [](const QColor& pixel) { return pixel.green() - pixel.red(); }),
                  60)
            << loss;
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
