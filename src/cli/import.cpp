#include "base/hooks.h"
#include "base/paths.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/options.h"
#include "cli/output.h"
#include "gis/importer.h"

#include <cmath>
#include <dlfcn.h>
#include <filesystem>
#include <memory>
#include <system_error>

namespace
{
struct ImportArguments {
    std::string folder;
    std::vector<std::string> files;
    CommonOptions common;
};

/// The procedure behind the command, loaded when it is needed. It stays loaded.
ImportProcedure loadimporter()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path beside = program.parent_path();
    for (const auto& folder : {beside / "../lib", beside}) {
        void* const library = dlopen((folder / importlibrary).c_str(), RTLD_NOW | RTLD_LOCAL);
        void* const symbol = library != nullptr ? dlsym(library, importprocedure) : nullptr;
        if (symbol != nullptr)
            return reinterpret_cast<ImportProcedure>(symbol);
    }
    throw Failure("import", std::string("cannot load ") + importlibrary +
                                "; this program was built without it");
}

void runimport(const ImportArguments& arguments)
{
    prepare(arguments.common);
    ImportOrder order;
    for (const std::string& file : arguments.files)
        order.files.push_back(findfile(file).value_or(file));
    const std::string root = arguments.folder + "/";
    order.find = [&root](const std::string& name) { return findfile(root + name); };
    std::string why;
    order.write = [&](const std::string& name, std::string_view bytes) {
        const std::string path = targetpath(root + name);
        std::error_code error;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
        return writefile(path, bytes, &why);
    };
    int shown = 0;
    order.progress = [&shown](double share) {
        const int percent = static_cast<int>(std::lround(share * 100));
        if (percent > shown)
            hooks.setprogress(shown = percent);
    };

    ImportResult result;
    loadimporter()(order, result);
    hooks.setprogress(0);
    if (!result.what.empty())
        throw Failure(result.what, why.empty() ? result.why : why);
    KeyValues output;
    for (const std::string& cell : result.cells)
        output.add("cell", cell);
    printresult(output.text());
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
    addoptions(parser, arguments->common);
    parser.footer(
        "Writes one DTED cell per degree, level 2 where a raster is finer than 2 arc seconds,\n"
        "else level 1, over the cells that are there. Then \"build --dted OUTDIR\" uses them.\n"
        "Prints cell=, the name of each cell written.");
    return [arguments] { runimport(*arguments); };
}
