#include "pictures/paint/picturetest.h"
#include "relief/paint/cities.h"

#include <QColor>

#include <fstream>

/// A white map picture, 300 x 200 pixels over 7 to 8.5 E and 44 to 45 N.
class DrawCities : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        picture = openpic("", -1);
        resizepicture(*picture, 301, 201);
        picture->surface.kept.fill(Qt::white);
        picture->data.lon = mapgrid.maplon;
        picture->data.lat = mapgrid.maplat;
    }

    void write(const char* name, const std::string& lines) const
    {
        std::ofstream(folder + name, std::ios::binary) << "titre\r\n" << lines;
    }
    QColor at(int x, int y) const { return picture->surface.kept.pixelColor(x, y); }
    /// Bounds of all that isn't white.
    QRect painted() const
    {
        QRect bounds;
        for (int y = 0; y < 201; ++y)
            for (int x = 0; x < 301; ++x)
                if (at(x, y) != QColor(Qt::white))
                    bounds |= QRect(x, y, 1, 1);
        return bounds;
    }

    OpenPicture* picture = nullptr;
};

TEST_F(DrawCities, ACrossStandsOnThePoint)
{
    write("cities.dat", "FF,44.5,-7.75,\r\n"); // red, at the middle of the picture
    drawcities(*picture, true, "cities.dat");
    EXPECT_EQ(painted(), QRect(148, 98, 5, 5));
    for (int i = -2; i <= 2; ++i) {
        EXPECT_EQ(at(150 + i, 100), QColor(255, 0, 0));
        EXPECT_EQ(at(150, 100 + i), QColor(255, 0, 0));
    }
    EXPECT_EQ(at(149, 99), QColor(Qt::white));
}

TEST_F(DrawCities, OtherFilesCountLongitudesToTheEast)
{
    write("noms.dat", "0,44.5,7.75,\r\n");
    drawcities(*picture, true, folder + "noms.dat");
    EXPECT_EQ(at(150, 100), QColor(Qt::black));
}

TEST_F(DrawCities, ThePlacementPutsTheNameRoundThePoint)
{
    const auto boundsof = [this](const char* code) {
        picture->surface.kept.fill(Qt::white);
        write("noms.dat", std::string("0,44.5,7.75,Nom,") + code + ",C0C0C0\r\n");
        drawcities(*picture, true, folder + "noms.dat");
        return painted();
    };
    const QRect right = boundsof("0");
    EXPECT_GT(right.right(), 155);
    EXPECT_GT(right.bottom(), 105);
    const QRect above = boundsof("1");
    EXPECT_GT(above.right(), 155);
    EXPECT_LT(above.top(), 95);
    EXPECT_EQ(above.bottom(), 102) << "the cross";
    const QRect aboveleft = boundsof("2");
    EXPECT_LT(aboveleft.left(), 145);
    EXPECT_LT(aboveleft.top(), 95);
    const QRect left = boundsof("3");
    EXPECT_LT(left.left(), 145);
    EXPECT_GT(left.bottom(), 105);
    EXPECT_EQ(left.right(), 152);
    const QRect centred = boundsof("4");
    EXPECT_NEAR(centred.center().x(), 150, 1);
    EXPECT_NEAR(centred.center().y(), 100, 1);
}

TEST_F(DrawCities, TheBoxIsTheComplementUnlessLabelsAreTransparent)
{
    write("cities.dat", "FFFFFF,44.5,-7.75,Nom\r\n"); // white on black
    session.drawtransparent = false;
    drawcities(*picture, true, "cities.dat");
    EXPECT_EQ(at(151, 101), QColor(Qt::black));
    picture->surface.kept.fill(Qt::white);
    session.drawtransparent = true;
    drawcities(*picture, true, "cities.dat");
    EXPECT_TRUE(painted().isEmpty());
}

TEST_F(DrawCities, AnOwnBoxIsDrawnOnTransparentLabelsToo)
{
    session.drawtransparent = true;
    write("noms.dat", "0,44.5,7.75,Nom,0,FF8000\r\n");
    drawcities(*picture, true, folder + "noms.dat");
    EXPECT_EQ(at(151, 101), QColor(0, 0x80, 0xFF));
}

TEST_F(DrawCities, PlacesOutsideThePictureAndShortLinesAreLeftOut)
{
    write("cities.dat", "0,44.5,-9,Dehors\r\n0,46,-7.75,Dehors\r\n0,44.5,-7.75\r\n");
    drawcities(*picture, true, "cities.dat");
    EXPECT_TRUE(painted().isEmpty());
}

TEST_F(DrawCities, WithoutCommitTheNamesCanBeTakenOff)
{
    write("cities.dat", "0,44.5,-7.75,Nom\r\n");
    drawcities(*picture, false, "cities.dat");
    EXPECT_TRUE(painted().isEmpty());
    EXPECT_EQ(surfaceimage(picture->surface).pixelColor(150, 100), QColor(Qt::black));
    erase(picture->surface);
    EXPECT_EQ(surfaceimage(picture->surface).pixelColor(150, 100), QColor(Qt::white));
}

TEST_F(DrawCities, AMissingFileDrawsNothing)
{
    drawcities(*picture, true, "cities.dat");
    EXPECT_TRUE(painted().isEmpty());
}

TEST_F(DrawCities, DrawmapShowsThemWhenTheMapSaysSo)
{
    write("cities.dat", "0,44.5,-7.75,\r\n");
    mapgrid.cities = -1;
    drawmap(picture, true);
    EXPECT_EQ(picture->data.city, 255);
    float lonstep = 1.5F / 59;
    const int x = static_cast<int>(std::lround(0.75F / lonstep));
    EXPECT_EQ(picture->surface.kept.width(), 60);
    EXPECT_EQ(picture->surface.kept.pixelColor(x, 20), QColor(Qt::black));
}
