#include "coverage/paint/coveragepicture.h"

#include "base/busy.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "coverage/choice.h"
#include "netoverlay/paint/overlay.h"
#include "pictures/georeference.h"
#include "pictures/paint/keepdrawing.h"
#include "relief/colours.h"
#include "relief/paint/drawmap.h"
#include "relief/paint/legend.h"
#include "relief/picturesettings.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr auto refreshinterval = std::chrono::milliseconds(33);

/// Units as the legend's title names them.
const char* unitname(LevelUnit unit)
{
    switch (unit) {
    case LevelUnit::dbm:
        return "(dBm)";
    case LevelUnit::microvolt:
        return "(µV)";
    case LevelUnit::sunit:
        break;
    }
    return "(S-Unit)";
}

CoverageColours paintcolours()
{
    CoverageColours paint;
    std::transform(colours.colortable.begin(), colours.colortable.end(), paint.rainbow.begin(),
                   pixelof);
    paint.surface = pixelof(network.coverage.surfacecolour);
    paint.curve = pixelof(network.coverage.curvecolour);
    return paint;
}

/// The same colours for a layer of its own.
CoverageColours layercolours(CoverageColours paint)
{
    std::transform(paint.rainbow.begin(), paint.rainbow.end(), paint.rainbow.begin(),
                   PaintedLayer::pixel);
    paint.surface = PaintedLayer::pixel(paint.surface);
    paint.curve = PaintedLayer::pixel(paint.curve);
    return paint;
}

/// Paints the sweep until its end or a stop; returns the sum of its rings.
std::int64_t paintsweep(CoverageSheet& sheet, const RadioSweep& sweep)
{
    const CoverageColours paint = paintcolours();
    const CoverageColours alone = layercolours(paint);
    return runsweep(
        sweep,
        [&](std::span<const SectorPaint> sectors) {
            paintsectors(sheet.view(), sectors, paint);
            if (sheet.layer != nullptr)
                paintsectors(sheet.layer->view(), sectors, alone);
        },
        [&](int k) {
            sheet.refresh();
            return opstep(k) != 0;
        });
}

/// A map picture's own settings, but without colours.
PictureSettings plainrelief(const Picture& picture)
{
    PictureSettings settings = settingsof(mapgrid, nullptr);
    settings.record.Mapmode = mapmode::moon;
    settings.record.minx = picture.minx;
    settings.record.maxx = picture.maxx;
    settings.record.light = picture.light;
    settings.record.con = picture.con;
    settings.record.bri = picture.bri;
    settings.record.c1 = picture.c1;
    settings.record.c2 = picture.c2;
    settings.cities = picture.city != 0 ? -1 : 0;
    return settings;
}
} // namespace

static PixelSheet sheetof(QImage& image)
{
    return {reinterpret_cast<std::uint32_t*>(image.bits()),
            static_cast<int>(image.bytesPerLine() / 4), image.width(), image.height()};
}

void PaintedLayer::begin(int width, int height)
{
    sheet = QImage(width, height, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
}

PixelSheet PaintedLayer::view()
{
    return sheetof(sheet);
}

QImage PaintedLayer::image() const
{
    QImage painted(sheet.size(), QImage::Format_ARGB32);
    for (int y = 0; y < sheet.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(sheet.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(painted.scanLine(y));
        for (int x = 0; x < sheet.width(); ++x)
            to[x] = qAlpha(from[x]) == 0 ? 0xFF000000U | from[x] : 0U;
    }
    return painted;
}

CoverageSheet::CoverageSheet(OpenPicture& target)
    : picture(&target), image(std::make_shared<QImage>(surfaceimage(target.surface).copy()))
{
    pixels = sheetof(*image);
    picture->surface.over.emplace_back(
        [painted = image](QPainter& painter) { painter.drawImage(QPoint(0, 0), *painted); });
}

void CoverageSheet::addlayer(PaintedLayer* wanted)
{
    layer = wanted;
    if (layer != nullptr)
        layer->begin(pixels.width, pixels.height);
}

void CoverageSheet::refresh()
{
    const auto now = std::chrono::steady_clock::now();
    if (now < next)
        return;
    next = now + refreshinterval;
    picturehooks.picturechanged(*picture, {});
}

Job coveragejob(int last)
{
    return {.number = 11,
            .text = "Calcul de la couverture ...",
            .total = static_cast<float>(last),
            .erasesnets = false}; // it is drawn on top of them
}

bool covpicture(OpenPicture& picture)
{
    if (picture.data.Mapmode == mapmode::moon)
        return true;
    if (hooks.askuser({"Redessiner l'image en paysage lunaire", Question::Buttons::yesno,
                       Question::Icon::question}) != Answer::yes)
        return true;
    drawmap(&picture, plainrelief(picture.data), false);
    const bool whole = opbusy != 0;
    if (whole)
        keep(picture.surface);
    return whole;
}

bool sweepcentre(const OpenPicture& picture, int unit, SweepCentre& centre)
{
    const Unit& station = unitat(unit);
    float x = 0;
    float y = 0;
    if (!ll2pic(picture.data, station.lon, station.lat, x, y))
        return false;
    centre = {double{x}, double{y}};
    return true;
}

bool paintover(OpenPicture& picture, int last, const std::function<void(CoverageSheet&)>& paint)
{
    picturehooks.showpicture(picture);
    erasenets();
    if (!covpicture(picture))
        return false;
    const Busy busy;
    beginop(coveragejob(last));
    if (!stillopen(&picture))
        return false;
    CoverageSheet sheet(picture);
    paint(sheet);
    picturehooks.picturechanged(picture, {});
    return opbusy != 0;
}

double drawcoverage(OpenPicture& picture, const CoverageOrder& order, PaintedLayer* layer)
{
    SweepCentre centre;
    if (order.centre < 1 || order.centre > MAXUNIT || !sweepcentre(picture, order.centre, centre))
        return 0;
    const auto sweep = preparesweep(network, mapgrid, order, centre, interf);
    if (!sweep || !hasscale(*sweep))
        return 0;
    const std::int16_t mode = picture.data.Mapmode;
    std::int64_t rings = 0;
    double area_km2 = 0;
    const auto last = static_cast<int>(sweep->azimuths.size()) - 1;
    if (paintover(picture, last, [&](CoverageSheet& sheet) {
            sheet.addlayer(layer);
            rings = paintsweep(sheet, *sweep);
        })) {
        if (coveragechoice.covrainbow && colours.showlegend != 0) {
            const SignalScale scale{unitname(order.unit), rainbowlevel};
            drawlegend(picture, &scale);
        }
        if (!keepdrawing(picture, "coverage "))
            picture.data.Mapmode = mode;
        area_km2 = coveredarea(*sweep, rings);
    }
    endop();
    return area_km2;
}

void coverage()
{
    if (currentpic == nullptr)
        return;
    const double area_km2 =
        drawcoverage(*currentpic, coverageorder(network.coverage, coveragechoice, selection));
    if (area_km2 > 0)
        hooks.setlabel1("La surface couverte est de  " + formatnumber("0", area_km2) +
                        " km carrés");
}
