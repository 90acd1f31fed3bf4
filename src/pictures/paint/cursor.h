#pragma once

#include "pictures/paint/openpictures.h"

#include <cstdint>

/// The one geographic cursor of the program.
struct Cursor {
    float lon = 0;      ///< curlon, degrees
    float lat = 0;      ///< curlat, degrees
    std::int32_t x = 0; ///< curx: the map's column under the cursor, as it was when it left the map
    std::int32_t y = 0; ///< cury: its row
    float h = 0;        ///< curh: elevation, m
};
extern Cursor cursor;

/// Moves the cursor: the position in the status line, the hairs on every picture that contains it.
/// Does nothing while a long operation runs.
void movecursor(float lon, float lat);

/// Moves the cursor by columns and rows of the map, north being up.
void stepcursor(int columns, int rows);

/// The double cursor of stereo pictures: two boxes that a viewer sees as one, at a depth.
struct StereoPosition {
    float x = 0, y = 0; ///< pixels
    float d = 0;        ///< disparity, pixels, -10 to 30
};
extern StereoPosition stereopos;

/// Moves the double cursor and shows it on a stereo picture; hides it on any other.
///   x, y      pixels: where to, or by how much when `relative`
///   change    of the disparity, pixels, when `relative`
void stereocursor(OpenPicture& picture, float x, float y, float change, bool relative);

/// Takes hairs and selection off a picture.
void hidecursor(OpenPicture& picture);
