#include "pictures/paint/overlay.h"

#include "app/base/hooks.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/drawmap.h"
#include "pictures/paint/fonts.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "radio/profile.h"
#include "terrain/mapgrid.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

std::vector<QImage> stationicons;
float toplevel = 0;

namespace
{

const Unit& unitat(int number)
{
    return network.units[static_cast<std::size_t>(number)];
}

/// Pictures that carry stations and links.
bool isflat(const OpenPicture& picture)
{
    return picture.data.isplaced() && !picture.data.isstereo() && !picture.data.isworld();
}

std::optional<QPoint> placeof(const OpenPicture& picture, const Unit& unit)
{
    float x = 0;
    float y = 0;
    if (!ll2pic(picture.data, unit.lon, unit.lat, x, y))
        return std::nullopt;
    return QPoint(static_cast<int>(x), static_cast<int>(y));
}

/// How the links of a class are drawn: a bright line over a wider dark one.
struct LinePen {
    QColor bright, dark;
    int width, darkwidth;
    bool dotted;
};

LinePen linepen(int lineclass)
{
    const QColor green(0, 255, 0);
    const QColor darkgreen(0, 60, 0);
    switch (lineclass) {
    case 1:
        return {QColor(255, 0, 0), QColor(200, 0, 0), 2, 3, false};
    case 2:
        return {QColor(255, 0, 0), QColor(60, 0, 0), 1, 3, true};
    case 3:
        return {QColor(255, 255, 0), QColor(80, 60, 0), 1, 3, true};
    case 4:
        return {green, darkgreen, 1, 3, true};
    case 5:
        return {green, darkgreen, 1, 3, false};
    default:
        return {green, darkgreen, 2, 4, false};
    }
}

/// Lines of odd width go through the middle of pixels, of even width between them, so that their
/// edges are sharp where the line is level or upright.
void paintline(QPainter& painter, const QLineF& line, const QColor& colour, int width, bool dotted)
{
    QPen pen(colour, width, Qt::SolidLine, Qt::FlatCap);
    if (dotted)
        pen.setDashPattern({3, 3});
    painter.setPen(pen);
    const double shift = width % 2 != 0 ? 0.5 : 0;
    painter.drawLine(line.translated(shift, shift));
}

void drawlink(OpenPicture& picture, const QLineF& line, int lineclass, bool opaque)
{
    picture.surface.over.emplace_back([line, pen = linepen(lineclass), opaque](QPainter& painter) {
        // The dark edge is smooth; the bright line keeps the pure colour of its class.
        painter.setRenderHint(QPainter::Antialiasing);
        if (opaque)
            paintline(painter, line, pen.dark, pen.darkwidth, false);
        painter.setRenderHint(QPainter::Antialiasing, false);
        paintline(painter, line, pen.bright, pen.width, pen.dotted);
    });
}

/// A station's label and cross as they are painted.
struct StationDrawing {
    QPoint at;
    QString name;
    QColor text, background;
    bool opaque;
    QImage icon; ///< null: none
    QRect label; ///< place of the name
    QRect iconplace;
};

StationDrawing makestation(int number, const QPoint& at)
{
    const Unit& unit = unitat(number);
    StationDrawing station{at,
                           QString::fromStdString(unit.name.text()),
                           colorof(unit.forecolour),
                           colorof(unit.backcolour),
                           unit.transparent == 0,
                           {},
                           {},
                           {}};
    const QFontMetrics metrics(labelfont());
    station.label = QRect(at, QSize(metrics.horizontalAdvance(station.name), metrics.height()));
    const std::size_t icon = network.icons[static_cast<std::size_t>(number)];
    if (icon != noicon && !stationicons.empty()) {
        station.icon = stationicons[std::min(icon, stationicons.size() - 1)];
        const QSize size = station.icon.size();
        station.iconplace = QRect(at - QPoint(size.width() / 2, size.height()), size);
    }
    return station;
}

void paintstation(const StationDrawing& station, QPainter& painter)
{
    constexpr int arm = 2; // pixels of the cross on each side of its middle
    const auto cross = [&station, &painter](int dx, int dy) {
        painter.fillRect(QRect(station.at - QPoint(dx, dy), station.at + QPoint(dx, dy)),
                         station.text);
    };
    cross(arm, 0);
    cross(0, arm);
    if (station.opaque)
        painter.fillRect(station.label, station.background);
    painter.setFont(labelfont());
    painter.setPen(station.text);
    painter.drawText(
        QPointF(station.label.left(), station.label.top() + QFontMetrics(painter.font()).ascent()),
        station.name);
    if (!station.icon.isNull())
        painter.drawImage(station.iconplace.topLeft(), station.icon);
}

void drawstation(OpenPicture& picture, int number)
{
    StationMark& mark = picture.marks.stations[static_cast<std::size_t>(number)];
    mark = {};
    const Unit& unit = unitat(number);
    const bool placed = unit.lon != 0 || unit.lat != 0; // stations on the meridian or equator show
    if (unit.enabled == 0 || !placed)
        return;
    const auto at = placeof(picture, unit);
    if (!at)
        return;
    const StationDrawing station = makestation(number, *at);
    mark = {true, station.label, station.iconplace};
    picture.surface.over.emplace_back(
        [station](QPainter& painter) { paintstation(station, painter); });
}

/// A pair with a line, and its class.
struct DrawnLink {
    int a, b;
    int lineclass;
};

std::vector<DrawnLink> drawnlinks()
{
    std::vector<DrawnLink> links;
    for (int a = 1; a < MAXUNIT; ++a)
        for (int b = a + 1; b <= MAXUNIT; ++b) {
            const int best = lineclass(network, quality, selection.linestyle, a, b);
            if (best > 0)
                links.push_back({a, b, best});
        }
    return links;
}

void drawlinks(OpenPicture& picture, const std::vector<DrawnLink>& links)
{
    const bool opaque = (selection.linestyle[2] & 1) != 0;
    for (const DrawnLink& link : links) {
        const auto from = placeof(picture, unitat(link.a));
        const auto to = placeof(picture, unitat(link.b));
        if (from && to)
            drawlink(picture, QLineF(*from, *to), link.lineclass, opaque);
    }
}

/// Takes the drawing off a picture, and with it the stations that the mouse could hit.
void clearoverlay(OpenPicture& picture)
{
    erase(picture.surface);
    picture.marks.stations = {};
}

void paintnets(OpenPicture& picture, const std::vector<DrawnLink>& links)
{
    if (!isflat(picture))
        return;
    clearoverlay(picture);
    drawlinks(picture, links);
    for (int i = 1; i <= MAXUNIT; ++i)
        drawstation(picture, i);
    picturehooks.picturechanged(picture, {});
}

/// A map was read: what stands in for a missing one is level and lies at 0.
bool hasground()
{
    return std::any_of(mapgrid.samples.begin(), mapgrid.samples.end(),
                       [](std::int16_t height) { return height != 0; });
}

void raisetoplevel()
{
    for (int i = 1; i <= MAXUNIT; ++i)
        toplevel = std::max(toplevel, unitat(i).elevation);
}

/// The line and the two barbs of its arrowhead, which points from a to b.
std::array<QLineF, 3> arrow(const QPointF& a, const QPointF& b)
{
    constexpr double barb = 30; // pixels
    constexpr double turn = 2.7;
    const double theta = azimuth(b.x() - a.x(), a.y() - b.y());
    const QPointF middle = (a + b) / 2;
    const auto end = [&middle](double angle) {
        return middle + QPointF(std::cos(angle), -std::sin(angle)) * barb;
    };
    return {QLineF(a, b), QLineF(middle, end(theta - turn)), QLineF(middle, end(theta + turn))};
}

} // namespace

QColor colorof(std::int32_t colour)
{
    return {colour & 255, colour >> 8 & 255, colour >> 16 & 255};
}

void erasenets()
{
    for (const auto& picture : openpictures) {
        clearoverlay(*picture);
        hidemarks(picture->marks);
        picturehooks.picturechanged(*picture, {});
    }
}

void drawstations(int unit, bool clear)
{
    const bool one = unit >= 1 && unit <= MAXUNIT;
    for (const auto& picture : openpictures) {
        if (!isflat(*picture))
            continue;
        if (clear)
            clearoverlay(*picture);
        for (int i = one ? unit : 1; i <= (one ? unit : MAXUNIT); ++i)
            drawstation(*picture, i);
        picturehooks.picturechanged(*picture, {});
    }
}

void linkoverlay(int a, int b, const QColor& colour)
{
    for (const auto& picture : openpictures) {
        if (!isflat(*picture))
            continue;
        const auto from = placeof(*picture, unitat(a));
        const auto to = placeof(*picture, unitat(b));
        if (!from || !to)
            continue;
        clearoverlay(*picture);
        picture->surface.over.emplace_back([lines = arrow(*from, *to), colour](QPainter& painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            for (const QLineF& line : lines)
                paintline(painter, line, Qt::black, 4, false);
            for (const QLineF& line : lines)
                paintline(painter, line, colour, 2, false);
        });
    }
    drawstations(a, false);
    drawstations(b, false);
}

void paintnets()
{
    const std::vector<DrawnLink> links = drawnlinks();
    for (const auto& picture : openpictures)
        paintnets(*picture, links);
}

void paintnets(OpenPicture& picture)
{
    paintnets(picture, drawnlinks());
}

void drawnets()
{
    constexpr float firsttoplevel = 2000; // m
    if (toplevel == 0)
        toplevel = firsttoplevel;
    erasenets();
    evalnets(false);
    hooks.busypointer(true);
    raisetoplevel();
    paintnets();
    if (interf == 1)
        hooks.setlabel2("Mode de propagation interférence");
    hooks.busypointer(false);
}

void shownetwork()
{
    if (picturenames().empty() && hasground())
        drawmap(nullptr, true);
    drawnets();
}
