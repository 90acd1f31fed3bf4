#pragma once

#include <array>
#include <cstdint>
#include <span>

/// Elevations as the kernels take them: x fastest, row 0 at the south edge.
struct GridView {
    const std::int16_t* samples = nullptr;
    int width = 0;
    int height = 0;
};

/// Drawing values of a map picture.
struct DrawValues {
    int mode = 5;           ///< 0 to 5
    double contrast = 30;   ///< percent
    double brightness = 70; ///< percent
    double floor = 0;       ///< m
    double ceiling = 0;     ///< m
    double light = 335;     ///< azimuth of the light, degrees
    bool contour10 = false;
    bool contour100 = false;
    bool contour500 = false;
    double cellsize = 100; ///< side of a cell on the ground, m
};

/// Twelve colours and eleven levels of the rainbow scale.
struct ColourScale {
    std::array<std::int16_t, 11> levels{};
    std::array<std::int16_t, 12> red{}, green{}, blue{};
    bool smooth = true; ///< colours are interpolated between levels
};

/// A rectangle of picture pixels to paint, and where: 0xffRRGGBB, `stride` pixels from row to row,
/// pixel (x0, y0) of the picture first. North is up: picture row p shows grid row height - 1 - p.
struct TileTarget {
    std::uint32_t* pixels = nullptr;
    int stride = 0;
    int x0 = 0, y0 = 0; ///< first column and row, from the picture's top left
    int x1 = 0, y1 = 0; ///< last ones, included; held at the grid's bounds
};

/// Paints one tile of a shaded map.
void fastdraw(const GridView& grid, const DrawValues& values, const ColourScale& colours,
              const TileTarget& tile);

/// Number of entries of the display's palette: 0, as displays have none today.
int translate();
