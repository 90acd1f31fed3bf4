#pragma once

#include "pictures/picture.h"

#include <string>
#include <string_view>

/// Reads the text of a sidecar (.dat) into a picture: kind, corners, source, and the values of its
/// kind. An error ends the reading: what was read before it stands, the rest is 0.
void parsesidecar(std::string_view text, Picture& picture);

/// The text of a picture's sidecar, in Windows-1252.
std::string sidecartext(const Picture& picture);

/// Reads the older form (.adr), two corners with longitudes positive to the west, into a picture of
/// four corners. An error ends the reading.
void parseadr(std::string_view text, Picture& picture);

/// Name of a raster's companion: its last three characters replaced.
std::string companion(std::string_view raster, std::string_view extension);
