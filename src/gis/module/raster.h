#pragma once

#include "gis/importer.h"
#include "gis/module/cell.h"
#include "gis/module/heights.h"
#include "gis/module/place.h"

#include <memory>
#include <string>
#include <vector>

/// A raster of heights with its place on the earth.
struct Raster {
    std::string file;
    Dataset dataset;
    std::unique_ptr<HeightDataset> heights; ///< reads `dataset`; so it must go first
    Place place;

    int level() const { return place.spacing < 2 ? 2 : 1; }
    /// Lines of a cell at its edge that the raster's outermost pixels spill over when it only
    /// touches the cell.
    int rim(const ImportCell& cell) const;
    /// True when it reaches samples of the cell other than those of its outermost lines.
    ///   shift   whole turns that bring the cell to the raster, degrees
    bool reachesinto(const ImportCell& cell, int shift) const;
    bool touches(const ImportCell& cell, int shift) const;
};

/// Opens a raster of heights as an order wants it, and says what the user should know of it. Throws
/// GisFailure.
Raster openraster(const std::string& file, const ImportOrder& order);

/// Opens a cell that exists.
Raster opencell(const std::string& path);

/// Samples of a cell, m, the north row first; `novalue` where there are none.
struct CellSamples {
    explicit CellSamples(const ImportCell& of);
    float& at(int column, int row)
    {
        return heights[static_cast<std::size_t>(row) * static_cast<std::size_t>(cell.columns()) +
                       static_cast<std::size_t>(column)];
    }
    /// Share of the samples without a height, 0 to 1.
    double voids() const;

    ImportCell cell;
    std::vector<float> heights;
};

/// Lays a raster over a cell's samples where it has heights.
///   shift      whole turns that bring the cell to the raster, degrees
///   bounds     samples outside are left alone; null: none are
///   progress   receives the share done, 0 to 1
void layraster(const Raster& raster, int shift, const GeoBox* bounds, CellSamples& samples,
               const std::function<void(double)>& progress);

/// Fills what has no height yet from a cell that exists, of this level or another.
void laycell(const Raster& cellfile, CellSamples& samples);

/// The bytes of a cell's file. Heights are rounded to whole metres.
std::string cellbytes(CellSamples& samples);
