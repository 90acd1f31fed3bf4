#include "relief/coloredit.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr std::int32_t white = 0xFFFFFF;
constexpr std::int32_t magenta = 0xFF00FF;
constexpr int first = 1;
constexpr int last = 10;

std::string wholenumber(double value)
{
    return formatnumber("0", value);
}

/// A component of a ramp, held between the ramp's darkest value and 255.
std::int32_t held(double value, int darkest)
{
    return static_cast<std::int32_t>(std::clamp(value, static_cast<double>(darkest), 255.0));
}

/// Colour `i` of a ramp. Both directions have their own share of green beside the middle.
std::int32_t rampcolour(int i, int darkest, bool reverse)
{
    constexpr std::int32_t violet = 92; // beyond red the ramp runs on towards violet
    const double red = reverse ? 6.5 - i : i - 4.5;
    const double blue = reverse ? i - 5.5 : 5.5 - i;
    const double green = 4.5 - std::abs(i - 5.5) - ((reverse ? i < 5 : i > 5) ? 1 : 0);
    const std::int32_t beyond = i == (reverse ? first : last) ? violet : 0;
    return held(red * 128, darkest) | held(green * 220, darkest) << 8 |
           (held(blue * 128, darkest) + beyond) << 16;
}

} // namespace

ColorEdit editlevels(const Colours& table)
{
    ColorEdit edit;
    edit.colortable = table.colortable;
    edit.absolutescale = table.absolutescale;
    edit.stratified = table.stratified != 0;
    edit.showlegend = table.showlegend != 0;
    for (std::size_t i = 0; i < edit.values.size(); ++i)
        edit.values[i] = std::to_string(table.levels[i]);
    return edit;
}

ColorEdit editsignal(const Colours& table, std::span<const float, 11> signal)
{
    ColorEdit edit = editlevels(table);
    edit.signal = true;
    for (std::size_t i = 0; i < edit.values.size(); ++i)
        edit.values[i] = generalnumber(signal[i]);
    return edit;
}

std::array<std::int32_t, 12> colorramp(int number)
{
    const int darkest = number >= 3 ? 127 : 64;
    const bool reverse = number % 2 == 0;
    std::array<std::int32_t, 12> ramp{white};
    ramp.back() = magenta;
    for (int i = first; i <= last; ++i)
        ramp[static_cast<std::size_t>(i)] = rampcolour(i, darkest, reverse);
    return ramp;
}

void relativescale(ColorEdit& edit, float floor, float ceiling)
{
    const auto low = static_cast<double>(floor);
    const auto high = static_cast<double>(ceiling);
    for (std::size_t i = 0; i < edit.values.size(); ++i)
        edit.values[i] = wholenumber(roundtoeven((high - low) * static_cast<double>(i) / 10 + low));
    edit.absolutescale = 0;
}

void fixedscale(ColorEdit& edit)
{
    constexpr int step = 100; // m
    edit.values[0] = "1";
    for (std::size_t i = 1; i < edit.values.size(); ++i)
        edit.values[i] = std::to_string(static_cast<int>(i) * step);
    edit.absolutescale = 1;
}

std::int16_t levelof(const std::string& value)
{
    using limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        roundtoeven(checkfield(limits::min(), limits::max(), value).value));
}

void applycolors(const ColorEdit& edit, bool withlevels, Colours& table)
{
    table.absolutescale = edit.absolutescale;
    table.stratified = edit.stratified ? 1 : 0;
    table.showlegend = edit.showlegend ? 1 : 0;
    table.colortable = edit.colortable;
    if (!withlevels)
        return;
    for (std::size_t i = 0; i < table.levels.size(); ++i)
        table.levels[i] = levelof(edit.values[i]);
}
