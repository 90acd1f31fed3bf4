#include "engine/draw/fastdraw.h"
#include "support/places.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <numbers>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

namespace
{

constexpr std::uint32_t untouched = 0x12345678;

struct Ground {
    int width, height;
    std::vector<std::int16_t> samples;

    Ground(int w, int h, const std::function<double(int, int)>& shape)
        : width(w), height(h), samples(static_cast<std::size_t>(w) * static_cast<std::size_t>(h))
    {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                samples[index(x, y)] = static_cast<std::int16_t>(std::lround(shape(x, y)));
    }
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x);
    }
    GridView view() const { return {samples.data(), width, height}; }
    int at(int x, int y) const { return samples[index(x, y)]; }
};

/// Hills that repeat nowhere near the size of a tile.
double hills(int x, int y)
{
    return 400 + 300 * std::sin(x * 0.031) * std::cos(y * 0.023) +
           60 * std::sin(x * 0.21 + y * 0.17);
}

ColourScale rising(int floor, int ceiling)
{
    ColourScale scale;
    for (std::size_t i = 0; i < 11; ++i)
        scale.levels[i] =
            static_cast<std::int16_t>(floor + (ceiling - floor) * static_cast<int>(i) / 10);
    for (std::size_t i = 0; i < 12; ++i) {
        scale.red[i] = static_cast<std::int16_t>(20 * i);
        scale.green[i] = static_cast<std::int16_t>(255 - 20 * i);
        scale.blue[i] = 100;
    }
    return scale;
}

/// The whole picture; pixel (x, y) with row 0 at the top.
struct Drawn {
    int width;
    std::vector<std::uint32_t> pixels;
    std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
    int grey(int x, int y) const { return static_cast<int>(at(x, y) & 255U); }
};

/// Draws in tiles of `side`.
Drawn draw(const Ground& ground, const DrawValues& values, int side = 256,
           const ColourScale& scale = rising(0, 1000))
{
    Drawn drawn{ground.width, std::vector<std::uint32_t>(ground.samples.size(), untouched)};
    for (int y = 0; y < ground.height; y += side)
        for (int x = 0; x < ground.width; x += side)
            fastdraw(ground.view(), values, scale,
                     {drawn.pixels.data() + ground.index(x, y), ground.width, x, y, x + side - 1,
                      y + side - 1});
    return drawn;
}

DrawValues mode(int number)
{
    DrawValues values;
    values.mode = number;
    values.floor = 0;
    values.ceiling = 1000;
    return values;
}

/// Cells that hold a line: those above a neighbour by a multiple of the interval or more.
bool reachesmultiple(const Ground& ground, int interval, int x, int y)
{
    const auto band = [&](int cx, int cy) {
        return static_cast<int>(std::floor(static_cast<double>(ground.at(cx, cy)) / interval));
    };
    for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
        const int nx = x + dx;
        const int ny = y + dy;
        const bool inside = nx >= 0 && nx < ground.width && ny >= 0 && ny < ground.height;
        if (inside && band(x, y) > band(nx, ny))
            return true;
    }
    return false;
}

/// The hillshade of the textbooks: gradient by B. Horn (1981), light at 45 degrees, no
/// exaggeration.
double hillshade(const Ground& ground, int x, int y, double cell, double azimuth)
{
    const auto h = [&](int dx, int dy) { return static_cast<double>(ground.at(x + dx, y + dy)); };
    const double east =
        (h(1, 1) + 2 * h(1, 0) + h(1, -1) - h(-1, 1) - 2 * h(-1, 0) - h(-1, -1)) / (8 * cell);
    const double north =
        (h(-1, 1) + 2 * h(0, 1) + h(1, 1) - h(-1, -1) - 2 * h(0, -1) - h(1, -1)) / (8 * cell);
    const double slope = std::atan(std::hypot(east, north));
    const double aspect = std::atan2(-east, -north); // downhill, clockwise from north
    const double zenith = std::numbers::pi / 4;
    const double light = azimuth * std::numbers::pi / 180;
    return std::max(0.0, std::cos(zenith) * std::cos(slope) +
                             std::sin(zenith) * std::sin(slope) * std::cos(light - aspect));
}

double correlation(const std::vector<double>& a, const std::vector<double>& b)
{
    const auto n = static_cast<double>(a.size());
    const double meana = std::accumulate(a.begin(), a.end(), 0.0) / n;
    const double meanb = std::accumulate(b.begin(), b.end(), 0.0) / n;
    double ab = 0;
    double aa = 0;
    double bb = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        ab += (a[i] - meana) * (b[i] - meanb);
        aa += (a[i] - meana) * (a[i] - meana);
        bb += (b[i] - meanb) * (b[i] - meanb);
    }
    return ab / std::sqrt(aa * bb);
}

} // namespace

TEST(Fastdraw, PaintsEveryPixelOfTheGridAndNothingBeside)
{
    const Ground ground(300, 260, hills);
    std::vector<std::uint32_t> pixels(std::size_t{512} * 512, untouched);
    fastdraw(ground.view(), mode(5), rising(0, 1000), {pixels.data(), 512, 0, 0, 511, 511});
    for (int y = 0; y < 512; ++y)
        for (int x = 0; x < 512; ++x) {
            const std::uint32_t pixel =
                pixels[static_cast<std::size_t>(y) * 512 + static_cast<std::size_t>(x)];
            if (x < 300 && y < 260)
                ASSERT_EQ(pixel >> 24, 0xFFU) << x << " " << y;
            else
                ASSERT_EQ(pixel, untouched) << x << " " << y;
        }
}

TEST(Fastdraw, ATileOffTheGridPaintsNothing)
{
    const Ground ground(20, 20, hills);
    std::vector<std::uint32_t> pixels(16, untouched);
    fastdraw(ground.view(), mode(0), rising(0, 1000), {pixels.data(), 4, 20, 0, 23, 3});
    fastdraw(ground.view(), mode(0), rising(0, 1000), {pixels.data(), 4, 0, 20, 3, 23});
    fastdraw({}, mode(0), rising(0, 1000), {pixels.data(), 4, 0, 0, 3, 3});
    EXPECT_THAT(pixels, testing::Each(untouched));
}

TEST(Fastdraw, TilesJoinWithoutSeamsInAllModesAndSizes)
{
    const Ground ground(301, 277, hills);
    for (int number = 0; number <= 5; ++number) {
        DrawValues values = mode(number);
        values.contour10 = values.contour100 = values.contour500 = true;
        const Drawn whole = draw(ground, values, 1000);
        for (const int side : {7, 64, 256})
            EXPECT_EQ(draw(ground, values, side).pixels, whole.pixels) << number << " " << side;
    }
}

TEST(Fastdraw, NorthIsUp)
{
    const Ground ground(8, 8, [](int, int y) { return y * 100; });
    const Drawn drawn = draw(ground, mode(mapmode::xray));
    EXPECT_GT(drawn.grey(3, 0), drawn.grey(3, 7));
}

TEST(Fastdraw, GroundFacingTheLightIsBrighterThanLevelAndThatBrighterThanTurnedAway)
{
    DrawValues values = mode(0);
    for (int azimuth = 0; azimuth < 360; azimuth += 45) {
        values.light = azimuth;
        const double east = std::sin(azimuth * std::numbers::pi / 180);
        const double north = std::cos(azimuth * std::numbers::pi / 180);
        const auto grey = [&](double rise) {
            const Ground slope(9, 9, [&](int x, int y) { return rise * (x * east + y * north); });
            return draw(slope, values).grey(4, 4);
        };
        EXPECT_GT(grey(-20), grey(0)) << azimuth;
        EXPECT_LT(grey(20), grey(0)) << azimuth;
    }
}

TEST(Fastdraw, LevelGroundTakesBrightnessAsItsGreyAndTheLegendsFactorInColours)
{
    const Ground ground(5, 5, [](int, int) { return 450; });
    for (const double brightness : {0.0, 20.0, 50.0, 70.0, 100.0}) {
        DrawValues values = mode(0);
        values.brightness = brightness;
        EXPECT_NEAR(draw(ground, values).grey(2, 2), 255 * brightness / 100, 0.51);
        values.mode = 5;
        ColourScale scale = rising(0, 1000);
        scale.smooth = false;
        const double factor = std::clamp(1.2 * brightness / 100, 0.4, 1.0);
        const std::uint32_t pixel = draw(ground, values, 256, scale).at(2, 2);
        EXPECT_NEAR(static_cast<double>(pixel >> 16 & 255U), scale.red[5] * factor, 0.6);
        EXPECT_NEAR(static_cast<double>(pixel >> 8 & 255U), scale.green[5] * factor, 0.6);
    }
}

TEST(Fastdraw, NoContrastShowsNoReliefAndMoreContrastMore)
{
    const Ground ground(64, 64, hills);
    const auto spread = [&](double contrast) {
        DrawValues values = mode(0);
        values.contrast = contrast;
        const Drawn drawn = draw(ground, values);
        const auto [low, high] = std::minmax_element(drawn.pixels.begin(), drawn.pixels.end());
        return static_cast<int>(*high & 255U) - static_cast<int>(*low & 255U);
    };
    EXPECT_EQ(spread(0), 0);
    EXPECT_GT(spread(30), 20);
    EXPECT_GT(spread(100), spread(30));
}

TEST(Fastdraw, ASlopeHasOneShadeUpToTheLastRowAndColumn)
{
    const Ground slope(12, 12, [](int x, int y) { return 10 * x + 5 * y; });
    const Drawn drawn = draw(slope, mode(0));
    EXPECT_THAT(drawn.pixels, testing::Each(drawn.at(5, 5)));
}

TEST(Fastdraw, XraysRunFromFloorToCeilingWithoutLightOrContrast)
{
    const Ground ground(11, 1, [](int x, int) { return 100 * x; });
    DrawValues values = mode(mapmode::xray);
    values.contrast = 0;
    values.brightness = 0;
    const Drawn xray = draw(ground, values);
    values.mode = mapmode::negative;
    values.contrast = 100;
    values.brightness = 100;
    const Drawn negative = draw(ground, values);
    for (int x = 0; x <= 10; ++x) {
        EXPECT_NEAR(xray.grey(x, 0), 25.5 * x, 0.51);
        EXPECT_EQ(xray.grey(x, 0) + negative.grey(x, 0), 255);
    }
}

TEST(Fastdraw, RainbowColoursChangeExactlyAtTheLevels)
{
    const Ground ground(1102, 1, [](int x, int) { return x - 1; });
    DrawValues values = mode(5);
    values.contrast = 0;
    values.brightness = 100;
    ColourScale scale = rising(0, 1000);
    scale.smooth = false;
    const Drawn drawn = draw(ground, values, 256, scale);
    for (int x = 0; x < 1102; ++x) {
        const int height = x - 1;
        const int band = height < 0 ? 0 : std::min(11, height / 100 + 1);
        ASSERT_EQ(drawn.at(x, 0) >> 16 & 255U, 20U * static_cast<unsigned>(band)) << height;
    }
}

TEST(Fastdraw, SmoothColoursRunFromOneBandsColourToTheNext)
{
    const Ground ground(1101, 1, [](int x, int) { return x; });
    DrawValues values = mode(5);
    values.contrast = 0;
    values.brightness = 100;
    const Drawn drawn = draw(ground, values);
    for (int x = 0; x <= 1100; ++x) {
        const double expected = x >= 1000 ? 220 : 20 + 20.0 * x / 100;
        ASSERT_NEAR(static_cast<double>(drawn.at(x, 0) >> 16 & 255U), expected, 0.6) << x;
    }
}

TEST(Fastdraw, AbsoluteBandsIgnoreFloorAndCeilingAndRelativeOnesFollowThem)
{
    const Ground ground(64, 64, hills);
    const auto with = [&](int number, double floor, double ceiling) {
        DrawValues values = mode(number);
        values.floor = floor;
        values.ceiling = ceiling;
        return draw(ground, values).pixels;
    };
    EXPECT_EQ(with(1, 0, 1000), with(1, 200, 400));
    EXPECT_NE(with(2, 0, 1000), with(2, 200, 400));
}

TEST(Fastdraw, TheSixModesDiffer)
{
    const Ground ground(64, 64, hills);
    std::set<std::vector<std::uint32_t>> pictures;
    for (int number = 0; number <= 5; ++number)
        pictures.insert(draw(ground, mode(number)).pixels);
    EXPECT_EQ(pictures.size(), 6U);
}

TEST(Fastdraw, AContourLiesInTheHigherCellWhereAMultipleIsReached)
{
    const Ground ground(90, 70, [](int x, int y) { return hills(x * 4, y * 4) - 350; });
    const Drawn plain = draw(ground, mode(0));
    for (const int interval : {10, 100, 500}) {
        DrawValues values = mode(0);
        values.contour10 = interval == 10;
        values.contour100 = interval == 100;
        values.contour500 = interval == 500;
        const Drawn drawn = draw(ground, values);
        int lines = 0;
        for (int y = 0; y < 70; ++y)
            for (int x = 0; x < 90; ++x) {
                const bool line = reachesmultiple(ground, interval, x, y);
                ASSERT_EQ(drawn.at(x, 69 - y) != plain.at(x, 69 - y), line)
                    << interval << ": " << x << " " << y;
                lines += line ? 1 : 0;
            }
        EXPECT_GT(lines, 20) << interval;
    }
}

TEST(Fastdraw, ContoursOfTheThreeIntervalsCanBeToldApart)
{
    // Steps across 100 m at column 10, across 500 m at 20, across 510 m at 30.
    const auto steps = [](int x, int) { return x < 10 ? 99 : x < 20 ? 101 : x < 30 ? 501 : 512; };
    const Ground stairs(40, 3, steps);
    for (int number = 0; number <= 5; ++number) {
        DrawValues values = mode(number);
        values.contrast = 0;
        const Drawn plain = draw(stairs, values);
        values.contour10 = values.contour100 = values.contour500 = true;
        const Drawn lines = draw(stairs, values);
        const auto change = [&](int x) {
            int sum = 0;
            for (unsigned shift = 0; shift <= 16; shift += 8)
                sum += std::abs(static_cast<int>(plain.at(x, 1) >> shift & 255U) -
                                static_cast<int>(lines.at(x, 1) >> shift & 255U));
            return sum;
        };
        EXPECT_GT(change(20), change(10) + 10) << number;
        EXPECT_GT(change(10), 20) << number;
        EXPECT_GT(change(30), 5) << number;
    }
}

TEST(Fastdraw, OddMapsAndValuesStillGiveAPicture)
{
    const auto extreme = [](int x, int y) { return (x + y) % 2 == 0 ? -32768 : 32767; };
    for (const auto& [w, h] : {std::pair{1, 1}, {1, 5}, {5, 1}, {2, 2}, {257, 3}}) {
        const Ground ground(w, h, extreme);
        for (int number = -1; number <= 6; ++number) {
            DrawValues values;
            values.mode = number;
            values.floor = values.ceiling = 0;
            values.cellsize = 0;
            values.contour10 = values.contour100 = values.contour500 = true;
            EXPECT_THAT(draw(ground, values, 256, ColourScale{}).pixels,
                        testing::Each(testing::Ge(0xFF000000U)));
        }
    }
}

TEST(Fastdraw, ReliefAgreesWithTheUsualHillshadeOnRealGround)
{
    // A table of 300 x 300 heights of the Pyrenees, row 0 in the south, 267 m apart.
    constexpr int side = 300;
    constexpr double cell = 80000.0 / (side - 1);
    std::ifstream file(sourcefolder() + "/../shared/data/elevation/map_e001_dted.i16",
                       std::ios::binary);
    if (!file)
        GTEST_SKIP() << "no reference heights beside the project";
    Ground ground(side, side, [](int, int) { return 0; });
    file.read(reinterpret_cast<char*>(ground.samples.data()), std::streamsize{2} * side * side);
    ASSERT_TRUE(file);
    DrawValues values = mode(mapmode::moon);
    values.cellsize = cell;
    const Drawn drawn = draw(ground, values);
    std::vector<double> usual;
    std::vector<double> ours;
    for (int y = 1; y < side - 1; ++y)
        for (int x = 1; x < side - 1; ++x) {
            usual.push_back(hillshade(ground, x, y, cell, values.light));
            ours.push_back(drawn.grey(x, side - 1 - y));
        }
    EXPECT_GT(correlation(usual, ours), 0.95);
}
