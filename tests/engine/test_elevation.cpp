// The elevation kernels on tiles in memory, against bilinear interpolation from its definition.

#include "engine/tiles/getdted.h"
#include "engine/tiles/getmapstat.h"
#include "engine/tiles/getterrain.h"
#include "engine/tiles/gettopo30.h"
#include "support/elevationfiles.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

using namespace elevationfiles;

namespace
{
constexpr std::int16_t untouched = 12345;

struct Table {
    Table(int w, int h)
        : width(w), height(h),
          samples(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), untouched)
    {
    }
    HeightTable view() { return {samples, width, height}; }
    std::int16_t at(int x, int y) const { return samples[index(x, y)]; }
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x);
    }
    /// Pixels that a kernel wrote to.
    std::ptrdiff_t written() const
    {
        return std::count_if(samples.begin(), samples.end(),
                             [](std::int16_t h) { return h != untouched; });
    }

    int width, height;
    std::vector<std::int16_t> samples;
};

std::span<const std::byte> bytesof(const std::string& text)
{
    return std::as_bytes(std::span(text.data(), text.size()));
}

const TileStep goon = [](int) { return true; };

/// Every table pixel within the tile holds the bilinear height, to half a metre; the others are
/// untouched.
void expectbilinear(const Table& table, const TilePlace& place, const Heights& height, int columns,
                    int rows)
{
    for (int y = 0; y < table.height; ++y)
        for (int x = 0; x < table.width; ++x) {
            const double u = (x - place.x) * place.stepx;
            const double v = (y - place.y) * place.stepy;
            if (u < 0 || v < 0 || u > columns - 1 || v > rows - 1)
                ASSERT_EQ(table.at(x, y), untouched) << x << " " << y;
            else
                ASSERT_NEAR(table.at(x, y), bilinear(height, u, v), 0.5001) << x << " " << y;
        }
}

TileStatus readcell(Table& table, const std::string& bytes, const TilePlace& place)
{
    const ByteSource file = bytesource(bytesof(bytes));
    const auto header = dtedheader(file);
    return header ? getdted(table.view(), file, *header, place, goon) : TileStatus::unreadable;
}

std::vector<std::int16_t> terraintile(const Heights& height)
{
    std::vector<std::int16_t> tile;
    for (int row = 0; row < terrainside; ++row)
        for (int column = 0; column < terrainside; ++column)
            tile.push_back(static_cast<std::int16_t>(height(column, row)));
    return tile;
}
} // namespace

TEST(Getterrain, InterpolatesBetweenTheSamplesAtAnyPlace)
{
    for (const TilePlace place :
         {TilePlace{3.25, 5.75, 0.37, 0.61}, TilePlace{-40.5, -7.1, 2.3, 1.9},
          TilePlace{-3000, -1000.5, 0.03, 0.09}}) {
        Table table(97, 83);
        getterrain(table.view(), terraintile(roughground), place);
        expectbilinear(table, place, roughground, terrainside, terrainside);
    }
}

TEST(Getterrain, TakesTheSamplesThemselvesWhereTheTableFallsOnThem)
{
    Table table(121, 121);
    getterrain(table.view(), terraintile(roughground), {0, 0, 1, 1});
    for (int y = 0; y < 121; ++y)
        for (int x = 0; x < 121; ++x)
            ASSERT_EQ(table.at(x, y), roughground(x, y));
}

TEST(Getterrain, LeavesTheTableAloneWhereNothingFallsOnIt)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const TilePlace place :
         {TilePlace{400, 0, 1, 1}, TilePlace{-400, 0, 1, 1}, TilePlace{nan, 0, 1, 1},
          TilePlace{0, infinite, 1, 1}, TilePlace{0, 0, 0, 1}, TilePlace{1e300, 0, 1e-300, 1}}) {
        Table table(50, 50);
        getterrain(table.view(), terraintile(roughground), place);
        EXPECT_EQ(table.written(), 0);
    }
}

TEST(Getterrain, RefusesATileOfAnotherSize)
{
    Table table(50, 50);
    getterrain(table.view(), std::vector<std::int16_t>(14520), {0, 0, 1, 1});
    EXPECT_EQ(table.written(), 0);
}

TEST(Getterrain, LeavesVoidsAndTakesTheNearestSampleBesideThem)
{
    for (const int gap : {-32767, -32768, -9999}) {
        const Heights height = [gap](int column, int row) {
            return column == 2 && row == 2 ? gap : 100 * column + row;
        };
        Table table(41, 41); // ten pixels from sample to sample
        getterrain(table.view(), terraintile(height), {0, 0, 0.1, 0.1});
        EXPECT_EQ(table.at(20, 20), untouched); // on the void
        EXPECT_EQ(table.at(22, 18), untouched); // nearest to it
        EXPECT_EQ(table.at(14, 14), 101);       // nearest to (1, 1), with the void diagonal to it
        EXPECT_EQ(table.at(26, 20), 302);       // nearest to (3, 2)
        EXPECT_EQ(table.at(8, 24), 82);         // (0.8, 2.4): no void around
    }
}

TEST(Resampling, TwoTilesLeaveNoGapAndNoStepBetweenThem)
{
    // Two tiles of one plane that meet at a table column with a fraction.
    const Heights west = [](int column, int row) { return 3 * column - 2 * row; };
    const Heights east = [](int column, int row) { return 3 * (column + 120) - 2 * row; };
    Table table(200, 60);
    const double step = 240.0 / 199;
    getterrain(table.view(), terraintile(west), {0, 0, step, 1});
    getterrain(table.view(), terraintile(east), {120 / step, 0, step, 1});
    for (int x = 0; x < 200; ++x)
        ASSERT_NEAR(table.at(x, 10), 3 * x * step - 20, 0.5001) << x;
    EXPECT_EQ(table.written(), 200 * 60);
}

TEST(Getdted, InterpolatesAllLevelsAndColumnSpacings)
{
    struct Level {
        int columns, rows, tenthsx, tenthsy;
    };
    for (const Level level :
         {Level{121, 121, 300, 300}, Level{1201, 1201, 30, 30}, Level{601, 1201, 60, 30},
          Level{401, 1201, 90, 30}, Level{201, 1201, 180, 30}, Level{3601, 361, 10, 100}}) {
        const std::string bytes =
            dtedbytes({level.columns, level.rows, level.tenthsx, level.tenthsy, roughground});
        for (const double pixels : {90.0, 333.3}) { // table pixels across the cell
            const TilePlace place{-7.3, 4.6, (level.columns - 1) / pixels,
                                  (level.rows - 1) / pixels};
            Table table(120, 130);
            EXPECT_EQ(readcell(table, bytes, place), TileStatus::ok);
            expectbilinear(table, place, roughground, level.columns, level.rows);
        }
    }
}

TEST(Getdted, ReadsCountsAndSpacingFromTheCellItself)
{
    const auto header = [](const DtedCell& cell) {
        const std::string bytes = dtedbytes(cell);
        return dtedheader(bytesource(bytesof(bytes))).value();
    };
    const DtedHeader fine = header({3601, 31, 10, 1200});
    EXPECT_EQ(fine.columns, 3601);
    EXPECT_EQ(fine.rows, 31);
    EXPECT_DOUBLE_EQ(fine.spacingx, 1 / 3600.0);
    EXPECT_DOUBLE_EQ(fine.spacingy, 1 / 30.0);
    // A cell that holds only its south-western quarter.
    EXPECT_DOUBLE_EQ(header({61, 61, 300, 300}).spacingx, 1 / 120.0);
    // No spacing told, or one that would leave the degree: the cell is one degree.
    EXPECT_DOUBLE_EQ(header({121, 121, 0, 600}).spacingx, 1 / 120.0);
    EXPECT_DOUBLE_EQ(header({121, 121, 0, 600}).spacingy, 1 / 120.0);
}

TEST(Getdted, ReadsSignAndMagnitude)
{
    EXPECT_EQ(dtedheight(0x0000), 0);
    EXPECT_EQ(dtedheight(0x0001), 1);
    EXPECT_EQ(dtedheight(0x8001), -1);
    EXPECT_EQ(dtedheight(0x22BF), 8895);
    EXPECT_EQ(dtedheight(0x81B0), -432);
    EXPECT_EQ(dtedheight(0xFFFF), voidheight); // -32767
    EXPECT_EQ(dtedheight(0x8000), voidheight); // -32768 of other writers
    EXPECT_EQ(dtedheight(0xFFF6), -10);        // two's complement
    EXPECT_EQ(dtedheight(0xFE50), -432);
}

TEST(Getdted, LeavesVoidsAndTakesTheNearestSampleBesideThem)
{
    const Heights height = [](int column, int row) {
        return column == 60 && row == 60 ? -32767 : -5 * column - row;
    };
    const std::string bytes = dtedbytes({121, 121, 300, 300, height});
    Table table(121, 121);
    EXPECT_EQ(readcell(table, bytes, {-55, -55, 1, 1}), TileStatus::ok); // sample 60 at pixel 5
    EXPECT_EQ(table.at(5, 5), untouched);
    EXPECT_EQ(table.at(6, 5), -5 * 61 - 60);
    EXPECT_EQ(table.at(4, 4), -5 * 59 - 59);
}

TEST(Getdted, ReadsCellsWithWrongChecksumsAndTapeLabels)
{
    DtedCell cell{121, 121, 300, 300, roughground};
    cell.checksums = false;
    const std::string bytes = dtedbytes(cell);
    const std::string vol = "VOL1" + std::string(76, ' ');
    const std::string hdr = "HDR1" + std::string(76, ' ');
    std::string ontape = vol;
    ontape.append(hdr).append(bytes);
    for (const std::string& file : {bytes, ontape}) {
        Table table(121, 121);
        EXPECT_EQ(readcell(table, file, {0, 0, 1, 1}), TileStatus::ok);
        expectbilinear(table, {0, 0, 1, 1}, roughground, 121, 121);
    }
}

TEST(Getdted, RefusesWhatIsNotAWholeCell)
{
    const DtedCell cell{121, 121, 300, 300, roughground};
    const std::string whole = dtedbytes(cell);
    const auto refused = [](const std::string& bytes) {
        return !dtedheader(bytesource(bytesof(bytes))).has_value();
    };
    EXPECT_FALSE(refused(whole));
    EXPECT_FALSE(refused(whole + std::string(1000, '\0'))); // padded to a block
    EXPECT_TRUE(refused(""));
    EXPECT_TRUE(refused(whole.substr(0, 79)));
    EXPECT_TRUE(refused(whole.substr(0, 3428)));
    EXPECT_TRUE(refused(whole.substr(0, whole.size() - 1)));
    EXPECT_TRUE(refused("X" + whole.substr(1)));
    const auto withcounts = [&whole](const std::string& counts) {
        return std::string(whole).replace(47, 8, counts);
    };
    EXPECT_TRUE(refused(withcounts("99999999")));
    EXPECT_TRUE(refused(withcounts("00000000")));
    EXPECT_TRUE(refused(withcounts("00010121")));
    EXPECT_TRUE(refused(withcounts("        ")));
    EXPECT_TRUE(refused(withcounts("-121-121")));
    EXPECT_TRUE(refused(withcounts("01210120"))); // rows of another length than the records
    EXPECT_TRUE(refused(withcounts("01220121")));
}

TEST(Getdted, StopsWhenAsked)
{
    const std::string bytes = dtedbytes({1201, 121, 30, 300, roughground});
    const ByteSource file = bytesource(bytesof(bytes));
    Table table(200, 100);
    int steps = 0;
    const auto status = getdted(table.view(), file, dtedheader(file).value(), {0, 0, 6, 1.2},
                                [&steps](int) { return ++steps < 50; });
    EXPECT_EQ(status, TileStatus::stopped);
    EXPECT_EQ(steps, 50);
    EXPECT_GT(table.written(), 0);
    EXPECT_LT(table.written(), 200 * 100);
}

TEST(Getdted, GivesUpWhenTheFileCannotBeRead)
{
    const std::string bytes = dtedbytes({121, 121, 300, 300, roughground});
    ByteSource file = bytesource(bytesof(bytes));
    const DtedHeader header = dtedheader(file).value();
    file.read = [](std::uint64_t, std::span<std::byte>) { return false; };
    Table table(121, 121);
    EXPECT_EQ(getdted(table.view(), file, header, {0, 0, 1, 1}, goon), TileStatus::unreadable);
    EXPECT_EQ(table.written(), 0);
}

TEST(Topoheader, TakesTheTilesOfThePublicDistributionWithoutAHeader)
{
    const auto normal = topoheader("", {40, 50}, 57600000).value();
    EXPECT_EQ(normal.columns, 4800);
    EXPECT_EQ(normal.rows, 6000);
    EXPECT_TRUE(normal.bigendian);
    EXPECT_DOUBLE_EQ(normal.spacingx, 1 / 120.0);
    const auto southern = topoheader("", {60, 30}, 51840000).value();
    EXPECT_EQ(southern.columns, 7200);
    EXPECT_EQ(southern.rows, 3600);
    EXPECT_FALSE(topoheader("", {40, 50}, 57599999));
    EXPECT_FALSE(topoheader("", {40, 50}, 0));
}

TEST(Topoheader, ReadsWhatTheHeaderSays)
{
    const std::string text = "BYTEORDER      I\r\nlayout BIL\nNROWS 50\nNCOLS  40\nNBANDS 1\n"
                             "NBITS 16\nBANDROWBYTES 80\nTOTALROWBYTES 100\nBANDGAPBYTES 0\n"
                             "NODATA -500\nULXMAP 20.5\nULYMAP +39.5\nXDIM 0.5\nYDIM 1\n"
                             "SKIPBYTES 12";
    const auto header = topoheader(text, {40, 50}, 12 + 50 * 100).value();
    EXPECT_EQ(header.columns, 40);
    EXPECT_EQ(header.rows, 50);
    EXPECT_FALSE(header.bigendian);
    EXPECT_EQ(header.rowbytes, 100U);
    EXPECT_EQ(header.skip, 12U);
    EXPECT_EQ(header.nodata, -500);
    EXPECT_EQ(header.west, 20.5);
    EXPECT_EQ(header.north, 39.5);
    EXPECT_EQ(header.spacingx, 0.5);
    EXPECT_EQ(header.spacingy, 1);
}

TEST(Topoheader, RefusesCountsThatCannotBe)
{
    const std::string counts = "NROWS 50\nNCOLS 40\n";
    EXPECT_TRUE(topoheader(counts, {40, 50}, 4000));
    for (const char* line :
         {"NROWS 0", "NCOLS 0", "NROWS -50", "NCOLS 99999999999999999999", "NROWS 2000000000",
          "NROWS many", "NBITS 8", "NBANDS 3", "TOTALROWBYTES 79", "TOTALROWBYTES 9999999999",
          "SKIPBYTES 1", "SKIPBYTES 18446744073709551615", "XDIM 0", "XDIM -1", "XDIM nan",
          "YDIM inf", "XDIM 2", "NROWS 51", "NCOLS 39"})
        EXPECT_FALSE(topoheader(std::string(line) + "\n" + counts, {40, 50}, 4000)) << line;
    // The right size, but columns and rows in each other's place.
    EXPECT_FALSE(topoheader("NROWS 4800\nNCOLS 6000\nXDIM 0.00833333333333\nYDIM 0.00833333333333",
                            {40, 50}, 57600000));
}

namespace
{
TopoRows topofile(const std::string& bytes, const TopoHeader& header)
{
    // The rim of a tile that stands alone has no heights.
    return [&bytes, header](int row, int first, std::span<std::int16_t> heights) {
        std::fill(heights.begin(), heights.end(), voidheight);
        if (row < 0 || row >= header.rows)
            return true;
        const int from = std::max(first, 0);
        const int to = std::min(first + static_cast<int>(heights.size()), header.columns);
        return readtoporow(bytesource(bytesof(bytes)), header, row, from,
                           heights.subspan(static_cast<std::size_t>(from - first),
                                           static_cast<std::size_t>(to - from)));
    };
}
} // namespace

TEST(Gettopo30, InterpolatesFromTheNorthRowDownInBothByteOrders)
{
    for (const bool bigendian : {true, false}) {
        const std::string bytes = rasterbytes(80, 100, roughground, bigendian);
        auto header = topoheader("NCOLS 80\nNROWS 100", {40, 50}, bytes.size()).value();
        header.bigendian = bigendian;
        Table table(150, 160);
        const TilePlace place{5.3, 140.6, 0.61, -0.83};
        EXPECT_EQ(gettopo30(table.view(), header, topofile(bytes, header), place, goon),
                  TileStatus::ok);
        for (int y = 0; y < table.height; ++y)
            for (int x = 0; x < table.width; ++x) {
                const double u = (x - place.x) * place.stepx;
                const double v = (y - place.y) * place.stepy;
                if (u < -0.5 || v < -0.5 || u > 79.5 || v > 99.5)
                    ASSERT_EQ(table.at(x, y), untouched);
                else if (u >= 0 && v >= 0 && u <= 79 && v <= 99)
                    ASSERT_NEAR(table.at(x, y), bilinear(roughground, u, v), 0.5001);
                else // in the half cell around the outermost centres
                    ASSERT_EQ(
                        table.at(x, y),
                        roughground(std::clamp(static_cast<int>(std::floor(u + 0.5)), 0, 79),
                                    std::clamp(static_cast<int>(std::floor(v + 0.5)), 0, 99)));
            }
    }
}

TEST(Gettopo30, AsksOnlyForTheRowsAndColumnsOfTheFrame)
{
    const auto header = topoheader("", {40, 50}, 57600000).value();
    int rows = 0;
    const auto readrow = [&rows](int row, int first, std::span<std::int16_t> heights) {
        ++rows;
        EXPECT_GE(row, 1200);
        EXPECT_LE(row, 1231);
        EXPECT_EQ(first, 500);
        EXPECT_EQ(heights.size(), 62U);
        std::fill(heights.begin(), heights.end(), static_cast<std::int16_t>(row));
        return true;
    };
    Table table(121, 61);
    // Half a sample from pixel to pixel: the frame spans samples 500 to 561 and 1200 to 1231.
    EXPECT_EQ(gettopo30(table.view(), header, readrow, {-1000, 60 + 2400, 0.5, -0.5}, goon),
              TileStatus::ok);
    EXPECT_EQ(rows, 32);
    EXPECT_EQ(table.at(0, 60), 1200);
    EXPECT_EQ(table.at(120, 0), 1230);
}

TEST(Gettopo30, ReportsRowsFromTheNorthAndStops)
{
    const std::string bytes = rasterbytes(40, 50, roughground, true);
    const auto header = topoheader("NCOLS 40\nNROWS 50", {40, 50}, bytes.size()).value();
    Table table(40, 50);
    std::vector<int> lines;
    const auto status = gettopo30(table.view(), header, topofile(bytes, header), {0, 49, 1, -1},
                                  [&lines](int line) {
                                      lines.push_back(line);
                                      return line < 9;
                                  });
    EXPECT_EQ(status, TileStatus::stopped);
    EXPECT_EQ(lines, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(table.written(), 10 * 40);
    EXPECT_EQ(table.at(7, 49), roughground(7, 0));
}

TEST(Gettopo30, KeepsTheTableWhereThereIsNoData)
{
    const Heights island = [](int column, int row) { return column > 10 && row > 10 ? 50 : -9999; };
    const std::string bytes = rasterbytes(40, 50, island, true);
    const auto header = topoheader("NCOLS 40\nNROWS 50", {40, 50}, bytes.size()).value();
    Table table(40, 50);
    EXPECT_EQ(gettopo30(table.view(), header, topofile(bytes, header), {0, 49, 1, -1}, goon),
              TileStatus::ok);
    EXPECT_EQ(table.at(10, 20), untouched);
    EXPECT_EQ(table.at(11, 20), 50);
    EXPECT_EQ(table.written(), 29 * 39);
}

TEST(Getmapstat, CountsLowestHighestAndMean)
{
    std::vector<std::int16_t> samples{5, -3, 0, 8, 8, 9};
    MapStatistics statistics;
    int rows = 0;
    EXPECT_EQ(
        getmapstat({samples, 3, 2}, statistics, [&rows](int row) { return (rows = row) > 0; }),
        TileStatus::ok);
    EXPECT_EQ(statistics.hmin, -3);
    EXPECT_EQ(statistics.hmax, 9);
    EXPECT_EQ(statistics.hmoy, 4.5F);
    EXPECT_EQ(rows, 2);
}

TEST(Getmapstat, HoldsTheWidestSums)
{
    std::vector<std::int16_t> samples(4000000, 32767);
    MapStatistics statistics;
    EXPECT_EQ(getmapstat({samples, 2000, 2000}, statistics, goon), TileStatus::ok);
    EXPECT_EQ(statistics.hmin, 32767);
    EXPECT_EQ(statistics.hmoy, 32767);
}

TEST(Getmapstat, LeavesTheStatisticsOfAnEmptyOrStoppedCount)
{
    MapStatistics statistics{1, 2, 3};
    EXPECT_EQ(getmapstat({}, statistics, goon), TileStatus::ok);
    EXPECT_EQ(statistics.hmoy, 3);
    std::vector<std::int16_t> samples(6, 4);
    EXPECT_EQ(getmapstat({samples, 3, 2}, statistics, [](int) { return false; }),
              TileStatus::stopped);
    EXPECT_EQ(statistics.hmin, 1);
}
