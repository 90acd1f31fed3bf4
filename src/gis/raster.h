#pragma once

#include "gis/cell.h"

#include <functional>
#include <gdal_priv.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// A raster that cannot be imported.
class ImportFailure : public std::runtime_error
{
public:
    ImportFailure(std::string failed, const std::string& why)
        : std::runtime_error(why), what_failed(std::move(failed))
    {
    }
    std::string what_failed;
};

/// Closes a dataset.
struct CloseDataset {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<GDALDataset, CloseDataset>;

/// A raster of heights with its place on the earth.
struct Raster {
    std::string file;
    Dataset dataset;
    double west = 0, east = 0;   ///< degrees, not wrapped
    double south = 0, north = 0; ///< degrees
    double spacing = 0;          ///< between its rows on the ground, arc seconds of latitude
    double scale = 1;            ///< metres per unit of its samples
    double offset = 0;           ///< metres

    int level() const { return spacing < 2 ? 2 : 1; }
    /// True when it reaches samples of the cell other than those of its outermost lines.
    ///   shift   whole turns that bring the cell to the raster, degrees
    bool reachesinto(const ImportCell& cell, int shift) const;
    bool touches(const ImportCell& cell, int shift) const;
};

/// Opens a raster and finds out where it lies. Throws ImportFailure.
Raster openraster(const std::string& file);

/// Samples of a cell, m, the north row first; `novalue` where there are none.
struct CellSamples {
    static constexpr float novalue = -32767;

    explicit CellSamples(const ImportCell& of);
    float& at(int column, int row)
    {
        return heights[static_cast<std::size_t>(row) * static_cast<std::size_t>(cell.columns()) +
                       static_cast<std::size_t>(column)];
    }

    ImportCell cell;
    std::vector<float> heights;
};

/// Lays a raster over a cell's samples where it has heights.
///   shift      whole turns that bring the cell to the raster, degrees
///   progress   receives the share done, 0 to 1
void layraster(const Raster& raster, int shift, CellSamples& samples,
               const std::function<void(double)>& progress);

/// The bytes of a cell's file. Heights are rounded to whole metres.
std::string cellbytes(CellSamples& samples);
