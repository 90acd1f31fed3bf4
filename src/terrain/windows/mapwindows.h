#pragma once

#include <QImage>

#include <functional>

class QWidget;

/// What the map's windows ask of the rooms above: the geographic cursor, the pictures, the world
/// map, the list of places. The program fills these at its start; a button whose procedure is not
/// there is disabled.
struct MapWindowHooks {
    /// The cursor's position, degrees.
    std::function<void(float& lon, float& lat)> cursorposition;
    /// The cursor's cell of the map.
    std::function<void(int& x, int& y)> cursorcell;
    std::function<void(float lon, float lat)> movecursor;
    std::function<void()> showworld;
    /// Lets the user pick a place, which goes to `mapedit`. The window is the owner of the list.
    std::function<void(QWidget* owner)> choosecity;
    /// A piece of the active picture, `pixels` of its pixels wide and high, with a position in its
    /// middle, magnified to a square of this side; a null image where there is none.
    std::function<QImage(float lon, float lat, int pixels, int side)> picturepiece;
};
extern MapWindowHooks mapwindowhooks;
