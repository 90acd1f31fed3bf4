#pragma once

#include "engine/itm/lr.h"
#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <array>

/// Most intervals of a link's profile.
inline constexpr int maxlinkintervals = 157;

/// Profile at the model's border: [1] n, [2] spacing in m, [3 .. n+3] elevations in m.
using ProfileBlock = std::array<double, lrblocksize>;
/// Losses at the model's border: [i+3] loss to sample i in dB; 0: no value.
using LossBlock = std::array<double, lrblocksize>;

/// A terrain profile between two stations.
struct Profile {
    ProfileBlock block{};
    double distkm = 0; ///< length of the path, km
    double azim = -1;  ///< degrees clockwise from north; -1: no path
    float pathmin = 0; ///< lowest and highest sample of the map along the path, m
    float pathmax = 0;

    int intervals() const { return static_cast<int>(block[1]); }
    double spacing() const { return block[2]; }
    double& sample(int i) { return block[static_cast<std::size_t>(i) + 3]; }
    double sample(int i) const { return block[static_cast<std::size_t>(i) + 3]; }
};

/// Direction of a displacement, radians from 0 up to 2 pi, clockwise from north.
///   dy northward, dx eastward
double azimuth(double dy, double dx);

/// Cuts the profile between two positions out of a map: the straight line between the two cells,
/// nearest samples about one cell apart, thinned to 157 intervals on long paths. Returns n, the
/// number of intervals; 0 when no profile exists.
int cutprofile(const MapGrid& map, const Unit& a, const Unit& b, Profile& profile);

/// Puts the stations' own ground elevations at the two ends, as every evaluation does.
void setends(const Unit& a, const Unit& b, Profile& profile);
