#include "netoverlay/paint/overlay.h"

#include "base/busy.h"
#include "base/hooks.h"
#include "base/paint/colour.h"
#include "netoverlay/paint/linksheet.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/fonts.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "radio/profile.h"
#include "relief/paint/drawmap.h"
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
    const std::size_t icon = network.icon(number);
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

/// Lays the links out on a picture; those of the station that is being carried lie on top.
void drawlinks(OpenPicture& picture, const std::vector<DrawnLink>& links, int carried)
{
    const bool opaque = (selection.linestyle[2] & 1) != 0;
    std::vector<LinkLine> resting;
    std::vector<LinkLine> moving;
    for (const DrawnLink& link : links) {
        const auto from = placeof(picture, unitat(link.a));
        const auto to = placeof(picture, unitat(link.b));
        if (from && to)
            (link.a == carried || link.b == carried ? moving : resting)
                .push_back({*from, *to, link.lineclass});
    }
    fillsheet(picture.links, std::move(resting), opaque, picture.surface.kept.size());
    auto& over = picture.surface.over;
    if (!picture.links->lines.empty())
        over.emplace_back(
            [sheet = picture.links](QPainter& painter) { paintsheet(*sheet, painter); });
    if (!moving.empty())
        over.emplace_back([lines = std::move(moving), opaque](QPainter& painter) {
            for (const LinkLine& line : lines)
                paintlink(painter, line, opaque);
        });
}

/// Takes the drawing off a picture, and with it the stations that the mouse could hit.
void clearoverlay(OpenPicture& picture)
{
    erase(picture.surface);
    picture.marks.stations = {};
    picture.links.reset();
}

/// Lays links and stations out on a picture that carries them.
void layout(OpenPicture& picture, const std::vector<DrawnLink>& links, int carried)
{
    const auto sheet = picture.links; // with the image of its lines, if they stay
    clearoverlay(picture);
    picture.links = sheet;
    drawlinks(picture, links, carried);
    for (int i = 1; i <= MAXUNIT; ++i)
        drawstation(picture, i);
}

void paintnets(OpenPicture& picture, const std::vector<DrawnLink>& links, int carried)
{
    if (!isflat(picture))
        return;
    layout(picture, links, carried);
    picturehooks.picturechanged(picture, {});
}

/// Where a station is painted; empty: nowhere.
QRect paintedarea(const StationMark& mark)
{
    constexpr int reach = 4; // pixels: the cross, and the slant of the last letter
    return mark.visible ? mark.label.united(mark.icon).adjusted(-reach, -reach, reach, reach)
                        : QRect();
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

void erasenets()
{
    for (const auto& picture : openpictures) {
        clearoverlay(*picture);
        hidemarks(picture->marks);
        picturehooks.picturechanged(*picture, {});
    }
}

void clearpictures()
{
    for (const auto& picture : openpictures) {
        clearoverlay(*picture);
        picturehooks.picturechanged(*picture, {});
    }
}

void redrawstation(int unit)
{
    const std::vector<DrawnLink> links = drawnlinks();
    for (const auto& picture : openpictures) {
        if (!isflat(*picture))
            continue;
        const StationMark& mark = picture->marks.stations[static_cast<std::size_t>(unit)];
        const QRect before = paintedarea(mark);
        if (picture->links) {
            layout(*picture, links, 0);
        } else {
            clearoverlay(*picture);
            drawstation(*picture, unit);
        }
        const QRect part = before.united(paintedarea(mark));
        if (!picture->links)
            picturehooks.picturechanged(*picture, {});
        else if (!part.isEmpty())
            picturehooks.picturechanged(*picture, part);
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

void paintnets(int carried)
{
    const std::vector<DrawnLink> links = drawnlinks();
    for (const auto& picture : openpictures)
        paintnets(*picture, links, carried);
}

void paintnets(OpenPicture& picture)
{
    paintnets(picture, drawnlinks(), 0);
}

void drawnets()
{
    constexpr float firsttoplevel = 2000; // m
    if (toplevel == 0)
        toplevel = firsttoplevel;
    erasenets();
    const Busy busy;
    evalnets(false);
    raisetoplevel();
    paintnets();
    if (interf == 1)
        hooks.setlabel2("Mode de propagation interférence");
}

void shownetwork()
{
    if (picturenames().empty() && hasground())
        drawmap(nullptr, true);
    drawnets();
}

void connectnetoverlay()
{
    hooks.erasenets = erasenets;
    hooks.unitmoved = [](int unit) {
        drawstations(unit, true);
        picturehooks.stationmoved(unit, true);
    };
    picturehooks.drawnetsover = [](OpenPicture& picture) { paintnets(picture); };
}
