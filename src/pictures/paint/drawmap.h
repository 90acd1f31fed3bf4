#pragma once

#include "pictures/paint/openpictures.h"

#include <array>
#include <string>

/// Draws the process's map into a picture, tile by tile, then the layers over it. A long operation:
/// a stop leaves the tiles that are finished, and the picture's data as it was.
///   picture  none, or any picture while `newpic` is set: a new one is made
///   commit   keep what is drawn, and end the operation; false for a stage of another operation
/// Returns the picture drawn in.
OpenPicture* drawmap(OpenPicture* picture, bool commit);

/// Draws the places of a file that lie on a picture: a cross and the name. A name that begins with
/// "cities" is the gazetteer in the program's folder. A missing file draws nothing.
///   commit  keep what is drawn
void drawcities(OpenPicture& picture, bool commit, const std::string& filename);

/// The scale of a radio coverage, for a legend.
struct SignalScale {
    std::string unit; ///< "(dBm)" and the like
    std::array<float, 11> levels{};
};

/// Draws the colour scale into the lower right corner of a picture: of the elevations, or of a
/// signal.
void drawlegend(OpenPicture& picture, const SignalScale* signal = nullptr);
