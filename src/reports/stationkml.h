#pragma once

#include "network/tables.h"
#include "reports/stationlinks.h"

#include <span>
#include <string>

/// The placed stations and links as a KML: a folder of points and one of lines, these in the
/// colours of their classes, all with their data.
std::string stationkml(const NetworkTables& tables, std::span<const StationLink> links);
