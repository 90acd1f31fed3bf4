#pragma once

#include "network/tables.h"
#include "terrain/mapgrid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Results of an evaluation, by net and pair of stations, all from 1. For a below b: signal
/// quality, 50 + margin in dB held within 1 to 99, 0 when not evaluated. For a above b:
/// reachability, 50 for a direct link, less one for each retransmission, 0 when no path is known.
class QualityTable
{
public:
    std::uint8_t& at(int net, int a, int b) { return cells[index(net, a, b)]; }
    std::uint8_t at(int net, int a, int b) const { return cells[index(net, a, b)]; }
    void clear() { cells.assign(cells.size(), 0); }

private:
    static std::size_t index(int net, int a, int b)
    {
        const int cell = ((a - 1) * MAXUNIT + (b - 1)) * MAXNET + (net - 1);
        return static_cast<std::size_t>(cell);
    }
    std::vector<std::uint8_t> cells =
        std::vector<std::uint8_t>(std::size_t{MAXNET} * MAXUNIT * MAXUNIT);
};

/// Table of the last `evalnets`.
extern QualityTable quality;

/// First phase: margins of all pairs, on all threads. Results don't depend on their number.
///   allnets  evaluate nets that are not active, too
void evaluatedirect(const NetworkTables& tables, const MapGrid& map, bool allnets,
                    std::int16_t interference, QualityTable& table);

/// Second phase: what retransmissions add to the reachability of one net. Reads and writes the
/// cells of that net only.
void addretransmissions(const NetworkTables& tables, int net, QualityTable& table);

/// Both phases into a table, which is cleared first.
void evaluate(const NetworkTables& tables, const MapGrid& map, bool allnets,
              std::int16_t interference, QualityTable& table);

/// Brings a table up to date after one station moved, was raised, or was switched on or off: its
/// own pairs are evaluated again, then the retransmissions of all nets. Gives what `evaluate`
/// gives.
///   unit   the station; every other one is as it was when `table` was filled
///   table  of an evaluation with the same `allnets` and `interference`
void reevaluate(const NetworkTables& tables, const MapGrid& map, bool allnets,
                std::int16_t interference, int unit, QualityTable& table);

/// Evaluates every pair of enabled members of the process's nets into `quality`.
void evalnets(bool allnets);

/// The line of a pair: its class, 0 (no line) to 6, and the net that decides it, 0 without a line.
struct PairLine {
    int lineclass = 0;
    int net = 0;
};

/// The line of a pair a below b, from a table and the rules of the line colours.
PairLine pairline(const NetworkTables& tables, const QualityTable& table,
                  const std::array<std::uint8_t, 3>& linestyle, int a, int b);

/// Colour of the lines of a class, 0x00BBGGRR.
std::int32_t linecolour(int lineclass);

/// Line class of a pair a below b, 0 (no line) to 6, from a table and the rules of the line
/// colours.
int lineclass(const NetworkTables& tables, const QualityTable& table,
              const std::array<std::uint8_t, 3>& linestyle, int a, int b);
