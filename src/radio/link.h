#pragma once

#include "engine/itm/lr.h"
#include "radio/profile.h"

#include <cstdint>
#include <vector>

/// Propagation mode of the run: 0 normal, 1 interference.
extern std::int16_t interf;

/// One link: what goes into the model and what comes out.
struct Link {
    Profile profile;
    std::vector<double> losses; ///< to each sample, dB; 0: none. Empty before the model was asked
    LRRecord record{};
    double gain12 = 0; ///< system gain from left to right, dB
    double gain21 = 0; ///< and from right to left

    /// Loss to sample i, dB; 0: none.
    double lossat(int i) const
    {
        const auto at = static_cast<std::size_t>(i);
        return at < losses.size() ? losses[at] : 0;
    }
};

/// Antenna height of a station in a net, m: the private height, or its system's.
float antheight(const NetworkTables& tables, int net, int unit);

/// Fills the record's inputs, but `startpt` and `interf`, and both system gains.
void setlink(const NetworkTables& tables, int unitA, int unitB, int net, Link& target);

/// True when the link's frequency and both its gains are finite numbers. One damaged byte of a
/// network file makes them others; such a link is none.
bool finitelink(const Link& link);

/// Margin of a link that is none, dB.
inline constexpr double nomargin_db = -1000;

/// Calls the model on the link's profile and adds the urban factor where the net asks for it.
/// Returns the margin of the weaker direction, dB: `nomargin_db` for a link that is not finite,
/// whose gains become 0 and its losses so large that nothing is received.
///   farendonly   the loss of the last sample only
///   interference propagation mode, 0 or 1
double linkmargin(const Net& net, bool farendonly, std::int16_t interference, Link& target);

/// S-meter reading of a level in dB above the threshold: 0 to 9 the S number, 10 to 60 S 9 plus so
/// many dB.
std::int16_t sunits(float level, float freq_mhz);
