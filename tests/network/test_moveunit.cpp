#include "base/hooks.h"
#include "network/moveunit.h"
#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

/// A map of 0.005 degrees a sample whose heights tell column and row.
class MoveUnit : public testing::Test
{
protected:
    void SetUp() override
    {
        network = defaulttables();
        selection = {};
        moved = false;
        allocatemap(mapgrid, 301, 201);
        for (int y = 0; y <= mapgrid.uppery(); ++y)
            for (int x = 0; x <= mapgrid.upperx(); ++x)
                mapgrid.at(x, y) = static_cast<std::int16_t>(100 + 5 * x + 3 * (y % 20));
        mapgrid.maplon = {7, 8.5F, 8.5F, 7};
        mapgrid.maplat = {45, 45, 44, 44};
        hooks.unitmoved = [this](int unit) { told.push_back(unit); };
    }

    void TearDown() override
    {
        network = {};
        selection = {};
        mapgrid = {};
        moved = false;
        resethooks();
    }

    std::vector<int> told;
};

} // namespace

TEST_F(MoveUnit, AStationLiesOnTheGroundOfTheMap)
{
    placeunit(2, 7.25F, 44.75F);
    EXPECT_EQ(unitat(2).lon, 7.25F);
    EXPECT_EQ(unitat(2).lat, 44.75F);
    EXPECT_EQ(unitat(2).elevation, mapgrid.at(50, 150));
    EXPECT_FALSE(moved);
    EXPECT_TRUE(told.empty());
}

TEST_F(MoveUnit, OffTheMapAStationLiesAtSeaLevel)
{
    unitat(2).elevation = 500;
    placeunit(2, 20, 44.75F);
    EXPECT_EQ(unitat(2).lon, 20);
    EXPECT_EQ(unitat(2).elevation, 0);
}

TEST_F(MoveUnit, TheCurrentStationMovesAndItsLinksWaitForTheTimer)
{
    selection.curunit = 3;
    moveunit(7.25F, 44.75F);
    EXPECT_EQ(unitat(3).lon, 7.25F);
    EXPECT_EQ(unitat(3).elevation, mapgrid.at(50, 150));
    EXPECT_TRUE(moved);
    EXPECT_THAT(told, testing::ElementsAre(3));
}
