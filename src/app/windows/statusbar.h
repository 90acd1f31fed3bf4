#pragma once

#include <QColor>
#include <QLabel>
#include <QWidget>

#include <array>

class QFrame;

/// A text that is cut with dots where its place is too narrow; the tool tip then has it whole.
class StatusLabel : public QLabel
{
public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// One of the lights of the live layer.
class Lamp : public QWidget
{
public:
    using QWidget::QWidget;
    void setcolour(const QColor& next);
    QColor colour() const { return current; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor current{0, 96, 0};
};

/// The strip along the bottom of the main window: texts, lights and the progress bar.
class StatusBar : public QWidget
{
public:
    explicit StatusBar(QWidget* parent);

    void settext1(const QString& text);
    void settext2(const QString& text);
    /// The progress bar at 1 to 100 percent; 0 hides it. Nothing is painted while the strip is
    /// hidden.
    void setprogress(int percent);
    /// Chosen by the user; a window too narrow hides the strip all the same.
    void setwanted(bool wanted);
    /// Shows or hides the strip for a main window of this width, in pixels.
    void fitwindow(int windowwidth);

    StatusLabel* Label1; ///< "Prêt", the percentage, the cursor's position
    StatusLabel* Label2; ///< texts of operations, results
    std::array<Lamp*, 3> Shape2{};
    std::array<QLabel*, 3> Label3{};
    std::array<QFrame*, 2> Shape1{}; ///< the progress bar, its frame

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void layoutpanels();

    int label1width;
    int shownpercent = 0;
    int windowwidth_px = 0;
    bool userwants = true;
};
