#pragma once

#include <string>
#include <string_view>

/// Sexagesimal text of a longitude, as 073°15'02"O. Normalises the caller's variable to -180 .. 180
/// (180 becomes -180).
std::string dmslon(float& lon);

/// Sexagesimal text of a latitude, as 45°30'12"N. Clamps the caller's variable to -89 .. 89.
std::string dmslat(float& lat);

/// Combined reference: the six-character locator, or the MGRS text when a geodetic system is named.
std::string locator(float lon, float lat);

/// South-west corner of a locator's sub-square; characters out of range are held at the nearest
/// legal ones, missing ones count as the first.
void locator2ll(std::string_view text, float& lon, float& lat);
