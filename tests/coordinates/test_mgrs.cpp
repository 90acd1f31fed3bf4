#include "base/numbers.h"
#include "coordinates/mgrs.h"
#include "support/csv.h"
#include "support/places.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

static const std::string geodesy = sourcefolder() + "/../shared/data/geodesy/";

class MgrsTest : public testing::Test
{
protected:
    void SetUp() override { setgeosys(""); }
    void TearDown() override { setgeosys(""); }
};

static bool reads(std::string_view text)
{
    float lon = 0;
    float lat = 0;
    return mgrs2ll(text, lon, lat);
}

TEST_F(MgrsTest, TheManualsExamplesComeOut)
{
    EXPECT_EQ(ll2mgrs(-73.5, 45.5), "18T XF 17190 39590");
    EXPECT_EQ(utmzone, 18);
    EXPECT_EQ(utmeast, 617190);
    EXPECT_EQ(utmnorth, 5039590);
    EXPECT_EQ(ll2mgrs(151.2, -33.9), "56H LT 33570 47470");
    EXPECT_EQ(utmnorth, -3752530);
}

TEST_F(MgrsTest, AgreesWithExactCoordinatesOnAllRows)
{
    const auto rows = readcsv(geodesy + "utm_mgrs.csv");
    if (rows.empty())
        GTEST_SKIP() << "no reference positions beside the project";
    for (const auto& row : rows) {
        const double lon = leadingnumber(row[0]);
        const double lat = leadingnumber(row[1]);
        const double falsenorthing = row[3] == "S" ? 10000000 : 0;
        setgeosys("");
        EXPECT_EQ(ll2mgrs(lon, lat), row[8]);
        EXPECT_EQ(utmzone, leadingnumber(row[2]));
        // The series is within 0.11 m of the exact easting before the rounding to 10 m.
        EXPECT_NEAR(utmeast, leadingnumber(row[4]), 5.11) << row[8];
        EXPECT_NEAR(utmnorth + falsenorthing, leadingnumber(row[5]), 5.003) << row[8];
        geosys.rowshift = 0;
        EXPECT_EQ(ll2mgrs(lon, lat), row[7]);
    }
}

TEST_F(MgrsTest, TheInverseGivesTheCornerWithItsTwoOffsets)
{
    const auto rows = readcsv(geodesy + "inverse.csv");
    if (rows.empty())
        GTEST_SKIP() << "no reference positions beside the project";
    int refused = 0;
    for (const auto& row : rows) {
        float lon = 0;
        float lat = 0;
        setgeosys("");
        if (!mgrs2ll(row[0], lon, lat)) {
            ++refused;
            continue;
        }
        // The rounding of the results to singles stands beside the offsets.
        EXPECT_NEAR(static_cast<double>(lat) - leadingnumber(row[3]), 0.00001, 4e-6) << row[0];
        EXPECT_NEAR(static_cast<double>(lon) - leadingnumber(row[2]), -0.00001, 1.3e-5) << row[0];
        geosys.rowshift = 0;
        float plainlon = 0;
        float plainlat = 0;
        ASSERT_TRUE(mgrs2ll(row[1], plainlon, plainlat)) << row[1];
        EXPECT_EQ(plainlon, lon);
        EXPECT_EQ(plainlat, lat);
    }
    EXPECT_EQ(refused, 3); // those beside their bands' ten rows, see below
}

TEST_F(MgrsTest, BlanksAndCaseDontMatter)
{
    float lon = 0;
    float lat = 0;
    ASSERT_TRUE(mgrs2ll("18T XF 17190 39590", lon, lat));
    EXPECT_NEAR(lon, -73.5, 1e-4);
    EXPECT_NEAR(lat, 45.5, 1e-4);
    for (const char* text :
         {"18txf1719039590", "18 t x f 1719 0 3959 0", " 18-TXF:17190/39590\n"}) {
        float lon2 = 0;
        float lat2 = 0;
        ASSERT_TRUE(mgrs2ll(text, lon2, lat2)) << text;
        EXPECT_EQ(lon2, lon) << text;
        EXPECT_EQ(lat2, lat) << text;
    }
}

TEST_F(MgrsTest, ThereAndBackStaysWithinTheLatticeAndTheOffsets)
{
    for (int shift : {0, 10}) {
        geosys.rowshift = static_cast<std::int16_t>(shift);
        // Kept off the edges of bands and zones, where rounding and offsets lead outside.
        for (int i = 0; i < 290; ++i) {
            for (int central = -177; central < 180; central += 30) {
                const double lat = -79.3 + 0.55 * i;
                const double fromedge = lat - 8 * std::floor(lat / 8);
                if (fromedge < 0.5 || fromedge > 7.5)
                    continue;
                const double lon = central + 2.9 * std::sin(lat * 7);
                const std::string text = ll2mgrs(lon, lat);
                float backlon = 0;
                float backlat = 0;
                ASSERT_TRUE(mgrs2ll(text, backlon, backlat)) << text;
                // 5 m of rounding, 1 m of offset, and the singles
                EXPECT_NEAR(static_cast<double>(backlat), lat, 8e-5) << text;
                const double east = (static_cast<double>(backlon) - lon) * std::cos(lat * 0.01745);
                EXPECT_NEAR(east, 0, 1e-4) << text;
            }
        }
    }
}

TEST_F(MgrsTest, PositionsBesideTheirBandsTenRowsAreNotReadBack)
{
    // Rows are counted from the band's edge on a sphere, which lies some kilometres off, and
    // the last band is more than ten rows high.
    EXPECT_FALSE(reads(ll2mgrs(40.315, 64.0013)));
    EXPECT_TRUE(reads(ll2mgrs(40.315, 64.05)));
    EXPECT_FALSE(reads(ll2mgrs(-2.485, 81.02)));
    EXPECT_TRUE(reads(ll2mgrs(-2.485, 80)));
}

TEST_F(MgrsTest, FewerDigitsNameTheSouthWestCornerOfALargerSquare)
{
    float lon = 0;
    float lat = 0;
    float fulllon = 0;
    float fulllat = 0;
    ASSERT_TRUE(mgrs2ll("18TXF13", lon, lat));
    ASSERT_TRUE(mgrs2ll("18TXF1000030000", fulllon, fulllat));
    EXPECT_EQ(lon, fulllon);
    EXPECT_EQ(lat, fulllat);
}

TEST_F(MgrsTest, AnOddCountOfDigitsIsReadAsTheFieldsFall)
{
    float lon = 0;
    float lat = 0;
    float samelon = 0;
    float samelat = 0;
    ASSERT_TRUE(mgrs2ll("18TXF91234", lon, lat)); // the first of five is ignored
    ASSERT_TRUE(mgrs2ll("18TXF1234", samelon, samelat));
    EXPECT_EQ(lon, samelon);
    EXPECT_EQ(lat, samelat);
    EXPECT_TRUE(reads("18TXF912341234"));
    // Of three or seven, the easting field begins with the square's letter and reads as 0, which
    // is the edge of the 100 km square.
    ASSERT_TRUE(mgrs2ll("18TXF345", lon, lat));
    ASSERT_TRUE(mgrs2ll("18TXF0045", samelon, samelat));
    EXPECT_EQ(lon, samelon);
    EXPECT_EQ(lat, samelat);
    EXPECT_TRUE(reads("18TXF3456789"));
}

TEST_F(MgrsTest, RefusesWhatIsNoReference)
{
    for (const char* text : {"", "18", "18T", "18TXF", "18TXF1", "18TXF12345678901",
                             "18TXF123456789012", "T", "XF1234", "1234567890"})
        EXPECT_FALSE(reads(text)) << text;
}

TEST_F(MgrsTest, RefusesZonesAndBandsThatDontExist)
{
    for (const char* text : {"18AXF1234", "18BXF1234", "18YXF1234", "18ZXF1234", "18IXF1234",
                             "18OXF1234", "00TXF1234", "61TXF1234", "99999999999999TXF1234"})
        EXPECT_FALSE(reads(text)) << text;
    EXPECT_TRUE(reads("0018TXF1234"));
}

TEST_F(MgrsTest, ARowMustLieWithinTenOfItsBandsFirst)
{
    int good = 0;
    for (const char row : std::string("ABCDEFGHJKLMNPQRSTUV"))
        good += reads(std::string("18TX") + row + "5050") ? 1 : 0;
    EXPECT_EQ(good, 10);
    EXPECT_TRUE(reads("18TXV5050"));  // the first
    EXPECT_FALSE(reads("18TXU5050")); // just below it
}

TEST_F(MgrsTest, RowLettersBeyondTheCycleActAsItsFirst)
{
    const std::string beyond = "WXYZ";
    const std::string first = "ABCD";
    for (std::size_t i = 0; i < 4; ++i) {
        float lon = 0;
        float lat = 0;
        float samelon = 0;
        float samelat = 0;
        const bool read = mgrs2ll(std::string("18TX") + beyond[i] + "5050", lon, lat);
        EXPECT_EQ(read, mgrs2ll(std::string("18TX") + first[i] + "5050", samelon, samelat));
        EXPECT_EQ(lon, samelon);
        EXPECT_EQ(lat, samelat);
    }
}

TEST_F(MgrsTest, AColumnOutsideTheZonesSetFails)
{
    EXPECT_TRUE(reads("18TUF5050"));
    EXPECT_FALSE(reads("18TBF5050"));
    EXPECT_FALSE(reads("18TMF5050"));
}

TEST_F(MgrsTest, AFailureLeavesTheCallersPosition)
{
    float lon = 12;
    float lat = 34;
    EXPECT_FALSE(mgrs2ll("18BXF1234", lon, lat));
    EXPECT_EQ(lon, 12);
    EXPECT_EQ(lat, 34);
}

TEST_F(MgrsTest, ZonesRunFromOneToSixtyOneWithoutExceptions)
{
    EXPECT_EQ(ll2utm(-180, 0.1, geosys).zone, 1);
    EXPECT_EQ(ll2utm(180, 0.1, geosys).zone, 61);
    EXPECT_EQ(ll2utm(5, 60, geosys).zone, 31); // Norway
    EXPECT_EQ(ll2mgrs(0.5, 75).substr(0, 3), "31X");
}

TEST_F(MgrsTest, BandsAreLimitedInTheNorthOnly)
{
    EXPECT_EQ(ll2mgrs(3, 7.99)[2], 'N');
    EXPECT_EQ(ll2mgrs(3, 8)[2], 'P');
    EXPECT_EQ(ll2mgrs(3, 89)[2], 'X');
    EXPECT_EQ(ll2mgrs(3, -80.5)[2], 'B');
    EXPECT_EQ(ll2mgrs(3, -88.5)[2], 'A');
}

TEST_F(MgrsTest, NumbersThatAreNoPositionsGiveATextAllTheSame)
{
    const double odd[] = {0, 90, -90, 360, 1e6, -1e30, 1e300, HUGE_VAL, -HUGE_VAL, std::nan("")};
    for (const double lon : odd)
        for (const double lat : odd)
            EXPECT_GE(ll2mgrs(lon, lat).size(), 13U) << lon << " " << lat;
}

TEST_F(MgrsTest, SystemsWithoutASizeGiveDefinedResults)
{
    const double most = std::numeric_limits<double>::max();
    for (const double a : {0.0, 1.0, -6378137.0, most})
        for (const double b : {0.0, 1.0, -1.0, most}) {
            geosys.a = a;
            geosys.b = b;
            derivegeosys(geosys);
            EXPECT_FALSE(ll2mgrs(-73.5, 45.5).empty());
            float lon = 0;
            float lat = 0;
            if (mgrs2ll("18TXF17193959", lon, lat)) {
                EXPECT_TRUE(std::isfinite(lon) && std::isfinite(lat));
            }
        }
}
