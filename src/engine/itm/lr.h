#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Length of the profile and loss blocks at the engine's border.
inline constexpr std::size_t lrblocksize = 166;
/// Most intervals that such a block holds, three numbers standing before its samples.
inline constexpr int lrmaxintervals = 160;

#pragma pack(push, 4)
/// Inputs and results of one call of the propagation model, as they cross the engine's border.
struct LRRecord {
    double freq;          ///< in: frequency, MHz
    double ns;            ///< in: surface refractivity, N-units
    double eps;           ///< in: relative permittivity of the ground
    double sgm;           ///< in: ground conductivity, S/m
    std::int32_t pol;     ///< in: 0 horizontal, 1 vertical
    std::int32_t clim;    ///< in: climate, 1 to 7
    std::int32_t varmode; ///< in: 0 single message, 1 accidental, 2 mobile, 3 broadcast
    double h1;            ///< in: antenna height at the left end, m above ground
    double h2;            ///< in: antenna height at the right end, m above ground
    double ptime;         ///< in: percentage of time
    double ploc;          ///< in: percentage of locations
    double psit;          ///< in: percentage of situations
    std::int32_t interf;  ///< in: 0 normal, 1 interference
    std::int32_t startpt; ///< in: first sample whose loss is wanted: 0 all, n the far end only
    double loss;          ///< out: total loss of the whole profile, dB
    std::uint8_t reserved1[16];
    double dl1;   ///< out: distance of the left end's horizon, m
    double dl2;   ///< out: distance of the right end's horizon, m
    double the1;  ///< out: elevation angle of the left end's horizon, rad
    double the2;  ///< out: elevation angle of the right end's horizon, rad
    double gme;   ///< out: effective earth curvature, 1/m
    double lfree; ///< out: free-space loss, dB
    double lobst; ///< out: reference attenuation (obstruction loss), dB
    std::uint8_t reserved2[12];
    std::int32_t los;     ///< out: non-zero when the profile is clear between the antennas
    std::int32_t scatter; ///< out: non-zero when it is not and the loss is that of scatter
    std::uint8_t reserved3[4];
    double lurban; ///< the program's own urban factor, dB; the model leaves it alone
};
#pragma pack(pop)

static_assert(offsetof(LRRecord, freq) == 0 && offsetof(LRRecord, ns) == 8);
static_assert(offsetof(LRRecord, eps) == 16 && offsetof(LRRecord, sgm) == 24);
static_assert(offsetof(LRRecord, pol) == 32 && offsetof(LRRecord, clim) == 36);
static_assert(offsetof(LRRecord, varmode) == 40);
static_assert(offsetof(LRRecord, h1) == 44 && offsetof(LRRecord, h2) == 52);
static_assert(offsetof(LRRecord, ptime) == 60 && offsetof(LRRecord, ploc) == 68);
static_assert(offsetof(LRRecord, psit) == 76);
static_assert(offsetof(LRRecord, interf) == 84 && offsetof(LRRecord, startpt) == 88);
static_assert(offsetof(LRRecord, loss) == 92 && offsetof(LRRecord, reserved1) == 100);
static_assert(offsetof(LRRecord, dl1) == 116 && offsetof(LRRecord, dl2) == 124);
static_assert(offsetof(LRRecord, the1) == 132 && offsetof(LRRecord, the2) == 140);
static_assert(offsetof(LRRecord, gme) == 148 && offsetof(LRRecord, lfree) == 156);
static_assert(offsetof(LRRecord, lobst) == 164 && offsetof(LRRecord, reserved2) == 172);
static_assert(offsetof(LRRecord, los) == 184 && offsetof(LRRecord, scatter) == 188);
static_assert(offsetof(LRRecord, reserved3) == 192 && offsetof(LRRecord, lurban) == 196);
static_assert(sizeof(LRRecord) == 204);

/// The propagation model on a profile of any length.
///   Given:     elevations_m   ground from the left station to the right one, equally spaced
///              step_m         their distance
///              rec            inputs, each held within the range that ItmInput states
///   Returned:  losses_db      as long as elevations_m: the loss to each sample, the right antenna
///                             standing there, from startpt on, which is held on the path; 0 where
///                             there is none, as at sample 0; nothing else is written
///              rec            loss, dl1, dl2, the1, the2, gme, lfree, lobst, los, scatter of the
///                             whole path. loss is lfree + lobst + what variability adds. los is 1
///                             when no sample stands above the line between the antennas, else 0.
///                             scatter is 1 when los is 0 and lobst was found in the range of
///                             scatter, else 0.
///   Errors:    no path (fewer than two elevations, one that isn't finite, a step that isn't above
///              0 and finite): loss is 1000 dB, as for a calculation that is impossible, the other
///              results are 0, and losses_db receives 0 from startpt on
/// Any number of threads may call it.
void lrpath(std::span<const double> elevations_m, double step_m, LRRecord& rec,
            std::span<double> losses_db);

/// The same for programs outside, which hand it blocks of numbers.
///   Given:     prof     166 numbers: [1] n, the number of intervals, rounded to the nearest whole
///                       one; [2] their length, m; [3 .. n+3] ground elevations from the left
///                       station to the right one, m
///              rec      inputs
///   Returned:  losses   166 numbers: [i+3] receives the loss to sample i, dB, from startpt on,
///                       held between 0 and n; 0 where there is none; nothing else is written
///              rec      results
///   Errors:    n below 1, above 160 or not a number is no path either: losses then receives
///              nothing at all
/// Any number of threads may call it.
extern "C" [[gnu::visibility("default")]] void LR(const double* prof, double* losses,
                                                  LRRecord* rec);
