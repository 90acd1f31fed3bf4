#pragma once

#include "radio/linkstudy.h"

#include <cstdint>
#include <optional>

/// Spread of the received signal of a link, on an axis of path loss in dB.
struct Distribution {
    double mean = 0;   ///< loss at 50 % of time, locations and situations
    double spread = 0; ///< loss at 84.1 %, one standard deviation from the mean
    double need = 0;   ///< loss at the net's own percentages, which the link has to carry
    double gain12 = 0; ///< system gain: the largest loss that it can carry
    double lo = 0;     ///< right and left end of the chart's axis
    double hi = 0;

    /// Standard deviation of the curve, dB.
    double deviation() const;
    /// Height of the curve over a loss: 1 at the mean.
    double density(double loss) const;
    double margin() const { return gain12 - need; }
};

/// Computes the distribution of a link that was studied before, for the net and the propagation
/// mode of that study. Its profile is cut anew, without the bulge; its percentages are left at
/// 84.1, and its loss is what it was.
/// Nothing without a net or a profile.
std::optional<Distribution> distribution(const NetworkTables& tables, const MapGrid& map, int a,
                                         int b, int net, std::int16_t interference,
                                         LinkStudy& study);
