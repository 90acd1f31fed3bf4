#pragma once

#include "network/tables.h"

#include <vector>

/// The nets that have both stations as members, when both are enabled; ascending.
std::vector<int> commonnets(const NetworkTables& tables, int unitA, int unitB);
