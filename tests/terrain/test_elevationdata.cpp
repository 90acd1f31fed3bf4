// Real elevation files against heights that an independent reader found in them. The files lie
// beside the project, not in it.

#include "base/bytes.h"
#include "base/hooks.h"
#include "base/paths.h"
#include "base/session.h"
#include "engine/tiles/getdted.h"
#include "engine/tiles/gettopo30.h"
#include "support/places.h"
#include "terrain/extraction.h"
#include "terrain/mapgrid.h"
#include "terrain/outsidefile.h"
#include "terrain/szdd.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>

namespace fs = std::filesystem;

static const std::string datafolder = sourcefolder() + "/../shared/data/";
static const std::string elevation = datafolder + "elevation/";

#define NEEDS(path)                                                                                \
    if (!fs::exists(path))                                                                         \
    GTEST_SKIP() << "no " << (path)

namespace
{
struct Point {
    std::string file;
    double lon, lat;
    int height;
};

std::vector<Point> readpoints()
{
    std::ifstream file(elevation + "points.csv");
    std::vector<Point> points;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        Point point;
        std::istringstream fields(line);
        std::getline(fields, point.file, ',');
        char comma = 0;
        fields >> point.lon >> comma >> point.lat >> comma >> point.height;
        points.push_back(point);
    }
    return points;
}

constexpr std::int16_t nothing = 30000;

/// The nearest sample of a cell: a table of one pixel laid on it.
int nearestdted(const Point& point)
{
    const auto file = openbytes(elevation + point.file);
    const auto header = file ? dtedheader(*file) : std::nullopt;
    if (!header)
        return nothing;
    const double column = std::nearbyint((point.lon - std::floor(point.lon)) / header->spacingx);
    const double row = std::nearbyint((point.lat - std::floor(point.lat)) / header->spacingy);
    std::int16_t height = nothing;
    getdted({std::span(&height, 1), 1, 1}, *file, *header, {-column, -row, 1, 1},
            [](int) { return true; });
    return height;
}

/// A folder with the GTOPO30 tile unpacked, for as long as this lives.
class UnpackedTopo
{
public:
    UnpackedTopo() : root(fs::temp_directory_path() / ("velmora-topo-" + std::to_string(getpid())))
    {
        const std::string from = elevation + "W020N90/W020N90";
        fs::create_directories(root / "W020N90");
        fs::copy_file(from + ".HDR", path(".HDR"));
        const std::string unpack = "gzip -dc '" + from + ".DEM.gz' > '" + path(".DEM") + "'";
        unpacked = std::system(unpack.c_str()) == 0; // NOLINT(concurrency-mt-unsafe)
    }
    UnpackedTopo(const UnpackedTopo&) = delete;
    UnpackedTopo& operator=(const UnpackedTopo&) = delete;
    ~UnpackedTopo() { fs::remove_all(root); }

    std::string path(const std::string& extension) const
    {
        return (root / "W020N90" / ("W020N90" + extension)).string();
    }

    fs::path root;
    bool unpacked;
};

/// Root mean square difference of the map from a table of nearest samples.
double rmsdifference(const std::string& table)
{
    const auto bytes = readfile(table);
    if (!bytes || bytes->size() != mapgrid.samples.size() * 2)
        return -1;
    ByteReader reader(asbytes(*bytes));
    double sum = 0;
    for (const std::int16_t height : mapgrid.samples) {
        std::int16_t nearest = 0;
        reader.read(nearest);
        sum += (height - nearest) * (height - nearest);
    }
    return std::sqrt(sum / static_cast<double>(mapgrid.samples.size()));
}

void placepyrenees(int width, int height)
{
    resethooks();
    hooks.askuser = [](const Question& question) {
        ADD_FAILURE() << question.text;
        return Answer::ignore;
    };
    mapgrid = MapGrid();
    mapgrid.record.maplon0 = 1.5F;
    mapgrid.record.maplat0 = 42;
    mapgrid.record.mapsize = 80;
    allocatemap(mapgrid, width, height);
}
} // namespace

TEST(ElevationData, DtedSamplesStandWhereTheyBelong)
{
    NEEDS(elevation + "points.csv");
    int compared = 0;
    for (const Point& point : readpoints())
        if (point.file.starts_with("DTED")) {
            EXPECT_EQ(nearestdted(point), point.height) << point.file << " " << point.lon;
            ++compared;
        }
    EXPECT_GT(compared, 80);
}

TEST(ElevationData, GtopoSamplesStandWhereTheyBelong)
{
    NEEDS(elevation + "W020N90/W020N90.DEM.gz");
    const UnpackedTopo topo;
    ASSERT_TRUE(topo.unpacked);
    const auto file = openbytes(topo.path(".DEM")).value();
    const auto text = readfile(topo.path(".HDR")).value();
    const auto header = topoheader(text, {40, 50}, file.size).value();
    int compared = 0;
    for (const Point& point : readpoints())
        if (point.file.starts_with("W020")) {
            const double column = (point.lon - *header.west) / header.spacingx;
            const double row = (*header.north - point.lat) / header.spacingy;
            std::int16_t height = nothing;
            ASSERT_TRUE(readtoporow(file, header, static_cast<int>(std::nearbyint(row)),
                                    static_cast<int>(std::nearbyint(column)),
                                    std::span(&height, 1)));
            if (height == voidheight)
                height = -9999;
            EXPECT_EQ(height, point.height) << point.lon << " " << point.lat;
            ++compared;
        }
    EXPECT_GT(compared, 20);

    // What nearest and bilinear heights differ by on this ground, found with another program.
    placepyrenees(200, 250);
    session.drvpath[1] = topo.root.string();
    EXPECT_TRUE(getGTOPO30());
    EXPECT_NEAR(rmsdifference(elevation + "map_e001_gtopo.i16"), 38.62, 0.3);
}

TEST(ElevationData, AMapFromTwoDtedCellsLiesWhereTheNearestSamplesDo)
{
    NEEDS(elevation + "map_e001_dted.i16");
    placepyrenees(300, 300);
    session.drvpath[0] = elevation;
    EXPECT_TRUE(getDTED());
    // A shift by a tenth of a sample shows; bilinear heights in double precision give 7.507, and
    // their rounding to metres adds 1/12 to the square.
    EXPECT_NEAR(rmsdifference(elevation + "map_e001_dted.i16"), 7.513, 0.003);
}

TEST(ElevationData, TerrainTilesHoldEveryTenthSampleOfTheDtedCells)
{
    NEEDS(elevation + "terrain");
    struct Pair {
        std::string tile, cell;
    };
    for (const Pair& pair :
         {Pair{"m002/e002n41.sd_", "E001/N41.DT1"}, Pair{"m002/w002n55.sd_", "W003/N55.DT1"},
          Pair{"m071/w071s29.sd_", "W0720000/S290000.DT1"}}) {
        const auto tile = expand(elevation + "terrain/", pair.tile, 29282);
        ASSERT_TRUE(tile) << pair.tile;
        const auto file = openbytes(elevation + "DTED/" + pair.cell);
        const auto header = dtedheader(*file).value();
        const double skip = (header.columns - 1) / 120.0;
        ByteReader reader(asbytes(*tile));
        std::vector<std::int16_t> samples(14641);
        ASSERT_TRUE(getdted({samples, 121, 121}, *file, header, {0, 0, skip, 10},
                            [](int) { return true; }) == TileStatus::ok);
        for (const std::int16_t height : samples) {
            std::int16_t expected = 0;
            ASSERT_TRUE(reader.read(expected));
            ASSERT_EQ(height, expected) << pair.tile;
        }
    }
}

TEST(Szdd, ExpandsFilesOfOtherCompressors)
{
    const std::string folder = datafolder + "szdd/";
    NEEDS(folder);
    EXPECT_EQ(expand(folder, "text.tx_", 100000), readfile(folder + "text.txt"));
    EXPECT_EQ(expand(folder, "random.bi_", 100000), readfile(folder + "random.bin"));
    EXPECT_EQ(expand(folder, "ZEROS.SD_", 29282), std::string(29282, '\0'));
    EXPECT_FALSE(expand(folder, "text.txt", 100000));
    EXPECT_FALSE(expand(folder, "zeros.sd_", 29281));
}
