#include "engine/draw/fastdraw.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>
#include <vector>

namespace
{

/// Columns worked on at a time: all intermediate rows then stay in the first-level cache.
constexpr int blockwidth = 256;
/// A row of cells with one more at either end.
using Cells = std::array<std::int16_t, blockwidth + 2>;
using Floats = std::array<float, blockwidth>;

/// The row being painted and the ones beside it.
struct Window {
    Cells north, here, south;
};

/// What the ground beyond the map's edge is taken for.
enum class Beyond {
    sameslope, ///< the slope at the edge goes on
    level      ///< the last cell repeats itself
};

std::int16_t beyond(Beyond rule, std::int16_t edge, std::int16_t inner)
{
    if (rule == Beyond::level)
        return edge;
    return static_cast<std::int16_t>(std::clamp(2 * edge - inner, -32768, 32767));
}

/// Cells x0 - 1 to x0 + count of one grid row.
void fillcells(const GridView& grid, int row, int x0, int count, Beyond rule, Cells& cells)
{
    const std::int16_t* line = grid.samples + static_cast<std::ptrdiff_t>(row) * grid.width + x0;
    const auto n = static_cast<std::size_t>(count);
    std::memcpy(cells.data() + 1, line, n * sizeof(std::int16_t));
    const bool single = grid.width == 1;
    cells[0] = x0 > 0 ? line[-1] : beyond(rule, line[0], line[single ? 0 : 1]);
    cells[n + 1] = x0 + count < grid.width
                       ? line[n]
                       : beyond(rule, line[n - 1], single ? line[0] : line[count - 2]);
}

void fillwindow(const GridView& grid, int row, int x0, int count, Beyond rule, Window& window)
{
    fillcells(grid, row, x0, count, rule, window.here);
    const bool atnorth = row + 1 >= grid.height;
    const bool atsouth = row == 0;
    if (!atnorth)
        fillcells(grid, row + 1, x0, count, rule, window.north);
    if (!atsouth)
        fillcells(grid, row - 1, x0, count, rule, window.south);
    if (atnorth)
        for (std::size_t i = 0; i < window.north.size(); ++i)
            window.north[i] =
                atsouth ? window.here[i] : beyond(rule, window.here[i], window.south[i]);
    if (atsouth)
        for (std::size_t i = 0; i < window.south.size(); ++i)
            window.south[i] =
                atnorth ? window.here[i] : beyond(rule, window.here[i], window.north[i]);
}

/// The law of light with its constants worked out.
struct Light {
    float slope;       ///< exaggerated gradient for one metre in the sums of `relativelight`
    float east, north; ///< towards the light, on the ground
};

Light makelight(const DrawValues& values)
{
    constexpr double defaultcontrast = 30; // percent
    constexpr double finecell = 30;        // m; no correction at or below
    constexpr double coarsepower = 0.25;
    constexpr double boldness = 1.4;
    constexpr double weights = 8; // of the 3 x 3 neighbourhood, over a distance of two cells
    const double cell = values.cellsize > 0 ? values.cellsize : finecell;
    const double z = values.contrast / defaultcontrast * boldness *
                     std::pow(std::max(1.0, cell / finecell), coarsepower);
    const double azimuth = values.light * std::numbers::pi / 180;
    return {static_cast<float>(z / (weights * cell)), static_cast<float>(std::sin(azimuth)),
            static_cast<float>(std::cos(azimuth))};
}

/// Part of level ground's light that comes from the whole sky and reaches every slope.
constexpr float skyshare = 0.2F;

/// Light on each cell relative to level ground, from the gradient over the eight neighbours.
void relativelight(const Window& window, int count, const Light& light, Floats& t)
{
    std::array<int, blockwidth + 2> sum{};
    std::array<int, blockwidth + 2> difference{};
    for (int i = 0; i < count + 2; ++i) {
        const auto k = static_cast<std::size_t>(i);
        sum[k] = window.north[k] + 2 * window.here[k] + window.south[k];
        difference[k] = window.north[k] - window.south[k];
    }
    for (int i = 0; i < count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const float p = light.slope * static_cast<float>(sum[k + 2] - sum[k]);
        const float q = light.slope * static_cast<float>(difference[k] + 2 * difference[k + 1] +
                                                         difference[k + 2]);
        const float facing = 1 - p * light.east - q * light.north;
        const float direct = (facing > 0 ? facing : 0) / std::sqrt(1 + p * p + q * q);
        t[k] = skyshare + (1 - skyshare) * direct;
    }
}

std::uint32_t packed(int red, int green, int blue)
{
    return 0xFF000000U | static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

std::uint32_t mixed(std::uint32_t a, std::uint32_t b, double t)
{
    const auto channel = [&](unsigned shift) {
        const int from = static_cast<int>(a >> shift & 255U);
        const int to = static_cast<int>(b >> shift & 255U);
        return from + static_cast<int>(std::lround(t * (to - from)));
    };
    return packed(channel(16), channel(8), channel(0));
}

/// Colour by height: entry h - lowest; heights beyond the ends take the end's colour.
struct HeightColours {
    int lowest = 0;
    std::vector<std::uint32_t> colours;

    void range(int low, int high)
    {
        lowest = std::clamp(low, -32768, 32767);
        colours.resize(static_cast<std::size_t>(std::clamp(high, lowest, 32767) - lowest) + 1);
    }
    int highest() const { return lowest + static_cast<int>(colours.size()) - 1; }
    std::uint32_t& at(int height) { return colours[static_cast<std::size_t>(height - lowest)]; }
};

/// Tints of a wall atlas, from the plains to the ice; the first is water.
constexpr std::array<std::uint32_t, 14> atlas{
    0xFFA6CBE3, 0xFF7FB27A, 0xFF97C083, 0xFFB2CE8D, 0xFFCDDB9A, 0xFFE6E4A8, 0xFFEBD590,
    0xFFDFBC78, 0xFFCFA064, 0xFFBC8657, 0xFFA87455, 0xFFB49A8E, 0xFFD5CCC8, 0xFFFFFFFF};
/// Where the bands of mode 1 begin, m.
constexpr std::array<int, 13> atlasheights{1,    50,   100,  200,  350,  500, 750,
                                           1000, 1500, 2000, 2500, 3000, 4000};

HeightColours absolutecolours()
{
    HeightColours table;
    table.range(atlasheights.front() - 1, atlasheights.back());
    std::size_t band = 0;
    for (int h = table.lowest; h <= table.highest(); ++h) {
        while (band < atlasheights.size() && h >= atlasheights[band])
            ++band;
        table.at(h) = atlas[band];
    }
    return table;
}

/// Floor and ceiling as whole metres, at least one metre apart.
std::pair<int, int> span(const DrawValues& values)
{
    const int low = static_cast<int>(std::lround(std::clamp(values.floor, -32767.0, 32766.0)));
    const int high = static_cast<int>(std::lround(std::clamp(values.ceiling, -32767.0, 32767.0)));
    return {low, std::max(high, low + 1)};
}

HeightColours relativecolours(const DrawValues& values)
{
    const auto [low, high] = span(values);
    HeightColours table;
    table.range(low - 1, high);
    constexpr int bands = static_cast<int>(atlas.size()) - 2;
    for (int h = table.lowest; h <= table.highest(); ++h) {
        const int band = h < low ? 0 : 1 + std::min(bands, (h - low) * bands / (high - low));
        table.at(h) = atlas[static_cast<std::size_t>(band)];
    }
    return table;
}

HeightColours greycolours(const DrawValues& values)
{
    const auto [low, high] = span(values);
    HeightColours table;
    table.range(low, high);
    for (int h = low; h <= high; ++h) {
        const int grey = (255 * (h - low) + (high - low) / 2) / (high - low);
        const int shown = values.mode == mapmode::xray ? grey : 255 - grey;
        table.at(h) = packed(shown, shown, shown);
    }
    return table;
}

HeightColours rainbowcolours(const ColourScale& scale)
{
    const auto colour = [&scale](std::size_t i) {
        const auto component = [](std::int16_t value) { return std::clamp<int>(value, 0, 255); };
        return packed(component(scale.red[i]), component(scale.green[i]), component(scale.blue[i]));
    };
    HeightColours table;
    table.range(scale.levels.front() - 1, scale.levels.back());
    std::size_t band = 0;
    for (int h = table.lowest; h <= table.highest(); ++h) {
        while (band < scale.levels.size() && h >= scale.levels[band])
            ++band;
        table.at(h) = colour(band);
        if (scale.smooth && band > 0 && band < scale.levels.size()) {
            const double from = scale.levels[band - 1];
            table.at(h) =
                mixed(colour(band), colour(band + 1), (h - from) / (scale.levels[band] - from));
        }
    }
    return table;
}

HeightColours heightcolours(const DrawValues& values, const ColourScale& scale)
{
    switch (values.mode) {
    case mapmode::absolute:
        return absolutecolours();
    case mapmode::relative:
        return relativecolours(values);
    case mapmode::xray:
    case mapmode::negative:
        return greycolours(values);
    case mapmode::rainbow:
        return rainbowcolours(scale);
    default:
        return {};
    }
}

void lookup(const Cells& cells, int count, const HeightColours& table, std::uint32_t* pixels)
{
    const int low = table.lowest;
    const int high = table.highest();
    const std::uint32_t* colours = table.colours.data();
    for (int i = 0; i < count; ++i) {
        const int h = cells[static_cast<std::size_t>(i) + 1];
        pixels[i] = colours[(h < low ? low : h > high ? high : h) - low];
    }
}

/// Grey relief. `level` is the grey of level ground.
void paintgrey(const Floats& t, int count, float level, std::uint32_t* pixels)
{
    for (int i = 0; i < count; ++i) {
        const float grey = level * t[static_cast<std::size_t>(i)];
        const float rounding = (grey < 255 ? grey : 255) + 0.5F;
        const int v = static_cast<int>(rounding);
        pixels[i] = 0xFF000000U | static_cast<std::uint32_t>(v << 16 | v << 8 | v);
    }
}

/// Lays the light over colours. `level` is the factor of level ground.
void paintlight(const Floats& t, int count, float level, std::uint32_t* pixels)
{
    for (int i = 0; i < count; ++i) {
        const float root = std::sqrt(t[static_cast<std::size_t>(i)]);
        const float factor = level * root * std::sqrt(root);
        const float over = factor > 1 ? factor - 1 : 0; // how far towards white
        const float own = factor > 1 ? 2 - factor : factor;
        const float white = 255 * over + 0.5F;
        const auto colour = static_cast<int>(pixels[i]);
        const int red = static_cast<int>(static_cast<float>(colour >> 16 & 255) * own + white);
        const int green = static_cast<int>(static_cast<float>(colour >> 8 & 255) * own + white);
        const int blue = static_cast<int>(static_cast<float>(colour & 255) * own + white);
        pixels[i] = 0xFF000000U | static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
    }
}

/// How strongly a contour line covers the ground, by its rank: none, 10, 100, 500 m.
struct Pen {
    std::uint32_t ink;
    std::array<double, 4> cover;
};

Pen contourpen(int mode)
{
    if (mode == mapmode::xray || mode == mapmode::negative)
        return {0xFFFF7A00, {0, 0.25, 0.5, 1}};
    return {0xFF30180A, {0, 0.25, 0.5, 0.9}};
}

/// Rank of the contour line in each cell: 0 none, 1 for 10 m, 2 for 100 m, 3 for 500 m.
void contourranks(const Window& window, int count, const DrawValues& values,
                  std::array<std::uint16_t, blockwidth>& ranks)
{
    // Heights count from a multiple of 500 m below the lowest, so that the division rounds down;
    // nothing on Earth reaches the upper limit.
    constexpr int offset = 33000;
    constexpr std::int16_t highest = 65535 - offset;
    const auto fine = static_cast<std::uint16_t>(values.contour10 ? 1 : 0);
    const auto middle = static_cast<std::uint16_t>(values.contour100 ? 2 : 0);
    const auto coarse = static_cast<std::uint16_t>(values.contour500 ? 3 : 0);
    const auto larger = [](std::uint16_t a, std::uint16_t b) { return a > b ? a : b; };
    const auto smaller = [](std::int16_t a, std::int16_t b) { return a < b ? a : b; };
    for (int i = 0; i < count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const std::int16_t here = smaller(window.here[k + 1], highest);
        const std::int16_t across = smaller(window.here[k], window.here[k + 2]);
        const std::int16_t along = smaller(window.north[k + 1], window.south[k + 1]);
        const std::int16_t lowest = smaller(here, smaller(across, along));
        const auto top = static_cast<std::uint16_t>(here + offset);
        const auto bottom = static_cast<std::uint16_t>(lowest + offset);
        const std::uint16_t r10 = top / 10 != bottom / 10 ? fine : std::uint16_t{0};
        const std::uint16_t r100 = top / 100 != bottom / 100 ? middle : std::uint16_t{0};
        const std::uint16_t r500 = top / 500 != bottom / 500 ? coarse : std::uint16_t{0};
        ranks[k] = larger(r10, larger(r100, r500));
    }
}

void paintcontours(const std::array<std::uint16_t, blockwidth>& ranks, int count, const Pen& pen,
                   std::uint32_t* pixels)
{
    std::array<unsigned, 4> cover{};
    for (std::size_t i = 0; i < cover.size(); ++i)
        cover[i] = static_cast<unsigned>(std::lround(256 * pen.cover[i]));
    for (int i = 0; i < count; ++i) {
        const unsigned share = cover[ranks[static_cast<std::size_t>(i)]];
        if (share == 0)
            continue;
        // Red and blue are mixed together: they have eight free bits above each.
        constexpr std::uint32_t redblue = 0x00FF00FF;
        constexpr std::uint32_t green = 0x0000FF00;
        const std::uint32_t own = pixels[i];
        const std::uint32_t rb = (own & redblue) * (256 - share) + (pen.ink & redblue) * share;
        const std::uint32_t g = (own & green) * (256 - share) + (pen.ink & green) * share;
        pixels[i] = 0xFF000000U | (rb >> 8 & redblue) | (g >> 8 & green);
    }
}

/// What is the same for all rows of a tile.
struct Brush {
    const DrawValues* values;
    HeightColours colours;
    Light light;
    Pen pen;
};

void paintblock(const GridView& grid, const Brush& brush, int row, int x0, int count,
                std::uint32_t* pixels)
{
    const DrawValues& values = *brush.values;
    Window window;
    Floats t;
    fillwindow(grid, row, x0, count, Beyond::sameslope, window);
    if (!brush.colours.colours.empty())
        lookup(window.here, count, brush.colours, pixels);
    if (values.mode != mapmode::xray && values.mode != mapmode::negative) {
        relativelight(window, count, brush.light, t);
        const double brightness = values.brightness / 100;
        if (brush.colours.colours.empty())
            paintgrey(t, count, static_cast<float>(255 * brightness), pixels);
        else
            paintlight(t, count, static_cast<float>(std::clamp(1.2 * brightness, 0.4, 1.0)),
                       pixels);
    }
    if (values.contour10 || values.contour100 || values.contour500) {
        std::array<std::uint16_t, blockwidth> ranks;
        fillwindow(grid, row, x0, count, Beyond::level, window);
        contourranks(window, count, values, ranks);
        paintcontours(ranks, count, brush.pen, pixels);
    }
}

} // namespace

void fastdraw(const GridView& grid, const DrawValues& values, const ColourScale& colours,
              const TileTarget& tile)
{
    const int x0 = std::max(tile.x0, 0);
    const int y0 = std::max(tile.y0, 0);
    const int x1 = std::min(tile.x1, grid.width - 1);
    const int y1 = std::min(tile.y1, grid.height - 1);
    if (x0 > x1 || y0 > y1)
        return;
    const Brush brush{&values, heightcolours(values, colours), makelight(values),
                      contourpen(values.mode)};
    for (int y = y0; y <= y1; ++y) {
        std::uint32_t* line = tile.pixels + static_cast<std::ptrdiff_t>(y - tile.y0) * tile.stride;
        for (int x = x0; x <= x1; x += blockwidth)
            paintblock(grid, brush, grid.height - 1 - y, x, std::min(blockwidth, x1 - x + 1),
                       line + (x - tile.x0));
    }
}
