#pragma once

#include <string>

/// Lines of key=value on a picture: kind, size, corners and source, or a Failure.
std::string pictureinfo(const std::string& path);
