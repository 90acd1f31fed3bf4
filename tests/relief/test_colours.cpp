#include "base/paths.h"
#include "relief/colours.h"

#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>

using testing::Each;
using testing::ElementsAre;

namespace
{

/// The table and the map as a fresh program has them, with a program folder of its own.
class ColourTable : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string folder = testing::TempDir() + "velmora-colours-XXXXXX";
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        home = folder + "/";
        setprogramfolder(home);
        colours = {};
        mapgrid = {};
    }
    void TearDown() override { std::filesystem::remove_all(home); }

    static void range(float floor, float ceiling)
    {
        mapgrid.record.minx = floor;
        mapgrid.record.maxx = ceiling;
    }

    std::string home;
};

constexpr const char* shippedform =
    "1\r\n0\r\n1\r\n100\r\n200\r\n300\r\n400\r\n500\r\n600\r\n700\r\n"
    "800\r\n900\r\n1000\r\nCD965A\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n"
    "7\r\n8\r\n9\r\nFF\r\nFFFFFF\r\n1\r\n";

} // namespace

TEST_F(ColourTable, WithoutAFileTheDefaultsHold)
{
    range(0, 1000);
    setcolors();
    EXPECT_EQ(colours.colortable[0], 90 | 150 << 8 | 205 << 16);
    EXPECT_EQ(colours.colortable[1], 100 | 100 << 8 | 255 << 16);
    EXPECT_EQ(colours.colortable[5], 100 | 255 << 8 | 100 << 16);
    EXPECT_EQ(colours.colortable[10], 255 | 100 << 8 | 100 << 16);
    EXPECT_EQ(colours.colortable[11], 0xFFFFFF);
    EXPECT_THAT(colours.levels, ElementsAre(0, 100, 200, 300, 400, 500, 600, 700, 800, 900, 1000));
    EXPECT_EQ(colours.absolutescale, 0);
}

TEST_F(ColourTable, DefaultComponentsAreCutToWholeNumbers)
{
    // (4.5 - 3.5) x 220 for colours 2 and 9, (7 - 5.5) x 128 for colour 7.
    const auto table = defaultcolors();
    EXPECT_EQ(greenof(table[2]), 220);
    EXPECT_EQ(greenof(table[9]), 220);
    EXPECT_EQ(redof(table[7]), 192);
    EXPECT_EQ(blueof(table[4]), 192);
}

TEST_F(ColourTable, RelativeLevelsFollowTheMapAndAbsoluteOnesStay)
{
    range(0, 1000);
    setcolors();
    range(200, 300);
    setcolors();
    EXPECT_EQ(colours.levels[5], 250);
    colours.absolutescale = 1;
    range(0, 4000);
    setcolors();
    EXPECT_EQ(colours.levels[5], 250);
}

TEST_F(ColourTable, LevelsRoundTiesToEven)
{
    range(0, 25);
    setcolors();
    EXPECT_THAT(colours.levels, ElementsAre(0, 2, 5, 8, 10, 12, 15, 18, 20, 22, 25));
}

TEST_F(ColourTable, AnEmptyRangeKeepsTheLevels)
{
    range(0, 1000);
    setcolors();
    range(500, 500);
    setcolors();
    EXPECT_EQ(colours.levels[10], 1000);
}

TEST_F(ColourTable, AFileIsReadAtTheFirstUse)
{
    ASSERT_TRUE(writefile(home + "colors.dat", shippedform));
    range(0, 5000);
    setcolors();
    EXPECT_EQ(colours.absolutescale, 1);
    EXPECT_EQ(colours.levels[10], 1000);
    EXPECT_EQ(colours.colortable[0], 0xCD965A);
    EXPECT_EQ(colours.colortable[10], 0xFF);
    EXPECT_EQ(colours.showlegend, 1);
}

TEST_F(ColourTable, SavingAndLoadingGivesTheSameTableAndText)
{
    Colours table;
    parsecolors(shippedform, table);
    EXPECT_EQ(colorstext(table), shippedform);
    colours = table;
    savecolors();
    colours = {};
    loadcolors();
    EXPECT_EQ(colours, table);
}

TEST_F(ColourTable, BlackAtIndexTenCountsAsEmpty)
{
    Colours table;
    parsecolors(shippedform, table);
    table.colortable[10] = 0;
    ASSERT_TRUE(writefile(home + "colors.dat", colorstext(table)));
    setcolors();
    EXPECT_EQ(colours.colortable, defaultcolors());
    EXPECT_EQ(colours.absolutescale, 1);
}

TEST_F(ColourTable, AFileThatFailsAtTheStartLeavesTheScaleSet)
{
    Colours table;
    parsecolors("", table);
    EXPECT_EQ(table.absolutescale, -1);
}

TEST_F(ColourTable, AShortFileLeavesTheRestAsItWas)
{
    Colours table;
    table.levels.fill(7);
    parsecolors("0\r\n1\r\n10\r\n20\r\n", table);
    EXPECT_EQ(table.stratified, 1);
    EXPECT_THAT(table.levels, ElementsAre(10, 20, 7, 7, 7, 7, 7, 7, 7, 7, 7));
    EXPECT_THAT(table.colortable, Each(0));
}

TEST_F(ColourTable, AMapWithoutARangeIsDrawnOverThatOfItsSamples)
{
    mapgrid.samples = {100, 300, 200, 250};
    mapgrid.width = mapgrid.height = 2;
    mapgrid.maplat = {46, 46, 45, 45};
    const DrawValues values = drawvalues(mapgrid);
    EXPECT_EQ(values.floor, 100);
    EXPECT_EQ(values.ceiling, 300);
    EXPECT_NEAR(values.cellsize, 111125, 10);
    const ColourScale scale = drawscale(colours, values);
    EXPECT_EQ(scale.levels[0], 100);
    EXPECT_EQ(scale.levels[10], 300);
    EXPECT_THAT(colours.levels, Each(0));
}

TEST_F(ColourTable, ALevelMapIsDrawnWithRisingLevelsToo)
{
    mapgrid.samples = {0, 0, 0, 0};
    mapgrid.width = mapgrid.height = 2;
    const ColourScale scale = drawscale(colours, drawvalues(mapgrid));
    EXPECT_LT(scale.levels[0], scale.levels[10]);
}
