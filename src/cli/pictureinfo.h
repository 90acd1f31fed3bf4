#pragma once

#include "cli/output.h"

#include <string>

/// What is told of a picture: kind, size, corners and source, or a Failure.
KeyValues pictureinfo(const std::string& path);

/// True for the bytes of a picture.
bool ispicture(const std::string& content);

/// What is told of a picture by its bytes alone: it has no corners.
KeyValues streampictureinfo(const std::string& content);
