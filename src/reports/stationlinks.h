#pragma once

#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <array>
#include <cstdint>
#include <vector>

/// A pair of stations whose line is drawn.
struct StationLink {
    int a = 0, b = 0;  ///< slots, a below b
    int lineclass = 0; ///< 1 to 6
    int net = 0;       ///< that decides the class
    double distance_km = 0;
    double margin_db = 0; ///< of the weaker direction in that net
};

/// The links of the active nets as they are drawn, evaluated anew.
///   linestyle     rules of the line colours
///   interference  propagation mode, 0 or 1
std::vector<StationLink> stationlinks(const NetworkTables& tables, const MapGrid& map,
                                      const std::array<std::uint8_t, 3>& linestyle,
                                      std::int16_t interference);
