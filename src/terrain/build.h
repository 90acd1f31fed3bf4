#pragma once

#include "terrain/extraction.h"
#include "terrain/mapgrid.h"

/// What a map is built from. The folders of the sources are `session.drvpath`.
struct MapOrder {
    MapRecord record; ///< centre, size and the bits of `sources` count
    int width = 0;    ///< pixels
    int height = 0;   ///< pixels
    bool ignoremissing = false;
};

/// Builds the process's map from its elevation sources: the passes over TERRAIN, GTOPO30 and DTED
/// in this order, each over what the earlier ones left, then the map's picture. Without a source
/// nothing happens. A stop ends the build; what was read until then stays, and nothing is drawn.
/// True when all passes came to their end.
///   report   receives what tiles lacked; null: nobody wants to know
bool buildmap(const MapOrder& order, BuildReport* report = nullptr);
