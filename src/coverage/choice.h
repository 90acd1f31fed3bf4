#pragma once

#include "coverage/levels.h"
#include "coverage/radiosweep.h"
#include "coverage/viewshed.h"
#include "network/tables.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// What a coverage is set up with beside the parameters of the network file. Centre, mobile and net
/// are the pair and the net of the radio link window, which both windows set.
struct CoverageChoice {
    std::uint8_t covdir = 0;     ///< 1: the mobile transmits
    std::uint8_t covuselink = 0; ///< 1: the antenna points from the centre to the mobile
    std::int16_t covindex = 0;   ///< position in the list of patterns
    Levels levels;               ///< as held in the unit of the network's parameters
    bool covrainbow = false;     ///< the legend shows the signal's colours
    bool radaron = false;        ///< the visual coverage uses a radar file
};
/// The choice of the run.
extern CoverageChoice coveragechoice;

/// Levels of the legend's signal scale.
extern std::array<float, 11> rainbowlevel;

/// Reads and saves the part of the choice that outlives a run.
void readcoveragesettings(CoverageChoice& choice);
void savecoveragesettings(const CoverageChoice& choice);

/// Parameters as the fields show them when a dialog opens: azimuths 0 to 359 and the first one to
/// 360, step 0.1 to 10, antenna azimuth 0 to 359.99, ranges 1 to 1000 km and 0.1 to the farthest
/// one, heights 0.1 to 9999 m. A number that is none becomes the lower bound.
CoverageParams shownparams(const CoverageParams& params);

/// Parameters held within the ranges in which they are stored: as above, but the first azimuth goes
/// up to 359.9 and the antenna's to 360.
CoverageParams heldparams(const CoverageParams& params);

/// Puts a dialog's parameters, held within their ranges, in the network. The network counts as
/// edited when they differ from those that the dialog had opened with.
void storeparams(const CoverageParams& params);

/// Least distance between the two numbers of a pair of fields.
inline constexpr double pairgap = 0.1;
/// A typed number held as the lower one of a pair, from `least` to the gap below `upper`, and as
/// the upper one, from the gap above `lower` to `most`.
float heldlower(double typed, double least, double upper);
float heldupper(double typed, double lower, double most);

/// Azimuths and ranges of the parameters.
SweepBounds sweepbounds(const CoverageParams& params);

/// The radio coverage that parameters and choice ask for, of the selection's pair and net; reads
/// the pattern file.
CoverageOrder coverageorder(const CoverageParams& params, const CoverageChoice& choice,
                            const Selection& pair);

/// The visual coverage that they ask for, without a radar.
///   visualmode  non-zero: the target follows the ground
ViewOrder vieworder(const CoverageParams& params, std::int16_t visualmode);
