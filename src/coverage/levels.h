#pragma once

#include <array>
#include <cstdint>
#include <string>

/// Unit of the two levels of a coverage.
enum class LevelUnit : std::int16_t { sunit = 0, dbm = 1, microvolt = 2 };

/// Unit of a stored number; any number that is none counts as S-units.
LevelUnit levelunit(std::int16_t stored);

/// Bounds of a level as it is held: S-units for S-units, dBm for the other two.
struct LevelBounds {
    float low, high;
};
LevelBounds levelbounds(LevelUnit unit);

/// Level in dBm of a voltage at the receiver in µV. Held within 1e-20 to 1e20 µV, then within -200
/// to -10 dBm.
float microvolts2dbm(double microvolts);
double dbm2microvolts(double level_dbm);

/// Level as it is held from the number typed in a field of this unit.
float typedlevel(LevelUnit unit, double typed);

/// Text of a held level in its field: "0" in S-units, "0.0" in dBm, "0.000" in µV.
std::string leveltext(LevelUnit unit, float level);

/// The two levels as they are held in a unit.
struct Levels {
    float low = -107;
    float high = -67;
    bool operator==(const Levels&) const = default;
};

/// The levels after a change of unit: from S-units to another one they become -107 and -67 dBm;
/// otherwise they are held within the new unit's bounds.
Levels changeunit(LevelUnit from, LevelUnit to, Levels levels);

/// The levels with which a dialog opens: as held, and from S 1 to S 9 where a network that never
/// had levels in S-units would offer S 1 twice.
Levels openinglevels(LevelUnit unit, Levels levels);

/// A level in S-units as a margin in dB above the receiver's threshold.
double smargin(float level, double freq_mhz);

/// The limits of a coverage, as margins in dB above the receiver's threshold.
struct Margins {
    double low = 0;
    double high = 0;
};

/// Margins of two levels.
///   threshold_dbm  of the receiving side
///   rainbow        true: the second level counts; false: in S-units a plain surface covers a band
///                  of half an S-unit above the first
Margins levelmargins(LevelUnit unit, Levels levels, bool rainbow, double freq_mhz,
                     float threshold_dbm);

/// The eleven levels of the legend: equal steps between the two levels as they stand in the fields.
std::array<float, 11> signallevels(LevelUnit unit, Levels levels);
