#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "network/windows/frmCity.h"
#include "pictures/georeference.h"
#include "pictures/paint/cursor.h"
#include "pictures/windows/showworld.h"
#include "terrain/windows/frmGrid.h"
#include "terrain/windows/frmMapPro.h"
#include "terrain/windows/mapwindows.h"

#include <QPainter>

static frmGrid* gridwindow()
{
    return mainwindow->findChild<frmGrid*>(QString(), Qt::FindDirectChildrenOnly);
}

void mapproperties()
{
    auto* dialog = mainwindow->findChild<frmMapPro*>(QString(), Qt::FindDirectChildrenOnly);
    if (!dialog) {
        dialog = new frmMapPro(mainwindow);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void elevationgrid()
{
    const bool shown = mainwindow->checked("mnuViewGrid");
    if (shown)
        movecursor(cursor.lon, cursor.lat);
    frmGrid* grid = gridwindow();
    if (grid && shown)
        grid->activateWindow(); // its arrow keys walk the cursor
    else if (grid)
        grid->close();
}

/// The elevation grid follows the cursor, and appears with it, while its check mark is set.
static void refreshgrid()
{
    if (!mainwindow || !mainwindow->checked("mnuViewGrid"))
        return;
    frmGrid* grid = gridwindow();
    if (!grid) {
        grid = new frmGrid(mainwindow);
        QObject::connect(grid, &QDialog::finished, mainwindow,
                         [] { mainwindow->setchecked("mnuViewGrid", false); });
    }
    grid->showcell(cursor.lon, cursor.lat, cursor.x, cursor.y);
    if (!grid->isVisible())
        grid->show();
}

static QImage picturepiece(float lon, float lat, int pixels, int side)
{
    const OpenPicture* picture = mainwindow ? mainwindow->activepicture() : nullptr;
    float x = 0;
    float y = 0;
    if (!picture || !ll2pic(picture->data, lon, lat, x, y))
        return {};
    QImage piece(side, side, QImage::Format_RGB32);
    piece.fill(Qt::black);
    QPainter painter(&piece);
    const double scale = static_cast<double>(side) / pixels;
    const double half = pixels / 2.0;
    painter.scale(scale, scale);
    painter.translate(half - static_cast<double>(x), half - static_cast<double>(y));
    paintsurface(picture->surface, painter);
    return piece;
}

void connectmapwindows()
{
    mapwindowhooks.cursorposition = [](float& lon, float& lat) {
        lon = cursor.lon;
        lat = cursor.lat;
    };
    mapwindowhooks.cursorcell = [](int& x, int& y) {
        x = cursor.x;
        y = cursor.y;
    };
    mapwindowhooks.movecursor = movecursor;
    mapwindowhooks.showworld = showworld;
    mapwindowhooks.choosecity = [](QWidget* owner) { frmCity(owner).exec(); };
    mapwindowhooks.picturepiece = picturepiece;
    picturehooks.cursormoved = refreshgrid;
}
