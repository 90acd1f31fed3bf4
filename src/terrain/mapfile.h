#pragma once

#include "terrain/mapgrid.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>

/// How the reading of a .map file ended.
enum class MapStatus {
    ok,
    unreadable, ///< no such file, another extension, or it cannot be opened or read
    truncated,  ///< it ends early, or claims more samples than it holds
    badformat,  ///< neither the current nor the older format, or a grid without extent
    stopped     ///< the user stopped the conversion
};

/// True for the bytes of a map in the older format, which has no signature.
bool isoldermap(std::span<const std::byte> bytes);

/// Reads a map from the bytes of its file, in the current or the older format, into `map`. What
/// cannot be read leaves its target as it was. The samples are allocated only when the file holds
/// them all. Heights of the older format are rounded half to even and held within 16 bits; what is
/// no number counts as 0.
///   step: called once per column of the older format's conversion; false stops it
MapStatus parsemap(std::span<const std::byte> bytes, MapGrid& map,
                   const std::function<bool(int column)>& step = {});

/// The file's bytes before the samples, in the current format: signature, W, H, record, corners.
std::string mapheader(const MapGrid& map);

/// Reads the map at this path, or of this name beside the network or in the program's folder, into
/// the process's map. True when a map was read. A map of the older format also opens its picture,
/// and tells the user when it is none. See `lastmapstatus` for the reason of a failure.
bool loadmap(const std::string& path);
/// How the last `loadmap` ended.
MapStatus lastmapstatus();

/// Writes the process's map in the current format, as a whole or not at all. No message; `mapdirty`
/// stays on an error, and `why` receives the system's reason. True when written.
bool savemap(const std::string& path, std::string* why = nullptr);
