#pragma once

#include "coverage/radiosweep.h"
#include "coverage/viewshed.h"

#include <vector>

// Both coverages the plain way, one sample after the other, as a reference.

/// One painted ring sector.
struct SlowSector {
    int k = 0;
    int c = 0;
    SectorQuad quad;
    int fill = 255; ///< 0 to 11, 12 plain, 255 none
    bool across = false;
    bool along = false;
};

struct SlowCoverage {
    std::vector<SlowSector> sectors;
    double area_km2 = 0;
};

SlowCoverage slowcoverage(const NetworkTables& tables, const MapGrid& map,
                          const CoverageOrder& order, double x0, double y0);

/// Painted samples (k, c) of a visual coverage.
std::vector<std::pair<int, int>> slowviewshed(const MapGrid& map, const ViewOrder& order, double x0,
                                              double y0, double ground_m);
