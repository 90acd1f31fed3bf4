#pragma once

#include "gis/rasters.h"

/// The bytes of a GeoTIFF file.
std::optional<std::string> geotiffbytes(const GeoTiff& tiff, std::string& why);
