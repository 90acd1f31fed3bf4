#include "base/paths.h"
#include "network/gazetteer.h"
#include "network/tables.h"
#include "support/tempfolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

constexpr const char* header = "\"Couleur\",\"Latitude\",\"Longitude\",\"Nom\"\r\n";

std::string withheader(const std::string& lines)
{
    return header + lines;
}

/// A program folder of the test's own.
class GazetteerFile : public testing::Test
{
protected:
    GazetteerFile() { setprogramfolder(folder.path()); }

    static Unit station(const char* name, float lon, float lat)
    {
        Unit unit;
        unit.name.assign(name);
        unit.lon = lon;
        unit.lat = lat;
        return unit;
    }

    TempFolder folder;
};

} // namespace

TEST(Gazetteer, CountsLongitudesToTheWest)
{
    const auto towns =
        parsegazetteer(withheader("\"0\",45.5,73.5,\"Laval\"\r\n\"0\",48.85,-2.35,\"Paris\"\r\n"))
            .towns;
    ASSERT_THAT(towns, SizeIs(2));
    EXPECT_EQ(towns[0].lon, -73.5F);
    EXPECT_EQ(towns[0].lat, 45.5F);
    EXPECT_EQ(towns[0].name.text(), "Laval");
    EXPECT_EQ(towns[1].lon, 2.35F);
}

TEST(Gazetteer, TakesLinesOfExactlyThreeCommas)
{
    const Gazetteer gazetteer =
        parsegazetteer(withheader("0,1,2,a\n0,1,2\n0,1,2,\"b, c\"\n\n0,1,2,d,more\n0,1,2,e\n"));
    ASSERT_THAT(gazetteer.towns, SizeIs(2));
    EXPECT_EQ(gazetteer.towns[0].name.text(), "a");
    EXPECT_EQ(gazetteer.towns[1].name.text(), "e");
    EXPECT_EQ(gazetteer.lines, 6U) << "every line behind the header counts";
}

TEST(Gazetteer, LeavesOutALineWithoutCoordinates)
{
    EXPECT_THAT(parsegazetteer(withheader("0,,,a\n0,1,,b\n0,x,2,c\n0,-,.,d\n")).towns, IsEmpty());
}

TEST(Gazetteer, NeverTakesItsFirstLine)
{
    EXPECT_THAT(parsegazetteer("0,1,2,a\n").towns, IsEmpty());
    EXPECT_EQ(parsegazetteer("").lines, 0U);
}

TEST(Gazetteer, StandsNumbersOfAnySize)
{
    const auto towns = parsegazetteer(withheader("0,1e308,-1e308,a\n0,1e999,1e-999,b\n")).towns;
    ASSERT_THAT(towns, SizeIs(2));
    EXPECT_EQ(townline(towns[0]).substr(0, 22), "a                     ");
    EXPECT_THAT(townline(towns[0]), testing::EndsWith(" 89°00'00\"N"));
    EXPECT_THAT(townline(towns[1]), testing::EndsWith("000°00'00\"E 89°00'00\"N"));
}

TEST(TownLine, HasTheNameInTwentyTwoCharactersAndThePosition)
{
    const auto towns = parsegazetteer(withheader("0,45.5,73.5,Laval\n"
                                                 "0,-33.9,-151.2,abcdefghijklmnopqrstuvwxyz\n"))
                           .towns;
    EXPECT_EQ(townline(towns[0]), "Laval                 073°30'00\"O 45°30'00\"N");
    EXPECT_EQ(townline(towns[1]), "abcdefghijklmnopqrstuv151°12'00\"E 33°54'00\"S");
}

TEST(PickedTown, ComesFromTheTextOfItsLine)
{
    const auto west = picktown("Laval                 073°30'36\"O 45°30'00\"N");
    ASSERT_TRUE(west);
    EXPECT_EQ(west->name, "Laval               ");
    EXPECT_FLOAT_EQ(west->lon, -73.51F);
    EXPECT_EQ(west->lat, 45.5F);
    const auto east = picktown("abcdefghijklmnopqrstuv151°12'00\"E 33°54'00\"S");
    ASSERT_TRUE(east);
    EXPECT_EQ(east->name, "abcdefghijklmnopqrst");
    EXPECT_FLOAT_EQ(east->lon, 151.2F);
    EXPECT_FLOAT_EQ(east->lat, -33.9F);
    EXPECT_FALSE(picktown("Laval"));
}

TEST(PickedTown, HasItsPositionToTheSecond)
{
    const auto towns = parsegazetteer(withheader("0,45.50010,73.50012,Laval\n")).towns;
    const auto town = picktown(townline(towns[0]));
    ASSERT_TRUE(town);
    EXPECT_EQ(town->lon, -73.5F);
    EXPECT_EQ(town->lat, 45.5F);
}

TEST(PickedTown, KeepsAccents)
{
    const auto towns = parsegazetteer(withheader("0,45.5,73.5,Montr\xE9"
                                                 "al\n"))
                           .towns;
    EXPECT_EQ(picktown(townline(towns[0]))->name, "Montréal            ");
}

TEST(FindTowns, IgnoresCaseAndAccents)
{
    const Gazetteer gazetteer = parsegazetteer(withheader("0,1,1,Montr\xE9"
                                                          "al\n0,1,1,MONTREAUX\n0,1,1,Laval\n"));
    EXPECT_THAT(findtowns(gazetteer, "tréa"), ElementsAre(0, 1));
    EXPECT_THAT(findtowns(gazetteer, "TREAL"), ElementsAre(0));
    EXPECT_THAT(findtowns(gazetteer, ""), ElementsAre(0, 1, 2));
    EXPECT_THAT(findtowns(gazetteer, "ł"), IsEmpty());
}

TEST_F(GazetteerFile, WithoutItsFileItIsEmpty)
{
    EXPECT_THAT(readgazetteer().towns, IsEmpty());
}

TEST_F(GazetteerFile, AnAppendedStationComesBackWhereItStood)
{
    EXPECT_TRUE(appendtown(station("Poste été", -73.5F, 45.25F)));
    const std::string written = folder.content("cities.dat");
    EXPECT_THAT(written, testing::EndsWith("\r\n\"FFFFFF\",45.25,73.5,\"Poste \xE9t\xE9\"\r\n"));
    const auto town = picktown(townline(readgazetteer().towns.at(0)));
    EXPECT_EQ(town->lon, -73.5F);
    EXPECT_EQ(town->lat, 45.25F);
    EXPECT_EQ(town->name, "Poste été           ");
}

TEST_F(GazetteerFile, AnAppendedStationFollowsWhatIsThere)
{
    folder.makefile("cities.dat", "first\n\"0\",1,2,\"a\"");
    Unit unit = station("b", 0, -1);
    unit.forecolour = 0xAB;
    EXPECT_TRUE(appendtown(unit));
    EXPECT_EQ(folder.content("cities.dat"), "first\n\"0\",1,2,\"a\"\r\n\"AB\",-1,0,\"b\"\r\n");
}

TEST_F(GazetteerFile, ANameWithACommaIsWrittenButNotShown)
{
    EXPECT_TRUE(appendtown(station("Poste, nord", 1, 1)));
    EXPECT_THAT(folder.content("cities.dat"), testing::HasSubstr("Poste, nord"));
    EXPECT_THAT(readgazetteer().towns, IsEmpty());
}

TEST_F(GazetteerFile, ALineEndInANameDoesNotBreakTheFile)
{
    EXPECT_TRUE(appendtown(station("a\r\nb", 1, 1)));
    EXPECT_EQ(readgazetteer().towns.at(0).name.text(), "a  b");
}
