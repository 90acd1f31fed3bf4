#include "terrain/gridcells.h"

std::array<std::string, gridcells> gridtexts(const MapGrid& map, int x, int y)
{
    constexpr int middle = gridside / 2;
    std::array<std::string, gridcells> texts;
    for (int i = 0; i < static_cast<int>(gridcells); ++i) {
        const int column = x + i % gridside - middle;
        const int row = y + middle - i / gridside;
        const bool inside = column >= 0 && column < map.width && row >= 0 && row < map.height;
        texts[static_cast<std::size_t>(i)] = inside ? std::to_string(map.at(column, row)) : "-";
    }
    return texts;
}

// A map of one column or row has no extent: its cell lies on the first edge.
static float between(float first, float last, int line, int upper)
{
    const double from = static_cast<double>(first);
    const double to = static_cast<double>(last);
    return upper > 0 ? static_cast<float>(static_cast<double>(line) / upper * (to - from) + from)
                     : first;
}

float columnlon(const MapGrid& map, int x)
{
    return between(map.maplon[0], map.maplon[2], x, map.upperx());
}

float rowlat(const MapGrid& map, int y)
{
    return between(map.maplat[2], map.maplat[0], y, map.uppery());
}
