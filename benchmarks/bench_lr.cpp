// The propagation model: the kernel behind LR against its plain form, on one thread, in one run.
//
// The counter "ratio" of a kernel's line is the plain form's time over its own; both are the least
// of many short turns, taken in alternation, so that what else the machine does weighs on neither.

#include "engine/itm/itm.h"
#include "engine/itm/lr.h"
#include "engine/plain_itm.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <random>
#include <span>
#include <vector>

namespace
{

using Block = std::array<double, lrblocksize>;

/// Rough terrain of n intervals in whole metres, always the same.
std::vector<double> terrain(int n)
{
    std::mt19937 random(1);
    std::normal_distribution<double> kick(0, 8);
    std::vector<double> z;
    double height = 300;
    double slope = 0;
    for (int i = 0; i <= n; ++i) {
        slope = 0.9 * slope + kick(random);
        height = 0.995 * (height + slope) + 1.5;
        z.push_back(std::round(height));
    }
    return z;
}

constexpr double step_m = 90;

const ItmInput kernelinput{.freq_mhz = 150, .h1_m = 20, .h2_m = 3, .varmode = 1};
const PlainInput plaininput{.freq_mhz = 150,
                            .h1_m = 20,
                            .h2_m = 3,
                            .ns = 301,
                            .eps = 15,
                            .sgm = 0.005,
                            .pol = 0,
                            .clim = 5,
                            .varmode = 1};

LRRecord record()
{
    LRRecord rec{};
    rec.freq = kernelinput.freq_mhz;
    rec.ns = kernelinput.ns;
    rec.eps = kernelinput.eps;
    rec.sgm = kernelinput.sgm;
    rec.clim = kernelinput.clim;
    rec.varmode = kernelinput.varmode;
    rec.h1 = kernelinput.h1_m;
    rec.h2 = kernelinput.h2_m;
    rec.ptime = rec.ploc = rec.psit = 50;
    return rec;
}

template <class Work> double seconds(Work work, int turns)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int i = 0; i < turns; ++i)
        work();
    return std::chrono::duration<double>(Clock::now() - start).count() / turns;
}

/// Times a kernel's work against the plain form of the same, and says so in the counters.
template <class Work, class Plain>
void compare(benchmark::State& state, int turns, Work work, Plain plain)
{
    double best = 1e9;
    double plainbest = 1e9;
    for (auto _ : state) {
        const double took = seconds(work, turns);
        state.SetIterationTime(took);
        best = std::min(best, took);
        plainbest = std::min(plainbest, seconds(plain, 1));
    }
    state.counters["least_us"] = best * 1e6;
    state.counters["plain_us"] = plainbest * 1e6;
    state.counters["ratio"] = plainbest / best;
}

void plainradial(const std::vector<double>& z, std::vector<double>& losses)
{
    for (std::size_t i = 1; i < z.size(); ++i)
        losses[i] = plainitm(std::span(z).first(i + 1), step_m, plaininput).loss_db;
    benchmark::DoNotOptimize(losses.data());
}

/// LR as programs outside call it: the far end of n intervals, or every sample.
void lrcall(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const bool all = state.range(1) != 0;
    const std::vector<double> z = terrain(n);
    Block prof{};
    Block losses{};
    prof[1] = n;
    prof[2] = step_m;
    std::copy(z.begin(), z.end(), prof.begin() + 3);
    LRRecord rec = record();
    rec.startpt = all ? 0 : n;
    const auto work = [&] {
        LR(prof.data(), losses.data(), &rec);
        benchmark::DoNotOptimize(rec.loss);
    };
    std::vector<double> plainlosses(z.size());
    const auto plain = [&] {
        if (all)
            plainradial(z, plainlosses);
        else
            benchmark::DoNotOptimize(plainitm(z, step_m, plaininput).loss_db);
    };
    compare(state, all ? 4 : 50, work, plain);
}

/// A radial of any length: the cost of a sample must hardly grow with it.
void radial(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> z = terrain(n);
    std::vector<double> losses(z.size());
    std::vector<double> plainlosses(z.size());
    compare(
        state, 1,
        [&] {
            itmradial(z, step_m, kernelinput, 0, losses);
            benchmark::DoNotOptimize(losses.data());
        },
        [&] { plainradial(z, plainlosses); });
    state.counters["ns_per_sample"] = state.counters["least_us"].value * 1e3 / n;
}

} // namespace

BENCHMARK(lrcall)->ArgNames({"n", "all"})->Args({157, 0})->UseManualTime()->Iterations(20000);
BENCHMARK(lrcall)
    ->ArgNames({"n", "all"})
    ->Args({160, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(1500);
BENCHMARK(radial)
    ->ArgNames({"n"})
    ->Arg(160)
    ->Arg(500)
    ->Arg(1500)
    ->Arg(3000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(40);

BENCHMARK_MAIN();
