#include "terrain/mapgrid.h"

#include "base/numbers.h"

#include <cmath>

MapGrid mapgrid;
std::string mapname;
bool mapdirty = false;
bool mapincomplete = false;

void allocatemap(MapGrid& map, int width, int height)
{
    if (width < 1 || height < 1)
        width = height = 0;
    map.samples.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    map.width = width;
    map.height = height;
    if (&map == &mapgrid)
        mapincomplete = false;
}

void mapframe(MapGrid& map)
{
    MapRecord& record = map.record;
    if (!(record.mapsize >= 1))
        record.mapsize = 1;
    const double lat = static_cast<double>(record.maplat0);
    const double lon = static_cast<double>(record.maplon0);
    const double latspan = static_cast<double>(record.mapsize) / earthradius_km / degree;
    const double lonspan = latspan / map.uppery() * map.upperx() / std::cos(lat * degree);
    map.maplat[2] = map.maplat[3] = static_cast<float>(lat - latspan * 0.5);
    map.maplat[0] = map.maplat[1] = static_cast<float>(lat + latspan * 0.5);
    map.maplon[0] = map.maplon[3] = static_cast<float>(lon - lonspan * 0.5);
    map.maplon[1] = map.maplon[2] = static_cast<float>(lon + lonspan * 0.5);
}

/// Nearest cell number of a position between two edges: 0 at `from`, `upper` at `to`.
static float nearestcell(float position, float from, float to, int upper)
{
    const double share = (static_cast<double>(position) - static_cast<double>(from)) /
                         (static_cast<double>(to) - static_cast<double>(from));
    return static_cast<float>(roundtoeven(share * upper));
}

bool maplookup(const MapGrid& map, float lon, float lat, float& x, float& y, float& elev)
{
    if (map.samples.empty())
        return true;
    const float west = map.maplon[0];
    const float east = map.maplon[2];
    if (west < -180 && lon > 0) // the map crosses the 180th meridian
        lon -= 360;
    if (east > 180 && lon < 0)
        lon += 360;
    const float column = nearestcell(lon, west, east, map.upperx());
    const float row = nearestcell(lat, map.maplat[2], map.maplat[0], map.uppery());
    if (!std::isfinite(column) || !std::isfinite(row))
        return false;
    x = column;
    y = row;
    if (x < 0 || y < 0 || x > static_cast<float>(map.upperx()) ||
        y > static_cast<float>(map.uppery()))
        return false;
    elev = map.at(static_cast<int>(x), static_cast<int>(y));
    return true;
}

bool maplookup(float lon, float lat, float& x, float& y, float& elev)
{
    return maplookup(mapgrid, lon, lat, x, y, elev);
}
