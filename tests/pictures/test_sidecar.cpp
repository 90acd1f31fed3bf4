#include "pictures/sidecar.h"

#include <gmock/gmock.h>

using testing::Each;
using testing::ElementsAre;

namespace
{

Picture mappicture()
{
    Picture picture;
    picture.Pictype = pictype::map;
    picture.lon = {-73.5F, -72.25F, -72.25F, -73.5F};
    picture.lat = {46, 46, 45.125F, 45.125F};
    picture.source = "c:\\cartes\\québec.map";
    picture.Mapmode = 5;
    picture.maxx = 1234.5F;
    picture.minx = -3;
    picture.light = 335;
    picture.con = 30;
    picture.bri = 70;
    picture.c1 = 1;
    picture.c2 = 3;
    picture.city = 255;
    picture.hmin = -3;
    picture.hmax = 1234;
    picture.hmoy = 0.146F;
    return picture;
}

constexpr const char* maptext =
    "1\r\n-73.5,46\r\n-72.25,46\r\n-72.25,45.125\r\n-73.5,45.125\r\n"
    "c:\\cartes\\qu\xE9"
    "bec.map\r\n5\r\n1234.5\r\n-3\r\n335\r\n30\r\n70\r\n1\r\n3\r\n255\r\n"
    "-3\r\n1234\r\n0.146\r\n";

Picture parsed(std::string_view text)
{
    Picture picture;
    parsesidecar(text, picture);
    return picture;
}

} // namespace

TEST(Sidecar, AMapsTextIsExact)
{
    EXPECT_EQ(sidecartext(mappicture()), maptext);
}

TEST(Sidecar, AMapsTextReadsBack)
{
    const Picture picture = parsed(maptext);
    EXPECT_EQ(sidecartext(picture), maptext);
    EXPECT_EQ(picture.source, "c:\\cartes\\québec.map");
    EXPECT_EQ(picture.maxx, 1234.5F); // the ceiling stands before the floor
    EXPECT_EQ(picture.minx, -3);
    EXPECT_EQ(picture.city, 255);
}

TEST(Sidecar, OtherKindsEndAfterTheSource)
{
    Picture picture = mappicture();
    for (const std::int16_t kind : {pictype::plain, pictype::fourcorners, pictype::observation}) {
        picture.Pictype = kind;
        const std::string text = sidecartext(picture);
        EXPECT_TRUE(text.ends_with("bec.map\r\n")) << text;
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 6);
    }
}

TEST(Sidecar, A3DPictureHasElevenValuesAndReadsWithoutAnError)
{
    Picture picture = mappicture();
    picture.Pictype = pictype::view3d;
    for (std::size_t i = 0; i < picture.view.size(); ++i)
        picture.view[i] = static_cast<float>(i) + 0.5F;
    const std::string text = sidecartext(picture);
    EXPECT_TRUE(text.ends_with("\r\n0.5\r\n1.5\r\n2.5\r\n3.5\r\n4.5\r\n5.5\r\n6.5\r\n7.5\r\n8.5\r\n"
                               "9.5\r\n10.5\r\n"));
    EXPECT_EQ(parsed(text).view, picture.view);
}

TEST(Sidecar, NumbersNeverHaveAnExponent)
{
    Picture picture;
    picture.Pictype = pictype::fourcorners;
    picture.lon = {0.0000015F, 12345678, -0.1F, 100};
    EXPECT_TRUE(
        sidecartext(picture).starts_with("2\r\n0.0000015,0\r\n12345678,0\r\n-0.1,0\r\n100,0\r\n"));
}

TEST(Sidecar, ALoneOneIsAMapWithAllCornersZero)
{
    const Picture picture = parsed("1");
    EXPECT_EQ(picture.Pictype, pictype::map);
    EXPECT_THAT(picture.lon, Each(0));
    EXPECT_THAT(picture.lat, Each(0));
}

TEST(Sidecar, WhatStandsBeforeAnErrorHolds)
{
    const Picture picture = parsed("1\r\n-73.5,46\r\n-72.25,north\r\n1,1\r\n1,1\r\nsource\r\n");
    EXPECT_THAT(picture.lon, ElementsAre(-73.5F, -72.25F, 0, 0));
    EXPECT_THAT(picture.lat, ElementsAre(46, 0, 0, 0));
    EXPECT_EQ(picture.source, "");
    const Picture shortvalues = parsed("1\r\n1,2\r\n3,4\r\n5,6\r\n7,8\r\nx\r\n3\r\n900\r\n");
    EXPECT_EQ(shortvalues.Mapmode, 3);
    EXPECT_EQ(shortvalues.maxx, 900);
    EXPECT_EQ(shortvalues.hmoy, 0);
}

TEST(Sidecar, TheFirstLineCountsByItsLeadingNumber)
{
    EXPECT_EQ(parsed("2 corners\r\n").Pictype, 2);
    EXPECT_EQ(parsed("words\r\n").Pictype, 0);
    EXPECT_EQ(parsed("99999999\r\n").Pictype, 0);
    EXPECT_EQ(parsed("").Pictype, 0);
}

TEST(Sidecar, LinesMayEndInALineFeedOnly)
{
    const Picture picture = parsed("2\n1,2\n3,4\n5,6\n7,8\nsource, with comma\n");
    EXPECT_THAT(picture.lat, ElementsAre(2, 4, 6, 8));
    EXPECT_EQ(picture.source, "source, with comma");
}

TEST(Sidecar, ValuesBeyondTheirFieldLeaveIt)
{
    const Picture picture =
        parsed("1\r\n1,2\r\n3,4\r\n5,6\r\n7,8\r\nx\r\n5\r\n1\r\n1\r\n1\r\n1\r\n1\r\n"
               "300\r\n-1\r\n1e30\r\n0\r\n0\r\n0\r\n");
    EXPECT_EQ(picture.c1, 0);
    EXPECT_EQ(picture.c2, 0);
    EXPECT_EQ(picture.city, 0);
}

TEST(OlderSidecar, TwoCornersWithWestPositiveMakeFour)
{
    Picture picture;
    parseadr("Carte 31H\r\n73.5,46\r\n-2,45\r\n", picture);
    EXPECT_EQ(picture.Pictype, pictype::fourcorners);
    EXPECT_EQ(picture.source, "Carte 31H");
    EXPECT_THAT(picture.lon, ElementsAre(-73.5F, 2, 2, -73.5F));
    EXPECT_THAT(picture.lat, ElementsAre(46, 46, 45, 45));
}

TEST(OlderSidecar, AnErrorEndsTheReading)
{
    Picture picture;
    parseadr("Carte\r\n73.5,46\r\n", picture);
    EXPECT_THAT(picture.lon, ElementsAre(-73.5F, 0, 0, 0));
    EXPECT_THAT(picture.lat, ElementsAre(46, 0, 0, 0));
}

TEST(Companion, ReplacesTheLastThreeCharacters)
{
    EXPECT_EQ(companion("c:\\a.b\\carte.bmp", "dat"), "c:\\a.b\\carte.dat");
    EXPECT_EQ(companion("xy", "dat"), "dat");
}
