#pragma once

#include "gis/vectors.h"

#include <optional>
#include <string>

/// The bytes of a vector file of one kind. GeoJSON takes one layer.
std::optional<std::string> vectorbytes(const std::vector<VectorLayer>& layers, VectorFormat format,
                                       std::string& why);
