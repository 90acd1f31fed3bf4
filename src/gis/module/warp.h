#pragma once

#include "gis/module/session.h"
#include "gis/rasters.h"

/// Lays a raster into the frame of another, datum and all. Throws GisFailure; a stop by the
/// progress too.
///   overviews   a reduced copy may be used
void warp(const std::string& file, GDALDataset& source, GDALDataset& target, Resampling resampling,
          bool overviews, const GisProgress& progress);
