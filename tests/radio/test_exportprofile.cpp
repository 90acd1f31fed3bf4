#include "base/paths.h"
#include "base/session.h"
#include "radio/exportprofile.h"
#include "radio/linkscene.h"
#include "support/tempfolder.h"

#include <cmath>
#include <filesystem>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace
{
class ProfileExport : public testing::Test
{
protected:
    bool write(int net = 1)
    {
        return exportprofile(file, scene.tables, scene.map, 1, 2, net, scene.options, &why);
    }
    std::string written() const { return readfile(file).value_or("(none)"); }

    LinkScene scene;
    TempFolder folder;
    std::string file = folder.path("profile.txt");
    std::string why;
};

/// The lines before the values, in Windows-1252.
std::string head()
{
    const std::string version = appversion();
    return "Velmora\r\nVersion " + version.substr(0, version.rfind('.')) +
           "\r\n"
           "** Donn\xE9"
           "es du site de gauche **\r\n Nom\r\n Hauteur d'antenne (m)\r\n"
           "** Donn\xE9"
           "es du site de droite **\r\n Nom\r\n Hauteur d'antenne (m)\r\n"
           "** Donn\xE9"
           "es du lien radio **\r\n Fr\xE9quence (GHz)\r\n"
           " Facteur de courbure terrestre\r\n"
           "** Profil de parcours **\r\n"
           " \xC9"
           "chantillons: Distance(km) Altitude(m)\r\n"
           "Start\r\n";
}
} // namespace

TEST_F(ProfileExport, IsAnIndexTheValuesAndTheSamples)
{
    scene.tables.units[1].name.assign("Château");
    scene.tables.antheights[1][2] = 7.25F;
    scene.shorten(4);
    scene.tables.units[2].elevation = 100.5F;
    scene.raise(2, 1234);
    scene.raise(3, -5);
    ASSERT_TRUE(write());
    EXPECT_EQ(why, "");
    EXPECT_EQ(written(), head() + "Ch\xE2teau\r\n 60 \r\nSud\r\n 7.25 \r\n 0.146 \r\n" +
                             fmt::format(" {} \r\n", 1 / (1 - 0.04665 * std::exp(301 / 179.3))) +
                             "0000.000\t0100.0\t0\t0\r\n"
                             "0000.500\t0100.0\t0\t0\r\n"
                             "0001.000\t1234.0\t0\t0\r\n"
                             "0001.500\t-0005.0\t0\t0\r\n"
                             "0002.000\t0100.5\t0\t0\r\n");
}

TEST_F(ProfileExport, WithoutANetHasTheDefaultHeightsAndNoFrequency)
{
    scene.options.defh1 = 12.5F;
    scene.options.defh2 = 3;
    scene.shorten(3);
    ASSERT_TRUE(write(0));
    EXPECT_EQ(written(), head() + "Nord\r\n 12.5 \r\nSud\r\n 3 \r\n 0 \r\n" +
                             fmt::format(" {} \r\n", 1 / (1 - 0.04665)) +
                             "0000.000\t0100.0\t0\t0\r\n0000.500\t0100.0\t0\t0\r\n"
                             "0001.000\t0100.0\t0\t0\r\n0001.500\t0100.0\t0\t0\r\n");
}

TEST_F(ProfileExport, OfTwoIntervalsOrLessMakesNoFile)
{
    for (const int intervals : {2, 1, 0}) {
        scene.shorten(intervals);
        EXPECT_FALSE(write()) << intervals;
        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_EQ(why, "the stations are too near to each other, or one lies outside the map");
    }
    scene.shorten(3);
    EXPECT_TRUE(write());
}

TEST_F(ProfileExport, TooShortLeavesAnOlderFile)
{
    ASSERT_TRUE(writefile(file, "older"));
    scene.shorten(2);
    EXPECT_FALSE(write());
    EXPECT_EQ(written(), "older");
}

TEST_F(ProfileExport, ReplacesAnOlderFile)
{
    ASSERT_TRUE(writefile(file, std::string(100000, 'x')));
    ASSERT_TRUE(write());
    EXPECT_TRUE(written().starts_with("Velmora\r\n"));
    EXPECT_TRUE(written().ends_with("0030.000\t0100.0\t0\t0\r\n"));
}

TEST_F(ProfileExport, TellsWhyAFileCannotBeWritten)
{
    file = folder.path("missing/profile.txt");
    EXPECT_FALSE(write());
    EXPECT_NE(why, "");
}

TEST_F(ProfileExport, IsBareTerrain)
{
    ASSERT_TRUE(write());
    EXPECT_NE(written().find("0015.000\t0100.0\t"), std::string::npos) << "without the bulge";
}
