#include "pictures/paint/picturefile.h"
#include "pictures/paint/picturetest.h"
#include "relief/paint/drawmap.h"
#include "support/places.h"
#include "support/rawbytes.h"

#include <QColor>

#include <csignal>
#include <sys/resource.h>

namespace
{

/// A bitmap file of 4 x 4 pixels: red, green over blue, white.
struct Bitmap {
    int bits = 24;
    int compression = 0; ///< 0 none, 1 runs of bytes, 2 runs of half bytes, 3 masks
    int width = 4, height = 4;
    std::string masks = {};   ///< of a compression of 3
    std::string palette = {}; ///< blue, green, red, 0 each
    std::string pixels = {};
};

const std::string fourcolours("\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0\xFF\xFF\xFF\0", 16);

std::string bytesof(const Bitmap& bitmap)
{
    constexpr int headers = 14 + 40;
    const std::string middle = bitmap.masks + bitmap.palette;
    const auto offset = headers + static_cast<std::int32_t>(middle.size());
    const auto total = offset + static_cast<std::int32_t>(bitmap.pixels.size());
    std::string bytes = "BM" + rawbytes(total) + rawbytes(std::int32_t{0}) + rawbytes(offset);
    bytes += rawbytes(std::int32_t{40}) + rawbytes(std::int32_t{bitmap.width}) +
             rawbytes(std::int32_t{bitmap.height}) + rawbytes(std::int16_t{1}) +
             rawbytes(static_cast<std::int16_t>(bitmap.bits)) +
             rawbytes(std::int32_t{bitmap.compression});
    bytes += rawbytes(static_cast<std::int32_t>(bitmap.pixels.size())) +
             rawbytes(std::int32_t{2835}) + rawbytes(std::int32_t{2835});
    bytes +=
        rawbytes(static_cast<std::int32_t>(bitmap.palette.size() / 4)) + rawbytes(std::int32_t{0});
    return bytes + middle + bitmap.pixels;
}

/// Rows of an upright bitmap stand from the bottom: two of the lower pair, two of the upper one.
template <typename Make> std::string rows(Make row)
{
    return row(2, 3) + row(2, 3) + row(0, 1) + row(0, 1);
}

const std::array<std::uint32_t, 4> rgb{0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};

/// The largest difference of a pixel's components from a colour.
int away(const QImage& image, int x, int y, const QColor& colour)
{
    const QColor found = image.pixelColor(x, y);
    return std::max({std::abs(found.red() - colour.red()), std::abs(found.green() - colour.green()),
                     std::abs(found.blue() - colour.blue())});
}

class PictureFile : public PictureTest
{
protected:
    QImage readbytes(const std::string& bytes)
    {
        EXPECT_TRUE(writefile(path("odd.bmp"), bytes));
        return readraster(path("odd.bmp"));
    }

    static std::string data(const char* name)
    {
        return std::string(sourcefolder() + "/tests/pictures/data/") + name;
    }

    /// Components may be smaller by what 5 bits can't tell, in bitmaps of 16.
    static void expectquarters(const QImage& image, int tolerance = 0)
    {
        ASSERT_EQ(image.size(), QSize(4, 4));
        EXPECT_LE(away(image, 0, 0, Qt::red), tolerance);
        EXPECT_LE(away(image, 3, 1, Qt::green), tolerance);
        EXPECT_LE(away(image, 1, 2, Qt::blue), tolerance);
        EXPECT_LE(away(image, 3, 3, Qt::white), tolerance);
    }
};

/// No file grows beyond a size while this lives, as on a disk that is full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &before);
        oldhandler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldhandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
    void (*oldhandler)(int) = nullptr;
};

} // namespace

TEST_F(PictureFile, BitmapsOfTwoColours)
{
    Bitmap bitmap{.bits = 1, .palette = fourcolours.substr(0, 8)};
    for (int row = 0; row < 4; ++row)
        bitmap.pixels += std::string("\x30\0\0\0", 4);
    const QImage image = readbytes(bytesof(bitmap));
    ASSERT_EQ(image.size(), QSize(4, 4));
    EXPECT_EQ(image.pixel(1, 0), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(2, 3), qRgb(0, 255, 0));
}

TEST_F(PictureFile, BitmapsWithAPalette)
{
    const auto halfbytes = [](int a, int b) {
        return std::string{static_cast<char>(a * 17), static_cast<char>(b * 17), 0, 0};
    };
    const auto whole = [](int a, int b) {
        const auto p = static_cast<char>(a);
        const auto q = static_cast<char>(b);
        return std::string{p, p, q, q};
    };
    expectquarters(
        readbytes(bytesof({.bits = 4, .palette = fourcolours, .pixels = rows(halfbytes)})));
    expectquarters(readbytes(bytesof({.bits = 8, .palette = fourcolours, .pixels = rows(whole)})));
}

TEST_F(PictureFile, BitmapsInRuns)
{
    const std::string end("\0\x01", 2);
    const auto runs = [](int a, int b) {
        return std::string{2, static_cast<char>(a), 2, static_cast<char>(b), 0, 0};
    };
    const auto halfruns = [](int a, int b) {
        return std::string{2, static_cast<char>(a * 17), 2, static_cast<char>(b * 17), 0, 0};
    };
    expectquarters(readbytes(bytesof(
        {.bits = 8, .compression = 1, .palette = fourcolours, .pixels = rows(runs) + end})));
    expectquarters(readbytes(bytesof(
        {.bits = 4, .compression = 2, .palette = fourcolours, .pixels = rows(halfruns) + end})));
}

TEST_F(PictureFile, RunsThatLeaveTheBitmapDoNoHarm)
{
    for (const std::string& pixels :
         {std::string(400, '\xFF'), std::string("\0\x02\xFF\xFF\x09\x01\0\x01", 8),
          std::string("\0\xFF\x01", 3), std::string()}) {
        const QImage image = readbytes(
            bytesof({.bits = 8, .compression = 1, .palette = fourcolours, .pixels = pixels}));
        EXPECT_TRUE(image.isNull() || image.size() == QSize(4, 4));
    }
}

TEST_F(PictureFile, BitmapsOf16Bits)
{
    const auto five = [](int a, int b) {
        const auto word = [](int i) {
            const std::uint32_t c = rgb[static_cast<std::size_t>(i)];
            return rawbytes(static_cast<std::uint16_t>((c >> 19 & 31) << 10 | (c >> 11 & 31) << 5 |
                                                       (c >> 3 & 31)));
        };
        return word(a) + word(a) + word(b) + word(b);
    };
    const auto six = [](int a, int b) {
        const auto word = [](int i) {
            const std::uint32_t c = rgb[static_cast<std::size_t>(i)];
            return rawbytes(static_cast<std::uint16_t>((c >> 19 & 31) << 11 | (c >> 10 & 63) << 5 |
                                                       (c >> 3 & 31)));
        };
        return word(a) + word(a) + word(b) + word(b);
    };
    expectquarters(readbytes(bytesof({.bits = 16, .pixels = rows(five)})), 7);
    const std::string masks = rawbytes(std::uint32_t{0xF800}) + rawbytes(std::uint32_t{0x07E0}) +
                              rawbytes(std::uint32_t{0x001F});
    expectquarters(
        readbytes(bytesof({.bits = 16, .compression = 3, .masks = masks, .pixels = rows(six)})), 7);
}

TEST_F(PictureFile, BitmapsOf24And32Bits)
{
    const auto three = [](int a, int b) {
        const auto pixel = [](int i) {
            return rawbytes(rgb[static_cast<std::size_t>(i)]).substr(0, 3);
        };
        return pixel(a) + pixel(a) + pixel(b) + pixel(b);
    };
    const auto four = [](int a, int b) {
        const auto pixel = [](int i) { return rawbytes(rgb[static_cast<std::size_t>(i)]); };
        return pixel(a) + pixel(a) + pixel(b) + pixel(b);
    };
    expectquarters(readbytes(bytesof({.bits = 24, .pixels = rows(three)})));
    expectquarters(readbytes(bytesof({.bits = 32, .pixels = rows(four)})));
}

TEST_F(PictureFile, BitmapsFromTheTopDown)
{
    const auto four = [](int i) { return rawbytes(rgb[static_cast<std::size_t>(i)]); };
    const std::string upper = four(0) + four(0) + four(1) + four(1);
    const std::string lower = four(2) + four(2) + four(3) + four(3);
    expectquarters(
        readbytes(bytesof({.bits = 32, .height = -4, .pixels = upper + upper + lower + lower})));
}

TEST_F(PictureFile, TruncatedBitmapsDoNoHarm)
{
    const std::string whole = bytesof({.bits = 24, .pixels = std::string(48, '\x7F')});
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const QImage image = readbytes(whole.substr(0, size));
        EXPECT_TRUE(image.isNull() || image.size() == QSize(4, 4)) << size;
    }
}

TEST_F(PictureFile, ARasterThatNeedsMoreMemoryThanAPictureMayIsNone)
{
    // One bit a pixel is read from little, and needs 32 times as much as a picture.
    for (const int bits : {1, 4, 8, 24, 32}) {
        const Bitmap bitmap{
            .bits = bits, .width = 30000, .height = 30000, .palette = fourcolours.substr(0, 8)};
        EXPECT_TRUE(readbytes(bytesof(bitmap)).isNull()) << bits;
    }
    EXPECT_TRUE(
        readbytes(bytesof({.width = 2000000000, .height = 2000000000, .pixels = "x"})).isNull());
    EXPECT_TRUE(readbytes(bytesof({.width = -5, .pixels = "x"})).isNull());
}

TEST_F(PictureFile, GreyAndProgressiveJpegs)
{
    const QImage grey = readraster(data("grey.jpg"));
    ASSERT_EQ(grey.size(), QSize(16, 12));
    EXPECT_LT(away(grey, 2, 2, QColor(76, 76, 76)), 12);
    EXPECT_LT(away(grey, 13, 9, Qt::white), 12);
    const QImage progressive = readraster(data("progressive.jpg"));
    EXPECT_LT(away(progressive, 2, 2, Qt::red), 30);
    EXPECT_LT(away(progressive, 13, 9, Qt::white), 30);
}

TEST_F(PictureFile, JpegsOfFourInks)
{
    const QImage image = readraster(data("cmyk.jpg"));
    ASSERT_EQ(image.size(), QSize(16, 12));
    EXPECT_LT(away(image, 2, 2, Qt::red), 30);
    EXPECT_LT(away(image, 2, 9, Qt::blue), 30);
    EXPECT_LT(away(image, 13, 9, Qt::white), 30);
}

TEST_F(PictureFile, PhotographsStandUpright)
{
    const QImage image = readraster(data("rotated.jpg")); // to be turned clockwise
    ASSERT_EQ(image.size(), QSize(12, 16));
    EXPECT_LT(away(image, 9, 2, Qt::red), 30);
    EXPECT_LT(away(image, 9, 13, Qt::green), 30);
    EXPECT_LT(away(image, 2, 2, Qt::blue), 30);
}

TEST_F(PictureFile, OfAnAnimationTheFirstPictureAndWhiteBehindTransparency)
{
    const QImage image = readraster(data("animated.gif"));
    ASSERT_EQ(image.size(), QSize(16, 12));
    EXPECT_EQ(image.pixel(2, 2), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(13, 9), qRgb(255, 0, 0));
    EXPECT_EQ(readraster(data("still.gif")).pixel(2, 9), qRgb(0, 0, 255));
}

TEST_F(PictureFile, TruncatedJpegsAndGifsDoNoHarm)
{
    for (const char* name : {"grey.jpg", "cmyk.jpg", "rotated.jpg", "animated.gif"}) {
        const std::string whole = readfile(data(name)).value_or("");
        ASSERT_FALSE(whole.empty());
        for (std::size_t size = 0; size < whole.size(); size += 7) {
            const QImage image = readbytes(whole.substr(0, size));
            EXPECT_TRUE(image.isNull() || image.width() <= 16) << name << " " << size;
        }
    }
}

TEST_F(PictureFile, AFullDiskLeavesTheOldPicture)
{
    OpenPicture* picture = drawmap(nullptr, true);
    savepic(*picture, path("vue.bmp"));
    const auto raster = readfile(path("vue.bmp"));
    const auto sidecar = readfile(path("vue.dat"));
    ASSERT_TRUE(raster && sidecar);
    picture->surface.kept.fill(Qt::red);
    label2 = "before";
    {
        const FullDisk full(1000); // bytes: the raster has more
        savepic(*picture, path("vue.bmp"));
        EXPECT_FALSE(writepicture(path("vue.bmp"), picture->surface.kept, picture->data));
    }
    EXPECT_EQ(readfile(path("vue.bmp")), raster);
    EXPECT_EQ(readfile(path("vue.dat")), sidecar);
    EXPECT_EQ(label2, "vue.bmp impossible à enregistrer");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);
}
