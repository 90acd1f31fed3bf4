#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "mapsamples.h"
#include "support/tempfolder.h"
#include "terrain/mapfile.h"

#include <filesystem>
#include <gmock/gmock.h>

using testing::ElementsAre;

class LoadMapTest : public testing::Test
{
protected:
    void SetUp() override
    {
        mapgrid = MapGrid();
        mapname = "before.map";
        mapdirty = mapincomplete = false;
        session = Session();
        setprogramfolder(disk.makefolder("program"));
        hooks.askuser = [this](const Question& question) {
            told.push_back(question.text);
            return Answer::ok;
        };
        hooks.setlabel2 = [this](const std::string& text) { label2.push_back(text); };
        hooks.mapchanged = [this] { ++mapchanges; };
        hooks.busypointer = [this](bool busy) { pointer = busy; };
    }
    void TearDown() override
    {
        resethooks();
        session = Session();
        setprogramfolder("");
    }

    TempFolder disk;
    std::vector<std::string> told;
    std::vector<std::string> label2;
    int mapchanges = 0;
    bool pointer = false;
};

TEST_F(LoadMapTest, ReadsAMapAndEndsAnOperationThatNeverBegan)
{
    const std::string path = disk.makefile("Relief.MAP", currentmap());
    mapdirty = true;
    EXPECT_TRUE(loadmap("\"" + path + "\""));
    EXPECT_EQ(lastmapstatus(), MapStatus::ok);
    EXPECT_EQ(mapgrid.samples.size(), 6U);
    EXPECT_EQ(mapname, lowercase(path));
    EXPECT_FALSE(mapdirty);
    EXPECT_EQ(mapchanges, 1);
    EXPECT_THAT(label2, ElementsAre("Arrêté par l'utilisateur."));
}

TEST_F(LoadMapTest, AnotherExtensionChangesNothing)
{
    for (const std::string& path : {disk.makefile("relief.dat", currentmap()), std::string()}) {
        EXPECT_FALSE(loadmap(path));
        EXPECT_EQ(mapname, "before.map");
        EXPECT_FALSE(mapdirty);
        EXPECT_EQ(mapchanges, 0);
        EXPECT_TRUE(label2.empty());
    }
}

TEST_F(LoadMapTest, AMissingMapIsSilentAndMarksTheMap)
{
    EXPECT_FALSE(loadmap(disk.path("missing.map")));
    EXPECT_EQ(lastmapstatus(), MapStatus::unreadable);
    EXPECT_TRUE(mapdirty);
    EXPECT_EQ(mapname, "before.map");
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(mapchanges, 1);
}

TEST_F(LoadMapTest, AMapIsFoundBesideItsNetwork)
{
    disk.makefolder("moved");
    const std::string path = disk.makefile("moved/relief.map", currentmap());
    session.netfile = lowercase(disk.path("moved/nord.net"));
    EXPECT_TRUE(loadmap("c:\\elsewhere\\Relief.map"));
    EXPECT_EQ(mapname, lowercase(path));
}

TEST_F(LoadMapTest, AMapIsFoundInTheProgramsFolderLast)
{
    const std::string path = disk.makefile("program/relief.map", currentmap());
    session.netfile = lowercase(disk.path("nord.net"));
    EXPECT_TRUE(loadmap("/elsewhere/relief.map"));
    EXPECT_EQ(mapname, lowercase(path));
}

TEST_F(LoadMapTest, AMapThatEndsEarlyIsIncompleteNotUnsaved)
{
    ASSERT_TRUE(loadmap(disk.makefile("old.map", currentmap())));
    EXPECT_FALSE(loadmap(disk.makefile("short.map", currentmap().substr(0, 99))));
    EXPECT_EQ(lastmapstatus(), MapStatus::incomplete);
    EXPECT_TRUE(mapincomplete);
    EXPECT_FALSE(mapdirty);
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(label2.back(), "short.map : carte incomplète");
    EXPECT_EQ(mapname, lowercase(disk.path("short.map")));
    EXPECT_EQ(mapgrid.samples, (std::vector<std::int16_t>{100, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(loadmap(disk.path("old.map")));
    EXPECT_FALSE(mapincomplete);
}

TEST_F(LoadMapTest, AnIncompleteMapGoesOverItsOwnFileOnlyAfterAQuestion)
{
    const std::string bytes = currentmap().substr(0, 99);
    loadmap(disk.makefile("Short.map", bytes));
    Answer answer = Answer::no;
    hooks.askuser = [&](const Question& question) {
        told.push_back(question.text);
        return answer;
    };
    EXPECT_FALSE(savemap(mapname));
    EXPECT_THAT(told, ElementsAre("La carte short.map est incomplète.\nL'enregistrer quand même?"));
    EXPECT_EQ(disk.content("Short.map"), bytes);
    EXPECT_TRUE(savemap(disk.path("other.map"))) << "elsewhere nothing is lost";
    EXPECT_EQ(told.size(), 1U);
    loadmap(disk.path("Short.map"));
    answer = Answer::yes;
    EXPECT_TRUE(savemap(mapname));
    EXPECT_FALSE(mapincomplete);
    EXPECT_EQ(disk.content("Short.map").size(), currentmap().size());
}

TEST_F(LoadMapTest, WhatIsNoMapOrTooLargeLeavesTheOldOneWhole)
{
    ASSERT_TRUE(loadmap(disk.makefile("old.map", currentmap())));
    const MapGrid before = mapgrid;
    std::string header = currentmap().substr(0, mapheadersize);
    header.replace(4, 8, rawbytes(100000) + rawbytes(100000));
    const std::string large = disk.makefile("large.map", header);
    std::filesystem::resize_file(large, 20000000096U); // 20 GB of nothing, at no cost
    const std::pair<std::string, std::string> files[] = {
        {large, "large.map : carte trop grande"},
        {disk.makefile("words.map", "Some words that somebody has written down, and then many "
                                    "more of them, as they had so much to say."),
         "words.map : ce n'est pas une carte"},
        {disk.makefile("empty.map", ""), "empty.map : ce n'est pas une carte"}};
    for (const auto& [path, text] : files) {
        EXPECT_FALSE(loadmap(path));
        EXPECT_EQ(label2.back(), text);
        EXPECT_EQ(mapname, lowercase(disk.path("old.map")));
        EXPECT_EQ(mapgrid.samples, before.samples);
        EXPECT_EQ(mapgrid.record, before.record);
        EXPECT_FALSE(mapdirty);
    }
}

TEST_F(LoadMapTest, OnlyTheMapsOwnBytesOfALongFileAreRead)
{
    const std::string path = disk.makefile("long.map", currentmap());
    std::filesystem::resize_file(path, std::uintmax_t{20} << 30);
    EXPECT_TRUE(loadmap(path));
    EXPECT_EQ(mapgrid.samples.size(), 6U);
}

TEST_F(LoadMapTest, AnOlderMapIsConvertedAndItsPicturePlaced)
{
    std::vector<std::string> opened;
    std::string placed;
    std::array<float, 4> lon{};
    std::array<float, 4> lat{};
    hooks.openpicture = [&](const std::string& name, int kind) {
        opened.push_back(name);
        EXPECT_EQ(kind, 1);
    };
    hooks.placepicture = [&](const std::string& name, const float* lons, const float* lats) {
        placed = name;
        std::copy_n(lons, 4, lon.begin());
        std::copy_n(lats, 4, lat.begin());
    };
    const std::string path = disk.makefile("old.map", oldermap(84));
    EXPECT_TRUE(loadmap(path));
    const std::string picture = lowercase(disk.path("old.bmp"));
    EXPECT_THAT(opened, ElementsAre(picture));
    EXPECT_EQ(placed, picture);
    EXPECT_EQ(lon, mapgrid.maplon);
    EXPECT_EQ(lat, mapgrid.maplat);
    EXPECT_THAT(label2, ElementsAre("Ouverture du fichier carte...",
                                    "Conversion au nouveau format de carte...", "Complété."));
    EXPECT_FALSE(mapdirty);
}

TEST_F(LoadMapTest, AForeignFileIsTold)
{
    hooks.openpicture = [](const std::string&, int) { FAIL(); };
    EXPECT_FALSE(loadmap(disk.makefile("foreign.map", oldermap(999))));
    EXPECT_THAT(told, ElementsAre("Mauvais format de carte"));
    EXPECT_EQ(lastmapstatus(), MapStatus::badformat);
    EXPECT_EQ(mapgrid.record, MapRecord());
    EXPECT_EQ(label2.back(), "foreign.map : ce n'est pas une carte");
    EXPECT_EQ(mapname, "before.map");
}

TEST_F(LoadMapTest, AStopLeavesTheMapHalfConverted)
{
    const std::string path = disk.makefile("old.map", oldermap(84));
    int steps = 0;
    hooks.pumpevents = [&steps] {
        if (++steps == 11) // one of them is the beginning's
            opbusy = 0;
    };
    hooks.openpicture = [](const std::string&, int) { FAIL(); };
    EXPECT_FALSE(loadmap(path));
    EXPECT_EQ(lastmapstatus(), MapStatus::stopped);
    EXPECT_TRUE(mapdirty);
    EXPECT_EQ(mapgrid.at(9, 0), 12);
    EXPECT_EQ(mapgrid.at(10, 0), 0);
    EXPECT_EQ(label2.back(), "Arrêté par l'utilisateur.");
}

TEST_F(LoadMapTest, SavingGivesTheSameBytesAndTheStatusLineTheName)
{
    ASSERT_TRUE(loadmap(disk.makefile("a.map", currentmap())));
    mapdirty = true;
    EXPECT_TRUE(savemap(disk.path("b.map")));
    EXPECT_EQ(disk.content("b.map"), currentmap());
    EXPECT_EQ(mapname, disk.path("b.map"));
    EXPECT_FALSE(mapdirty);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(label2.back(), "b.map a été enregistrée");
}

TEST_F(LoadMapTest, SavingOverALongerMapReplacesIt)
{
    const std::string path = disk.makefile("a.map", currentmap() + "left over");
    ASSERT_TRUE(loadmap(path));
    EXPECT_TRUE(savemap(mapname)); // lower case, and finds the file that was read
    EXPECT_EQ(disk.content("a.map"), currentmap());
}

TEST_F(LoadMapTest, AFailedSaveIsToldInTheStatusLineAndKeepsItsMark)
{
    ASSERT_TRUE(loadmap(disk.makefile("a.map", currentmap())));
    mapdirty = true;
    const std::string before = mapname;
    std::string why;
    EXPECT_FALSE(savemap(disk.path("missing/b.map"), &why));
    EXPECT_EQ(why, "No such file or directory");
    EXPECT_TRUE(mapdirty);
    EXPECT_EQ(mapname, before);
    EXPECT_EQ(label2.back(), "b.map impossible à enregistrer");
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(pointer);
}
