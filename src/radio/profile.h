#pragma once

#include "base/numbers.h"
#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <vector>

/// Most intervals of a link's profile.
inline constexpr int maxlinkintervals = 157;

/// A terrain profile between two stations, of any length.
struct Profile {
    std::vector<double> elevations_m; ///< equally spaced, from the left station to the right one
    double spacing_m = 0;
    double distkm = 0; ///< length of the path, km
    double azim = -1;  ///< degrees clockwise from north; -1: no path
    float pathmin = 0; ///< lowest and highest sample of the map along the path, m
    float pathmax = 0;

    int intervals() const { return smax(static_cast<int>(elevations_m.size()) - 1, 0); }
    double& sample(int i) { return elevations_m[static_cast<std::size_t>(i)]; }
    double sample(int i) const { return elevations_m[static_cast<std::size_t>(i)]; }
};

/// Direction of a displacement, radians from 0 up to 2 pi, clockwise from north.
///   dy northward, dx eastward
double azimuth(double dy, double dx);

/// Cuts the profile between two positions out of a map: the straight line between the two cells,
/// nearest samples about one cell apart, thinned to 157 intervals on long paths. Returns n, the
/// number of intervals; 0 when no profile exists.
int cutprofile(const MapGrid& map, const Unit& a, const Unit& b, Profile& profile);

/// Puts the stations' own ground elevations at the two ends of a profile that exists, as every
/// evaluation does.
void setends(const Unit& a, const Unit& b, Profile& profile);
