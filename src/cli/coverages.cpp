#include "base/numbers.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/renderoptions.h"
#include "coverage/choice.h"
#include "coverage/paint/coveragepicture.h"
#include "network/moveunit.h"
#include "relief/colours.h"
#include "relief/paint/drawmap.h"
#include "relief/picturesettings.h"

#include <charconv>
#include <memory>

namespace
{
/// What both coverages take.
struct SweepOptions {
    NetworkOptions network;
    RenderOptions render;
    std::optional<float> step, range, nearest;
    std::vector<float> azimuths;
    bool relief = false; ///< the map beneath in GeoTIFF and KML
};

void addoptions(CLI::App& parser, SweepOptions& options)
{
    parser.add_option("--step", options.step, "Between radials, degrees")
        ->check(CLI::Range(0.1, 10.0))
        ->type_name("D");
    parser.add_option("--range", options.range, "Farthest range, km")
        ->check(CLI::Range(0.1, 1000.0))
        ->type_name("KM");
    parser.add_option("--near", options.nearest, "Nothing is painted nearer, km")
        ->check(CLI::Range(0.0, 1000.0))
        ->type_name("KM");
    parser.add_option("--azimuths", options.azimuths, "First and last azimuth, degrees")
        ->expected(2)
        ->delimiter(',')
        ->check(CLI::Range(0.0, 360.0))
        ->type_name("MIN,MAX");
    parser.add_flag("--relief", options.relief,
                    "Put the map beneath in GeoTIFF and KML, which else are transparent where\n"
                    "nothing is painted");
    addjson(parser, options.network.json);
    addoptions(parser, options.render, false);
    addoptions(parser, options.network);
}

/// The options over the network's stored parameters.
void applyoptions(const SweepOptions& options, CoverageParams& params)
{
    params.azstep = options.step.value_or(params.azstep);
    params.rangemax = options.range.value_or(params.rangemax);
    params.rangemin = options.nearest.value_or(params.rangemin);
    if (options.azimuths.size() == 2) {
        params.azmin = options.azimuths[0];
        params.azmax = options.azimuths[1];
    }
    // Stored settings that no sweep can be made of count as the nearest usable ones.
    const CoverageParams held = heldparams(params);
    if (!(params.azstep > 0))
        params.azstep = held.azstep;
    if (!(params.rangemax > 0))
        params.rangemax = held.rangemax;
}

/// Opens network and map, and draws the map. The legend, if wanted, is the coverage's.
OpenPicture& openpicture(const std::string& file, const SweepOptions& options)
{
    checkfiles(options.render);
    prepare(options.network.common);
    startpainting();
    opennetwork(file, options.network);
    applyoptions(options.render);
    PictureSettings settings = settingsof(mapgrid, nullptr);
    settings.legend = false;
    OpenPicture& picture = *drawmap(nullptr, settings, true);
    interf = options.network.mode();
    return picture;
}

void requireonmap(const OpenPicture& picture, int unit, const std::string& text)
{
    SweepCentre centre;
    if (!sweepcentre(picture, unit, centre))
        throw Failure("station " + text, "outside the map");
}

/// Writes what is wanted of a coverage and prints its area.
void finish(const OpenPicture& picture, const PaintedLayer& layer, const SweepOptions& options,
            double area_km2)
{
    const QImage alone = options.relief ? QImage() : layer.image();
    writefiles(picture, options.render, options.relief ? nullptr : &alone);
    KeyValues output;
    output.add("area_km2", area_km2);
    printfigures(output.text(options.network.json), takesoutput(options.render));
}

/// A colour written as RRGGBB, or by name, as 0x00BBGGRR.
std::int32_t colourof(const std::string& text)
{
    if (text == "yellow")
        return 0x00FFFF;
    if (text == "cyan")
        return 0xFFFF00;
    if (text == "magenta")
        return 0xFF00FF;
    std::int32_t rgb = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, rgb, 16);
    if (text.size() != 6 || error != std::errc() || stop != end || rgb < 0)
        throw UsageError(text + " is no colour: RRGGBB, yellow, cyan or magenta");
    return (rgb & 255) << 16 | (rgb & 0xff00) | rgb >> 16;
}

struct CoverageArguments {
    std::string file, centre, mobile, net;
    std::vector<std::string> at; ///< longitude and latitude of the centre
    SweepOptions sweep;
    std::optional<float> low, high, antaz;
    std::optional<std::string> unit, pattern, surfacecolour, curvecolour;
    bool mobiletransmits = false, curve = false, nosurface = false, rainbow = false;
};

/// The levels in the unit of the parameters.
Levels levelsof(const CoverageArguments& arguments, LevelUnit unit)
{
    Levels levels = changeunit(unit, unit, Levels{});
    if (arguments.low)
        levels.low = typedlevel(unit, double{*arguments.low});
    if (arguments.high)
        levels.high = typedlevel(unit, double{*arguments.high});
    return levels;
}

void applyoptions(const CoverageArguments& arguments)
{
    CoverageParams& params = network.coverage;
    applyoptions(arguments.sweep, params);
    params.antazimuth = arguments.antaz.value_or(params.antazimuth);
    if (arguments.pattern)
        params.antfile.assign(*arguments.pattern);
    if (arguments.unit)
        params.unit = *arguments.unit == "dbm" ? 1 : *arguments.unit == "uv" ? 2 : 0;
    if (arguments.surfacecolour)
        params.surfacecolour = colourof(*arguments.surfacecolour);
    if (arguments.rainbow)
        params.surfacecolour = 0;
    if (arguments.curvecolour)
        params.curvecolour = colourof(*arguments.curvecolour);
    if (arguments.curve)
        params.drawcurve = -1;
    if (arguments.rainbow || arguments.surfacecolour)
        params.drawsurface = -1;
    if (arguments.nosurface)
        params.drawsurface = 0;
    coveragechoice = {};
    coveragechoice.covdir = arguments.mobiletransmits ? 1 : 0;
    coveragechoice.covrainbow = params.surfacecolour == 0;
    coveragechoice.levels = levelsof(arguments, levelunit(params.unit));
    rainbowlevel = signallevels(levelunit(params.unit), coveragechoice.levels);
}

void runcoverage(const CoverageArguments& arguments)
{
    OpenPicture& picture = openpicture(arguments.file, arguments.sweep);
    const int centre = stationslot(arguments.centre);
    const int mobile = stationslot(arguments.mobile);
    const int net = netslot(arguments.net);
    if (net == 0)
        throw Failure("net 0", "a coverage needs a net");
    if (centre == mobile)
        throw Failure("station " + arguments.centre, "centre and mobile are the same");
    if (!arguments.at.empty())
        placeunit(centre, longitude("--at LON", arguments.at[0]),
                  latitude("--at LAT", arguments.at[1]));
    requireonmap(picture, centre, arguments.centre);
    applyoptions(arguments);
    selection.linkunit1 = static_cast<std::int16_t>(centre);
    selection.linkunit2 = static_cast<std::int16_t>(mobile);
    selection.linknet = static_cast<std::int16_t>(net);
    PaintedLayer layer;
    layer.begin(picture.surface.width(), picture.surface.height());
    const double area_km2 =
        drawcoverage(picture, coverageorder(network.coverage, coveragechoice, selection), &layer);
    finish(picture, layer, arguments.sweep, area_km2);
}

struct ViewshedArguments {
    std::string file, unit;
    SweepOptions sweep;
    std::optional<float> sensor, target;
    std::optional<std::string> colour;
    std::string radar;
    bool fixed = false;
};

void runviewshed(const ViewshedArguments& arguments)
{
    OpenPicture& picture = openpicture(arguments.file, arguments.sweep);
    const int unit = stationslot(arguments.unit);
    requireonmap(picture, unit, arguments.unit);
    CoverageParams& params = network.coverage;
    applyoptions(arguments.sweep, params);
    params.sensorheight = arguments.sensor.value_or(params.sensorheight);
    params.targetheight = arguments.target.value_or(params.targetheight);
    if (arguments.colour)
        params.visualcolour = colourof(*arguments.colour);
    else if (params.visualcolour == 0)
        params.visualcolour = colourof("yellow");
    ViewOrder order = vieworder(params, arguments.fixed ? 0 : -1);
    if (!arguments.radar.empty()) {
        order.radar = readradar(arguments.radar);
        if (!order.radar)
            throw Failure(arguments.radar, "no radar file, or an incomplete one");
    }
    PaintedLayer layer;
    layer.begin(picture.surface.width(), picture.surface.height());
    const double area_km2 = drawviewshed(picture, order, unit, params.visualcolour, &layer);
    finish(picture, layer, arguments.sweep, area_km2);
}

void addlevels(CLI::App& parser, CoverageArguments& arguments)
{
    parser.add_option("--unit", arguments.unit, "Of the levels: s-unit, dbm or uv")
        ->transform(CLI::CheckedTransformer(std::map<std::string, std::string>{{"s-unit", "s-unit"},
                                                                               {"s", "s-unit"},
                                                                               {"0", "s-unit"},
                                                                               {"dbm", "dbm"},
                                                                               {"1", "dbm"},
                                                                               {"uv", "uv"},
                                                                               {"µv", "uv"},
                                                                               {"2", "uv"}},
                                            CLI::ignore_case))
        ->type_name("U");
    parser.add_option("--low", arguments.low, "First level, of contour and surface")
        ->type_name("L");
    parser.add_option("--high", arguments.high, "Second level, of the surface")->type_name("L");
}
} // namespace

std::function<void()> setupcoverage(CLI::App& parser)
{
    auto arguments = std::make_shared<CoverageArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    parser.add_option("CENTRE", arguments->centre, "Central station, by number or name")
        ->required();
    parser.add_option("MOBILE", arguments->mobile, "Mobile station")->required();
    parser.add_option("N", arguments->net, "Net, by number or name")->required();
    parser.add_option("--at", arguments->at, "Put the central station here, on the ground")
        ->expected(2)
        ->type_name("LON LAT");
    addlevels(parser, *arguments);
    parser.add_option("--pattern", arguments->pattern, "Antenna pattern of the program's folder")
        ->type_name("FILE.ant");
    parser.add_option("--pattern-azimuth", arguments->antaz, "Where its 0 points, degrees")
        ->check(CLI::Range(0.0, 360.0))
        ->type_name("A");
    parser.add_flag("--mobile-tx", arguments->mobiletransmits, "The mobile transmits");
    parser.add_flag("--curve", arguments->curve, "Draw the contour of the first level");
    parser.add_flag("--no-surface", arguments->nosurface, "Don't paint the area");
    parser.add_flag("--rainbow", arguments->rainbow, "Paint in twelve colours");
    parser.add_option("--surface-colour", arguments->surfacecolour, "Of a plain surface")
        ->type_name("RRGGBB");
    parser.add_option("--curve-colour", arguments->curvecolour, "Of the contour")
        ->type_name("RRGGBB");
    addoptions(parser, arguments->sweep);
    parser.footer(
        "Draws the map, paints the coverage over it, writes the picture with its sidecar if\n"
        "-o names one, and prints area_km2. What has no option is taken from the network's stored\n"
        "coverage settings and from the map.");
    return [arguments] { runcoverage(*arguments); };
}

std::function<void()> setupviewshed(CLI::App& parser)
{
    auto arguments = std::make_shared<ViewshedArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    parser.add_option("UNIT", arguments->unit, "Observing station, by number or name")->required();
    parser.add_option("--sensor", arguments->sensor, "Sensor above the ground, m")
        ->check(CLI::Range(0.1, 9999.0))
        ->type_name("H");
    parser.add_option("--target", arguments->target, "Target above the ground or the sea, m")
        ->check(CLI::Range(0.1, 9999.0))
        ->type_name("H");
    parser.add_flag("--fixed", arguments->fixed, "The target's height counts from the sea");
    parser.add_option("--radar", arguments->radar, "Radar file of the program's folder")
        ->type_name("FILE.rad");
    parser.add_option("--colour", arguments->colour, "yellow, cyan, magenta or RRGGBB")
        ->type_name("C");
    addoptions(parser, arguments->sweep);
    parser.footer("Draws the map, paints what can be seen over it, writes the picture with its\n"
                  "sidecar if -o names one, and prints area_km2. What has no option is taken from "
                  "the network's\n"
                  "stored coverage settings and from the map.");
    return [arguments] { runviewshed(*arguments); };
}
