// Lines of sight, relief and the building of maps beside the same work of GDAL's programs, on real
// ground, in one run. A program's working time is the processor time of its whole process, which
// runs on one core, less that of the same program on a grid of a few cells; ours is time by the
// clock. All are the least of several runs.
//
// Needs Debian's gdal-bin and the elevation files of ../shared/data/elevation; says so and ends
// where they are missing.

#include "base/parallel.h"
#include "base/paths.h"
#include "base/session.h"
#include "coverage/sectorfill.h"
#include "coverage/viewshed.h"
#include "engine/draw/fastdraw.h"
#include "relief/colours.h"
#include "support/places.h"
#include "terrain/build.h"
#include "terrain/extraction.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{
constexpr int repeats = 25;
const std::string elevation = sourcefolder() + "/../shared/data/elevation";

/// One of the real maps.
struct Region {
    const char* name;
    float lon, lat;
    float size_km;
};
constexpr std::array regions{Region{"Pyrenees", 1.5F, 42, 80},
                             Region{"Scottish borders", -2.5F, 55.5F, 60}};

/// Least time of several calls.
double leasttime(const std::function<void()>& work)
{
    double least_ms = 1e9;
    for (int i = 0; i < repeats; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> spent =
            std::chrono::steady_clock::now() - begin;
        least_ms = std::min(least_ms, spent.count());
    }
    return least_ms;
}

/// Processor time of all programs run so far.
double childtime_ms()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto ms = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/// Runs a shell command; ends the program where it fails.
void run(const std::string& command)
{
    if (std::system((command + " > /dev/null 2>&1").c_str()) != 0) {
        fmt::print(stderr, "failed: {}\n", command);
        std::exit(1);
    }
}

void row(const std::string& work, const std::string& ours, double ours_ms, double gdal_ms,
         const std::string& agreement)
{
    fmt::print("{:<46} {:<24} {:>9.1f} {:>9.1f} {:>7.1f}  {}\n", work, ours, ours_ms, gdal_ms,
               gdal_ms / ours_ms, agreement);
}

MapOrder orderof(const Region& region, int width, int height)
{
    MapOrder order;
    order.record.maplon0 = region.lon;
    order.record.maplat0 = region.lat;
    order.record.mapsize = region.size_km;
    order.record.sources = source::dted;
    order.width = width;
    order.height = height;
    order.ignoremissing = true;
    return order;
}

/// Side of a cell on the ground, m.
double cellsize(const MapGrid& map)
{
    return double{map.record.mapsize} * 1000 / map.uppery();
}

/// Writes a map as a raster of square cells in metres, north up; row 0 of it at northing 4000 km.
constexpr double west_m = 500000;
constexpr double north_m = 4000000;
void writeraster(const fs::path& file, const MapGrid& map)
{
    std::string rows;
    for (int y = map.uppery(); y >= 0; --y) {
        const std::int16_t* samples = map.samples.data() + std::ptrdiff_t{y} * map.width;
        rows.append(reinterpret_cast<const char*>(samples),
                    static_cast<std::size_t>(map.width) * sizeof(std::int16_t));
    }
    writefile(file.string() + ".img", rows);
    writefile(file.string() + ".hdr",
              fmt::format("ENVI\nsamples = {}\nlines = {}\nbands = 1\nheader offset = 0\n"
                          "file type = ENVI Standard\ndata type = 2\ninterleave = bsq\n"
                          "byte order = 0\n"
                          "map info = {{UTM, 1, 1, {}, {}, {}, {}, 31, North, WGS-84}}\n",
                          map.width, map.height, west_m, north_m, cellsize(map), cellsize(map)));
}

/// Bytes of a raster that a program wrote, north up.
std::string readraster(const fs::path& file)
{
    return readfile(file.string(), std::size_t{1} << 30).value_or(std::string());
}

/// A folder for the rasters.
struct Folder {
    Folder() : path(fs::temp_directory_path() / fmt::format("velmora-compare-{}", getpid()))
    {
        fs::create_directory(path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { fs::remove_all(path); }
    fs::path path;
};

/// Working time of a command made for a raster: less the same on a raster of a few cells. The two
/// take turns, so that a busy moment of the machine meets both.
double workingtime(const std::function<std::string(const std::string& raster)>& command)
{
    const auto spent = [&](const char* raster) {
        const double begin_ms = childtime_ms();
        run(command(raster));
        return childtime_ms() - begin_ms;
    };
    double whole_ms = 1e9;
    double empty_ms = 1e9;
    for (int i = 0; i < repeats; ++i) {
        whole_ms = std::min(whole_ms, spent("map"));
        empty_ms = std::min(empty_ms, spent("small"));
    }
    return whole_ms - empty_ms;
}

struct Viewed {
    std::vector<std::uint32_t> pixels;
    double computing_ms, painted_ms, onethread_ms;
};

Viewed viewpixels(const MapGrid& map, const ViewSweep& sweep)
{
    constexpr std::uint32_t black = 0xff000000U;
    Viewed viewed;
    viewed.pixels.assign(map.samples.size(), 0xffffffffU);
    const PixelSheet sheet{viewed.pixels.data(), map.width, map.width, map.height};
    const auto paint = [&] {
        runview(
            sweep,
            [&](const SectorSides& sides, std::span<const SampleRun> runs) {
                const Wedge wedge(sweep.centre, sides);
                for (const auto& [first, last] : runs)
                    fillwedge(sheet, wedge, first - 0.5, last + 0.5, black);
            },
            [](int) { return true; });
    };
    viewed.painted_ms = leasttime(paint);
    viewed.computing_ms = leasttime([&] {
        std::vector<std::vector<int>> seen(40);
        sweepradials(
            static_cast<int>(sweep.azimuths.size()) - 1, 40,
            [&](int k) { viewradial(sweep, k, seen[static_cast<std::size_t>(k % 40)]); },
            [](int) { return true; });
    });
    setthreads(1);
    viewed.onethread_ms = leasttime(paint);
    setthreads(0);
    return viewed;
}

std::size_t cellindex(const MapGrid& map, int x, int y)
{
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(map.width) +
           static_cast<std::size_t>(x);
}

bool blackat(const std::vector<std::uint32_t>& pixels, std::size_t at)
{
    return pixels[at] == 0xff000000U;
}

/// True when a cell's eight neighbours are partly seen, partly not.
bool atedge(const MapGrid& map, const std::vector<std::uint32_t>& pixels, int x, int y)
{
    int seen = 0;
    int all = 0;
    for (int v = std::max(y - 1, 0); v <= std::min(y + 1, map.uppery()); ++v)
        for (int u = std::max(x - 1, 0); u <= std::min(x + 1, map.upperx()); ++u) {
            seen += blackat(pixels, cellindex(map, u, v)) ? 1 : 0;
            ++all;
        }
    return seen > 0 && seen < all;
}

/// How far both call the same cells seen, beyond those at the sensor's foot.
std::string agreement(const MapGrid& map, const std::vector<std::uint32_t>& ours,
                      const std::string& theirs, const SweepCentre& centre)
{
    double all = 0;
    double others = 0;
    double edges = 0;
    for (int y = 0; y < map.height; ++y)
        for (int x = 0; x < map.width; ++x) {
            if (std::hypot(x - centre.x0, y - centre.y0) < 1.5)
                continue;
            const auto at = cellindex(map, x, y);
            ++all;
            if (blackat(ours, at) != (theirs.at(at) != 0)) {
                ++others;
                edges += atedge(map, ours, x, y) ? 1 : 0;
            }
        }
    return fmt::format("same cells {:.2f} %, of the others at edges {:.0f} %",
                       100 * (1 - others / all), 100 * edges / std::max(others, 1.0));
}

/// Where lines of sight begin: a cell from the top left, and a height above its ground.
struct Sensor {
    int x, y;
    float height_m;
};
constexpr std::array sensors{Sensor{500, 500, 30}, Sensor{310, 640, 10}, Sensor{700, 220, 100}};

void compareviewshed(const Folder& folder, const Region& region)
{
    buildmap(orderof(region, 1000, 1000));
    const MapGrid map = mapgrid;
    writeraster(folder.path / "map", map);
    for (const Sensor& sensor : sensors) {
        ViewOrder order;
        order.bounds = {0, 360, 0.1F, 0.1F, 1000};
        order.sensorh = sensor.height_m;
        order.targeth = 2;
        const SweepCentre centre{double(sensor.x), double(sensor.y)};
        const auto ground_m = static_cast<float>(map.at(sensor.x, map.uppery() - sensor.y));
        const auto sweep = prepareview(map, order, centre, ground_m);
        const Viewed viewed = viewpixels(map, *sweep);
        // Earth of 12750 km: the ellipsoid's diameter there over ours is the coefficient.
        const auto command = [&](const std::string& raster) {
            const double cell = raster == "map" ? cellsize(map) : 1000;
            const double column = raster == "map" ? sensor.x : 8;
            const double line = raster == "map" ? sensor.y : 8;
            return fmt::format("gdal_viewshed -q -f ENVI -oz {} -tz 2 -md 0 -cc {} -ox {} -oy {} "
                               "{}/{}.img {}/seen.img",
                               sensor.height_m, 12756274.0 / 12750000,
                               west_m + (column + 0.5) * cell, north_m - (line + 0.5) * cell,
                               folder.path.string(), raster, folder.path.string());
        };
        const double gdal_ms = workingtime(command);
        run(command("map"));
        const std::string same =
            agreement(map, viewed.pixels, readraster(folder.path / "seen.img"), centre);
        const std::string work =
            fmt::format("lines of sight, {}, {} m up", region.name, sensor.height_m);
        row(work, "computing", viewed.computing_ms, gdal_ms, same);
        row("", "with painting", viewed.painted_ms, gdal_ms, "");
        row("", "with painting, 1 thread", viewed.onethread_ms, gdal_ms, "");
    }
}

/// Draws a map in grey, bands of rows on all cores.
void drawgrey(const MapGrid& map, std::vector<std::uint32_t>& pixels)
{
    DrawValues values = drawvalues(map);
    values.mode = mapmode::moon;
    parallelblocks(static_cast<std::size_t>(map.height), 64,
                   [&](std::size_t first, std::size_t last) {
                       const int y0 = static_cast<int>(first);
                       fastdraw({map.samples.data(), map.width, map.height}, values, ColourScale(),
                                {pixels.data() + first * static_cast<std::size_t>(map.width),
                                 map.width, 0, y0, map.upperx(), static_cast<int>(last) - 1});
                   });
}

/// Correlation of the greys of two reliefs, without the outermost cells.
double correlation(const MapGrid& map, const std::vector<std::uint32_t>& ours,
                   const std::string& theirs)
{
    double n = 0, sx = 0, sy = 0, sxx = 0, syy = 0, sxy = 0;
    for (int y = 1; y < map.uppery(); ++y)
        for (int x = 1; x < map.upperx(); ++x) {
            const auto at = cellindex(map, x, y);
            const double a = ours[at] & 255;
            const double b = static_cast<unsigned char>(theirs.at(at));
            ++n, sx += a, sy += b, sxx += a * a, syy += b * b, sxy += a * b;
        }
    return (n * sxy - sx * sy) / std::sqrt((n * sxx - sx * sx) * (n * syy - sy * sy));
}

void comparerelief(const Folder& folder, const Region& region)
{
    buildmap(orderof(region, 2000, 2000));
    const MapGrid map = mapgrid;
    writeraster(folder.path / "map", map);
    std::vector<std::uint32_t> pixels(map.samples.size());
    const auto draw = [&] { drawgrey(map, pixels); };
    const double ours_ms = leasttime(draw);
    setthreads(1);
    const double onethread_ms = leasttime(draw);
    setthreads(0);
    const auto command = [&](const std::string& raster) {
        return fmt::format("gdaldem hillshade -q -of ENVI -az {} -alt 45 {}/{}.img {}/shade.img",
                           double{map.record.light}, folder.path.string(), raster,
                           folder.path.string());
    };
    const double gdal_ms = workingtime(command);
    run(command("map"));
    const double r = correlation(map, pixels, readraster(folder.path / "shade.img"));
    row(fmt::format("grey relief, {}, 2000 x 2000", region.name), "drawing", ours_ms, gdal_ms,
        fmt::format("correlation {:.3f}", r));
    row("", "drawing, 1 thread", onethread_ms, gdal_ms, "");
}

void comparebuild(const Folder& folder)
{
    const Region& region = regions[0];
    const double ours_ms = leasttime([&] { buildmap(orderof(region, 1024, 768)); });
    const auto command = [&](const std::string& raster) {
        const std::string cells =
            elevation + "/DTED/E001/N41.DT1 " + elevation + "/DTED/E001/N42.DT1";
        const std::string size = raster == "map" ? "1024 768" : "4 4";
        return fmt::format("gdalwarp -q -overwrite -of ENVI -ot Int16 -r bilinear -ts {} "
                           "-te {} {} {} {} {} {}/warp.img",
                           size, double{mapgrid.maplon[0]}, double{mapgrid.maplat[2]},
                           double{mapgrid.maplon[2]}, double{mapgrid.maplat[0]}, cells,
                           folder.path.string());
    };
    row(fmt::format("map out of DTED, {}, 1024 x 768", region.name), "reading and resampling",
        ours_ms, workingtime(command), "");
}
} // namespace

int main()
{
    if (std::system("command -v gdal_viewshed gdaldem gdalwarp > /dev/null") != 0) {
        fmt::print("compare_gdal: gdal-bin is not installed; nothing compared\n");
        return 0;
    }
    if (!fs::is_directory(elevation + "/DTED")) {
        fmt::print("compare_gdal: {} is not there; nothing compared\n", elevation);
        return 0;
    }
    session.drvpath.fill(elevation);
    const Folder folder;
    buildmap(orderof(regions[0], 16, 16));
    mapgrid.record.mapsize = 15;
    writeraster(folder.path / "small", mapgrid);
    fmt::print("{:<46} {:<24} {:>9} {:>9} {:>7}\n", "", "", "ours, ms", "GDAL, ms", "times");
    for (const Region& region : regions)
        compareviewshed(folder, region);
    for (const Region& region : regions)
        comparerelief(folder, region);
    comparebuild(folder);
    return 0;
}
