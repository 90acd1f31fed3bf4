#pragma once

#include "engine/tiles/tile.h"

/// Lowest, highest and mean height of a map, m.
struct MapStatistics {
    float hmin = 0;
    float hmax = 0;
    float hmoy = 0;
};

/// Counts all samples of a table into `statistics`. A table without samples changes nothing.
///   step    receives the rows done; false stops, and the statistics stay as they were
TileStatus getmapstat(const HeightTable& table, MapStatistics& statistics, const TileStep& step);
