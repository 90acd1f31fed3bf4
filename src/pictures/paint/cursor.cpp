#include "pictures/paint/cursor.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "coordinates/positiontexts.h"
#include "pictures/georeference.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <cmath>

Cursor cursor;
StereoPosition stereopos;

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

/// A column or row as degrees between two edges of the map; `fallback` where it has only one.
float alongmap(int index, int last, float from, float to, float fallback)
{
    if (last < 1)
        return fallback;
    const double fraction = static_cast<double>(index) / last;
    const double span = static_cast<double>(to) - static_cast<double>(from);
    return static_cast<float>(fraction * span + static_cast<double>(from));
}

/// The pair of boxes, and a frame one pixel outside each.
std::array<QRect, 4> stereoboxes(const StereoPosition& at)
{
    constexpr int half = 4; // pixels from a box's middle to its edge
    constexpr int side = 2 * half + 1;
    const int x = static_cast<int>(std::floor(at.x));
    const int top = static_cast<int>(std::floor(at.y)) - half;
    const int right = static_cast<int>(std::floor((at.d + 1) / 2));
    const int left = static_cast<int>(std::floor(at.d / 2));
    const QRect box0(right + x - half, top, side, side);
    const QRect box1(x - left - half, top, side, side);
    return {box0, box1, box0.adjusted(-1, -1, 1, 1), box1.adjusted(-1, -1, 1, 1)};
}

} // namespace

void stepcursor(int columns, int rows)
{
    const auto& maplon = mapgrid.maplon;
    const auto& maplat = mapgrid.maplat;
    const float lon = columns == 0 ? cursor.lon
                                   : alongmap(cursor.x + columns, mapgrid.upperx(), maplon[0],
                                              maplon[1], cursor.lon);
    const float lat =
        rows == 0 ? cursor.lat
                  : alongmap(cursor.y + rows, mapgrid.uppery(), maplat[2], maplat[1], cursor.lat);
    movecursor(lon, lat);
}

void stereocursor(OpenPicture& picture, float x, float y, float change, bool relative)
{
    constexpr float nearest = 30;
    constexpr float farthest = -10;
    std::array<QRect, 4> boxes;
    if (picture.data.isstereo()) {
        stereopos.x = relative ? stereopos.x + x : x;
        stereopos.y = relative ? stereopos.y + y : y;
        if (relative)
            stereopos.d = std::clamp(stereopos.d + change, farthest, nearest);
        boxes = stereoboxes(stereopos);
    }
    if (picture.marks.Shape1 == boxes)
        return;
    picture.marks.Shape1 = boxes;
    picturehooks.picturechanged(picture, {});
}

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
