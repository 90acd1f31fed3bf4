#pragma once

#include "network/tables.h"

/// A step of the main timer: draws the nets again when a station has moved and nothing else runs.
void redrawmoved();

/// Puts a station where the user wants it, degrees, draws the nets, and tells its place. It becomes
/// the current one, and the network counts as edited.
void placestation(int unit, float lon, float lat);

/// A station that the mouse carries, as it was before.
struct StationDrag {
    int unit = 0;
    Unit before;
    bool wasedited = false;
};

/// Evaluates the nets, so that carrying the station need only look at its own links.
StationDrag begindrag(int unit);
/// Takes the station to a position, degrees, with its links evaluated and coloured anew on every
/// picture. The network counts as changed.
void dragunit(const StationDrag& drag, float lon, float lat);
/// Puts the station back where it was.
void putback(const StationDrag& drag);
/// Leaves the station where it is; its links lie between the others again.
void settle(const StationDrag& drag);
