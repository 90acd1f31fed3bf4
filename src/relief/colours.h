#pragma once

#include "engine/draw/fastdraw.h"
#include "terrain/mapgrid.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// The colour table: how the rainbow mode of map pictures, its legend, and coverage plots colour a
/// value.
struct Colours {
    /// 0x00BBGGRR. Colour 0 lies below level 0, colour i between levels i - 1 and i, colour 11 from
    /// level 10 up.
    std::array<std::int32_t, 12> colortable{};
    std::array<std::int16_t, 11> levels{}; ///< m, rising
    std::int16_t absolutescale = 0;        ///< 0: the levels follow floor and ceiling
    std::int16_t stratified = 0;           ///< 1: flat bands; 0: colours are interpolated
    std::int16_t showlegend = 0;

    bool operator==(const Colours&) const = default;
};
/// The table of the run.
extern Colours colours;

/// Prepares the table for the process's map: loads it at its first use, falls back to the default
/// colours, and spreads relative levels between the map's floor and ceiling.
void setcolors();

/// Reads and writes colors.dat in the program's folder. Both are silent on errors: what was read
/// before one stands.
void loadcolors();
void savecolors();

/// Colours from the text of such a file, and the text of them.
void parsecolors(std::string_view text, Colours& table);
std::string colorstext(const Colours& table);

/// The twelve colours of a table without a file: water, blue over green to red, white.
std::array<std::int32_t, 12> defaultcolors();

/// Eleven equal steps from floor to ceiling, rounded; nothing changes unless the ceiling is higher.
void relativelevels(float floor, float ceiling, std::array<std::int16_t, 11>& levels);

/// Components of a 0x00BBGGRR colour.
constexpr int redof(std::int32_t colour)
{
    return colour & 255;
}
constexpr int greenof(std::int32_t colour)
{
    return colour >> 8 & 255;
}
constexpr int blueof(std::int32_t colour)
{
    return colour >> 16 & 255;
}

/// What the map painter takes from a map: its record, or another in its place, with the size of a
/// cell. A range that is empty, as in a map whose statistics were never made, becomes the range of
/// the samples.
DrawValues drawvalues(const MapGrid& map);
DrawValues drawvalues(const MapGrid& map, const MapRecord& record);

/// The colour table as the map painter takes it. Levels that don't rise are spread over the drawn
/// range, so that a picture always has colours.
ColourScale drawscale(const Colours& table, const DrawValues& values);
