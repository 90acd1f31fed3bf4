#pragma once

#include "pictures/paint/openpictures.h"

#include <array>
#include <string>

/// The scale of a radio coverage, for a legend.
struct SignalScale {
    std::string unit; ///< "(dBm)" and the like
    std::array<float, 11> levels{};
};

/// Draws the colour scale into the lower right corner of a picture: of the elevations, or of a
/// signal.
void drawlegend(OpenPicture& picture, const SignalScale* signal = nullptr);
