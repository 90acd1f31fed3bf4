#pragma once

#include "coverage/levels.h"
#include "coverage/pattern.h"
#include "coverage/sweep.h"
#include "radio/link.h"

#include <optional>
#include <span>

/// All that a radio coverage is asked for.
struct CoverageOrder {
    int centre = 0; ///< station in the middle
    int mobile = 0; ///< station whose system works on the move
    int net = 0;
    bool mobiletransmits = false; ///< "Centre Rx - Mobile Tx"
    SweepBounds bounds;
    float antaz = 0; ///< where the pattern's 0 points, degrees
    AntennaPattern pattern{};
    LevelUnit unit = LevelUnit::sunit;
    Levels levels;
    bool curve = false;   ///< draw the contour
    bool surface = true;  ///< paint the area
    bool rainbow = false; ///< in twelve colours; else in one
};

/// Most samples of a radial.
inline constexpr int mostsamples = 160;

/// What is painted on one ring sector.
namespace sectorfill
{
inline constexpr std::uint8_t plain = 12; ///< the surface colour; 0 to 11: colours of the rainbow
inline constexpr std::uint8_t none = 255;
} // namespace sectorfill

/// A sweep made ready: what all radials share.
struct RadioSweep {
    const MapGrid* map = nullptr;
    CoverageOrder order;
    SweepCentre centre;
    std::vector<double> azimuths; ///< of the radials, degrees
    int samples = 0;              ///< N, on a whole radial
    double d_cells = 0;           ///< step along a radial
    double spacing_m = 0;         ///< the same on the ground
    double nearlimit = 0;         ///< sample index up to which nothing is painted; not rounded
    Margins margins;
    double gain_db = 0; ///< system gain in the direction that counts
    float freq_mhz = 0;
    float elevation_m = 0; ///< ground at the centre
    Net net;
    std::int16_t interference = 0;
    Link link; ///< the model's inputs
};

/// One ring sector of a radial, as the levels judge it.
struct RadioSample {
    std::uint8_t fill = sectorfill::none;
    bool counted = false; ///< its area is covered
    bool strong = false;  ///< above the first level; kept only for a contour
};

/// One radial: samples 1 to `count`.
struct RadioRadial {
    int count = 0;
    double nearlimit = 0;
    bool failed = false; ///< the levels gave no colour; the sweep ends behind sample `count`
    SectorSides sides;
    std::array<RadioSample, mostsamples + 1> samples{};
};

/// One ring sector to paint: its fill, then lines of the contour.
struct SectorPaint {
    SectorQuad quad; ///< corners in whole pixels, for the contour
    std::uint8_t fill = sectorfill::none;
    bool across = false; ///< contour from corner 1 to corner 4
    bool along = false;  ///< contour from corner 1 to corner 2
};

/// Makes a sweep ready around the centre station, which stands on pixel (x0, y0) of the map's own
/// picture. Nothing when net or stations are missing or the same, the frequency or a gain is not
/// finite, or the map has no extent.
std::optional<RadioSweep> preparesweep(const NetworkTables& tables, const MapGrid& map,
                                       const CoverageOrder& order, const SweepCentre& centre,
                                       std::int16_t interference);

/// False for a rainbow whose two levels leave no scale to divide by: its first sample would fail.
bool hasscale(const RadioSweep& sweep);

/// Losses and colours along radial k. Touches nothing but its own result.
void sweepradial(const RadioSweep& sweep, int k, RadioRadial& radial);

/// What a running sweep carries from radial to radial.
struct ContourState {
    std::array<bool, mostsamples + 1> prev{}; ///< of the radial before, by sample
    std::int64_t rings = 0;                   ///< sum of the covered samples' indices
};

/// Takes the next radial in: its sectors in the order of painting, nearest first.
void joinradial(const RadioSweep& sweep, int k, const RadioRadial& radial, ContourState& state,
                std::vector<SectorPaint>& sectors);

/// Covered area in km² as the polar sum of ring sectors.
double coveredarea(const RadioSweep& sweep, std::int64_t rings);

/// The whole sweep.
///   paint  paints the sectors of a radial
///   step   called behind every tenth radial with its number; false stops the sweep at once
/// Returns the sum for `coveredarea`.
std::int64_t runsweep(const RadioSweep& sweep,
                      const std::function<void(std::span<const SectorPaint>)>& paint,
                      const std::function<bool(int k)>& step);
