#pragma once

#include "engine/tiles/tile.h"

#include <functional>
#include <string>

/// The map's frame as a pass over an elevation source sees it.
struct PassFrame {
    double west = 0, east = 0;   ///< degrees, not wrapped
    double south = 0, north = 0; ///< degrees
    double columns = 0;          ///< table columns per degree of longitude
    double rows = 0;             ///< table rows per degree of latitude

    /// False for a map without an extent; no tile then falls on it.
    bool usable() const { return columns > 0 && rows > 0; }
    /// Table column of a longitude, table row of a latitude, with their fractions.
    double column(double lon) const { return (lon - west) * columns; }
    double row(double lat) const { return (lat - south) * rows; }
};

/// Places the frame of the process's map.
PassFrame passframe();

/// The table of the process's map.
HeightTable passtable();

/// Whole degrees of the cells that a frame touches, and their number.
struct CellRange {
    int west, east, south, north;
    int count;
};
CellRange cellrange(const PassFrame& frame);

/// A longitude in whole degrees brought into -180 .. 179.
int wrapdegrees(int lon);

/// Root of a source's tree, from `session.drvpath`: a single letter is a drive.
///   index   0 DTED, 1 GTOPO30, 2 TERRAIN
std::string sourceroot(std::size_t index);

/// Tries to read a tile until it is there, the user gives it up, or the pass is stopped.
///   name   of the source, as the question has it
///   path   of the tile, as the question has it (in lower case)
///   read   true when the tile is read; also when a stop kept it from it
void readtile(const std::string& name, const std::string& path, const std::function<bool()>& read);

/// The map's statistics, unless the pass was stopped, and its end. True unless stopped.
bool endpass();
