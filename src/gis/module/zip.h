#pragma once

#include "gis/rasters.h"

/// The bytes of an archive.
std::optional<std::string> zipbytes(const std::vector<ZipEntry>& entries, std::string& why);
