#pragma once

#include "radio/evaluate.h"

/// The evaluation taken literally, step by step on the table itself, one pair and net at a time:
/// what the program's own must agree with.
void slowevaluation(const NetworkTables& tables, const MapGrid& map, bool allnets,
                    std::int16_t interference, QualityTable& table);

/// The line class of a pair, likewise.
int slowlineclass(const NetworkTables& tables, const QualityTable& table,
                  const std::array<std::uint8_t, 3>& linestyle, int a, int b);
