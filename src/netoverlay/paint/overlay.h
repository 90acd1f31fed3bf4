#pragma once

#include "pictures/paint/openpictures.h"

#include <QColor>
#include <QImage>

#include <cstdint>
#include <vector>

/// The icons that a station's number selects from; filled at start-up.
extern std::vector<QImage> stationicons;

/// Height in m to which stations and lines are raised in 3D pictures; 0 until networks were drawn,
/// then it only grows.
extern float toplevel;

/// Takes hairs, selection, marks and drawing off every picture.
void erasenets();

/// Takes what is drawn over every picture off it. Hairs and selection stay.
void clearpictures();

/// Draws a station anew whose name, colours or icon changed. The nets that are drawn stay; where
/// none are, it is drawn alone.
void redrawstation(int unit);

/// Draws a station, or all 50 for any other number, with its cross, label and icon on every placed
/// picture.
///   clear  takes the drawing off first
void drawstations(int unit, bool clear);

/// Draws one link with an arrowhead from a to b on every picture, in place of all that was drawn
/// over it.
void linkoverlay(int a, int b, const QColor& colour);

/// Draws links and stations on every picture, or on one, from the table of the last evaluation, in
/// place of what was drawn over it. Hairs and selection stay.
///   carried  station on its way, whose links lie on top; 0: none
void paintnets(int carried = 0);
void paintnets(OpenPicture& picture);

/// Evaluates the active nets and draws links and stations on every picture.
void drawnets();

/// Shows a network that was just opened: draws a picture of its map when none is open, then the
/// nets over all pictures.
void shownetwork();

/// Lets the rooms below draw and erase the networks.
void connectnetoverlay();
