#include "base/paths.h"
#include "coordinates/geosys.h"
#include "support/tempfolder.h"

#include <gtest/gtest.h>

class GeosysTest : public testing::Test
{
protected:
    void SetUp() override { setprogramfolder(disk.path()); }
    void TearDown() override
    {
        setprogramfolder("");
        setgeosys("");
    }
    TempFolder disk;
};

static void expectdefaults()
{
    EXPECT_EQ(geosys.name, "");
    EXPECT_EQ(geosys.a, 6378137);
    EXPECT_EQ(geosys.b, 6356752.314);
    EXPECT_EQ(geosys.rowshift, 10);
}

TEST_F(GeosysTest, WithoutAFileTheDefaultsHold)
{
    setgeosys("geosys.dat");
    expectdefaults();
    setgeosys("");
    expectdefaults();
}

TEST_F(GeosysTest, TheSeriesIsDerivedFromTheAxes)
{
    setgeosys("");
    EXPECT_NEAR(geosys.e2, 0.00669438, 1e-8);
    EXPECT_NEAR(geosys.ep2, 0.00673950, 1e-8);
    EXPECT_NEAR(geosys.n, 0.00167922, 1e-8);
    EXPECT_NEAR(geosys.arcA, 6367449.146, 0.001);
    EXPECT_NEAR(geosys.arcB, 16038.50885, 0.001);
    EXPECT_NEAR(geosys.arcC, 16.83261, 1e-4);
    EXPECT_NEAR(geosys.arcD, 0.021984, 1e-5);
    const double n4 = geosys.n * geosys.n * geosys.n * geosys.n;
    EXPECT_DOUBLE_EQ(geosys.arcE, 315.0 / 51 * geosys.a * (n4 - n4 * geosys.n));
}

TEST_F(GeosysTest, ACompleteFileIsOneLine)
{
    disk.makefile("geosys.dat", "\"Clarke 1866\",6378206.4,6356583.8,0\r\n");
    setgeosys("geosys.dat");
    EXPECT_EQ(geosys.name, "Clarke 1866");
    EXPECT_EQ(geosys.a, 6378206.4);
    EXPECT_EQ(geosys.b, 6356583.8);
    EXPECT_EQ(geosys.rowshift, 0);
    EXPECT_NEAR(geosys.e2, 0.00676866, 1e-8);
}

TEST_F(GeosysTest, ValuesMayStandOnLinesOfTheirOwnAndTheFileInOtherCase)
{
    disk.makefile("GEOSYS.DAT", " \"Europe, 1950\" \n 6378388 \r\n6356911.946\r10");
    setgeosys("geosys.dat");
    EXPECT_EQ(geosys.name, "Europe, 1950");
    EXPECT_EQ(geosys.a, 6378388);
    EXPECT_EQ(geosys.b, 6356911.946);
    EXPECT_EQ(geosys.rowshift, 10);
}

TEST_F(GeosysTest, WhatWasReadStandsWhereTheFileEndsEarly)
{
    disk.makefile("geosys.dat", "\"Local\",6378000");
    setgeosys("geosys.dat");
    EXPECT_EQ(geosys.name, "Local");
    EXPECT_EQ(geosys.a, 6378000);
    EXPECT_EQ(geosys.b, 6356752.314);
    EXPECT_EQ(geosys.rowshift, 10);
    disk.makefile("geosys.dat", "");
    setgeosys("geosys.dat"); // a file edited between two networks takes effect
    expectdefaults();
}

TEST_F(GeosysTest, AValueThatIsNoNumberEndsTheReading)
{
    GeodeticSystem system;
    EXPECT_FALSE(parsegeosys("name,long,6356583.8,3", system));
    EXPECT_EQ(system.name, "name");
    EXPECT_EQ(system.a, 6378137);
    EXPECT_EQ(system.b, 6356752.314);
    EXPECT_FALSE(parsegeosys("name,1,2,70000", system));
    EXPECT_EQ(system.rowshift, 10);
    EXPECT_FALSE(parsegeosys("name,1,inf,0", system));
    EXPECT_FALSE(parsegeosys("\"never closed", system));
    EXPECT_EQ(system.name, "never closed");
}

TEST_F(GeosysTest, AnEmptyNameIsLegal)
{
    GeodeticSystem system;
    system.name = "before";
    EXPECT_TRUE(parsegeosys("\"\",6378137,6356752.314,10", system));
    EXPECT_EQ(system.name, "");
    EXPECT_TRUE(parsegeosys(",6378137,6356752.314,10", system));
    EXPECT_EQ(system.name, "");
}

TEST_F(GeosysTest, TheNameIsInTheCodePageOfFiles)
{
    GeodeticSystem system;
    parsegeosys("\"Syst\xE8me\"", system);
    EXPECT_EQ(system.name, "Système");
}

TEST_F(GeosysTest, AxesWithoutASizeLeaveTheSeriesAsItWas)
{
    setgeosys("");
    const GeodeticSystem before = geosys;
    disk.makefile("geosys.dat", "nothing,0,0,10");
    setgeosys("geosys.dat");
    EXPECT_EQ(geosys.a, 0);
    EXPECT_EQ(geosys.arcA, before.arcA);
    EXPECT_EQ(geosys.e2, before.e2);
}
