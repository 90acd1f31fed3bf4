#pragma once

#include "radio/linkstudy.h"

#include <optional>
#include <string>

/// Intervals of a profile that are too few for its file.
inline constexpr int fewintervals = 2;

/// The file of a profile, UTF-8 with CR LF: an index of the values, the values, and a line per
/// sample. Frequency 0 stands for a link without a net.
///   study    the link, for its names, antennas and frequency
///   profile  bare terrain with the stations' elevations at its ends
std::string profiletext(const LinkStudy& study, const Profile& profile);

/// Studies a link; the bytes of its profile's file, in Windows-1252. A profile of two intervals or
/// less has none.
///   net  0 or less: with the default antenna heights, and no frequency
///   why  receives the reason, in English, where there is none
std::optional<std::string> profilefile(const NetworkTables& tables, const MapGrid& map, int a,
                                       int b, int net, const AnalysisOptions& options,
                                       std::string* why = nullptr);

/// Writes that file. True when it was written.
bool exportprofile(const std::string& filename, const NetworkTables& tables, const MapGrid& map,
                   int a, int b, int net, const AnalysisOptions& options,
                   std::string* why = nullptr);
