#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// A rectangle of WGS 84, degrees; its edges are the outer borders of the outermost pixels. East is
/// not wrapped: beyond 180 where the rectangle crosses that meridian.
struct GeoBox {
    double west = 0, east = 0, south = 0, north = 0;
};

/// What a file does not tell, or tells wrongly.
struct RasterOptions {
    std::string crs; ///< coordinate system, as "EPSG:32631"; empty: the file's own
};

/// A raster as a whole.
struct RasterInfo {
    int columns = 0, rows = 0, bands = 0;
    GeoBox box;           ///< that holds all of it, however it is turned
    double spacing = 0;   ///< of neighbouring rows on the ground, arc seconds of latitude
    std::string crs;      ///< name of its coordinate system
    std::string driver;   ///< short name of its kind, as "GTiff"
    std::string unit;     ///< of the first band's values, as the file has it
    bool bytes = false;   ///< its bands are bytes: a picture rather than values
    bool palette = false; ///< its first band counts colours of a table
    int overviews = 0;    ///< reduced copies that reading uses
};

/// How a pixel is made of the raster's.
enum class Resampling { nearest, bilinear, average };

/// Receives the share done, 0 to 1; false stops.
using GisProgress = std::function<bool(double share)>;

/// An open raster. Windows of it come in WGS 84, north up, whatever its own system is; a window may
/// reach beyond it. The reduced copy that suits a window's pixels is used where there is one.
class GisRaster
{
public:
    GisRaster() = default;
    GisRaster(const GisRaster&) = delete;
    GisRaster& operator=(const GisRaster&) = delete;
    virtual ~GisRaster() = default;

    virtual const RasterInfo& info() const = 0;

    /// Values of a band, row by row from the north; `nodata` where it has none.
    ///   band    from 1
    ///   values  columns x rows of them
    virtual bool readvalues(const GeoBox& window, int columns, int rows, int band,
                            Resampling resampling, float nodata, std::span<float> values,
                            const GisProgress& progress, std::string& why) = 0;

    /// Colours, 0xAARRGGBB and not multiplied by their alpha, which is 0 where it has none. A band
    /// of other numbers than bytes is grey from its least to its greatest value.
    virtual bool readcolours(const GeoBox& window, int columns, int rows, Resampling resampling,
                             std::span<std::uint32_t> colours, const GisProgress& progress,
                             std::string& why) = 0;
};

/// Kinds of samples.
enum class SampleType { byte, uint16, float32 };

/// A raster to be written: WGS 84 in degrees, or any other system, north up, samples deflated.
struct GeoTiff {
    int columns = 0, rows = 0;
    GeoBox box; ///< in the units of `crs`
    std::string crs = "EPSG:4326";
    SampleType type = SampleType::byte;
    int bands = 4;                 ///< bytes: 4 are red, green, blue, alpha
    const void* samples = nullptr; ///< row by row from the north, the bands of a pixel together
    std::optional<double> nodata;
    std::vector<std::string> names; ///< of the bands; may be fewer
    bool tiled = false;             ///< in tiles, for readers that look at pieces
    bool overviews = false;         ///< with reduced copies
};

/// A file of an archive.
struct ZipEntry {
    std::string name;
    std::string content;
};
