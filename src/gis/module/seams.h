#pragma once

#include "gis/module/raster.h"

#include <functional>
#include <optional>
#include <string>

/// Finds an existing cell by its name below the folder.
using FindCell = std::function<std::optional<std::string>(const std::string& name)>;

/// Neighbouring cells share their edge lines. Fills the voids on a cell's edges from the cells
/// around it, the finer level of each; between their samples linearly.
void takeedges(const FindCell& find, CellSamples& samples);

/// A longitude in whole degrees brought into -180 .. 179.
int wrapped(int lon);
