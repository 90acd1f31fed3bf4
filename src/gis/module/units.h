#pragma once

#include <optional>
#include <string>

/// Metres of a unit of length by any of its common names and spellings ("Feet", "US survey foot",
/// "0.1 m", "dm"): those of GDAL, of UDUNITS and of coordinate systems. Empty for another; an empty
/// name and "unknown" are metres.
std::optional<double> metresof(const std::string& unit);
