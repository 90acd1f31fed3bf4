// What whole sweeps leave on a sheet: every pixel of the swept area painted, and a contour without
// gaps.

#include "base/numbers.h"
#include "coverage/scene.h"
#include "coverage/sectorfill.h"
#include "coverage/viewshed.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
constexpr std::uint32_t blank = 0xffffffffU;
constexpr std::uint32_t ink = 0xff000000U;

std::size_t indexof(int x, int y, int width)
{
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
}

struct Sheet {
    Sheet(int w, int h) : pixels(indexof(0, h, w), blank), width(w), height(h) {}
    PixelSheet view() { return {pixels.data(), width, width, height}; }
    std::uint32_t at(int x, int y) const { return pixels[indexof(x, y, width)]; }
    std::vector<std::uint32_t> pixels;
    int width, height;
};

/// Where a pixel lies in a sweep, from its distance and bearing alone.
struct PolarPlace {
    int k = 0;       ///< radial
    double ring = 0; ///< sample, with its fraction
};

PolarPlace placeof(const SweepCentre& centre, double step_deg, double d_cells, int x, int y)
{
    const double dx = x - centre.x0;
    const double dy = y - centre.y0;
    const double r = std::hypot(dx, dy);
    const double bearing_deg = std::fmod(std::atan2(dx, -dy) / degree + 360, 360);
    PolarPlace place;
    place.k = static_cast<int>(std::lround(bearing_deg / step_deg));
    const double off = (bearing_deg - place.k * step_deg) * degree;
    const double half = step_deg / 2 * degree;
    // Sectors end in straight lines, so that a ring is measured along the radial.
    place.ring = r * std::cos(off) / (d_cells * std::cos(half));
    return place;
}

int holesbetween(const Sheet& sheet, const SweepCentre& centre, double step_deg, double d_cells,
                 double firstring, double lastring)
{
    const double slack = 1 / d_cells; // corners may lie beside the ring by part of a pixel
    int holes = 0;
    for (int y = 0; y < sheet.height; ++y)
        for (int x = 0; x < sheet.width; ++x) {
            const double ring = placeof(centre, step_deg, d_cells, x, y).ring;
            if (ring > firstring + slack && ring < lastring - slack)
                holes += sheet.at(x, y) == blank;
        }
    return holes;
}

/// Random centre on a map of 301 x 301 cells of 100 m, and a range that stays on it.
struct Place {
    SweepCentre centre;
    float range_km;
};
Place randomplace(std::mt19937& random)
{
    std::uniform_int_distribution<int> anywhere(60, 240);
    const double x = anywhere(random);
    const double y = anywhere(random);
    const double room = std::min({x, y, 300 - x, 300 - y}) - 2;
    std::uniform_real_distribution<double> share(0.1, 1);
    return {{x, y}, static_cast<float>(room * share(random) * 30.1 / 300)};
}

CoverageOrder order(float step_deg, float range_km)
{
    CoverageOrder made;
    made.centre = 1;
    made.mobile = 2;
    made.net = 1;
    made.bounds = {0, 360, step_deg, 0.1F, range_km};
    made.unit = LevelUnit::dbm;
    made.levels = {-90, -40};
    return made;
}

Sheet sweptsheet(const RadioSweep& sweep)
{
    Sheet sheet(sweep.map->width, sweep.map->height);
    CoverageColours colours;
    colours.rainbow.fill(ink);
    colours.curve = ink;
    runsweep(
        sweep,
        [&](std::span<const SectorPaint> sectors) { paintsectors(sheet.view(), sectors, colours); },
        [](int) { return true; });
    return sheet;
}

/// Marks the blank pixels that can be reached from one by steps to the four sides.
std::vector<std::size_t> floodfrom(Sheet& sheet, std::size_t start)
{
    std::vector<std::size_t> reached;
    std::vector<std::size_t> open{start};
    while (!open.empty()) {
        const std::size_t at = open.back();
        open.pop_back();
        if (sheet.pixels[at] != blank)
            continue;
        sheet.pixels[at] = 0xff808080U;
        reached.push_back(at);
        const auto width = static_cast<std::size_t>(sheet.width);
        if (at % width > 0)
            open.push_back(at - 1);
        if (at % width + 1 < width)
            open.push_back(at + 1);
        if (at >= width)
            open.push_back(at - width);
        if (at + width < sheet.pixels.size())
            open.push_back(at + width);
    }
    return reached;
}

bool nearcontour(const Sheet& contour, int x, int y, int distance)
{
    for (int v = std::max(0, y - distance); v <= std::min(contour.height - 1, y + distance); ++v)
        for (int u = std::max(0, x - distance); u <= std::min(contour.width - 1, x + distance); ++u)
            if (contour.at(u, v) == ink)
                return true;
    return false;
}

/// Rolling ground with some long ridges.
MapGrid ridgemap()
{
    MapGrid map = plainmap(301, 301, 0);
    for (int y = 0; y < map.height; ++y)
        for (int x = 0; x < map.width; ++x)
            map.at(x, y) = static_cast<std::int16_t>(
                200 + 120 * std::sin(x * 0.043 + 0.5 * std::cos(y * 0.021)) +
                60 * std::sin(y * 0.037));
    return map;
}
} // namespace

TEST(SweptArea, OfARadioCoverageHasNoHolesAtAnyRangeAndStep)
{
    std::mt19937 random(3);
    const MapGrid map = ridgemap();
    for (const float step_deg : {1.0F, 1.0F, 1.0F, 0.9F, 0.75F, 0.6F, 0.5F, 0.4F, 0.25F, 0.1F}) {
        const Place place = randomplace(random);
        CoverageOrder wanted = order(step_deg, place.range_km);
        wanted.rainbow = true;
        const auto sweep = preparesweep(twostations(), map, wanted, place.centre, 0);
        ASSERT_TRUE(sweep);
        const Sheet sheet = sweptsheet(*sweep);
        EXPECT_EQ(holesbetween(sheet, place.centre, double{step_deg}, sweep->d_cells, 1.5,
                               sweep->samples + 0.5),
                  0)
            << step_deg << " degrees, " << place.range_km << " km";
    }
}

TEST(SweptArea, OfAVisualCoverageHasNoHolesAtAnyRangeAndStep)
{
    std::mt19937 random(4);
    const MapGrid map = plainmap(301, 301, 0);
    for (const float step_deg : {1.0F, 1.0F, 0.9F, 0.7F, 0.5F, 0.35F, 0.2F, 0.1F}) {
        const Place place = randomplace(random);
        ViewOrder wanted;
        wanted.bounds = {0, 360, step_deg, 0.1F, place.range_km};
        wanted.sensorh = 9000;
        const auto sweep = prepareview(map, wanted, place.centre, 0);
        ASSERT_TRUE(sweep);
        Sheet sheet(map.width, map.height);
        runview(
            *sweep,
            [&](const SectorSides& sides, std::span<const SampleRun> runs) {
                const Wedge wedge(place.centre, sides);
                for (const auto& [first, last] : runs)
                    fillwedge(sheet.view(), wedge, first - 0.5, last + 0.5, ink);
            },
            [](int) { return true; });
        EXPECT_EQ(holesbetween(sheet, place.centre, double{step_deg}, 1, sweep->first - 0.5,
                               sweep->samples + 0.5),
                  0)
            << step_deg << " degrees, " << place.range_km << " km";
    }
}

TEST(SweptContour, PartsServedFromUnservedGroundWithoutAGap)
{
    const MapGrid map = ridgemap();
    const SweepCentre centre{150, 150};
    int parted = 0;
    for (const float level_dbm : {-95.0F, -85.0F, -75.0F, -65.0F, -55.0F})
        for (const float step_deg : {1.0F, 0.5F}) {
            CoverageOrder wanted = order(step_deg, 14.5F);
            wanted.levels.low = level_dbm;
            wanted.curve = true;
            wanted.surface = false;
            const auto sweep = preparesweep(twostations(), map, wanted, centre, 0);
            const Sheet contour = sweptsheet(*sweep);
            std::vector<RadioRadial> radials(sweep->azimuths.size());
            for (std::size_t k = 0; k < radials.size(); ++k)
                sweepradial(*sweep, static_cast<int>(k), radials[k]);
            // Beyond the sweep, and where it is not painted yet, there is no contour to cross.
            Sheet open = contour;
            std::vector<int> strong(open.pixels.size(), -1);
            for (int y = 0; y < open.height; ++y)
                for (int x = 0; x < open.width; ++x) {
                    const PolarPlace at = placeof(centre, double{step_deg}, sweep->d_cells, x, y);
                    const auto i = indexof(x, y, open.width);
                    if (at.ring < 3 || at.ring > sweep->samples - 1)
                        open.pixels[i] = ink;
                    else if (!nearcontour(contour, x, y, 1))
                        strong[i] = radials[static_cast<std::size_t>(at.k)]
                                        .samples[static_cast<std::size_t>(std::lround(at.ring))]
                                        .strong;
                }
            for (std::size_t i = 0; i < open.pixels.size(); ++i) {
                int served = 0;
                int unserved = 0;
                for (const std::size_t at : floodfrom(open, i)) {
                    served += strong[at] == 1;
                    unserved += strong[at] == 0;
                }
                EXPECT_TRUE(served == 0 || unserved == 0)
                    << level_dbm << " dBm, " << step_deg << " degrees: " << served << " and "
                    << unserved << " pixels";
                parted += served > 100 || unserved > 100;
            }
        }
    EXPECT_GT(parted, 15) << "there are areas to part";
}
