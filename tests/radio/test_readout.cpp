#include "radio/linkscene.h"
#include "radio/readout.h"

#include <cmath>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace
{
LinkReadout read(const LinkScene& scene, double x)
{
    return readlink(scene.study, scene.tables, scene.map, x);
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

/// Ground under the ray at a whole sample, from the scene's own figures: 30 km, two antennas of the
/// same height over 100 m.
double clearance(const LinkScene& scene, int i, double ground_m)
{
    const double along = 0.5 * i;
    const double factor = (1 - 0.04665 * std::exp(301 / 179.3)) / 12.75;
    return 100 + double{scene.tables.systems[1].height} - ground_m - factor * along * (30 - along);
}
} // namespace

TEST(LinkReadout, TellsDistanceClearanceZonesAndReception)
{
    LinkScene scene;
    scene.setmargin(25);
    const LinkReadout readout = read(scene, 20);
    const double over = clearance(scene, 20, 100);
    ASSERT_GT(over, 0);
    const double zone = std::sqrt(20 / 60.0 * 40 / 60 * 30 / 146) / 0.001827906;
    const double level = scene.link().gain12 - scene.link().losses[20];
    const int s = sunits(static_cast<float>(level), 146);
    ASSERT_GT(s, 9);
    EXPECT_EQ(readout.text,
              fmt::format(" Distance:10.00km  Dégagement:{:.2f}m  {:.1f}F1  Rx:{:.2f}dB  ( S 9 + "
                          "{} ) ",
                          over, over / zone, level, s));
    EXPECT_EQ(readout.x, 20);
    EXPECT_NEAR(readout.km, 10, 1e-12);
    EXPECT_EQ(readout.meter12, s);
    EXPECT_EQ(readout.meter21, s) << "both ends have the same system";
}

TEST(LinkReadout, CallsGroundAboveTheRayAnObstruction)
{
    LinkScene scene;
    scene.raise(20, 300);
    scene.setmargin(2);
    const double under = -clearance(scene, 20, 300);
    EXPECT_TRUE(contains(read(scene, 20).text, fmt::format("Obstruction:{:.2f}m  ", under)))
        << read(scene, 20).text;
}

TEST(LinkReadout, CallsTouchingGroundAnObstruction)
{
    LinkScene scene;
    scene.tables.systems[1].height = 0;
    scene.shorten(1);
    ASSERT_TRUE(scene.run());
    EXPECT_TRUE(contains(read(scene, 0).text, "Obstruction:0.00m  "));
}

TEST(LinkReadout, TakesTheGroundOfTheNearestSampleButTheRayOfThePlace)
{
    LinkScene scene;
    scene.raise(20, 130);
    ASSERT_TRUE(scene.run());
    const double at20 = clearance(scene, 20, 130);
    EXPECT_TRUE(contains(read(scene, 20.5).text, fmt::format(":{:.2f}m  ", at20)))
        << "a half goes to even: " << read(scene, 20.5).text;
    EXPECT_TRUE(contains(read(scene, 20.5).text, " Distance:10.25km  "));
    EXPECT_TRUE(
        contains(read(scene, 19.4).text, fmt::format(":{:.2f}m  ", clearance(scene, 19, 100))));
}

TEST(LinkReadout, HoldsTheCursorOnThePath)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run());
    EXPECT_EQ(read(scene, 170).x, 60);
    EXPECT_EQ(read(scene, 170).text, read(scene, 60).text);
    EXPECT_EQ(read(scene, -3).x, 0);
    EXPECT_EQ(read(scene, -3).km, 0);
    EXPECT_EQ(read(scene, std::nan("")).x, 0) << "a picture without width has no places";
}

TEST(LinkReadout, AtTheLeftStationHasNoReception)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run());
    const LinkReadout readout = read(scene, 0);
    EXPECT_EQ(readout.text, " Distance:0.00km  Dégagement:60.00m  ");
    EXPECT_FALSE(readout.meter12);
    EXPECT_FALSE(readout.meter21);
}

TEST(LinkReadout, AtTheRightStationHasNoZones)
{
    LinkScene scene;
    scene.setmargin(-5);
    EXPECT_EQ(read(scene, 60).text, " Distance:30.00km  Dégagement:60.00m  Rx:-5.00dB  ( S 0 ) ");
}

TEST(LinkReadout, ReadsEachDirectionByItsOwnGain)
{
    LinkScene scene;
    scene.setmargin(1);
    scene.tables.systems[2] = scene.tables.systems[1];
    scene.tables.systems[2].power = 100;
    scene.net().system[2] = 2;
    scene.run();
    EXPECT_NEAR(scene.link().gain21 - scene.link().gain12, 10, 1e-5);
    const LinkReadout readout = read(scene, 60);
    EXPECT_EQ(readout.meter12,
              sunits(static_cast<float>(scene.link().gain12 - scene.link().losses[60]), 146));
    EXPECT_EQ(readout.meter21,
              sunits(static_cast<float>(scene.link().gain21 - scene.link().losses[60]), 146));
    EXPECT_GT(*readout.meter21, *readout.meter12);
}

TEST(LinkReadout, WithoutANetTellsTheGroundAlone)
{
    LinkScene scene;
    scene.options.defh1 = 12;
    scene.options.defh2 = 32;
    ASSERT_TRUE(scene.run(0));
    const double middle = 22 - 15 * 15 / 12.75;
    ASSERT_GT(middle, 0);
    const LinkReadout readout = read(scene, 30);
    EXPECT_EQ(readout.text, fmt::format(" Distance:15.00km  Dégagement:{:.2f}m  ", middle));
    EXPECT_FALSE(readout.meter12);
    EXPECT_FALSE(readout.meter21);
}

TEST(LinkReadout, WithoutAFrequencyHasNoZones)
{
    LinkScene scene;
    scene.net().fmin = scene.net().fmax = 0;
    ASSERT_TRUE(scene.run());
    EXPECT_FALSE(contains(read(scene, 30).text, "F1"));
    EXPECT_FALSE(contains(read(scene, 30).text, "inf"));
}

TEST(LinkReadout, NamesThePlaceOnTheGround)
{
    LinkScene scene;
    scene::place(scene.tables.units[2], 60, 8, 100);
    ASSERT_TRUE(scene.run());
    const LinkReadout readout = read(scene, 15);
    EXPECT_FLOAT_EQ(readout.lon, scene::west + 15 / scene::cellsperdegree);
    EXPECT_FLOAT_EQ(readout.lat, scene::south + 5 / scene::cellsperdegree);
}

TEST(LinkReadout, AcrossTheDateLineStaysOnTheMapsSide)
{
    LinkScene scene;
    ASSERT_TRUE(scene.run());
    scene.map.maplon = {179.5F, 180.5F, 180.5F, 179.5F};
    scene.tables.units[1].lon = 179.75F;
    scene.tables.units[2].lon = -179.75F;
    EXPECT_FLOAT_EQ(read(scene, 30).lon, 180);
    EXPECT_FLOAT_EQ(read(scene, 45).lon, 180.125F);
    scene.map.maplon = {-180.5F, -179.5F, -179.5F, -180.5F};
    EXPECT_FLOAT_EQ(read(scene, 30).lon, -180);
    EXPECT_FLOAT_EQ(read(scene, 15).lon, -180.125F);
    scene.map.maplon = {-180, 180, 180, -180};
    EXPECT_FLOAT_EQ(read(scene, 30).lon, 0) << "a map of the whole globe has no other side";
}

TEST(LinkReadout, OfNoStudyIsEmpty)
{
    LinkScene scene;
    EXPECT_EQ(read(scene, 30).text, "");
    scene::place(scene.tables.units[2], -5, 4);
    EXPECT_FALSE(scene.run());
    const LinkReadout readout = read(scene, 30);
    EXPECT_EQ(readout.text, "");
    EXPECT_EQ(readout.x, 0);
    EXPECT_FALSE(readout.meter12);
}
