#pragma once

#include "coverage/radiosweep.h"
#include "coverage/sweep.h"

#include <array>
#include <cstdint>
#include <span>

/// Pixels of a picture: 0xffRRGGBB, row 0 at the top, `stride` pixels from row to row.
struct PixelSheet {
    std::uint32_t* pixels = nullptr;
    int stride = 0;
    int width = 0;
    int height = 0;
};

/// Pixel value of a 0x00BBGGRR colour.
constexpr std::uint32_t pixelof(std::int32_t colour)
{
    const auto c = static_cast<std::uint32_t>(colour);
    return 0xff000000U | (c & 0xff) << 16 | (c & 0xff00) | (c >> 16 & 0xff);
}

/// Fills a four-sided polygon with a colour that is combined with the pixels beneath bit by bit, so
/// that the map shows through; what lies outside the sheet is cut. Edges to the left and above
/// belong to the polygon, those to the right and below don't: polygons that share corners leave no
/// holes, nor do convex ones paint a pixel twice. Sides may cross; a pixel is inside when the
/// outline goes round it.
void fillquad(const PixelSheet& sheet, const SectorQuad& quad, std::uint32_t pixel);

/// The plane between the two sides of a radial's sectors, outward from the centre.
struct Wedge {
    Wedge(const SweepCentre& from, const SectorSides& between);

    SweepCentre centre;
    SectorSides sides;
    double leftslope, rightslope; ///< columns a row along the sides; not used where they are level
    double chordslope;            ///< and along the lines between them
};

/// Fills a wedge from `a` to `b` steps from the centre. Pixels count and are coloured as in
/// `fillquad`, corners are
/// not rounded. Wedges with the same numbers for a common side leave neither holes between them nor
/// pixels painted twice.
void fillwedge(const PixelSheet& sheet, const Wedge& wedge, double a, double b,
               std::uint32_t pixel);

/// Draws a line of one pixel's width, both ends included.
void drawline(const PixelSheet& sheet, PicturePoint from, PicturePoint to, std::uint32_t pixel);

/// Colours of a radio coverage, as pixels.
struct CoverageColours {
    std::array<std::uint32_t, 12> rainbow{};
    std::uint32_t surface = 0;
    std::uint32_t curve = 0;
};

/// Paints the sectors of a radial in their order: fill, then the lines of the contour.
void paintsectors(const PixelSheet& sheet, std::span<const SectorPaint> sectors,
                  const CoverageColours& colours);
