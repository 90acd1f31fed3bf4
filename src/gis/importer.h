#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Rasters to be turned into DTED cells. The library that reads them stays behind this interface;
/// the cells' files are found and written by the caller.
struct ImportOrder {
    std::vector<std::string> files;
    /// The path of an existing cell, given its name below the folder; empty where there is none.
    std::function<std::optional<std::string>(const std::string& name)> find;
    /// Writes a cell as a whole. False ends the import.
    std::function<bool(const std::string& name, std::string_view bytes)> write;
    /// Receives the share done, 0 to 1.
    std::function<void(double share)> progress;
};

struct ImportResult {
    std::vector<std::string> cells; ///< written, by their names below the folder
    std::string what;               ///< what failed; empty when nothing did
    std::string why;
};

/// Turns rasters into cells of one degree in WGS 84: level 2 where a raster is finer than 2 arc
/// seconds, else level 1. Samples are bilinear between the raster's, in whole metres; voids stay
/// voids. Finer rasters lie over coarser ones, later over earlier, and all of them over what a cell
/// already holds. A cell that a raster only touches at its edge is brought up to date where it
/// exists, and not made.
extern "C" void importrasters(const ImportOrder& order, ImportResult& result);
using ImportProcedure = void (*)(const ImportOrder& order, ImportResult& result);

/// Names under which the program loads it.
inline constexpr const char* importlibrary = "libvelmora_gis.so";
inline constexpr const char* importprocedure = "importrasters";
