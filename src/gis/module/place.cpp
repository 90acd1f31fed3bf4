#include "gis/module/place.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <gdal_alg.h>
#include <gdal_utils.h>
#include <limits>
#include <ogr_spatialref.h>

namespace
{
constexpr const char* wgs84 = "EPSG:4326";
constexpr double radians = 3.14159265358979323846 / 180;

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

Dataset tryopen(const std::string& file)
{
    return Dataset(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
}

/// A compressed file. A tile whose kind is known by its name alone is unpacked in memory under it.
Dataset opencompressed(const std::string& file)
{
    const std::string packed = "/vsigzip/" + file;
    if (Dataset dataset = tryopen(packed))
        return dataset;
    const std::string inner = CPLGetBasename(file.c_str()); // without the .gz
    if (!lower(inner).ends_with(".hgt"))
        return nullptr;
    constexpr vsi_l_offset most = vsi_l_offset{3601} * 3601 * 2; // of a tile, bytes
    GByte* bytes = nullptr;
    vsi_l_offset size = 0;
    if (VSIIngestFile(nullptr, packed.c_str(), &bytes, &size, static_cast<GIntBig>(most)) == FALSE)
        return nullptr;
    const std::string unpacked = "/vsimem/" + inner;
    VSIFCloseL(VSIFileFromMemBuffer(unpacked.c_str(), bytes, size, TRUE));
    const Dataset tile = tryopen(unpacked);
    // The file in memory goes; so its samples are copied.
    Dataset copy(tile == nullptr ? nullptr
                                 : GetGDALDriverManager()->GetDriverByName("MEM")->CreateCopy(
                                       "", tile.get(), FALSE, nullptr, nullptr, nullptr));
    VSIUnlink(unpacked.c_str());
    return copy;
}

[[noreturn]] void refuse(const std::string& file)
{
    const std::string remark = lastremark("");
    VSIStatBufL status{};
    if (VSIStatL(file.c_str(), &status) != 0)
        throw GisFailure(file, "no such file");
    if (VSI_ISDIR(status.st_mode))
        throw GisFailure(file, "is a folder, not a raster");
    if (status.st_size == 0)
        throw GisFailure(file, "is empty");
    const std::string name = lower(CPLGetFilename(file.c_str()));
    if (name.ends_with(".hgt") || name.ends_with(".hgt.gz"))
        throw GisFailure(file, "cannot be read as a raster: a .hgt tile has its place in its name, "
                               "as N41E001.hgt, and 1201 x 1201 or 3601 x 3601 samples");
    throw GisFailure(file, "cannot be read as a raster" + (remark.empty() ? "" : ": " + remark));
}

/// The same raster under another coordinate system.
Dataset withsystem(const std::string& file, Dataset& dataset, const std::string& crs)
{
    OGRSpatialReference reference;
    if (reference.SetFromUserInput(crs.c_str()) != OGRERR_NONE)
        throw GisFailure(crs, "is no known coordinate system");
    CPLStringList arguments;
    for (const char* argument : {"-of", "VRT", "-a_srs", crs.c_str()})
        arguments.AddString(argument);
    GDALTranslateOptions* const options = GDALTranslateOptionsNew(arguments.List(), nullptr);
    Dataset view(GDALDataset::FromHandle(GDALTranslate("", dataset.get(), options, nullptr)));
    GDALTranslateOptionsFree(options);
    if (view == nullptr)
        throw GisFailure(file, lastremark("cannot be given a coordinate system"));
    dataset.release()->ReleaseRef(); // the view keeps it open
    return view;
}

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

/// A position in degrees of a pixel position; nothing where there is none.
struct Degrees {
    double lon, lat;
};
std::optional<Degrees> degreesof(void* transformer, double x, double y)
{
    double z = 0;
    int good = FALSE;
    GDALGenImgProjTransform(transformer, FALSE, 1, &x, &y, &z, &good);
    if (good == FALSE || !std::isfinite(x) || !std::isfinite(y))
        return {};
    return Degrees{x, y};
}

/// A longitude in the turn that is nearest to another.
double unwrapped(double lon, double near)
{
    return lon - 360 * std::nearbyint((lon - near) / 360);
}

/// True when the raster holds a pole.
bool holdspole(GDALDataset& dataset, void* transformer, double lat)
{
    double lon = 0;
    double z = 0;
    int good = FALSE;
    GDALGenImgProjTransform(transformer, TRUE, 1, &lon, &lat, &z, &good);
    return good != FALSE && lon > 0 && lat > 0 && lon < dataset.GetRasterXSize() &&
           lat < dataset.GetRasterYSize();
}

/// The rectangle around a raster's outline and some of its inside. Longitudes are those next to its
/// middle's, so that one which crosses 180 degrees is no wider for it.
GeoBox boxof(GDALDataset& dataset, void* transformer, const Degrees& middle)
{
    constexpr int steps = 40;
    constexpr double infinite = std::numeric_limits<double>::infinity();
    GeoBox box{infinite, -infinite, infinite, -infinite};
    for (int row = 0; row <= steps; ++row)
        for (int column = 0; column <= steps; ++column) {
            const auto at =
                degreesof(transformer, dataset.GetRasterXSize() * column / double{steps},
                          dataset.GetRasterYSize() * row / double{steps});
            if (!at)
                continue;
            const double lon = unwrapped(at->lon, middle.lon);
            box.west = std::min(box.west, lon);
            box.east = std::max(box.east, lon);
            box.south = std::min(box.south, at->lat);
            box.north = std::max(box.north, at->lat);
        }
    const OGRSpatialReference* const system = dataset.GetSpatialRef();
    if (system != nullptr && system->IsProjected() != 0)
        for (const double pole : {-90.0, 90.0})
            if (holdspole(dataset, transformer, pole)) {
                box.west = middle.lon - 180;
                box.east = middle.lon + 180;
                (pole < 0 ? box.south : box.north) = pole;
            }
    return box;
}

/// Distance of two neighbouring rows in the raster's middle, arc seconds of latitude.
double rowspacing(GDALDataset& dataset, void* transformer)
{
    const double middle = dataset.GetRasterXSize() / 2.0;
    const double row = dataset.GetRasterYSize() / 2.0;
    const auto upper = degreesof(transformer, middle, row - 0.5);
    const auto lower = degreesof(transformer, middle, row + 0.5);
    if (!upper || !lower)
        return 0;
    const double east =
        (unwrapped(upper->lon, lower->lon) - lower->lon) * std::cos(lower->lat * radians);
    return std::hypot(east, upper->lat - lower->lat) * 3600;
}
} // namespace

Dataset openfile(const std::string& file, const std::string& crs)
{
    CPLErrorReset();
    Dataset dataset = tryopen(file);
    if (dataset == nullptr && lower(file).ends_with(".gz"))
        dataset = opencompressed(file);
    if (dataset == nullptr || dataset->GetRasterCount() < 1)
        refuse(file);
    return crs.empty() ? std::move(dataset) : withsystem(file, dataset, crs);
}

Place placeof(const std::string& file, GDALDataset& dataset)
{
    double geotransform[6];
    if (dataset.GetGeoTransform(geotransform) != CE_None && dataset.GetGCPCount() == 0)
        throw GisFailure(file, "has no georeference");
    if (dataset.GetSpatialRef() == nullptr && dataset.GetGCPSpatialRef() == nullptr)
        throw GisFailure(file, "has coordinates but names no coordinate system; give it by --crs");
    const Transformer transformer = todegrees(dataset);
    const auto middle = transformer == nullptr
                            ? std::nullopt
                            : degreesof(transformer.get(), dataset.GetRasterXSize() / 2.0,
                                        dataset.GetRasterYSize() / 2.0);
    if (!middle)
        throw GisFailure(file, "its coordinates cannot be brought to WGS 84");
    const Place place{boxof(dataset, transformer.get(), *middle),
                      rowspacing(dataset, transformer.get())};
    if (!(place.spacing > 0) || !(place.box.east - place.box.west < 361) ||
        !(place.box.south >= -91) || !(place.box.north <= 91))
        throw GisFailure(file, "its georeference makes no sense");
    return place;
}
