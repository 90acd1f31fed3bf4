#include "gis/gisfiles.h"

#include <chrono>
#include <cmath>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{
/// A raster of 3 arc seconds around the middle of the cell 1 E 41 N.
MadeRaster around(std::function<double(double, double)> height)
{
    MadeRaster raster;
    raster.spacing = 1.0 / 1200;
    raster.columns = raster.rows = 240;
    raster.west = 1.4 - raster.spacing / 2;
    raster.north = 41.6 + raster.spacing / 2;
    raster.bands = {std::move(height)};
    return raster;
}

constexpr const char* name = "E001/N41.DT1";

class Importing : public GisTest
{
protected:
    /// The height in the middle of that raster.
    int middle() const { return at(600, 600); }
    /// A sample of that cell.
    int at(int column, int row) const { return cell(name).at(column, row); }
};
} // namespace

TEST_F(Importing, TakesConstantBordersWithoutAMarkForVoids)
{
    for (const double border : {-9999.0, -32767.0, -99999.0, 32767.0, -32768.0}) {
        std::filesystem::remove_all(folder.path("DTED"));
        const auto height = [border](double lon, double) { return lon < 1.5 ? border : 400; };
        ASSERT_EQ(import({make("a.tif", around(height))}).what, "") << border;
        EXPECT_EQ(at(599, 600), -32767) << border << ": no blend with the border";
        EXPECT_EQ(at(500, 600), -32767) << border;
        EXPECT_EQ(at(601, 600), 400) << border;
    }
}

TEST_F(Importing, TakesABorderForAVoidThoughItsUnitMakesItAHeight)
{
    MadeRaster raster = around([](double lon, double) { return lon < 1.5 ? -9999 : 12345; });
    raster.unit = "cm";
    ASSERT_EQ(import({make("a.tif", raster)}).what, "");
    EXPECT_EQ(at(500, 600), -32767);
    EXPECT_EQ(at(601, 600), 123);
}

TEST_F(Importing, CountsHeightsThatNoTerrainHas)
{
    int spikes = 0;
    const auto height = [&spikes](double lon, double lat) {
        const bool spike = std::fabs(lon - 1.5) < 0.002 && std::fabs(lat - 41.5) < 0.001;
        spikes += spike ? 1 : 0;
        return spike ? 9001 : 8848;
    };
    ASSERT_EQ(import({make("a.tif", around(height))}).what, "");
    EXPECT_GT(spikes, 0);
    EXPECT_EQ(middle(), -32767);
    EXPECT_EQ(at(540, 540), 8848);
    ASSERT_GT(said.size(), 0U);
    EXPECT_EQ(said.back(), folder.path("a.tif") + ": " + std::to_string(spikes) +
                               " heights below -500 m or above 9000 m are taken for voids");
}

TEST_F(Importing, KeepsTheDeepestAndTheHighestGround)
{
    for (const int height : {-500, -431, 8849, 9000}) {
        ASSERT_EQ(import({make("a.tif", around([height](double, double) { return height; }))}).what,
                  "");
        EXPECT_EQ(middle(), height);
    }
    EXPECT_EQ(import({make("b.tif", around([](double, double) { return -501; }))}).why,
              "holds no heights");
}

TEST_F(Importing, TakesUnitsByTheirNamesAndRefusesOthers)
{
    for (const auto& [unit, height] : {std::pair("Feet", 305),
                                       {"FT", 305},
                                       {"us-ft", 305},
                                       {"metre", 1000},
                                       {"dm", 100},
                                       {"cm", 10}}) {
        MadeRaster raster = around([](double, double) { return 1000; });
        raster.unit = unit;
        ASSERT_EQ(import({make("a.tif", raster)}).what, "") << unit;
        EXPECT_EQ(middle(), height) << unit;
    }
    MadeRaster raster = around([](double, double) { return 1000; });
    raster.unit = "furlong";
    const std::string file = make("a.tif", raster);
    EXPECT_THAT(import({file}).why, HasSubstr("\"furlong\" is no known unit"));
    ImportOrder order;
    order.unit = "dm";
    EXPECT_EQ(import({file}, order).why, "");
    EXPECT_EQ(middle(), 100);
}

TEST_F(Importing, TakesTheFirstOfSeveralBandsAndSaysSo)
{
    MadeRaster raster = around([](double, double) { return 11; });
    raster.bands.emplace_back([](double, double) { return 22; });
    raster.bands.emplace_back([](double, double) { return 33; });
    const std::string file = make("a.tif", raster);
    ASSERT_EQ(import({file}).what, "");
    EXPECT_EQ(middle(), 11);
    EXPECT_THAT(said.front(), HasSubstr("has 3 bands; the first is taken"));
    said.clear();
    ImportOrder order;
    order.band = 2;
    ASSERT_EQ(import({file}, order).what, "");
    EXPECT_EQ(middle(), 22);
    EXPECT_THAT(said, ElementsAre(HasSubstr("void"))) << "nothing on bands";
    order.band = 4;
    EXPECT_EQ(import({file}, order).why, "has no band 4, only 3");
}

TEST_F(Importing, AsksForTheCoordinateSystemOfARasterThatNamesNone)
{
    MadeRaster raster = around([](double, double) { return 77; });
    raster.crs = "";
    const std::string file = make("a.tif", raster);
    EXPECT_THAT(import({file}).why, HasSubstr("names no coordinate system; give it by --crs"));
    ImportOrder order;
    order.crs = "EPSG:4326";
    ASSERT_EQ(import({file}, order).why, "");
    EXPECT_EQ(middle(), 77);
    order.crs = "EPSG:1";
    EXPECT_EQ(import({file}, order).why, "is no known coordinate system");
}

TEST_F(Importing, SaysWhatIsWrongWithAFile)
{
    EXPECT_EQ(import({folder.path("none.tif")}).why, "no such file");
    EXPECT_EQ(import({folder.makefolder("dir")}).why, "is a folder, not a raster");
    folder.makefile("empty.tif", "");
    EXPECT_EQ(import({folder.path("empty.tif")}).why, "is empty");
    folder.makefile("hill.hgt", std::string(2 * 1201 * 1201, 'a'));
    EXPECT_THAT(import({folder.path("hill.hgt")}).why, HasSubstr("as N41E001.hgt"));
    folder.makefile("N41E001.hgt", std::string(2 * 1201 * 700, 'a'));
    EXPECT_THAT(import({folder.path("N41E001.hgt")}).why, HasSubstr("1201 x 1201"));
}

TEST_F(Importing, ReadsCompressedTiles)
{
    std::string tile(2 * 1201 * 1201, '\0');
    for (std::size_t i = 1; i < tile.size(); i += 2)
        tile[i] = 99;
    folder.makefile("N41E001.hgt", tile);
    ASSERT_EQ(std::system(("gzip " + folder.path("N41E001.hgt")).c_str()), 0);
    ASSERT_EQ(import({folder.path("N41E001.hgt.gz")}).why, "");
    EXPECT_EQ(middle(), 99);
}

TEST_F(Importing, TakesOnlyWhatLiesWithinBounds)
{
    ImportOrder order;
    order.bounds = GeoBox{1.45, 1.55, 41.45, 41.55};
    ASSERT_EQ(import({make("a.tif", around([](double, double) { return 5; }))}, order).why, "");
    EXPECT_EQ(middle(), 5);
    EXPECT_EQ(at(540, 540), 5);
    EXPECT_EQ(at(539, 600), -32767);
    EXPECT_EQ(at(600, 661), -32767);
    order.bounds = GeoBox{3, 4, 41, 42};
    EXPECT_EQ(import({folder.path("a.tif")}, order).why, "holds no heights");
    order.ignoremissing = true;
    const ImportResult result = import({folder.path("a.tif")}, order);
    EXPECT_EQ(result.what, "");
    EXPECT_THAT(result.cells, IsEmpty());
}

TEST_F(Importing, TakesAProjectedRasterAcrossTheDateLineToItsFewCells)
{
    // UTM zone 60 goes on beyond its eastern edge at 180 degrees.
    MadeRaster raster;
    raster.crs = "EPSG:32660";
    raster.spacing = 90;
    raster.west = 700000;
    raster.north = 5000000;
    raster.columns = raster.rows = 800;
    raster.bands = {[](double x, double) { return std::floor((x - 400000) / 100); }};
    const std::string across = make("across.tif", raster);
    raster.west = 480000; // the same in the middle of the zone
    const std::string beside = make("beside.tif", raster);

    const auto start = std::chrono::steady_clock::now();
    const ImportResult two = import({across});
    const auto middle = std::chrono::steady_clock::now();
    const ImportResult one = import({beside});
    const auto end = std::chrono::steady_clock::now();
    EXPECT_EQ(two.why, "");
    EXPECT_EQ(two.cells.size(), 4U);
    EXPECT_EQ(one.cells.size(), 4U);
    EXPECT_LT((middle - start).count(), 4 * (end - middle).count());
    // 180.3 E 44.7 N lies 261446 m east of the middle of the zone, 177 E.
    EXPECT_NEAR(cell("W180/N44.DT1").at(360, 840), (761446 - 400000) / 100.0, 6);
    EXPECT_TRUE(exists("E179/N44.DT1"));
}

TEST_F(Importing, LeavesTheNeighbourOfACoarseRasterUnmade)
{
    MadeRaster raster;
    raster.spacing = 1.0 / 120; // 30 arc seconds: half a pixel is 5 lines of a cell
    raster.columns = raster.rows = 121;
    raster.west = 1 - raster.spacing / 2;
    raster.north = 42 + raster.spacing / 2;
    raster.bands = {[](double, double) { return 50; }};
    const ImportResult result = import({make("coarse.tif", raster)});
    EXPECT_THAT(result.cells, ElementsAre("DTED/E001/N41.DT1"));
}

TEST_F(Importing, BringsADatumToWgs84)
{
    // In ED50 eastern Spain lies about 110 m south-west of where its numbers say.
    MadeRaster raster = around([](double lon, double) { return std::round((lon - 1) * 10000); });
    raster.crs = "EPSG:4230";
    ASSERT_EQ(import({make("ed50.tif", raster)}).why, "");
    EXPECT_NEAR(middle(), 5000 + 10.5, 3) << "about 0.00115 degrees";
}
