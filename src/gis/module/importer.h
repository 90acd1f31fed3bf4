#pragma once

#include "gis/importer.h"

/// See `ImportOrder`.
void importrasters(const ImportOrder& order, ImportResult& result);
