#pragma once

#include "network/tables.h"
#include "pictures/paint/openpictures.h"

// The network that the benchmarks of windows work on: 50 stations scattered over a hilly map of
// 2000 x 2000 samples, no two close to each other, so that every path has the most intervals.

/// Fills the map.
void makehills();
/// A position by its share of the map's width and height.
float lonat(double share);
float latat(double share);
/// Fills the tables: all stations are members of the first `nets` nets, which relay to the full.
void makenetwork(int nets, Topology kind);
/// The one open picture: the map's whole extent in a square.
///   side  pixels
OpenPicture& makepicture(int side);
