#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "base/hooks.h"
#include "base/windows/undostack.h"
#include "netoverlay/paint/overlay.h"
#include "network/windows/frmUnit.h"
#include "network/windows/netundo.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "radio/windows/frmLink.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <utility>

void undo()
{
    settleedits();
    undolast();
}

void redo()
{
    settleedits();
    redolast();
}

/// True where some picture shows stations: what is shown must stay true.
static bool netsareshown()
{
    const auto visible = [](const StationMark& mark) { return mark.visible; };
    return std::ranges::any_of(openpictures, [&](const auto& picture) {
        return std::ranges::any_of(picture->marks.stations, visible);
    });
}

/// Other values stand in the tables.
static void followtables()
{
    evaluate(network, mapgrid, false, interf, quality);
    if (!mainwindow)
        return;
    if (mainwindow->checked("mnuViewAuto") || netsareshown())
        paintnets();
    if (frmLink* window = linkwindow(mainwindow))
        window->followtables();
    if (frmUnit* window = unitwindow(mainwindow))
        window->refill();
}

void connectundo()
{
    networkundohooks.changed = followtables;
    hooks.netreplaced = forgetedits;
    static bool connected = false;
    if (std::exchange(connected, true))
        return;
    QObject::connect(&undostack(), &QUndoStack::indexChanged, &undostack(), [] {
        if (mainwindow)
            mainwindow->showundo();
    });
}
