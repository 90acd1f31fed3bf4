#include "app/windows/cleannet.h"

#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "network/unsaved.h"
#include "pictures/windows/frmPic.h"
#include "terrain/mapgrid.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

static constexpr const char* worldname = "mappemonde";

/// Asks whether to save a thing, and saves it. False when the user wants to stay: by "Annuler", or
/// by giving up the saving that they had just asked for.
template <typename Save> static bool offersaving(const std::string& name, Save save)
{
    const Answer answer = hooks.askuser(
        {"Enregistrer " + name + "?", Question::Buttons::yesnocancel, Question::Icon::question});
    if (answer == Answer::cancel)
        return false;
    return answer != Answer::yes || save();
}

/// The object editor may refuse to close: it then clears the operation word.
static bool closeobjecteditor()
{
    opbusy = 1;
    closedialogs({"frmObject"});
    const bool closed = opbusy != 0;
    opbusy = 0;
    return closed;
}

static bool offerpictures()
{
    for (QWidget* child : mainwindow->childwindows()) {
        const auto* window = qobject_cast<frmPic*>(child);
        if (!window || !window->picture())
            continue;
        const std::string name = keptname(window->picture()->data.Filename);
        if (!findfile(name) && name != worldname) {
            mainwindow->activate(child);
            if (!offersaving(name, savepictureas))
                return false;
        }
        hooks.pumpevents();
    }
    return true;
}

/// Closes all windows but the main one, each once: one that refuses stays.
static void closesecondwindows()
{
    std::vector<QPointer<QWidget>> windows;
    for (QMdiSubWindow* frame : mainwindow->area->subWindowList(QMdiArea::CreationOrder))
        windows.emplace_back(frame);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != mainwindow && window->isVisible() &&
            (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
            windows.emplace_back(window);
    for (const QPointer<QWidget>& window : windows) {
        if (window)
            window->close();
        hooks.pumpevents();
    }
}

void CleanNet(bool& cancel)
{
    cancel = true;
    closedialogs({"frmGrid", "frmLink", "frmMapPro", "frmCustom", "frmDebug"});
    if (!closeobjecteditor())
        return;
    if (netunsaved() && !offersaving(session.netfile, savenetas))
        return;
    if (!offerpictures())
        return;
    closesecondwindows();
    if (mapdirty && !offersaving(mapname, savemapas))
        return;
    cancel = false;
}
