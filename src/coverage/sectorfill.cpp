#include "coverage/sectorfill.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace
{
/// A side of the polygon from its upper end, on the rows y0 up to but without y1.
struct Side {
    std::int32_t y0, y1;
    std::int32_t x0;
    std::int64_t dx; ///< along the whole side
    int turn;        ///< +1 downward in the order of the corners, -1 upward
};

/// Where the outline passes a row: the first column to the right, and which way it goes.
struct Crossing {
    std::int32_t column;
    int turn;
};

/// Quotient rounded up, of a positive divisor.
std::int64_t ceildivide(std::int64_t a, std::int64_t b)
{
    const std::int64_t q = a / b;
    return q + (a % b > 0 ? 1 : 0);
}

int makesides(const SectorQuad& quad, std::array<Side, 4>& sides)
{
    int count = 0;
    for (std::size_t i = 0; i < quad.size(); ++i) {
        const PicturePoint& a = quad[i];
        const PicturePoint& b = quad[(i + 1) % quad.size()];
        if (a.y == b.y)
            continue;
        const bool down = a.y < b.y;
        const PicturePoint& upper = down ? a : b;
        const PicturePoint& lower = down ? b : a;
        sides[static_cast<std::size_t>(count++)] = {upper.y, lower.y, upper.x,
                                                    std::int64_t{lower.x} - upper.x, down ? 1 : -1};
    }
    return count;
}

/// Crossings of a row, from left to right.
int crossrow(const std::array<Side, 4>& sides, int sidecount, std::int32_t y,
             std::array<Crossing, 4>& crossings)
{
    int count = 0;
    for (int i = 0; i < sidecount; ++i) {
        const Side& side = sides[static_cast<std::size_t>(i)];
        if (y < side.y0 || y >= side.y1)
            continue;
        const std::int64_t rows = std::int64_t{side.y1} - side.y0;
        const std::int64_t along = (std::int64_t{y} - side.y0) * side.dx;
        const Crossing crossing{side.x0 + static_cast<std::int32_t>(ceildivide(along, rows)),
                                side.turn};
        int at = count++;
        for (; at > 0 && crossings[static_cast<std::size_t>(at) - 1].column > crossing.column; --at)
            crossings[static_cast<std::size_t>(at)] = crossings[static_cast<std::size_t>(at) - 1];
        crossings[static_cast<std::size_t>(at)] = crossing;
    }
    return count;
}

void fillrun(std::uint32_t* row, std::int32_t first, std::int32_t end, std::uint32_t pixel)
{
    for (std::int32_t x = first; x < end; ++x)
        row[x] &= pixel;
}
} // namespace

void fillquad(const PixelSheet& sheet, const SectorQuad& quad, std::uint32_t pixel)
{
    const auto [top, bottom] = std::minmax({quad[0].y, quad[1].y, quad[2].y, quad[3].y});
    const std::int32_t firstrow = std::max(top, 0);
    const std::int32_t endrow = std::min(bottom, sheet.height);
    if (firstrow >= endrow)
        return;
    std::array<Side, 4> sides;
    std::array<Crossing, 4> crossings;
    const int sidecount = makesides(quad, sides);
    for (std::int32_t y = firstrow; y < endrow; ++y) {
        std::uint32_t* row = sheet.pixels + std::ptrdiff_t{y} * sheet.stride;
        const int count = crossrow(sides, sidecount, y, crossings);
        int turns = 0;
        for (int i = 0; i + 1 < count; ++i) {
            const auto at = static_cast<std::size_t>(i);
            turns += crossings[at].turn;
            if (turns != 0)
                fillrun(row, std::max(crossings[at].column, 0),
                        std::min(crossings[at + 1].column, sheet.width), pixel);
        }
    }
}

namespace
{
/// A point on a side, and the side's slope.
struct WedgeSide {
    double top, bottom; ///< heights it takes, without the lower one
    double x0, y0;
    double slope;
};

WedgeSide wedgeside(double ya, double yb, double x0, double y0, double slope)
{
    return {std::min(ya, yb), std::max(ya, yb), x0, y0, slope};
}

/// Nearest whole number at or above a number within +-2^31.
std::int32_t wholeabove(double value)
{
    const std::int32_t nearest = nearestcell(value);
    return nearest + (nearest < value ? 1 : 0);
}
} // namespace

Wedge::Wedge(const SweepCentre& from, const SectorSides& between)
    : centre(from), sides(between), leftslope(between.lx / between.ly),
      rightslope(between.rx / between.ry),
      chordslope((between.rx - between.lx) / (between.ry - between.ly))
{
}

void fillwedge(const PixelSheet& sheet, const Wedge& wedge, double a, double b, std::uint32_t pixel)
{
    const auto& [x0, y0] = wedge.centre;
    const SectorSides& sides = wedge.sides;
    const double nearleft = a * sides.ly + y0;
    const double farleft = b * sides.ly + y0;
    const double nearright = a * sides.ry + y0;
    const double farright = b * sides.ry + y0;
    const auto [top, bottom] = std::minmax({nearleft, farleft, nearright, farright});
    const std::int32_t firstrow = std::max(wholeabove(top), 0);
    const std::int32_t endrow = std::min(wholeabove(bottom), sheet.height);
    if (firstrow >= endrow)
        return;
    // The long sides are taken through the centre, so that those of neighbours are the same lines.
    const std::array outline{
        wedgeside(nearleft, farleft, x0, y0, wedge.leftslope),
        wedgeside(nearright, farright, x0, y0, wedge.rightslope),
        wedgeside(nearleft, nearright, a * sides.lx + x0, nearleft, wedge.chordslope),
        wedgeside(farleft, farright, b * sides.lx + x0, farleft, wedge.chordslope)};
    for (std::int32_t y = firstrow; y < endrow; ++y) {
        double left = std::numeric_limits<double>::infinity();
        double right = -left;
        for (const WedgeSide& side : outline)
            if (y >= side.top && y < side.bottom) {
                const double x = side.x0 + (y - side.y0) * side.slope;
                left = std::min(left, x);
                right = std::max(right, x);
            }
        if (left < right)
            fillrun(sheet.pixels + std::ptrdiff_t{y} * sheet.stride, std::max(wholeabove(left), 0),
                    std::min(wholeabove(right), sheet.width), pixel);
    }
}

void drawline(const PixelSheet& sheet, PicturePoint from, PicturePoint to, std::uint32_t pixel)
{
    const std::int32_t dx = std::abs(to.x - from.x);
    const std::int32_t dy = -std::abs(to.y - from.y);
    const std::int32_t stepx = from.x < to.x ? 1 : -1;
    const std::int32_t stepy = from.y < to.y ? 1 : -1;
    std::int32_t error = dx + dy;
    for (;;) {
        if (from.x >= 0 && from.x < sheet.width && from.y >= 0 && from.y < sheet.height)
            sheet.pixels[std::ptrdiff_t{from.y} * sheet.stride + from.x] = pixel;
        if (from == to)
            return;
        const std::int32_t twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            from.x += stepx;
        }
        if (twice <= dx) {
            error += dx;
            from.y += stepy;
        }
    }
}

void paintsectors(const PixelSheet& sheet, std::span<const SectorPaint> sectors,
                  const CoverageColours& colours)
{
    for (const SectorPaint& sector : sectors) {
        const SectorQuad& quad = sector.quad;
        if (sector.fill != sectorfill::none) {
            const bool plain = sector.fill == sectorfill::plain;
            fillquad(sheet, quad, plain ? colours.surface : colours.rainbow[sector.fill]);
        }
        if (sector.across)
            drawline(sheet, quad[0], quad[3], colours.curve);
        if (sector.along)
            drawline(sheet, quad[0], quad[1], colours.curve);
    }
}
