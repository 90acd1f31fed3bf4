#include "base/settings.h"
#include "coverage/choice.h"
#include "network/unsaved.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(CoverageParameters, AreHeldWithinTheirFields)
{
    CoverageParams params;
    params.azmin = 400;
    params.azmax = -5;
    params.azstep = 0;
    params.antazimuth = 360;
    params.rangemax = 5000;
    params.rangemin = 0;
    params.sensorheight = 0;
    params.targetheight = 10000;
    const CoverageParams held = heldparams(params);
    EXPECT_EQ(held.azmin, 359.9F);
    EXPECT_EQ(held.azmax, 359.9F);
    EXPECT_EQ(held.azstep, 0.1F);
    EXPECT_EQ(held.antazimuth, 360);
    EXPECT_EQ(held.rangemax, 1000);
    EXPECT_EQ(held.sensorheight, 0.1F);
    EXPECT_EQ(held.targetheight, 9999);
    EXPECT_EQ(shownparams(params).azmin, 359);
    EXPECT_EQ(shownparams(params).azmax, 359);
    EXPECT_EQ(shownparams(params).antazimuth, 359.99F);
    EXPECT_EQ(held.rangemin, 0.1F);
    EXPECT_EQ(heldparams(CoverageParams()).azmax, 360);
}

TEST(CoverageParameters, ThatAreNoNumbersBecomeBounds)
{
    CoverageParams params;
    params.azmin = params.azmax = params.azstep = params.rangemax = params.rangemin = NAN;
    const CoverageParams held = heldparams(params);
    EXPECT_EQ(held.azmin, 0);
    EXPECT_EQ(held.azmax, 0);
    EXPECT_EQ(held.azstep, 0.1F);
    EXPECT_EQ(held.rangemax, 1);
    EXPECT_EQ(held.rangemin, 0.1F);
}

TEST(CoverageParameters, CountAsEditedOnlyWhenTheyDifferFromThoseShown)
{
    network.coverage = {};
    marksaved();
    CoverageParams params = shownparams(network.coverage); // the least range is shown as 0.1
    params.antfile.assign("omni.ant");                     // what an empty name stands for
    storeparams(params);
    EXPECT_FALSE(netedited);
    params.azmax = 400;
    storeparams(params);
    EXPECT_EQ(network.coverage.azmax, 360);
    EXPECT_FALSE(netedited) << "360 is what it was";
    params.azmax = 90;
    storeparams(params);
    EXPECT_TRUE(netedited);
    network.coverage = {};
    marksaved();
}

TEST(CoverageSettings, OutliveARun)
{
    resetsettings();
    CoverageChoice choice;
    choice.covdir = 1;
    choice.covuselink = 1;
    choice.covindex = 3;
    choice.levels = {-95.5F, -60};
    savecoveragesettings(choice);
    CoverageChoice next;
    readcoveragesettings(next);
    EXPECT_EQ(next.covdir, 1);
    EXPECT_EQ(next.covuselink, 1);
    EXPECT_EQ(next.covindex, 3);
    EXPECT_EQ(next.levels, (Levels{-95.5F, -60}));
    resetsettings();
    readcoveragesettings(next);
    EXPECT_EQ(next.covdir, 0);
    EXPECT_EQ(next.levels, (Levels{-107, -67}));
}

TEST(CoverageOrder, FollowsParametersAndChoice)
{
    CoverageParams params;
    params.azmin = 10;
    params.rangemin = 2;
    params.unit = 2;
    params.surfacecolour = 0;
    params.drawcurve = -1;
    params.antazimuth = 45;
    CoverageChoice choice;
    Selection pair;
    pair.linkunit1 = 7;
    pair.linkunit2 = 9;
    pair.linknet = 3;
    choice.covdir = 1;
    const CoverageOrder order = coverageorder(params, choice, pair);
    EXPECT_EQ(order.centre, 7);
    EXPECT_EQ(order.mobile, 9);
    EXPECT_EQ(order.net, 3);
    EXPECT_TRUE(order.mobiletransmits);
    EXPECT_EQ(order.bounds.azmin, 10);
    EXPECT_EQ(order.bounds.rmin, 2);
    EXPECT_EQ(order.unit, LevelUnit::microvolt);
    EXPECT_TRUE(order.rainbow);
    EXPECT_TRUE(order.curve);
    EXPECT_TRUE(order.surface);
    EXPECT_EQ(order.antaz, 45);
    EXPECT_EQ(order.pattern[17], 0);
}
