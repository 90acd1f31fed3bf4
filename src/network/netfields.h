#pragma once

#include "network/tables.h"

#include <array>
#include <cstdint>

// The rules by which the network dialog reads and writes the records of nets and systems.

/// Bounds of a number that the user types.
struct Bounds {
    double low, high;
};

namespace bounds
{
inline constexpr Bounds frequency{20, 20000};     // MHz
inline constexpr Bounds refractivity{250, 400};   // N-units
inline constexpr Bounds ground{0.0001, 10000};    // conductivity in S/m, relative permittivity
inline constexpr Bounds percent{0.1, 99.9};       // of time, locations, situations
inline constexpr Bounds retransmissions{0, 20};   //
inline constexpr Bounds power{0.00000001, 1e6};   // W
inline constexpr Bounds threshold{0.01, 2000};    // microvolts
inline constexpr Bounds lineloss{0, 500};         // dB
inline constexpr Bounds gain{-10, 100};           // dBi
inline constexpr Bounds antennaheight{0.5, 2999}; // m
inline constexpr Bounds linelevel{-49, 49};       // dB over the required signal
} // namespace bounds

/// Variability modes.
enum class StatMode { trial = 0, accidental = 1, mobile = 2, broadcast = 3 };

/// The mode that a net's record holds, within the four there are, without its urban part.
StatMode statmode(const Net& net);
/// True when the urban factor is added.
bool urban(const Net& net);
/// Stores a mode, with or without the urban factor.
void setstatmode(Net& net, StatMode mode, bool withurban);
/// The share that a mode reads beside that of the situations.
bool usestime(StatMode mode);
bool useslocation(StatMode mode);

/// Stores a topology, 0 to 2, or whether the net is visible; each keeps the other.
void settopology(Net& net, int topology);
void setvisible(Net& net, bool visible);

/// Number of roles that a topology has; 0 for one that there isn't.
int rolecount(int topology);
/// The role of a station as it is shown: the byte may hold one that the topology lacks, which
/// counts as the first.
int shownrole(const Net& net, int unit);
/// Stores a station's role, or its membership; each keeps the other.
void setrole(Net& net, int unit, int role);
void setmember(Net& net, int unit, bool member);

/// Voltage of a level in dBm at the receiver's 50 ohms, microvolts, and back.
double microvolts(double level_dbm);
double thresholdlevel(double threshold_uv);

/// The rules of the line colours as the dialog shows them.
struct LineRules {
    bool red = false, yellow = false, green = false; ///< which lines are drawn
    bool opaque = false;                             ///< with a dark line below them
    double yellow_db = 0, green_db = 0;              ///< least margin of a line of that colour

    bool operator==(const LineRules&) const = default;
};
LineRules linerules(const std::array<std::uint8_t, 3>& linestyle);
/// The three bytes of such rules: margins are held within their scale, yellow not above green.
std::array<std::uint8_t, 3> linestylebytes(const LineRules& rules);
