#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "coordinates/geosys.h"
#include "network/netfile.h"
#include "network/unsaved.h"
#include "support/places.h"
#include "support/rawbytes.h"
#include "support/tempfolder.h"
#include "terrain/mapfile.h"

#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::ElementsAre;

class ProjectTest : public testing::Test
{
protected:
    void SetUp() override
    {
        session = Session();
        resetsettings();
        setprogramfolder(disk.makefolder("program"));
        hooks.screensize = [] { return std::pair(800, 600); };
        newnet(false);
        mapdirty = false;
        hooks.askuser = [this](const Question& question) {
            told.push_back(question.text);
            return Answer::ok;
        };
        hooks.setlabel2 = [this](const std::string& text) { label2 = text; };
        hooks.openpicture = [this](const std::string& name, int kind) {
            opened.push_back(name + "/" + std::to_string(kind));
        };
        hooks.netsloaded = [this] { ++evaluations; };
        hooks.busypointer = [this](bool busy) { pointer = busy; };
    }
    void TearDown() override
    {
        resethooks();
        fs::current_path(start);
        setprogramfolder("");
        session = Session();
        resetsettings();
    }
    std::string low(const char* name) const { return lowercase(disk.path(name)); }

    static NetworkTables twostations()
    {
        NetworkTables tables = defaulttables();
        tables.units[3].lon = -84;
        tables.units[3].lat = 36;
        tables.units[4].lon = -83;
        tables.units[4].lat = 37;
        tables.units[5].lon = 50; // without a latitude it has no place
        return tables;
    }

    fs::path start = fs::current_path();
    TempFolder disk;
    std::vector<std::string> told;
    std::vector<std::string> opened;
    std::string label2;
    int evaluations = 0;
    bool pointer = false;
};

/// A map file of 2 x 2 samples centred at 5, 6.
static std::string smallmap()
{
    MapGrid map;
    allocatemap(map, 2, 2);
    map.record.maplon0 = 5;
    map.record.maplat0 = 6;
    mapframe(map);
    return mapheader(map) + std::string(8, '\1');
}

TEST_F(ProjectTest, ANewNetworkClearsEverything)
{
    network = twostations();
    selection.curunit = 9;
    netdirty = true;
    markedited();
    geosys.name = "other";
    mapgrid.record.mapsize = 7;
    session.netfile = "/plans/a.net";
    newnet(false);
    EXPECT_EQ(network, defaulttables());
    EXPECT_EQ(selection.curunit, 1);
    EXPECT_EQ(selection.linkunit2, 2);
    EXPECT_THAT(selection.linestyle, ElementsAre(175, 181, 129));
    EXPECT_FALSE(netunsaved());
    EXPECT_EQ(geosys.name, "");
    EXPECT_EQ(mapgrid.record, MapRecord());
    EXPECT_EQ(mapgrid.width, 800);
    EXPECT_EQ(mapgrid.height, 600);
    EXPECT_NEAR(mapgrid.maplat[0] - mapgrid.maplat[2], 1.7997F, 1e-3F);
    EXPECT_EQ(mapname, "default.map");
    EXPECT_EQ(session.netfile, "/plans/a.net");
    EXPECT_TRUE(session.recent[0].empty());
}

TEST_F(ProjectTest, NewNetworksAreNumberedInTheFolderOfTheFirst)
{
    const std::string folder = lowercase(start.string());
    newnet(true);
    const std::string first = session.netfile;
    EXPECT_EQ(pathof(first), folder + "/");
    EXPECT_THAT(nameof(first), testing::MatchesRegex("net[0-9]+\\.net"));
    EXPECT_EQ(session.recent[0], first);
    fs::current_path(disk.path());
    newnet(true);
    EXPECT_EQ(pathof(session.netfile), folder + "/");
    EXPECT_NE(session.netfile, first);
    EXPECT_EQ(fs::current_path(), start);
}

TEST_F(ProjectTest, TheScreensSizeIsHeldWithinReason)
{
    hooks.screensize = [] { return std::pair(2000000000, -5); };
    newnet(false);
    EXPECT_LE(mapgrid.width, 8192);
    EXPECT_EQ(mapgrid.height, 1);
}

TEST_F(ProjectTest, AMissingFileIsRememberedAndChangesNothingElse)
{
    network = twostations();
    netdirty = true;
    loadnet("\"" + disk.path("Missing.NET") + "\"");
    EXPECT_EQ(lastnetstatus(), NetStatus::unreadable);
    EXPECT_EQ(session.netfile, low("missing.net"));
    EXPECT_EQ(getsetting("LastProject", ""), low("missing.net"));
    EXPECT_EQ(session.recent[0], low("missing.net"));
    EXPECT_EQ(network, twostations());
    EXPECT_FALSE(netdirty);
    EXPECT_EQ(evaluations, 0);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(pointer);
}

TEST_F(ProjectTest, AnotherExtensionIsNotRead)
{
    loadnet(disk.makefile("a.txt", netbytes(twostations(), "", {})));
    EXPECT_EQ(lastnetstatus(), NetStatus::unreadable);
    EXPECT_EQ(network, defaulttables());
    EXPECT_EQ(session.netfile, low("a.txt"));
}

TEST_F(ProjectTest, ReadsTablesPicturesAndMapThenEvaluates)
{
    disk.makefile("relief.map", smallmap());
    loadnet(disk.makefile("Nord.net", netbytes(twostations(), "c:\\old\\relief.map", {"a.bmp"})));
    EXPECT_EQ(lastnetstatus(), NetStatus::ok);
    EXPECT_EQ(network.units[3].lon, -84);
    EXPECT_THAT(opened, ElementsAre("a.bmp/2"));
    EXPECT_EQ(mapname, low("relief.map")); // found beside the network
    EXPECT_EQ(mapgrid.width, 2);
    EXPECT_EQ(mapgrid.record.maplon0, 5);
    EXPECT_EQ(evaluations, 1);
    EXPECT_FALSE(pointer);
    EXPECT_TRUE(fs::equivalent(fs::current_path(), disk.path()));
}

TEST_F(ProjectTest, WithoutItsMapTheFrameHoldsThePlacedStations)
{
    loadnet(disk.makefile("nord.net", netbytes(twostations(), "missing.map", {})));
    EXPECT_EQ(mapname, "missing.map");
    EXPECT_EQ(mapgrid.width, 800);
    EXPECT_EQ(mapgrid.record.maplon0, -83.5F);
    EXPECT_EQ(mapgrid.record.maplat0, 36.5F);
    EXPECT_EQ(mapgrid.record.mapsize, 120); // one degree of latitude is the larger
    EXPECT_LT(mapgrid.maplon[0], -84);
    EXPECT_GT(mapgrid.maplon[2], -83);
    EXPECT_TRUE(mapdirty);
    EXPECT_EQ(evaluations, 1);
}

TEST_F(ProjectTest, AWideNetworkTakesItsSizeFromTheScreensShape)
{
    NetworkTables tables = twostations();
    tables.units[4].lon = -74;
    loadnet(disk.makefile("nord.net", netbytes(tables, "", {})));
    const double expected = 120 * 10 * std::cos(36.5 * 0.017453292519943278) * 600 / 800;
    EXPECT_FLOAT_EQ(mapgrid.record.mapsize, static_cast<float>(expected));
}

TEST_F(ProjectTest, WithoutPlacedStationsTheFrameIsOneKilometreAtZero)
{
    loadnet(disk.makefile("empty.net", netbytes(defaulttables(), "", {})));
    EXPECT_EQ(mapgrid.record.maplon0, 0);
    EXPECT_EQ(mapgrid.record.maplat0, 0);
    EXPECT_EQ(mapgrid.record.mapsize, 1);
    EXPECT_EQ(evaluations, 1);
    EXPECT_EQ(mapname, "");
    EXPECT_FALSE(mapdirty); // a map without a name is not even tried
}

TEST_F(ProjectTest, BareAndRelativeNamesMeanFilesBesideTheNetwork)
{
    disk.makefolder("other");
    disk.makefolder("plan");
    disk.makefolder("plan/cartes");
    disk.makefile("other/relief.map", smallmap());
    disk.makefile("other/vue.bmp");
    disk.makefile("plan/cartes/relief.map", smallmap());
    disk.makefile("plan/vue.bmp");
    const std::string bare =
        disk.makefile("plan/bare.net", netbytes(twostations(), "relief.map", {"vue.bmp"}));
    const std::string relative =
        disk.makefile("plan/rel.net", netbytes(twostations(), "cartes\\Relief.map", {}));
    fs::current_path(disk.path("other")); // where another network was open before
    loadnet(relative);
    EXPECT_EQ(mapname, low("plan/cartes/relief.map"));
    fs::current_path(disk.path("other"));
    disk.makefile("plan/relief.map", smallmap());
    loadnet(bare);
    EXPECT_EQ(mapname, low("plan/relief.map"));
    EXPECT_THAT(opened, ElementsAre(disk.path("plan/vue.bmp") + "/2"));
}

TEST_F(ProjectTest, SavedInAnotherFolderANetworkStillFindsItsMap)
{
    disk.makefolder("a");
    disk.makefolder("b");
    disk.makefile("a/relief.map", smallmap());
    loadnet(disk.makefile("a/nord.net", netbytes(twostations(), "relief.map", {})));
    ASSERT_TRUE(savenet(disk.path("b/nord.net")));
    newnet(false);
    loadnet(disk.path("b/nord.net"));
    EXPECT_EQ(lastmapstatus(), MapStatus::ok);
    EXPECT_EQ(mapname, low("a/relief.map"));
}

TEST_F(ProjectTest, ANameThatExistsAsGivenIsOpenedAsGiven)
{
    NetworkTables capital = twostations();
    capital.units[1].name.assign("Majuscule");
    const std::string path = disk.makefile("Nord.net", netbytes(capital, "", {}));
    const std::string other = disk.makefile("nord.net", netbytes(twostations(), "", {}));
    const std::string untouched = disk.content("nord.net");
    loadnet(path);
    EXPECT_EQ(network.units[1].name.text(), "Majuscule");
    EXPECT_EQ(session.netfile, path);
    EXPECT_TRUE(savenet(session.netfile));
    EXPECT_EQ(disk.content("nord.net"), untouched);
    EXPECT_EQ(session.recent[0], path);
    loadnet(other);
    EXPECT_EQ(network.units[1].name.text(), "Station 01");
}

TEST_F(ProjectTest, WhatIsNoNetworkOrTooLargeChangesNothing)
{
    network = twostations();
    session.netfile = "/plans/a.net";
    writesetting("LastProject", "/plans/a.net");
    markedited();
    const std::string large = disk.makefile("large.net", netbytes(defaulttables(), "", {}));
    fs::resize_file(large, std::uintmax_t{20} << 30); // 20 GB of nothing, at no cost
    const std::pair<std::string, std::string> files[] = {
        {large, "large.net : fichier trop grand"},
        {disk.makefile("picture.net", "\x89PNG\r\n\x1a\n and more"),
         "picture.net : ce n'est pas un fichier de réseaux"},
        {disk.makefile("words.net", "Some words that somebody has written down"),
         "words.net : ce n'est pas un fichier de réseaux"}};
    for (const auto& [path, told_] : files) {
        loadnet(path);
        EXPECT_TRUE(lastnetstatus() == NetStatus::toolarge ||
                    lastnetstatus() == NetStatus::foreign);
        EXPECT_EQ(label2, told_);
        EXPECT_EQ(network, twostations());
        EXPECT_EQ(session.netfile, "/plans/a.net");
        EXPECT_EQ(session.recent[0], "");
        EXPECT_EQ(getsetting("LastProject", ""), "/plans/a.net");
        EXPECT_TRUE(netedited);
        EXPECT_TRUE(opened.empty());
        EXPECT_EQ(evaluations, 0);
    }
}

TEST_F(ProjectTest, AnOlderNetworkBeginsWithItsMapsName)
{
    EXPECT_TRUE(netbeginning(asbytes(std::string("\x0A\x00relief.map", 12))));
    EXPECT_TRUE(netbeginning(asbytes(std::string("\x00\x00\x00\x00", 4))));
    EXPECT_TRUE(netbeginning(asbytes(netbytes(twostations(), "", {}))));
    EXPECT_TRUE(netbeginning(asbytes(smallmap())));
    EXPECT_FALSE(netbeginning(asbytes(std::string("BM\x36\x00", 4))));
    EXPECT_FALSE(netbeginning(asbytes(std::string("\x03\x00\x01\x02\x03", 5))));
}

TEST_F(ProjectTest, AnIncompleteMapIsNamedAndIsNoWorkOfTheUsers)
{
    const std::string map = smallmap();
    disk.makefile("relief.map", map.substr(0, map.size() - 3));
    loadnet(disk.makefile("nord.net", netbytes(twostations(), "relief.map", {})));
    EXPECT_EQ(lastmapstatus(), MapStatus::incomplete);
    EXPECT_EQ(label2, "relief.map : carte incomplète");
    EXPECT_FALSE(mapdirty);
    EXPECT_EQ(mapgrid.width, 2);
    EXPECT_EQ(mapgrid.record.maplon0, 5);
    EXPECT_EQ(evaluations, 1);
    newnet(false);
    EXPECT_FALSE(mapincomplete);
}

TEST_F(ProjectTest, ATruncatedFileStopsSilentlyWithWhatItHeld)
{
    const std::string bytes = netbytes(twostations(), "relief.map", {"a.bmp"});
    loadnet(disk.makefile("short.net", bytes.substr(0, 9000)));
    EXPECT_EQ(lastnetstatus(), NetStatus::truncated);
    EXPECT_EQ(network.units[3].lon, -84);
    EXPECT_THAT(opened, ElementsAre("a.bmp/2"));
    EXPECT_EQ(evaluations, 0);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(pointer);
}

TEST_F(ProjectTest, AMapUnderANetworksNameKeepsTheTablesAndLoadsTheOldMap)
{
    network = twostations();
    disk.makefile("relief.map", smallmap());
    mapname = low("relief.map");
    loadnet(disk.makefile("wrong.net", smallmap()));
    EXPECT_EQ(lastnetstatus(), NetStatus::mapfile);
    EXPECT_EQ(network, twostations());
    EXPECT_EQ(mapgrid.width, 2);
    EXPECT_EQ(evaluations, 1);
}

TEST_F(ProjectTest, SavingWritesTablesMapNameAndOpenPictures)
{
    network = twostations();
    mapname = "/Plans/Relief.map";
    hooks.openpictures = [] { return std::vector<std::string>{"/plans/a.bmp"}; };
    netdirty = true;
    markedited();
    const std::string path = disk.path("Nord.net");
    EXPECT_TRUE(savenet(path));
    EXPECT_EQ(disk.content("Nord.net"), netbytes(network, "/Plans/Relief.map", {"/plans/a.bmp"}));
    EXPECT_FALSE(netunsaved());
    EXPECT_EQ(session.netfile, low("nord.net"));
    EXPECT_EQ(session.recent[0], low("nord.net"));
    EXPECT_EQ(getsetting("LastProject", ""), path);
    EXPECT_EQ(label2, "Nord.net a été enregistré");
    EXPECT_FALSE(pointer);
}

TEST_F(ProjectTest, SavingOverALongerFileKeepsTheOldBytesBehind)
{
    const std::string longer(20000, 'o');
    disk.makefile("nord.net", longer);
    ASSERT_TRUE(savenet(disk.path("nord.net")));
    const std::string bytes = netbytes(network, mapname, {});
    EXPECT_EQ(disk.content("nord.net"), bytes + longer.substr(bytes.size()));
    loadnet(disk.path("nord.net"));
    EXPECT_EQ(lastnetstatus(), NetStatus::ok);
}

TEST_F(ProjectTest, SavingOverANetworkKeepsThePreviousOne)
{
    const std::string file = disk.makefile("work.net", "first");
    ASSERT_TRUE(savenet(file));
    EXPECT_EQ(disk.content("work.net~"), "first");
    const std::string second = disk.content("work.net");
    network.units[1].name.assign("Nord");
    ASSERT_TRUE(savenet(file));
    EXPECT_EQ(disk.content("work.net~"), second);
    ASSERT_TRUE(savenet(disk.path("new.net")));
    EXPECT_FALSE(fs::exists(disk.path("new.net~")));
}

TEST_F(ProjectTest, ARecoveredNetworkStandsUnderItsOwnPathAsChanged)
{
    const std::string own = disk.path("Own.net");
    recovernet(own, netbytes(twostations(), "", {"p.bmp"}));
    EXPECT_EQ(session.netfile, low("Own.net")); // as every network's path in memory
    EXPECT_TRUE(network == twostations());
    EXPECT_THAT(opened, ElementsAre("p.bmp/2"));
    EXPECT_EQ(evaluations, 1);
    EXPECT_TRUE(netunsaved());
    EXPECT_FALSE(fs::exists(own));
}

TEST_F(ProjectTest, AnotherExtensionWritesNothingAndCountsAsDone)
{
    session.netfile = "/plans/a.net";
    netdirty = true;
    EXPECT_TRUE(savenet(disk.path("nord.txt")));
    EXPECT_FALSE(fs::exists(disk.path("nord.txt")));
    EXPECT_FALSE(netdirty);
    EXPECT_EQ(session.netfile, "/plans/a.net");
    EXPECT_EQ(session.recent[0], "/plans/a.net");
    EXPECT_EQ(label2, "nord.txt a été enregistré");
}

TEST_F(ProjectTest, AFailedSaveIsToldAndKeepsItsMark)
{
    markedited();
    const std::string path = disk.path("missing/nord.net");
    std::string why;
    EXPECT_FALSE(savenet(path, &why));
    EXPECT_THAT(told, ElementsAre(path + " impossible à enregistrer"));
    EXPECT_EQ(why, "No such file or directory");
    EXPECT_TRUE(netedited);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(getsetting("LastProject", "none"), "none");
}

TEST_F(ProjectTest, TheDemoComesBackByteForByte)
{
    const std::string demo = sourcefolder() + "/demo/cumberland";
    const auto net = readfile(demo + ".net");
    const auto map = readfile(demo + ".map");
    ASSERT_TRUE(net && map);
    loadnet(demo + ".net");
    ASSERT_EQ(lastnetstatus(), NetStatus::ok);
    ASSERT_EQ(lastmapstatus(), MapStatus::ok);
    NetFile file;
    NetworkTables tables;
    parsenet(asbytes(*net), tables, file);
    EXPECT_EQ(netbytes(network, file.mapname, file.pictures), *net);
    ASSERT_TRUE(savemap(disk.path("copy.map")));
    EXPECT_EQ(disk.content("copy.map"), *map);
}
