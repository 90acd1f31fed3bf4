#pragma once

#include "gis/module/session.h"
#include "gis/rasters.h"

#include <memory>

/// Where a raster lies.
struct Place {
    GeoBox box;         ///< that holds all of it
    double spacing = 0; ///< between its rows on the ground, arc seconds of latitude
};

/// Opens a raster file for reading; a compressed .gz too. Throws GisFailure with words for what a
/// user may have mistaken.
///   crs   coordinate system in place of the file's own; empty: none
Dataset openfile(const std::string& file, const std::string& crs);

/// Finds out where a raster lies on the earth. Throws GisFailure.
Place placeof(const std::string& file, GDALDataset& dataset);
