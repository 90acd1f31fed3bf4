#include "netoverlay/windows/stationmouse.h"

#include "base/hooks.h"
#include "netoverlay/paint/overlay.h"
#include "network/moveunit.h"
#include "network/unsaved.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"

#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

PictureWindowHooks picturewindowhooks;

namespace
{

std::string stationname(int unit)
{
    return unit == 0 ? "..." : unitat(unit).name.text();
}

/// How the menu names the move of a station.
QString movingtext(int unit)
{
    return QStringLiteral("déplacer ") + QString::fromStdString(stationname(unit));
}

const StationMark& markof(const OpenPicture& picture, int unit)
{
    return picture.marks.stations[static_cast<std::size_t>(unit)];
}

} // namespace

StationMouse::StationMouse(OpenPicture& picture, QWidget* view, std::shared_ptr<PickedEnds> ends)
    : shown(picture), surface(view), picked(std::move(ends))
{
    redraw.setSingleShot(true);
    redraw.setInterval(0); // once all moves that wait have been taken
    QObject::connect(&redraw, &QTimer::timeout, surface, [this] { carry(); });
}

bool StationMouse::pressed(const QMouseEvent& event)
{
    if (held != 0)
        return true; // a second button changes nothing
    const int unit = stationat(shown.marks, event.position().toPoint());
    if (unit == 0)
        return false;
    held = unit;
    given = event.button() != Qt::LeftButton || event.modifiers().testFlag(Qt::ShiftModifier);
    pressedat = event.position();
    grip = pressedat - markof(shown, unit).label.topLeft();
    if (event.modifiers().testFlag(Qt::ShiftModifier))
        pickend(unit, event.button());
    else if (event.button() == Qt::RightButton)
        offermoving(unit);
    return true;
}

bool StationMouse::doubleclicked(const QMouseEvent& event)
{
    const int unit = stationat(shown.marks, event.position().toPoint());
    const bool plain = !event.modifiers().testFlag(Qt::ShiftModifier);
    if (unit == 0 || event.button() != Qt::LeftButton || !plain)
        return pressed(event);
    held = 0;
    selection.curunit = static_cast<std::int16_t>(unit);
    picturewindowhooks.editstation();
    return true;
}

bool StationMouse::dragged(const QMouseEvent& event)
{
    constexpr double start = 4; // pixels that a hand may tremble
    if (held == 0)
        return false;
    if (given)
        return true;
    const QPointF way = event.position() - pressedat;
    if (!drag && std::max(std::abs(way.x()), std::abs(way.y())) < start)
        return true;
    if (!drag) {
        drag = begindrag(held);
        edit.emplace(movingtext(held));
        surface->setCursor(Qt::ClosedHandCursor);
    }
    wanted = event.position();
    if (!redraw.isActive())
        redraw.start();
    return true;
}

/// Takes the station to where the mouse is now, within the picture.
void StationMouse::carry()
{
    redraw.stop();
    if (!drag)
        return;
    const QPointF place = wanted - grip;
    const double x = std::clamp(place.x(), 0.0, shown.surface.width() - 1.0);
    const double y = std::clamp(place.y(), 0.0, shown.surface.height() - 1.0);
    float lon = 0;
    float lat = 0;
    if (pic2ll(shown.data, static_cast<float>(x), static_cast<float>(y), lon, lat))
        dragunit(*drag, lon, lat);
}

bool StationMouse::released(const QMouseEvent& event)
{
    if (held == 0)
        return false;
    if (event.buttons() == Qt::NoButton) {
        settle();
        if (!showpointer(event.position()))
            surface->setCursor(Qt::CrossCursor);
    }
    return true;
}

void StationMouse::settle()
{
    if (redraw.isActive())
        carry();
    if (drag)
        ::settle(*drag);
    if (edit)
        edit->done();
    drag.reset();
    edit.reset();
    held = 0;
}

bool StationMouse::escape()
{
    if (!drag)
        return false;
    putback(*drag);
    drag.reset();
    edit.reset();
    redraw.stop();
    given = true; // the button is still down
    surface->setCursor(Qt::CrossCursor);
    return true;
}

bool StationMouse::showpointer(const QPointF& at)
{
    if (stationat(shown.marks, at.toPoint()) == 0)
        return false;
    surface->setCursor(Qt::OpenHandCursor);
    return true;
}

void StationMouse::pickend(int unit, Qt::MouseButton button)
{
    if (button == Qt::LeftButton)
        picked->first = unit;
    if (button == Qt::RightButton)
        picked->second = unit;
    hooks.setlabel2(stationname(picked->first) + " - " + stationname(picked->second));
    if (picked->first == 0 || picked->second == 0 || picked->first == picked->second)
        return;
    held = 0; // the window that opens gets the release
    picturewindowhooks.showlink(picked->first, picked->second);
}

void StationMouse::offermoving(int unit)
{
    held = 0; // the box gets the release
    const Answer answer = hooks.askuser({"Déplacer la station à la position du curseur?",
                                         Question::Buttons::yesno, Question::Icon::question});
    if (answer != Answer::yes)
        return;
    TablesEdit moving(movingtext(unit));
    placeunit(unit, cursor.lon, cursor.lat);
    markedited();
    moving.done();
    drawnets();
    picturehooks.stationmoved(unit, true);
}

void connectstationmouse()
{
    const auto ends = std::make_shared<PickedEnds>();
    picturetoolmakers.emplace_back([ends](OpenPicture& picture, QWidget* view) {
        return std::make_unique<StationMouse>(picture, view, ends);
    });
}
