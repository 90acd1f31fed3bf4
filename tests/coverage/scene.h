#pragma once

#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <cmath>

/// Hills with valleys between them; cells of about 100 m.
inline MapGrid hillymap(int width, int height)
{
    MapGrid map;
    allocatemap(map, width, height);
    map.record.maplon0 = -73;
    map.record.maplat0 = 45;
    map.record.mapsize = 0.1F * static_cast<float>(height);
    mapframe(map);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double h = 200 + 90 * std::sin(x * 0.31) * std::cos(y * 0.23) +
                             40 * std::sin(x * 0.07 + y * 0.11) + 3 * ((x * 7 + y * 13) % 5);
            map.at(x, y) = static_cast<std::int16_t>(h);
        }
    return map;
}

/// A flat map.
inline MapGrid plainmap(int width, int height, std::int16_t elevation)
{
    MapGrid map = hillymap(width, height);
    map.samples.assign(map.samples.size(), elevation);
    return map;
}

/// Two stations in net 1 with different systems.
inline NetworkTables twostations()
{
    NetworkTables tables = defaulttables();
    tables.units[1].elevation = 260;
    tables.units[2].elevation = 210;
    tables.systems[2].power = 5;
    tables.systems[2].threshold = -101.5F;
    tables.systems[2].height = 6;
    tables.nets[1].member[1] = memberbit;
    tables.nets[1].member[2] = memberbit;
    tables.nets[1].system[2] = 2;
    return tables;
}
