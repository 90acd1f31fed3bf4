// Building maps from trees of elevation files that the tests make themselves.

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/session.h"
#include "base/settings.h"
#include "support/elevationfiles.h"
#include "terrain/build.h"
#include "terrain/extraction.h"
#include "terrain/szdd.h"

#include <cmath>
#include <deque>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;
using namespace elevationfiles;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// Ground of the whole earth, given at the crossings of a lattice; east 360 degrees is east 0.
struct Ground {
    int perdegree; ///< samples

    /// Height at a sample counted from 0 E 0 N, east and north.
    int at(int east, int north) const
    {
        const int around = 360 * perdegree;
        return roughground(((east % around) + around) % around, north + 200 * perdegree);
    }
    /// Of a cell of one degree with its south-west corner here.
    Heights cell(int lon, int lat) const
    {
        return [*this, lon, lat](int column, int row) {
            return at(lon * perdegree + column, lat * perdegree + row);
        };
    }
    double height(double lon, double lat) const
    {
        return bilinear([this](int column, int row) { return at(column, row); }, lon * perdegree,
                        lat * perdegree);
    }
};

class Extraction : public testing::Test
{
protected:
    Extraction()
        : root(fs::temp_directory_path() / ("velmora-extraction-" + std::to_string(getpid())))
    {
        fs::create_directories(root);
        resethooks();
        resetsettings();
        session = Session();
        session.drvpath.fill(root.string());
        ignoremissing = false;
        mapname = "/maps/test.map";
        hooks.askuser = [this](const Question& question) {
            EXPECT_EQ(question.buttons, Question::Buttons::abortretryignore);
            EXPECT_EQ(question.icon, Question::Icon::exclamation);
            asked.push_back(question.text);
            const Answer answer = answers.empty() ? Answer::ignore : answers.front();
            if (!answers.empty())
                answers.pop_front();
            if (onquestion)
                onquestion();
            return answer;
        };
    }
    ~Extraction() override
    {
        fs::remove_all(root);
        resethooks();
    }

    void placemap(float lon, float lat, float size_km, int width, int height)
    {
        mapgrid = MapGrid();
        mapgrid.record.maplon0 = lon;
        mapgrid.record.maplat0 = lat;
        mapgrid.record.mapsize = size_km;
        allocatemap(mapgrid, width, height);
    }

    static double lonof(int x)
    {
        const double west = static_cast<double>(mapgrid.maplon[0]);
        return west + (static_cast<double>(mapgrid.maplon[2]) - west) * x / mapgrid.upperx();
    }
    static double latof(int y)
    {
        const double south = static_cast<double>(mapgrid.maplat[2]);
        return south + (static_cast<double>(mapgrid.maplat[0]) - south) * y / mapgrid.uppery();
    }

    /// Every pixel holds the ground's bilinear height, to half a metre.
    static void expectground(const Ground& ground)
    {
        for (int y = 0; y < mapgrid.height; ++y)
            for (int x = 0; x < mapgrid.width; ++x)
                ASSERT_NEAR(mapgrid.at(x, y), ground.height(lonof(x), latof(y)), 0.501)
                    << lonof(x) << " E " << latof(y) << " N";
    }

    /// What was asked for: paths below the root, in lower case as the question shows them.
    std::vector<std::string> askedpaths(const std::string& opening) const
    {
        std::vector<std::string> paths;
        const std::string start = opening + "\n" + lowercase(root.string()) + "/";
        for (const std::string& text : asked) {
            EXPECT_TRUE(text.starts_with(start)) << text;
            paths.push_back(text.substr(std::min(start.size(), text.size())));
        }
        return paths;
    }

    void writedted(const std::string& path, const DtedCell& cell) const
    {
        write(root / "DTED" / path, dtedbytes(cell));
    }
    /// A cell of 121 x 121 samples of the ground.
    static DtedCell coarsecell(int lon, int lat)
    {
        return {121, 121, 300, 300, Ground{120}.cell(lon, lat)};
    }
    static DtedCell flatcell(int height)
    {
        return {121, 121, 300, 300, [height](int, int) { return height; }};
    }

    /// A GTOPO30 tile of ten samples to the degree.
    void writetopo(const std::string& name, int left, int top, int width, int height,
                   const std::string& more = "") const
    {
        const Ground ground{20}; // cell centres lie on odd crossings
        const auto sample = [=](int column, int row) {
            return ground.at(left * 20 + 2 * column + 1, top * 20 - 2 * row - 1);
        };
        write(root / name / (name + ".DEM"), rasterbytes(width * 10, height * 10, sample, true));
        write(root / name / (name + ".HDR"),
              fmt::format("BYTEORDER M\nNROWS {}\nNCOLS {}\nXDIM 0.1\nYDIM 0.1\nULXMAP {}\nULYMAP "
                          "{}\n{}",
                          height * 10, width * 10, left + 0.05, top - 0.05, more));
    }

    static double topoheight(double lon, double lat)
    {
        const Ground ground{20};
        return bilinear([&](int i, int j) { return ground.at(2 * i + 1, 2 * j + 1); },
                        lon * 10 - 0.5, lat * 10 - 0.5);
    }
    static void expecttopo()
    {
        for (int y = 0; y < mapgrid.height; ++y)
            for (int x = 0; x < mapgrid.width; ++x)
                ASSERT_NEAR(mapgrid.at(x, y), topoheight(lonof(x), latof(y)), 0.501)
                    << lonof(x) << " E " << latof(y) << " N";
    }

    fs::path root;
    std::vector<std::string> asked;
    std::deque<Answer> answers;
    std::function<void()> onquestion;
};
} // namespace

TEST_F(Extraction, DtedJoinsCellsInTheSouthAndWest)
{
    for (const int lon : {-72, -71})
        for (const int lat : {-1, 0})
            writedted(fmt::format("W{:03}/{}{:02}.DT0", -lon, lat < 0 ? 'S' : 'N', std::abs(lat)),
                      coarsecell(lon, lat));
    placemap(-71.0F, 0.05F, 150, 211, 173);
    EXPECT_TRUE(getDTED());
    EXPECT_THAT(asked, IsEmpty());
    expectground({120});
}

TEST_F(Extraction, DtedCrossesThe180thMeridianOnBothSides)
{
    writedted("E179/N10.DT0", coarsecell(179, 10));
    writedted("W180/N10.DT0", coarsecell(180, 10));
    for (const float centre : {179.99F, -179.98F}) {
        placemap(centre, 10.5F, 60, 140, 90);
        EXPECT_TRUE(getDTED());
        EXPECT_THAT(asked, IsEmpty());
        expectground({120});
    }
}

TEST_F(Extraction, DtedJoinsCellsWhoseColumnSpacingsDiffer)
{
    // East-west slopes, so that the wider columns hold the same ground.
    const auto slope = [](int factor, int lat) {
        return [factor, lat](int column, int row) {
            return 2 * factor * column + (lat - 49) * 120 + row;
        };
    };
    writedted("E005/N49.DT1", {121, 121, 300, 300, slope(1, 49)});
    writedted("E005/N50.DT1", {61, 121, 600, 300, slope(2, 50)});
    placemap(5.5F, 50.0F, 60, 100, 140);
    EXPECT_TRUE(getDTED());
    for (int y = 0; y < mapgrid.height; ++y)
        for (int x = 0; x < mapgrid.width; ++x)
            ASSERT_NEAR(mapgrid.at(x, y), 240 * (lonof(x) - 5) + 120 * (latof(y) - 49), 0.501);
}

TEST_F(Extraction, DtedTriesTheFinestLevelAndTheLongFormFirst)
{
    const std::vector<std::string> names{"E0010000/N410000.DT2", "E001/N41.DT2",
                                         "E0010000/N410000.DT1", "E001/N41.DT1", "E001/N41.DT0"};
    int height = static_cast<int>(names.size());
    for (const std::string& name : names)
        writedted(name, flatcell(100 * height--));
    for (const std::string& name : names) {
        placemap(1.5F, 41.5F, 30, 20, 20);
        EXPECT_TRUE(getDTED());
        EXPECT_EQ(mapgrid.at(10, 10), 500 - 100 * (&name - names.data())) << name;
        fs::remove(root / "DTED" / name);
    }
}

TEST_F(Extraction, DtedGoesOnToTheNextNameWhenAFileCannotBeRead)
{
    const std::string whole = dtedbytes(flatcell(100));
    write(root / "DTED/E0010000/N410000.DT1", whole.substr(0, whole.size() / 2));
    fs::create_directories(root / "DTED/E001/N41.DT1"); // a folder in place of the file
    writedted("E001/N41.DT0", flatcell(300));
    placemap(1.5F, 41.5F, 30, 20, 20);
    EXPECT_TRUE(getDTED());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(mapgrid.at(10, 10), 300);
}

TEST_F(Extraction, NamesAreFoundWhateverTheirCase)
{
    write(root / "dted/e001/n41.dt1", dtedbytes(coarsecell(1, 41)));
    placemap(1.5F, 41.5F, 30, 20, 20);
    EXPECT_TRUE(getDTED());
    EXPECT_THAT(asked, IsEmpty());
    expectground({120});

    write(root / "TERRAIN/M002/E002N41.SD_", terrainbytes(Ground{120}.cell(1, 41)));
    placemap(1.5F, 41.5F, 30, 20, 20);
    EXPECT_TRUE(getTERRAIN());
    EXPECT_THAT(asked, IsEmpty());
    expectground({120});
}

TEST_F(Extraction, AMissingDtedCellIsAskedAboutByItsLastName)
{
    placemap(-0.01F, 0.01F, 10, 20, 20);
    EXPECT_TRUE(getDTED());
    EXPECT_THAT(askedpaths("Fichier DTED non trouvé."),
                ElementsAre("dted/w001/s01.dt0", "dted/w001/n00.dt0", "dted/e000/s01.dt0",
                            "dted/e000/n00.dt0"));
}

TEST_F(Extraction, RetryLooksAgainForTheTile)
{
    answers = {Answer::retry, Answer::retry};
    onquestion = [this] {
        if (asked.size() == 2)
            writedted("E001/N41.DT1", flatcell(250));
    };
    placemap(1.5F, 41.5F, 30, 20, 20);
    EXPECT_TRUE(getDTED());
    EXPECT_EQ(asked.size(), 2U);
    EXPECT_EQ(mapgrid.at(10, 10), 250);
}

TEST_F(Extraction, AbortEndsThePassAndLeavesWhatWasRead)
{
    writedted("E001/N41.DT0", flatcell(250));
    answers = {Answer::abort};
    std::string label;
    hooks.setlabel2 = [&label](const std::string& text) { label = text; };
    placemap(2.0F, 41.5F, 30, 21, 20);
    EXPECT_FALSE(getDTED());
    EXPECT_EQ(asked.size(), 1U); // for the second of two cells
    EXPECT_EQ(mapgrid.at(3, 10), 250);
    EXPECT_EQ(mapgrid.at(18, 10), 0);
    EXPECT_EQ(label, "Arrêté par l'utilisateur.");
    EXPECT_EQ(opbusy, 0);
}

TEST_F(Extraction, MissingTilesArePassedOverWithoutAQuestionWhenAsked)
{
    ignoremissing = true;
    placemap(1.5F, 41.5F, 500, 20, 20);
    EXPECT_TRUE(getTERRAIN());
    EXPECT_TRUE(getGTOPO30());
    EXPECT_TRUE(getDTED());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(mapgrid.record.hmax, 0);
}

TEST_F(Extraction, TerrainTilesAreNamedByTheirEastEdge)
{
    struct Place {
        float lon, lat;
        std::string name;
    };
    for (const Place& place :
         {Place{-73.5F, 45.5F, "m073/w073n45.sd_"}, Place{10.5F, 45.5F, "m011/e011n45.sd_"},
          Place{-0.5F, -0.5F, "m000/w000s01.sd_"}, Place{0.5F, 0.5F, "m001/e001n00.sd_"},
          Place{179.5F, 5.5F, "m180/e180n05.sd_"}, Place{-179.5F, 5.5F, "m179/w179n05.sd_"}}) {
        asked.clear();
        placemap(place.lon, place.lat, 20, 20, 20);
        EXPECT_TRUE(getTERRAIN());
        EXPECT_THAT(askedpaths("Fichier TERRAIN non trouvé."),
                    ElementsAre("terrain/" + place.name));
    }
}

TEST_F(Extraction, TerrainJoinsTilesAcrossThe180thMeridian)
{
    write(root / "terrain/m180/e180s11.sd_", terrainbytes(Ground{120}.cell(179, -11)));
    write(root / "terrain/m179/w179s11.sd_", terrainbytes(Ground{120}.cell(180, -11)));
    placemap(180.0F, -10.5F, 60, 140, 90);
    EXPECT_TRUE(getTERRAIN());
    EXPECT_THAT(asked, IsEmpty());
    expectground({120});
}

TEST_F(Extraction, AFrameThatEndsOnADegreeCallsForTheTerrainTilesBehindIt)
{
    placemap(10.5F, 45.5F, 20, 20, 20);
    mapframe(mapgrid);
    const float half = (mapgrid.maplon[2] - mapgrid.maplon[0]) / 2;
    placemap(11.0F - half - 0.005F, 45.5F, 20, 20, 20);
    EXPECT_TRUE(getTERRAIN());
    EXPECT_THAT(askedpaths("Fichier TERRAIN non trouvé."),
                ElementsAre("terrain/m011/e011n45.sd_", "terrain/m012/e012n45.sd_"));
}

TEST_F(Extraction, ABrokenTerrainTileCountsAsMissing)
{
    const std::string good = terrainbytes([](int, int) { return 70; });
    std::string lying = good;
    lying[10] = 0;
    const std::string shorter = szddbytes(std::string(29280, 'x'));
    const std::string longer = szddbytes(std::string(29284, 'x'));
    for (const std::string& bytes : {good.substr(0, good.size() / 2), good.substr(0, 9), lying,
                                     shorter, longer, std::string(29282, 'x'), std::string()}) {
        asked.clear();
        write(root / "terrain/m002/e002n41.sd_", bytes);
        placemap(1.5F, 41.5F, 30, 20, 20);
        EXPECT_TRUE(getTERRAIN());
        EXPECT_EQ(asked.size(), 1U) << bytes.size();
        EXPECT_EQ(mapgrid.at(10, 10), 0);
    }
    write(root / "terrain/m002/e002n41.sd_", good);
    EXPECT_TRUE(getTERRAIN());
    EXPECT_EQ(mapgrid.at(10, 10), 70);
}

TEST_F(Extraction, GtopoAsksForTheTilesOfThePublicDistribution)
{
    struct Place {
        float lon, lat, size_km;
        std::vector<std::string> names;
    };
    const std::vector<Place> places{
        {1.5F, 42.0F, 80, {"w020n90"}},
        {20.0F, 10.0F, 80, {"w020n40", "e020n40"}},
        {-20.0F, -10.0F, 80, {"w060n40", "w020n40", "w060s10", "w020s10"}},
        {1.0F, -60.0F, 80, {"w020s10", "w000s60"}},
        {180.0F, 10.0F, 80, {"e140n40", "w180n40"}},
        {-180.0F, -75.0F, 80, {"e120s60", "w180s60"}},
        {61.0F, -80.0F, 30, {"e060s60"}}};
    for (const Place& place : places) {
        asked.clear();
        placemap(place.lon, place.lat, place.size_km, 20, 20);
        EXPECT_TRUE(getGTOPO30());
        std::vector<std::string> paths;
        for (const std::string& name : place.names)
            paths.push_back(fmt::format("{0}/{0}.dem", name));
        EXPECT_EQ(askedpaths("Fichier GTOPO30 non trouvé."), paths);
    }
}

TEST_F(Extraction, GtopoReadsNoBandAboveATopOnTheBandLimit)
{
    // A frame whose north edge is 40 degrees to the last bit.
    placemap(0, 40, 1, 3, 3);
    float lat = 40;
    while (mapframe(mapgrid), mapgrid.maplat[0] > 40)
        mapgrid.record.maplat0 = lat = std::nextafter(lat, 0.0F);
    EXPECT_EQ(mapgrid.maplat[0], 40);
    EXPECT_TRUE(getGTOPO30());
    EXPECT_THAT(askedpaths("Fichier GTOPO30 non trouvé."), ElementsAre("w020n40/w020n40.dem"));
}

TEST_F(Extraction, GtopoJoinsTilesAcrossTheirBorders)
{
    writetopo("W020N90", -20, 90, 40, 50);
    writetopo("E020N90", 20, 90, 40, 50);
    writetopo("W020N40", -20, 40, 40, 50);
    writetopo("E020N40", 20, 40, 40, 50);
    placemap(20.01F, 40.02F, 150, 160, 170);
    EXPECT_TRUE(getGTOPO30());
    EXPECT_THAT(asked, IsEmpty());
    expecttopo();
}

TEST_F(Extraction, GtopoJoinsTheSouthernBandAcrossThe180thMeridian)
{
    writetopo("E140S10", 140, -10, 40, 50);
    writetopo("W180S10", -180, -10, 40, 50);
    writetopo("E120S60", 120, -60, 60, 30);
    writetopo("W180S60", -180, -60, 60, 30);
    for (const float centre : {179.99F, -179.9F}) {
        placemap(centre, -60.02F, 150, 160, 170);
        EXPECT_TRUE(getGTOPO30());
        EXPECT_THAT(asked, IsEmpty());
        expecttopo();
    }
}

TEST_F(Extraction, GtopoTakesTheEdgeSampleWhereTheNeighbourIsMissing)
{
    writetopo("W020N90", -20, 90, 40, 50);
    ignoremissing = true;
    placemap(19.95F, 60.0F, 10, 40, 40);
    EXPECT_TRUE(getGTOPO30());
    const int x = static_cast<int>((19.99 - lonof(0)) / (lonof(1) - lonof(0)));
    const double ends = bilinear([](int, int j) { return Ground{20}.at(20 * 20 - 1, 2 * j + 1); },
                                 0, latof(20) * 10 - 0.5);
    EXPECT_NEAR(mapgrid.at(x, 20), ends, 60); // the nearest of two samples, one above the other
    EXPECT_NE(mapgrid.at(x, 20), 0);
    EXPECT_EQ(mapgrid.at(39, 20), 0);
}

TEST_F(Extraction, GtopoKeepsWhatEarlierPassesLeftAtSea)
{
    write(root / "W020N90/W020N90.DEM", rasterbytes(
                                            400, 500, [](int, int) { return -9999; }, true));
    write(root / "W020N90/W020N90.HDR", "NROWS 500\nNCOLS 400\n");
    placemap(1.5F, 41.5F, 30, 20, 20);
    mapgrid.at(4, 5) = 321;
    EXPECT_TRUE(getGTOPO30());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(mapgrid.at(4, 5), 321);
}

TEST_F(Extraction, ABrokenGtopoTileCountsAsMissing)
{
    const fs::path tile = root / "W020N90/W020N90.DEM";
    const fs::path header = root / "W020N90/W020N90.HDR";
    const auto missing = [this] {
        asked.clear();
        placemap(1.5F, 41.5F, 30, 20, 20);
        EXPECT_TRUE(getGTOPO30());
        return asked.size() == 1;
    };
    writetopo("W020N90", -20, 90, 40, 50);
    EXPECT_FALSE(missing());
    fs::resize_file(tile, 399999);
    EXPECT_TRUE(missing());
    writetopo("W020N90", -20, 90, 40, 50, "NBITS 32\n");
    EXPECT_TRUE(missing());
    write(header, "NROWS 0\nNCOLS 0\n");
    EXPECT_TRUE(missing());
    write(header, "NROWS 2147483647\nNCOLS 2147483647\n");
    EXPECT_TRUE(missing());
    fs::remove(header); // the size is not that of the public distribution
    EXPECT_TRUE(missing());
    fs::remove(tile);
    fs::create_directories(tile);
    EXPECT_TRUE(missing());
}

TEST_F(Extraction, GtopoHeadersThatPlaceTheTileElsewhereAreNotBelieved)
{
    writetopo("W020N90", -20, 90, 40, 50);
    write(root / "W020N90/W020N90.HDR",
          "NROWS 500\nNCOLS 400\nXDIM 0.1\nYDIM 0.1\nULXMAP 0\nULYMAP 0\n");
    placemap(1.5F, 41.5F, 30, 20, 20);
    EXPECT_TRUE(getGTOPO30());
    expecttopo();
}

TEST_F(Extraction, FramesBeyondThePolesAreHeldAtThem)
{
    ignoremissing = true;
    for (const float lat : {89.0F, -89.0F}) {
        placemap(0, lat, 500, 12, 40);
        EXPECT_TRUE(getTERRAIN());
        EXPECT_TRUE(getGTOPO30());
        EXPECT_TRUE(getDTED());
    }
}

TEST_F(Extraction, AMapWithoutExtentTakesNoTile)
{
    placemap(1.5F, 41.5F, 30, 1, 1);
    EXPECT_TRUE(getTERRAIN());
    EXPECT_TRUE(getGTOPO30());
    EXPECT_TRUE(getDTED());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(Extraction, AStopDuringATileEndsThePass)
{
    writedted("E001/N41.DT0", flatcell(250));
    int pumped = 0;
    hooks.pumpevents = [&pumped] {
        if (++pumped == 10)
            opbusy = 0;
    };
    placemap(1.5F, 41.5F, 3, 200, 20);
    EXPECT_FALSE(getDTED());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(mapgrid.at(2, 10), 250);
    EXPECT_EQ(mapgrid.at(199, 10), 0);
    EXPECT_LT(pumped, 20);
}

TEST_F(Extraction, ADriveIsOneLetterAndAFolderNeedsNoSeparator)
{
    const auto askedfor = [this](const std::string& path) {
        session.drvpath[0] = path;
        asked.clear();
        placemap(1.5F, 41.5F, 30, 20, 20);
        getDTED();
        return asked.at(0);
    };
    EXPECT_EQ(askedfor("C"), "Fichier DTED non trouvé.\nc:/dted/e001/n41.dt0");
    EXPECT_EQ(askedfor("/no/such"), "Fichier DTED non trouvé.\n/no/such/dted/e001/n41.dt0");
    EXPECT_EQ(askedfor("/no/such/"), "Fichier DTED non trouvé.\n/no/such/dted/e001/n41.dt0");
    EXPECT_EQ(askedfor("D:\\Élévation\\"),
              "Fichier DTED non trouvé.\nd:\\élévation\\dted/e001/n41.dt0");
}

TEST_F(Extraction, EachPassEndsWithTheStatistics)
{
    writedted("E001/N41.DT0", flatcell(250));
    bool changed = false;
    hooks.mapchanged = [&changed] { changed = true; };
    placemap(1.5F, 41.5F, 30, 20, 20);
    EXPECT_TRUE(getDTED());
    EXPECT_EQ(mapgrid.record.hmin, 250);
    EXPECT_EQ(mapgrid.record.hmax, 250);
    EXPECT_EQ(mapgrid.record.hmoy, 250);
    EXPECT_EQ(mapgrid.record.minx, 250);
    EXPECT_EQ(mapgrid.record.maxx, 250);
    EXPECT_TRUE(changed);
}

namespace
{
MapOrder order(unsigned sources)
{
    MapOrder built;
    built.record.maplon0 = 1.5F;
    built.record.maplat0 = 41.5F;
    built.record.mapsize = 30;
    built.record.sources = static_cast<std::uint8_t>(sources);
    built.width = 40;
    built.height = 30;
    return built;
}
} // namespace

TEST_F(Extraction, ABuildLaysDtedOverGtopoOverTerrain)
{
    write(root / "terrain/m002/e002n41.sd_", terrainbytes([](int, int) { return 1; }));
    // Gaps in the west half of the GTOPO30 tile and in the south half of the DTED cell.
    write(root / "W020N90/W020N90.DEM",
          rasterbytes(
              4000, 500, [](int column, int) { return column < 2150 ? -9999 : 2; }, true));
    write(root / "W020N90/W020N90.HDR", "NROWS 500\nNCOLS 4000\nXDIM 0.01\nYDIM 0.1\n");
    writedted("E001/N41.DT1",
              {121, 121, 300, 300, [](int, int row) { return row < 60 ? -32767 : 3; }});
    std::vector<std::string> labels;
    hooks.setlabel2 = [&labels](const std::string& text) {
        if (text.starts_with("Extraction"))
            labels.push_back(text);
    };
    std::string drawn;
    hooks.drawmap = [&drawn](const std::string& name) { drawn = name; };
    mapdirty = false;
    EXPECT_TRUE(buildmap(order(source::dted | source::gtopo30 | source::terrain)));
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(mapgrid.width, 40);
    EXPECT_EQ(mapgrid.height, 30);
    EXPECT_EQ(mapgrid.at(5, 5), 1);
    EXPECT_EQ(mapgrid.at(35, 5), 2);
    EXPECT_EQ(mapgrid.at(5, 25), 3);
    EXPECT_EQ(mapgrid.at(35, 25), 3);
    EXPECT_THAT(labels,
                ElementsAre("Extraction des données Terrain...",
                            "Extraction des données GTOPO30...", "Extraction des données DTED..."));
    EXPECT_TRUE(mapdirty);
    EXPECT_EQ(drawn, "/maps/test.bmp");
    EXPECT_EQ(mapgrid.record.sources, 7);
    EXPECT_EQ(getsetting("DRV0", ""), root.string());
    EXPECT_EQ(getsetting("DRV2", ""), root.string());
}

TEST_F(Extraction, ABuildReportsWhatTilesLacked)
{
    write(root / "terrain/m002/e002n41.sd_", "no tile");
    writedted("E001/N41.DT1",
              {121, 121, 300, 300, [](int, int row) { return row < 60 ? -32767 : 3; }});
    MapOrder ignoring = order(source::dted | source::gtopo30 | source::terrain);
    ignoring.ignoremissing = true;
    BuildReport report;
    EXPECT_TRUE(buildmap(ignoring, &report));
    ASSERT_EQ(report.lacks.size(), 3U);
    EXPECT_EQ(report.lacks[0].kind, TileLack::Kind::damaged);
    EXPECT_TRUE(report.lacks[0].name.ends_with("terrain/m002/e002n41.sd_"));
    EXPECT_EQ(report.lacks[1].kind, TileLack::Kind::missing);
    EXPECT_TRUE(report.lacks[1].name.ends_with("W020N90/W020N90.dem"));
    EXPECT_NEAR(report.lacks[1].share, 1, 1e-9);
    EXPECT_EQ(report.lacks[2].kind, TileLack::Kind::voids);
    EXPECT_TRUE(report.lacks[2].name.ends_with("E001/N41.DT1"));
    EXPECT_NEAR(report.lacks[2].share, 0.5, 0.05);
    EXPECT_EQ(report.lacking(), 2);
    EXPECT_NEAR(static_cast<double>(report.filled), 40 * 30 / 2.0, 80);
}

TEST_F(Extraction, ACoarserCellStandsInForADamagedOne)
{
    write(root / "DTED/E001/N41.DT2", "UHL1 and no more");
    writedted("E001/N41.DT1", {121, 121, 300, 300, [](int, int) { return 7; }});
    BuildReport report;
    EXPECT_TRUE(buildmap(order(source::dted), &report));
    EXPECT_THAT(report.lacks, IsEmpty());
    EXPECT_EQ(mapgrid.at(5, 5), 7);
}

TEST_F(Extraction, ACompressedTileIsWholeWhateverStandsBehindItsStream)
{
    const std::string content(29282, 'x');
    for (const std::string& more :
         {std::string("\xFFtrailing"), std::string(3, '\0'), std::string(5000, 'y')}) {
        const std::string bytes = szddbytes(content) + more;
        EXPECT_EQ(expandbytes(std::as_bytes(std::span(bytes.data(), bytes.size())), 29282),
                  content);
    }
    const std::string cut = szddbytes(content).substr(0, 20000);
    EXPECT_FALSE(expandbytes(std::as_bytes(std::span(cut.data(), cut.size())), 29282));
}

TEST_F(Extraction, ABuildStartsFromAnEmptyTable)
{
    placemap(1.5F, 41.5F, 30, 40, 30);
    mapgrid.at(3, 3) = 99;
    MapOrder ignoring = order(source::dted);
    ignoring.ignoremissing = true;
    EXPECT_TRUE(buildmap(ignoring));
    EXPECT_EQ(mapgrid.at(3, 3), 0);
}

TEST_F(Extraction, ABuildWithoutASourceDoesNothing)
{
    placemap(1.5F, 41.5F, 30, 10, 10);
    mapdirty = false;
    EXPECT_FALSE(buildmap(order(0)));
    EXPECT_EQ(mapgrid.width, 10);
    EXPECT_FALSE(mapdirty);
}

TEST_F(Extraction, AStoppedBuildRunsNoFurtherPassAndDrawsNothing)
{
    answers = {Answer::abort};
    bool drawn = false;
    hooks.drawmap = [&drawn](const std::string&) { drawn = true; };
    mapdirty = false;
    EXPECT_FALSE(buildmap(order(source::dted | source::terrain)));
    EXPECT_THAT(askedpaths("Fichier TERRAIN non trouvé."), ElementsAre("terrain/m002/e002n41.sd_"));
    EXPECT_FALSE(drawn);
    EXPECT_TRUE(mapdirty);
}
