#include "network/moveunit.h"

#include "base/hooks.h"
#include "network/tables.h"
#include "terrain/mapgrid.h"

bool moved = false;

void placeunit(int number, float lon, float lat)
{
    Unit& unit = unitat(number);
    float x = 0;
    float y = 0;
    float elevation = 0;
    if (!maplookup(lon, lat, x, y, elevation))
        elevation = 0;
    unit.lon = lon;
    unit.lat = lat;
    unit.elevation = elevation;
}

void moveunit(float lon, float lat)
{
    placeunit(selection.curunit, lon, lat);
    moved = true;
    hooks.unitmoved(selection.curunit);
}

int unplacedunit()
{
    for (int number = 1; number <= MAXUNIT; ++number) {
        const Unit& unit = unitat(number);
        if (unit.enabled != 0 && unit.lon == 0 && unit.lat == 0)
            return number;
    }
    return 0;
}
