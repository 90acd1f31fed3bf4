// Building maps, and importing rasters for them, from the command line.

#include "cli/process.h"
#include "engine/tiles/getdted.h"
#include "support/elevationfiles.h"
#include "support/places.h"
#include "terrain/mapfile.h"

#include <csignal>
#include <gmock/gmock.h>

using namespace elevationfiles;
using testing::HasSubstr;

namespace
{
std::span<const std::byte> bytesof(const std::string& text)
{
    return std::as_bytes(std::span(text.data(), text.size()));
}

class Build : public CliTest
{
protected:
    std::string read(const std::string& name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    MapGrid readmap(const std::string& name) const
    {
        const std::string bytes = read(name);
        MapGrid map;
        EXPECT_EQ(parsemap(bytesof(bytes), map), MapStatus::ok);
        return map;
    }
    void writecell(const std::string& path, int height) const
    {
        elevationfiles::write(
            folder / path, dtedbytes({121, 121, 300, 300, [height](int, int) { return height; }}));
    }
    static std::vector<std::string> order(std::vector<std::string> more)
    {
        std::vector<std::string> arguments{"build",  "-o", "a.map",    "--center", "1.5", "41.5",
                                           "--size", "30", "--pixels", "40",       "30"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

/// The import stands in a library of its own, which needs another to be built.
class Import : public Build
{
protected:
    void SetUp() override
    {
        Build::SetUp();
        if (!std::filesystem::exists(buildfolder() + "/lib/libvelmora_gis.so"))
            GTEST_SKIP() << "built without GDAL";
    }

    /// A tile of 3 arc seconds, the north row first, no header.
    void writehgt(const std::string& name, const Heights& height) const
    {
        const auto northfirst = [&height](int column, int row) {
            return height(column, 1200 - row);
        };
        write(name, rasterbytes(1201, 1201, northfirst, true));
    }
    /// A grid of text around 2 E 42 N with its coordinate system beside it.
    void writegrid(const std::string& name, double west, double south, double spacing_deg, int side,
                   int height) const
    {
        std::string text =
            fmt::format("ncols {0}\nnrows {0}\nxllcorner {1}\nyllcorner {2}\ncellsize {3:.12f}\n",
                        side, west, south, spacing_deg);
        for (int row = 0; row < side; ++row) {
            for (int column = 0; column < side; ++column)
                text += fmt::format("{} ", height);
            text += "\n";
        }
        write(name + ".asc", text);
        write(name + ".prj",
              "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
              "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]");
    }
    /// One sample of a cell, counted from its south-west corner.
    int sample(const std::string& cell, int column, int row) const
    {
        const std::string bytes = read(cell);
        const ByteSource file = bytesource(bytesof(bytes));
        const auto header = dtedheader(file);
        std::int16_t height = 31000;
        EXPECT_TRUE(header) << cell;
        if (header)
            getdted({std::span(&height, 1), 1, 1}, file, *header, {-1.0 * column, -1.0 * row, 1, 1},
                    [](int) { return true; });
        return height;
    }
};
} // namespace

TEST_F(Build, WritesTheMapAndPrintsItsStatistics)
{
    writecell("DTED/E001/N41.DT0", 250);
    const Outcome outcome = success(order({"--dted", "."}));
    EXPECT_EQ(outcome.out, "hmin=250\nhmax=250\nhmoy=250\n");
    const MapGrid map = readmap("a.map");
    EXPECT_EQ(map.width, 40);
    EXPECT_EQ(map.height, 30);
    EXPECT_EQ(map.record.maplon0, 1.5F);
    EXPECT_EQ(map.record.maplat0, 41.5F);
    EXPECT_EQ(map.record.mapsize, 30);
    EXPECT_EQ(map.record.sources, 1);
    EXPECT_EQ(map.at(39, 29), 250);
}

TEST_F(Build, EachSourceHasItsOwnFolder)
{
    elevationfiles::write(folder / "t/terrain/m002/e002n41.sd_",
                          terrainbytes([](int, int) { return 7; }));
    elevationfiles::write(folder / "g/W020N90/W020N90.DEM",
                          rasterbytes(
                              40, 50, [](int, int) { return -9999; }, true));
    elevationfiles::write(folder / "g/W020N90/W020N90.HDR", "NROWS 50\nNCOLS 40\n");
    const Outcome outcome =
        run(order({"--terrain", "t", "--gtopo30", "g", "--dted", "t", "--ignore-missing"}));
    EXPECT_THAT(outcome.err, HasSubstr("W020N90.dem: "));
    EXPECT_THAT(outcome.err, HasSubstr("N41.DT2, .DT1 or .DT0: missing"));
    EXPECT_EQ(outcome.out, "hmin=7\nhmax=7\nhmoy=7\n");
    EXPECT_EQ(readmap("a.map").record.sources, 7);
}

TEST_F(Build, AMissingTileFailsUnlessItIsToBeIgnored)
{
    const std::string error = failure(1, order({"--dted", "."}));
    EXPECT_THAT(error, HasSubstr("DTED/E001/N41.DT2, .DT1 or .DT0: missing (100 % of the map)"));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.map"));
    const Outcome outcome = run(order({"--dted", ".", "--ignore-missing"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "hmin=0\nhmax=0\nhmoy=0\n");
    EXPECT_THAT(outcome.err, HasSubstr(".DT0: missing"));
}

TEST_F(Build, NamesTilesThatAreMissingDamagedOrPartlyVoid)
{
    // Around the corner of four cells: one whole, one damaged, one half void, one missing.
    const std::vector<std::string> corner{"build", "-o",     "a.map", "--center", "2",
                                          "42",    "--size", "30",    "--pixels", "40",
                                          "40",    "--dted", "."};
    const auto with = [&corner](std::vector<std::string> more) {
        more.insert(more.begin(), corner.begin(), corner.end());
        return more;
    };
    writecell("DTED/E001/N41.DT0", 250);
    write("DTED/E001/N42.DT1", "UHL1 and no more");
    elevationfiles::write(
        folder / "DTED/E002/N41.DT0",
        dtedbytes({121, 121, 300, 300, [](int, int row) { return row < 110 ? -32767 : 100; }}));
    const Outcome refused = run(corner);
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("E001/N42.DT1: damaged (25 % of the map)"));
    EXPECT_THAT(refused.err, HasSubstr("E002/N41.DT0: "));
    EXPECT_THAT(refused.err, HasSubstr(" % of what the map takes of it is void"));
    EXPECT_THAT(refused.err, HasSubstr("E002/N42.DT2, .DT1 or .DT0: missing (25 % of the map)"));
    EXPECT_THAT(refused.err, HasSubstr("a.map: 2 tiles missing or damaged"));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.map"));
    const Outcome built = run(with({"--ignore-missing"}));
    EXPECT_EQ(built.status, 0);
    EXPECT_THAT(built.err, HasSubstr("damaged"));
    EXPECT_TRUE(std::filesystem::exists(folder / "a.map"));
}

TEST_F(Build, AMapWithoutAnyHeightIsNone)
{
    writecell("DTED/E001/N41.DT0", -32767);
    const Outcome refused = run(order({"--dted", "."}));
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("100 % of what the map takes of it is void"));
    EXPECT_THAT(refused.err, HasSubstr("no height anywhere"));
    EXPECT_EQ(run(order({"--dted", ".", "--ignore-missing"})).status, 0);
}

TEST_F(Build, WritesTheMapToStandardOutput)
{
    writecell("DTED/E001/N41.DT0", 250);
    success(order({"--dted", "."}));
    std::vector<std::string> stream = order({"--dted", "."});
    stream[2] = "-";
    const Outcome outcome = run(stream);
    EXPECT_EQ(outcome.out, read("a.map"));
    EXPECT_EQ(outcome.err, "hmin=250\nhmax=250\nhmoy=250\n");
}

TEST_F(Build, RefusesOrdersThatMakeNoSense)
{
    failure(2, order({}));
    failure(2, {"build", "-o", "a.map", "--dted", "."});
    failure(2, {"build", "-o", "a.bmp", "--center", "1", "41", "--size", "30", "--pixels", "40",
                "30", "--dted", "."});
    failure(2, {"build", "-o", "a.map", "--center", "1", "90", "--size", "30", "--pixels", "40",
                "30", "--dted", "."});
    failure(2, {"build", "-o", "a.map", "--center", "1", "41", "--size", "0", "--pixels", "40",
                "30", "--dted", "."});
    failure(2, {"build", "-o", "a.map", "--center", "1", "41", "--size", "30", "--pixels", "1",
                "30", "--dted", "."});
    failure(1, order({"--dted", "nowhere"}));
    writecell("DTED/E001/N41.DT0", 250);
    failure(1, {"build", "-o", "no/such/a.map", "--center", "1.5", "41.5", "--size", "30",
                "--pixels", "40", "30", "--dted", "."});
}

TEST_F(Import, KeepsTheSamplesOfATileOfTheSameGrid)
{
    const Heights ground = [](int column, int row) {
        return column == 600 && row == 700 ? -32768 : roughground(column, row);
    };
    writehgt("N41E001.hgt", ground);
    const Outcome outcome = run({"import", "-o", "out", "N41E001.hgt"});
    EXPECT_EQ(outcome.out, "cell=DTED/E001/N41.DT1\n");
    EXPECT_EQ(outcome.err, "velmora-cli: DTED/E001/N41.DT1: 6.93e-05 % of the cell is void\n");
    for (const auto& [column, row] :
         {std::pair(0, 0), {1200, 1200}, {17, 1100}, {599, 700}, {600, 3}})
        EXPECT_EQ(sample("out/DTED/E001/N41.DT1", column, row), roughground(column, row));
    EXPECT_EQ(sample("out/DTED/E001/N41.DT1", 600, 700), 31000); // nothing written: a void
}

TEST_F(Import, GoesFromATileToAMapInTwoCommands)
{
    writehgt("S30W072.hgt", [](int column, int row) { return column + row; });
    success({"import", "-o", "out", "S30W072.hgt"});
    success({"build", "-o", "a.map", "--center", "-71.5", "-29.5", "--size", "60", "--pixels", "91",
             "91", "--dted", "out"});
    const MapGrid map = readmap("a.map");
    EXPECT_EQ(map.at(45, 45), 1200); // the middle of the cell
}

TEST_F(Import, TakesFewerColumnsTowardsThePoles)
{
    writehgt("N55W003.hgt", [](int column, int row) { return column + row; });
    success({"import", "-o", "out", "N55W003.hgt"});
    const std::string bytes = read("out/DTED/W003/N55.DT1");
    EXPECT_EQ(dtedheader(bytesource(bytesof(bytes))).value().columns, 601);
    EXPECT_NEAR(sample("out/DTED/W003/N55.DT1", 300, 600), 1200, 1);
}

TEST_F(Import, MakesLevelTwoOfAFineRasterOverWhatIsThere)
{
    writehgt("N41E001.hgt", [](int, int) { return 100; });
    success({"import", "-o", "out", "N41E001.hgt"});
    writegrid("fine", 1.4, 41.4, 1 / 3600.0, 360, 500);
    EXPECT_EQ(success({"import", "-o", "out", "fine.asc"}).out, "cell=DTED/E001/N41.DT2\n");
    EXPECT_EQ(sample("out/DTED/E001/N41.DT2", 1600, 1600), 500);
    EXPECT_EQ(sample("out/DTED/E001/N41.DT2", 300, 300), 100);
    EXPECT_EQ(sample("out/DTED/E001/N41.DT1", 500, 500), 100);
}

TEST_F(Import, InterruptedAtAnyMomentLeavesNoTemporaryFile)
{
    writehgt("N41E001.hgt", roughground);
    const auto leftovers = [this] {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            count += entry.path().extension() == ".tmp" ? 1 : 0;
        return count;
    };
    for (int round = 0; round < 12; ++round) {
        const bool gently = round % 2 == 0;
        interrupted({"import", "-o", "out", "N41E001.hgt"}, gently ? SIGTERM : SIGKILL,
                    20000 + 35000 * round);
        if (gently) {
            EXPECT_EQ(leftovers(), 0U) << round;
        }
    }
    success({"import", "-o", "out", "N41E001.hgt"}); // and takes with it what the kills have left
    EXPECT_EQ(leftovers(), 0U);
}

TEST_F(Import, RefusesFilesThatAreNoRasterWithAPlace)
{
    write("letter.txt", "Bonjour");
    EXPECT_THAT(failure(1, {"import", "-o", "out", "letter.txt"}),
                HasSubstr("cannot be read as a raster"));
    writegrid("lost", 1.4, 41.4, 1 / 3600.0, 3, 500);
    std::filesystem::remove(folder / "lost.prj");
    EXPECT_THAT(failure(1, {"import", "-o", "out", "lost.asc"}),
                HasSubstr("names no coordinate system"));
    EXPECT_THAT(failure(1, {"import", "-o", "out", "none.hgt"}), HasSubstr("no such file"));
    EXPECT_THAT(failure(1, {"import", "-o", "out", "."}), HasSubstr("is a folder"));
    EXPECT_FALSE(std::filesystem::exists(folder / "out"));
    failure(2, {"import", "lost.asc"});
    failure(2, {"import", "-o", "out", "--bounds", "1", "95", "2", "96", "lost.asc"});
    failure(2, {"import", "-o", "out", "--bounds", "1", "42", "2", "41", "lost.asc"});
}

TEST_F(Import, TakesWhatIsToldOfARaster)
{
    writegrid("a", 1.4, 41.4, 1 / 1200.0, 120, 1000);
    std::filesystem::remove(folder / "a.prj");
    const Outcome outcome = run({"import", "-o", "out", "--crs", "EPSG:4326", "--unit", "dm",
                                 "--band", "1", "--bounds", "1.44", "41", "2", "42", "a.asc"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("% of the cell is void"));
    EXPECT_EQ(sample("out/DTED/E001/N41.DT1", 540, 540), 100);
    EXPECT_EQ(sample("out/DTED/E001/N41.DT1", 500, 540), 31000); // nothing written: a void
    const Outcome nothing = run({"import", "-o", "out", "--crs", "EPSG:4326", "--bounds", "5", "41",
                                 "6", "42", "--ignore-missing", "--json", "a.asc"});
    EXPECT_EQ(nothing.status, 0) << nothing.err;
    EXPECT_EQ(nothing.out, "{\n  \"cell\": []\n}\n");
}
