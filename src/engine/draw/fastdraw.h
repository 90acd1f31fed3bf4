#pragma once

#include <array>
#include <cstdint>

/// Elevations as the kernels take them: m, x fastest and eastward, row 0 at the south edge.
struct GridView {
    const std::int16_t* samples = nullptr;
    int width = 0;
    int height = 0;
};

/// Drawing modes of a map picture, as map files hold them.
namespace mapmode
{
inline constexpr int moon = 0;     ///< grey relief
inline constexpr int absolute = 1; ///< tints in bands of fixed heights, with relief
inline constexpr int relative = 2; ///< tints in bands from floor to ceiling, with relief
inline constexpr int xray = 3;     ///< floor black, ceiling white, no relief
inline constexpr int negative = 4; ///< floor white, ceiling black, no relief
inline constexpr int rainbow = 5;  ///< the colour scale, with relief
} // namespace mapmode

/// Drawing values of a map picture.
struct DrawValues {
    int mode = mapmode::rainbow;
    double contrast = 30;   ///< percent
    double brightness = 70; ///< percent
    double floor = 0;       ///< m
    double ceiling = 0;     ///< m
    double light = 335;     ///< azimuth of the light, degrees clockwise from north
    bool contour10 = false;
    bool contour100 = false;
    bool contour500 = false;
    double cellsize = 100; ///< side of a cell on the ground, m
};

/// Twelve colours and eleven levels of the rainbow scale. Colour 0 lies below level 0, colour i
/// between levels i - 1 and i, colour 11 from level 10 up.
struct ColourScale {
    std::array<std::int16_t, 11> levels{};
    std::array<std::int16_t, 12> red{}, green{}, blue{}; ///< 0 to 255
    bool smooth = true; ///< band i runs from colour i to colour i + 1
};

/// A rectangle of picture pixels to paint, and where: 0xffRRGGBB, `stride` pixels from row to row,
/// pixel (x0, y0) of the picture first. North is up: picture row p shows grid row height - 1 - p.
struct TileTarget {
    std::uint32_t* pixels = nullptr;
    int stride = 0;
    int x0 = 0, y0 = 0; ///< first column and row, from the picture's top left
    int x1 = 0, y1 = 0; ///< last ones, included; held at the grid's bounds
};

/// Paints one tile of a map picture: colours by height, relief by the slope towards the light,
/// contour lines over both. Each pixel depends on its own cell and the eight around it only, so
/// tiles join without seams and in any order, on any number of threads.
///
/// The law of light, our own. With the gradient (p, q) of the ground eastward and northward,
/// exaggerated z times, and the light at azimuth a, 45 degrees high, the light that the ground
/// takes relative to level ground is
///     t = 0.2 + 0.8 (1 - p sin a - q cos a) / sqrt(1 + p^2 + q^2)
/// where the second term is 0 for ground that faces away; the first is the sky's.
///   - Contrast is the exaggeration: z = contrast / 30 x 1.4 x max(1, (cellsize / 30 m)^0.25).
///   Coarse
///     cells flatten the ground, which the power makes up for. 0 percent shows no relief.
///   - Brightness is the grey of level ground in mode 0: grey = 255 x brightness / 100 x t.
///   - Colours are multiplied by k t^0.75, k = 1.2 x brightness / 100 held within 0.4 to 1 as in
///   the
///     legend, so that level ground has the legend's colours; beyond 1 they turn towards white.
/// A contour line is drawn in the higher of two neighbouring cells when a multiple of the interval
/// lies above the one and not above the other.
///   Errors: none; a tile off the grid paints nothing, an unknown mode paints as mode 0
void fastdraw(const GridView& grid, const DrawValues& values, const ColourScale& colours,
              const TileTarget& tile);
