#include "gis/gisfiles.h"
#include "gis/module/geotiff.h"
#include "gis/module/readraster.h"

#include <array>
#include <cstdio>
#include <memory>
#include <numeric>

namespace
{
class GeoTiffs : public GisTest
{
protected:
    /// What a program of another make says.
    static std::string printed(const std::string& command)
    {
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
        std::string text;
        std::array<char, 4096> part{};
        while (pipe != nullptr && std::fgets(part.data(), part.size(), pipe.get()) != nullptr)
            text += part.data();
        return text;
    }
    static bool installed() { return std::system("command -v gdalinfo > /dev/null 2>&1") == 0; }
    std::string write(const GeoTiff& tiff)
    {
        std::string why;
        const auto bytes = geotiffbytes(tiff, why);
        EXPECT_TRUE(bytes) << why;
        return folder.makefile("out.tif", bytes.value_or(""));
    }
};
} // namespace

TEST_F(GeoTiffs, OfColoursAreReadByOthers)
{
    if (!installed())
        GTEST_SKIP() << "gdal-bin is not installed";
    std::array<std::uint8_t, 3 * 2 * 4> pixels{};
    std::iota(pixels.begin(), pixels.end(), std::uint8_t{1});
    GeoTiff tiff;
    tiff.columns = 3;
    tiff.rows = 2;
    tiff.box = {7, 10, 44, 46};
    tiff.samples = pixels.data();
    const std::string file = write(tiff);
    const std::string info = printed("gdalinfo " + file);
    EXPECT_NE(info.find("Size is 3, 2"), std::string::npos) << info;
    EXPECT_NE(info.find("Origin = (7.0"), std::string::npos) << info;
    EXPECT_NE(info.find("EPSG\",4326"), std::string::npos) << info;
    EXPECT_NE(info.find("ColorInterp=Alpha"), std::string::npos) << info;
    EXPECT_EQ(printed("gdallocationinfo -valonly -wgs84 " + file + " 8.5 44.5"),
              "17\n18\n19\n20\n");
}

TEST_F(GeoTiffs, OfNumbersHaveTilesOverviewsAndAVoid)
{
    if (!installed())
        GTEST_SKIP() << "gdal-bin is not installed";
    constexpr int side = 1100;
    std::vector<float> levels(std::size_t{side} * side, -87.5F);
    levels[0] = -9999;
    GeoTiff tiff;
    tiff.columns = tiff.rows = side;
    tiff.box = {500000, 611000, 4600000, 4711000};
    tiff.crs = "EPSG:32631";
    tiff.type = SampleType::float32;
    tiff.bands = 1;
    tiff.samples = levels.data();
    tiff.nodata = -9999;
    tiff.names = {"level_dbm"};
    tiff.tiled = tiff.overviews = true;
    const std::string info = printed("gdalinfo " + write(tiff));
    for (const char* part : {"Block=256x256", "Type=Float32", "NoData Value=-9999", "level_dbm",
                             "Overviews: 550x550, 275x275", "32631"})
        EXPECT_NE(info.find(part), std::string::npos) << part << "\n" << info;
}

TEST_F(GeoTiffs, ReadTheSameNumbersBack)
{
    std::vector<std::uint16_t> servers(20 * 10);
    std::iota(servers.begin(), servers.end(), std::uint16_t{0});
    GeoTiff tiff;
    tiff.columns = 20;
    tiff.rows = 10;
    tiff.box = {179, 181, 10, 11};
    tiff.type = SampleType::uint16;
    tiff.bands = 1;
    tiff.samples = servers.data();
    tiff.nodata = 65535;
    std::string why;
    const auto raster = opengisraster(write(tiff), {}, why);
    ASSERT_TRUE(raster) << why;
    EXPECT_EQ(raster->info().columns, 20);
    EXPECT_NEAR(raster->info().box.east, 181, 1e-9);
    std::vector<float> values(servers.size());
    ASSERT_TRUE(raster->readvalues(tiff.box, 20, 10, 1, Resampling::nearest, -1, values, {}, why));
    for (std::size_t i = 0; i < servers.size(); ++i)
        EXPECT_EQ(values[i], static_cast<float>(servers[i]));
}

TEST_F(GeoTiffs, OfAnUnknownSystemAreRefused)
{
    const std::uint32_t pixel = 0;
    GeoTiff tiff;
    tiff.columns = tiff.rows = 1;
    tiff.crs = "EPSG:999999";
    tiff.samples = &pixel;
    std::string why;
    EXPECT_FALSE(geotiffbytes(tiff, why));
    EXPECT_EQ(why, "is no known coordinate system");
}
