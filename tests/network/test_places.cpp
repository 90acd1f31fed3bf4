#include "base/paths.h"
#include "network/places.h"
#include "support/places.h"

#include <algorithm>
#include <gmock/gmock.h>

using testing::IsEmpty;
using testing::SizeIs;

TEST(Places, TheGazetteerCountsLongitudesToTheWest)
{
    const auto places = parseplaces("\"Colour\",\"Latitude\",\"Longitude West\",\"Name\"\r\n"
                                    "\"0\",45.5,73.5,\"Montr\xE9"
                                    "al\"\r\n"
                                    "\"FF8000\",5.3219,-4.042,\" Abidjan \"\r\n",
                                    -1);
    ASSERT_THAT(places, SizeIs(2));
    EXPECT_EQ(places[0].lon, -73.5F);
    EXPECT_EQ(places[0].lat, 45.5F);
    EXPECT_EQ(places[0].name, "Montréal");
    EXPECT_EQ(places[0].placement, Placement::right);
    EXPECT_EQ(places[0].box, Place::Box::complement);
    EXPECT_EQ(places[1].colour, 0xFF8000);
    EXPECT_EQ(places[1].name, "Abidjan");
}

TEST(Places, LinesWithFewerThanThreeCommasAreLeftOut)
{
    EXPECT_THAT(parseplaces("header\r\n0,1,2\r\n\r\n0,1,2,\r\n", 1), SizeIs(1));
}

TEST(Places, TheFirstLineIsNeverAPlace)
{
    EXPECT_THAT(parseplaces("0,1,2,Nom\r\n", 1), IsEmpty());
    EXPECT_THAT(parseplaces("", 1), IsEmpty());
}

TEST(Places, PlacementAndBackgroundFollowTheName)
{
    const auto places = parseplaces("header\n0,1,2,a,1,-1\n0,1,2,b,2,FF00\n0,1,2,c,3,\n0,1,2,d,4\n"
                                    "0,1,2,e,7,,more,fields\n",
                                    1);
    ASSERT_THAT(places, SizeIs(5));
    EXPECT_EQ(places[0].placement, Placement::above);
    EXPECT_EQ(places[0].box, Place::Box::none);
    EXPECT_EQ(places[1].placement, Placement::aboveleft);
    EXPECT_EQ(places[1].box, Place::Box::colour);
    EXPECT_EQ(places[1].background, 0xFF00);
    EXPECT_EQ(places[2].placement, Placement::left);
    EXPECT_EQ(places[2].box, Place::Box::complement);
    EXPECT_EQ(places[3].placement, Placement::centred);
    EXPECT_EQ(places[4].placement, Placement::right);
}

TEST(Places, TheShippedGazetteerIsReadWhole)
{
    const auto text = readfile(sourcefolder() + "/data/cities.dat");
    ASSERT_TRUE(text);
    const auto places = parseplaces(*text, -1);
    EXPECT_EQ(places.size() + 1,
              static_cast<std::size_t>(std::count(text->begin(), text->end(), '\n')));
    const auto montreal = std::find_if(places.begin(), places.end(),
                                       [](const Place& place) { return place.name == "Montréal"; });
    ASSERT_NE(montreal, places.end());
    EXPECT_NEAR(montreal->lat, 45.5, 0.1);
    EXPECT_NEAR(montreal->lon, -73.6, 0.1);
}
