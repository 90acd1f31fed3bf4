#pragma once

#include <QAbstractButton>
#include <QSvgRenderer>
#include <QWidget>

#include <array>
#include <functional>

class QAction;
class QFrame;

/// A toolbar image: runs a menu action when the mouse is released over it. Its bevel follows the
/// mouse.
class ToolButton : public QAbstractButton
{
public:
    /// icon: base name of a drawing among the program's toolbar icons
    ToolButton(const char* icon, QAction* action, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void loadicon();
    void followaction();

    QString iconname;
    QAction* target;
    QSvgRenderer drawing;
};

/// The strip along the top of the main window.
class ToolBar : public QWidget
{
public:
    static constexpr int imagecount = 19;
    static constexpr int stopimage = 18;

    /// action: gives the menu action of a name
    ToolBar(const std::function<QAction*(const char*)>& action, QWidget* parent);

    /// During an operation only the stop image stands there.
    void setbusy(bool busy);
    QSize sizeHint() const override;

    std::array<ToolButton*, imagecount> buttons{};
    std::array<QFrame*, 5> separators{};

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void layoutimages();
};
