#pragma once

#include "pictures/paint/openpictures.h"

#include <string>

/// Asks whether what was drawn over a picture shall become part of it, and keeps it on Yes. On No
/// it stays until the next erasing. True when it was kept.
///   what  names the drawing in the question; it ends with a blank
bool keepdrawing(OpenPicture& picture, const std::string& what);
