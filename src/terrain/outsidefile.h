#pragma once

#include "engine/tiles/tile.h"

#include <optional>
#include <string>

/// Opens a regular file for positioned reads; it closes with the last copy of the source. Nothing
/// is kept in memory. Empty when there is no such file or it cannot be read.
std::optional<ByteSource> openbytes(const std::string& path);
