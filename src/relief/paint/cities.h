#pragma once

#include "pictures/paint/openpictures.h"

#include <string>

/// Draws the places of a file that lie on a picture: a cross and the name. A name that begins with
/// "cities" is the gazetteer in the program's folder. A missing file draws nothing.
///   commit  keep what is drawn
void drawcities(OpenPicture& picture, bool commit, const std::string& filename);
