#pragma once

#include "radio/link.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

/// Clearance that no path reaches: a path without inner samples keeps it.
inline constexpr float noclearance = 999999995904.0F;

/// What an analysis takes beside the tables and the map.
struct AnalysisOptions {
    std::int16_t interference = 0; ///< propagation mode
    float defh1 = 2;               ///< antenna heights in m where there is no net
    float defh2 = 2;
};

/// Where the two ends' horizon rays cross, on a path that isn't line of sight.
struct HorizonCrossing {
    double km = 0;     ///< from the left station
    double slope1 = 0; ///< of the left ray over the chord, m per m
    double slope2 = 0; ///< and of the right ray
};

/// Numbers and texts of one link, for its window, its copies and scripts.
struct LinkAnalysis {
    double margin = 0;            ///< dB, of the weaker direction; 0 without a net
    double top1 = 0;              ///< height of the left antenna above sea level, m
    double top2 = 0;              ///< and of the right one
    double earth = 0;             ///< earth factor of the drawing
    float minclear = noclearance; ///< least clearance, in radii of the first Fresnel zone
    float minclearkm = 0;         ///< and where it is, km from the left station
    std::optional<HorizonCrossing> crossing;
    /// Distance; elevations; propagation mode; levels (several lines, each led by CR LF and a
    /// blank). UTF-8.
    std::array<std::string, 4> linktext;
};

/// Evaluates one link at every sample and says what it does. Afterwards the profile holds terrain
/// with the earth's bulge added to its inner samples.
///   net  0 or less: the profile alone, with the default antenna heights
/// False, with the texts left as they were, when the stations have no profile.
bool analyselink(const NetworkTables& tables, const MapGrid& map, int unitA, int unitB, int net,
                 const AnalysisOptions& options, Link& link, LinkAnalysis& analysis);
