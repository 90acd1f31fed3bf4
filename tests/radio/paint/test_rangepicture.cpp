#include "radio/linkscene.h"
#include "radio/paint/linkpicture.h"
#include "radio/paint/painted.h"

#include <gtest/gtest.h>

namespace
{
constexpr QColor green{0, 255, 0};
constexpr QColor yellow{255, 255, 0};
constexpr QColor red{255, 0, 0};
constexpr QSizeF usual{1000, 500};

class RangePicture : public testing::TestWithParam<double>
{
protected:
    RangePicture() { scene.run(); }
    Painted paint() const
    {
        return {usual, GetParam(), [this](const QSizeF& size, QPainter& painter) {
                    paintrange(scene.study, size, painter);
                }};
    }
    /// Place of a loss over sample i: 0 at the top, one and a half system gains at the bottom.
    QPointF at(double i, double loss_db) const
    {
        return {(i + 3) / 66 * 1000, loss_db / (scene.study.link.gain12 * 1.5) * 500};
    }
    double gain() const { return scene.study.link.gain12; }

    LinkScene scene;
};
} // namespace

TEST_P(RangePicture, DrawsTheSystemGainAcross)
{
    const Painted painted = paint();
    const double y = at(0, gain()).y();
    EXPECT_NEAR(y, 500 / 1.5, 1e-9);
    for (const double x : {2.0, 200.0, 998.0}) {
        const QRectF around(x, y - 1.5, 0.5, 3);
        EXPECT_GT(painted.countif(
                      around,
                      [](const QColor& pixel) { return pixel.blue() < 110 && pixel.red() > 180; }),
                  0)
            << x;
    }
}

TEST_P(RangePicture, ColoursTheLossByWhatIsLeft)
{
    const auto set = [&](int i, double level_db) {
        scene.link().losses[static_cast<std::size_t>(i)] = gain() - level_db;
    };
    for (int i = 1; i <= 60; ++i)
        set(i, 40);
    for (const auto& [i, level_db] :
         {std::pair{10, 3.1}, {15, 2.9}, {20, -0.9}, {25, -2.9}, {30, -3.1}})
        for (const int k : {i - 1, i})
            set(k, level_db);
    const Painted painted = paint();
    EXPECT_TRUE(painted.near(at(9.5, gain() - 3.1), green));
    EXPECT_TRUE(painted.near(at(14.5, gain() - 2.9), yellow));
    EXPECT_TRUE(painted.near(at(19.5, gain() + 0.9), yellow));
    EXPECT_TRUE(painted.near(at(24.5, gain() + 2.9), yellow));
    EXPECT_TRUE(painted.near(at(29.5, gain() + 3.1), red));
    EXPECT_TRUE(painted.near(at(50.5, gain() - 40), green));
    const QPointF first = (at(0, 0) + at(1, gain() - 40)) / 2;
    EXPECT_TRUE(painted.near(first, green)) << "from no loss at the left station";
}

TEST_P(RangePicture, IsBareWhereNothingWasComputed)
{
    scene.link().losses[1] = 0;
    EXPECT_TRUE(paint().bare(linkcanvas));
    scene.run(0);
    EXPECT_TRUE(paint().bare(linkcanvas));
    scene.study.done = false;
    EXPECT_TRUE(paint().bare(linkcanvas));
}

INSTANTIATE_TEST_SUITE_P(AtDensity, RangePicture, testing::Values(1.0, 2.0));
