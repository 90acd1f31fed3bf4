#pragma once

#include "gis/module/importer.h"
#include "support/tempfolder.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

/// A raster to be written for a test; its numbers are a function of the position of each pixel's
/// middle, in the raster's own coordinates.
struct MadeRaster {
    double west = 0, north = 0; ///< outer corner of the first pixel
    double spacing = 1.0 / 120; ///< of rows
    double spacingx = 0;        ///< of columns; 0: that of rows
    int columns = 120, rows = 120;
    std::string crs = "EPSG:4326"; ///< empty: none
    std::string unit;
    std::string type = "Float32";
    std::vector<std::function<double(double x, double y)>> bands;
};

/// A cell's file, read by a reader of the test's own. Samples count from the south-west.
struct MadeCell {
    std::string bytes;
    int columns = 0, rows = 0;

    /// -32767: void.
    int at(int column, int row) const;
    std::size_t voids() const;
};

/// Rasters, and cells as an import leaves them in a folder.
class GisTest : public testing::Test
{
protected:
    /// Writes a GeoTIFF.
    std::string make(const std::string& name, const MadeRaster& raster) const;
    /// A tile of the form of global 1 second models: the middles of its first column and first row
    /// lie on whole degrees, and its last ones a spacing before the next.
    ///   stepx, stepy   columns and rows
    std::string maketile(int lon, int lat, int stepx, int stepy,
                         const std::function<double(double, double)>& height) const;

    /// Imports into the folder's cells; what is said comes in `said`.
    ImportResult import(const std::vector<std::string>& files, ImportOrder order = {});

    bool exists(const std::string& cell) const;
    /// A cell by its name, as "E001/N41.DT1".
    MadeCell cell(const std::string& name) const;

    TempFolder folder;
    std::vector<std::string> said; ///< "what: sentence"
};
