#pragma once

#include "gis/importer.h"
#include "gis/rasters.h"
#include "gis/vectors.h"

/// What the module over GDAL offers. All paths are as given; what is written comes as bytes, so
/// that the caller's own writing keeps an old file whole. Procedures that can fail give null,
/// nothing or false, and `why`.
struct GisLibrary {
    /// See `ImportOrder`.
    void (*importrasters)(const ImportOrder& order, ImportResult& result);
    std::unique_ptr<GisRaster> (*openraster)(const std::string& file, const RasterOptions& options,
                                             std::string& why);
    std::optional<std::string> (*geotiffbytes)(const GeoTiff& tiff, std::string& why);
    bool (*readvectors)(const std::string& file, const VectorLimits& limits,
                        std::vector<VectorLayer>& layers, std::string& why);
    std::optional<std::string> (*vectorbytes)(const std::vector<VectorLayer>& layers,
                                              VectorFormat format, std::string& why);
    std::optional<std::string> (*zipbytes)(const std::vector<ZipEntry>& entries, std::string& why);
};

/// The module, loaded when it is first asked for; it stays loaded. Null where the program was built
/// or installed without it.
const GisLibrary* gislibrary();

/// What is said where it is missing.
inline constexpr const char* nogislibrary =
    "cannot load libvelmora_gis.so; this program was built without it";

/// Name under which the module hands out its table.
inline constexpr const char* gisentry = "velmoragis";
