// The demo is the first plan that anybody sees: it must be whole, and show every kind of link.

#include "base/paths.h"
#include "network/netfile.h"
#include "radio/evaluate.h"
#include "support/places.h"
#include "terrain/mapfile.h"

#include <gmock/gmock.h>
#include <set>

using testing::ElementsAre;

namespace
{
class Demo : public testing::Test
{
protected:
    void SetUp() override
    {
        const auto net = readfile(sourcefolder() + "/demo/cumberland.net");
        const auto terrain = readfile(sourcefolder() + "/demo/cumberland.map");
        ASSERT_TRUE(net && terrain);
        ASSERT_EQ(parsenet(asbytes(*net), tables, file), NetStatus::ok);
        ASSERT_EQ(parsemap(asbytes(*terrain), map), MapStatus::ok);
    }

    NetworkTables tables;
    NetFile file;
    MapGrid map;
};

TEST_F(Demo, NamesItsMapWithoutAFolder)
{
    EXPECT_EQ(file.mapname, "cumberland.map");
}

TEST_F(Demo, HasTheFrameThatItsCentreAndSizeGive)
{
    MapGrid framed = map;
    mapframe(framed);
    for (std::size_t corner = 0; corner < 4; ++corner) {
        EXPECT_FLOAT_EQ(framed.maplon[corner], map.maplon[corner]);
        EXPECT_FLOAT_EQ(framed.maplat[corner], map.maplat[corner]);
    }
}

TEST_F(Demo, StandsItsStationsOnTheGround)
{
    int placed = 0;
    for (const Unit& unit : tables.units) {
        if (!unit.placed())
            continue;
        ++placed;
        float x = 0;
        float y = 0;
        float ground = 0;
        EXPECT_TRUE(maplookup(map, unit.lon, unit.lat, x, y, ground)) << unit.name.text();
        EXPECT_EQ(unit.elevation, ground) << unit.name.text();
    }
    EXPECT_EQ(placed, 15);
}

TEST_F(Demo, OffersARainbowOfSignalLevels)
{
    EXPECT_EQ(tables.coverage.unit, 1) << "in dBm, as the settings' first levels are";
    EXPECT_NE(tables.coverage.drawsurface, 0);
    EXPECT_EQ(tables.coverage.surfacecolour, 0);
    EXPECT_EQ(tables.coverage.antfile.text(), "omni.ant");
}

TEST_F(Demo, ShowsEveryClassOfLine)
{
    QualityTable table;
    evaluatedirect(tables, map, false, 0, table);
    for (int net = 1; net <= MAXNET; ++net)
        addretransmissions(tables, net, table);
    std::set<int> classes;
    for (int a = 1; a < MAXUNIT; ++a)
        for (int b = a + 1; b <= MAXUNIT; ++b)
            classes.insert(lineclass(tables, table, Selection().linestyle, a, b));
    EXPECT_THAT(classes, ElementsAre(0, 1, 2, 3, 4, 5, 6));
}
} // namespace
