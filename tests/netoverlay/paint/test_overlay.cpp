#include "netoverlay/paint/linksheet.h"
#include "pictures/paint/picturetest.h"
#include "radio/link.h"
#include "relief/paint/drawmap.h"

#include <QPainter>

namespace
{

class Overlay : public PictureTest
{
protected:
    void SetUp() override
    {
        PictureTest::SetUp();
        makemap(301, 201); // 0.005 degrees a pixel
        picture = drawmap(nullptr, true);
        for (Unit& unit : network.units)
            unit.enabled = 0;
    }

    QRgb pixel(int x, int y) const { return surfaceimage(picture->surface).pixel(x, y); }

    bool untouched() const { return surfaceimage(picture->surface) == picture->surface.kept; }

    /// Two stations in sight of each other, members of net 1.
    static void placepair()
    {
        station(1, 7.25F, 44.5F, "");
        station(2, 8.25F, 44.5F, "");
        for (const std::size_t unit : {1U, 2U}) {
            network.nets[1].member[unit] = memberbit;
            network.nets[1].system[unit] = 1;
            network.units[unit].elevation = 3000;
        }
        network.systems[1].height = 100;
        network.nets[1].topology = visiblebit;
    }

    OpenPicture* picture = nullptr;
};

const QRgb red = qRgb(255, 0, 0);

} // namespace

TEST_F(Overlay, AStationIsACrossAndALabelFromItsPoint)
{
    Unit& unit = station(1, 7.75F, 44.5F, "Relais");
    unit.forecolour = 0x0000FF;
    unit.backcolour = 0xFF0000;
    drawstations(0, false);
    EXPECT_EQ(pixel(148, 100), red);
    EXPECT_EQ(pixel(150, 98), red);
    const StationMark& mark = picture->marks.stations[1];
    EXPECT_TRUE(mark.visible);
    EXPECT_EQ(mark.label.topLeft(), QPoint(150, 100));
    EXPECT_EQ(pixel(mark.label.right(), mark.label.bottom()), qRgb(0, 0, 255));
    EXPECT_EQ(pixel(mark.label.right() + 1, mark.label.bottom()),
              picture->surface.kept.pixel(mark.label.right() + 1, mark.label.bottom()));
}

TEST_F(Overlay, ATransparentLabelHasNoBox)
{
    Unit& unit = station(1, 7.75F, 44.5F, "Relais");
    unit.transparent = -1;
    drawstations(0, false);
    const StationMark& mark = picture->marks.stations[1];
    const QPoint corner = mark.label.bottomRight();
    EXPECT_EQ(pixel(corner.x(), corner.y()), picture->surface.kept.pixel(corner));
}

TEST_F(Overlay, OnlyEnabledStationsOnThePictureAreDrawn)
{
    station(1, 7.75F, 44.5F).enabled = 0;
    station(2, 0, 0);
    station(3, 20, 44.5F);
    drawstations(0, false);
    EXPECT_TRUE(untouched());
    for (const int number : {1, 2, 3})
        EXPECT_FALSE(picture->marks.stations[static_cast<std::size_t>(number)].visible);
}

TEST_F(Overlay, AStationOnTheMeridianIsDrawn)
{
    picture->data.lon = {-1, 1, 1, -1};
    station(1, 0, 44.5F);
    drawstations(0, false);
    EXPECT_TRUE(picture->marks.stations[1].visible);
}

TEST_F(Overlay, PlainStereoAndWorldPicturesCarryNothing)
{
    station(1, 7.75F, 44.5F);
    picture->data.Pictype = pictype::plain;
    drawstations(0, false);
    EXPECT_TRUE(untouched());
    picture->data.Pictype = pictype::map;
    for (const char* source : {"stereo", "STEREO de carte"}) {
        picture->data.source = source;
        drawstations(0, false);
        EXPECT_TRUE(untouched()) << source;
    }
    picture->data.source = picture->data.Filename = "Mappemonde";
    drawstations(0, false);
    EXPECT_TRUE(untouched());
    picture->data.Filename = "/cartes/monde.bmp"; // saved, it is a picture as any other
    drawstations(0, false);
    EXPECT_FALSE(untouched());
}

TEST_F(Overlay, OneStationCanBeDrawnAloneAfterErasing)
{
    station(1, 7.75F, 44.5F);
    station(2, 7.25F, 44.5F);
    drawstations(0, false);
    drawstations(2, true);
    EXPECT_EQ(picture->surface.over.size(), 1U);
}

TEST_F(Overlay, IconsStandOnTheirStationAndTheLastServesHigherNumbers)
{
    QImage icon(9, 7, QImage::Format_RGB32);
    icon.fill(Qt::magenta);
    stationicons = {icon};
    station(1, 7.75F, 44.5F, "");
    network.icons[1] = 200;
    station(2, 7.25F, 44.5F, "");
    network.icons[2] = noicon;
    drawstations(0, false);
    EXPECT_EQ(picture->marks.stations[1].icon, QRect(146, 93, 9, 7));
    EXPECT_EQ(pixel(146, 93), qRgb(255, 0, 255));
    EXPECT_TRUE(picture->marks.stations[2].icon.isEmpty());
    stationicons.clear();
    drawstations(0, true);
    EXPECT_TRUE(picture->marks.stations[1].icon.isEmpty());
}

TEST_F(Overlay, NetworksAreDrawnWithTheColourOfTheirClass)
{
    placepair();
    drawnets();
    EXPECT_EQ(toplevel, 3000);
    EXPECT_EQ(pixel(150, 100), qRgb(0, 255, 0)); // a strong link
    EXPECT_NE(pixel(150, 104), qRgb(0, 255, 0));
    network.systems[1].threshold = 100; // dBm: nothing is heard
    drawnets();
    EXPECT_EQ(pixel(150, 100), red);
}

TEST_F(Overlay, TheOpaqueBackgroundIsADarkEdge)
{
    placepair();
    drawnets();
    EXPECT_EQ(pixel(150, 101), qRgb(0, 60, 0));
    selection.linestyle[2] = 128;
    drawnets();
    EXPECT_EQ(pixel(150, 101), picture->surface.kept.pixel(150, 101));
    selection = {};
}

TEST_F(Overlay, StationsLieOverLines)
{
    placepair();
    network.units[1].forecolour = 0xFF00FF;
    drawnets();
    EXPECT_EQ(pixel(51, 100), qRgb(255, 0, 255));
}

TEST_F(Overlay, ALinkWithAnEndOffThePictureIsLeftOut)
{
    placepair();
    picture->data.lon = {7, 8, 8, 7};
    drawnets();
    EXPECT_NE(pixel(150, 100), qRgb(0, 255, 0));
}

TEST_F(Overlay, TheModeOfInterferenceIsTold)
{
    interf = 1;
    drawnets();
    EXPECT_EQ(label2, "Mode de propagation interférence");
    interf = 0;
}

TEST_F(Overlay, ErasingBringsThePictureBackAndHidesAllMarks)
{
    placepair();
    drawnets();
    picture->marks.Line1 = picture->marks.Shape2 = true;
    erasenets();
    EXPECT_TRUE(untouched());
    EXPECT_FALSE(picture->marks.Line1);
    EXPECT_FALSE(picture->marks.Shape2);
    EXPECT_FALSE(picture->marks.stations[1].visible);
}

TEST_F(Overlay, OneLinkIsShownAloneWithAnArrowhead)
{
    placepair();
    drawnets();
    linkoverlay(1, 2, QColor(1, 2, 3));
    EXPECT_EQ(picture->surface.over.size(), 3U); // the link and its two stations
    EXPECT_EQ(pixel(100, 100), qRgb(1, 2, 3));
    // The barbs end 30 pixels from the middle, behind it: the arrow points to the second station.
    const QPointF barb = QPointF(150, 100) + QPointF(std::cos(2.7), std::sin(2.7)) * 28;
    const QImage image = surfaceimage(picture->surface);
    EXPECT_NE(image.pixel(barb.toPoint()), picture->surface.kept.pixel(barb.toPoint()));
}

TEST_F(Overlay, ANetworkThatWasOpenedShowsItsMapWithoutFurtherClicks)
{
    closepicture(*picture);
    placepair();
    shownetwork();
    ASSERT_EQ(openpictures.size(), 1U);
    picture = openpictures.front().get();
    EXPECT_EQ(picture->data.Pictype, pictype::map);
    EXPECT_EQ(pixel(150, 100), qRgb(0, 255, 0));
    shownetwork();
    EXPECT_EQ(openpictures.size(), 1U);
}

TEST_F(Overlay, ANetworkWithoutItsMapOpensNoPicture)
{
    closepicture(*picture);
    allocatemap(mapgrid, 50, 50); // what stands in for a map that is missing
    shownetwork();
    EXPECT_TRUE(openpictures.empty());
}

namespace
{

/// A fan of lines of all classes, more of them than are painted one by one.
std::vector<LinkLine> fan(int count)
{
    std::vector<LinkLine> lines;
    lines.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        lines.push_back({QPoint(5, 100), QPoint(295, 2 * i % 200), 1 + i % 6});
    return lines;
}

QImage painted(const std::function<void(QPainter&)>& paint, double scale)
{
    QImage image(QSize(301, 201) * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    paint(painter);
    return image;
}

int largestdifference(const QImage& a, const QImage& b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            largest = std::max({largest, std::abs(p.red() - q.red()),
                                std::abs(p.green() - q.green()), std::abs(p.blue() - q.blue())});
        }
    return largest;
}

} // namespace

TEST(LinkSheet, LooksAsItsLinesDoAtEveryScale)
{
    constexpr int rounding = 3; // of the blending, out of 255
    std::shared_ptr<LinkSheet> sheet;
    fillsheet(sheet, fan(90), true, QSize(301, 201));
    for (const double scale : {1.0, 2.0, 1.5, 1.0}) {
        const QImage asimage = painted([&](QPainter& p) { paintsheet(*sheet, p); }, scale);
        EXPECT_EQ(sheet->scale, scale);
        const QImage aslines = painted(
            [&](QPainter& p) {
                for (const LinkLine& line : sheet->lines)
                    paintlink(p, line, true);
            },
            scale);
        EXPECT_LE(largestdifference(asimage, aslines), rounding) << scale;
    }
}

TEST(LinkSheet, StaysWhileItsLinesAreTheSame)
{
    std::shared_ptr<LinkSheet> sheet;
    fillsheet(sheet, fan(90), true, QSize(301, 201));
    const LinkSheet* first = sheet.get();
    fillsheet(sheet, fan(90), true, QSize(301, 201));
    EXPECT_EQ(sheet.get(), first);
    fillsheet(sheet, fan(91), true, QSize(301, 201));
    EXPECT_EQ(sheet->lines.size(), 91U);
    const std::shared_ptr<LinkSheet> second = sheet;
    fillsheet(sheet, fan(91), false, QSize(301, 201));
    EXPECT_NE(sheet, second);
}

TEST(LinkSheet, FewLinesAndHugePicturesNeedNoImage)
{
    std::shared_ptr<LinkSheet> sheet;
    fillsheet(sheet, fan(10), true, QSize(301, 201));
    painted([&](QPainter& p) { paintsheet(*sheet, p); }, 1);
    EXPECT_TRUE(sheet->image.isNull());
    fillsheet(sheet, fan(90), true, QSize(30000, 30000));
    painted([&](QPainter& p) { paintsheet(*sheet, p); }, 1);
    EXPECT_TRUE(sheet->image.isNull());
}
