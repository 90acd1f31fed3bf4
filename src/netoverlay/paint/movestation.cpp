#include "netoverlay/paint/movestation.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "coordinates/positiontexts.h"
#include "netoverlay/paint/overlay.h"
#include "network/moveunit.h"
#include "network/unsaved.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "terrain/mapgrid.h"

namespace
{

void redrawlinks(int unit)
{
    reevaluate(network, mapgrid, false, interf, unit, quality);
    paintnets(unit);
    picturehooks.stationmoved(unit, false);
}

/// Tells where a station is, and what a key would do about it.
void tellplace(const Unit& unit, const std::string& key)
{
    float lon = unit.lon; // the texts bring their own copies into range
    float lat = unit.lat;
    hooks.setlabel2(unit.name.text() + "  " + generalnumber(unit.elevation) + "m  " + dmslon(lon) +
                    "  " + dmslat(lat) + key);
}

constexpr const char* escape = "  (Échap : annuler)";
constexpr const char* undo = "  (Ctrl+Z : annuler le déplacement)";

} // namespace

void redrawmoved()
{
    if (!moved || opbusy > 0)
        return;
    moved = false;
    drawnets();
}

void placestation(int unit, float lon, float lat)
{
    selection.curunit = static_cast<std::int16_t>(unit);
    placeunit(unit, lon, lat);
    markedited();
    drawnets();
    picturehooks.stationmoved(unit, true);
    tellplace(unitat(unit), undo);
}

StationDrag begindrag(int unit)
{
    evaluate(network, mapgrid, false, interf, quality);
    return {unit, unitat(unit), netedited};
}

void dragunit(const StationDrag& drag, float lon, float lat)
{
    markedited();
    placeunit(drag.unit, lon, lat);
    redrawlinks(drag.unit);
    tellplace(unitat(drag.unit), escape);
}

void putback(const StationDrag& drag)
{
    Unit& unit = unitat(drag.unit);
    unit.lon = drag.before.lon;
    unit.lat = drag.before.lat;
    unit.elevation = drag.before.elevation;
    netedited = drag.wasedited;
    redrawlinks(drag.unit);
    paintnets();
    tellplace(unit, "");
}

void settle(const StationDrag& drag)
{
    paintnets();
    picturehooks.stationmoved(drag.unit, true);
    tellplace(unitat(drag.unit), undo);
}
