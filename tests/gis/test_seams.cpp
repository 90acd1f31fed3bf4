// Tiles whose grids are shifted by half a pixel against their degree, as the global 1 second models
// have it: the line between two cells lies in one of their tiles only.

#include "gis/gisfiles.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
// Far in the north, where cells have few columns: the orders are many.
constexpr int stepx = 200;
constexpr int step = 1200; // 3 arc seconds

/// Ground that differs everywhere and is whole metres where samples lie.
double ground(double lon, double lat)
{
    const double x = std::nearbyint(lon * stepx);
    const double y = std::nearbyint(lat * step);
    return 700 + std::fmod(std::fabs(7 * x + 13 * y), 997);
}

struct Corner {
    int lon, lat;
};
constexpr std::array<Corner, 4> corners{{{1, 81}, {2, 81}, {1, 82}, {2, 82}}};

std::string nameof(const Corner& at)
{
    return "E00" + std::to_string(at.lon) + "/N" + std::to_string(at.lat) + ".DT1";
}

class Seams : public GisTest
{
protected:
    /// Every sample of a cell that some tile holds must be its height; the others are voids.
    void expectground(const Corner& at, const std::string& text) const
    {
        const MadeCell made = cell(nameof(at));
        ASSERT_EQ(made.columns, stepx + 1);
        std::size_t wrong = 0;
        for (int column = 0; column <= stepx; ++column)
            for (const int row : {0, 1, 2, 600, step - 1, step})
                wrong += right(made, at, column, row) ? 0 : 1;
        for (int row = 0; row <= step; ++row)
            for (const int column : {0, 1, 2, 100, stepx - 1, stepx})
                wrong += right(made, at, column, row) ? 0 : 1;
        EXPECT_EQ(wrong, 0U) << nameof(at) << " " << text;
    }

private:
    /// The four tiles reach from 1 E to before 3 E and from behind 81 N to 83 N.
    static bool right(const MadeCell& made, const Corner& at, int column, int row)
    {
        const bool covered = (at.lon == 1 || column < stepx) && (at.lat == 82 || row > 0);
        const double expected =
            covered ? ground(at.lon + column / double{stepx}, at.lat + row / double{step}) : -32767;
        return made.at(column, row) == static_cast<int>(expected);
    }
};
} // namespace

TEST_F(Seams, AreClosedInWhateverOrderTheTilesCome)
{
    std::array<std::string, 4> tiles;
    for (std::size_t i = 0; i < corners.size(); ++i)
        tiles[i] = maketile(corners[i].lon, corners[i].lat, stepx, step, ground);
    std::array<std::size_t, 4> order{0, 1, 2, 3};
    do {
        std::filesystem::remove_all(folder.path("DTED"));
        std::string text;
        for (const std::size_t i : order) {
            ASSERT_EQ(import({tiles[i]}).what, "");
            text += " " + nameof(corners[i]);
        }
        for (const Corner& at : corners)
            expectground(at, text);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Seams, AreClosedInOneRun)
{
    std::vector<std::string> tiles;
    for (const Corner& at : corners)
        tiles.push_back(maketile(at.lon, at.lat, stepx, step, ground));
    ASSERT_EQ(import(tiles).what, "");
    for (const Corner& at : corners)
        expectground(at, "");
}

TEST_F(Seams, StayVoidUntilTheNeighbourComes)
{
    const std::string tile = maketile(1, 82, stepx, step, ground);
    ASSERT_EQ(import({tile}).what, "");
    EXPECT_EQ(cell("E001/N82.DT1").at(5, 0), -32767);
    EXPECT_EQ(cell("E001/N82.DT1").voids(), stepx + step + 1U);
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(said[0], "DTED/E001/N82.DT1: 0.58 % of the cell is void");
}

TEST_F(Seams, AreClosedBetweenCellsOfDifferentSpacing)
{
    // Northwards of 50 degrees a cell has half as many columns.
    const auto plane = [](double lon, double lat) { return 100 * lon + 200 * (lat - 49); };
    const std::string south = maketile(1, 49, step, step, plane);
    const std::string north = maketile(1, 50, step, step, plane);
    ASSERT_EQ(import({south}).what, "");
    ASSERT_EQ(import({north}).what, "");
    const MadeCell upper = cell("E001/N50.DT1");
    for (int column = 0; column < 600; ++column)
        EXPECT_NEAR(upper.at(column, 0), 100 * (1 + column / 600.0) + 200, 0.51);
}

TEST_F(Seams, AreClosedAcrossTheDateLine)
{
    const std::string east = maketile(-180, 82, stepx, step, [](double, double) { return 300; });
    const std::string west = maketile(179, 82, stepx, step, [](double, double) { return 200; });
    ASSERT_EQ(import({east}).what, "");
    ASSERT_EQ(import({west}).what, "");
    EXPECT_EQ(cell("E179/N82.DT1").at(stepx, 100), 300);
    EXPECT_EQ(cell("E179/N82.DT1").at(stepx - 1, 100), 200);
    EXPECT_EQ(cell("W180/N82.DT1").at(0, 100), 300);
}
