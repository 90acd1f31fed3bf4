#pragma once

#include "pictures/picture.h"

/// Pixel to degrees, bilinear over the four corners. True when the pixel lies in the picture;
/// beyond its edge the extrapolated degrees come with a false. Pictures of other kinds than 1 and 2
/// give false and change nothing.
bool pic2ll(const Picture& picture, float x, float y, float& lon, float& lat);

/// Degrees to pixel, rounded to whole numbers. True when the position lies in the picture;
/// positions outside still get pixel numbers. Arithmetic that fails gives false and -1, -1.
bool ll2pic(const Picture& picture, float lon, float lat, float& x, float& y);
