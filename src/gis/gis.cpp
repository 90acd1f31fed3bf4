#include "gis/gis.h"

#include <dlfcn.h>
#include <filesystem>
#include <system_error>

static constexpr const char* modulename = "libvelmora_gis.so";

/// Where the module may stand: as built, as installed, beside the program.
static const GisLibrary* load()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path beside = program.parent_path();
    for (const auto& folder : {beside / VELMORA_LIBRARY_FOLDER, beside / "../lib", beside}) {
        void* const module = dlopen((folder / modulename).c_str(), RTLD_NOW | RTLD_LOCAL);
        void* const entry = module != nullptr ? dlsym(module, gisentry) : nullptr;
        if (entry != nullptr)
            return reinterpret_cast<const GisLibrary* (*)()>(entry)();
    }
    return nullptr;
}

const GisLibrary* gislibrary()
{
    static const GisLibrary* const library = load();
    return library;
}
