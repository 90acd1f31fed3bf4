#include "pictures/paint/cursor.h"

#include "app/base/hooks.h"
#include "app/base/numbers.h"
#include "app/base/operation.h"
#include "coordinates/positiontexts.h"
#include "pictures/georeference.h"
#include "terrain/mapgrid.h"

Cursor cursor;

namespace
{

/// Looks the map's cell up; its text for the status line.
std::string heighttext(float lon, float lat)
{
    float x = 0;
    float y = 0;
    float h = cursor.h;
    if (!maplookup(lon, lat, x, y, h))
        return "<Hors des limites de la carte>";
    cursor.x = static_cast<std::int32_t>(x);
    cursor.y = static_cast<std::int32_t>(y);
    cursor.h = h;
    return generalnumber(h) + "m  x=" + std::to_string(cursor.x) + " y=" + std::to_string(cursor.y);
}

void placehairs(OpenPicture& picture)
{
    float x = 0;
    float y = 0;
    if (!ll2pic(picture.data, cursor.lon, cursor.lat, x, y)) {
        hidecursor(picture);
        return;
    }
    const int column = static_cast<int>(x);
    const int row = static_cast<int>(y);
    PictureMarks& marks = picture.marks;
    marks.vertical = QLine(column, 0, column, picture.surface.height());
    marks.horizontal = QLine(0, row, picture.surface.width(), row);
    marks.Line1 = marks.Line2 = !picture.data.isstereo();
    picturehooks.picturechanged(picture, {});
}

} // namespace

void hidecursor(OpenPicture& picture)
{
    picture.marks.Line1 = picture.marks.Line2 = picture.marks.Shape2 = false;
    picturehooks.picturechanged(picture, {});
}

void movecursor(float lon, float lat)
{
    if (opbusy > 0)
        return;
    const std::string height = heighttext(lon, lat);
    float shownlon = lon; // the texts bring their own copies into range
    float shownlat = lat;
    hooks.setlabel1(dmslon(shownlon) + "  " + dmslat(shownlat) + "  " + height);
    cursor.lon = lon;
    cursor.lat = lat;
    picturehooks.cursormoved();
    for (const auto& picture : openpictures)
        placehairs(*picture);
}
