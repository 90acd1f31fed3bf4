#include "radio/evaluate.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

// What a user waits for after every change: all links of a net of 50 stations, and of 25 such nets,
// every path long enough for the most intervals. On two cores one net is to take less than 6 ms
// and 25 nets less than 60 ms.

namespace
{
constexpr int side = 2000;

MapGrid hills()
{
    MapGrid map;
    allocatemap(map, side, side);
    map.record.mapsize = 200;
    map.record.maplon0 = 6;
    map.record.maplat0 = 46;
    mapframe(map);
    std::mt19937 random(1);
    std::uniform_int_distribution<int> rough(0, 20);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            map.at(x, y) = static_cast<std::int16_t>(
                600 + 350 * std::sin(x * 0.013) * std::cos(y * 0.017) + rough(random));
    return map;
}

/// Fifty stations scattered over the map, no two within 157 cells of each other, all members of the
/// first `nets` nets.
NetworkTables stations(const MapGrid& map, int nets, Topology kind)
{
    NetworkTables tables;
    std::mt19937 random(2);
    std::uniform_real_distribution<double> place(0.02, 0.98);
    const double width = double{map.maplon[2]} - double{map.maplon[0]};
    const double height = double{map.maplat[0]} - double{map.maplat[2]};
    for (std::size_t unit = 1; unit <= MAXUNIT; ++unit) {
        const std::size_t row = (unit - 1) / 7;
        const std::size_t column = (unit - 1) % 7;
        const double x = (static_cast<double>(column) + 0.5 + 0.1 * place(random)) / 7.2;
        const double y = (static_cast<double>(row) + 0.5 + 0.1 * place(random)) / 8.2;
        tables.units[unit].lon = static_cast<float>(double{map.maplon[0]} + x * width);
        tables.units[unit].lat = static_cast<float>(double{map.maplat[2]} + y * height);
        tables.units[unit].elevation = 900;
    }
    for (int n = 1; n <= nets; ++n) {
        Net& net = tables.nets[static_cast<std::size_t>(n)];
        net.topology = static_cast<std::int16_t>(static_cast<int>(kind) + visiblebit);
        net.maxretrans = 20;
        net.fmin = net.fmax = static_cast<float>(100 + 10 * n);
        for (std::size_t unit = 1; unit <= MAXUNIT; ++unit) {
            net.member[unit] = memberbit;
            net.system[unit] = 1;
        }
    }
    for (int n = nets + 1; n <= MAXNET; ++n)
        tables.nets[static_cast<std::size_t>(n)].topology = 0;
    return tables;
}

void evaluation(benchmark::State& state, Topology kind)
{
    const MapGrid map = hills();
    const int nets = static_cast<int>(state.range(0));
    const NetworkTables tables = stations(map, nets, kind);
    QualityTable table;
    for ([[maybe_unused]] auto _ : state) {
        evaluate(tables, map, false, 0, table);
        benchmark::DoNotOptimize(table);
    }
    const int links = nets * MAXUNIT * (MAXUNIT - 1) / 2;
    state.counters["links/s"] = benchmark::Counter(static_cast<double>(links),
                                                   benchmark::Counter::kIsIterationInvariantRate);
}
} // namespace

BENCHMARK_CAPTURE(evaluation, voice, Topology::voice)
    ->Arg(1)
    ->Arg(25)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(evaluation, swarm, Topology::swarm)
    ->Arg(25)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
