#pragma once

#include "engine/tiles/tile.h"
#include "terrain/extraction.h"

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
    /// Share of the map that a tile covers, 0 to 1.
    ///   left, bottom   its south-west corner, degrees, not wrapped
    double share(double left, double bottom, double width, double height) const;
};

/// Places the frame of the process's map.
PassFrame passframe();

/// The table of the process's map.
///   tally   counts what tiles do to it
HeightTable passtable(TileTally& tally);

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

/// How an attempt to read a tile ended.
enum class TileRead {
    done, ///< read; also when a stop kept it from it
    missing,
    damaged
};

/// A tile as a pass asks for it.
struct WantedTile {
    const char* source; ///< as the question has it
    std::string path;   ///< as the question has it (in lower case)
    std::string name;   ///< as the report has it
    double share;       ///< of the map that it covers
};

/// An attempt at a tile. It may put the path of a damaged file in the place of the tile's name.
using TileAttempt = std::function<TileRead(TileTally& tally, std::string& name)>;

/// Tries to read a tile until it is there, the user gives it up, or the pass is stopped.
void readtile(const WantedTile& tile, const TileAttempt& attempt, BuildReport* report);

/// The map's statistics, unless the pass was stopped, and its end. True unless stopped.
bool endpass();
