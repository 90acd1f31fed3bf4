#pragma once

#include "terrain/mapgrid.h"

#include <array>
#include <string>

/// The map record under edit: what the map's properties show before they are applied, and where a
/// place that was picked for them is put.
extern MapRecord mapedit;

/// Corners of a map, in the order of `MapGrid`: north-west, north-east, south-east, south-west.
struct MapCorners {
    std::array<float, 4> lon{}; ///< degrees
    std::array<float, 4> lat{}; ///< degrees
};

/// Extent from west to east of a map of square cells, km.
double mapwidth_km(const MapRecord& record, int width, int height);

/// Corners of the map that a record and a number of pixels would give. A size below 1 km counts as
/// 1 km.
MapCorners mapcorners(const MapRecord& record, int width, int height);

/// The corners as four blocks of title, longitude and latitude, with empty lines between them.
std::string cornerstext(const MapCorners& corners);
