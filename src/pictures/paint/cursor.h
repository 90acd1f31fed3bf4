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

/// Takes hairs and selection off a picture.
void hidecursor(OpenPicture& picture);
