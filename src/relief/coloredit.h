#pragma once

#include "relief/colours.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

/// The colour table while it is being edited. The levels are kept as they are typed.
struct ColorEdit {
    bool signal = false; ///< the values are signal levels, shown but not edited
    std::array<std::int32_t, 12> colortable{};
    std::array<std::string, 11> values;
    std::int16_t absolutescale = 0;
    bool stratified = false;
    bool showlegend = false;
};

/// The table as it opens for editing: with its own levels, or with the levels of a signal.
ColorEdit editlevels(const Colours& table);
ColorEdit editsignal(const Colours& table, std::span<const float, 11> signal);

/// The ready-made ramps 1 to 4, 0x00BBGGRR: white, ten colours, magenta. 1 and 3 run from blue up
/// to red, 2 and 4 from red up to blue; 3 and 4 are pale. Another number gives the first.
std::array<std::int32_t, 12> colorramp(int number);

/// Equal steps from floor to ceiling, m, that follow them from now on.
void relativescale(ColorEdit& edit, float floor, float ceiling);
/// 1 m, then 100 m to 1000 m, that stay.
void fixedscale(ColorEdit& edit);

/// The level that a typed value means, m, held within 16 bits.
std::int16_t levelof(const std::string& value);

/// Stores what was edited. The levels are stored when `withlevels` says so.
void applycolors(const ColorEdit& edit, bool withlevels, Colours& table);
