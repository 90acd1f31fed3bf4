#include "base/numbers.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/output.h"
#include "coordinates/mgrs.h"
#include "coordinates/positiontexts.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fmt/format.h>
#include <memory>
#include <regex>
#include <string>
#include <vector>

namespace
{
struct WhereArguments {
    std::string lon;
    std::string lat;
    bool json = false;
    CommonOptions options;
};

void runwhere(const WhereArguments& arguments)
{
    const float lon = longitude("LON", arguments.lon);
    const float lat = latitude("LAT", arguments.lat);
    prepare(arguments.options);
    // The text forms normalise what they are given: each gets the position anew.
    float shownlon = lon;
    float shownlat = lat;
    const UtmPosition utm = ll2utm(double{lon}, double{lat}, geosys);
    KeyValues output;
    output.add("dms", dmslon(shownlon) + " " + dmslat(shownlat));
    output.add("locator", locator(lon, lat));
    output.add("mgrs", ll2mgrs(double{lon}, double{lat}));
    output.add("utm", fmt::format("{} {} {}", utm.zone, utm.easting, utm.northing));
    printresult(output.text(arguments.json));
}

struct ParseArguments {
    std::string text;
    bool json = false;
    CommonOptions options;
};

/// Two letters A to R, two digits, two letters A to X; the last, or the last two of these may be
/// missing.
bool islocator(const std::string& text)
{
    constexpr std::array<std::pair<char, char>, 6> ranges{
        {{'a', 'r'}, {'a', 'r'}, {'0', '9'}, {'0', '9'}, {'a', 'x'}, {'a', 'x'}}};
    const std::string small = lowercase(text);
    if (small.empty() || small.size() > ranges.size() || small.size() % 2 != 0)
        return false;
    for (std::size_t i = 0; i < small.size(); ++i)
        if (small[i] < ranges.at(i).first || small[i] > ranges.at(i).second)
            return false;
    return true;
}

/// Zone, band, square, and an even number of digits; blanks may stand between.
bool isreference(const std::string& text)
{
    static const std::regex shape("[0-9]{1,2} *[a-z] *[a-z]{2} *([0-9 ]*)");
    std::smatch parts;
    const std::string small = lowercase(text);
    if (!std::regex_match(small, parts, shape))
        return false;
    const std::string digits = parts[1];
    return (digits.size() -
            static_cast<std::size_t>(std::count(digits.begin(), digits.end(), ' '))) %
               2 ==
           0;
}

void runparse(const ParseArguments& arguments)
{
    prepare(arguments.options);
    const std::string text = trimmed(arguments.text);
    float lon = 0;
    float lat = 0;
    if (!text.empty() && std::isdigit(static_cast<unsigned char>(text.front())) != 0) {
        if (!isreference(text) || !mgrs2ll(text, lon, lat))
            throw Failure(text, "not an MGRS reference");
    } else {
        if (!islocator(text))
            throw Failure(text, "neither a locator nor an MGRS reference");
        locator2ll(text, lon, lat);
    }
    KeyValues output;
    output.add("lon", lon);
    output.add("lat", lat);
    printresult(output.text(arguments.json));
}

struct ElevationArguments {
    std::string map;
    std::vector<std::string> positions; ///< longitude, latitude, longitude ...
    bool json = false;
    CommonOptions options;
};

void runelevation(const ElevationArguments& arguments)
{
    std::vector<float> degrees;
    for (std::size_t i = 0; i < arguments.positions.size(); ++i)
        degrees.push_back(i % 2 == 0 ? longitude("LON", arguments.positions[i])
                                     : latitude("LAT", arguments.positions[i]));
    if (degrees.size() % 2 != 0)
        throw UsageError("positions are pairs of LON and LAT");
    prepare(arguments.options);
    openmap(arguments.map);
    NumberTable table({"lon", "lat", "x", "y", "elevation"});
    for (std::size_t i = 0; i < degrees.size(); i += 2) {
        float x = 0;
        float y = 0;
        float elevation = 0;
        const bool inside = maplookup(degrees[i], degrees[i + 1], x, y, elevation);
        table.add({cell(degrees[i]), cell(degrees[i + 1]), cell(x), cell(y),
                   inside ? cell(elevation) : std::string()});
    }
    printresult(table.text(arguments.json));
}
} // namespace

std::function<void()> setupwhere(CLI::App& parser)
{
    auto arguments = std::make_shared<WhereArguments>();
    parser.add_option("LON", arguments->lon, "Longitude in degrees, east positive")->required();
    parser.add_option("LAT", arguments->lat, "Latitude in degrees, north positive")->required();
    addjson(parser, arguments->json);
    addoptions(parser, arguments->options);
    parser.footer("Prints dms=, locator=, mgrs= and utm= (zone, easting, signed northing in m).");
    return [arguments] { runwhere(*arguments); };
}

std::function<void()> setupparse(CLI::App& parser)
{
    auto arguments = std::make_shared<ParseArguments>();
    parser
        .add_option("TEXT", arguments->text,
                    "An MGRS reference (it begins with a digit) or a locator")
        ->required();
    addjson(parser, arguments->json);
    addoptions(parser, arguments->options);
    parser.footer("Prints lon= and lat= in degrees.");
    return [arguments] { runparse(*arguments); };
}

std::function<void()> setupelevation(CLI::App& parser)
{
    auto arguments = std::make_shared<ElevationArguments>();
    parser.add_option("MAP", arguments->map, "Map file")->required();
    parser.add_option("POSITIONS", arguments->positions, "LON LAT in degrees, and so on")
        ->type_name("LON LAT ...")
        ->required();
    addjson(parser, arguments->json);
    addoptions(parser, arguments->options);
    parser.footer(
        "Prints CSV: lon,lat,x,y,elevation, a row per position; x and y count cells from\n"
        "the south-west corner, and the elevation is empty outside the map.");
    return [arguments] { runelevation(*arguments); };
}
