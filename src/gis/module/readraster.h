#pragma once

#include "gis/rasters.h"

/// Opens a raster of any kind.
std::unique_ptr<GisRaster> opengisraster(const std::string& file, const RasterOptions& options,
                                         std::string& why);
