#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

/// Folders of the tree that a test program belongs to, without a separator at the end. They are not
/// compiled in: every clone compiles the same lines.

/// Folder of the programs that were built: the parent of the one where this program lies.
inline std::string buildfolder()
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path().string();
}

/// Root of the sources: as the run of all tests says it; for a program started by hand the nearest
/// folder above it that holds the demo.
inline std::string sourcefolder()
{
    if (const char* told = std::getenv("VELMORA_SOURCE_DIR"))
        return told;
    std::filesystem::path folder = buildfolder();
    while (folder.has_relative_path() && !std::filesystem::exists(folder / "demo/cumberland.net"))
        folder = folder.parent_path();
    return folder.string();
}
