#include "terrain/build.h"

#include "base/hooks.h"
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
#include <memory>
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

void runbuild(const BuildArguments& arguments)
{
    if (filekind(arguments.map) != FileKind::mapfile)
        throw UsageError("-o: " + arguments.map + " must end in .map");
    const MapOrder order = maporder(arguments);
    prepare(arguments.common);
    placeroots(arguments.roots);

    std::string missing; // the question about the tile that ended the build
    hooks.askuser = [&missing](const Question& question) {
        missing = question.text;
        return Answer::abort;
    };
    if (!buildmap(order)) {
        const std::size_t name = missing.find('\n') + 1;
        throw Failure(missing.substr(name),
                      "tile missing or damaged; --ignore-missing passes over it");
    }
    if (!savemap(arguments.map))
        throw Failure(arguments.map, "cannot be written");
    KeyValues output;
    output.add("hmin", mapgrid.record.hmin);
    output.add("hmax", mapgrid.record.hmax);
    output.add("hmoy", mapgrid.record.hmoy);
    printresult(output.text());
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
    addoptions(parser, arguments->common);
    parser.footer("TERRAIN, GTOPO30 and DTED are laid one over the other in this order.\n"
                  "Prints hmin=, hmax= and hmoy=, the lowest, highest and mean height in m.");
    return [arguments] { runbuild(*arguments); };
}
