#pragma once

#include "base/operation.h"
#include "terrain/mapgrid.h"

// The long operations on elevations, as the interface shows them.

/// Reading a map of the older format: reports its columns.
Job openmapjob();
/// The pass over GTOPO30: reports rows of the map.
Job gtopojob(const MapGrid& map);
/// The pass over TERRAIN: counts its tiles by `optiles`.
Job terrainjob(int tiles);
/// The pass over DTED: counts its cells by `optiles`, and within one reports columns of the map.
Job dtedjob(int cells, const MapGrid& map);
/// The statistics of a map: reports its columns.
Job statisticsjob(const MapGrid& map);
