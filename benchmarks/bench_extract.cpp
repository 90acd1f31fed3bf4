// Building maps from elevation files on a warm cache. The bars, on one core of a common machine:
//   dted      1024 x 768 pixels out of four cells of level 1: 250 ms
//   gtopo30   2000 x 2000 pixels out of a tile of the public distribution: 500 ms
// both with no more memory than the map and 64 MB. The files are made here, of uneven ground.
//
// --benchmark_filter=gtopo30/warp measures the pixels of a common task for resamplers, 1024 x 768
// out of a tile.

#include "base/hooks.h"
#include "base/session.h"
#include "support/elevationfiles.h"
#include "terrain/extraction.h"
#include "terrain/mapgrid.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace elevationfiles;

namespace
{
/// A folder of elevation files that goes with the program.
class Files
{
public:
    Files() : root(fs::temp_directory_path() / ("velmora-bench-" + std::to_string(getpid())))
    {
        for (const int lon : {1, 2})
            for (const int lat : {41, 42})
                write(root / fmt::format("DTED/E{:03}/N{}.DT1", lon, lat),
                      dtedbytes({1201, 1201, 30, 30, roughground}));
        write(root / "W020N90/W020N90.DEM", rasterbytes(4800, 6000, roughground, true));
        session.drvpath.fill(root.string());
        // The making of the files must not count: the peak starts anew.
        std::ofstream("/proc/self/clear_refs") << 5;
    }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    ~Files() { fs::remove_all(root); }

private:
    fs::path root;
};

double peakmegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void build(benchmark::State& state, bool (*pass)(BuildReport*), float lon, float lat, float size_km,
           int width, int height)
{
    static const Files files;
    ignoremissing = true;
    mapgrid.record.maplon0 = lon;
    mapgrid.record.maplat0 = lat;
    mapgrid.record.mapsize = size_km;
    for (auto _ : state) {
        allocatemap(mapgrid, width, height);
        benchmark::DoNotOptimize(pass(nullptr));
    }
    if (mapgrid.record.hmin == mapgrid.record.hmax)
        state.SkipWithError("nothing was read");
    state.counters["peak_MB"] = peakmegabytes();
}

void dted(benchmark::State& state)
{
    build(state, getDTED, 2, 42, 120, 1024, 768);
}

void gtopo30(benchmark::State& state)
{
    build(state, getGTOPO30, 0, 50, 3000, 2000, 2000);
}

void gtopo30warp(benchmark::State& state)
{
    build(state, getGTOPO30, 0, 50, 1000, 1024, 768);
}
} // namespace

BENCHMARK(dted)->Unit(benchmark::kMillisecond);
BENCHMARK(gtopo30)->Unit(benchmark::kMillisecond);
BENCHMARK(gtopo30warp)->Name("gtopo30/warp")->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
