#include "gis/gis.h"
#include "pictures/georeference.h"
#include "pictures/paint/export.h"
#include "pictures/paint/picturetest.h"
#include "relief/paint/drawmap.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <cmath>
#include <map>

namespace
{
/// Pictures written and read back by what others wrote: GDAL's programs for the GeoTIFF, the
/// toolkit's XML and PNG readers for the KML.
class Export : public PictureTest
{
protected:
    /// GeoTIFF and KMZ are written by a library that may be missing.
    static bool haslibrary() { return gislibrary() != nullptr; }

    /// The map's own rendering, 60 x 40 pixels.
    OpenPicture& mappicture()
    {
        OpenPicture& picture = *drawmap(nullptr, true);
        picture.data.source = "carte";
        return picture;
    }

    /// A picture of 50 x 30 pixels turned by about 30 degrees; red grows with x, green with y.
    static Picture turned()
    {
        Picture picture;
        picture.Pictype = pictype::fourcorners;
        picture.scalewidth = 50;
        picture.scaleheight = 30;
        picture.lon = {7.0F, 7.866F, 7.616F, 6.75F};
        picture.lat = {44.5F, 45.0F, 44.567F, 44.067F};
        return picture;
    }
    static QImage gradients()
    {
        QImage image(50, 30, QImage::Format_RGB32);
        for (int y = 0; y < 30; ++y)
            for (int x = 0; x < 50; ++x)
                image.setPixel(x, y, qRgb(5 * x, 8 * y, 77));
        return image;
    }

    static bool installed(const char* program)
    {
        return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
    }
    /// What a program prints.
    static std::string printed(const char* program, const QStringList& arguments)
    {
        QProcess process;
        process.start(QString::fromLatin1(program), arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput().toStdString();
    }
    /// Red, green, blue, alpha of a file at a position, as GDAL sees it.
    static std::array<int, 4> colourat(const std::string& file, float lon, float lat)
    {
        const std::string text = printed(
            "gdallocationinfo",
            {QStringLiteral("-valonly"), QStringLiteral("-wgs84"), QString::fromStdString(file),
             QString::number(double{lon}, 'f', 9), QString::number(double{lat}, 'f', 9)});
        std::array<int, 4> colour{-1, -1, -1, -1};
        std::sscanf(text.c_str(), "%d %d %d %d", &colour[0], &colour[1], &colour[2], &colour[3]);
        return colour;
    }

    struct Overlay {
        std::map<std::string, double> box;
        std::string image;
    };
    static Overlay readkml(const std::string& file)
    {
        QFile text(QString::fromStdString(file));
        EXPECT_TRUE(text.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&text);
        Overlay overlay;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            const std::string name = xml.name().toString().toStdString();
            if (name == "north" || name == "south" || name == "east" || name == "west")
                overlay.box[name] = xml.readElementText().toDouble();
            if (name == "href")
                overlay.image = xml.readElementText().toStdString();
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        return overlay;
    }
};
} // namespace

TEST_F(Export, GeotiffOfAMapKeepsItsPixelsAndPositions)
{
    if (!installed("gdalinfo") || !installed("gdal_translate"))
        GTEST_SKIP() << "gdal-bin is not installed";
    if (!haslibrary())
        GTEST_SKIP() << "built without GDAL";
    const OpenPicture& picture = mappicture();
    const QImage image = surfaceimage(picture.surface);
    const std::string file = path("a.tif");
    ASSERT_TRUE(writegeotiff(file, image, picture.data));

    const std::string info = printed("gdalinfo", {QString::fromStdString(file)});
    EXPECT_NE(info.find("Size is 60, 40"), std::string::npos);
    EXPECT_NE(info.find("EPSG\",4326"), std::string::npos);
    double west = 0;
    double north = 0;
    std::sscanf(info.c_str() + info.find("Origin = ("), "Origin = (%lf,%lf)", &west, &north);
    EXPECT_NEAR(west, 7 - 1.5 / 59 / 2, 1e-9) << "corners are centres of pixels";
    EXPECT_NEAR(north, 45 + 1.0 / 39 / 2, 1e-9);

    const QString png = QString::fromStdString(path("a.png"));
    printed("gdal_translate", {QStringLiteral("-q"), QStringLiteral("-of"), QStringLiteral("PNG"),
                               QString::fromStdString(file), png});
    EXPECT_EQ(QImage(png).convertToFormat(QImage::Format_RGB32),
              image.convertToFormat(QImage::Format_RGB32));
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(59, 39), std::pair(13, 31)}) {
        float lon = 0;
        float lat = 0;
        ASSERT_TRUE(pic2ll(picture.data, static_cast<float>(x), static_cast<float>(y), lon, lat));
        const QRgb own = image.pixel(x, y);
        EXPECT_EQ(colourat(file, lon, lat), (std::array{qRed(own), qGreen(own), qBlue(own), 255}));
    }
}

TEST_F(Export, GeotiffOfATurnedPictureShowsEachPlaceWhereItIs)
{
    if (!installed("gdallocationinfo"))
        GTEST_SKIP() << "gdal-bin is not installed";
    if (!haslibrary())
        GTEST_SKIP() << "built without GDAL";
    const std::string file = path("turned.tif");
    ASSERT_TRUE(writegeotiff(file, gradients(), turned()));
    for (const auto& [x, y] : {std::pair(2, 2), std::pair(47, 3), std::pair(45, 27),
                               std::pair(3, 26), std::pair(25, 15), std::pair(30, 6)}) {
        float lon = 0;
        float lat = 0;
        ASSERT_TRUE(pic2ll(turned(), static_cast<float>(x), static_cast<float>(y), lon, lat));
        const auto [red, green, blue, alpha] = colourat(file, lon, lat);
        EXPECT_NEAR(red, 5 * x, 5 * 1.5) << x << "," << y;
        EXPECT_NEAR(green, 8 * y, 8 * 1.5) << x << "," << y;
        EXPECT_EQ(blue, 77);
        EXPECT_EQ(alpha, 255);
    }
    EXPECT_EQ(colourat(file, 6.77F, 44.98F)[3], 0) << "beside the picture it is transparent";
}

TEST_F(Export, KmlOfAMapLaysItsImageOverItsRectangle)
{
    const OpenPicture& picture = mappicture();
    const QImage image = surfaceimage(picture.surface);
    ASSERT_TRUE(writekml(path("a & b.kml"), image, picture.data));
    const Overlay overlay = readkml(path("a & b.kml"));
    EXPECT_NEAR(overlay.box.at("west"), 7 - 1.5 / 59 / 2, 1e-9);
    EXPECT_NEAR(overlay.box.at("east"), 8.5 + 1.5 / 59 / 2, 1e-9);
    EXPECT_NEAR(overlay.box.at("north"), 45 + 1.0 / 39 / 2, 1e-9);
    EXPECT_NEAR(overlay.box.at("south"), 44 - 1.0 / 39 / 2, 1e-9);
    EXPECT_EQ(overlay.image, "a & b.png");
    const QImage png(QString::fromStdString(path(overlay.image)));
    EXPECT_EQ(png.convertToFormat(QImage::Format_RGB32),
              image.convertToFormat(QImage::Format_RGB32));
}

TEST_F(Export, KmlOfATurnedPictureShowsEachPlaceWhereItIs)
{
    ASSERT_TRUE(writekml(path("turned.kml"), gradients(), turned()));
    const Overlay overlay = readkml(path("turned.kml"));
    const QImage png(QString::fromStdString(path(overlay.image)));
    ASSERT_FALSE(png.isNull());
    const double west = overlay.box.at("west");
    const double north = overlay.box.at("north");
    const auto pixelat = [&](double lon, double lat) {
        return png.pixel(
            static_cast<int>((lon - west) / (overlay.box.at("east") - west) * png.width()),
            static_cast<int>((north - lat) / (north - overlay.box.at("south")) * png.height()));
    };
    for (int x = 2; x < 48; x += 5)
        for (int y = 2; y < 28; y += 5) {
            float lon = 0;
            float lat = 0;
            ASSERT_TRUE(pic2ll(turned(), static_cast<float>(x), static_cast<float>(y), lon, lat));
            const QRgb shown = pixelat(double{lon}, double{lat});
            EXPECT_NEAR(qRed(shown), 5 * x, 5 * 1.5) << x << "," << y;
            EXPECT_NEAR(qGreen(shown), 8 * y, 8 * 1.5) << x << "," << y;
            EXPECT_EQ(qAlpha(shown), 255);
        }
    EXPECT_EQ(qAlpha(png.pixel(0, 0)), 0);
}

TEST_F(Export, KmzHoldsTheOverlayAndItsImage)
{
    if (!haslibrary())
        GTEST_SKIP() << "built without GDAL";
    if (!installed("python3"))
        GTEST_SKIP() << "python3 is not installed";
    const std::string file = path("a & b.KMZ");
    ASSERT_TRUE(writekml(file, gradients(), turned()));
    printed("python3", {QStringLiteral("-m"), QStringLiteral("zipfile"), QStringLiteral("-e"),
                        QString::fromStdString(file), QString::fromStdString(path("out"))});
    const Overlay overlay = readkml(path("out/doc.kml"));
    EXPECT_LT(overlay.box.at("west"), overlay.box.at("east"));
    const QImage inside(QString::fromStdString(path("out/" + overlay.image)));
    ASSERT_TRUE(writekml(path("same.kml"), gradients(), turned()));
    EXPECT_EQ(inside, QImage(QString::fromStdString(path("same.png"))));
    EXPECT_FALSE(inside.isNull());
}

TEST_F(Export, NamesAllFilesThatItWrites)
{
    EXPECT_EQ(exportedfiles("d/a.tif"), (std::vector<std::string>{"d/a.tif"}));
    EXPECT_EQ(exportedfiles("d/a.KML"), (std::vector<std::string>{"d/a.KML", "d/a.png"}));
    EXPECT_EQ(exportedfiles("d/a.kmz"), (std::vector<std::string>{"d/a.kmz"}));
    EXPECT_EQ(exportkind("a.TIFF"), ExportKind::geotiff);
    EXPECT_EQ(exportkind("a.png"), std::nullopt);
}

TEST_F(Export, NeedsAPositionAndAPlaceToWriteTo)
{
    Picture plain = turned();
    plain.Pictype = pictype::plain;
    std::string why;
    EXPECT_FALSE(writegeotiff(path("a.tif"), gradients(), plain, &why));
    EXPECT_EQ(why, "the picture has no position");
    EXPECT_FALSE(writekml(path("a.kml"), gradients(), plain));
    Picture nowhere = turned();
    nowhere.lon = {};
    nowhere.lat = {};
    EXPECT_FALSE(writegeotiff(path("a.tif"), gradients(), nowhere));
    EXPECT_FALSE(std::filesystem::exists(path("a.tif")) || std::filesystem::exists(path("a.kml")) ||
                 std::filesystem::exists(path("a.png")));
    EXPECT_FALSE(writegeotiff(path("no such folder/a.tif"), gradients(), turned(), &why));
    EXPECT_FALSE(why.empty());
}
