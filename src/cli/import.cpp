#include "base/hooks.h"
#include "base/paths.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/output.h"
#include "gis/gis.h"

#include <cmath>
#include <filesystem>
#include <memory>
#include <system_error>

namespace
{
struct ImportArguments {
    std::string folder;
    std::vector<std::string> files;
    std::string unit, crs;
    std::vector<std::string> bounds; ///< west, south, east, north
    int band = 0;
    bool ignoremissing = false;
    bool json = false;
    CommonOptions common;
};

GeoBox boundsof(const std::vector<std::string>& degrees)
{
    GeoBox box;
    box.west = double{longitude("--bounds W", degrees[0])};
    box.south = double{latitude("--bounds S", degrees[1])};
    box.east = double{longitude("--bounds E", degrees[2])};
    box.north = double{latitude("--bounds N", degrees[3])};
    if (box.east < box.west)
        box.east += 360; // across 180 degrees
    if (!(box.south < box.north) || !(box.west < box.east))
        throw UsageError("--bounds: no extent between south and north or west and east");
    return box;
}

/// Where cells are found and written, and what is said meanwhile.
void connect(ImportOrder& order, const std::string& root, std::string& why)
{
    order.find = [&root](const std::string& name) { return findfile(root + name); };
    order.write = [&root, &why](const std::string& name, std::string_view bytes) {
        const std::string path = targetpath(root + name);
        std::error_code error;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
        return writefile(path, bytes, &why);
    };
    order.say = [](const std::string& what, const std::string& sentence) {
        hooks.setprogress(0);
        remark(what, sentence);
    };
    order.progress = [shown = 0](double share) mutable {
        const int percent = static_cast<int>(std::lround(share * 100));
        if (percent > shown)
            hooks.setprogress(shown = percent);
    };
}

void runimport(const ImportArguments& arguments)
{
    ImportOrder order;
    order.band = arguments.band;
    order.unit = arguments.unit;
    order.crs = arguments.crs;
    order.ignoremissing = arguments.ignoremissing;
    if (!arguments.bounds.empty())
        order.bounds = boundsof(arguments.bounds);
    prepare(arguments.common);
    for (const std::string& file : arguments.files)
        order.files.push_back(findfile(file).value_or(file));
    const std::string root = arguments.folder + "/";
    std::string why;
    connect(order, root, why);

    const GisLibrary* const gis = gislibrary();
    if (gis == nullptr)
        throw Failure("import", nogislibrary);
    ImportResult result;
    gis->importrasters(order, result);
    hooks.setprogress(0);
    if (!result.what.empty())
        throw Failure(result.what, why.empty() ? result.why : why);
    KeyValues output;
    output.addlist("cell", result.cells);
    printresult(output.text(arguments.json));
}
} // namespace

std::function<void()> setupimport(CLI::App& parser)
{
    auto arguments = std::make_shared<ImportArguments>();
    parser.add_option("-o,--output", arguments->folder, "Folder in which DTED/ is to stand")
        ->type_name("OUTDIR")
        ->required();
    parser
        .add_option("FILE", arguments->files,
                    "Rasters of elevations with a georeference: .hgt, GeoTIFF, ...")
        ->type_name("FILE...")
        ->required();
    parser.add_option("--band", arguments->band, "Band of the heights, from 1")
        ->check(CLI::Range(1, 65535))
        ->type_name("N");
    parser
        .add_option("--unit", arguments->unit, "Unit of the heights: m, ft, us-ft, cm, dm, km ...")
        ->type_name("U");
    parser.add_option("--crs", arguments->crs, "Coordinate system of rasters that name none")
        ->type_name("EPSG:N");
    parser.add_option("--bounds", arguments->bounds, "Take only what lies within, degrees")
        ->expected(4)
        ->type_name("W S E N");
    parser.add_flag("--ignore-missing", arguments->ignoremissing,
                    "Rasters without any height are no failure");
    addjson(parser, arguments->json);
    addoptions(parser, arguments->common);
    parser.footer(
        "Writes one DTED cell per degree, level 2 where a raster is finer than 2 arc seconds,\n"
        "else level 1, over the cells that are there. Then \"build --dted OUTDIR\" uses them.\n"
        "Neighbouring tiles may come in one run or in several, in any order. Heights below\n"
        "-500 m or above 9000 m count as voids.\n"
        "Prints cell=, the name of each cell written; on standard error, cells with voids.");
    return [arguments] { runimport(*arguments); };
}
