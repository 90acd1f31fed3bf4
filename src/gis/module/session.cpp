#include "gis/module/session.h"

#include <atomic>
#include <cpl_vsi.h>
#include <ogr_spatialref.h>

GdalSession::GdalSession()
{
    static const bool ready = [] {
        GDALAllRegister();
        return true;
    }();
    static_cast<void>(ready);
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
}

GdalSession::~GdalSession()
{
    CPLPopErrorHandler();
}

std::string lastremark(const std::string& otherwise)
{
    const std::string remark = CPLGetLastErrorMsg();
    return remark.empty() ? otherwise : remark;
}

MemoryFile::MemoryFile(const std::string& ending)
{
    static std::atomic<int> counter = 0;
    path = "/vsimem/velmora-" + std::to_string(++counter) + ending;
}

MemoryFile::~MemoryFile()
{
    VSIUnlink(path.c_str());
}

std::string MemoryFile::content() const
{
    vsi_l_offset size = 0;
    const GByte* const bytes = VSIGetMemFileBuffer(path.c_str(), &size, FALSE);
    if (bytes == nullptr)
        return {};
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

Dataset memoryraster(int columns, int rows, int bands, GDALDataType type)
{
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("MEM");
    Dataset dataset(driver->Create("", columns, rows, bands, type, nullptr));
    if (dataset == nullptr)
        throw std::bad_alloc();
    return dataset;
}

void placeindegrees(GDALDataset& raster, double west, double north, double dx, double dy)
{
    double geotransform[6] = {west, dx, 0, north, 0, -dy};
    raster.SetGeoTransform(geotransform);
    OGRSpatialReference reference;
    reference.SetFromUserInput("EPSG:4326");
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    raster.SetSpatialRef(&reference);
}
