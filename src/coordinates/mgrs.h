#pragma once

#include "coordinates/geosys.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Universal Transverse Mercator coordinates on a lattice of 10 m.
struct UtmPosition {
    std::int32_t zone = 0;     ///< 1 to 61
    std::int32_t easting = 0;  ///< m, with the false easting of 500000
    std::int32_t northing = 0; ///< m, negative south of the equator, no false northing
};

/// Results of the last forward conversion, read by the grid drawing.
extern std::int32_t utmzone;
extern std::int32_t utmeast;
extern std::int32_t utmnorth;

/// Degrees to UTM by the manual series (terms I to V) with a scale of 0.9996; no irregular zones.
UtmPosition ll2utm(double lon, double lat, const GeodeticSystem& system);

/// MGRS text of a position, as "18T XF 17190 39590"; sets `utmzone`, `utmeast`, `utmnorth`.
std::string ll2mgrs(double lon, double lat);

/// Position of an MGRS text; blanks may stand anywhere. True and both written on success; false and
/// both left on any fault.
bool mgrs2ll(std::string_view text, float& lon, float& lat);
