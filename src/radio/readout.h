#pragma once

#include "radio/linkstudy.h"

#include <cstdint>
#include <optional>
#include <string>

/// What the cursor over a profile tells of a place on the path.
struct LinkReadout {
    double x = 0;     ///< place in sample intervals from the left station, held within the path
    double km = 0;    ///< and in km
    std::string text; ///< the line over the picture, UTF-8
    /// S-meter readings from left to right and from right to left; none where the place has no
    /// loss: the meters stay as they are.
    std::optional<std::int16_t> meter12;
    std::optional<std::int16_t> meter21;
    float lon = 0; ///< the ground below, degrees, on the map's side of the date line
    float lat = 0;
};

/// Reads a study at x sample intervals from the left station. An empty text when the study isn't
/// done.
LinkReadout readlink(const LinkStudy& study, const NetworkTables& tables, const MapGrid& map,
                     double x);
