#pragma once

#include "terrain/mapgrid.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>

/// How the reading of a .map file ended.
enum class MapStatus {
    ok,
    unreadable, ///< the file cannot be opened or read
    truncated,  ///< it ends early, or claims more samples than it holds
    badformat,  ///< neither the current nor the older format
    stopped     ///< the user stopped the conversion
};

/// Reads a map from the bytes of its file, in the current or the older format, into `map`. What
/// cannot be read leaves its target as it was. The samples are allocated only when the file holds
/// them all.
///   step: called once per column of the older format's conversion; false stops it
///   older: receives true when the file is in the older format
MapStatus parsemap(std::span<const std::byte> bytes, MapGrid& map, bool& older,
                   const std::function<bool(int column)>& step = {});

/// The file's bytes before the samples, in the current format: signature, W, H, record, corners.
std::string mapheader(const MapGrid& map);

/// Reads the map at this path, or of this name beside the network or in the program's folder, into
/// the process's map. True when a map was read. See `lastmapstatus` for the reason.
bool loadmap(const std::string& path);
/// How the last `loadmap` that found a file ended.
MapStatus lastmapstatus();

/// Writes the process's map in the current format, as a whole or not at all. No message; `mapdirty`
/// stays on an error. True when written.
bool savemap(const std::string& path);
