// Kernel time of a map picture of 2000 x 2000, bands of rows on all cores, as drawmap does it.

#include "base/parallel.h"
#include "engine/draw/fastdraw.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <vector>

namespace
{

constexpr int side = 2000;
constexpr int tileside = 256;
constexpr std::size_t band = 64;

/// Rugged ground of 50 m cells, 0 to about 3000 m.
std::vector<std::int16_t> ground()
{
    std::vector<std::int16_t> samples(std::size_t{side} * side);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            double h = 1500;
            double amplitude = 700;
            double length = 0.004;
            for (int octave = 0; octave < 7; ++octave) {
                h += amplitude * std::sin(x * length + 1.7 * octave) *
                     std::cos(y * length * 1.1 + 0.6 * octave + x * length * 0.4);
                amplitude *= 0.55;
                length *= 2.1;
            }
            samples[static_cast<std::size_t>(y) * side + static_cast<std::size_t>(x)] =
                static_cast<std::int16_t>(h);
        }
    return samples;
}

ColourScale scale()
{
    ColourScale colours;
    for (std::size_t i = 0; i < colours.levels.size(); ++i)
        colours.levels[i] = static_cast<std::int16_t>(300 * i);
    for (std::size_t i = 0; i < colours.red.size(); ++i)
        colours.red[i] = colours.green[i] = colours.blue[i] = static_cast<std::int16_t>(20 * i);
    return colours;
}

void render(benchmark::State& state)
{
    const std::vector<std::int16_t> samples = ground();
    const ColourScale colours = scale();
    std::vector<std::uint32_t> pixels(samples.size());
    DrawValues values;
    values.mode = static_cast<int>(state.range(0));
    values.ceiling = 3000;
    values.cellsize = 50;
    values.contour10 = values.contour100 = values.contour500 = state.range(1) != 0;
    const auto tile = [&](int x, int y) {
        parallelblocks(tileside, band, [&](std::size_t first, std::size_t last) {
            const int y0 = y + static_cast<int>(first);
            const int y1 = y + static_cast<int>(last) - 1;
            std::uint32_t* corner = pixels.data() + static_cast<std::ptrdiff_t>(y0) * side + x;
            if (y0 < side)
                fastdraw({samples.data(), side, side}, values, colours,
                         {corner, side, x, y0, x + tileside - 1, y1});
        });
    };
    for ([[maybe_unused]] auto _ : state) {
        for (int y = 0; y < side; y += tileside)
            for (int x = 0; x < side; x += tileside)
                tile(x, y);
        benchmark::DoNotOptimize(pixels.data());
    }
}

} // namespace

BENCHMARK(render)
    ->ArgNames({"mode", "contours"})
    ->ArgsProduct({{0, 1, 2, 3, 4, 5}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

BENCHMARK_MAIN();
