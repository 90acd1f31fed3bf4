#include "relief/paint/cities.h"

#include "base/numbers.h"
#include "base/paint/colour.h"
#include "base/paths.h"
#include "base/session.h"
#include "network/places.h"
#include "pictures/georeference.h"
#include "pictures/paint/fonts.h"

#include <QFontMetrics>
#include <QPainter>

#include <optional>

namespace
{

constexpr std::int32_t colourbits = 0xFFFFFF;

std::optional<QColor> boxcolour(const Place& place)
{
    if (place.box == Place::Box::colour)
        return colorof(place.background);
    if (place.box == Place::Box::complement && !session.drawtransparent)
        return colorof(~place.colour & colourbits);
    return std::nullopt;
}

QPoint labelcorner(const Place& place, const QPoint& at, const QSize& size)
{
    switch (place.placement) {
    case Placement::above:
        return at - QPoint(0, size.height());
    case Placement::aboveleft:
        return at - QPoint(size.width(), size.height());
    case Placement::left:
        return at - QPoint(size.width(), 0);
    case Placement::centred:
        return at - QPoint(size.width() / 2, size.height() / 2);
    default:
        return at;
    }
}

void paintplace(const Place& place, const QPoint& at, QPainter& painter)
{
    constexpr int arm = 2; // pixels of the cross on each side of its middle
    const QColor colour = colorof(place.colour);
    if (place.placement != Placement::centred) {
        painter.fillRect(QRect(at - QPoint(arm, 0), at + QPoint(arm, 0)), colour);
        painter.fillRect(QRect(at - QPoint(0, arm), at + QPoint(0, arm)), colour);
    }
    painter.setFont(labelfont());
    const QFontMetrics metrics(painter.font());
    const QString name = QString::fromStdString(place.name);
    const QSize size(metrics.horizontalAdvance(name), metrics.height());
    const QPoint corner = labelcorner(place, at, size);
    if (const auto box = boxcolour(place))
        painter.fillRect(QRect(corner, size), *box);
    painter.setPen(colour);
    painter.drawText(corner.x(), corner.y() + metrics.ascent(), name);
}

/// The gazetteer lies in the program's folder and counts longitudes to the west.
bool isgazetteer(const std::string& filename)
{
    constexpr std::string_view mark = "cities";
    return lowercase(filename.substr(0, mark.size())) == mark;
}

} // namespace

void drawcities(OpenPicture& picture, bool commit, const std::string& filename)
{
    const bool gazetteer = isgazetteer(filename);
    const auto path = gazetteer ? findprogramfile(filename) : findfile(filename);
    const auto text = path ? readfile(*path) : std::nullopt;
    if (!text)
        return;
    for (const Place& place : parseplaces(*text, gazetteer ? -1 : 1)) {
        float x = 0;
        float y = 0;
        if (!ll2pic(picture.data, place.lon, place.lat, x, y))
            continue;
        const QPoint at(static_cast<int>(x), static_cast<int>(y));
        picture.surface.over.emplace_back(
            [place, at](QPainter& painter) { paintplace(place, at, painter); });
    }
    if (commit)
        keep(picture.surface);
    picturehooks.picturechanged(picture, {});
}
