#include "network/tabledelta.h"

#include <gtest/gtest.h>
#include <memory>

namespace
{

/// Default tables, on the heap.
std::unique_ptr<NetworkTables> tables()
{
    return std::make_unique<NetworkTables>(defaulttables());
}

/// Tables in which each kind of field differs from `tables()`.
std::unique_ptr<NetworkTables> changed()
{
    auto t = tables();
    t->units[1].lon = 7.5F;
    t->units[50].name.assign("Dernière");
    t->systems[25].height = 12;
    t->nets[25].member[50] = memberbit | 2;
    t->nets[1].system[3] = 4;
    t->nets[2].climate = 7;
    t->nets[3].name.assign("Secours");
    t->antheights[25][50] = 30;
    t->icons[50] = 3;
    return t;
}

} // namespace

TEST(TablesDelta, HoldsOnlyTheFieldsThatDiffer)
{
    const TablesDelta delta = tablesdelta(*tables(), *changed());
    EXPECT_EQ(delta.fields.size(), 9U);
    EXPECT_EQ(delta.before.size(), 4U + 20 + 4 + 1 + 1 + 2 + 30 + 4 + 1);
    EXPECT_EQ(delta.after.size(), delta.before.size());
    EXPECT_TRUE(tablesdelta(*tables(), *tables()).empty());
}

TEST(TablesDelta, LeadsFromOneStateToTheOtherAndBack)
{
    const auto old = tables();
    const auto now = changed();
    const TablesDelta delta = tablesdelta(*old, *now);
    NetworkTables t = *old;
    writeafter(delta, t);
    EXPECT_TRUE(t == *now);
    writebefore(delta, t);
    EXPECT_TRUE(t == *old);
}

TEST(TablesDelta, LeavesOtherFieldsAsTheyHaveBecome)
{
    const auto old = tables();
    auto now = tables();
    now->units[3].name.assign("Nord");
    const TablesDelta delta = tablesdelta(*old, *now);
    now->units[3].lon = 5; // a live position came in between
    now->units[4].name.assign("Sud");
    writebefore(delta, *now);
    EXPECT_EQ(now->units[3].name, old->units[3].name);
    EXPECT_EQ(now->units[3].lon, 5);
    EXPECT_EQ(now->units[4].name.text(), "Sud");
}

TEST(TablesDelta, TakesANumberAsAWhole)
{
    auto old = tables();
    auto now = tables();
    old->units[1].lon = 1.0F;
    now->units[1].lon = 1.5F; // differs in one byte alone
    const TablesDelta delta = tablesdelta(*old, *now);
    now->units[1].lon = -70.123F;
    writebefore(delta, *now);
    EXPECT_EQ(now->units[1].lon, 1.0F);
}

TEST(TablesDelta, LeavesTheCoverageSettingsOut)
{
    auto now = tables();
    now->coverage.rangemax = 55;
    EXPECT_TRUE(tablesdelta(*tables(), *now).empty());
}
