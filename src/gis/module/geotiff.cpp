#include "gis/module/geotiff.h"

#include "gis/module/session.h"

#include <array>
#include <cpl_string.h>
#include <ogr_spatialref.h>

namespace
{
GDALDataType gdaltype(SampleType type)
{
    switch (type) {
    case SampleType::uint16:
        return GDT_UInt16;
    case SampleType::float32:
        return GDT_Float32;
    case SampleType::byte:
        break;
    }
    return GDT_Byte;
}

bool iscolour(const GeoTiff& tiff)
{
    return tiff.type == SampleType::byte && tiff.bands == 4;
}

CPLStringList creationoptions(const GeoTiff& tiff)
{
    CPLStringList options;
    options.SetNameValue("COMPRESS", "DEFLATE");
    options.SetNameValue("PREDICTOR", tiff.type == SampleType::float32 ? "3" : "2");
    options.SetNameValue("INTERLEAVE", "PIXEL");
    options.SetNameValue("BIGTIFF", "IF_SAFER");
    if (tiff.tiled)
        options.SetNameValue("TILED", "YES");
    if (iscolour(tiff)) {
        options.SetNameValue("PHOTOMETRIC", "RGB");
        options.SetNameValue("ALPHA", "YES");
    }
    return options;
}

void setplace(const GeoTiff& tiff, GDALDataset& dataset)
{
    std::array<double, 6> geotransform{tiff.box.west,
                                       (tiff.box.east - tiff.box.west) / tiff.columns,
                                       0,
                                       tiff.box.north,
                                       0,
                                       (tiff.box.south - tiff.box.north) / tiff.rows};
    OGRSpatialReference reference;
    if (reference.SetFromUserInput(tiff.crs.c_str()) != OGRERR_NONE)
        throw GisFailure(tiff.crs, "is no known coordinate system");
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    dataset.SetGeoTransform(geotransform.data());
    dataset.SetSpatialRef(&reference);
}

void setbands(const GeoTiff& tiff, GDALDataset& dataset)
{
    for (int band = 1; band <= tiff.bands; ++band) {
        GDALRasterBand& target = *dataset.GetRasterBand(band);
        if (static_cast<std::size_t>(band) <= tiff.names.size())
            target.SetDescription(tiff.names[static_cast<std::size_t>(band) - 1].c_str());
        if (tiff.nodata)
            target.SetNoDataValue(*tiff.nodata);
    }
}

void writesamples(const GeoTiff& tiff, GDALDataset& dataset)
{
    const GDALDataType type = gdaltype(tiff.type);
    const GSpacing sample = GDALGetDataTypeSizeBytes(type);
    const GSpacing pixel = sample * tiff.bands;
    if (dataset.RasterIO(GF_Write, 0, 0, tiff.columns, tiff.rows, const_cast<void*>(tiff.samples),
                         tiff.columns, tiff.rows, type, tiff.bands, nullptr, pixel,
                         pixel * tiff.columns, sample, nullptr) != CE_None)
        throw GisFailure("GeoTIFF", lastremark("cannot be made"));
}

void addoverviews(const GeoTiff& tiff, GDALDataset& dataset)
{
    constexpr int smallest = 256; // pixels along the longer side
    std::vector<int> factors;
    for (int factor = 2; std::max(tiff.columns, tiff.rows) / factor >= smallest; factor *= 2)
        factors.push_back(factor);
    // Numbers that name things have no mean.
    const char* const method = tiff.type == SampleType::uint16 ? "NEAREST" : "AVERAGE";
    if (!factors.empty() &&
        dataset.BuildOverviews(method, static_cast<int>(factors.size()), factors.data(), 0, nullptr,
                               nullptr, nullptr) != CE_None)
        throw GisFailure("GeoTIFF", lastremark("cannot be made"));
}
} // namespace

std::optional<std::string> geotiffbytes(const GeoTiff& tiff, std::string& why)
{
    const GdalSession session;
    try {
        const MemoryFile file(".tif");
        GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("GTiff");
        Dataset dataset(driver == nullptr
                            ? nullptr
                            : driver->Create(file.name().c_str(), tiff.columns, tiff.rows,
                                             tiff.bands, gdaltype(tiff.type),
                                             creationoptions(tiff).List()));
        if (dataset == nullptr)
            throw GisFailure("GeoTIFF", lastremark("cannot be made"));
        setplace(tiff, *dataset);
        setbands(tiff, *dataset);
        writesamples(tiff, *dataset);
        if (tiff.overviews)
            addoverviews(tiff, *dataset);
        dataset.reset(); // completes the file
        return file.content();
    } catch (const std::exception& error) {
        why = error.what();
        return {};
    }
}
