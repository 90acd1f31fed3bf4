#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "netoverlay/paint/overlay.h"
#include "netoverlay/windows/stationmouse.h"
#include "network/windows/frmUnit.h"
#include "pictures/paint/cursor.h"
#include "pictures/paint/fonts.h"

void stationproperties()
{
    showunits(mainwindow);
}

void connectunitwindow()
{
    unitwindowhooks.cursorposition = [](float& lon, float& lat) {
        lon = cursor.lon;
        lat = cursor.lat;
    };
    unitwindowhooks.movecursor = movecursor;
    unitwindowhooks.clearpictures = clearpictures;
    unitwindowhooks.redrawstation = redrawstation;
    unitwindowhooks.drawnets = drawnets;
    unitwindowhooks.icons = [] { return stationicons; };
    unitwindowhooks.labelfont = labelfont;
    picturewindowhooks.editstation = stationproperties;
    picturehooks.stationmoved = [others = picturehooks.stationmoved](int unit, bool settled) {
        others(unit, settled);
        if (frmUnit* window = mainwindow ? unitwindow(mainwindow) : nullptr)
            window->followstation(unit);
    };
}
