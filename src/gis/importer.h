#pragma once

#include "gis/rasters.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Rasters to be turned into DTED cells. The library that reads them stays behind this interface;
/// the cells' files are found and written by the caller.
struct ImportOrder {
    std::vector<std::string> files;
    int band = 0;     ///< of heights, from 1; 0: the first, and it is said if there are more
    std::string unit; ///< of heights, by any name; empty: the raster's own
    std::string crs;  ///< coordinate system; empty: the raster's own
    std::optional<GeoBox> bounds; ///< what lies outside is not taken
    bool ignoremissing = false;   ///< no heights at all is no failure

    /// The path of an existing cell, given its name below the folder; empty where there is none.
    std::function<std::optional<std::string>(const std::string& name)> find;
    /// Writes a cell as a whole. False ends the import.
    std::function<bool(const std::string& name, std::string_view bytes)> write;
    /// Receives the share done, 0 to 1.
    std::function<void(double share)> progress;
    /// Receives what the user should know: the file or cell, and a sentence on it.
    std::function<void(const std::string& what, const std::string& sentence)> say;
};

struct ImportResult {
    std::vector<std::string> cells; ///< written, by their names below the folder
    std::string what;               ///< what failed; empty when nothing did
    std::string why;
};

// `importrasters` turns rasters into cells of one degree in WGS 84: level 2 where a raster is finer
// than 2 arc seconds, else level 1. Samples are bilinear between the raster's, in whole metres;
// voids stay voids, and heights outside -500 m to 9000 m count as voids. Finer rasters lie over
// coarser ones, later over earlier, and all of them over what a cell already holds. Neighbouring
// cells share their edge lines: one that no raster of this run covers is taken from the neighbour's
// cell, and existing neighbours get theirs from the new cells. A cell that a raster only touches at
// its edge is brought up to date where it exists, and not made.
