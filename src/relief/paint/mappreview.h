#pragma once

#include "relief/picturesettings.h"

#include <QImage>

/// Every n-th sample of a map, no more than `side` columns and rows, with the map's frame.
MapGrid thinnedmap(const MapGrid& map, int side);

/// A map as it will be drawn with these settings and the colour table of the run. Contour lines of
/// a thinned map would run together: those of the settings are left out.
QImage mappreview(const MapGrid& map, const PictureSettings& settings);
