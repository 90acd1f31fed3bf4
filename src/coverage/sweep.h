#pragma once

#include "terrain/mapgrid.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

/// The azimuths and ranges of a sweep around a station.
struct SweepBounds {
    float azmin = 0; ///< first azimuth, degrees clockwise from north
    float azmax = 360;
    float step = 1;   ///< between radials, degrees
    float rmin = 0;   ///< nothing is painted nearer, km
    float rmax = 100; ///< farthest range, km
};

/// Where a sweep stands on the map's own picture: pixels from the top left, one pixel a cell.
struct SweepCentre {
    double x0 = 0;
    double y0 = 0;
};

/// Nearest whole number, ties to even, of a number within +-2^31.
inline std::int32_t nearestcell(double value)
{
    // In the sum the unit of the last binary place is 1, so that the addition itself rounds.
    constexpr double shift = 0x1.8p52;
    return static_cast<std::int32_t>(std::bit_cast<std::uint64_t>(value + shift));
}

/// Most radials of a sweep; a step that asks for more is a fault.
inline constexpr int mostradials = 32767;

/// Number of the last radial, counted from 0: the width over the step, rounded. Negative when the
/// azimuths are swapped, and when the step gives no usable number: there are no radials then.
int lastradial(const SweepBounds& bounds);

/// Azimuths of radials 0 to `lastradial`, one step after the other, degrees.
std::vector<double> radialazimuths(const SweepBounds& bounds);

/// Distance from the centre to the farthest corner of the map, cells.
double reachcells(const MapGrid& map, const SweepCentre& centre);

/// True when a map has the extent that a sweep divides by, and the centre lies on it.
bool sweepable(const MapGrid& map, const SweepCentre& centre);

/// A pixel of the picture.
struct PicturePoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const PicturePoint&) const = default;
};
/// Four corners, in order around the sector.
using SectorQuad = std::array<PicturePoint, 4>;

/// Steps in pixels along the two sides of a radial's sector.
struct SectorSides {
    double lx = 0, ly = 0; ///< at the smaller azimuth
    double rx = 0, ry = 0;
};
SectorSides sectorsides(double azimuth_deg, double half_deg, double d_cells);

/// Corners of the ring sector around sample c: half a step nearer and half a step farther, each on
/// the nearest pixel. Neighbours share their corners.
inline SectorQuad sectorquad(const SectorSides& sides, const SweepCentre& centre, int c)
{
    const double a = c - 0.5;
    const double b = c + 0.5;
    const auto at = [&](double r, double x, double y) {
        return PicturePoint{nearestcell(r * x + centre.x0), nearestcell(r * y + centre.y0)};
    };
    return {at(a, sides.lx, sides.ly), at(b, sides.lx, sides.ly), at(b, sides.rx, sides.ry),
            at(a, sides.rx, sides.ry)};
}

/// Number of samples 1, 2, ... (at most `most`) along a ray from the centre before it leaves the
/// map. Sample c is the map's cell nearest to c steps.
int samplesinside(const MapGrid& map, const SweepCentre& centre, double ux, double uy, int most);

/// Runs radials 0 to `last`: `compute(k)` on all threads in chunks, then, in order and on the
/// calling thread, `take(k)`, which returns false to end the sweep.
void sweepradials(int last, int chunk, const std::function<void(int k)>& compute,
                  const std::function<bool(int k)>& take);
