#pragma once

#include "radio/profile.h"

#include <cstdint>

/// Propagation mode of the run: 0 normal, 1 interference.
extern std::int16_t interf;

/// The blocks of one link: what goes into the model and what comes out. The process has one for the
/// windows; evaluations on several threads have their own.
struct Link {
    Profile profile;
    LossBlock losses{};
    LRRecord record{};
    double gain12 = 0; ///< system gain from left to right, dB
    double gain21 = 0; ///< and from right to left

    /// Loss to sample i, dB; 0: none.
    double lossat(int i) const { return losses[static_cast<std::size_t>(i) + 3]; }
};
extern Link currentlink;

/// Cuts the profile of two stations of the process's tables into the process's link; returns n.
int getprofile(std::int16_t unitA, std::int16_t unitB);

/// Antenna height of a station in a net, m: the private height, or its system's.
float antheight(const NetworkTables& tables, int net, int unit);

/// Fills the record's inputs, but `startpt` and `interf`, and both system gains.
void setlink(const NetworkTables& tables, int unitA, int unitB, int net, Link& target);

/// Calls the model on the link's profile and adds the urban factor where the net asks for it.
/// Returns the margin of the weaker direction, dB.
///   farendonly   the loss of the last sample only
///   interference propagation mode, 0 or 1
double linkmargin(const Net& net, bool farendonly, std::int16_t interference, Link& target);

/// S-meter reading of a level in dB above the threshold: 0 to 9 the S number, 10 to 60 S 9 plus so
/// many dB.
std::int16_t sunits(float level, float freq_mhz);
