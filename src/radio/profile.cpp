#include "radio/profile.h"

#include <cmath>
#include <numbers>

namespace
{
/// A position in the map's index space, in cells; whole numbers are the centres of cells.
struct CellPosition {
    double column = 0;
    double row = 0;
};

/// A difference of longitudes in degrees, brought back once by a full turn.
double wrapped(double difference)
{
    if (difference > 180)
        return difference - 360;
    if (difference < -180)
        return difference + 360;
    return difference;
}

CellPosition cellposition(const MapGrid& map, const Unit& unit)
{
    const double west = double{map.maplon[0]};
    const double east = double{map.maplon[2]};
    const double north = double{map.maplat[0]};
    const double south = double{map.maplat[2]};
    const double cellsperlon = map.upperx() / (east - west);
    const double cellsperlat = map.uppery() / (north - south);
    return {wrapped(double{unit.lon} - west) * cellsperlon,
            (double{unit.lat} - south) * cellsperlat};
}

/// False for what is no number, too: a frame without extent has no usable position.
bool onmap(const MapGrid& map, const CellPosition& position)
{
    return position.column >= 0 && position.column <= map.upperx() && position.row >= 0 &&
           position.row <= map.uppery();
}

void cutsamples(const MapGrid& map, const CellPosition& start, double dx, double dy, int n,
                Profile& profile)
{
    profile.elevations_m.resize(static_cast<std::size_t>(n) + 1);
    std::int16_t lowest = 9999;
    std::int16_t highest = -1000;
    for (int i = 0; i <= n; ++i) {
        const int column = static_cast<int>(roundtoeven(start.column + i * dx / n));
        const int row = static_cast<int>(roundtoeven(start.row + i * dy / n));
        const std::int16_t elevation = map.at(column, row);
        profile.sample(i) = elevation;
        lowest = smin(lowest, elevation);
        highest = smax(highest, elevation);
    }
    profile.pathmin = lowest;
    profile.pathmax = highest;
}
} // namespace

double azimuth(double dy, double dx)
{
    constexpr double pi = std::numbers::pi;
    if (std::abs(dx) < std::abs(dy)) {
        const double t = std::atan(dx / dy);
        if (dy > 0)
            return t < 0 ? t + 2 * pi : t;
        return t + pi;
    }
    if (dx > 0)
        return pi / 2 - std::atan(dy / dx);
    if (dx < 0)
        return 3 * pi / 2 - std::atan(dy / dx);
    return 0;
}

int cutprofile(const MapGrid& map, const Unit& a, const Unit& b, Profile& profile)
{
    profile.elevations_m.clear(); // and its memory serves the next path
    profile.spacing_m = profile.distkm = 0;
    profile.azim = -1;
    profile.pathmin = profile.pathmax = 0;
    if (!(map.record.mapsize > 0))
        return 0;
    const CellPosition start = cellposition(map, a);
    const CellPosition end = cellposition(map, b);
    if (!onmap(map, start) || !onmap(map, end))
        return 0;
    const double dx = end.column - start.column;
    const double dy = end.row - start.row;
    profile.azim = azimuth(dy, dx) / degree;
    const double cells = std::sqrt(dx * dx + dy * dy);
    const int n = static_cast<int>(roundtoeven(smin(cells, double{maxlinkintervals})));
    if (n == 0)
        return 0;
    cutsamples(map, start, dx, dy, n, profile);
    // A map of one row has no cell height: the length stays 0.
    if (map.uppery() > 0)
        profile.distkm = cells / map.uppery() * double{map.record.mapsize};
    profile.spacing_m = profile.distkm * 1000 / n;
    return n;
}

void setends(const Unit& a, const Unit& b, Profile& profile)
{
    profile.sample(0) = double{a.elevation};
    profile.sample(profile.intervals()) = double{b.elevation};
}
