#pragma once

#include "network/tables.h"

#include <array>
#include <string>

/// Lowest and highest antenna that the link window takes, m. A height of 0 in the table of heights
/// stands for the system's own; so the lower limit keeps a typed height in force.
inline constexpr double lowestantenna = 0.5;
inline constexpr double highestantenna = 2999;

/// A typed antenna height held within its limits, m; text that is no number counts as 0.
float typedheight(const std::string& text);

/// What the link window says of a station: role, system, and three of its numbers, as texts.
struct StationFields {
    std::array<std::string, 5> rows;
    std::string height; ///< of the antenna, m
};

/// Data of the transmitter: role, system, power (W), line loss (dB), antenna gain (dBi).
StationFields transmitterfields(const NetworkTables& tables, int net, int unit);
/// Data of the receiver: role, system, antenna gain (dBi), line loss (dB), sensitivity (µV).
StationFields receiverfields(const NetworkTables& tables, int net, int unit);
/// Without a net there is a height only.
StationFields barefields(float height);

/// The text that goes with a copied profile: ten fields, of which the first nine end with a tab.
/// Longitude and latitude of the ground under the picture's left and right edges, as corners from
/// the top left clockwise; the kind of a picture with four corners; the two names.
///   margin  what the picture shows beyond either station, in lengths of the path
std::string profilecopytext(const Unit& left, const Unit& right, double margin);
