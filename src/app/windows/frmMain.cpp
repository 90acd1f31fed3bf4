#include "app/windows/frmMain.h"

#include "app/windows/ending.h"
#include "app/windows/firststeps.h"
#include "app/windows/geometry.h"
#include "app/windows/icons.h"
#include "app/windows/menus.h"
#include "app/windows/placehint.h"
#include "app/windows/stationicons.h"
#include "app/windows/statusbar.h"
#include "app/windows/toolbar.h"
#include "base/hooks.h"
#include "base/session.h"
#include "base/windows/undostack.h"
#include "network/windows/frmUnit.h"
#include "pictures/windows/frmPic.h"
#include "radio/windows/frmLink.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <exception>

frmMain* mainwindow = nullptr;

static constexpr int tickinterval_ms = 200;

frmMain::frmMain()
{
    setObjectName(QStringLiteral("frmMain"));
    useicons();
    setWindowTitle(QString::fromUtf8(apptitle));
    setMinimumSize(1, 1);

    auto* strips = new QWidget(this);
    area = new QMdiArea(strips);
    area->setObjectName(QStringLiteral("area"));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setBackground(palette().brush(QPalette::Mid));
    statusbar = new StatusBar(strips);
    buildmenus();
    firststeps = new FirstSteps([this](const char* name) { return action(name); }, area);
    placehint = new PlaceHint(area);
    toolbar = new ToolBar([this](const char* name) { return action(name); }, strips);

    auto* column = new QVBoxLayout(strips);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(toolbar);
    column->addWidget(area, 1);
    column->addWidget(statusbar);
    setCentralWidget(strips);

    timer = new QTimer(this);
    timer->setObjectName(QStringLiteral("timer"));
    timer->setInterval(tickinterval_ms);
    connect(timer, &QTimer::timeout, this, &frmMain::tick);
    connect(area, &QMdiArea::subWindowActivated, this, &frmMain::updatemenus);

    placewindow();
    fillstationicons();
    updatemenus();
}

frmMain::~frmMain()
{
    if (mainwindow == this)
        mainwindow = nullptr;
}

/// Runs a menu entry's procedure; an error in it leaves things where they are.
static void runprocedure(void (*procedure)())
{
    try {
        procedure();
    } catch (const std::exception&) {
        return;
    }
}

void frmMain::buildmenus()
{
    std::array<QMenu*, 3> parents{}; // the open menu of each level
    const auto entries = menutable();
    for (const MenuEntry& entry : entries) {
        const auto level = static_cast<std::size_t>(entry.level);
        QMenu* parent = level > 0 ? parents[level - 1] : nullptr;
        if (*entry.name == '\0') {
            if (parent)
                parent->addSeparator();
            continue;
        }
        const QString text = QString::fromUtf8(entry.text);
        QAction* item = nullptr;
        if (ismenu(entry)) {
            QMenu* menu = parent ? parent->addMenu(text) : menuBar()->addMenu(text);
            menu->setObjectName(QString::fromLatin1(entry.name) + QStringLiteral("Menu"));
            parents[level] = menu;
            item = menu->menuAction();
        } else {
            item = parent ? parent->addAction(text) : menuBar()->addAction(text);
            item->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
            item->setCheckable(entry.checkable);
            if (entry.procedure)
                connect(item, &QAction::triggered, this,
                        [procedure = entry.procedure] { runprocedure(procedure); });
        }
        item->setObjectName(QString::fromLatin1(entry.name));
        item->setMenuRole(QAction::NoRole);
        actions.emplace(entry.name, item);
    }
    for (int i = 0; i < 4; ++i)
        action("mnuFileRecent" + std::to_string(i))->setVisible(false);
    for (const char* name : {"mnuEditUndo", "mnuEditRedo"}) // also from a window beside the frame
        action(name)->setShortcutContext(Qt::ApplicationShortcut);
    for (const char* name : {"mnuFileModeNormal", "mnuViewAuto", "mnuViewToolbar", "mnuViewStatus"})
        setchecked(name, true);
}

QAction* frmMain::action(std::string_view name) const
{
    const auto found = actions.find(name);
    return found == actions.end() ? nullptr : found->second;
}

bool frmMain::checked(std::string_view name) const
{
    const QAction* item = action(name);
    return item && item->isChecked();
}

void frmMain::setchecked(std::string_view name, bool on)
{
    if (QAction* item = action(name))
        item->setChecked(on);
}

unsigned frmMain::menustate() const
{
    unsigned state = busy ? needs::running : needs::idle;
    if (!area->subWindowList().isEmpty())
        state |= needs::child;
    if (activepicture())
        state |= needs::picture;
    if (!undotext().isEmpty())
        state |= needs::undo;
    if (!redotext().isEmpty())
        state |= needs::redo;
    return state;
}

void frmMain::updatemenus()
{
    const unsigned state = menustate();
    for (const MenuEntry& entry : menutable()) {
        if (QAction* item = action(entry.name)) {
            const bool works = entry.procedure || ismenu(entry);
            item->setEnabled(works && (entry.needs & ~state) == 0);
        }
    }
    action("mnuStop")->setVisible(busy);
    firststeps->setVisible((state & needs::child) == 0);
}

/// "Annuler: déplacer Nord"; a mark in the name is part of it, and makes no shortcut letter.
static QString undocaption(const QString& caption, QString what)
{
    what.replace(QLatin1Char('&'), QStringLiteral("&&"));
    return what.isEmpty() ? caption : caption + QStringLiteral(": ") + what;
}

void frmMain::showundo()
{
    action("mnuEditUndo")->setText(undocaption(QStringLiteral("Annuler"), undotext()));
    action("mnuEditRedo")->setText(undocaption(QStringLiteral("Rétablir"), redotext()));
    updatemenus();
}

void frmMain::showrecent()
{
    setWindowTitle(QString::fromStdString(maincaption()));
    for (int i = 0; i < 4; ++i) {
        QString text = QString::fromStdString(recentcaption(i));
        // The first mark is the shortcut letter's; one in a file's name is part of the name.
        for (qsizetype at = text.indexOf(QLatin1Char('&'), 1); at > 0;
             at = text.indexOf(QLatin1Char('&'), at + 2))
            text.insert(at, QLatin1Char('&'));
        QAction* item = action("mnuFileRecent" + std::to_string(i));
        item->setText(text);
        item->setVisible(!text.isEmpty());
    }
}

QMdiSubWindow* frmMain::addpicture(QWidget* picture)
{
    QMdiSubWindow* frame = area->addSubWindow(picture);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    // Afterwards, when the child has left the list.
    connect(frame, &QObject::destroyed, this, &frmMain::updatemenus, Qt::QueuedConnection);
    updatemenus();
    return frame;
}

std::vector<QWidget*> frmMain::childwindows() const
{
    std::vector<QWidget*> children;
    for (const QMdiSubWindow* frame : area->subWindowList(QMdiArea::CreationOrder))
        if (frame->widget())
            children.push_back(frame->widget());
    return children;
}

QWidget* frmMain::activechild() const
{
    const QMdiSubWindow* frame = area->currentSubWindow(); // also while another program is in use
    return frame ? frame->widget() : nullptr;
}

OpenPicture* frmMain::activepicture() const
{
    const auto* window = qobject_cast<frmPic*>(activechild());
    return window ? window->picture() : nullptr;
}

void frmMain::activate(QWidget* child)
{
    area->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(child->parentWidget()));
    child->setFocus();
}

void frmMain::setbusy(bool on)
{
    busy = on;
    for (QWidget* child : childwindows()) {
        auto* window = qobject_cast<frmPic*>(child);
        if (!window || !window->picture())
            continue;
        window->picture()->enabled = !on;
        window->refresh({});
        if (!on && window == activechild())
            window->setFocus();
    }
    if (frmLink* window = linkwindow(this))
        window->setbusy(on);
    if (frmUnit* window = unitwindow(this))
        window->setEnabled(!on);
    toolbar->setbusy(on);
    updatemenus();
}

void frmMain::tick()
{
    placehint->refresh();
    for (const auto& step : timersteps) {
        try {
            step();
        } catch (const std::exception&) {
            continue; // a failed port read doesn't end the tick
        }
    }
}

void frmMain::placewindow()
{
    static constexpr int titlebar = 40;
    const WindowPlace place = storedplace();
    // The status bar stays on the screen where the window is not too tall for it.
    const QRect room = screen()->availableGeometry();
    const int lowesttop = room.y() + room.height() - place.height_px - titlebar;
    move(place.left_px, std::max(room.y(), std::min(place.top_px, lowesttop)));
    resize(place.width_px, place.height_px);
    if (place.maximised)
        setWindowState(windowState() | Qt::WindowMaximized);
}

void frmMain::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    statusbar->fitwindow(width());
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        updatemenus();
    if (event->type() == QEvent::WindowStateChange && isMinimized())
        closedialogs({"frmGrid", "frmLink", "frmMapPro", "frmCustom", "frmObject", "frmDebug"});
}

void frmMain::closeEvent(QCloseEvent* event)
{
    event->setAccepted(isEnabled() && queryending(*this)); // disabled: still starting
}

void closedialogs(std::initializer_list<const char*> names)
{
    for (const char* name : names)
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String(name))
                window->close();
}
