// Stations in tables of other programs: what is recognised, and what is told of the rest.

#include "base/paths.h"
#include "network/stationfile.h"
#include "network/tables.h"

#include <gtest/gtest.h>

namespace
{
StationRecords read(const std::string& text)
{
    StationRecords records;
    EXPECT_TRUE(readstationtable(asbytes(text), records)) << text;
    return records;
}

StationRecord only(const std::string& text)
{
    const StationRecords records = read(text);
    EXPECT_EQ(records.kept.size(), 1U) << text;
    return records.kept.empty() ? StationRecord() : records.kept[0];
}

StationFault faultof(const std::string& row)
{
    return only("name;lon;lat;altitude\n" + row + "\n").fault;
}
} // namespace

TEST(StationTable, IsReadWithEachSeparatorAndDecimalSign)
{
    for (const std::string text :
         {"name,lon,lat,elevation_m\nTour,6.5,-45.25,120\n",
          "NOM;Longitude;Latitude;Altitude (m)\r\nTour;6,5;-45,25;120\r\n",
          "Station\tLong\tLat\tAlt\rTour\t6.5\t-45,25\t120\r", "label|x|y|z\nTour|6.5°|-45.25|120",
          "sep=;\nlat;lon;nom;ele\n-45,25;+6,5;Tour;120\n",
          "\xEF\xBB\xBFname,lon_deg,lat_deg,elev\n\"Tour\",\"6,5\",\"-45,25\",120\n"}) {
        const StationRecord record = only(text);
        EXPECT_EQ(record.fault, StationFault::none) << text;
        EXPECT_EQ(record.name, "Tour");
        EXPECT_EQ(record.lon, 6.5) << text;
        EXPECT_EQ(record.lat, -45.25);
        EXPECT_EQ(record.elevation, 120);
        EXPECT_TRUE(record.enabled);
    }
}

TEST(StationTable, TellsTheCodePage)
{
    EXPECT_EQ(only("nom,lon,lat\nCh\xC3\xA2teau,1,2\n").name, "Château");
    EXPECT_EQ(only("nom,lon,lat\nCh\xE2teau,1,2\n").name, "Château");
    EXPECT_EQ(only("\xC9tiquette;lon;lat\nB\xE9\x80;1;2\n").name, "Bé€");
}

TEST(StationTable, TakesQuotesWithSeparatorsQuotesAndLineEnds)
{
    const StationRecords records =
        read("name,lon,lat\n\"Haut, \"\"bas\"\"\nfin\",1,2\n\nNord,3,4\n,,\nSud,5,6\n");
    ASSERT_EQ(records.kept.size(), 3U);
    EXPECT_EQ(records.kept[0].name, "Haut, \"bas\" fin");
    EXPECT_EQ(records.kept[0].row, 2U);
    EXPECT_EQ(records.kept[1].row, 5U) << "counted in lines of the file";
    EXPECT_EQ(records.kept[2].row, 7U);
}

TEST(StationTable, NeedsColumnsOfLongitudeAndLatitude)
{
    for (const std::string text :
         {"", "\n\n", "name,lon\nTour,1\n", "1,2,3\n", "Bonjour", "name,latitude,elevation\n"}) {
        StationRecords records;
        EXPECT_FALSE(readstationtable(asbytes(text), records)) << text;
        EXPECT_TRUE(records.kept.empty());
    }
}

TEST(StationTable, ListsEachRowThatIsNoStationWithItsReason)
{
    EXPECT_EQ(faultof("a;;45"), StationFault::noposition);
    EXPECT_EQ(faultof("a;6"), StationFault::noposition) << "a short row";
    EXPECT_EQ(faultof("a;est;45"), StationFault::nonumber);
    EXPECT_EQ(faultof("a;6.5.1;45"), StationFault::nonumber);
    EXPECT_EQ(faultof("a;nan;45"), StationFault::nonumber);
    EXPECT_EQ(faultof("a;1e999;45"), StationFault::nonumber);
    EXPECT_EQ(faultof("a;6;90.5"), StationFault::outside);
    EXPECT_EQ(faultof("a;1e308;45"), StationFault::outside);
    EXPECT_EQ(faultof("a;0;0"), StationFault::zero);
    EXPECT_EQ(faultof("a;6;45;1;2"), StationFault::manyfields);
    EXPECT_EQ(faultof("a;6;45;1;;"), StationFault::none) << "blank fields at the end";
    EXPECT_EQ(faultof("\"a;6;45"), StationFault::openquote);
    EXPECT_EQ(only("lon,lat\nest,45\n").detail, "est");
}

TEST(StationTable, ADecimalCommaBetweenCommasIsNoOtherPosition)
{
    EXPECT_EQ(only("name,lon,lat\nTour,6,5,45,5\n").fault, StationFault::manyfields);
}

TEST(StationTable, AnOpenQuoteSpoilsItsOwnLineOnly)
{
    const StationRecords records = read("name,lon,lat\n\"Tour,1,2\nNord,3,4\n");
    ASSERT_EQ(records.kept.size(), 2U);
    EXPECT_EQ(records.kept[0].fault, StationFault::openquote);
    EXPECT_EQ(records.kept[1].name, "Nord");
    EXPECT_EQ(records.kept[1].row, 3U);
}

TEST(StationTable, HoldsPositionsWithinTheGlobeAndHeightsOnIt)
{
    EXPECT_EQ(only("lon,lat\n350,10\n").lon, -10);
    EXPECT_EQ(only("lon,lat\n-190,10\n").lon, 170);
    const StationRecord absurd = only("lon,lat,alt\n1,2,1e300\n");
    EXPECT_TRUE(absurd.badheight);
    EXPECT_FALSE(absurd.elevation);
    EXPECT_EQ(absurd.fault, StationFault::none);
    EXPECT_TRUE(only("lon,lat,alt\n1,2,haut\n").badheight);
    EXPECT_FALSE(only("lon,lat,alt\n1,2,\n").badheight);
    EXPECT_FALSE(only("lon,lat,Actif\n1,2,Non\n").enabled);
}

TEST(StationTable, CountsAMillionRowsAndKeepsFewOfThem)
{
    std::string text = "name,lon,lat\n";
    for (int i = 0; i < 500'000; ++i)
        text += "Station,6.5,45.5\nfaux,est,45.5\n";
    const StationRecords records = read(text);
    EXPECT_EQ(records.usable, 500'000U);
    EXPECT_EQ(records.faulty, 500'000U);
    EXPECT_EQ(records.kept.size(), MAXUNIT + StationRecords::mostfaulty);
}

TEST(StationTable, OneRowOfAMillionFieldsIsOneFaultyRecord)
{
    const StationRecords records = read("lon,lat\n" + std::string(1'000'000, ',') + "1\n2,3\n");
    ASSERT_EQ(records.kept.size(), 2U);
    EXPECT_EQ(records.kept[0].fault, StationFault::manyfields);
}

TEST(StationTable, GoesOutAndComesBackTheSame)
{
    NetworkTables tables = defaulttables();
    tables.unit(1).name.assign("Tour, \"nord\"");
    tables.unit(1).lon = 6.1234567F;
    tables.unit(1).lat = -45.1F;
    tables.unit(1).elevation = 1234.5F;
    tables.unit(7).name.assign("Été;1");
    tables.unit(7).lon = -0.001F;
    tables.unit(7).enabled = 0;
    const std::string text = stationtable(tables);
    EXPECT_EQ(text, "slot,name,lon,lat,elevation_m,enabled\n"
                    "1,\"Tour, \"\"nord\"\"\",6.1234565,-45.1,1234.5,1\n"
                    "7,\"Été;1\",-0.001,0,0,0\n");
    const StationRecords records = read(text);
    ASSERT_EQ(records.kept.size(), 2U);
    EXPECT_EQ(records.kept[0].name, "Tour, \"nord\"");
    EXPECT_EQ(static_cast<float>(records.kept[0].lon), 6.1234567F);
    EXPECT_EQ(records.kept[0].elevation, 1234.5);
    EXPECT_EQ(records.kept[1].name, "Été;1");
    EXPECT_FALSE(records.kept[1].enabled);
}
