#include "gis/module/units.h"

#include <gtest/gtest.h>

TEST(Units, AreKnownByAnyCommonSpelling)
{
    for (const char* name : {"m", "M", "metre", "Meters", "METRES", "", "unknown", " metre "})
        EXPECT_EQ(metresof(name), 1) << name;
    for (const char* name : {"ft", "FT", "Feet", "foot", "feet", "Foot (International)",
                             "international_foot", "International Feet"})
        EXPECT_EQ(metresof(name), 0.3048) << name;
    for (const char* name : {"us-ft", "ftUS", "ft-us", "US survey foot", "US survey feet",
                             "US_survey_foot", "us_survey_feet", "Foot_US", "U.S. survey foot"})
        EXPECT_EQ(metresof(name), 1200.0 / 3937) << name;
    EXPECT_EQ(metresof("cm"), 0.01);
    EXPECT_EQ(metresof("Centimetres"), 0.01);
    EXPECT_EQ(metresof("dm"), 0.1);
    EXPECT_EQ(metresof("decimeter"), 0.1);
    EXPECT_EQ(metresof("km"), 1000);
    EXPECT_EQ(metresof("0.1 m"), 0.1);
    EXPECT_EQ(metresof("10 cm"), 0.1);
    EXPECT_EQ(metresof("fathoms"), 6 * 0.3048);
    EXPECT_EQ(metresof("inches"), 0.0254);
}

TEST(Units, AreRefusedWhenUnknown)
{
    for (const char* name : {"furlong", "K", "degrees", "m/s", "m2", "s", "0.1", "%", "-3 m"})
        EXPECT_FALSE(metresof(name)) << name;
}
