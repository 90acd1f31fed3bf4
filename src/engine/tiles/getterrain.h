#pragma once

#include "engine/tiles/tile.h"

#include <span>

/// Samples along each side of a TERRAIN tile: one degree in steps of 30 arc seconds, both edges
/// included.
inline constexpr int terrainside = 121;

/// Resamples a TERRAIN tile into the table.
///   tile    121 x 121 heights in m, x fastest, the south row first
///   place   of the tile's south-west sample
/// Table pixels outside the tile, and those that fall on a void, keep their values.
void getterrain(const HeightTable& table, std::span<const std::int16_t> tile,
                const TilePlace& place);
