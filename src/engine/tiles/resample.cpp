#include "engine/tiles/resample.h"

#include <algorithm>
#include <cmath>

// Positions this close to a tile's edge, in its own lines, count as on it, so that rounding cannot
// open a gap between two tiles.
static constexpr double edge = 1e-6;

AxisCut cutaxis(int count, double origin, double step, double low, double high)
{
    AxisCut cut;
    const double from = origin + (step > 0 ? low - edge : high + edge) / step;
    const double to = origin + (step > 0 ? high + edge : low - edge) / step;
    if (!std::isfinite(from) || !std::isfinite(to) || from > count || to < 0)
        return cut;
    cut.first = static_cast<int>(std::ceil(std::max(from, 0.0)));
    const int last = static_cast<int>(std::floor(std::min(to, count - 1.0)));
    const double lowest = std::floor(low);
    const double highest = std::ceil(high) - 1;
    for (int line = cut.first; line <= last; ++line) {
        const double position = std::clamp((line - origin) * step, low, high);
        const double below = std::clamp(std::floor(position), lowest, highest);
        cut.points.push_back({static_cast<int>(below), position - below});
    }
    return cut;
}

// The nearest whole number, ties to even: a double of this size has no fraction, so the sum is
// rounded by the addition itself. Good for all 16-bit heights and far faster than a library call.
static std::int16_t nearestmetre(double height)
{
    constexpr double nofraction = 6755399441055744.0; // 1.5 x 2^52
    return static_cast<std::int16_t>((height + nofraction) - nofraction);
}

std::size_t resamplerow(std::span<std::int16_t> out, std::span<const AxisPoint> columns,
                        const std::int16_t* lower, const std::int16_t* upper, double share)
{
    std::size_t voids = 0;
    const std::int16_t* const nearrow = share < 0.5 ? lower : upper;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const AxisPoint& point = columns[k];
        const std::int16_t* const a = lower + point.below;
        const std::int16_t* const b = upper + point.below;
        if (a[0] != voidheight && a[1] != voidheight && b[0] != voidheight && b[1] != voidheight) {
            const double south = a[0] + (a[1] - a[0]) * point.share;
            const double north = b[0] + (b[1] - b[0]) * point.share;
            out[k] = nearestmetre(south + (north - south) * share);
        } else {
            const std::int16_t height = nearrow[point.below + (point.share < 0.5 ? 0 : 1)];
            if (height != voidheight)
                out[k] = height;
            else
                ++voids;
        }
    }
    return voids;
}
