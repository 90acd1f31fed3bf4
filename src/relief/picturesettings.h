#pragma once

#include "pictures/picture.h"
#include "terrain/mapgrid.h"

#include <array>
#include <cstdint>
#include <string>

/// How a map picture is drawn: the map's record and frame, and the layers over it. The dialog of a
/// picture's properties edits them before they become the map's own.
struct PictureSettings {
    MapRecord record;
    std::array<float, 4> maplon{};
    std::array<float, 4> maplat{};
    std::int16_t cities = 0; ///< 0 or -1
    bool legend = true;      ///< the legend is drawn where the colour table asks for it
};

/// Where the settings start: with the map's, or, for a picture drawn from a map with relief, with
/// those it was drawn with. No picture means a new one.
PictureSettings settingsof(const MapGrid& map, const Picture* picture);

/// Makes the settings those of the map.
void applysettings(const PictureSettings& settings, MapGrid& map);

/// True when the picture shows the map in memory: same frame, same size, drawn as a map.
bool corresponds(const Picture& picture, const MapGrid& map);

/// The dialog's title, and its text about the picture, in lines. No picture means a new one.
std::string settingstitle(const Picture* picture);
std::string settingsinfo(const PictureSettings& settings, const Picture* picture,
                         const MapGrid& map);
