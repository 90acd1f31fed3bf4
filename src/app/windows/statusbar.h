#pragma once

#include <QColor>
#include <QLabel>
#include <QStatusBar>

#include <array>

class QProgressBar;

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
    /// The light's colour; it is repainted when that changes.
    void setcolour(const QColor& next);
    QColor colour() const { return current; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor current{0, 96, 0};
};

/// The strip along the bottom of the main window: texts, lights and the progress bar.
class StatusBar : public QStatusBar
{
public:
    explicit StatusBar(QWidget* parent);

    /// Texts of the field for places and of the one for what happens.
    void setplace(const QString& shown);
    void settext(const QString& shown);
    /// The progress bar at 1 to 100 percent; 0 hides it. Nothing is painted while the strip is
    /// hidden.
    void setprogress(int percent);
    /// Chosen by the user; a window too narrow hides the strip all the same.
    void setwanted(bool wanted);
    /// Shows or hides the strip for a main window of this width, in pixels.
    void fitwindow(int windowwidth);

    StatusLabel* place; ///< "Prêt", the percentage, the cursor's position
    StatusLabel* text;  ///< texts of operations, results
    std::array<Lamp*, 3> lamps{};
    std::array<QLabel*, 3> lampnames{};
    QProgressBar* progress;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makelamps();
    void fitpanels();

    int placewidth;
    int windowwidth_px = 0;
    bool userwants = true;
};
