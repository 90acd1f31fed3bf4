// Slots for the stations of other programs.

#include "network/stationplan.h"

#include <gtest/gtest.h>

namespace
{
class StationPlans : public testing::Test
{
protected:
    StationPlans()
    {
        map.record.maplon0 = 6;
        map.record.maplat0 = 45;
        map.record.mapsize = 100;
        allocatemap(map, 11, 11);
        mapframe(map);
        map.samples.assign(map.samples.size(), 700);
    }
    void add(const std::string& name, double lon, double lat, std::optional<double> height = {})
    {
        StationRecord record;
        record.name = name;
        record.lon = lon;
        record.lat = lat;
        record.elevation = height;
        records.add(record);
    }
    StationPlan plan(int first = 1, bool replace = false)
    {
        return planstations(records, tables, map, first, replace);
    }

    NetworkTables tables = defaulttables();
    MapGrid map;
    StationRecords records;
};
} // namespace

TEST_F(StationPlans, FillTheFreeSlotsFromOneOn)
{
    tables.unit(2).lon = 6;
    tables.unit(4).lat = 45; // on the meridian, and yet placed
    for (const char* name : {"a", "b", "c"})
        add(name, 6, 45);
    const StationPlan found = plan();
    EXPECT_EQ(found.stations[0].slot, 1);
    EXPECT_EQ(found.stations[1].slot, 3);
    EXPECT_EQ(found.stations[2].slot, 5);
    EXPECT_EQ(plan(3).stations[1].slot, 5);
    EXPECT_EQ(plan(2, true).stations[0].slot, 2);
    EXPECT_EQ(plan(2, true).stations[2].slot, 4);
}

TEST_F(StationPlans, LeaveWhatFindsNoSlot)
{
    for (int i = 0; i < 53; ++i)
        add("s", 6, 45);
    StationRecord nowhere;
    nowhere.fault = StationFault::zero;
    records.add(nowhere);
    EXPECT_EQ(plan().taken, 50U);
    EXPECT_EQ(plan().left, 4U);
    const StationPlan late = plan(49);
    EXPECT_EQ(late.taken, 2U);
    EXPECT_EQ(late.stations[1].slot, 50);
    EXPECT_EQ(late.stations[2].slot, 0);
    EXPECT_EQ(late.stations.back().slot, 0);
}

TEST_F(StationPlans, TakeHeightsFromTheMapElseFromTheFile)
{
    add("ici", 6, 45, 10);
    add("loin", 100, 10, 2000);
    add("nu", 100, 10);
    const StationPlan found = plan();
    EXPECT_EQ(found.stations[0].unit.elevation, 700);
    EXPECT_FALSE(found.stations[0].offmap);
    EXPECT_EQ(found.stations[1].unit.elevation, 2000);
    EXPECT_TRUE(found.stations[1].offmap);
    EXPECT_EQ(found.stations[2].unit.elevation, 0);
    map.samples.assign(map.samples.size(), 0); // what stands in for a missing map
    EXPECT_EQ(plan().stations[0].unit.elevation, 10);
    EXPECT_TRUE(plan().stations[0].offmap);
}

TEST_F(StationPlans, FlagNamesThatChange)
{
    add("exactement vingt car", 6, 45);
    add("vingt et un caractère", 6, 45);
    add("Łódź", 6, 45);
    const StationPlan found = plan();
    EXPECT_FALSE(found.stations[0].cut);
    EXPECT_TRUE(found.stations[1].cut);
    EXPECT_EQ(found.stations[1].unit.name.text(), "vingt et un caractèr");
    EXPECT_TRUE(found.stations[2].replaced);
    EXPECT_EQ(found.stations[2].unit.name.text(), "?ód?");
}

TEST_F(StationPlans, KeepWhatAFileDoesNotTell)
{
    tables.unit(1).forecolour = 0x123456;
    tables.net(1).member[1] = memberbit;
    add("Tour", 6.25, 45.5);
    takestations(plan(), tables);
    EXPECT_EQ(tables.unit(1).name.text(), "Tour");
    EXPECT_EQ(tables.unit(1).lon, 6.25F);
    EXPECT_EQ(tables.unit(1).forecolour, 0x123456);
    EXPECT_TRUE(tables.net(1).ismember(1));
    EXPECT_EQ(tables.unit(2), defaulttables().unit(2));
}
