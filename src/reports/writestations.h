#pragma once

#include "network/tables.h"
#include "reports/stationlinks.h"

#include <optional>
#include <span>
#include <string>

/// Kinds of files in which stations go out.
enum class StationFormat { csv, gpx, kml, geojson };

/// The kind that a name's ending tells; nothing for another ending.
std::optional<StationFormat> stationformat(const std::string& path);

/// True for a kind that has room for links.
bool takeslinks(StationFormat format);

/// The placed stations, and the links if the kind takes them, as a file of that kind: each link a
/// line with its net, class, distance and margin. Nothing, and `why`, for a GPX or a GeoJSON where
/// the program was built without the module of such files.
std::optional<std::string> stationbytes(StationFormat format, const NetworkTables& tables,
                                        std::span<const StationLink> links, std::string& why);
