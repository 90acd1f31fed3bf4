#include "pictures/georeference.h"
#include "pictures/paint/picturetest.h"
#include "pictures/paint/zoom.h"
#include "relief/paint/drawmap.h"

namespace
{

class Zoom : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        makemap(301, 201);
        parent = drawmap(nullptr, true);
        hooks.screensize = [] { return std::pair(1000, 800); };
    }

    OpenPicture* parent = nullptr;
};

} // namespace

TEST_F(Zoom, FitsTheScreenAndKeepsTheShape)
{
    const QSize screen(1000, 800);
    EXPECT_EQ(zoomsize(QSize(100, 50), screen), QSize(950, 475));
    EXPECT_EQ(zoomsize(QSize(50, 100), screen), QSize(380, 760));
    EXPECT_EQ(zoomsize(QSize(100, 80), screen), QSize(950, 760)); // the screen's own shape
    EXPECT_EQ(zoomsize(QSize(4, 30000), screen), QSize(1, 760));
}

TEST_F(Zoom, IsAPictureOfFourCornersThatNamesItsParent)
{
    const OpenPicture* zoom = zoompicture(*parent, QRect(100, 50, 80, 40));
    EXPECT_EQ(currentpic, zoom);
    EXPECT_EQ(zoom->data.Pictype, pictype::fourcorners);
    EXPECT_EQ(zoom->data.source, "Zoom de " + parent->data.source);
    EXPECT_EQ(zoom->data.Filename, "Image2.bmp");
    EXPECT_EQ(zoom->surface.kept.size(), QSize(950, 475));
    EXPECT_EQ(zoom->data.scalewidth, 950);
}

TEST_F(Zoom, ItsCornersAreTheSelectionsOutermostPixels)
{
    const OpenPicture* zoom = zoompicture(*parent, QRect(100, 50, 80, 40));
    const std::array<QPoint, 4> corners{QPoint(100, 50), QPoint(179, 50), QPoint(179, 89),
                                        QPoint(100, 89)};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        float lon = 0;
        float lat = 0;
        ASSERT_TRUE(pic2ll(parent->data, static_cast<float>(corners[i].x()),
                           static_cast<float>(corners[i].y()), lon, lat));
        EXPECT_EQ(zoom->data.lon[i], lon);
        EXPECT_EQ(zoom->data.lat[i], lat);
    }
}

TEST_F(Zoom, ShowsEachPixelWhereItsPositionLies)
{
    parent->surface.kept.fill(Qt::black);
    parent->surface.kept.setPixelColor(130, 70, Qt::white);
    const OpenPicture* zoom = zoompicture(*parent, QRect(100, 50, 80, 40));
    float lon = 0;
    float lat = 0;
    float x = 0;
    float y = 0;
    pic2ll(parent->data, 130, 70, lon, lat);
    ASSERT_TRUE(ll2pic(zoom->data, lon, lat, x, y));
    const QPoint at(static_cast<int>(x), static_cast<int>(y));
    const int brightest = qGray(zoom->surface.kept.pixel(at));
    EXPECT_GT(brightest, 230);
    EXPECT_EQ(zoom->surface.kept.pixel(at - QPoint(13, 0)), qRgb(0, 0, 0));
    EXPECT_EQ(zoom->surface.kept.pixel(at + QPoint(0, 13)), qRgb(0, 0, 0));
}

TEST_F(Zoom, AZoomOfAZoomAgreesWithTheMap)
{
    OpenPicture* first = zoompicture(*parent, QRect(40, 30, 200, 120));
    const OpenPicture* second = zoompicture(*first, QRect(300, 100, 333, 77));
    float lon = 0;
    float lat = 0;
    float x = 0;
    float y = 0;
    for (const float share : {0.1F, 0.5F, 0.9F}) {
        ASSERT_TRUE(pic2ll(second->data, share * 900, share * 200, lon, lat));
        ASSERT_TRUE(ll2pic(first->data, lon, lat, x, y));
        EXPECT_NEAR(x, 300 + share * 900 / 949 * 332, 0.6);
    }
}

TEST_F(Zoom, ASelectionLargerThanTheScreenIsMadeSmaller)
{
    hooks.screensize = [] { return std::pair(100, 80); };
    parent->surface.kept.fill(Qt::darkCyan);
    const OpenPicture* zoom = zoompicture(*parent, QRect(0, 0, 301, 201));
    EXPECT_EQ(zoom->surface.kept.size(), QSize(95, 63));
    EXPECT_EQ(zoom->surface.kept.pixelColor(50, 30), QColor(Qt::darkCyan));
}

TEST_F(Zoom, StationsAndLinksAreDrawnAnewOverIt)
{
    station(1, 7.6F, 44.7F, "Relais");
    const OpenPicture* plain = zoompicture(*parent, QRect(100, 50, 80, 40));
    EXPECT_TRUE(plain->surface.over.empty());
    drawstations(0, false);
    const OpenPicture* zoom = zoompicture(*parent, QRect(100, 50, 80, 40));
    EXPECT_TRUE(zoom->marks.stations[1].visible);
    EXPECT_EQ(zoom->surface.kept, plain->surface.kept);
}
