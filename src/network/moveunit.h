#pragma once

/// A station has another place than its links were evaluated for: the main timer has the nets drawn
/// anew.
extern bool moved;

/// Puts a station at a position, degrees, on the ground of the map; off the map it lies at 0 m.
void placeunit(int unit, float lon, float lat);

/// The first enabled station that has no place yet; 0: none.
int unplacedunit();

/// Puts the current station (`selection.curunit`) at a position, degrees, and has it drawn alone
/// (`hooks.unitmoved`); the main timer draws the nets again.
void moveunit(float lon, float lat);
