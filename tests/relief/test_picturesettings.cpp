#include "relief/picturesettings.h"

#include <gmock/gmock.h>

class PictureSettingsTest : public testing::Test
{
protected:
    PictureSettingsTest()
    {
        allocatemap(map, 301, 201);
        map.maplon = {-74, -72, -72, -74};
        map.maplat = {46, 46, 45, 45};
        map.record.minx = 10;
        map.record.hmin = 1.25F;
        map.record.hmax = 900;
        map.record.hmoy = 300.05F;
        map.cities = -1;
        mapname = "/cartes/essai.map";

        picture.Pictype = pictype::map;
        picture.source = mapname;
        picture.Filename = "/images/essai.bmp";
        picture.lon = map.maplon;
        picture.lat = map.maplat;
        picture.scalewidth = 301;
        picture.scaleheight = 201;
        picture.Mapmode = 3;
        picture.minx = -20;
        picture.maxx = 1200;
        picture.light = 45;
        picture.con = 12;
        picture.bri = 34;
        picture.c1 = 1;
        picture.c2 = 3;
        picture.hmin = -5;
        picture.hmax = 1100;
        picture.hmoy = 250;
    }

    MapGrid map;
    Picture picture;
};

TEST_F(PictureSettingsTest, APictureShowsWhatItWasDrawnWith)
{
    const PictureSettings settings = settingsof(map, &picture);
    EXPECT_EQ(settings.record.Mapmode, 3);
    EXPECT_EQ(settings.record.minx, -20);
    EXPECT_EQ(settings.record.maxx, 1200);
    EXPECT_EQ(settings.record.light, 45);
    EXPECT_EQ(settings.record.con, 12);
    EXPECT_EQ(settings.record.bri, 34);
    EXPECT_EQ(settings.record.c1, 1);
    EXPECT_EQ(settings.record.c2, 3);
    EXPECT_EQ(settings.record.hmin, -5);
    EXPECT_EQ(settings.record.hmax, 1100);
    EXPECT_EQ(settings.record.hmoy, 250);
    EXPECT_EQ(settings.cities, 0);
    EXPECT_EQ(settings.record.maplon0, map.record.maplon0);
}

TEST_F(PictureSettingsTest, APictureWithCitiesSetsTheFlag)
{
    picture.city = 255;
    map.cities = 0;
    EXPECT_EQ(settingsof(map, &picture).cities, -1);
}

TEST_F(PictureSettingsTest, APictureWithoutReliefShowsTheMapsSettings)
{
    picture.hmax = picture.hmin;
    const PictureSettings settings = settingsof(map, &picture);
    EXPECT_EQ(settings.record, map.record);
    EXPECT_EQ(settings.cities, -1);
}

TEST_F(PictureSettingsTest, ANewPictureStartsWithTheMapsSettings)
{
    EXPECT_EQ(settingsof(map, nullptr).record, map.record);
}

TEST_F(PictureSettingsTest, ApplyingMakesThemTheMapsOwn)
{
    applysettings(settingsof(map, &picture), map);
    EXPECT_EQ(map.record.Mapmode, 3);
    EXPECT_EQ(map.record.hmax, 1100);
    EXPECT_EQ(map.cities, 0);
}

TEST_F(PictureSettingsTest, APictureOfTheMapInMemoryCorresponds)
{
    EXPECT_TRUE(corresponds(picture, map));
}

TEST_F(PictureSettingsTest, AnotherFrameKindOrSizeDoesNotCorrespond)
{
    const auto differs = [this](auto change) {
        Picture other = picture;
        change(other);
        return !corresponds(other, map);
    };
    EXPECT_TRUE(differs([](Picture& p) { p.Pictype = pictype::fourcorners; }));
    EXPECT_TRUE(differs([](Picture& p) { p.lon[0] += 0.001F; }));
    EXPECT_TRUE(differs([](Picture& p) { p.lon[2] -= 0.001F; }));
    EXPECT_TRUE(differs([](Picture& p) { p.lat[0] += 0.001F; }));
    EXPECT_TRUE(differs([](Picture& p) { p.lat[2] += 0.001F; }));
    EXPECT_TRUE(differs([](Picture& p) { p.source = "Stereo de essai"; }));
    EXPECT_TRUE(differs([](Picture& p) { p.source = "Mappemonde"; }));
    EXPECT_TRUE(differs([](Picture& p) { p.scalewidth = 302; }));
    EXPECT_TRUE(differs([](Picture& p) { p.scaleheight = 198; }));
}

TEST_F(PictureSettingsTest, ASizeOneLessThanTheLastIndexStillCorresponds)
{
    picture.scalewidth = 299;
    picture.scaleheight = 199;
    EXPECT_TRUE(corresponds(picture, map));
    picture.scalewidth = 298;
    EXPECT_FALSE(corresponds(picture, map));
}

TEST_F(PictureSettingsTest, TheTitleNamesThePicture)
{
    EXPECT_EQ(settingstitle(&picture), "Propriétés de ..\\essai.bmp");
    EXPECT_EQ(settingstitle(nullptr), "Propriétés de la nouvelle image");
}

TEST_F(PictureSettingsTest, TheTextTellsOriginHeightsAndFolder)
{
    EXPECT_EQ(settingsinfo(settingsof(map, &picture), &picture, map),
              "Source des données d'altitude: /cartes/essai.map\n"
              "Statistiques: \n"
              "Minimum -5.0 m - Maximum 1100.0 m - Moyenne 250.0 m\n"
              "Corresponds aux données d'altitude en mémoire\n"
              "Répertoire: /images/");
    picture.lon[0] = 0;
    EXPECT_THAT(settingsinfo(settingsof(map, &picture), &picture, map),
                testing::HasSubstr("\nNe corresponds pas aux données d'altitude en mémoire\n"));
}

TEST_F(PictureSettingsTest, TheTextOfANewPictureIsAboutTheMap)
{
    EXPECT_EQ(settingsinfo(settingsof(map, nullptr), nullptr, map),
              "Source des données d'altitude: /cartes/essai.map\n"
              "Statistiques: \n"
              "Minimum 1.2 m - Maximum 900.0 m - Moyenne 300.0 m\n"
              "Corresponds aux données d'altitude en mémoire\n"
              "Répertoire: ");
}
