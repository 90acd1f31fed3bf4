#pragma once

#include "gis/rasters.h"
#include "pictures/picture.h"

#include <QImage>

#include <optional>
#include <string>
#include <vector>

/// A picture laid into a rectangle of degrees, north up; pixels without a position are transparent.
/// Its edges are the outer borders of the outermost pixels.
struct GeoImage {
    QImage image; ///< 32-bit with alpha
    GeoBox box;
};

/// Lays a placed picture into its rectangle. A map's own rendering keeps its pixels; a picture of
/// four corners is sampled anew, as finely as it is, the nearest pixel each. A null image when it
/// has no position.
GeoImage geoimage(const QImage& image, const Picture& picture);

/// A picture as a GeoTIFF: WGS 84 in degrees, one sample a pixel, without compression loss.
/// Nothing, and `why`, when it has no position or the program is without the library of rasters.
std::optional<std::string> geotiffof(const QImage& image, const Picture& picture, std::string& why);

/// A picture as a KMZ: a KML ground overlay of this name and its image in one archive.
std::optional<std::string> kmzof(const std::string& name, const QImage& image,
                                 const Picture& picture, std::string& why);

/// Kinds of files for other map programs.
enum class ExportKind { geotiff, kml, kmz };

/// The kind that a name's ending tells; nothing for another ending.
std::optional<ExportKind> exportkind(const std::string& path);

/// The files that an export writes: a KML has its image beside it as a PNG of the same name.
std::vector<std::string> exportedfiles(const std::string& path);

/// Writes a picture as a GeoTIFF. False, and `why`, when it cannot be made or written.
bool writegeotiff(const std::string& path, const QImage& image, const Picture& picture,
                  std::string* why = nullptr);

/// Writes a picture as a KML ground overlay with its image beside it, or as a KMZ if the name ends
/// so.
bool writekml(const std::string& path, const QImage& image, const Picture& picture,
              std::string* why = nullptr);
