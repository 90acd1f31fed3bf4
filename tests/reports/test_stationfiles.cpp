// Stations and links for other programs, and back.

#include "gis/gis.h"
#include "reports/readstations.h"
#include "reports/writestations.h"
#include "support/tempfolder.h"

#include <cstdlib>
#include <gmock/gmock.h>

using testing::HasSubstr;

namespace
{
class StationFiles : public testing::Test
{
protected:
    StationFiles()
    {
        tables = defaulttables();
        map.record.maplon0 = 6;
        map.record.maplat0 = 45;
        map.record.mapsize = 60;
        allocatemap(map, 61, 61);
        mapframe(map);
        map.samples.assign(map.samples.size(), 300);
        place(1, "Tour & <nord>", 6, 45);
        place(2, "Château", 6.1F, 45);
        place(4, "Pont", 6, 45.1F);
        for (int n = 1; n <= 2; ++n)
            for (const int unit : {1, 2})
                tables.net(n).member[static_cast<std::size_t>(unit)] = memberbit;
        tables.net(1).name.assign("Fort");
        tables.net(2).name.assign("Faible");
        for (const std::size_t unit : {1U, 2U})
            tables.net(2).system[unit] = 2;
        tables.system(2).threshold = -20;
    }
    void place(int slot, const char* name, float lon, float lat)
    {
        Unit& unit = tables.unit(slot);
        unit.name.assign(name);
        unit.lon = lon;
        unit.lat = lat;
        unit.elevation = 300;
    }
    std::vector<StationLink> links() const { return stationlinks(tables, map, {175, 181, 129}, 0); }
    std::string bytes(StationFormat format) const
    {
        std::string why;
        const auto made = stationbytes(format, tables, links(), why);
        EXPECT_TRUE(made) << why;
        return made.value_or("");
    }
    static bool there(const std::string& program)
    {
        return std::system(("command -v " + program + " > /dev/null").c_str()) == 0;
    }

    NetworkTables tables;
    MapGrid map;
    TempFolder folder;
};
} // namespace

TEST_F(StationFiles, ALinkHasTheMarginOfTheNetThatDecides)
{
    const auto found = links();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].a, 1);
    EXPECT_EQ(found[0].b, 2);
    EXPECT_EQ(found[0].net, 2) << "the worst net decides";
    EXPECT_EQ(found[0].lineclass, 1);
    EXPECT_NEAR(found[0].distance_km, 7.9, 0.3);
    EXPECT_LT(found[0].margin_db, -4);
    for (const std::size_t unit : {1U, 2U})
        tables.net(2).member[unit] = 0;
    EXPECT_EQ(links().at(0).net, 1);
    EXPECT_GE(links().at(0).lineclass, 4);
    EXPECT_GT(links().at(0).margin_db, 0);
}

TEST_F(StationFiles, KmlHasLinesInTheColoursOfTheirClasses)
{
    const std::string kml = bytes(StationFormat::kml);
    EXPECT_THAT(kml, HasSubstr("<Style id=\"class1\"><LineStyle><color>ff0000ff</color>"));
    EXPECT_THAT(kml, HasSubstr("<Style id=\"class3\"><LineStyle><color>ff00ffff</color>"));
    EXPECT_THAT(kml, HasSubstr("<Style id=\"class6\"><LineStyle><color>ff00ff00</color>"));
    EXPECT_THAT(kml, HasSubstr("<name>Tour &amp; &lt;nord&gt; - Château</name>"
                               "<styleUrl>#class1</styleUrl>"));
    EXPECT_THAT(kml, HasSubstr("<SimpleData name=\"net\">Faible</SimpleData>"));
    EXPECT_THAT(kml, HasSubstr("<coordinates>6.1,45,300</coordinates>"));
}

TEST_F(StationFiles, ComeBackFromEachKind)
{
    if (gislibrary() == nullptr)
        GTEST_SKIP() << "built without GDAL";
    for (const auto& [format, name] : {std::pair(StationFormat::csv, "a.csv"),
                                       {StationFormat::gpx, "a.gpx"},
                                       {StationFormat::kml, "a.kml"},
                                       {StationFormat::geojson, "a.geojson"}}) {
        folder.makefile(name, bytes(format));
        StationRecords records;
        std::string why;
        ASSERT_EQ(readstations(folder.path(name), records, why), StationReading::ok) << why;
        ASSERT_EQ(records.usable, 3U) << name;
        EXPECT_EQ(records.kept[0].name, "Tour & <nord>") << name;
        EXPECT_NEAR(records.kept[1].lon, 6.1, 1e-6) << name;
        EXPECT_EQ(records.kept[2].elevation, 300) << name;
        EXPECT_EQ(records.faulty, takeslinks(format) ? 1U : 0U) << name << ": the link is no point";
    }
}

TEST_F(StationFiles, AreReadByOtherPrograms)
{
    if (gislibrary() == nullptr || !there("ogrinfo"))
        GTEST_SKIP() << "needs GDAL and its ogrinfo";
    for (const auto& [format, name] :
         {std::pair(StationFormat::kml, "a.kml"), {StationFormat::geojson, "a.geojson"}}) {
        folder.makefile(name, bytes(format));
        const std::string order =
            "ogrinfo -ro -al " + folder.path(name) + " > " + folder.path("told") + " 2>&1";
        ASSERT_EQ(std::system(order.c_str()), 0);
        const std::string told = folder.content("told");
        EXPECT_THAT(told, HasSubstr("net (String) = Faible")) << name;
        EXPECT_THAT(told, HasSubstr("class (Integer) = 1")) << name;
        EXPECT_THAT(told, HasSubstr("margin_db (Real) = -")) << name;
        EXPECT_THAT(told, HasSubstr("LINESTRING")) << name;
        EXPECT_THAT(told, HasSubstr("Château")) << name;
    }
}

TEST_F(StationFiles, AGpxWithEntitiesIsReadOrRefusedAndNeverCrashes)
{
    if (gislibrary() == nullptr)
        GTEST_SKIP() << "built without GDAL";
    const std::string head = "<?xml version=\"1.0\"?>\n";
    const std::string body =
        "<gpx version=\"1.1\" creator=\"x\" xmlns=\"http://www.topografix.com/GPX/1/1\">"
        "<wpt lat=\"45\" lon=\"6\"><ele>12</ele><name>A &amp; B &#233;</name></wpt>"
        "<trk><trkseg><trkpt lat=\"45\" lon=\"6\"/><trkpt lat=\"46\" lon=\"6\"/></trkseg></trk>"
        "</gpx>";
    folder.makefile("a.gpx", head + body);
    StationRecords records;
    std::string why;
    ASSERT_EQ(readstations(folder.path("a.gpx"), records, why), StationReading::ok) << why;
    EXPECT_EQ(records.usable, 1U);
    EXPECT_EQ(records.faulty, 1U) << "the track, once";
    EXPECT_EQ(records.kept.at(0).name, "A & B é");
    EXPECT_EQ(records.kept[0].elevation, 12);
    std::string bomb = "<!DOCTYPE gpx [<!ENTITY a \"aaaaaaaaaa\">";
    for (char c = 'b'; c <= 'j'; ++c) {
        bomb += std::string("<!ENTITY ") + c + " \"";
        for (int i = 0; i < 10; ++i)
            bomb += std::string("&") + static_cast<char>(c - 1) + ";";
        bomb += "\">";
    }
    std::string bad = body;
    bad.replace(bad.find("&amp;"), 5, "&j;");
    folder.makefile("bomb.gpx", head + bomb + "]>" + bad);
    StationRecords none;
    EXPECT_EQ(readstations(folder.path("bomb.gpx"), none, why), StationReading::refused);
    EXPECT_FALSE(why.empty());
}

TEST_F(StationFiles, WhatIsMissingOrNoStationsIsRefused)
{
    StationRecords records;
    std::string why;
    EXPECT_EQ(readstations(folder.path("no.csv"), records, why), StationReading::unreadable);
    folder.makefile("a.csv", "nom,altitude\nx,1\n");
    EXPECT_EQ(readstations(folder.path("a.csv"), records, why), StationReading::nocolumns);
    if (gislibrary() == nullptr)
        return;
    folder.makefile("a.kml", "Bonjour");
    EXPECT_EQ(readstations(folder.path("a.kml"), records, why), StationReading::refused);
}
