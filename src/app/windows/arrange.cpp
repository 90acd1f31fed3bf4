#include "app/windows/arrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>

/// Visible child windows, minimised or not as asked, in the order of their opening.
static QList<QMdiSubWindow*> visibleframes(const QMdiArea& area, bool minimised)
{
    QList<QMdiSubWindow*> frames;
    for (QMdiSubWindow* frame : area.subWindowList(QMdiArea::CreationOrder))
        if (frame->isVisible() && frame->isMinimized() == minimised)
            frames.append(frame);
    return frames;
}

static void arrangeicons(const QMdiArea& area)
{
    const QSize room = area.viewport()->size();
    int x = 0;
    int y = room.height();
    for (QMdiSubWindow* frame : visibleframes(area, true)) {
        if (x > 0 && x + frame->width() > room.width()) {
            x = 0;
            y -= frame->height();
        }
        frame->move(x, y - frame->height());
        x += frame->width();
    }
}

/// Room for the strips: the area, less a row of icons when there are any.
static QSize striproom(const QMdiArea& area)
{
    QSize room = area.viewport()->size();
    for (const QMdiSubWindow* frame : visibleframes(area, true))
        room.setHeight(qMin(room.height(), frame->y()));
    return room;
}

static void tile(const QMdiArea& area, bool sidebyside)
{
    const auto frames = visibleframes(area, false);
    const QSize room = striproom(area);
    const int count = static_cast<int>(frames.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* frame = frames[i];
        frame->showNormal();
        // Both ends from one formula, so that the strips meet without a gap.
        if (sidebyside) {
            const int left = room.width() * i / count;
            frame->setGeometry(left, 0, room.width() * (i + 1) / count - left, room.height());
        } else {
            const int top = room.height() * i / count;
            frame->setGeometry(0, top, room.width(), room.height() * (i + 1) / count - top);
        }
    }
}

void arrangewindows(QMdiArea& area, Arrangement arrangement)
{
    switch (arrangement) {
    case Arrangement::cascade:
        area.cascadeSubWindows();
        break;
    case Arrangement::horizontal:
        tile(area, false);
        break;
    case Arrangement::vertical:
        tile(area, true);
        break;
    case Arrangement::icons:
        arrangeicons(area);
        break;
    }
}
