#include "coverage/levels.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace
{
/// 1 µV across 50 ohms is -107 dBm.
constexpr double onemicrovolt_dbm = -107;
constexpr Levels defaultlevels{-107, -67};
/// An S-unit counts 6 dB on short wave and 3 dB above; from S 9 on, levels count dB.
constexpr double shortwave_mhz = 30;
constexpr double lastsunit = 9;
} // namespace

LevelUnit levelunit(std::int16_t stored)
{
    return stored == 1 || stored == 2 ? static_cast<LevelUnit>(stored) : LevelUnit::sunit;
}

LevelBounds levelbounds(LevelUnit unit)
{
    return unit == LevelUnit::sunit ? LevelBounds{1, 60} : LevelBounds{-200, -10};
}

float microvolts2dbm(double microvolts)
{
    const double held = smin(smax(microvolts, 1e-20), 1e20);
    return typedlevel(LevelUnit::dbm, 20 * std::log10(held) + onemicrovolt_dbm);
}

double dbm2microvolts(double level_dbm)
{
    return std::pow(10, (level_dbm - onemicrovolt_dbm) / 20);
}

float typedlevel(LevelUnit unit, double typed)
{
    if (unit == LevelUnit::microvolt)
        return microvolts2dbm(typed);
    const auto [low, high] = levelbounds(unit);
    return smin(smax(static_cast<float>(typed), low), high);
}

std::string leveltext(LevelUnit unit, float level)
{
    switch (unit) {
    case LevelUnit::microvolt:
        return formatnumber("0.000", dbm2microvolts(double{level}));
    case LevelUnit::dbm:
        return formatnumber("0.0", double{level});
    default:
        return formatnumber("0", double{typedlevel(unit, double{level})});
    }
}

Levels changeunit(LevelUnit from, LevelUnit to, Levels levels)
{
    if (from == LevelUnit::sunit && to != LevelUnit::sunit)
        return defaultlevels;
    const auto [low, high] = levelbounds(to);
    return {std::clamp(levels.low, low, high), std::clamp(levels.high, low, high)};
}

Levels openinglevels(LevelUnit unit, Levels levels)
{
    constexpr Levels allsunits{1, 9};
    const Levels held = changeunit(unit, unit, levels);
    return unit == LevelUnit::sunit && held == Levels{1, 1} ? allsunits : held;
}

double smargin(float level, double freq_mhz)
{
    const double step_db = freq_mhz < shortwave_mhz ? 6 : 3;
    const double v = double{level};
    // Below S 9 an S-unit begins half a step under its nominal level.
    return v < lastsunit ? (v - 1) * step_db - step_db / 2 : 8 * step_db + v;
}

Margins levelmargins(LevelUnit unit, Levels levels, bool rainbow, double freq_mhz,
                     float threshold_dbm)
{
    if (unit != LevelUnit::sunit)
        return {double{levels.low} - double{threshold_dbm},
                double{levels.high} - double{threshold_dbm}};
    const double low = smargin(levels.low, freq_mhz);
    if (rainbow)
        return {low, smargin(levels.high, freq_mhz)};
    return {low, low + (freq_mhz < shortwave_mhz ? 3 : 1.5)};
}

std::array<float, 11> signallevels(LevelUnit unit, Levels levels)
{
    const auto shown = [&](float level) {
        return unit == LevelUnit::microvolt ? dbm2microvolts(double{level}) : double{level};
    };
    const double low = shown(levels.low);
    const double high = shown(levels.high);
    std::array<float, 11> steps{};
    for (std::size_t i = 0; i < steps.size(); ++i)
        steps[i] = static_cast<float>(low + (high - low) * static_cast<double>(i) / 10);
    return steps;
}
