#include "engine/tiles/getterrain.h"

#include "engine/tiles/resample.h"

#include <algorithm>
#include <vector>

void getterrain(const HeightTable& table, std::span<const std::int16_t> tile,
                const TilePlace& place)
{
    constexpr std::size_t side = terrainside;
    if (tile.size() != side * side)
        return;
    const AxisCut columns = cutaxis(table.width, place.x, place.stepx, 0, terrainside - 1);
    const AxisCut rows = cutaxis(table.height, place.y, place.stepy, 0, terrainside - 1);

    std::vector<std::int16_t> heights(tile.size());
    std::transform(tile.begin(), tile.end(), heights.begin(),
                   [](std::int16_t height) { return isvoid(height) ? voidheight : height; });
    int y = rows.first;
    for (const AxisPoint& row : rows.points) {
        const std::int16_t* const lower = &heights[static_cast<std::size_t>(row.below) * side];
        const std::size_t count = columns.points.size();
        table.count(count, resamplerow(table.row(y++, columns.first, count), columns.points, lower,
                                       lower + side, row.share));
    }
}
