#pragma once

#include <QMainWindow>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class QAction;
class QMdiArea;
class QMdiSubWindow;
class QTimer;
class FirstSteps;
class PlaceHint;
class StatusBar;
class ToolBar;
struct OpenPicture;

/// The program's frame: menus, toolbar, the picture windows, status bar, and the periodic tick.
class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

    /// The action of a menu entry, by its name in the menu table; nullptr when there is none.
    QAction* action(std::string_view name) const;
    bool checked(std::string_view name) const;
    void setchecked(std::string_view name, bool on);

    /// Takes a picture into the frame as a child window.
    QMdiSubWindow* addpicture(QWidget* picture);
    /// The child windows' contents, in the order of their opening.
    std::vector<QWidget*> childwindows() const;
    /// The content of the active child window; nullptr when there is none.
    QWidget* activechild() const;

    /// The picture in it; nullptr when it shows none.
    OpenPicture* activepicture() const;
    void activate(QWidget* child);

    /// Into (true) or out of the state in which only Stop is live.
    void setbusy(bool on);
    /// Enables each menu entry by what it needs.
    void updatemenus();
    /// The entries that take back and do again tell what, and are enabled where there is something.
    void showundo();
    /// Caption and recent entries follow the session.
    void showrecent();

    QMdiArea* area;
    ToolBar* toolbar = nullptr;
    StatusBar* statusbar;
    QTimer* timer;
    /// What each tick does, in this order; an error in one doesn't reach the next.
    std::vector<std::function<void()>> timersteps;
    /// How long ports and sockets have for their end, seconds.
    double winddown_s = 1;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildmenus();
    void placewindow();
    void tick();
    unsigned menustate() const;

    std::map<std::string, QAction*, std::less<>> actions;
    FirstSteps* firststeps = nullptr; ///< shown while no picture is open
    PlaceHint* placehint = nullptr;
    bool busy = false;
};

/// The main window of the run; nullptr before the start and after the end.
extern frmMain* mainwindow;

/// Closes the open dialogs of these names, in this order.
void closedialogs(std::initializer_list<const char*> names);
