#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Where a place's name stands to its point.
enum class Placement : std::uint8_t {
    right = 0, ///< begins at the point
    above = 1,
    aboveleft = 2,
    left = 3,
    centred = 4 ///< over the point, without a cross
};

/// A name on the map, from the gazetteer or a file of labels.
struct Place {
    /// What lies under the name.
    enum class Box : std::uint8_t {
        complement, ///< the inverse of the name's colour, unless labels are transparent
        colour,     ///< `background`
        none
    };
    std::int32_t colour = 0; ///< 0x00BBGGRR
    float lat = 0, lon = 0;  ///< degrees, east positive
    std::string name;        ///< UTF-8
    Placement placement = Placement::right;
    Box box = Box::complement;
    std::int32_t background = 0; ///< 0x00BBGGRR
};

/// Places from the text of such a file, in Windows-1252: a header, then lines of colour, latitude,
/// longitude, name, and, if they are there, placement and background. Lines with fewer than three
/// commas are left out.
///   lonsign  -1 where longitudes are positive to the west
std::vector<Place> parseplaces(std::string_view text, int lonsign);
