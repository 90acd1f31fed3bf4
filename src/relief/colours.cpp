#include "relief/colours.h"

#include "base/numbers.h"
#include "base/paths.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <tuple>

Colours colours;

namespace
{

constexpr const char* colorsfile = "colors.dat";

std::int32_t rgb(double red, double green, double blue)
{
    const auto component = [](double value) {
        return static_cast<std::int32_t>(std::clamp(value, 0.0, 255.0));
    };
    return component(red) | component(green) << 8 | component(blue) << 16;
}

/// Takes the lines of a text one after the other.
class LineReader
{
public:
    explicit LineReader(std::string_view source) : rest(source) {}

    std::optional<std::string_view> next()
    {
        if (rest.empty())
            return std::nullopt;
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }

private:
    std::string_view rest;
};

bool readword(LineReader& lines, std::int16_t& value)
{
    const auto line = lines.next();
    if (!line)
        return false;
    const double number = roundtoeven(leadingnumber(*line));
    if (!(std::abs(number) <= std::numeric_limits<std::int16_t>::max()))
        return false;
    value = static_cast<std::int16_t>(number);
    return true;
}

bool readcolour(LineReader& lines, std::int32_t& value)
{
    const auto line = lines.next();
    if (!line)
        return false;
    const std::string digits = trimmed(*line);
    std::uint32_t colour = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), colour, 16);
    if (result.ec == std::errc::result_out_of_range)
        return false;
    value = static_cast<std::int32_t>(colour);
    return true;
}

/// The lowest and highest sample; 0 and 0 for a map without any.
std::pair<double, double> samplerange(const MapGrid& map)
{
    if (map.samples.empty())
        return {0, 0};
    const auto [low, high] = std::minmax_element(map.samples.begin(), map.samples.end());
    return {*low, *high};
}

} // namespace

std::array<std::int32_t, 12> defaultcolors()
{
    std::array<std::int32_t, 12> table{};
    table[0] = rgb(90, 150, 205);
    table[11] = rgb(255, 255, 255);
    for (int i = 1; i <= 10; ++i) {
        const double red = (i - 5.5) * 128;
        const double green = (4.5 - std::abs(i - 5.5)) * 220;
        const double blue = (5.5 - i) * 128;
        table[static_cast<std::size_t>(i)] =
            rgb(std::max(100.0, red), std::max(100.0, green), std::max(100.0, blue));
    }
    return table;
}

void relativelevels(float floor, float ceiling, std::array<std::int16_t, 11>& levels)
{
    if (!(ceiling > floor))
        return;
    const auto low = static_cast<double>(floor);
    const auto high = static_cast<double>(ceiling);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const double level = roundtoeven((high - low) * static_cast<double>(i) / 10 + low);
        if (std::abs(level) <= std::numeric_limits<std::int16_t>::max())
            levels[i] = static_cast<std::int16_t>(level);
    }
}

void setcolors()
{
    constexpr std::size_t mark = 10; // a table whose colour 10 is 0 counts as empty
    if (colours.colortable[mark] == 0)
        loadcolors();
    if (colours.colortable[mark] == 0)
        colours.colortable = defaultcolors();
    if (colours.absolutescale == 0)
        relativelevels(mapgrid.record.minx, mapgrid.record.maxx, colours.levels);
}

void parsecolors(std::string_view text, Colours& table)
{
    table.absolutescale = -1;
    LineReader lines(text);
    bool good = readword(lines, table.absolutescale) && readword(lines, table.stratified);
    for (std::size_t i = 0; good && i < table.levels.size(); ++i)
        good = readword(lines, table.levels[i]);
    for (std::size_t i = 0; good && i < table.colortable.size(); ++i)
        good = readcolour(lines, table.colortable[i]);
    if (good)
        readword(lines, table.showlegend);
}

std::string colorstext(const Colours& table)
{
    std::string text = fmt::format("{}\r\n{}\r\n", table.absolutescale, table.stratified);
    for (const std::int16_t level : table.levels)
        text += fmt::format("{}\r\n", level);
    for (const std::int32_t colour : table.colortable)
        text += fmt::format("{:X}\r\n", static_cast<std::uint32_t>(colour));
    return text + fmt::format("{}\r\n", table.showlegend);
}

void loadcolors()
{
    constexpr std::size_t enough = 4096; // bytes; the file's 26 lines are short
    const auto path = findprogramfile(colorsfile);
    if (!path)
        return;
    if (const auto text = readfile(*path, enough))
        parsecolors(*text, colours);
}

void savecolors()
{
    writefile(userfolder() + colorsfile, colorstext(colours));
}

DrawValues drawvalues(const MapGrid& map)
{
    return drawvalues(map, map.record);
}

DrawValues drawvalues(const MapGrid& map, const MapRecord& record)
{
    DrawValues values;
    values.mode = record.Mapmode;
    values.contrast = static_cast<double>(record.con);
    values.brightness = static_cast<double>(record.bri);
    values.floor = static_cast<double>(record.minx);
    values.ceiling = static_cast<double>(record.maxx);
    if (!(values.ceiling > values.floor))
        std::tie(values.floor, values.ceiling) = samplerange(map);
    values.light = static_cast<double>(record.light);
    values.contour10 = record.c1 != 0;
    values.contour100 = (record.c2 & 1) != 0;
    values.contour500 = (record.c2 & 2) != 0;
    const double latspan = std::abs(static_cast<double>(map.maplat[0] - map.maplat[3]));
    constexpr double metres = 1000 * earthradius_km * degree; // in a degree of latitude
    values.cellsize = map.uppery() > 0 ? latspan * metres / map.uppery() : 0;
    return values;
}

ColourScale drawscale(const Colours& table, const DrawValues& values)
{
    ColourScale scale;
    scale.levels = table.levels;
    if (scale.levels.back() <= scale.levels.front()) {
        constexpr double least = 10; // m; one for each band
        const double ceiling = std::max(values.ceiling, values.floor + least);
        relativelevels(static_cast<float>(values.floor), static_cast<float>(ceiling), scale.levels);
    }
    for (std::size_t i = 0; i < table.colortable.size(); ++i) {
        scale.red[i] = static_cast<std::int16_t>(redof(table.colortable[i]));
        scale.green[i] = static_cast<std::int16_t>(greenof(table.colortable[i]));
        scale.blue[i] = static_cast<std::int16_t>(blueof(table.colortable[i]));
    }
    scale.smooth = table.stratified == 0;
    return scale;
}
