#include "terrain/build.h"

#include "base/numbers.h"
#include "base/session.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/output.h"
#include "terrain/extraction.h"
#include "terrain/mapfile.h"

#include <array>
#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <span>
#include <system_error>

namespace
{
// Sides of a map, pixels; far beyond what the windows offer.
constexpr int leastpixels = 2;
constexpr int mostpixels = 20000;
constexpr float mostsize_km = 19900;

struct BuildArguments {
    std::string map;
    std::array<std::string, 2> center;
    float size_km = 0;
    std::array<int, 2> pixels{};
    std::array<std::string, 3> roots; ///< in the order of `session.drvpath`; empty: not used
    bool ignoremissing = false;
    bool json = false;
    CommonOptions common;
};

MapOrder maporder(const BuildArguments& arguments)
{
    MapOrder order;
    order.record.maplon0 = coordinate("LON", arguments.center[0]);
    order.record.maplat0 = coordinate("LAT", arguments.center[1]);
    if (!(order.record.maplon0 >= -180 && order.record.maplon0 <= 180))
        throw UsageError("--center: LON must lie between -180 and 180");
    if (!(order.record.maplat0 >= -89 && order.record.maplat0 <= 89))
        throw UsageError("--center: LAT must lie between -89 and 89");
    order.record.mapsize = arguments.size_km;
    order.width = arguments.pixels[0];
    order.height = arguments.pixels[1];
    order.ignoremissing = arguments.ignoremissing;
    for (std::size_t i = 0; i < arguments.roots.size(); ++i)
        if (!arguments.roots.at(i).empty())
            order.record.sources |= static_cast<std::uint8_t>(1U << i);
    if (order.record.sources == 0)
        throw UsageError("give at least one of --terrain, --gtopo30 and --dted");
    return order;
}

/// The folders as the passes take them. One that is not there is a slip, not a missing tile.
void placeroots(const std::array<std::string, 3>& roots)
{
    for (std::size_t i = 0; i < roots.size(); ++i) {
        const std::string& root = roots.at(i);
        if (root.empty())
            continue;
        std::error_code error;
        if (!std::filesystem::is_directory(root, error))
            throw Failure(root, "no such folder");
        session.drvpath.at(i) = std::filesystem::absolute(root, error).string();
    }
}

std::string sentence(const TileLack& lack)
{
    const auto percent = fmt::format("{:.3g} %", lack.share * 100);
    switch (lack.kind) {
    case TileLack::Kind::missing:
        return "missing (" + percent + " of the map)";
    case TileLack::Kind::damaged:
        return "damaged (" + percent + " of the map)";
    case TileLack::Kind::voids:
        break;
    }
    return percent + " of what the map takes of it is void";
}

/// Tells what the tiles lacked. Without leave, a map with a hole where a tile should be is no
/// result, nor is one without any height.
void judge(const BuildReport& report, const BuildArguments& arguments)
{
    const bool refused = report.lacking() > 0 && !arguments.ignoremissing;
    if (refused && report.lacks.size() == 1)
        throw Failure(report.lacks[0].name,
                      sentence(report.lacks[0]) + "; --ignore-missing passes over it");
    for (const TileLack& lack : report.lacks)
        remark(lack.name, sentence(lack));
    if (refused)
        throw Failure(arguments.map, fmt::format("{} tiles missing or damaged; --ignore-missing "
                                                 "passes over them",
                                                 report.lacking()));
    if (report.filled == 0 && !arguments.ignoremissing)
        throw Failure(arguments.map, "no height anywhere on it; --ignore-missing writes it "
                                     "nevertheless");
}

/// The map as its file, on standard output.
void printmap()
{
    const auto samples = std::as_bytes(std::span(mapgrid.samples));
    printresult(mapheader(mapgrid));
    printresult({reinterpret_cast<const char*>(samples.data()), samples.size()});
}

void runbuild(const BuildArguments& arguments)
{
    const bool tostream = arguments.map == standardstream;
    if (!tostream && filekind(arguments.map) != FileKind::mapfile)
        throw UsageError("-o: " + arguments.map + " must end in .map");
    const MapOrder order = maporder(arguments);
    prepare(arguments.common);
    placeroots(arguments.roots);
    BuildReport report;
    buildmap(order, &report); // the questions about tiles are answered by going on
    judge(report, arguments);
    if (tostream)
        printmap();
    else if (!savemap(arguments.map))
        throw Failure(arguments.map, "cannot be written");
    KeyValues output;
    output.add("hmin", mapgrid.record.hmin);
    output.add("hmax", mapgrid.record.hmax);
    output.add("hmoy", mapgrid.record.hmoy);
    printfigures(output.text(arguments.json), tostream);
}
} // namespace

std::function<void()> setupbuild(CLI::App& parser)
{
    auto arguments = std::make_shared<BuildArguments>();
    parser.add_option("-o,--output", arguments->map, "Map file to write")
        ->type_name("MAP")
        ->required();
    parser.add_option("--center", arguments->center, "Centre of the map in degrees")
        ->type_name("LON LAT")
        ->required();
    parser.add_option("--size", arguments->size_km, "Extent from south to north, km")
        ->check(CLI::Range(0.5F, mostsize_km))
        ->type_name("KM")
        ->required();
    parser.add_option("--pixels", arguments->pixels, "Columns and rows")
        ->check(CLI::Range(leastpixels, mostpixels))
        ->type_name("W H")
        ->required();
    parser.add_option("--terrain", arguments->roots[2], "Folder in which terrain/ stands")
        ->type_name("DIR");
    parser.add_option("--gtopo30", arguments->roots[1], "Folder in which W020N90/ and so on stand")
        ->type_name("DIR");
    parser.add_option("--dted", arguments->roots[0], "Folder in which DTED/ stands")
        ->type_name("DIR");
    parser.add_flag("--ignore-missing", arguments->ignoremissing,
                    "Pass over tiles that are not there");
    addjson(parser, arguments->json);
    addoptions(parser, arguments->common);
    parser.footer("TERRAIN, GTOPO30 and DTED are laid one over the other in this order.\n"
                  "Tiles that are missing, damaged or partly void are named on standard error.\n"
                  "Prints hmin=, hmax= and hmoy=, the lowest, highest and mean height in m; on\n"
                  "standard error if the map itself goes to standard output (-o -).");
    return [arguments] { runbuild(*arguments); };
}
