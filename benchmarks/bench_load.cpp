// What opening a project costs before anything is computed: one .net and one .map of 2000 x 2000.
// The two together must stay under 50 ms.

#include "base/paths.h"
#include "base/settings.h"
#include "network/netfile.h"
#include "terrain/mapfile.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

/// A project on the disk, removed at the end.
struct Project {
    std::string folder;

    Project()
    {
        std::string name = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            std::abort();
        folder = name + "/";
        setprogramfolder(folder);
        allocatemap(mapgrid, 2000, 2000);
        for (std::size_t i = 0; i < mapgrid.samples.size(); ++i)
            mapgrid.samples[i] = static_cast<std::int16_t>(i * 7919 % 3000);
        mapframe(mapgrid);
        savemap(folder + "relief.map");
        network = defaulttables();
        savenet(folder + "plan.net");
    }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;
    ~Project()
    {
        std::error_code error;
        std::filesystem::remove_all(folder, error);
    }
};

static void loadproject(benchmark::State& state)
{
    const Project project;
    while (state.KeepRunning()) {
        mapgrid = MapGrid();
        loadnet(project.folder + "plan.net");
        if (lastnetstatus() != NetStatus::ok || lastmapstatus() != MapStatus::ok)
            state.SkipWithError("the project does not load");
        benchmark::DoNotOptimize(mapgrid.samples.data());
    }
}
BENCHMARK(loadproject)->Unit(benchmark::kMillisecond);

static void saveproject(benchmark::State& state)
{
    const Project project;
    while (state.KeepRunning()) {
        if (!savemap(project.folder + "relief.map") || !savenet(project.folder + "plan.net"))
            state.SkipWithError("the project is not saved");
    }
}
BENCHMARK(saveproject)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
