#include "gis/raster.h"

#include <algorithm>
#include <cmath>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <fmt/format.h>
#include <gdal_alg.h>
#include <gdal_utils.h>
#include <ogr_spatialref.h>

static constexpr const char* wgs84 = "EPSG:4326";
// Heights beyond these are garbage under the name of data, m.
static constexpr float lowest = -12000;
static constexpr float highest = 9000;

bool Raster::reachesinto(const ImportCell& cell, int shift) const
{
    const double dx = cell.spacingx();
    const double dy = cell.spacingy();
    const double lon = cell.lon + shift;
    return std::max(west, lon + dx) <= std::min(east, lon + 1 - dx) &&
           std::max(south, cell.lat + dy) <= std::min(north, cell.lat + 1 - dy);
}

bool Raster::touches(const ImportCell& cell, int shift) const
{
    const double lon = cell.lon + shift;
    return west <= lon + 1 && east >= lon && south <= cell.lat + 1 && north >= cell.lat;
}

namespace
{
struct FreeTransformer {
    void operator()(void* transformer) const { GDALDestroyGenImgProjTransformer(transformer); }
};
using Transformer = std::unique_ptr<void, FreeTransformer>;

Transformer todegrees(GDALDataset& dataset)
{
    CPLStringList options;
    options.SetNameValue("DST_SRS", wgs84);
    return Transformer(GDALCreateGenImgProjTransformer2(&dataset, nullptr, options.List()));
}

/// Distance of two neighbouring rows in the raster's middle, arc seconds of latitude.
double rowspacing(GDALDataset& dataset, void* transformer)
{
    const double middle = dataset.GetRasterXSize() / 2.0;
    const double row = dataset.GetRasterYSize() / 2.0;
    std::array<double, 2> x{middle, middle};
    std::array<double, 2> y{row - 0.5, row + 0.5};
    std::array<double, 2> z{};
    std::array<int, 2> good{};
    GDALGenImgProjTransform(transformer, FALSE, 2, x.data(), y.data(), z.data(), good.data());
    if (good[0] == 0 || good[1] == 0)
        return 0;
    constexpr double radians = 3.14159265358979323846 / 180;
    const double east = (x[1] - x[0]) * std::cos(y[0] * radians);
    return std::hypot(east, y[1] - y[0]) * 3600;
}

void place(Raster& raster)
{
    GDALDataset& dataset = *raster.dataset;
    std::array<double, 6> geotransform{};
    const bool placed =
        dataset.GetGeoTransform(geotransform.data()) == CE_None || dataset.GetGCPCount() > 0;
    if (!placed || (dataset.GetSpatialRef() == nullptr && dataset.GetGCPSpatialRef() == nullptr))
        throw ImportFailure(raster.file, "has no georeference");
    const Transformer transformer = todegrees(dataset);
    std::array<double, 4> extent{};
    int columns = 0;
    int rows = 0;
    if (transformer == nullptr ||
        GDALSuggestedWarpOutput2(&dataset, GDALGenImgProjTransform, transformer.get(),
                                 geotransform.data(), &columns, &rows, extent.data(), 0) != CE_None)
        throw ImportFailure(raster.file, "its coordinates cannot be brought to WGS 84");
    raster.west = extent[0];
    raster.south = extent[1];
    raster.east = extent[2];
    raster.north = extent[3];
    raster.spacing = rowspacing(dataset, transformer.get());
    if (!(raster.spacing > 0) || !(raster.east - raster.west < 361) || raster.south < -91 ||
        raster.north > 91)
        throw ImportFailure(raster.file, "its georeference makes no sense");
}

/// Metres of one unit of a band's heights.
double metres(const std::string& unit)
{
    if (unit == "ft" || unit == "feet" || unit == "foot")
        return 0.3048;
    if (unit == "US survey foot" || unit == "us-ft" || unit == "ft-us")
        return 1200.0 / 3937;
    return 1;
}
} // namespace

Raster openraster(const std::string& file)
{
    Raster raster;
    raster.file = file;
    CPLErrorReset();
    raster.dataset.reset(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    if (raster.dataset == nullptr || raster.dataset->GetRasterCount() < 1) {
        const std::string why = CPLGetLastErrorMsg();
        throw ImportFailure(file, "cannot be read as a raster" + (why.empty() ? "" : ": " + why));
    }
    place(raster);
    GDALRasterBand& band = *raster.dataset->GetRasterBand(1);
    const double unit = metres(band.GetUnitType());
    raster.scale = band.GetScale() * unit;
    raster.offset = band.GetOffset() * unit;
    return raster;
}

CellSamples::CellSamples(const ImportCell& of)
    : cell(of),
      heights(static_cast<std::size_t>(of.columns()) * static_cast<std::size_t>(of.rows()), novalue)
{
}

namespace
{
/// A raster in memory of the cell's samples, each the middle of its pixel.
Dataset memorydataset(const ImportCell& cell, int shift, GDALDataType type)
{
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("MEM");
    Dataset dataset(driver->Create("", cell.columns(), cell.rows(), 1, type, nullptr));
    if (dataset == nullptr)
        throw std::bad_alloc();
    const double dx = cell.spacingx();
    const double dy = cell.spacingy();
    std::array<double, 6> geotransform{cell.lon + shift - dx / 2, dx, 0,
                                       cell.lat + 1 + dy / 2,     0,  -dy};
    dataset->SetGeoTransform(geotransform.data());
    OGRSpatialReference reference;
    reference.SetFromUserInput(wgs84);
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    dataset->SetSpatialRef(&reference);
    dataset->GetRasterBand(1)->SetNoDataValue(static_cast<double>(CellSamples::novalue));
    dataset->GetRasterBand(1)->Fill(static_cast<double>(CellSamples::novalue));
    return dataset;
}

int CPL_STDCALL reportshare(double share, const char*, void* progress)
{
    (*static_cast<const std::function<void(double)>*>(progress))(share);
    return TRUE;
}

struct FreeWarpOptions {
    void operator()(GDALWarpAppOptions* options) const { GDALWarpAppOptionsFree(options); }
};

void warp(const Raster& raster, GDALDataset& target, const std::function<void(double)>& progress)
{
    CPLStringList arguments;
    for (const char* argument : {"-r", "bilinear", "-ovr", "NONE", "-et", "0.05", "-wm", "64"})
        arguments.AddString(argument);
    const std::unique_ptr<GDALWarpAppOptions, FreeWarpOptions> options(
        GDALWarpAppOptionsNew(arguments.List(), nullptr));
    GDALWarpAppOptionsSetProgress(options.get(), reportshare,
                                  const_cast<std::function<void(double)>*>(&progress));
    GDALDatasetH source = raster.dataset.get();
    int usage = FALSE;
    CPLErrorReset();
    if (GDALWarp(nullptr, &target, 1, &source, options.get(), &usage) == nullptr)
        throw ImportFailure(raster.file, CPLGetLastErrorMsg());
}
} // namespace

void layraster(const Raster& raster, int shift, CellSamples& samples,
               const std::function<void(double)>& progress)
{
    const ImportCell& cell = samples.cell;
    const Dataset target = memorydataset(cell, shift, GDT_Float32);
    warp(raster, *target, progress);
    std::vector<float> heights(samples.heights.size());
    if (target->GetRasterBand(1)->RasterIO(GF_Read, 0, 0, cell.columns(), cell.rows(),
                                           heights.data(), cell.columns(), cell.rows(), GDT_Float32,
                                           0, 0, nullptr) != CE_None)
        throw ImportFailure(raster.file, CPLGetLastErrorMsg());
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const auto height =
            static_cast<float>(static_cast<double>(heights[i]) * raster.scale + raster.offset);
        if (heights[i] > CellSamples::novalue && height >= lowest && height <= highest)
            samples.heights[i] = height;
    }
}

std::string cellbytes(CellSamples& samples)
{
    const ImportCell& cell = samples.cell;
    for (float& height : samples.heights)
        height = std::nearbyint(height);
    const Dataset rounded = memorydataset(cell, 0, GDT_Int16);
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("DTED");
    if (driver == nullptr ||
        rounded->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, cell.columns(), cell.rows(),
                                            samples.heights.data(), cell.columns(), cell.rows(),
                                            GDT_Float32, 0, 0, nullptr) != CE_None)
        throw ImportFailure(cell.name(), "cannot be made");
    const std::string name = "/vsimem/" + cell.name();
    CPLErrorReset();
    const Dataset written(
        driver->CreateCopy(name.c_str(), rounded.get(), FALSE, nullptr, nullptr, nullptr));
    if (written == nullptr)
        throw ImportFailure(cell.name(), CPLGetLastErrorMsg());
    written->FlushCache();
    vsi_l_offset size = 0;
    const GByte* const bytes = VSIGetMemFileBuffer(name.c_str(), &size, FALSE);
    std::string content(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    VSIUnlink(name.c_str());
    return content;
}
