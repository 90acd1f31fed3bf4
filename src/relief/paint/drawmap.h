#pragma once

#include "base/operation.h"
#include "pictures/paint/openpictures.h"

struct MapGrid;
struct PictureSettings;

/// The drawing of a map, as the interface shows it: counts its tiles by `optiles`.
Job drawmapjob(const MapGrid& map);

/// Draws the process's map into a picture, tile by tile, then the layers over it. A long operation:
/// a stop leaves the tiles that are finished, and the picture's data as it was.
///   picture   none: a new one is made
///   settings  what it is drawn with, in place of the map's own
///   commit    keep what is drawn, and end the operation; false for a stage of another operation
/// Returns the picture drawn in.
OpenPicture* drawmap(OpenPicture* picture, const PictureSettings& settings, bool commit);
/// The same with the map's own settings.
OpenPicture* drawmap(OpenPicture* picture, bool commit);

/// Lets the logic have a map drawn, and keeps the colour table on the map.
void connectrelief();
