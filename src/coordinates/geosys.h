#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The geodetic system in force: a name, an ellipsoid, a lettering offset, and what the series for
/// the meridian arc needs of them.
struct GeodeticSystem {
    std::string name;              ///< empty: positions are shown as QRA locators; else as MGRS
    double a = 6378137;            ///< semi-major axis, m
    double b = 6356752.314;        ///< semi-minor axis, m
    std::int16_t rowshift = 10;    ///< offset of the 100 km row letters
    double e2 = 0, ep2 = 0, n = 0; ///< first and second eccentricity squared, third flattening
    double arcA = 0, arcB = 0, arcC = 0, arcD = 0, arcE = 0; ///< meridian arc coefficients, m
};
extern GeodeticSystem geosys;

/// Takes the defaults, then what the program's file of this name holds (name, a, b, row shift,
/// separated by commas or line ends); an empty name means defaults only. A missing file, or a value
/// that cannot be read, ends the reading silently: what was read stands.
void setgeosys(const std::string& filename);

/// Reads the four values from the bytes of such a file (Windows-1252) into a system; false where
/// the reading ended early. The name may stand in double quotes; blanks around a value don't count.
bool parsegeosys(std::string_view bytes, GeodeticSystem& system);

/// Derives the eccentricities and arc coefficients from a and b. Axes that give no finite result
/// leave the derived values as they were.
void derivegeosys(GeodeticSystem& system);
