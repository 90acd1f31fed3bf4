#include "base/clock.h"
#include "base/hooks.h"
#include "base/paths.h"
#include "coverage/haat.h"
#include "coverage/scene.h"
#include "radio/link.h"
#include "support/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{
std::vector<std::string> linesof(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        lines.push_back(line.substr(0, line.size() - 1));
    }
    return lines;
}

struct Haat : testing::Test {
    void SetUp() override
    {
        setenv("TZ", "UTC", 1);
        presenttime = [] { return std::time_t{1717175109}; };
        tables.units[1].lon = -73;
        tables.units[1].lat = 45;
        tables.units[1].name.assign("Mont Élan");
        tables.nets[1].name.assign("Réseau d'essai");
    }
    MapGrid map = plainmap(600, 600, 240); // 60 km around the station
    NetworkTables tables = twostations();
};
} // namespace

TEST_F(Haat, ReportReadsLineByLine)
{
    const HaatReport report = haattext(tables, map, 1, 1);
    EXPECT_TRUE(report.complete);
    const auto lines = linesof(report.text);
    const std::string dash(60, '-');
    ASSERT_EQ(lines.size(), 12U + 40 + 5);
    EXPECT_EQ(lines[0], "HAAT, hauteur au dessus du sol moyen");
    EXPECT_EQ(lines[1], "Rapport généré à 17:05:09, le 2024-05-31");
    EXPECT_EQ(lines[2], dash);
    EXPECT_EQ(lines[3], "Pour Mont Élan");
    EXPECT_EQ(lines[4], "45°00'00\"N, 073°00'00\"O");
    EXPECT_EQ(lines[5], "FN35LA");
    EXPECT_EQ(lines[6], "Altitude du sol: 260m");
    EXPECT_EQ(lines[7], dash);
    EXPECT_EQ(lines[8], "Réseau d'essai                ") << "30 characters";
    EXPECT_EQ(lines[9], "Hauteur de l'antenne au desssus du sol: 2m");
    EXPECT_EQ(lines[10], dash);
    EXPECT_EQ(lines[11], "Azt(°)\tD(km)\tAltitude du sol(m)");
    EXPECT_EQ(lines[12], "000\t03.22\t0240.0");
    EXPECT_EQ(lines[16], "000\t16.09\t0240.0");
    EXPECT_EQ(lines[17], "045\t03.22\t0240.0");
    EXPECT_EQ(lines[51], "315\t16.09\t0240.0");
    EXPECT_EQ(lines[52], dash);
    EXPECT_EQ(lines[53], "Altitude de l'antenne  : 262m");
    EXPECT_EQ(lines[54], "Altitude moyenne du sol: 240m");
    EXPECT_EQ(lines[55], dash);
    EXPECT_EQ(lines[56], "HAAT: 22m");
}

TEST_F(Haat, PointsOffTheMapShowAQuestionMarkAndDontCount)
{
    // 8 km of map: only the points at 2 miles of the four cardinal radials are known, and at 2
    // miles on the diagonals.
    map = plainmap(80, 80, 200);
    const auto text = haattext(tables, map, 1, 1).text;
    EXPECT_THAT(text, HasSubstr("000\t03.22\t0200.0\r\n000\t06.44\t?\r\n"));
    EXPECT_THAT(text, HasSubstr("Altitude moyenne du sol: 200m"));
    EXPECT_THAT(text, HasSubstr("HAAT: 62m"));
}

TEST_F(Haat, FiveKnownPointsOrFewerGiveNoMean)
{
    map = plainmap(40, 40, 200);
    const HaatReport report = haattext(tables, map, 1, 1);
    EXPECT_TRUE(report.complete);
    EXPECT_THAT(report.text, HasSubstr("Altitude moyenne du sol: ?\r\n"));
    EXPECT_THAT(report.text, HasSubstr("HAAT: ?\r\n"));
}

TEST_F(Haat, MeanIsOverAllKnownPoints)
{
    for (int y = 0; y < map.height; ++y)
        for (int x = 0; x < map.width; ++x)
            map.at(x, y) = static_cast<std::int16_t>(x < 300 ? 100 : 300);
    const auto text = haattext(tables, map, 1, 1).text;
    // North and south fall on columns 299 and 300; the diagonals and the sides are known.
    EXPECT_THAT(text, HasSubstr("090\t03.22\t0300.0"));
    EXPECT_THAT(text, HasSubstr("270\t03.22\t0100.0"));
}

TEST_F(Haat, PoleAndMissingSlotsAreFaults)
{
    tables.units[1].lat = 90;
    const HaatReport pole = haattext(tables, map, 1, 1);
    EXPECT_FALSE(pole.complete);
    EXPECT_THAT(pole.text, Not(HasSubstr("HAAT: ")));
    EXPECT_FALSE(haattext(tables, map, 0, 1).complete);
    EXPECT_FALSE(haattext(tables, map, 1, 26).complete);
}

TEST_F(Haat, ReportGoesToTheProgramsFolderAndOpens)
{
    const TempFolder folder;
    setprogramfolder(folder.path());
    network = tables;
    mapgrid = map;
    std::string opened;
    hooks.viewtext = [&](const std::string& path) { opened = path; };
    haatreport(1, 1);
    EXPECT_EQ(opened, folder.path("Haat.txt"));
    EXPECT_THAT(folder.content("Haat.txt"), HasSubstr("Pour Mont \xC9lan\r\n")) << "Windows-1252";

    std::string told;
    hooks.askuser = [&](const Question& question) {
        told = question.text;
        return Answer::ok;
    };
    opened.clear();
    network.units[1].lat = -90;
    haatreport(1, 1);
    EXPECT_EQ(told, "Unable to create Haat report");
    EXPECT_EQ(opened, "");

    network = tables;
    haatreport(1, 1);
    const std::string last = folder.content("Haat.txt");
    told.clear();
    haatreport(1, 0); // the stations have no net in common
    EXPECT_EQ(told, "Unable to create Haat report");
    EXPECT_EQ(folder.content("Haat.txt"), last) << "the last report stays";
    resethooks();
    setprogramfolder("");
}
