#include "coverage/scene.h"
#include "coverage/sectorfill.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{
std::size_t indexof(int x, int y, int width)
{
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
}

struct Sheet {
    Sheet(int w, int h) : pixels(indexof(0, h, w), 0xffffffffU), width(w), height(h) {}
    PixelSheet view() { return {pixels.data(), width, width, height}; }
    std::uint32_t at(int x, int y) const { return pixels[indexof(x, y, width)]; }
    std::vector<std::uint32_t> pixels;
    int width, height;
};

/// Number of quads that paint each pixel, for all sectors of a full sweep.
std::vector<int> timespainted(double step_deg, double d_cells, int samples, int side)
{
    std::vector<int> times(indexof(0, side, side));
    const SweepCentre centre{side / 2.0, side / 2.0};
    const int radials = static_cast<int>(std::lround(360 / step_deg));
    for (int k = 0; k < radials; ++k) {
        const SectorSides sides = sectorsides(k * step_deg, step_deg / 2, d_cells);
        for (int c = 2; c <= samples; ++c) {
            const SectorQuad quad = sectorquad(sides, centre, c);
            const auto [left, right] = std::minmax({quad[0].x, quad[1].x, quad[2].x, quad[3].x});
            const auto [top, bottom] = std::minmax({quad[0].y, quad[1].y, quad[2].y, quad[3].y});
            const int x0 = left - 1;
            const int y0 = top - 1;
            const int x1 = right + 1;
            const int y1 = bottom + 1;
            Sheet box(x1 - x0 + 1, y1 - y0 + 1);
            SectorQuad moved = quad;
            for (PicturePoint& corner : moved)
                corner = {corner.x - x0, corner.y - y0};
            fillquad(box.view(), moved, 0xff000000U);
            for (int y = 0; y < box.height; ++y)
                for (int x = 0; x < box.width; ++x)
                    if (box.at(x, y) != 0xffffffffU)
                        ++times[indexof(x0 + x, y0 + y, side)];
        }
    }
    return times;
}
} // namespace

TEST(PixelOf, SwapsRedAndBlue)
{
    EXPECT_EQ(pixelof(0x00FFFF), 0xffffff00U) << "yellow";
    EXPECT_EQ(pixelof(0x0000FF), 0xffff0000U) << "red";
}

TEST(FillQuad, TakesItsLeftAndUpperEdgeAndLeavesTheOthers)
{
    Sheet sheet(10, 10);
    fillquad(sheet.view(), {{{2, 3}, {6, 3}, {6, 5}, {2, 5}}}, 0xff000000U);
    int painted = 0;
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 2 && x < 6 && y >= 3 && y < 5;
            EXPECT_EQ(sheet.at(x, y) == 0xff000000U, inside) << x << "," << y;
            painted += inside;
        }
    EXPECT_EQ(painted, 8);
}

TEST(FillQuad, DoesNotDependOnTheOrderOfItsCorners)
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> any(-5, 25);
    for (int i = 0; i < 500; ++i) {
        SectorQuad quad;
        for (PicturePoint& corner : quad)
            corner = {any(random), any(random)};
        Sheet one(20, 20);
        fillquad(one.view(), quad, 0xff000000U);
        std::rotate(quad.begin(), quad.begin() + 1, quad.end());
        std::reverse(quad.begin(), quad.end());
        Sheet other(20, 20);
        fillquad(other.view(), quad, 0xff000000U);
        EXPECT_EQ(one.pixels, other.pixels);
    }
}

TEST(FillQuad, LetsTheMapShowThrough)
{
    Sheet sheet(4, 4);
    sheet.pixels.assign(16, 0xff8899aaU);
    fillquad(sheet.view(), {{{0, 0}, {4, 0}, {4, 4}, {0, 4}}}, pixelof(0x00FFFF));
    EXPECT_EQ(sheet.at(2, 2), 0xff889900U);
}

TEST(FillQuad, IsCutAtTheSheet)
{
    Sheet sheet(5, 5);
    fillquad(sheet.view(), {{{-100, -100}, {1000, -90}, {1000, 1000}, {-90, 1000}}}, 0xff000000U);
    EXPECT_EQ(std::count(sheet.pixels.begin(), sheet.pixels.end(), 0xff000000U), 25);
    fillquad(sheet.view(), {{{-9, -9}, {-5, -9}, {-5, -5}, {-9, -5}}}, 0xff0000ffU);
    fillquad(sheet.view(), {{{9, 1}, {15, 1}, {15, 3}, {9, 3}}}, 0xff0000ffU);
    EXPECT_EQ(std::count(sheet.pixels.begin(), sheet.pixels.end(), 0xff000000U), 25);
}

TEST(Sectors, LeaveNoHolesAtAnyRangeAndStep)
{
    struct Case {
        double step_deg, d_cells;
        int samples;
    };
    for (const auto& [step_deg, d_cells, samples] :
         {Case{1, 1, 140}, Case{1, 2.7, 55}, Case{0.5, 1.3, 110}, Case{0.1, 1, 60},
          Case{1, 0.37, 160}, Case{0.3, 0.62, 160}}) {
        constexpr int side = 320;
        const auto times = timespainted(step_deg, d_cells, samples, side);
        const double inner = 1.5 * d_cells + 1;
        const double outer = (samples + 0.5) * d_cells * std::cos(step_deg / 2 * degree) - 1;
        int holes = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                const double r = std::hypot(x - side / 2.0, y - side / 2.0);
                if (r > inner && r < outer)
                    holes += times[indexof(x, y, side)] == 0;
            }
        EXPECT_EQ(holes, 0) << step_deg << " degrees, " << d_cells << " cells";
    }
}

TEST(Sectors, OfPixelsSizeAndMoreAreNotPaintedTwice)
{
    const auto times = timespainted(5, 6, 25, 320);
    EXPECT_EQ(*std::max_element(times.begin(), times.end()), 1);
}

TEST(FillWedge, PaintsEachPixelOfARingOnce)
{
    constexpr int side = 200;
    const SweepCentre centre{100, 100};
    // Sides along rows, columns and diagonals meet whole pixels.
    for (const double step_deg : {5.0, 1.0, 0.3}) {
        std::vector<int> times(indexof(0, side, side));
        SectorSides sides = sectorsides(step_deg / 2, step_deg / 2, 1);
        const SectorSides start = sides;
        const int radials = static_cast<int>(std::lround(360 / step_deg));
        for (int k = 0; k < radials; ++k) {
            const SectorSides before = sides;
            sides = sectorsides((k + 0.5) * step_deg, step_deg / 2, 1);
            if (k > 0) {
                sides.lx = before.rx;
                sides.ly = before.ry;
            }
            if (k == radials - 1) {
                sides.rx = start.lx;
                sides.ry = start.ly;
            }
            Sheet sheet(side, side);
            fillwedge(sheet.view(), Wedge(centre, sides), 9.5, 60.5, 0xff000000U);
            for (std::size_t i = 0; i < times.size(); ++i)
                times[i] += sheet.pixels[i] != 0xffffffffU;
        }
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                const double r = std::hypot(x - centre.x0, y - centre.y0);
                const double inner = 9.5 * std::cos(step_deg / 2 * degree);
                const double outer = 60.5 * std::cos(step_deg / 2 * degree);
                const int count = times[indexof(x, y, side)];
                EXPECT_LE(count, 1) << x << "," << y;
                EXPECT_TRUE(count == 0 || (r >= inner && r <= 60.5)) << x << "," << y;
                EXPECT_TRUE(count == 1 || r <= 9.5 || r >= outer) << x << "," << y;
            }
    }
}

TEST(FillWedge, IsCutAtTheSheet)
{
    Sheet sheet(5, 5);
    const Wedge wedge({2, 2}, sectorsides(90, 5, 1));
    fillwedge(sheet.view(), wedge, 0.5, 1000, 0xff000000U);
    EXPECT_EQ(sheet.at(3, 2), 0xff000000U);
    EXPECT_EQ(sheet.at(4, 2), 0xff000000U);
    EXPECT_EQ(std::count(sheet.pixels.begin(), sheet.pixels.end(), 0xff000000U), 2);
}

TEST(DrawLine, GoesFromEndToEndWithoutGaps)
{
    std::mt19937 random(9);
    std::uniform_int_distribution<int> any(0, 29);
    for (int i = 0; i < 300; ++i) {
        const PicturePoint a{any(random), any(random)};
        const PicturePoint b{any(random), any(random)};
        Sheet sheet(30, 30);
        drawline(sheet.view(), a, b, 0xff000000U);
        EXPECT_EQ(sheet.at(a.x, a.y), 0xff000000U);
        EXPECT_EQ(sheet.at(b.x, b.y), 0xff000000U);
        const auto count = std::count(sheet.pixels.begin(), sheet.pixels.end(), 0xff000000U);
        EXPECT_EQ(count, std::max(std::abs(a.x - b.x), std::abs(a.y - b.y)) + 1);
    }
    Sheet sheet(5, 5);
    drawline(sheet.view(), {-3, -3}, {9, 9}, 0xff000000U);
    EXPECT_EQ(sheet.at(4, 4), 0xff000000U);
}

TEST(Contour, IsContinuousRoundTheServedArea)
{
    // A served disc: its contour must keep a flood from the centre inside.
    MapGrid map = plainmap(201, 201, 100);
    CoverageOrder order;
    order.centre = 1;
    order.mobile = 2;
    order.net = 1;
    order.bounds = {0, 360, 1, 0, 100};
    order.unit = LevelUnit::dbm;
    order.levels = {-55, 0};
    order.curve = true;
    order.surface = false;
    const auto sweep = preparesweep(twostations(), map, order, {100, 100}, 0);
    Sheet sheet(201, 201);
    runsweep(
        *sweep,
        [&](std::span<const SectorPaint> sectors) {
            paintsectors(sheet.view(), sectors, CoverageColours{{}, 0, 0xff000000U});
        },
        [](int) { return true; });
    const auto painted = std::count(sheet.pixels.begin(), sheet.pixels.end(), 0xff000000U);
    ASSERT_GT(painted, 100);
    std::vector<PicturePoint> open{{100, 110}};
    bool escaped = false;
    while (!open.empty()) {
        const PicturePoint p = open.back();
        open.pop_back();
        if (p.x < 0 || p.y < 0 || p.x > 200 || p.y > 200) {
            escaped = true;
            continue;
        }
        std::uint32_t& pixel = sheet.pixels[indexof(p.x, p.y, 201)];
        if (pixel != 0xffffffffU)
            continue;
        pixel = 0xff0000ffU;
        for (const auto& [dx, dy] :
             {std::pair(1, 0), std::pair(-1, 0), std::pair(0, 1), std::pair(0, -1)})
            open.push_back({p.x + dx, p.y + dy});
    }
    EXPECT_FALSE(escaped);
}
