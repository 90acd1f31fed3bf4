// Stations to and from other programs on the command line.

#include "cli/handmade.h"
#include "cli/process.h"
#include "support/places.h"

#include <fstream>
#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{
constexpr const char* header = "slot,name,lon,lat,elevation_m,enabled";

class Stations : public CliTest
{
protected:
    void SetUp() override
    {
        CliTest::SetUp();
        write("plan.net", handmade::network());
        write("plain.map", handmade::map());
    }
    std::string content(const std::string& name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static bool hasgis()
    {
        return std::filesystem::exists(buildfolder() + "/lib/libvelmora_gis.so");
    }
};
} // namespace

TEST_F(Stations, GoOutAsCsv)
{
    const Outcome outcome = success({"stations", "plan.net"});
    EXPECT_EQ(outcome.out, std::string(header) + "\n1,Tour,8.078125,44.15625,120,1\n"
                                                 "2,Château,8.390625,44.15625,120.5,1\n"
                                                 "3,Pont,8.078125,44.34375,120,1\n");
    success({"stations", "plan.net", "-o", "a.csv"});
    EXPECT_EQ(content("a.csv"), outcome.out);
    EXPECT_THAT(success({"stations", "plan.net", "--json"}).out,
                HasSubstr("\"name\": \"Château\",\n  \"lon\": 8.390625"));
}

TEST_F(Stations, GoOutWithTheirLinks)
{
    success({"stations", "plan.net", "-o", "a.kml"});
    EXPECT_THAT(content("a.kml"), HasSubstr("<SimpleData name=\"net\">Secours</SimpleData>"));
    EXPECT_THAT(content("a.kml"), HasSubstr("<SimpleData name=\"distance_km\">"));
    if (!hasgis())
        GTEST_SKIP() << "built without GDAL";
    success({"stations", "plan.net", "-o", "a.geojson"});
    EXPECT_THAT(content("a.geojson"), HasSubstr("\"margin_db\""));
    success({"stations", "plan.net", "-o", "a.gpx"});
    EXPECT_THAT(content("a.gpx"), HasSubstr("<name>Château</name>"));
    success({"stations", "plan.net", "--from", "a.gpx", "--first", "4", "-o", "b.net"});
    EXPECT_EQ(success({"stations", "b.net"}).rows(header).size(), 6U);
}

TEST_F(Stations, ComeInToTheUnplacedSlots)
{
    write("sites.csv", "nom;lon;lat\nIci;8,2;44,2\nLà;8,3;44,3\n");
    EXPECT_EQ(success({"stations", "plan.net", "--from", "sites.csv", "-o", "b.net"}).out,
              "taken=2\nnottaken=0\n");
    const auto rows = success({"stations", "b.net"}).rows(header);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[3][1], "Ici");
    EXPECT_EQ(rows[3][4], "120") << "of the map";
    EXPECT_EQ(success({"info", "b.net"}).values().at("map"),
              success({"info", "plan.net"}).values().at("map"));
    success({"stations", "plan.net", "--from", "sites.csv", "--first", "2", "--replace", "-o",
             "c.net"});
    EXPECT_EQ(success({"stations", "c.net"}).rows(header).at(1).at(1), "Ici");
}

TEST_F(Stations, WhatIsNotTakenIsTold)
{
    write("sites.csv", "name,lon,lat,elevation\nLoin,100,10,500\nFaux,est,44\n"
                       "Un nom beaucoup trop long,8.2,44.2,\n");
    const Outcome outcome = run({"stations", "plan.net", "--from", "sites.csv", "-o", "b.net"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "taken=2\nnottaken=1\n");
    EXPECT_EQ(outcome.err,
              "velmora-cli: sites.csv:2: Loin: outside the map, height from the file\n"
              "velmora-cli: sites.csv:3: Faux: not taken: no number: est\n"
              "velmora-cli: sites.csv:4: Un nom beaucoup trop long: name cut to 20 characters\n");
}

TEST_F(Stations, PassThroughStreams)
{
    write(".in", "lat,lon,name\n44.2,8.2,Ici\n");
    const Outcome outcome = run({"stations", "plan.net", "--from", "-", "-o", "-"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "taken=1\nnottaken=0\n");
    write("b.net", outcome.out);
    EXPECT_EQ(success({"stations", "b.net", "-o", "-"}).rows(header).size(), 4U);
    if (!hasgis())
        GTEST_SKIP() << "built without GDAL";
    write(".in", "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"x\" "
                 "xmlns=\"http://www.topografix.com/GPX/1/1\">"
                 "<wpt lat=\"44.2\" lon=\"8.2\"><name>Ici</name></wpt></gpx>");
    EXPECT_EQ(success({"stations", "plan.net", "--from", "-", "-o", "c.net"}).out,
              "taken=1\nnottaken=0\n");
}

TEST_F(Stations, FailuresLeaveNothingBehind)
{
    write("none.csv", "name,lon\na,1\n");
    EXPECT_THAT(failure(1, {"stations", "plan.net", "--from", "none.csv", "-o", "b.net"}),
                HasSubstr("none.csv: its first line must name the columns"));
    EXPECT_THAT(failure(1, {"stations", "plan.net", "--from", "no.gpx", "-o", "b.net"}),
                HasSubstr("no such file"));
    write("empty.csv", "name,lon,lat\n");
    EXPECT_THAT(failure(1, {"stations", "plan.net", "--from", "empty.csv", "-o", "b.net"}),
                HasSubstr("no station was taken"));
    failure(2, {"stations", "plan.net", "--from", "empty.csv"});
    failure(2, {"stations", "plan.net", "--first", "3"});
    failure(2, {"stations", "plan.net", "--from", "empty.csv", "-o", "b.txt"});
    failure(2, {"stations", "plan.net", "-o", "b.doc"});
    EXPECT_FALSE(std::filesystem::exists(folder / "b.net"));
}
