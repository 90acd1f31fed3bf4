// The mouse on a picture: the cursor, the selection, the place under the mouse.

#include "base/hooks.h"
#include "base/operation.h"
#include "base/session.h"
#include "coordinates/positiontexts.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/zoom.h"
#include "pictures/windows/frmPic.h"
#include "pictures/windows/surfaceview.h"

#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{

struct Position {
    float lon, lat;
};

std::optional<Position> positionat(const Picture& picture, const QPointF& at)
{
    Position position{};
    if (!pic2ll(picture, static_cast<float>(at.x()), static_cast<float>(at.y()), position.lon,
                position.lat))
        return std::nullopt;
    return position;
}

} // namespace

bool frmPic::offered(const std::function<bool(PictureTool&)>& offer)
{
    return std::any_of(tools.begin(), tools.end(),
                       [&offer](const auto& tool) { return offer(*tool); });
}

void frmPic::settletools()
{
    for (const auto& tool : tools)
        tool->settle();
}

void frmPic::startselection(const QPoint& at)
{
    entry->marks.Shape2 = false;
    selectionstart = selectionend = at;
    selectiontext.clear();
    hooks.setlabel2({});
}

void frmPic::surfacepressed(QMouseEvent* event)
{
    if (entry == nullptr || offered([event](PictureTool& tool) { return tool.pressed(*event); }))
        return;
    inFocus = true;
    const QPoint at = event->position().toPoint();
    pictureclicked(at, event->button() == Qt::RightButton,
                   event->modifiers().testFlag(Qt::ShiftModifier));
}

void frmPic::pictureclicked(const QPoint& at, bool right, bool shift)
{
    if (const auto position = positionat(entry->data, at)) {
        if (entry->marks.Shape2 && right) {
            if (shift) {
                dragselection(at);
                showplace(at);
            }
            if (shift || !offerzoom(at))
                return;
        }
        startselection(at);
        movecursor(position->lon, position->lat);
    }
    if (opbusy == 0)
        stereocursor(*entry, static_cast<float>(at.x()), static_cast<float>(at.y()), 0, false);
}

/// Asks whether the selection shall become a picture of its own, when the press lies in it. True
/// when it did.
bool frmPic::offerzoom(const QPoint& at)
{
    const QRect part = entry->marks.selection;
    const QRect withedges = part.adjusted(0, 0, 1, 1);
    if (!withedges.contains(at))
        return false;
    const Answer answer = hooks.askuser({"Créer une image \"zoom\" à partir de la sélection?",
                                         Question::Buttons::yesno, Question::Icon::question});
    if (answer != Answer::yes || entry == nullptr)
        return false;
    zoompicture(*entry, part);
    return true;
}

void frmPic::dragselection(const QPoint& at)
{
    constexpr int leastheight = 6; // pixels of a selection that counts
    constexpr int leastwidth = 4;
    selectionend = QPoint(std::clamp(at.x(), 0, entry->surface.width()),
                          std::clamp(at.y(), 0, entry->surface.height()));
    const int w = std::abs(selectionend.x() - selectionstart.x());
    const int h = std::abs(selectionend.y() - selectionstart.y());
    entry->marks.Shape2 = h >= leastheight && w >= leastwidth;
    selectiontext.clear();
    if (entry->marks.Shape2) {
        entry->marks.selection = QRect(std::min(selectionstart.x(), selectionend.x()),
                                       std::min(selectionstart.y(), selectionend.y()), w, h);
        selectiontext = QStringLiteral(" Sélection L=%1 H=%2").arg(w).arg(h);
    }
    surface->update();
}

void frmPic::surfacemoved(QMouseEvent* event)
{
    if (entry == nullptr)
        return;
    if (offered([event](PictureTool& tool) { return tool.dragged(*event); }))
        return;
    if (event->buttons() == Qt::NoButton &&
        !offered([event](PictureTool& tool) { return tool.showpointer(event->position()); }))
        surface->setCursor(Qt::CrossCursor);
    const QPoint at = event->position().toPoint();
    if (event->buttons() != Qt::NoButton && inFocus && entry->data.Pictype < pictype::view3d &&
        opbusy == 0)
        dragselection(at);
    showplace(at);
}

/// Tells in the status line where the mouse is, and how large the selection.
void frmPic::showplace(const QPoint& at)
{
    std::string text;
    if (session.mousecoordinates) {
        if (auto position = positionat(entry->data, at))
            text = dmslon(position->lon) + "  " + dmslat(position->lat);
    }
    if (entry->marks.Shape2)
        text += selectiontext.toStdString();
    if (!text.empty())
        hooks.setlabel2(text);
}
