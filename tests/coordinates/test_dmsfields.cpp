#include "coordinates/dmsfields.h"

#include <cmath>
#include <gmock/gmock.h>

using testing::ElementsAre;

static DmsFields shown(float lon, float lat)
{
    return ll2fields(lon, lat);
}

static std::pair<float, float> held(const DmsFields& fields)
{
    float lon = 1;
    float lat = 1;
    fields2ll(fields, lon, lat);
    return {lon, lat};
}

TEST(DmsFields, ShowDegreesMinutesSecondsAndLetterOfEachAxis)
{
    const DmsFields fields =
        shown(-(73 + 15 / 60.0F + 2 / 3600.0F), 45 + 30 / 60.0F + 12 / 3600.0F);
    EXPECT_THAT(fields.lon, ElementsAre("073", "15", "02"));
    EXPECT_EQ(fields.lonletter, 'O');
    EXPECT_THAT(fields.lat, ElementsAre("45", "30", "12"));
    EXPECT_EQ(fields.latletter, 'N');
}

TEST(DmsFields, ShowingNormalisesTheLongitudeAndClampsTheLatitude)
{
    float lon = 540;
    float lat = -90;
    const DmsFields fields = ll2fields(lon, lat);
    EXPECT_EQ(lon, -180);
    EXPECT_EQ(lat, -89);
    EXPECT_THAT(fields.lon, ElementsAre("180", "00", "00"));
    EXPECT_EQ(fields.lonletter, 'O');
    EXPECT_THAT(fields.lat, ElementsAre("89", "00", "00"));
    EXPECT_EQ(fields.latletter, 'S');
}

TEST(DmsFields, PositionIsTheSumOfTheThreeFieldsWithTheSignOfTheLetter)
{
    const auto [lon, lat] = held({{"73", "15", "36"}, 'O', {"45", "30", "00"}, 'S'});
    EXPECT_FLOAT_EQ(lon, -73.26F);
    EXPECT_FLOAT_EQ(lat, -45.5F);
}

TEST(DmsFields, AFieldCountsByItsLeadingNumber)
{
    const auto [lon, lat] = held({{"12x", "", "abc"}, 'E', {" 7.5", "30 ou plus", "-"}, 'N'});
    EXPECT_FLOAT_EQ(lon, 12);
    EXPECT_FLOAT_EQ(lat, 8);
}

TEST(DmsFields, AxesAreHeldWithinTheirLimits)
{
    const auto [east, north] = held({{"179", "59", "120"}, 'E', {"95", "0", "0"}, 'N'});
    EXPECT_EQ(east, 180);
    EXPECT_EQ(north, 90);
    const auto [west, south] = held({{"400", "0", "0"}, 'O', {"90", "0", "1"}, 'S'});
    EXPECT_EQ(west, -180);
    EXPECT_EQ(south, -90);
}

TEST(DmsFields, ANegativeNumberAndItsLetterTurnTheSignTwice)
{
    const auto [lon, lat] = held({{"-10", "0", "0"}, 'O', {"-20", "0", "0"}, 'N'});
    EXPECT_EQ(lon, 10);
    EXPECT_EQ(lat, -20);
}

TEST(DmsFields, WhatIsShownReadsBackWithinHalfASecond)
{
    for (float lon = -179.9F; lon < 180; lon += 17.377F) {
        for (float lat = -88.9F; lat < 89; lat += 11.713F) {
            const auto [lon2, lat2] = held(shown(lon, lat));
            // Half a second, and the rounding of a single of this size.
            EXPECT_NEAR(lon2, lon, 0.5 / 3600 + 2e-5);
            EXPECT_NEAR(lat2, lat, 0.5 / 3600 + 2e-5);
        }
    }
}

TEST(DmsFields, TakeDecimalCommas)
{
    DmsFields fields = shown(7, 44);
    fields.lon = {"7,5", "0", "0"};
    fields.lat = {"44", "7,5", "0"};
    EXPECT_EQ(held(fields), std::pair(7.5F, 44.125F));
}
