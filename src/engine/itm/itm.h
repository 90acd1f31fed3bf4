#pragma once

#include <span>

/// The irregular terrain model in point-to-point form, with the constants of its version 1.4.
///
/// Sources, named so in what follows:
///   Algorithm   G. A. Hufford, The ITS Irregular Terrain Model, version 1.2.2: The Algorithm
///   Guide       G. A. Hufford, A. G. Longley, W. A. Kissick, NTIA Report 82-100
///   ESSA 79     A. G. Longley, P. L. Rice, ESSA Technical Report ERL 79-ITS 67
///   TN 101      P. L. Rice and others, NBS Technical Note 101
/// docs/models.md says more of the model, of its limits and of how it is checked.

/// What the model takes beside the terrain. Every value is held within its range before use, and
/// a NaN is replaced; both are given after the unit.
struct ItmInput {
    double freq_mhz = 100; ///< MHz, 1 to 1e5; NaN: 1
    double h1_m = 10;      ///< transmitter's antenna above ground, m, 0.5 to 3000; NaN: 0.5
    double h2_m = 10;      ///< receiver's
    double ns = 301;       ///< surface refractivity, N-units, 150 to 400; NaN: 301
    double eps = 15;       ///< relative permittivity of the ground, 1 to 1e4; NaN: 15
    double sgm = 0.005;    ///< its conductivity, S/m, 1e-9 to 1e4; NaN: 0.005
    int pol = 0;           ///< 1 vertical; anything else horizontal
    int clim = 5;          ///< climate, 1 to 7; anything else 5, continental temperate
    int varmode = 0;       ///< 0 single message, 1 individual, 2 mobile, 3 broadcast; plus 10: no
                           ///< location variability; plus 20: none of situations; otherwise 0
    double ptime = 50;     ///< percentages of time, locations and situations, 0.01 to 99.99;
    double ploc = 50;      ///< NaN: 50
    double psit = 50;      ///<
    bool interference = false; ///< interference mode: see Radio
};

/// Part of the distance range that the reference attenuation was found in.
enum class ItmRegion { lineofsight = 1, diffraction = 2, scatter = 3 };

/// One path's results, with the quantities that they were found from. Left is the transmitter.
struct ItmResult {
    double loss_db = 0; ///< basic transmission loss
    double free_db = 0; ///< free-space part of it
    double aref_db = 0; ///< reference attenuation; the rest is what variability adds
    ItmRegion region = ItmRegion::lineofsight;
    bool clear = false;     ///< nothing of the terrain reaches the line between the antennas
    double gme = 0;         ///< effective earth curvature, 1/m
    double dl_m[2] = {};    ///< horizon distances that the model uses
    double the_rad[2] = {}; ///< horizon elevation angles that it uses
    double hz_m[2] = {}; ///< horizons as they stand on the profile: on a clear path the other end
    double hza_rad[2] = {}; ///<
    double he_m[2] = {};    ///< effective antenna heights
    double dh_m = 0;        ///< terrain irregularity
};

/// Loss without a path: what the program shows for a calculation that is impossible.
inline constexpr double itmnopath_db = 1000;

/// The loss from the first to the last of equally spaced elevations.
///   Given:     elevations_m   two or more; each is held between -1e5 and 1e5 m
///              step_m         their distance, above 0; held between 1e-3 and 1e6 m
///   Returned:  the results; where there is no path (fewer than two elevations, one that is not a
///              finite number, a step that is not positive and finite) loss_db is itmnopath_db and
///              everything else 0
///   Errors:    none; every number is finite
ItmResult itmpath(std::span<const double> elevations_m, double step_m, const ItmInput& in);

/// The losses from the first elevation to each, the receiver standing at it: what itmpath gives on
/// the path cut there, in one pass over the terrain.
///   Given:     elevations_m, step_m   as for itmpath
///              first      first sample whose loss is wanted, held between 0 and the last
///              losses_db  as long as elevations_m; written from `first` on; sample 0 has no loss
///                         and receives 0, as does every sample where there is no path
///   Returned:  the results of the whole path
ItmResult itmradial(std::span<const double> elevations_m, double step_m, const ItmInput& in,
                    int first, std::span<double> losses_db);
