#include "base/parallel.h"
#include "pictures/paint/picturetest.h"
#include "relief/paint/cities.h"
#include "relief/paint/drawmap.h"
#include "relief/picturesettings.h"

#include <QPainter>

#include <set>

namespace
{

class DrawMap : public PictureTest
{
protected:
    static QImage drawn(OpenPicture* picture) { return surfaceimage(picture->surface); }
};

std::set<QRgb> coloursin(const QImage& image, const QRect& part)
{
    std::set<QRgb> found;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            found.insert(image.pixel(x, y));
    return found;
}

} // namespace

TEST_F(DrawMap, MakesAPictureAndTakesTheMapsValues)
{
    mapgrid.record.c2 = 3;
    mapgrid.cities = -1;
    const OpenPicture* picture = drawmap(nullptr, true);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->data.Pictype, pictype::map);
    EXPECT_EQ(picture->data.source, "c:\\cartes\\colline.map");
    EXPECT_EQ(picture->data.lon, mapgrid.maplon);
    EXPECT_EQ(picture->data.lat, mapgrid.maplat);
    EXPECT_EQ(picture->data.Mapmode, 5);
    EXPECT_EQ(picture->data.minx, 100);
    EXPECT_EQ(picture->data.maxx, 500);
    EXPECT_EQ(picture->data.c2, 3);
    EXPECT_EQ(picture->data.city, 255);
    EXPECT_EQ(picture->surface.kept.size(), QSize(60, 40));
    EXPECT_TRUE(picture->surface.over.empty());
    EXPECT_TRUE(picture->enabled);
    EXPECT_EQ(label2, "Complété.");
    EXPECT_EQ(opbusy, 0);
}

TEST_F(DrawMap, TheLastRowAndColumnArePaintedWhateverTheSize)
{
    for (const int side : {1, 2, 255, 256, 257, 258, 512, 513, 514}) {
        makemap(side, side);
        const QImage image = drawn(drawmap(nullptr, true));
        ASSERT_EQ(image.size(), QSize(side, side));
        for (int i = 0; i < side; ++i) {
            ASSERT_NE(image.pixel(i, side - 1), qRgb(255, 255, 255)) << side << " " << i;
            ASSERT_NE(image.pixel(side - 1, i), qRgb(255, 255, 255)) << side << " " << i;
        }
    }
}

TEST_F(DrawMap, ThreadsDontChangeThePicture)
{
    makemap(600, 300);
    setthreads(1);
    const QImage one = drawn(drawmap(nullptr, true));
    setthreads(7);
    EXPECT_EQ(drawn(drawmap(nullptr, true)), one);
    setthreads(0);
}

TEST_F(DrawMap, DrawsIntoAnOpenPictureUnlessANewOneIsWanted)
{
    OpenPicture* picture = openpic("", -1);
    EXPECT_EQ(drawmap(picture, true), picture);
    EXPECT_NE(drawmap(nullptr, true), picture);
    EXPECT_EQ(openpictures.size(), 2U);
}

TEST_F(DrawMap, OtherSettingsLeaveTheMapsOwn)
{
    makemap(700, 300);
    colours.showlegend = 1;
    const MapGrid before = mapgrid;
    const QImage own = drawn(drawmap(nullptr, true));
    PictureSettings settings = settingsof(mapgrid, nullptr);
    settings.record.Mapmode = mapmode::moon;
    settings.record.light = 90;
    settings.cities = -1;
    const OpenPicture* picture = drawmap(nullptr, settings, true);
    EXPECT_EQ(picture->data.Mapmode, mapmode::moon);
    EXPECT_EQ(picture->data.light, 90);
    EXPECT_EQ(picture->data.city, 255);
    EXPECT_EQ(mapgrid.record, before.record);
    EXPECT_EQ(mapgrid.cities, before.cities);
    settings = settingsof(mapgrid, nullptr);
    settings.legend = false;
    EXPECT_NE(drawn(drawmap(nullptr, settings, true)), own) << "without the legend";
    EXPECT_EQ(drawn(drawmap(nullptr, true)), own);
}

TEST_F(DrawMap, TakesTheOverlayOff)
{
    OpenPicture* picture = drawmap(nullptr, true);
    station(1, 7.5F, 44.5F);
    drawstations(0, false);
    EXPECT_FALSE(picture->surface.over.empty());
    drawmap(picture, true);
    EXPECT_TRUE(picture->surface.over.empty());
    EXPECT_FALSE(picture->marks.stations[1].visible);
}

TEST_F(DrawMap, AStopLeavesTheFinishedTilesAndTheOldValues)
{
    makemap(600, 600);
    int steps = 0;
    hooks.pumpevents = [&steps] {
        // One call prepares the operation; then comes one a tile.
        if (++steps == 3)
            opbusy = 0;
    };
    OpenPicture* picture = openpic("", -1);
    drawmap(picture, true);
    EXPECT_EQ(label2, "Arrêté par l'utilisateur.");
    EXPECT_EQ(picture->data.source, "Image utilisateur");
    EXPECT_EQ(picture->surface.over.size(), 2U);
    const QImage image = drawn(picture);
    EXPECT_NE(image.pixel(300, 100), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(100, 300), qRgb(255, 255, 255));
    EXPECT_TRUE(picture->enabled);
}

TEST_F(DrawMap, AStageOfAnotherOperationIsNotKept)
{
    OpenPicture* picture = openpic("", -1);
    drawmap(picture, false);
    EXPECT_EQ(picture->surface.kept.pixel(30, 20), qRgb(255, 255, 255));
    EXPECT_NE(drawn(picture).pixel(30, 20), qRgb(255, 255, 255));
    EXPECT_NE(opbusy, 0);
}

TEST_F(DrawMap, AnEmptyMapDrawsNothing)
{
    mapgrid = {};
    const OpenPicture* picture = drawmap(nullptr, true);
    EXPECT_EQ(picture->surface.kept.size(), QSize(1, 1));
}

TEST_F(DrawMap, TheLegendLiesInTheLowerRightCornerInRainbowModeOnly)
{
    makemap(700, 300);
    const QRect corner(690, 290, 8, 8);
    for (const std::int16_t mode : {std::int16_t{5}, std::int16_t{0}}) {
        mapgrid.record.Mapmode = mode;
        colours.showlegend = 0;
        const QImage without = drawn(drawmap(nullptr, true));
        colours.showlegend = 1;
        const QImage with = drawn(drawmap(nullptr, true));
        EXPECT_EQ(with.copy(corner) != without.copy(corner), mode == 5);
        EXPECT_EQ(with.copy(0, 0, 100, 100), without.copy(0, 0, 100, 100));
    }
}

TEST_F(DrawMap, LegendSwatchesShowTheColoursOfLevelGround)
{
    makemap(700, 300);
    colours.showlegend = 1;
    for (const std::int16_t stratified : {std::int16_t{0}, std::int16_t{1}}) {
        colours.stratified = stratified;
        const QImage image = drawn(drawmap(nullptr, true));
        const QImage legend = image.copy(250, 250, 450, 50);
        EXPECT_TRUE(coloursin(legend, legend.rect()).contains(qRgb(200, 200, 200)));
        // The last swatch: white, as level ground shows it, or under the whole light.
        const int white = stratified != 0 ? 250 : 214; // 1.2 x 70 percent
        const QRect lastswatch(425, 42, 18, 2);
        int brightest = 0;
        for (const QRgb colour : coloursin(legend, lastswatch))
            brightest = std::max(brightest, qRed(colour));
        EXPECT_NEAR(brightest, white, stratified != 0 ? 5 : 0);
    }
}

TEST_F(DrawMap, CitiesAreDrawnFromTheGazetteer)
{
    makemap(300, 200);
    const QImage without = drawn(drawmap(nullptr, true));
    ASSERT_TRUE(writefile(path("cities.dat"), "header\r\n"
                                              "\"FF\",44.5,-7.75,\"\"\r\n"
                                              "\"FF\",44.5\r\n"
                                              "\"FF\",10,10,\"Loin\"\r\n"));
    mapgrid.cities = -1;
    const QImage with = drawn(drawmap(nullptr, true));
    // 7.75 E, 44.5 N is the middle of the picture; the cross reaches two pixels from it.
    for (int i = -2; i <= 2; ++i) {
        EXPECT_EQ(with.pixel(150 + i, 100), qRgb(255, 0, 0));
        EXPECT_EQ(with.pixel(150, 100 + i), qRgb(255, 0, 0));
    }
    EXPECT_EQ(with.pixel(153, 100), without.pixel(153, 100));
    EXPECT_EQ(with.copy(0, 0, 140, 200), without.copy(0, 0, 140, 200));
}

TEST_F(DrawMap, ALabelMayHaveABoxOfItsOwnColour)
{
    makemap(300, 200);
    OpenPicture* picture = drawmap(nullptr, true);
    ASSERT_TRUE(writefile(path("labels.dat"), "header\r\nFFFFFF,44.5,7.75,Nom,4,FF0000\r\n"));
    drawcities(*picture, true, path("labels.dat"));
    EXPECT_TRUE(coloursin(picture->surface.kept, QRect(130, 90, 40, 20)).contains(qRgb(0, 0, 255)));
}

TEST_F(DrawMap, CountsItsTiles)
{
    makemap(1024, 768);
    const Job job = drawmapjob(mapgrid);
    EXPECT_EQ(job.number, 1);
    EXPECT_STREQ(job.text, "Dessin de l'image 2D...");
    EXPECT_EQ(job.total, 12);
    EXPECT_TRUE(job.erasesnets);
    optiles = 3;
    EXPECT_EQ(job.value(2560), 13);
}

TEST_F(DrawMap, APictureClosedBeforeTheFirstTileEndsTheDrawing)
{
    OpenPicture* picture = drawmap(nullptr, true);
    bool busy = false;
    hooks.setbusyinterface = [&busy](bool on) { busy = on; };
    hooks.pumpevents = [] {
        if (!openpictures.empty() && opbusy == 0)
            closepicture(*openpictures.back());
    };
    EXPECT_EQ(drawmap(picture, true), nullptr);
    EXPECT_TRUE(openpictures.empty());
    EXPECT_EQ(currentpic, nullptr);
    EXPECT_EQ(opbusy, 0);
    EXPECT_FALSE(busy);
}
