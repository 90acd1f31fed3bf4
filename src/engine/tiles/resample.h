#pragma once

#include "engine/tiles/tile.h"

#include <span>
#include <vector>

/// Where one line of the table falls between two neighbouring lines of a tile.
struct AxisPoint {
    int below;    ///< tile line at or below the position; its neighbour is below + 1
    double share; ///< 0 to 1: how far the position lies towards the neighbour
};

/// The lines of the table that a tile covers along one axis: `first` and those behind it.
struct AxisCut {
    int first = 0;
    std::vector<AxisPoint> points;
};

/// Cuts one axis of the table with a tile.
///   Given:    count   lines of the table
///             origin  table position of the tile's line 0
///             step    tile lines per table line, not 0
///             low, high   tile positions that the tile covers, both included; lines of the tile
///                     from floor(low) to ceil(high) are then asked for, at least two
///   Returned: the covered lines with their places; none for numbers that are not finite
AxisCut cutaxis(int count, double origin, double step, double low, double high);

/// Fills a piece of a table row from two neighbouring rows of a tile, bilinear. Where one of the
/// four samples is a void, the nearest one counts; where that is a void, the table keeps its value.
///   out      the piece; its k-th sample belongs to columns[k]
///   lower, upper   heights of the tile's rows, or `voidheight`; each holds columns[k].below + 1
///   share    0 to 1: how far the table row lies from `lower` towards `upper`
/// Heights are rounded to the nearest metre, ties to even. Returns the number of voids.
std::size_t resamplerow(std::span<std::int16_t> out, std::span<const AxisPoint> columns,
                        const std::int16_t* lower, const std::int16_t* upper, double share);
