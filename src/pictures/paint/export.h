#pragma once

#include "pictures/picture.h"

#include <QImage>

#include <string>

/// Rectangle in degrees, with east not wrapped.
struct GeoBox {
    double west = 0, east = 0, south = 0, north = 0;
};

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

/// Writes a picture as a GeoTIFF: WGS 84 in degrees, one sample a pixel, without compression loss.
/// False, and `why`, when it has no position or the file cannot be written.
bool writegeotiff(const std::string& path, const QImage& image, const Picture& picture,
                  std::string* why = nullptr);

/// Writes a picture as a KML ground overlay, with its image beside it as a PNG of the same name.
bool writekml(const std::string& path, const QImage& image, const Picture& picture,
              std::string* why = nullptr);
