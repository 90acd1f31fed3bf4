#include "base/numbers.h"
#include "coordinates/geosys.h"
#include "coordinates/positiontexts.h"
#include "support/csv.h"
#include "support/places.h"

#include <cmath>
#include <gtest/gtest.h>

static const std::string geodesy = sourcefolder() + "/../shared/data/geodesy/";

static std::string lontext(float lon)
{
    return dmslon(lon);
}

static std::string lattext(float lat)
{
    return dmslat(lat);
}

TEST(DmsText, HasDegreesMinutesSecondsAndAFrenchLetter)
{
    EXPECT_EQ(lontext(-73.250556F), "073°15'02\"O");
    EXPECT_EQ(lattext(45.503334F), "45°30'12\"N");
    EXPECT_EQ(lontext(2.5F), "002°30'00\"E");
    EXPECT_EQ(lattext(-33.9F), "33°54'00\"S");
}

TEST(DmsText, A180DegreesIsWestAndIsNormalisedForTheCaller)
{
    for (float lon : {180.0F, -180.0F, 540.0F, -540.0F}) {
        EXPECT_EQ(dmslon(lon), "180°00'00\"O");
        EXPECT_EQ(lon, -180);
    }
    float lon = 190;
    EXPECT_EQ(dmslon(lon), "170°00'00\"O");
    EXPECT_EQ(lon, -170);
}

TEST(DmsText, TheSignComesFromTheRoundedSeconds)
{
    EXPECT_EQ(lontext(-0.0001F), "000°00'00\"E");
    EXPECT_EQ(lattext(-0.0001F), "00°00'00\"N");
    EXPECT_EQ(lontext(-0.0003F), "000°00'01\"O");
}

TEST(DmsText, LatitudesAreHeldAt89ForTheCallerToo)
{
    float lat = 89.9F;
    EXPECT_EQ(dmslat(lat), "89°00'00\"N");
    EXPECT_EQ(lat, 89);
    lat = -90;
    EXPECT_EQ(dmslat(lat), "89°00'00\"S");
    EXPECT_EQ(lat, -89);
}

TEST(DmsText, NeverShowsSixtySeconds)
{
    EXPECT_EQ(lontext(0.0166666F), "000°01'00\"E");
    EXPECT_EQ(lattext(59.99999F), "60°00'00\"N");
    for (int i = 0; i < 7200; ++i) {
        const std::string text = lontext(static_cast<float>(i) / 3607.0F);
        ASSERT_EQ(text.size(), 12U) << text; // the degree sign takes two bytes
        ASSERT_LT(text.substr(8, 2), "60") << text;
    }
}

TEST(DmsText, TakesAnyNumber)
{
    for (float number : {1e30F, -1e30F, HUGE_VALF, -HUGE_VALF, std::nanf(""), 3.4e38F}) {
        float lon = number;
        float lat = number;
        EXPECT_EQ(dmslon(lon).size(), 12U);
        EXPECT_EQ(dmslat(lat).size(), 11U);
        EXPECT_TRUE(lon >= -180 && lon < 180);
        EXPECT_TRUE(lat >= -89 && lat <= 89);
        EXPECT_EQ(locator(number, number).size(), 6U);
    }
}

TEST(DmsText, NormalisingByTurnsIsExact)
{
    for (int i = -2500; i < 2500; ++i) {
        const float lon = 0.37F * static_cast<float>(i);
        float expected = lon;
        while (expected < -180)
            expected += 360;
        while (expected >= 180)
            expected -= 360;
        float got = lon;
        dmslon(got);
        ASSERT_EQ(got, expected) << lon;
    }
}

class LocatorTest : public testing::Test
{
protected:
    void SetUp() override { setgeosys(""); }
    void TearDown() override { setgeosys(""); }
};

TEST_F(LocatorTest, NamesFieldSquareAndSubsquare)
{
    EXPECT_EQ(locator(0, 0), "JJ00AA");
    EXPECT_EQ(locator(-180, -89), "AA01AA");
    EXPECT_EQ(locator(-180, -90), "AA01AA");
    EXPECT_EQ(locator(2.35F, 48.86F), "JN18EU");
    EXPECT_EQ(locator(180, 0), "AJ00AA");
}

TEST_F(LocatorTest, AgreesWithTheReferenceOnAllRows)
{
    const auto rows = readcsv(geodesy + "utm_mgrs.csv");
    if (rows.empty())
        GTEST_SKIP() << "no reference positions beside the project";
    for (const auto& row : rows)
        EXPECT_EQ(locator(static_cast<float>(leadingnumber(row[0])),
                          static_cast<float>(leadingnumber(row[1]))),
                  row[10]);
}

TEST_F(LocatorTest, AGeodeticSystemWithANameTurnsItIntoAGridReference)
{
    geosys.name = "WGS 1984";
    EXPECT_EQ(locator(-73.5F, 45.5F), "18T XF 17190 39590");
    EXPECT_EQ(locator(180, 45).substr(0, 2), "61"); // not normalised
}

struct LocatorCase {
    const char* text;
    float lon;
    float lat;
};

TEST_F(LocatorTest, IsReadAsTheSouthWestCorner)
{
    const LocatorCase cases[] = {
        {"JN18DU", 2.25F, 48.8333321F},
        {"jn18du", 2.25F, 48.8333321F},
        {"  JN18DU ", 2.25F, 48.8333321F},
        {"FN", -80, 40},
        {"FN35AA", -74, 45},
        {"", -180, -90},
        {"ZZ99ZZ", 179.916672F, 89.9583359F},
        {"!!!!!!", -180, -90},
        {"É", 160, -90},
    };
    for (const LocatorCase& expected : cases) {
        float lon = 0;
        float lat = 0;
        locator2ll(expected.text, lon, lat);
        EXPECT_FLOAT_EQ(lon, expected.lon) << expected.text;
        EXPECT_FLOAT_EQ(lat, expected.lat) << expected.text;
    }
}

TEST_F(LocatorTest, TheMiddleOfASubsquareHasItsName)
{
    for (char a = 'A'; a <= 'R'; ++a)
        for (char d = '0'; d <= '9'; ++d)
            for (char s = 'A'; s <= 'X'; ++s) {
                const std::string text = {a, a, d, d, s, s};
                float lon = 0;
                float lat = 0;
                locator2ll(text, lon, lat);
                if (std::fabs(lat) >= 88.9F) // the last degree is never named
                    continue;
                EXPECT_EQ(locator(lon + 1.0F / 24, lat + 1.0F / 48), text);
            }
}
