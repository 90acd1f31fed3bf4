#include "pictures/paint/export.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "gis/gis.h"
#include "pictures/georeference.h"

#include <QBuffer>
#include <QByteArray>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace
{
/// Rectangle whose outermost pixel centres have these positions.
GeoBox boxofcentres(double west, double east, double south, double north, QSize size)
{
    const double halfx = (east - west) / (size.width() - 1) / 2;
    const double halfy = (north - south) / (size.height() - 1) / 2;
    return {west - halfx, east + halfx, south - halfy, north + halfy};
}

/// Pixels over an extent of degrees that are as fine as those of a picture, however it is turned.
///   corners  of the picture, longitudes or latitudes
int finepixels(const std::array<float, 4>& corners, double extent, const QImage& image)
{
    const auto [a, b, c, d] = corners;
    const double alongx = double{b - a + c - d} / 2 / (image.width() - 1);
    const double alongy = double{d - a + c - b} / 2 / (image.height() - 1);
    const double pixels = std::round(extent / std::hypot(alongx, alongy) + 1);
    return static_cast<int>(std::clamp(pixels, 2.0, double(image.width() + image.height())));
}

/// The picture's pixel under each pixel of the rectangle.
QImage resampled(const QImage& image, const Picture& picture, const GeoBox& box, QSize size)
{
    QImage out(size, QImage::Format_ARGB32);
    out.fill(Qt::transparent);
    for (int y = 0; y < out.height(); ++y) {
        const double lat = box.north - (y + 0.5) / out.height() * (box.north - box.south);
        auto* row = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x) {
            const double lon = box.west + (x + 0.5) / out.width() * (box.east - box.west);
            float px = 0;
            float py = 0;
            if (ll2pic(picture, static_cast<float>(lon), static_cast<float>(lat), px, py))
                row[x] = image.pixel(std::clamp(static_cast<int>(px), 0, image.width() - 1),
                                     std::clamp(static_cast<int>(py), 0, image.height() - 1));
        }
    }
    return out;
}

std::optional<std::string> refuse(std::string& why,
                                  const char* reason = "the picture has no position")
{
    why = reason;
    return {};
}

/// The name of a file without the ending of a KML or KMZ.
std::string baseof(const std::string& path)
{
    std::string base = nameof(path);
    if (lowercase(base).ends_with(".kml") || lowercase(base).ends_with(".kmz"))
        base.resize(base.size() - 4);
    return base;
}

std::string pngof(const QImage& image)
{
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    image.save(&png, "PNG");
    return png.data().toStdString();
}

/// A ground overlay: a picture by its file name, and the box that it covers.
std::string overlaykml(const std::string& name, const std::string& pngname, const GeoBox& box)
{
    QByteArray kml;
    QXmlStreamWriter xml(&kml);
    const auto element = [&xml](const char* tag, const std::string& text) {
        xml.writeTextElement(QString::fromLatin1(tag), QString::fromStdString(text));
    };
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("kml"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.opengis.net/kml/2.2"));
    xml.writeStartElement(QStringLiteral("GroundOverlay"));
    element("name", name);
    xml.writeStartElement(QStringLiteral("Icon"));
    element("href", pngname);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("LatLonBox"));
    element("north", generalnumber(box.north));
    element("south", generalnumber(box.south));
    element("east", generalnumber(box.east));
    element("west", generalnumber(box.west));
    xml.writeEndDocument();
    return kml.toStdString();
}
} // namespace

GeoImage geoimage(const QImage& image, const Picture& picture)
{
    if (!picture.isplaced() || image.width() < 2 || image.height() < 2)
        return {};
    if (picture.Pictype == pictype::map)
        return {image.convertToFormat(QImage::Format_ARGB32),
                boxofcentres(double{picture.lon[0]}, double{picture.lon[1]}, double{picture.lat[3]},
                             double{picture.lat[0]}, image.size())};
    const auto [west, east] = std::minmax_element(picture.lon.begin(), picture.lon.end());
    const auto [south, north] = std::minmax_element(picture.lat.begin(), picture.lat.end());
    if (!(*west < *east) || !(*south < *north))
        return {};
    const QSize size(finepixels(picture.lon, double{*east} - double{*west}, image),
                     finepixels(picture.lat, double{*north} - double{*south}, image));
    const GeoBox box =
        boxofcentres(double{*west}, double{*east}, double{*south}, double{*north}, size);
    return {resampled(image, picture, box, size), box};
}

std::optional<std::string> geotiffof(const QImage& image, const Picture& picture, std::string& why)
{
    const GeoImage geo = geoimage(image, picture);
    if (geo.image.isNull())
        return refuse(why);
    const GisLibrary* const gis = gislibrary();
    if (gis == nullptr)
        return refuse(why, nogislibrary);
    const QImage pixels = geo.image.convertToFormat(QImage::Format_RGBA8888); // rows without gaps
    GeoTiff tiff;
    tiff.columns = pixels.width();
    tiff.rows = pixels.height();
    tiff.box = geo.box;
    tiff.samples = pixels.constBits();
    return gis->geotiffbytes(tiff, why);
}

std::optional<std::string> kmzof(const std::string& name, const QImage& image,
                                 const Picture& picture, std::string& why)
{
    const GeoImage geo = geoimage(image, picture);
    if (geo.image.isNull())
        return refuse(why);
    const GisLibrary* const gis = gislibrary();
    if (gis == nullptr)
        return refuse(why, nogislibrary);
    return gis->zipbytes(
        {{"doc.kml", overlaykml(name, "overlay.png", geo.box)}, {"overlay.png", pngof(geo.image)}},
        why);
}

std::optional<ExportKind> exportkind(const std::string& path)
{
    const std::string name = lowercase(nameof(path));
    if (name.ends_with(".tif") || name.ends_with(".tiff"))
        return ExportKind::geotiff;
    if (name.ends_with(".kml"))
        return ExportKind::kml;
    if (name.ends_with(".kmz"))
        return ExportKind::kmz;
    return {};
}

std::vector<std::string> exportedfiles(const std::string& path)
{
    std::vector<std::string> files{path};
    if (exportkind(path) == ExportKind::kml)
        files.push_back(pathof(path) + baseof(path) + ".png");
    return files;
}

bool writegeotiff(const std::string& path, const QImage& image, const Picture& picture,
                  std::string* why)
{
    std::string reason;
    const auto bytes = geotiffof(image, picture, reason);
    if (bytes)
        return writefile(targetpath(path), *bytes, why);
    if (why != nullptr)
        *why = reason;
    return false;
}

/// The image first: a KML without its image would be seen as a hole.
static bool writepair(const std::string& path, const GeoImage& geo, std::string& why)
{
    const std::string pngname = baseof(path) + ".png";
    return writefile(targetpath(pathof(path) + pngname), pngof(geo.image), &why) &&
           writefile(targetpath(path), overlaykml(baseof(path), pngname, geo.box), &why);
}

bool writekml(const std::string& path, const QImage& image, const Picture& picture,
              std::string* why)
{
    std::string reason;
    bool written = false;
    if (exportkind(path) == ExportKind::kmz) {
        const auto bytes = kmzof(baseof(path), image, picture, reason);
        written = bytes && writefile(targetpath(path), *bytes, &reason);
    } else {
        const GeoImage geo = geoimage(image, picture);
        written = geo.image.isNull() ? refuse(reason).has_value() : writepair(path, geo, reason);
    }
    if (!written && why != nullptr)
        *why = reason;
    return written;
}
