#pragma once

#include <span>

/// The irregular terrain model written down plainly, one path at a time, with the library's own
/// functions: what the engine's kernel is checked against, and what the benchmarks compare it with.
/// It shares no code with the kernel.

/// What the model takes beside the terrain.
struct PlainInput {
    double freq_mhz = 0;
    double h1_m = 0, h2_m = 0;               ///< antennas above ground
    double ns = 0;                           ///< surface refractivity, N-units
    double eps = 0, sgm = 0;                 ///< ground: relative permittivity, conductivity in S/m
    int pol = 0;                             ///< 0 horizontal, 1 vertical
    int clim = 0;                            ///< 1 to 7
    int varmode = 0;                         ///< 0 to 3, plus 10 and/or 20
    double ptime = 50, ploc = 50, psit = 50; ///< percent
};

/// What it yields, intermediate quantities included.
struct PlainResult {
    double loss_db = 0, free_db = 0, aref_db = 0;
    int region = 0;                 ///< 1 line of sight, 2 diffraction, 3 scatter
    bool clear = false;             ///< nothing of the terrain reaches the ray
    double gme = 0;                 ///< 1/m
    double dl_m[2]{}, the_rad[2]{}; ///< horizons as the model uses them
    double hz_m[2]{}, hza_rad[2]{}; ///< and as the profile shows them
    double he_m[2]{};
    double dh_m = 0;
};

/// The model on a path of elevations.size() - 1 intervals of `step_m`.
PlainResult plainitm(std::span<const double> elevations, double step_m, const PlainInput& in);
