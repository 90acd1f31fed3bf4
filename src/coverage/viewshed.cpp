#include "coverage/viewshed.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace
{
/// One over the earth's diameter, 1/m: at d metres the ground lies d² times this lower.
constexpr double earthdrop = 1.0 / 12750000;
/// Radials that are computed together; a whole number of tens.
constexpr int chunk = 40;

/// Places of a ray's samples in the map's table, in a plain loop that compilers turn into vector
/// code.
void cutray(const ViewSweep& sweep, double ux, double uy, int count,
            std::vector<std::int32_t>& cells)
{
    const std::int32_t width = sweep.map->width;
    const std::int32_t upper = sweep.map->uppery();
    const double x0 = sweep.centre.x0;
    const double y0 = sweep.centre.y0;
    cells.resize(static_cast<std::size_t>(count));
    std::int32_t* cell = cells.data();
    for (int i = 0; i < count; ++i) {
        const std::int32_t column = nearestcell((i + 1) * ux + x0);
        const std::int32_t row = upper - nearestcell((i + 1) * uy + y0);
        cell[i] = row * width + column;
    }
}

/// True when a target lies within the beam at its range.
bool inbeam(const RadarDiagram& radar, double d_m, double target_m)
{
    const double gate = roundtoeven(d_m * (1.0 / 1000 / radar.gatesize_km));
    if (!(gate <= radar.count()))
        return false;
    const RadarGate& limits = radar.gates[static_cast<std::size_t>(gate)];
    return target_m >= double{limits.lower} && target_m <= double{limits.upper};
}
} // namespace

std::optional<ViewSweep> prepareview(const MapGrid& map, const ViewOrder& order,
                                     const SweepCentre& centre, float ground_m)
{
    if (!sweepable(map, centre))
        return std::nullopt;
    const double size_km = double{map.record.mapsize};
    const double height = map.uppery();
    const double reach = reachcells(map, centre);
    double range_km = smax(0.1, smin(double{order.bounds.rmax}, reach * size_km / height));
    double near_km = smax(0.1, smin(range_km, double{order.bounds.rmin}));
    if (order.radar) {
        near_km = order.radar->gatesize_km;
        range_km = near_km * order.radar->count();
    }
    // A diagram may reach far beyond the map, and its first gate even lie there.
    const double most = 2 * reach + 2;
    const double whole = roundtoeven(smax(2.0, range_km * height / size_km));
    ViewSweep sweep;
    sweep.map = &map;
    sweep.order = order;
    sweep.centre = centre;
    sweep.azimuths = radialazimuths(order.bounds);
    sweep.sensor_m = double{order.sensorh} + double{ground_m};
    sweep.step_m = range_km / whole * 1000;
    sweep.samples = static_cast<int>(smin(whole, most));
    sweep.first = static_cast<int>(roundtoeven(smax(1.0, smin(near_km * height / size_km, most))));
    for (int c = 1; c <= sweep.samples; ++c) {
        const double d_m = sweep.step_m * c;
        sweep.drop_m.push_back(d_m * d_m * earthdrop);
    }
    return sweep;
}

void viewradial(const ViewSweep& sweep, int k, std::vector<int>& seen)
{
    const double angle = (sweep.azimuths[static_cast<std::size_t>(k)] - 90) * degree;
    const double ux = std::cos(angle);
    const double uy = std::sin(angle);
    const int count = samplesinside(*sweep.map, sweep.centre, ux, uy, sweep.samples);
    thread_local std::vector<std::int32_t> cells;
    cutray(sweep, ux, uy, count, cells);

    const std::int16_t* ground = sweep.map->samples.data();
    const double targeth_m = double{sweep.order.targeth};
    const auto relative_m = [&](int c) {
        const auto i = static_cast<std::size_t>(c - 1);
        return ground[cells[i]] - sweep.drop_m[i] - sweep.sensor_m;
    };
    const auto target_m = [&](int c, double rel_m) {
        const auto i = static_cast<std::size_t>(c - 1);
        return sweep.order.terrainfollow ? rel_m + targeth_m
                                         : targeth_m - sweep.drop_m[i] - sweep.sensor_m;
    };
    // Every sample is written, and stays only when it is seen: what is seen can't be foretold.
    seen.resize(static_cast<std::size_t>(count) + 1);
    std::size_t found = 0;
    double horizon = -1e99;
    for (int c = 1; c <= count; ++c) {
        const double d_m = sweep.step_m * c;
        const double rel_m = relative_m(c);
        horizon = smax(horizon, rel_m / d_m);
        seen[found] = c;
        found += c >= sweep.first && !(target_m(c, rel_m) / d_m < horizon) ? 1 : 0;
    }
    seen.resize(found);
    if (sweep.order.radar)
        std::erase_if(seen, [&](int c) {
            return !inbeam(*sweep.order.radar, sweep.step_m * c, target_m(c, relative_m(c)));
        });
}

double seenarea(const ViewSweep& sweep, std::int64_t rings)
{
    const double step_km = sweep.step_m / 1000;
    return double{sweep.order.bounds.step} * static_cast<double>(rings) * degree * step_km *
           step_km;
}

/// Samples in rising order as runs.
static void joinruns(std::span<const int> samples, std::vector<SampleRun>& runs)
{
    runs.clear();
    for (const int c : samples)
        if (!runs.empty() && runs.back().last + 1 == c)
            runs.back().last = c;
        else
            runs.push_back({c, c});
}

std::int64_t
runview(const ViewSweep& sweep,
        const std::function<void(const SectorSides&, std::span<const SampleRun>)>& paint,
        const std::function<bool(int k)>& step)
{
    struct Radial {
        std::vector<int> seen;
        std::vector<SampleRun> runs;
    };
    std::int64_t rings = 0;
    std::vector<Radial> radials(chunk);
    SectorSides sides;
    const double half_deg = double{sweep.order.bounds.step} / 2;
    const auto radialof = [&](int k) -> Radial& {
        return radials[static_cast<std::size_t>(k % chunk)];
    };
    sweepradials(
        static_cast<int>(sweep.azimuths.size()) - 1, chunk,
        [&](int k) {
            viewradial(sweep, k, radialof(k).seen);
            joinruns(radialof(k).seen, radialof(k).runs);
        },
        [&](int k) {
            const SectorSides before = sides;
            sides = sectorsides(sweep.azimuths[static_cast<std::size_t>(k)], half_deg, 1);
            if (k > 0) {
                sides.lx = before.rx;
                sides.ly = before.ry;
            }
            for (const int c : radialof(k).seen)
                rings += c;
            paint(sides, radialof(k).runs);
            return k % 10 != 0 || step(k);
        });
    return rings;
}
