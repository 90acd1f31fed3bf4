#include "coverage/sweep.h"

#include "base/numbers.h"
#include "base/parallel.h"

#include <algorithm>
#include <cmath>
#include <limits>

int lastradial(const SweepBounds& bounds)
{
    const double radials = (double{bounds.azmax} - double{bounds.azmin}) / double{bounds.step};
    if (!(bounds.step > 0) || !(std::abs(radials) <= mostradials))
        return -1;
    return static_cast<int>(roundtoeven(radials));
}

std::vector<double> radialazimuths(const SweepBounds& bounds)
{
    std::vector<double> azimuths;
    double azimuth_deg = double{bounds.azmin};
    for (int k = 0, last = lastradial(bounds); k <= last; ++k) {
        azimuths.push_back(azimuth_deg);
        azimuth_deg += double{bounds.step};
    }
    return azimuths;
}

double reachcells(const MapGrid& map, const SweepCentre& centre)
{
    const double halfwidth = map.upperx() / 2.0;
    const double halfheight = map.uppery() / 2.0;
    const double dx = halfwidth + std::abs(centre.x0 - halfwidth);
    const double dy = halfheight + std::abs(centre.y0 - halfheight);
    return roundtoeven(std::sqrt(dx * dx + dy * dy));
}

bool sweepable(const MapGrid& map, const SweepCentre& centre)
{
    const auto within = [](double value, int upper) {
        return roundtoeven(value) >= 0 && roundtoeven(value) <= upper;
    };
    return map.upperx() > 0 && map.uppery() > 0 && map.record.mapsize > 0 &&
           std::isfinite(map.record.mapsize) && within(centre.x0, map.upperx()) &&
           within(centre.y0, map.uppery());
}

SectorSides sectorsides(double azimuth_deg, double half_deg, double d_cells)
{
    const double left = (azimuth_deg - 90 - half_deg) * degree;
    const double right = (azimuth_deg - 90 + half_deg) * degree;
    return {d_cells * std::cos(left), d_cells * std::sin(left), d_cells * std::cos(right),
            d_cells * std::sin(right)};
}

/// Largest count c for which origin + c * step stays within 0 to upper after rounding, roughly: one
/// more may be inside, or one less.
static double stepsinside(double origin, double step, double upper)
{
    if (step > 0)
        return (upper + 0.5 - origin) / step;
    return step < 0 ? (origin + 0.5) / -step : std::numeric_limits<double>::infinity();
}

int samplesinside(const MapGrid& map, const SweepCentre& centre, double ux, double uy, int most)
{
    const auto inside = [&](int c) {
        const std::int32_t column = nearestcell(c * ux + centre.x0);
        const std::int32_t fromtop = nearestcell(c * uy + centre.y0);
        return column >= 0 && column <= map.upperx() && fromtop >= 0 && fromtop <= map.uppery();
    };
    const double estimate = std::min(stepsinside(centre.x0, ux, map.upperx()),
                                     stepsinside(centre.y0, uy, map.uppery()));
    int count = static_cast<int>(std::clamp(estimate, 0.0, double(most)));
    while (count > 0 && !inside(count))
        --count;
    while (count < most && inside(count + 1))
        ++count;
    return count;
}

void sweepradials(int last, int chunk, const std::function<void(int)>& compute,
                  const std::function<bool(int)>& take)
{
    for (int first = 0; first <= last; first += chunk) {
        const int count = std::min(chunk, last + 1 - first);
        parallelblocks(static_cast<std::size_t>(count), 1, [&](std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to; ++i)
                compute(first + static_cast<int>(i));
        });
        for (int k = first; k < first + count; ++k)
            if (!take(k))
                return;
    }
}
