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
    truncated,  ///< it ends before its width and height, claims far more samples than it holds, or
                ///< is of the older format and ends early: nothing was taken from it
    incomplete, ///< it ends early: its frame and the heights that it holds are taken, the others
                ///< are 0
    toolarge,   ///< more samples than a map may have: nothing was taken from it
    badformat,  ///< neither the current nor the older format, or a grid without extent
    stopped     ///< the user stopped the conversion
};

/// True for the bytes of a map in the older format, which has no signature.
bool isoldermap(std::span<const std::byte> bytes);

/// Reads a map from the bytes of its file, in the current or the older format, into `map`. In the
/// current format the table is allocated, and framed by the old record, once width and height are
/// accepted; what the file does not hold of record, corners and samples stays so. Far more samples
/// than it holds are not accepted. Heights of the older format are rounded half to even and held
/// within 16 bits; what is no number counts as 0.
///   step: called once per column of the older format's conversion; false stops it
MapStatus parsemap(std::span<const std::byte> bytes, MapGrid& map,
                   const std::function<bool(int column)>& step = {});

/// The file's bytes before the samples, in the current format: signature, W, H, record, corners.
std::string mapheader(const MapGrid& map);

/// Bytes of a map's file that its reading takes, from its first `mapheadersize` bytes: the file of
/// a map may be longer. 0 for a current one without extent.
inline constexpr std::size_t mapheadersize = 96;
std::uint64_t mapbytes(std::span<const std::byte> header);

/// Reads the map at this path, or of this name beside the network or in the program's folder, into
/// the process's map. True when a whole map was read. A map of the older format also opens its
/// picture, and tells the user when it is none. What is too large or no map changes nothing; the
/// status line says so, and names a map that is incomplete. See `lastmapstatus` for the reason of a
/// failure.
bool loadmap(const std::string& path);
/// How the last `loadmap` ended.
MapStatus lastmapstatus();

/// Writes the process's map in the current format, as a whole or not at all. The status line names
/// the file, also when it could not be written; `mapdirty` then stays, and `why` receives the
/// system's reason. An incomplete map goes over its own file only after a question. True when
/// written.
bool savemap(const std::string& path, std::string* why = nullptr);
