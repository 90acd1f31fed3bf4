#pragma once

#include "pictures/paint/openpictures.h"

/// Size of the picture that a part is magnified to: the part's shape, within the screen. All
/// pixels.
QSize zoomsize(const QSize& part, const QSize& screen);

/// Magnifies a part of a placed picture into a new one, which shows the same place.
OpenPicture* zoompicture(OpenPicture& parent, const QRect& part);
