#include "base/paths.h"
#include "network/predefined.h"
#include "support/tempfolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{
const std::string two = "VHF portatif 5 W\r\n5\r\n0.35\r\n0\r\n-5\r\n1.5\r\n"
                        "  Relais \xE9lev\xE9, \"toit\" \r\n 50 \r\n0.3\r\n3\r\n8.15\r\n30\r\n";

std::vector<std::string> names(const std::string& text)
{
    return predefinednames(asbytes(text));
}

std::optional<PredefinedSystem> find(const std::string& text, const std::string& name)
{
    return findpredefined(asbytes(text), name);
}
} // namespace

TEST(Predefined, SixLinesMakeASystem)
{
    EXPECT_THAT(names(two), ElementsAre("VHF portatif 5 W", "Relais élevé, \"toit\""));
    const PredefinedSystem portable{"VHF portatif 5 W", "5", "0.35", "0", "-5", "1.5"};
    EXPECT_EQ(find(two, "VHF portatif 5 W"), portable);
}

TEST(Predefined, BlanksAroundTextsCountForNothing)
{
    const auto relay = find(two, "Relais élevé, \"toit\"");
    ASSERT_TRUE(relay);
    EXPECT_EQ(relay->power, "50");
    EXPECT_EQ(relay->height, "30");
}

TEST(Predefined, AnyLineEndsDoAndTheLastLineNeedsNone)
{
    EXPECT_THAT(names("A\n1\n2\n3\n4\n5\nB\n1\n2\n3\n4\n5"), ElementsAre("A", "B"));
    EXPECT_THAT(names("A\r1\r2\r3\r4\r5\r"), ElementsAre("A"));
    EXPECT_EQ(find("A\n1\n2\n3\n4\n5", "A")->height, "5");
}

TEST(Predefined, TheFilesEndEndsTheListQuietly)
{
    EXPECT_THAT(names(""), IsEmpty());
    EXPECT_THAT(names("A\r\n1\r\n2\r\n3\r\n4\r\n"), IsEmpty());
    EXPECT_THAT(names(two + "Reste\r\n1\r\n"), SizeIs(2));
    EXPECT_EQ(find(two + "Reste\r\n1\r\n", "Reste"), std::nullopt);
}

TEST(Predefined, TheFirstOfTwoNamesakesIsFound)
{
    EXPECT_EQ(find("A\n1\n\n\n\n\nA\n2\n\n\n\n\n", "A")->power, "1");
}

TEST(Predefined, AnEntryWithoutANameIsNotOffered)
{
    EXPECT_THAT(names("\n1\n2\n3\n4\n5\nB\n1\n2\n3\n4\n5\n"), ElementsAre("B"));
    EXPECT_THAT(names(std::string(1000, '\n')), IsEmpty());
}

TEST(Predefined, AMillionLinesAndALineWithoutEndAreRead)
{
    std::string text;
    for (int i = 0; i < 166'667; ++i)
        text += "S" + std::to_string(i) + "\n1\n2\n3\n4\n5\n";
    EXPECT_THAT(names(text), SizeIs(166'667));
    EXPECT_TRUE(find(text, "S166666"));
    EXPECT_THAT(names(std::string(1'000'000, 'x') + "\n1\n2\n3\n4\n5\n"), ElementsAre(SizeIs(255)));
}

TEST(Predefined, BinaryBytesGiveTexts)
{
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>(i * 37 % 256);
    for (const std::string& name : names(bytes))
        EXPECT_TRUE(find(bytes, name)) << name;
}

TEST(Predefined, TheUsersOwnFileComesBeforeTheShippedOne)
{
    const TempFolder disk;
    setprogramfolder(disk.path());
    EXPECT_THAT(predefinednames(), IsEmpty());
    EXPECT_EQ(findpredefined("A"), std::nullopt);
    disk.makefile("radiosys.dat", "A\n1\n2\n3\n4\n5\n");
    EXPECT_THAT(predefinednames(), ElementsAre("A"));
    EXPECT_EQ(findpredefined("A")->power, "1");
    disk.makefile("radiosys.dat", "A\n7\n2\n3\n4\n5\n");
    EXPECT_EQ(findpredefined("A")->power, "7") << "the file is read anew each time";
}
