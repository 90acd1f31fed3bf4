#pragma once

#include <array>
#include <string>

/// Hand-over pair between the position dialog and the dialog that opened it, degrees.
extern float picklon;
extern float picklat;

/// A position as it is typed: degrees, minutes and seconds, and a letter for each axis.
struct DmsFields {
    std::array<std::string, 3> lon;
    char lonletter = 'E'; ///< 'E' or 'O'
    std::array<std::string, 3> lat;
    char latletter = 'N'; ///< 'N' or 'S'
};

/// The fields that show a position. Normalises the caller's longitude and clamps its latitude, as
/// `dmslon` and `dmslat` do.
DmsFields ll2fields(float& lon, float& lat);

/// The position that the fields hold, in degrees. A field counts by its leading number, 0 where
/// there is none; the sum of an axis is held within 180 or 90 degrees either way.
void fields2ll(const DmsFields& fields, float& lon, float& lat);
