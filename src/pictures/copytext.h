#pragma once

#include "pictures/picture.h"

#include <string>
#include <string_view>

/// The text that goes to the clipboard beside a picture's image: ten fields, each ended by a tab:
/// longitude and latitude of each corner, the kind, and the source. UTF-8.
std::string copytext(const Picture& picture);

/// Places a picture by such a text: as many of the ten fields as there are, in their order. A field
/// that is no number counts as 0; one beyond the range of single precision ends the reading. The
/// kind is held between 0 and 20.
void parsecopytext(std::string_view text, Picture& picture);
