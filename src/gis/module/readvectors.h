#pragma once

#include "gis/vectors.h"

/// Reads all layers of a vector file of any kind, their positions brought to WGS 84.
bool readvectors(const std::string& file, const VectorLimits& limits,
                 std::vector<VectorLayer>& layers, std::string& why);
