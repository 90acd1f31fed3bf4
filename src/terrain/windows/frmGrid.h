#pragma once

#include "terrain/gridcells.h"

#include <QDialog>

#include <array>

class QLabel;
class QPushButton;
class QTimer;

/// The elevations of the 5 by 5 cells around the geographic cursor, in a small floating window. The
/// arrow keys walk the cursor cell by cell, a double click moves it to a cell. Its content follows
/// the cursor by `showcell`.
class frmGrid : public QDialog
{
    Q_OBJECT

public:
    explicit frmGrid(QWidget* parent = nullptr);

    /// Writes the cells around (x, y) and the position's texts; the zoom panel follows at most four
    /// times a second.
    void showcell(float lon, float lat, int x, int y);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makewidgets();
    void flipzoom();
    void fitzoom();
    void refreshzoom();
    void movetocell(int i);
    bool walk(int key);

    std::array<QLabel*, gridcells> cells{};
    QLabel* position = nullptr;
    QLabel* locatorlabel = nullptr;
    QPushButton* zoombutton = nullptr;
    QLabel* zoom = nullptr;
    QTimer* zoomlater = nullptr;    ///< runs when the panel must wait for its next refresh
    float zoomlon = 0, zoomlat = 0; ///< position of the panel, degrees
    bool placed = false;            ///< the margins to the screen's edges are those of this window
};
