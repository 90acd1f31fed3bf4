#include "gis/gisfiles.h"
#include "gis/module/readraster.h"

namespace
{
class ReadRaster : public GisTest
{
};
} // namespace

TEST_F(ReadRaster, TellsWhatARasterIs)
{
    MadeRaster made;
    made.crs = "EPSG:32631";
    made.spacing = 30;
    made.west = 400000;
    made.north = 4650000;
    made.columns = 200;
    made.rows = 100;
    made.unit = "ft";
    made.bands = {[](double, double) { return 1; }, [](double, double) { return 2; }};
    std::string why;
    const auto raster = opengisraster(make("a.tif", made), {}, why);
    ASSERT_TRUE(raster) << why;
    const RasterInfo& info = raster->info();
    EXPECT_EQ(info.columns, 200);
    EXPECT_EQ(info.rows, 100);
    EXPECT_EQ(info.bands, 2);
    EXPECT_EQ(info.driver, "GTiff");
    EXPECT_EQ(info.unit, "ft");
    EXPECT_FALSE(info.bytes);
    EXPECT_NE(info.crs.find("UTM zone 31N"), std::string::npos) << info.crs;
    EXPECT_NEAR(info.spacing, 30 / 30.86, 0.01);
    EXPECT_NEAR(info.box.west, 1.7936, 0.001);
    EXPECT_NEAR(info.box.north, 41.9955, 0.001);
}

TEST_F(ReadRaster, LaysValuesIntoAWindow)
{
    MadeRaster made;
    made.west = 1;
    made.north = 43;
    made.spacing = 0.01;
    made.columns = made.rows = 100;
    made.bands = {[](double, double) { return 0; },
                  [](double lon, double lat) { return 1000 * lon + lat; }};
    std::string why;
    const auto raster = opengisraster(make("a.tif", made), {}, why);
    ASSERT_TRUE(raster) << why;
    // Ten columns of a tenth of a degree; the two in the west lie beside the raster.
    std::vector<float> values(100);
    ASSERT_TRUE(raster->readvalues({0.75, 1.75, 42, 43}, 10, 10, 2, Resampling::average, -1, values,
                                   {}, why))
        << why;
    EXPECT_EQ(values[0], -1);
    EXPECT_EQ(values[1], -1);
    EXPECT_NEAR(values[3], 1100 + 42.95, 0.1);
    EXPECT_NEAR(values[99], 1700 + 42.05, 0.1);
    EXPECT_FALSE(
        raster->readvalues({0, 1, 0, 1}, 10, 10, 3, Resampling::average, -1, values, {}, why));
    EXPECT_EQ(why, "has no such band");
    EXPECT_FALSE(raster->readvalues(
        {1, 2, 42, 43}, 10, 10, 2, Resampling::average, -1, values, [](double) { return false; },
        why))
        << "stopped";
}

TEST_F(ReadRaster, LaysColoursIntoAWindow)
{
    MadeRaster made;
    made.west = 1;
    made.north = 43;
    made.spacing = 0.01;
    made.columns = made.rows = 100;
    made.type = "Byte";
    made.bands = {[](double, double) { return 10; }, [](double, double) { return 20; },
                  [](double, double) { return 30; }};
    std::string why;
    const auto raster = opengisraster(make("rgb.tif", made), {}, why);
    ASSERT_TRUE(raster) << why;
    std::vector<std::uint32_t> colours(100);
    ASSERT_TRUE(
        raster->readcolours({0.5, 1.5, 42, 43}, 10, 10, Resampling::bilinear, colours, {}, why))
        << why;
    EXPECT_EQ(colours[0] >> 24, 0U) << "nothing there";
    EXPECT_EQ(colours[9], 0xFF0A141EU);
    made.bands.resize(1);
    const auto grey = opengisraster(make("grey.tif", made), {}, why);
    ASSERT_TRUE(grey) << why;
    ASSERT_TRUE(grey->readcolours({1, 2, 42, 43}, 10, 10, Resampling::nearest, colours, {}, why));
    EXPECT_EQ(colours[0], 0xFF0A0A0AU);
}

TEST_F(ReadRaster, SaysWhyAFileIsNone)
{
    std::string why;
    EXPECT_FALSE(opengisraster(folder.path("none.tif"), {}, why));
    EXPECT_EQ(why, "no such file");
}
