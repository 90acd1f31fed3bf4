#include "base/paths.h"
#include "coverage/pattern.h"
#include "support/places.h"
#include "support/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Each;
using testing::ElementsAre;

TEST(AntennaPattern, HoldsOneGainADegree)
{
    std::string text;
    for (int i = 0; i < 360; ++i)
        text += std::to_string(-i / 4.0) + "\r\n";
    const AntennaPattern pattern = parsepattern(text);
    EXPECT_EQ(pattern[0], 0);
    EXPECT_EQ(pattern[1], -0.25F);
    EXPECT_EQ(pattern[359], -89.75F);
}

TEST(AntennaPattern, HoldsGainsWithinHundredDecibels)
{
    const AntennaPattern pattern = parsepattern("-100.5 100.5 1e300 -1e300 +3");
    EXPECT_THAT(std::vector(pattern.begin(), pattern.begin() + 5),
                ElementsAre(-100, 100, 100, -100, 3));
}

TEST(AntennaPattern, StaysZeroBehindTheEndOfTheFileAndBehindWords)
{
    EXPECT_THAT(parsepattern(""), Each(0));
    const AntennaPattern pattern = parsepattern("-1,-2\n-3 four -5");
    EXPECT_THAT(std::vector(pattern.begin(), pattern.begin() + 5), ElementsAre(-1, -2, -3, 0, 0));
    EXPECT_THAT(parsepattern("nan\n-5"), Each(0));
    EXPECT_THAT(parsepattern("inf\n-5"), Each(0));
}

TEST(AntennaPattern, OfAMissingFileIsOmnidirectional)
{
    EXPECT_THAT(readpattern("no such file.ant"), Each(0));
    EXPECT_THAT(readpattern(""), Each(0));
}

TEST(AntennaPattern, TurnsWithTheAntenna)
{
    AntennaPattern pattern{};
    for (std::size_t i = 0; i < pattern.size(); ++i)
        pattern[i] = -static_cast<float>(i);
    EXPECT_EQ(patterngain(pattern, 0, 0), 0);
    EXPECT_EQ(patterngain(pattern, 30, 10), -20);
    EXPECT_EQ(patterngain(pattern, 10, 30), -340);
    EXPECT_EQ(patterngain(pattern, 360, 0), 0);
    EXPECT_EQ(patterngain(pattern, 359.4, 0), -359);
    EXPECT_EQ(patterngain(pattern, 359.6, 0), 0);
    EXPECT_EQ(patterngain(pattern, 0.5, 0), 0) << "ties go to even";
    EXPECT_EQ(patterngain(pattern, 1.5, 0), -2);
    EXPECT_EQ(patterngain(pattern, NAN, 0), 0);
}

TEST(AntennaPattern, ListBeginsWithOmniAndHasLowerCaseNames)
{
    const TempFolder folder;
    folder.makefile("Yagi.ANT");
    folder.makefile("aerial.ant");
    folder.makefile("omni.ant");
    folder.makefile("beam.rad");
    setprogramfolder(folder.path());
    EXPECT_THAT(patternfiles(), ElementsAre("omni.ant", "aerial.ant", "yagi.ant"));
    EXPECT_THAT(programfiles(".rad"), ElementsAre("beam.rad"));
    EXPECT_THAT(readpattern("yagi.ant"), Each(0)) << "its text is no number";
    setprogramfolder("");
}

TEST(AntennaPattern, ShippedOnesPointForwardAndNeverGainElsewhere)
{
    setshippedfolder(sourcefolder() + "/data/");
    for (const char* name : {"omni.ant", "dipole.ant", "yagi3.ant", "yagi9.ant", "panel.ant"}) {
        const auto path = findfile(std::string(sourcefolder() + "/data/") + name);
        ASSERT_TRUE(path) << name;
        const AntennaPattern pattern = readpattern(name);
        EXPECT_EQ(pattern[0], 0) << name;
        for (std::size_t i = 1; i < 360; ++i) {
            EXPECT_LE(pattern[i], 0) << name << i;
            EXPECT_NEAR(pattern[i], pattern[360 - i], 0.011) << name << " is symmetrical";
        }
        EXPECT_EQ(pattern[180] < -9,
                  name != std::string("omni.ant") && name != std::string("dipole.ant"))
            << name;
    }
}
