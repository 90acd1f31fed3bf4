#pragma once

/// True when a user has changed the tables since the network was made, read or saved: a station
/// carried or moved, a height applied, whatever an editor writes. Beside `netdirty`, which tells
/// that the network dialog was open.
extern bool netedited;

/// Notes that a user has changed the tables. Whoever writes them on a user's order calls it.
void markedited();

/// True when closing or replacing the network would lose something.
bool netunsaved();

/// Notes that the tables are those of a file, or of a new network: nothing would be lost.
void marksaved();
