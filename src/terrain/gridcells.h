#pragma once

#include "terrain/mapgrid.h"

#include <array>
#include <string>

/// Cells along each side of the elevation grid.
inline constexpr int gridside = 5;
inline constexpr std::size_t gridcells = 25;

/// Elevations around a cell of a map, row by row from the north-west; "-" for cells that the map
/// does not have.
std::array<std::string, gridcells> gridtexts(const MapGrid& map, int x, int y);

/// Longitude of a column of a map, and latitude of a row, degrees: linear between its edges, also
/// beyond them.
float columnlon(const MapGrid& map, int x);
float rowlat(const MapGrid& map, int y);
