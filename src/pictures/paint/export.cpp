#include "pictures/paint/export.h"

#include "base/bytes.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "pictures/georeference.h"

#include <QBuffer>
#include <QByteArray>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <vector>

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

/// Types of a directory entry.
enum FieldType : std::uint16_t { ascii = 2, shorts = 3, longs = 4, doubles = 12 };

/// A directory of a TIFF file, its values behind it.
class TiffDirectory
{
public:
    void add(std::uint16_t tag, FieldType type, std::uint32_t count, std::string_view values)
    {
        entries.push_back({tag, type, count, std::string(values)});
    }
    void addshorts(std::uint16_t tag, const std::vector<std::uint16_t>& values)
    {
        add(tag, shorts, static_cast<std::uint32_t>(values.size()), bytesof(values));
    }
    void addlong(std::uint16_t tag, std::uint32_t value)
    {
        add(tag, longs, 1, bytesof(std::vector{value}));
    }
    void adddoubles(std::uint16_t tag, const std::vector<double>& values)
    {
        add(tag, doubles, static_cast<std::uint32_t>(values.size()), bytesof(values));
    }

    /// The file's head: header, directory and values; the pixels follow it. `pixeltag` receives
    /// the offset of what follows.
    std::string head(std::uint16_t pixeltag) const
    {
        const auto count = static_cast<std::uint32_t>(entries.size());
        const std::uint32_t valuestart = 8 + 2 + 12 * count + 4;
        ByteWriter values;
        ByteWriter out;
        out.writeblock("II*\0", 4);
        out.write(std::uint32_t{8});
        out.write(static_cast<std::uint16_t>(count));
        std::uint32_t total = valuestart;
        for (const Entry& entry : entries)
            total += entry.values.size() > 4 ? even(entry.values.size()) : 0;
        for (const Entry& entry : entries) {
            out.write(entry.tag);
            out.write(static_cast<std::uint16_t>(entry.type));
            out.write(entry.count);
            std::string value = entry.tag == pixeltag ? bytesof(std::vector{total}) : entry.values;
            const auto at = valuestart + static_cast<std::uint32_t>(values.data().size());
            if (value.size() > 4) {
                value.resize(even(value.size()));
                values.writeblock(value.data(), value.size());
                value = bytesof(std::vector{at});
            }
            value.resize(4);
            out.writeblock(value.data(), value.size());
        }
        out.write(std::uint32_t{0});
        return out.data() + values.data();
    }

private:
    struct Entry {
        std::uint16_t tag;
        FieldType type;
        std::uint32_t count;
        std::string values;
    };
    static std::uint32_t even(std::size_t size)
    {
        return static_cast<std::uint32_t>(size + size % 2);
    }
    template <typename T> static std::string bytesof(const std::vector<T>& values)
    {
        return {reinterpret_cast<const char*>(values.data()), values.size() * sizeof(T)};
    }

    std::vector<Entry> entries; ///< tags rising
};

/// Tags of the format, by their names there.
enum Tag : std::uint16_t {
    ImageWidth = 256,
    ImageLength = 257,
    BitsPerSample = 258,
    Compression = 259,
    PhotometricInterpretation = 262,
    StripOffsets = 273,
    SamplesPerPixel = 277,
    RowsPerStrip = 278,
    StripByteCounts = 279,
    PlanarConfiguration = 284,
    ExtraSamples = 338,
    ModelPixelScale = 33550,
    ModelTiepoint = 33922,
    GeoKeyDirectory = 34735
};

/// Red, green, blue, alpha of all pixels, row by row, deflated as the format wants it.
std::string deflatedpixels(const QImage& image)
{
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    QByteArray pixels;
    const qsizetype rowbytes = qsizetype{rgba.width()} * 4;
    pixels.reserve(rowbytes * rgba.height());
    for (int y = 0; y < rgba.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(rgba.constScanLine(y)), rowbytes);
    // The toolkit puts the length in front of the stream.
    return qCompress(pixels).sliced(4).toStdString();
}

std::string tiffhead(const GeoImage& geo, std::uint32_t pixelbytes)
{
    const auto width = static_cast<std::uint32_t>(geo.image.width());
    const auto height = static_cast<std::uint32_t>(geo.image.height());
    TiffDirectory tiff;
    tiff.addlong(ImageWidth, width);
    tiff.addlong(ImageLength, height);
    tiff.addshorts(BitsPerSample, {8, 8, 8, 8});
    tiff.addshorts(Compression, {8}); // deflate
    tiff.addshorts(PhotometricInterpretation, {2});
    tiff.addlong(StripOffsets, 0);
    tiff.addshorts(SamplesPerPixel, {4});
    tiff.addlong(RowsPerStrip, height);
    tiff.addlong(StripByteCounts, pixelbytes);
    tiff.addshorts(PlanarConfiguration, {1});
    tiff.addshorts(ExtraSamples, {2}); // alpha
    tiff.adddoubles(ModelPixelScale, {(geo.box.east - geo.box.west) / width,
                                      (geo.box.north - geo.box.south) / height, 0});
    tiff.adddoubles(ModelTiepoint, {0, 0, 0, geo.box.west, geo.box.north, 0});
    // Degrees (model type 2), pixels are areas, WGS 84 (4326).
    tiff.addshorts(GeoKeyDirectory, {1, 1, 0, 3, 1024, 0, 1, 2, 1025, 0, 1, 1, 2048, 0, 1, 4326});
    return tiff.head(StripOffsets);
}

bool refuse(std::string* why)
{
    if (why != nullptr)
        *why = "the picture has no position";
    return false;
}

/// A ground overlay: a picture by its file name, and the box that it covers.
QByteArray overlaykml(const std::string& name, const std::string& pngname, const GeoBox& box)
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
    return kml;
}

std::string_view viewof(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
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

bool writegeotiff(const std::string& path, const QImage& image, const Picture& picture,
                  std::string* why)
{
    const GeoImage geo = geoimage(image, picture);
    if (geo.image.isNull())
        return refuse(why);
    const std::string pixels = deflatedpixels(geo.image);
    const std::string head = tiffhead(geo, static_cast<std::uint32_t>(pixels.size()));
    const std::array<std::string_view, 2> parts{head, pixels};
    return writefile(targetpath(path), parts, why);
}

bool writekml(const std::string& path, const QImage& image, const Picture& picture,
              std::string* why)
{
    const GeoImage geo = geoimage(image, picture);
    if (geo.image.isNull())
        return refuse(why);
    std::string base = path;
    if (lowercase(base).ends_with(".kml"))
        base.resize(base.size() - 4);
    const std::string pngname = nameof(base) + ".png";
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    geo.image.save(&png, "PNG");
    const QByteArray kml = overlaykml(nameof(base), pngname, geo.box);
    return writefile(targetpath(pathof(base) + pngname), viewof(png.data()), why) &&
           writefile(targetpath(path), viewof(kml), why);
}
