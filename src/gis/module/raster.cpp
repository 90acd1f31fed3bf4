#include "gis/module/raster.h"

#include "gis/module/units.h"
#include "gis/module/warp.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <ogr_spatialref.h>

int Raster::rim(const ImportCell& cell) const
{
    constexpr int spill = 3;
    const double half = place.spacing / 3600 / 2; // of a pixel, degrees
    return spill + static_cast<int>(std::min(half / cell.spacingy(), cell.rows() / 4.0));
}

bool Raster::reachesinto(const ImportCell& cell, int shift) const
{
    const double dx = cell.spacingx();
    const double dy = cell.spacingy();
    const double lon = cell.lon + shift;
    return std::max(place.box.west, lon + dx) <= std::min(place.box.east, lon + 1 - dx) &&
           std::max(place.box.south, cell.lat + dy) <= std::min(place.box.north, cell.lat + 1 - dy);
}

bool Raster::touches(const ImportCell& cell, int shift) const
{
    const double lon = cell.lon + shift;
    return place.box.west <= lon + 1 && place.box.east >= lon && place.box.south <= cell.lat + 1 &&
           place.box.north >= cell.lat;
}

namespace
{
/// The band of heights, from 1. Of several the first is taken, and that is said.
int bandof(const std::string& file, GDALDataset& dataset, const ImportOrder& order)
{
    const int count = dataset.GetRasterCount();
    if (order.band > count)
        throw GisFailure(file, fmt::format("has no band {}, only {}", order.band, count));
    if (order.band > 0)
        return order.band;
    // A band that only says where the heights are is no choice.
    const bool choice =
        count > 2 ||
        (count == 2 && dataset.GetRasterBand(2)->GetColorInterpretation() != GCI_AlphaBand);
    if (choice)
        order.say(file,
                  fmt::format("has {} bands; the first is taken (--band N takes another)", count));
    return 1;
}

/// Unit of a band's heights: the order's, its own, or that of a vertical coordinate system.
std::string unitof(GDALDataset& dataset, GDALRasterBand& band, const ImportOrder& order)
{
    if (!order.unit.empty())
        return order.unit;
    std::string own = band.GetUnitType();
    const OGRSpatialReference* const system = dataset.GetSpatialRef();
    if (!own.empty() || system == nullptr || system->IsCompound() == 0)
        return own;
    const char* name = nullptr;
    system->GetTargetLinearUnits("COMPD_CS|VERT_CS", &name);
    return name != nullptr ? name : "";
}

HeightRule ruleof(const std::string& file, GDALDataset& dataset, int band, const ImportOrder& order)
{
    GDALRasterBand& numbers = *dataset.GetRasterBand(band);
    const std::string unit = unitof(dataset, numbers, order);
    const std::optional<double> metres = metresof(unit);
    if (!metres)
        throw GisFailure(file,
                         fmt::format("\"{}\" is no known unit of heights; --unit names one", unit));
    return {numbers.GetScale() * *metres, numbers.GetOffset() * *metres, impliedvoids(numbers)};
}
} // namespace

Raster openraster(const std::string& file, const ImportOrder& order)
{
    Raster raster;
    raster.file = file;
    raster.dataset = openfile(file, order.crs);
    raster.place = placeof(file, *raster.dataset);
    const int band = bandof(file, *raster.dataset, order);
    raster.heights = std::make_unique<HeightDataset>(*raster.dataset, band,
                                                     ruleof(file, *raster.dataset, band, order));
    return raster;
}

Raster opencell(const std::string& path)
{
    ImportOrder plain;
    plain.say = [](const std::string&, const std::string&) {};
    return openraster(path, plain);
}

CellSamples::CellSamples(const ImportCell& of)
    : cell(of),
      heights(static_cast<std::size_t>(of.columns()) * static_cast<std::size_t>(of.rows()), novalue)
{
}

double CellSamples::voids() const
{
    const auto empty =
        std::count_if(heights.begin(), heights.end(), [](float h) { return h <= novalue; });
    return static_cast<double>(empty) / static_cast<double>(heights.size());
}

namespace
{
/// A piece of a cell's samples.
struct Piece {
    int x = 0, y = 0;
    int columns, rows;
};

/// A raster in memory of a piece of a cell, each sample the middle of its pixel.
Dataset cellraster(const ImportCell& cell, const Piece& piece, int shift, GDALDataType type)
{
    Dataset dataset = memoryraster(piece.columns, piece.rows, 1, type);
    const double dx = cell.spacingx();
    const double dy = cell.spacingy();
    placeindegrees(*dataset, cell.lon + shift + (piece.x - 0.5) * dx,
                   cell.lat + 1 - (piece.y - 0.5) * dy, dx, dy);
    dataset->GetRasterBand(1)->SetNoDataValue(static_cast<double>(novalue));
    dataset->GetRasterBand(1)->Fill(static_cast<double>(novalue));
    return dataset;
}

/// The piece of a cell that a raster's rectangle covers, and some lines more: of a neighbour it is
/// but an edge.
Piece covered(const GeoBox& box, const ImportCell& cell, int shift)
{
    constexpr int spare = 4;
    const auto line = [](double place, int count) {
        return std::clamp(static_cast<int>(std::clamp(place, -1e6, 1e6)), 0, count - 1);
    };
    const double lon = cell.lon + shift;
    const int left = line((box.west - lon) / cell.spacingx() - spare, cell.columns());
    const int right = line((box.east - lon) / cell.spacingx() + spare, cell.columns());
    const int top = line((cell.lat + 1 - box.north) / cell.spacingy() - spare, cell.rows());
    const int bottom = line((cell.lat + 1 - box.south) / cell.spacingy() + spare, cell.rows());
    return {left, top, right - left + 1, bottom - top + 1};
}

/// True for the samples within bounds, edges included, whatever turn they are told in.
bool inside(const GeoBox& bounds, const ImportCell& cell, int column, int row)
{
    constexpr double rounding = 1e-9;
    const double lat = cell.lat + 1 - row * cell.spacingy();
    if (lat < bounds.south - rounding || lat > bounds.north + rounding)
        return false;
    const double lon = cell.lon + column * cell.spacingx();
    for (const int turn : {-360, 0, 360})
        if (lon + turn >= bounds.west - rounding && lon + turn <= bounds.east + rounding)
            return true;
    return false;
}
void readrow(const std::string& file, GDALDataset& raster, int y, std::vector<float>& row)
{
    const auto count = static_cast<int>(row.size());
    if (raster.GetRasterBand(1)->RasterIO(GF_Read, 0, y, count, 1, row.data(), count, 1,
                                          GDT_Float32, 0, 0, nullptr) != CE_None)
        throw GisFailure(file, lastremark("cannot be read"));
}
} // namespace

void layraster(const Raster& raster, int shift, const GeoBox* bounds, CellSamples& samples,
               const std::function<void(double)>& progress)
{
    const ImportCell& cell = samples.cell;
    const Piece piece = covered(raster.place.box, cell, shift);
    const Dataset target = cellraster(cell, piece, shift, GDT_Float32);
    warp(raster.file, *raster.heights, *target, Resampling::bilinear, false, [&](double share) {
        progress(share);
        return true;
    });
    std::vector<float> row(static_cast<std::size_t>(piece.columns));
    for (int y = 0; y < piece.rows; ++y) {
        readrow(raster.file, *target, y, row);
        for (int x = 0; x < piece.columns; ++x)
            if (row[static_cast<std::size_t>(x)] > novalue &&
                (bounds == nullptr || inside(*bounds, cell, piece.x + x, piece.y + y)))
                samples.at(piece.x + x, piece.y + y) = row[static_cast<std::size_t>(x)];
    }
}

void laycell(const Raster& cellfile, CellSamples& samples)
{
    CellSamples below(samples.cell);
    GDALDataset& heights = *cellfile.heights;
    const int columns = samples.cell.columns();
    const int rows = samples.cell.rows();
    if (heights.GetRasterXSize() != columns || heights.GetRasterYSize() != rows)
        layraster(cellfile, 0, nullptr, below, [](double) {});
    else if (heights.GetRasterBand(1)->RasterIO(GF_Read, 0, 0, columns, rows, below.heights.data(),
                                                columns, rows, GDT_Float32, 0, 0,
                                                nullptr) != CE_None)
        throw GisFailure(cellfile.file, lastremark("cannot be read"));
    for (std::size_t i = 0; i < samples.heights.size(); ++i)
        if (samples.heights[i] <= novalue)
            samples.heights[i] = below.heights[i];
}

std::string cellbytes(CellSamples& samples)
{
    const ImportCell& cell = samples.cell;
    for (float& height : samples.heights)
        height = std::nearbyint(height);
    const Dataset rounded = cellraster(cell, {0, 0, cell.columns(), cell.rows()}, 0, GDT_Int16);
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("DTED");
    if (driver == nullptr ||
        rounded->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, cell.columns(), cell.rows(),
                                            samples.heights.data(), cell.columns(), cell.rows(),
                                            GDT_Float32, 0, 0, nullptr) != CE_None)
        throw GisFailure(cell.name(), "cannot be made");
    const MemoryFile file(".dt" + std::to_string(cell.level));
    CPLErrorReset();
    const Dataset written(
        driver->CreateCopy(file.name().c_str(), rounded.get(), FALSE, nullptr, nullptr, nullptr));
    if (written == nullptr)
        throw GisFailure(cell.name(), lastremark("cannot be made"));
    written->FlushCache();
    return file.content();
}
