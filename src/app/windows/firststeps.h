#pragma once

#include <QFrame>

#include <functional>
#include <vector>

class QAction;
class QCommandLinkButton;

/// What the empty picture area shows: the first steps, each a button that takes it.
class FirstSteps : public QFrame
{
    Q_OBJECT

public:
    /// action: of a menu entry, by its name; a button is enabled when its action is
    FirstSteps(const std::function<QAction*(const char*)>& action, QWidget* area);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addstep(QAction* action, const char* name, const QString& title, const QString& what);
    void center();

    std::vector<QCommandLinkButton*> steps;
    std::vector<QString> descriptions; ///< of the steps, left out where they have no room
};
