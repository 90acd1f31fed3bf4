#include "base/clock.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "reports/netreport.h"
#include "support/tempfolder.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

using testing::HasSubstr;
using testing::Not;

namespace
{
std::vector<std::string> linesof(const ReportLines& report)
{
    std::vector<std::string> lines;
    std::istringstream stream(reporttext(report));
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    return lines;
}

struct NetReport : testing::Test {
    void SetUp() override
    {
        setenv("TZ", "UTC", 1);
        presenttime = [] { return std::time_t{1717175109}; };
        allocatemap(map, 300, 200);
        map.record.maplon0 = -73;
        map.record.maplat0 = 45;
        map.record.mapsize = 20;
        mapframe(map);
        tables = defaulttables();
        for (int u = 1; u <= MAXUNIT; ++u)
            tables.units[static_cast<std::size_t>(u)].enabled = 0;
        addmember(1, "Mont Élan", 0, 1);
        addmember(3, "Vallée", 1, 2);
        addmember(7, "Un nom de vingt car.", 2, 2);
        tables.systems[2].name.assign("Émetteur de trente caractères!");
        tables.antheights[1][3] = 12.5F;
        table.at(1, 1, 3) = 62;
        table.at(1, 3, 1) = 50;
        table.at(1, 1, 7) = 49;
        table.at(1, 7, 1) = 49;
        table.at(1, 3, 7) = 1;
    }
    void addmember(int unit, const char* name, std::uint8_t role, std::uint8_t system)
    {
        const auto u = static_cast<std::size_t>(unit);
        tables.units[u].enabled = -1;
        tables.units[u].lon = -73;
        tables.units[u].lat = 45;
        tables.units[u].elevation = 123.45F;
        tables.units[u].name.assign(name);
        tables.nets[1].member[u] = static_cast<std::uint8_t>(memberbit | role);
        tables.nets[1].system[u] = system;
    }
    ReportLines report(int first, int last, ReportScale scale,
                       ReportTarget target = ReportTarget::file, int columns = 0)
    {
        return netreportlines(
            {&tables, &map, &table, "/home/é/essai.net", "/home/carte.map", interf}, first, last,
            scale, target, columns);
    }
    NetworkTables tables;
    MapGrid map;
    QualityTable table;
    bool interf = false;
};

const std::string dashes(75, '-');
} // namespace

TEST_F(NetReport, GeneralSectionsReadLineByLine)
{
    const auto lines = linesof(report(1, 25, ReportScale::direct));
    ASSERT_GT(lines.size(), 50U);
    EXPECT_EQ(lines[0], "");
    EXPECT_EQ(lines[1], apptitle);
    EXPECT_EQ(lines[2], "Rapport généré le 2024-05-31 à 17:05:09");
    EXPECT_EQ(lines[3], dashes);
    EXPECT_EQ(lines[4], "Généralités");
    EXPECT_EQ(lines[5], dashes);
    EXPECT_EQ(lines[6], "Fichier réseau /HOME/É/ESSAI.NET");
    EXPECT_EQ(lines[7], "Fichier carte  /HOME/CARTE.MAP");
    EXPECT_EQ(lines[8], "  Centre       073°00'00\"O 45°00'00\"N FN35LA");
    EXPECT_EQ(lines[9], "  Dimension    20.0 km N-S, 42.43 E-O") << "20 x 300 / 200 / cos 45°";
    EXPECT_EQ(lines[10], dashes);
    EXPECT_EQ(lines[11], "Unités actives");
    EXPECT_EQ(lines[12], dashes);
    EXPECT_EQ(lines[13],
              "Nom                 Position                                     Altitude");
    EXPECT_EQ(lines[14],
              "Mont Élan           073°00'00\"O 45°00'00\"N FN35LA                123.4m");
    EXPECT_EQ(lines[16],
              "Un nom de vingt car.073°00'00\"O 45°00'00\"N FN35LA                123.4m");
    EXPECT_EQ(lines[17], dashes);
    EXPECT_EQ(lines[18], "Systèmes");
    EXPECT_EQ(lines[20],
              "Nom                 Puiss. Tx  Pertes     Gain ant.  Seuil Rx   Haut. ant.");
    EXPECT_EQ(lines[21], "Système 01          10.000W    0.5dB      2.0dB      -107.0dBm  2.0m");
    EXPECT_THAT(lines[22], testing::StartsWith("Émetteur de trente c10.000W"));
    EXPECT_EQ(lines[46], dashes);
    EXPECT_EQ(lines[47], "Réseaux actifs");
    EXPECT_EQ(lines[48], dashes);
    EXPECT_EQ(lines[49], "");
    EXPECT_EQ(lines[50], "Réseau 01");
}

TEST_F(NetReport, StationsOffTheMapAreNotActive)
{
    tables.units[3].lat = 10;
    EXPECT_THAT(reporttext(report(1, 2, ReportScale::direct)),
                Not(HasSubstr("\r\nVallée              0")));
}

TEST_F(NetReport, OneNetReadsLineByLine)
{
    const auto lines = linesof(report(1, 1, ReportScale::direct));
    const std::vector<std::string> expected{
        "",
        "Réseau 01",
        "Topologie ouverte",
        "144.0 MHz to 148.0 MHz",
        "Polarisation Verticale",
        "Mode statistique Diffusion:",
        "50% du temps, 50% des locations, 50% des situations",
        "Refractivité= 301 N-units, conductivité= 0.005 S/m, permittivité= 15",
        "Climat Continental tempéré",
        "",
        "",
        //        1         2         3         4         5         6         7
        // 34567890123456789012345678901234567890123456789012345678901234567890123456789
        "Participants:              #  01 02 03  Rôle:        Antenne:  Système:",
        "Mont Élan                  01    62 49  Commande     2.0m      Système 01",
        "Vallée                     02 62    01  Subordonné   12.5m     Émetteur de trente "
        "caractères!",
        "Un nom de vingt car.       03 49 01     Relais       2.0m      Émetteur de trente "
        "caractères!",
        "",
        "                           Qualité = 50 + marge de signal (dB)",
    };
    EXPECT_EQ(lines, expected);
}

TEST_F(NetReport, RetransmissionScaleShowsReachability)
{
    const auto lines = linesof(report(1, 1, ReportScale::retransmissions));
    EXPECT_EQ(lines[12].substr(0, 40), "Mont \xC3\x89lan                  01    50 49 ");
    EXPECT_THAT(lines[13], HasSubstr("02 50    00"));
    EXPECT_EQ(lines[16], "                           Qualité = 50 - nombre de retransmissions");
}

TEST_F(NetReport, StarShowsSignalQualityInTheRetransmissionScale)
{
    tables.nets[1].topology = 256 + 1;
    const auto lines = linesof(report(1, 1, ReportScale::retransmissions));
    EXPECT_EQ(lines[2], "Topologie en étoile");
    EXPECT_THAT(lines[12], HasSubstr("01    62 49  Maître"));
    EXPECT_THAT(lines[14], Not(HasSubstr("Relais"))) << "a star has no third role";
}

TEST_F(NetReport, SUnitScaleShowsReadings)
{
    const auto lines = linesof(report(1, 1, ReportScale::sunits));
    EXPECT_THAT(lines[12], HasSubstr("01    5S 1S")) << "12 dB is S 5, -1 dB is S 1";
    EXPECT_THAT(lines[13], HasSubstr("02 5S    0S"));
    table.at(1, 1, 3) = 99;
    EXPECT_THAT(linesof(report(1, 1, ReportScale::sunits))[12], HasSubstr("01    20 1S"));
    EXPECT_EQ(lines[16], "                           Qualité = S-units");
}

TEST_F(NetReport, ScreenLeavesOutThePropagationAndHasColours)
{
    const ReportLines lines = report(1, 1, ReportScale::direct, ReportTarget::screen);
    EXPECT_THAT(reporttext(lines), Not(HasSubstr("Polarisation")));
    const auto& heading = lines[6];
    EXPECT_EQ(heading[0], (ReportPiece{1, "Participants:", 0}));
    EXPECT_EQ(heading[2], (ReportPiece{31, "01", 0x800000}));
    EXPECT_EQ(heading[5], (ReportPiece{41, "Rôle:", 0}));
    const auto& row = lines[7];
    EXPECT_EQ(row[2], (ReportPiece{34, "62", 0x008500}));
    EXPECT_EQ(row[3], (ReportPiece{37, "49", 0x0000C8}));
    EXPECT_EQ(row[4], (ReportPiece{41, "Commande", 0x505050}));
}

TEST_F(NetReport, ColoursFollowTheScale)
{
    table.at(1, 1, 3) = 50;
    const ReportLines lines = report(1, 1, ReportScale::sunits, ReportTarget::screen);
    EXPECT_EQ(lines[7][2].colour, 0x008500) << "50 is green";
    const ReportLines reach = report(1, 1, ReportScale::retransmissions, ReportTarget::screen);
    EXPECT_EQ(reach[7][3].colour, 0x008500) << "49: reached through one retransmission";
    EXPECT_EQ(reach[8][3].colour, 0x0000C8) << "not reached";
}

TEST_F(NetReport, UrbanNetIsReportedAsTheLastMode)
{
    tables.nets[1].statmode = 101;
    EXPECT_EQ(linesof(report(1, 1, ReportScale::direct))[5], "Mode statistique Diffusion:");
    tables.nets[1].statmode = 1;
    EXPECT_EQ(linesof(report(1, 1, ReportScale::direct))[5], "Mode statistique Accidentel:");
}

TEST_F(NetReport, ClimateNumberIsKeptWithinTheOptions)
{
    tables.nets[1].climate = 99;
    EXPECT_EQ(linesof(report(1, 1, ReportScale::direct))[8], "Climat Maritime tempéré sur mer");
    tables.nets[1].climate = -4;
    EXPECT_EQ(linesof(report(1, 1, ReportScale::direct))[8], "Climat Équatorial");
}

TEST_F(NetReport, OneFrequencyAndInterferenceShowInTheHeading)
{
    tables.nets[1].fmax = 144;
    interf = true;
    EXPECT_EQ(linesof(report(1, 1, ReportScale::direct))[3],
              "144.0 MHz (mode interférence <optimiste>)");
}

TEST_F(NetReport, NetWithOneMemberHasOneRowWithABlankCell)
{
    tables.nets[1].member.fill(0);
    tables.nets[1].member[3] = memberbit;
    const auto lines = linesof(report(1, 1, ReportScale::direct));
    EXPECT_EQ(lines[11], "Participants:              #  01  Rôle:        Antenne:  Système:");
    EXPECT_THAT(lines[12], testing::StartsWith("Vallée                     01     Commande"));
}

TEST_F(NetReport, NetsWithoutMembersAreLeftOut)
{
    EXPECT_EQ(reporttext(report(2, 2, ReportScale::direct)), "");
    tables.nets[1].member.fill(0);
    const auto lines = linesof(report(1, 25, ReportScale::direct));
    EXPECT_EQ(lines.size(), 49U) << "the general sections only";
}

TEST_F(NetReport, BadNetNumbersGiveNothing)
{
    EXPECT_EQ(reporttext(report(0, 3, ReportScale::direct)), "");
    EXPECT_EQ(reporttext(report(1, 26, ReportScale::direct)), "");
}

TEST_F(NetReport, FileGoesToTheProgramsFolderAndOpens)
{
    const TempFolder folder;
    setprogramfolder(folder.path());
    network = tables;
    mapgrid = map;
    quality = table;
    session.netfile = "essai.net";
    std::string opened;
    hooks.viewtext = [&](const std::string& path) { opened = path; };
    netreport(1, 25, ReportScale::direct);
    EXPECT_EQ(opened, folder.path("report.txt"));
    EXPECT_THAT(folder.content("report.txt"), HasSubstr("Fichier r\xE9seau ESSAI.NET\r\n"));
    opened.clear();
    netreport(0, 25, ReportScale::direct);
    EXPECT_EQ(opened, "");
    resethooks();
    setprogramfolder("");
}

TEST_F(NetReport, ABroadMatrixIsBrokenIntoBlocksForAPage)
{
    for (int u = 1; u <= MAXUNIT; ++u)
        addmember(u, "Poste", 0, 1);
    for (int a = 1; a < MAXUNIT; ++a)
        for (int b = a + 1; b <= MAXUNIT; ++b)
            table.at(1, a, b) = 60;
    const auto whole = report(1, 1, ReportScale::direct, ReportTarget::printer);
    for (const int columns : {105, 90, 60}) {
        const auto paged = report(1, 1, ReportScale::direct, ReportTarget::printer, columns);
        EXPECT_GT(reportwidth(whole), columns);
        EXPECT_LE(reportwidth(paged), smax(columns, 85)) << "the details need 85";
        const std::string text = reporttext(paged);
        std::size_t cells = 0;
        for (std::size_t at = text.find(" 60"); at != std::string::npos;
             at = text.find(" 60", at + 1))
            ++cells;
        EXPECT_EQ(cells, std::size_t{MAXUNIT} * (MAXUNIT - 1)) << columns;
        EXPECT_THAT(text, HasSubstr("Rôle:"));
    }
}

TEST_F(NetReport, AMatrixThatFitsIsNotBroken)
{
    const auto whole = report(1, 1, ReportScale::direct, ReportTarget::printer);
    EXPECT_EQ(report(1, 1, ReportScale::direct, ReportTarget::printer, 105), whole);
    const std::string narrow =
        reporttext(report(1, 1, ReportScale::direct, ReportTarget::printer, 60));
    EXPECT_THAT(narrow, HasSubstr("#  01 02 03\r\n"))
        << "the details follow in a block of their own";
}
