#include "radio/linkscene.h"
#include "radio/paint/linkpicture.h"
#include "radio/paint/painted.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{
constexpr QColor magenta{128, 0, 128};
constexpr QColor green{0, 255, 0};
constexpr QColor yellow{255, 255, 0};
constexpr QColor red{255, 0, 0};
constexpr QColor zonegrey{233, 233, 233};
constexpr QSizeF usual{1000, 500};

class ProfilePicture : public testing::TestWithParam<double>
{
protected:
    Painted paint(const QSizeF& size = usual) const
    {
        return {size, GetParam(), [this](const QSizeF& picture, QPainter& painter) {
                    paintprofile(scene.study, picture, painter);
                }};
    }
    QPointF at(double i, double height_m, const QSizeF& size = usual) const
    {
        return profilescale(scene.study).at(i, height_m, size);
    }
    double sample(int i) const { return scene.study.link.profile.sample(i); }
    /// Height of the direct ray over sample i, m.
    double ray(int i) const
    {
        const LinkAnalysis& analysis = scene.study.analysis;
        return analysis.top1 + (analysis.top2 - analysis.top1) * i / 60;
    }
    /// Gives a sample a reception of this level.
    void receive(int i, double level_db)
    {
        scene.link().losses[static_cast<std::size_t>(i)] = scene.link().gain12 - level_db;
    }

    LinkScene scene;
};

/// Without a test parameter: the scale has no density.
class ProfileScale : public testing::Test
{
protected:
    LinkScene scene;
};
} // namespace

TEST_F(ProfileScale, LeavesATwentiethOfThePathAtEitherSide)
{
    ASSERT_TRUE(scene.run());
    const GraphScale scale = profilescale(scene.study);
    EXPECT_DOUBLE_EQ(scale.left, -3);
    EXPECT_DOUBLE_EQ(scale.width, 66);
    EXPECT_NEAR(scale.at(0, 0, usual).x(), 1000 * 0.05 / 1.1, 1e-9);
    EXPECT_NEAR(scale.at(60, 0, usual).x(), 1000 * 1.05 / 1.1, 1e-9);
    for (const double x : {-3.0, 0.0, 17.5, 63.0})
        EXPECT_NEAR(scale.xat(scale.at(x, 0, usual).x(), 1000), x, 1e-9);
}

TEST_F(ProfileScale, OpensTheDrawingOverFlatGround)
{
    scene.tables.systems[1].height = 10;
    ASSERT_TRUE(scene.run());
    const double earth = (1 - 0.04665 * std::exp(301 / 179.3)) / 12.75;
    const double high = 100 + 50 + earth * 15 * 15;
    const GraphScale scale = profilescale(scene.study);
    EXPECT_NEAR(scale.height, (100 - high) * 1.5, 1e-9);
    EXPECT_NEAR(scale.top, high + 0.375 * (high - 100), 1e-9);
}

TEST_F(ProfileScale, TakesInTheAntennas)
{
    scene.tables.systems[1].height = 300;
    scene.tables.units[2].elevation = -250;
    ASSERT_TRUE(scene.run(0)) << "2 m of default antennas";
    const double bulge = 15 * 15 / 12.75;
    GraphScale scale = profilescale(scene.study);
    EXPECT_NEAR(scale.height, -1.5 * (150 + bulge + 248), 1e-9) << "from 248 m below the sea";
    ASSERT_TRUE(scene.run());
    scale = profilescale(scene.study);
    const double earth = (1 - 0.04665 * std::exp(301 / 179.3)) / 12.75;
    EXPECT_NEAR(scale.height, -1.5 * (400 + earth * 225 - 50), 1e-9);
}

TEST_P(ProfilePicture, DrawsTheMasts)
{
    ASSERT_TRUE(scene.run());
    const Painted painted = paint();
    for (const double height : {110.0, 130.0, 150.0}) {
        EXPECT_TRUE(painted.near(at(0, height), magenta)) << height;
        EXPECT_TRUE(painted.near(at(60, height), magenta)) << height;
    }
    const QPointF over = at(0, 163);
    EXPECT_FALSE(painted.near(over, magenta)) << "the mast ends at the antenna";
}

TEST_P(ProfilePicture, ColoursTheTerrainByReception)
{
    scene.raise(30, 140);
    ASSERT_TRUE(scene.run());
    receive(10, 3);
    receive(11, 2.6);  // rounds to 3
    receive(15, 2.4);  // rounds to 2
    receive(20, -3.4); // rounds to -3
    receive(25, -3.6); // rounds to -4
    receive(45, -90);
    scene.link().losses[40] = 0; // no value: the whole gain
    const Painted painted = paint();
    const auto colourof = [&](int i, const QColor& colour) {
        return painted.near(at(i - 0.5, (sample(i) + sample(i - 1)) / 2), colour);
    };
    EXPECT_TRUE(colourof(10, green));
    EXPECT_TRUE(colourof(11, green));
    EXPECT_TRUE(colourof(15, yellow));
    EXPECT_FALSE(colourof(15, green));
    EXPECT_TRUE(colourof(20, yellow));
    EXPECT_TRUE(colourof(25, red));
    EXPECT_FALSE(colourof(25, yellow));
    EXPECT_TRUE(colourof(45, red));
    EXPECT_TRUE(colourof(40, green));
}

TEST_P(ProfilePicture, DrawsTheDirectRayInTheFarEndsColour)
{
    scene.tables.units[2].elevation = 130;
    ASSERT_TRUE(scene.run());
    for (const auto& [level_db, colour] : {std::pair{12.0, green}, {0.0, yellow}, {-12.0, red}}) {
        receive(60, level_db);
        EXPECT_EQ(raycolour(scene.study), colour);
        const Painted painted = paint();
        int found = 0;
        for (int i = 20; i <= 40; ++i)
            found += painted.near(at(i, ray(i)), colour);
        EXPECT_GT(found, 10) << level_db;
    }
}

TEST_P(ProfilePicture, DrawsThreeFresnelZones)
{
    ASSERT_TRUE(scene.run());
    std::fill(scene.link().losses.begin(), scene.link().losses.end(), scene.link().gain12 - 10);
    const Painted painted = paint();
    for (const int i : {20, 30, 40}) {
        const double f = i / 60.0;
        const double radius = std::sqrt(f * (1 - f) * 30 / 146) / 0.001827906;
        for (int zone = 1; zone <= 3; ++zone)
            for (const int side : {-1, 1}) {
                const QPointF edge = at(i, ray(i) + side * radius * std::sqrt(zone));
                if (!QRectF(QPointF(), usual).contains(edge))
                    continue;
                // A line of one pixel rarely fills a row.
                const QRectF around(edge.x(), edge.y() - 1.5, 0.5, 3);
                EXPECT_GT(
                    painted.greatest(around, [](const QColor& pixel) { return pixel.green(); }),
                    170)
                    << "zone " << zone << " side " << side << " at " << i;
            }
    }
}

TEST_P(ProfilePicture, DrawsTheCurveOfTheEarth)
{
    // On flat ground the terrain's line covers the curve: so look where the ground is raised.
    for (const int i : {5, 20, 50})
        scene.raise(i, 180);
    ASSERT_TRUE(scene.run(0));
    const Painted painted = paint();
    for (const int i : {5, 20, 50}) {
        const double along = i * 0.5;
        const QPointF curve = at(i, 100 + along * (30 - along) / 12.75);
        const QRectF around(curve.x(), curve.y() - 2, 0.5, 4);
        EXPECT_GT(painted.greatest(around, [](const QColor& pixel) { return -pixel.lightness(); }),
                  -40)
            << i;
        EXPECT_GT(painted.at(curve.x(), curve.y() - 5).lightness(), 60) << i;
    }
}

TEST_P(ProfilePicture, DrawsTheHorizonsRaysWhereTheGroundIsInTheWay)
{
    scene.tables.systems[1].height = 20;
    scene.raise(20, 500);
    ASSERT_TRUE(scene.run());
    ASSERT_TRUE(scene.study.analysis.crossing);
    const HorizonCrossing& crossing = *scene.study.analysis.crossing;
    const QPointF apex = at(60 * crossing.km / 30, crossing.km * 1000 * crossing.slope1 + 120);
    const QColor colour = raycolour(scene.study);
    const QPointF left = at(0, 120);
    const QPointF right = at(60, 120);
    const Painted painted = paint();
    int found = 0;
    for (int k = 0; k < 10; ++k) {
        const double f = 0.4 + 0.02 * k;
        found += painted.near(left + (apex - left) * f, colour);
        found += painted.near(right + (apex - right) * f, colour);
    }
    EXPECT_GT(found, 8);
}

TEST_P(ProfilePicture, WithoutANetIsYellowWithoutZones)
{
    scene.raise(20, 300);
    ASSERT_TRUE(scene.run(0));
    const Painted painted = paint();
    EXPECT_EQ(painted.count(zonegrey), 0);
    EXPECT_EQ(painted.count(green), 0);
    EXPECT_EQ(painted.count(red), 0);
    EXPECT_TRUE(painted.near(at(20, sample(20)), yellow, 3));
    EXPECT_TRUE(painted.near(at(0, 101), magenta));
    EXPECT_EQ(raycolour(scene.study), yellow);
}

TEST_P(ProfilePicture, KeepsTheBandAtTheTopFree)
{
    ASSERT_TRUE(scene.run(0));
    for (const QSizeF& size : {QSizeF(400, 200), usual, QSizeF(2000, 1000)}) {
        const Painted painted = paint(size);
        for (int y = 0; y < 25; ++y) {
            const QColor sky = painted.at(1, y);
            EXPECT_EQ(painted.count(QRectF(0, y, size.width(), 1 / GetParam()), sky),
                      size.width() * GetParam())
                << "row " << y << " of " << size.width();
        }
    }
}

TEST_P(ProfilePicture, NamesStationsAndTicksBesideTheDrawing)
{
    ASSERT_TRUE(scene.run());
    const Painted painted = paint();
    const auto changes = [&](const QRectF& part) {
        const QColor first = painted.at(part.left(), part.top());
        return painted.countif(part, [&](const QColor& pixel) {
            return std::abs(pixel.lightness() - first.lightness()) > 60;
        });
    };
    EXPECT_GT(changes({50, 27, 60, 16}), 40) << "the left station's name";
    EXPECT_GT(changes({880, 27, 70, 16}), 40) << "the right one's";
    EXPECT_GT(changes({5, 100, 35, 350}), 100) << "elevations";
    EXPECT_GT(changes({100, 482, 800, 16}), 100) << "distances";
}

TEST_P(ProfilePicture, KeepsLongNamesApart)
{
    scene.tables.units[1].name.assign("Wwwwwwwwwwwwwwwwwwww");
    scene.tables.units[2].name.assign("Mmmmmmmmmmmmmmmmmmmm");
    ASSERT_TRUE(scene.run(0));
    const Painted painted = paint({400, 200});
    const QColor sky = painted.at(1, 30);
    const auto ink = [&](const QColor& pixel) {
        return std::abs(pixel.lightness() - sky.lightness()) > 40;
    };
    EXPECT_GT(painted.countif({130, 27, 50, 10}, ink), 20);
    EXPECT_GT(painted.countif({220, 27, 50, 10}, ink), 20);
    EXPECT_EQ(painted.countif({196, 27, 8, 10}, ink), 0);
}

TEST_P(ProfilePicture, FillsItsSizeAndNothingBeyond)
{
    ASSERT_TRUE(scene.run());
    const Painted painted({600, 400}, GetParam(), [this](const QSizeF&, QPainter& painter) {
        paintprofile(scene.study, {500, 300}, painter);
    });
    EXPECT_NE(painted.at(499, 299), QColor(Qt::black));
    EXPECT_EQ(painted.count({500, 0, 100, 400}, Qt::black), 100 * 400 * GetParam() * GetParam());
    EXPECT_EQ(painted.count({0, 300, 600, 100}, Qt::black), 600 * 100 * GetParam() * GetParam());
}

TEST_P(ProfilePicture, ThatIsNotDoneIsBare)
{
    EXPECT_TRUE(paint().bare(linkcanvas));
    scene::place(scene.tables.units[2], -5, 4);
    EXPECT_FALSE(scene.run());
    EXPECT_TRUE(paint().bare(linkcanvas));
}

TEST_P(ProfilePicture, OfOneOrTwoIntervalsIsDrawn)
{
    for (const int intervals : {1, 2}) {
        scene.shorten(intervals);
        ASSERT_TRUE(scene.run());
        const Painted painted = paint();
        EXPECT_TRUE(painted.near(at(0, 130), magenta));
        EXPECT_TRUE(painted.near(at(intervals, 130), magenta));
        EXPECT_TRUE(painted.near(at(intervals * 0.5, sample(0)), green, 3));
    }
}

TEST_P(ProfilePicture, OfAbsurdNumbersComesToAnEnd)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const float unknown = std::numeric_limits<float>::quiet_NaN();
    for (const float elevation : {unknown, infinity, -infinity, 3e38F, -1e30F}) {
        scene.tables.units[1].elevation = elevation;
        scene.run();
        paint({400, 200});
    }
    scene.tables.units[1].elevation = 100;
    scene.net().fmin = scene.net().fmax = 1e-30F;
    ASSERT_TRUE(scene.run());
    const Painted painted = paint({400, 200});
    EXPECT_TRUE(painted.near(at(0, 130, {400, 200}), magenta));
}

TEST_P(ProfilePicture, LeavesThePainterAsItWas)
{
    ASSERT_TRUE(scene.run());
    Painted({400, 200}, GetParam(), [this](const QSizeF& size, QPainter& painter) {
        const QPen pen = painter.pen();
        const QFont font = painter.font();
        paintprofile(scene.study, size, painter);
        paintdetails(scene.study, size, painter);
        paintrange(scene.study, size, painter);
        paintsmeter(4, size, painter);
        EXPECT_EQ(painter.pen(), pen);
        EXPECT_EQ(painter.font(), font);
        EXPECT_FALSE(painter.hasClipping());
        EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    });
}

TEST_P(ProfilePicture, DetailsLieWhollyOnTheSheet)
{
    scene.tables.units[1].name.assign("Wwwwwwwwwwwwwwwwwwww");
    scene.tables.units[2].name.assign("Mmmmmmmmmmmmmmmmmmmm");
    scene.options.interference = 1;
    ASSERT_TRUE(scene.run());
    for (const QSizeF& size : {QSizeF(400, 200), usual, QSizeF(2000, 1000)}) {
        const Painted painted(size, GetParam(), [this](const QSizeF& picture, QPainter& painter) {
            paintdetails(scene.study, picture, painter);
        });
        const double border = std::min(size.width(), size.height()) / 40;
        const QColor sheet = painted.at(1.5 * border, 1.5 * border);
        EXPECT_GT(sheet.lightness(), 230);
        const QRectF firstline(2 * border, 2 * border, size.width() / 2, 20);
        EXPECT_GT(
            painted.countif(firstline, [](const QColor& pixel) { return pixel.lightness() < 90; }),
            50);
        // The margins of the page below and to the right are clean.
        const double wide = size.width() - 3 * border;
        const double tall = size.height() - 3 * border;
        const QRectF below(1.5 * border, size.height() - 1.7 * border, wide, 0.4 * border);
        const QRectF beside(size.width() - 1.7 * border, 1.5 * border, 0.4 * border, tall);
        const auto ink = [&](const QColor& pixel) { return pixel != sheet; };
        EXPECT_EQ(painted.countif(below, ink), 0) << size.width();
        EXPECT_EQ(painted.countif(beside, ink), 0) << size.width();
    }
}

INSTANTIATE_TEST_SUITE_P(AtDensity, ProfilePicture, testing::Values(1.0, 2.0));

TEST(ProfilePictures, AreTheSameDrawingAtBothDensities)
{
    LinkScene scene;
    scene.raise(20, 300);
    ASSERT_TRUE(scene.run());
    const auto paint = [&](const QSizeF& size, QPainter& painter) {
        paintprofile(scene.study, size, painter);
    };
    const Painted once({800, 400}, 1, paint);
    const Painted twice({800, 400}, 2, paint);
    const QImage small =
        twice.image.scaled(800, 400, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    double difference = 0;
    for (int y = 0; y < 400; ++y)
        for (int x = 0; x < 800; ++x)
            difference +=
                std::abs(small.pixelColor(x, y).green() - once.image.pixelColor(x, y).green());
    EXPECT_LT(difference / (800 * 400), 2);
}
