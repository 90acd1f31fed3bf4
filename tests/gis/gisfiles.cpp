#include "gis/gisfiles.h"

#include "gis/module/session.h"

#include <cpl_string.h>
#include <filesystem>
#include <ogr_spatialref.h>

std::string GisTest::make(const std::string& name, const MadeRaster& raster) const
{
    const GdalSession session;
    const std::string path = folder.path(name);
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    const Dataset dataset(driver->Create(path.c_str(), raster.columns, raster.rows,
                                         static_cast<int>(raster.bands.size()),
                                         GDALGetDataTypeByName(raster.type.c_str()), nullptr));
    const double dx = raster.spacingx > 0 ? raster.spacingx : raster.spacing;
    double geotransform[6] = {raster.west, dx, 0, raster.north, 0, -raster.spacing};
    dataset->SetGeoTransform(geotransform);
    if (!raster.crs.empty()) {
        OGRSpatialReference reference;
        EXPECT_EQ(reference.SetFromUserInput(raster.crs.c_str()), OGRERR_NONE);
        reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        dataset->SetSpatialRef(&reference);
    }
    std::vector<double> row(static_cast<std::size_t>(raster.columns));
    for (std::size_t band = 0; band < raster.bands.size(); ++band) {
        GDALRasterBand& target = *dataset->GetRasterBand(static_cast<int>(band) + 1);
        if (!raster.unit.empty())
            target.SetUnitType(raster.unit.c_str());
        for (int y = 0; y < raster.rows; ++y) {
            for (int x = 0; x < raster.columns; ++x)
                row[static_cast<std::size_t>(x)] = raster.bands[band](
                    raster.west + (x + 0.5) * dx, raster.north - (y + 0.5) * raster.spacing);
            EXPECT_EQ(target.RasterIO(GF_Write, 0, y, raster.columns, 1, row.data(), raster.columns,
                                      1, GDT_Float64, 0, 0, nullptr),
                      CE_None);
        }
    }
    return path;
}

std::string GisTest::maketile(int lon, int lat, int stepx, int stepy,
                              const std::function<double(double, double)>& height) const
{
    MadeRaster tile;
    tile.spacing = 1.0 / stepy;
    tile.spacingx = 1.0 / stepx;
    tile.columns = stepx;
    tile.rows = stepy;
    tile.west = lon - tile.spacingx / 2;
    tile.north = lat + 1 + tile.spacing / 2;
    tile.bands = {height};
    return make("tile" + std::to_string(lon) + "_" + std::to_string(lat) + ".tif", tile);
}

ImportResult GisTest::import(const std::vector<std::string>& files, ImportOrder order)
{
    order.files = files;
    order.find = [this](const std::string& name) {
        const std::string path = folder.path(name);
        return std::filesystem::exists(path) ? std::optional(path) : std::nullopt;
    };
    order.write = [this](const std::string& name, std::string_view bytes) {
        std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
        folder.makefile(name, bytes);
        return true;
    };
    order.progress = [](double) {};
    order.say = [this](const std::string& what, const std::string& sentence) {
        said.push_back(what + ": " + sentence);
    };
    ImportResult result;
    importrasters(order, result);
    return result;
}

int MadeCell::at(int column, int row) const
{
    const std::size_t at =
        3428 + static_cast<std::size_t>(column) * (12 + 2 * static_cast<std::size_t>(rows)) + 8 +
        2 * static_cast<std::size_t>(row);
    const int high = static_cast<unsigned char>(bytes.at(at));
    const int low = static_cast<unsigned char>(bytes.at(at + 1));
    if (high == 0xFF && low == 0xFF)
        return -32767;
    return (high & 0x80) != 0 ? -((high & 0x7F) << 8 | low) : high << 8 | low;
}

std::size_t MadeCell::voids() const
{
    std::size_t count = 0;
    for (int column = 0; column < columns; ++column)
        for (int row = 0; row < rows; ++row)
            count += at(column, row) == -32767 ? 1 : 0;
    return count;
}

MadeCell GisTest::cell(const std::string& name) const
{
    MadeCell cell{folder.content("DTED/" + name)};
    EXPECT_GT(cell.bytes.size(), 3428U) << name;
    if (cell.bytes.size() > 3428) {
        cell.columns = std::stoi(cell.bytes.substr(47, 4));
        cell.rows = std::stoi(cell.bytes.substr(51, 4));
    }
    return cell;
}

bool GisTest::exists(const std::string& cell) const
{
    return std::filesystem::exists(folder.path("DTED/" + cell));
}
