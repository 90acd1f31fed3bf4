#include "relief/coloredit.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

static std::int32_t bgr(int red, int green, int blue)
{
    return red | green << 8 | blue << 16;
}

TEST(ColorRamp, EveryRampBeginsWithWhiteAndEndsWithMagenta)
{
    for (int number = 1; number <= 4; ++number) {
        EXPECT_EQ(colorramp(number).front(), 0xFFFFFF) << number;
        EXPECT_EQ(colorramp(number).back(), 0xFF00FF) << number;
    }
}

TEST(ColorRamp, TheFirstRunsFromBlueOverGreenToRed)
{
    EXPECT_THAT(colorramp(1), ElementsAre(0xFFFFFF, bgr(64, 64, 255), bgr(64, 220, 255),
                                          bgr(64, 255, 255), bgr(64, 255, 192), bgr(64, 255, 64),
                                          bgr(192, 255, 64), bgr(255, 255, 64), bgr(255, 220, 64),
                                          bgr(255, 64, 64), bgr(255, 64, 64 + 92), 0xFF00FF));
}

TEST(ColorRamp, TheSecondRunsBackWithMoreGreenInTheMiddle)
{
    EXPECT_THAT(colorramp(2), ElementsAre(0xFFFFFF, bgr(255, 64, 64 + 92), bgr(255, 64, 64),
                                          bgr(255, 220, 64), bgr(255, 255, 64), bgr(192, 255, 64),
                                          bgr(64, 255, 64), bgr(64, 255, 192), bgr(64, 255, 255),
                                          bgr(64, 220, 255), bgr(64, 64, 255), 0xFF00FF));
}

TEST(ColorRamp, TheThirdAndFourthAreThePaleFormsOfTheFirstTwo)
{
    for (const int number : {1, 2}) {
        const auto strong = colorramp(number);
        const auto pale = colorramp(number + 2);
        for (std::size_t i = 1; i <= 10; ++i)
            for (const auto component : {redof, greenof, blueof}) {
                const int had = component(strong[i]);
                // What was held at 64 is held at 127; the violet end keeps what it adds.
                const int expected = had == 64 + 92 ? 127 + 92 : std::max(had, 127);
                EXPECT_EQ(component(pale[i]), expected) << number << ' ' << i;
            }
    }
}

TEST(ColorEdit, OpensWithTheTable)
{
    Colours table;
    table.colortable = defaultcolors();
    table.levels = {-5, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1000};
    table.absolutescale = 1;
    table.stratified = 1;
    const ColorEdit edit = editlevels(table);
    EXPECT_FALSE(edit.signal);
    EXPECT_EQ(edit.colortable, table.colortable);
    EXPECT_EQ(edit.values.front(), "-5");
    EXPECT_EQ(edit.values.back(), "1000");
    EXPECT_EQ(edit.absolutescale, 1);
    EXPECT_TRUE(edit.stratified);
    EXPECT_FALSE(edit.showlegend);
}

TEST(ColorEdit, ShowsTheLevelsOfASignalInTheirShortestForm)
{
    std::array<float, 11> levels{};
    levels[0] = -120;
    levels[10] = -99.5F;
    const ColorEdit edit = editsignal(Colours(), levels);
    EXPECT_TRUE(edit.signal);
    EXPECT_EQ(edit.values[0], "-120");
    EXPECT_EQ(edit.values[10], "-99.5");
}

TEST(ColorEdit, ARelativeScaleSpansFloorAndCeilingInEqualSteps)
{
    ColorEdit edit;
    edit.absolutescale = 1;
    relativescale(edit, 100, 125);
    EXPECT_THAT(edit.values, ElementsAre("100", "102", "105", "108", "110", "112", "115", "118",
                                         "120", "122", "125"))
        << "ties go to even";
    EXPECT_EQ(edit.absolutescale, 0);
}

TEST(ColorEdit, ARelativeScaleMayBeEmptyOrRunDown)
{
    ColorEdit edit;
    relativescale(edit, 50, 50);
    EXPECT_EQ(edit.values[10], "50");
    relativescale(edit, 0, -100);
    EXPECT_EQ(edit.values[5], "-50");
}

TEST(ColorEdit, AnAbsoluteScaleIsAlwaysTheSame)
{
    ColorEdit edit;
    fixedscale(edit);
    EXPECT_THAT(edit.values, ElementsAre("1", "100", "200", "300", "400", "500", "600", "700",
                                         "800", "900", "1000"));
    EXPECT_EQ(edit.absolutescale, 1);
}

TEST(ColorEdit, ALevelIsAWholeNumberOfSixteenBits)
{
    EXPECT_EQ(levelof("250"), 250);
    EXPECT_EQ(levelof("2.5"), 2);
    EXPECT_EQ(levelof("3,6"), 4);
    EXPECT_EQ(levelof("40000"), 32767);
    EXPECT_EQ(levelof("-1e9"), -32768);
    EXPECT_EQ(levelof("haut"), 0);
}

TEST(ColorEdit, StoresTheLevelsOnlyWhenAsked)
{
    ColorEdit edit;
    edit.colortable = colorramp(2);
    fixedscale(edit);
    edit.stratified = edit.showlegend = true;
    Colours table;
    applycolors(edit, false, table);
    EXPECT_EQ(table.colortable, colorramp(2));
    EXPECT_EQ(table.absolutescale, 1);
    EXPECT_EQ(table.stratified, 1);
    EXPECT_EQ(table.showlegend, 1);
    EXPECT_EQ(table.levels[10], 0);
    applycolors(edit, true, table);
    EXPECT_EQ(table.levels[10], 1000);
}
