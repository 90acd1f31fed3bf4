#include "coverage/viewshed.h"

#include "app/base/numbers.h"

#include <algorithm>
#include <cmath>

namespace
{
/// One over the earth's diameter, 1/m: at d metres the ground lies d² times this lower.
constexpr double earthdrop = 1.0 / 12750000;
/// Radials that are computed together; a whole number of tens.
constexpr int chunk = 40;

/// Heights and distances along a ray, one entry a sample.
struct Ray {
    std::vector<double> rel_m;  ///< ground above the sensor's horizontal plane
    std::vector<double> drop_m; ///< fall of the earth's surface
    std::vector<double> d_m;
};

/// Cells along the ray, in plain loops that compilers turn into vector code.
void cutray(const ViewSweep& sweep, double ux, double uy, int count, Ray& ray)
{
    const MapGrid& map = *sweep.map;
    const std::int16_t* samples = map.samples.data();
    const std::ptrdiff_t width = map.width;
    const std::ptrdiff_t upper = map.uppery();
    ray.rel_m.resize(static_cast<std::size_t>(count));
    ray.drop_m.resize(static_cast<std::size_t>(count));
    ray.d_m.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double d_m = sweep.step_m * (i + 1);
        ray.d_m[static_cast<std::size_t>(i)] = d_m;
        ray.drop_m[static_cast<std::size_t>(i)] = d_m * d_m * earthdrop;
    }
    for (int i = 0; i < count; ++i) {
        const std::ptrdiff_t column = nearestcell((i + 1) * ux + sweep.centre.x0);
        const std::ptrdiff_t row = upper - nearestcell((i + 1) * uy + sweep.centre.y0);
        ray.rel_m[static_cast<std::size_t>(i)] = samples[row * width + column];
    }
    for (int i = 0; i < count; ++i) {
        double& rel_m = ray.rel_m[static_cast<std::size_t>(i)];
        rel_m = rel_m - ray.drop_m[static_cast<std::size_t>(i)] - sweep.sensor_m;
    }
}

/// True when a target lies within the beam at its range.
bool inbeam(const RadarDiagram& radar, double d_m, double target_m)
{
    const double gate = roundeven(d_m * (1.0 / 1000 / radar.gatesize_km));
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
    const double whole = roundeven(smax(2.0, range_km * height / size_km));
    ViewSweep sweep;
    sweep.map = &map;
    sweep.order = order;
    sweep.centre = centre;
    sweep.azimuths = radialazimuths(order.bounds);
    sweep.sensor_m = double{order.sensorh} + double{ground_m};
    sweep.step_m = range_km / whole * 1000;
    sweep.samples = static_cast<int>(smin(whole, most));
    sweep.first = static_cast<int>(roundeven(smax(1.0, smin(near_km * height / size_km, most))));
    return sweep;
}

void viewradial(const ViewSweep& sweep, int k, std::vector<int>& seen)
{
    seen.clear();
    const double angle = (sweep.azimuths[static_cast<std::size_t>(k)] - 90) * degree;
    const double ux = std::cos(angle);
    const double uy = std::sin(angle);
    const int count = samplesinside(*sweep.map, sweep.centre, ux, uy, sweep.samples);
    thread_local Ray ray;
    cutray(sweep, ux, uy, count, ray);

    const double targeth_m = double{sweep.order.targeth};
    double horizon = -1e99;
    for (int c = 1; c <= count; ++c) {
        const auto i = static_cast<std::size_t>(c - 1);
        const double rel_m = ray.rel_m[i];
        const double d_m = ray.d_m[i];
        horizon = smax(horizon, rel_m / d_m);
        const double target_m = sweep.order.terrainfollow
                                    ? rel_m + targeth_m
                                    : targeth_m - ray.drop_m[i] - sweep.sensor_m;
        if (c < sweep.first || target_m / d_m < horizon)
            continue;
        if (!sweep.order.radar || inbeam(*sweep.order.radar, d_m, target_m))
            seen.push_back(c);
    }
}

double seenarea(const ViewSweep& sweep, std::int64_t rings)
{
    const double step_km = sweep.step_m / 1000;
    return double{sweep.order.bounds.step} * static_cast<double>(rings) * degree * step_km *
           step_km;
}

std::int64_t runview(const ViewSweep& sweep,
                     const std::function<void(std::span<const SectorQuad>)>& paint,
                     const std::function<bool(int k)>& step)
{
    std::int64_t rings = 0;
    std::vector<std::vector<int>> radials(chunk);
    std::vector<SectorQuad> quads;
    const double half_deg = double{sweep.order.bounds.step} / 2;
    const auto seenof = [&](int k) -> std::vector<int>& {
        return radials[static_cast<std::size_t>(k % chunk)];
    };
    sweepradials(
        static_cast<int>(sweep.azimuths.size()) - 1, chunk,
        [&](int k) { viewradial(sweep, k, seenof(k)); },
        [&](int k) {
            const SectorSides sides =
                sectorsides(sweep.azimuths[static_cast<std::size_t>(k)], half_deg, 1);
            quads.clear();
            for (const int c : seenof(k)) {
                quads.push_back(sectorquad(sides, sweep.centre, c, finescale));
                rings += c;
            }
            paint(quads);
            return k % 10 != 0 || step(k);
        });
    return rings;
}
