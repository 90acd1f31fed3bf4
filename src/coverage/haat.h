#pragma once

#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <string>

/// A report on the height of an antenna above average terrain.
struct HaatReport {
    std::string text;      ///< UTF-8, lines ended by CR LF
    bool complete = false; ///< false: a fault ended it early
};

/// Samples the ground on eight radials, 2 to 10 miles from a station, and tells the height of its
/// antenna in a net above their mean. Points off the map show "?" and don't count; with 5 or fewer
/// points left there is no mean. A station at a pole, or a slot that does not exist, is a fault.
HaatReport haattext(const NetworkTables& tables, const MapGrid& map, int unit, int net);

/// Writes the report on a station of the run as "Haat.txt" into the program's folder and opens it
/// in the desktop's text viewer. A fault is told to the user.
void haatreport(int unit, int net);
