// What a change in the link window costs: the study of a link of 157 intervals, and its picture.

#include "radio/paint/linkpicture.h"
#include "radio/readout.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <cmath>

namespace
{
constexpr int side = 400;
constexpr QSizeF size(1000, 500);

/// Two stations 240 cells of 100 m apart, on hills.
struct Scene {
    MapGrid map;
    NetworkTables tables;
    LinkStudy study;

    Scene()
    {
        constexpr float degrees = 0.4F;
        allocatemap(map, side, side);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                map.at(x, y) = static_cast<std::int16_t>(
                    500 + 200 * std::sin(x * 0.05) * std::cos(y * 0.07) + 30 * std::sin(x * 0.6));
        map.record.mapsize = 40;
        map.maplon = {6, 6 + degrees, 6 + degrees, 6};
        map.maplat = {45 + degrees, 45 + degrees, 45, 45};
        for (std::size_t i = 1; i <= 2; ++i) {
            tables.units[i].lon = 5.9F + 0.15F * static_cast<float>(i);
            tables.units[i].lat = 45.1F + 0.05F * static_cast<float>(i);
            tables.units[i].elevation = 550;
            tables.nets[1].member[i] = memberbit;
            tables.nets[1].system[i] = 1;
        }
        tables.systems[1].height = 15;
    }
    void run() { studylink(tables, map, 1, 2, 1, {}, study); }
};

template <typename Paint>
void paintgraph(benchmark::State& state, const Paint& paint, bool withstudy)
{
    Scene scene;
    scene.run();
    if (scene.study.link.profile.intervals() != maxlinkintervals)
        state.SkipWithError("the link has fewer intervals than the most");
    const auto density = static_cast<double>(state.range(0));
    QImage image((size * density).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(density);
    for ([[maybe_unused]] auto _ : state) {
        if (withstudy)
            scene.run();
        QPainter painter(&image);
        paint(scene.study, painter);
    }
}

void study(benchmark::State& state)
{
    Scene scene;
    for ([[maybe_unused]] auto _ : state)
        scene.run();
}

void cursor(benchmark::State& state)
{
    Scene scene;
    scene.run();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(readlink(scene.study, scene.tables, scene.map, 60));
}

void studyandprofile(benchmark::State& state)
{
    const auto paint = [](const LinkStudy& link, QPainter& painter) {
        paintprofile(link, size, painter);
    };
    paintgraph(state, paint, true);
}

void range(benchmark::State& state)
{
    const auto paint = [](const LinkStudy& link, QPainter& painter) {
        paintrange(link, size, painter);
    };
    paintgraph(state, paint, false);
}

void spread(benchmark::State& state)
{
    Scene scene;
    scene.run();
    const auto bell = distribution(scene.tables, scene.map, 1, 2, 1, 0, scene.study);
    paintgraph(
        state,
        [&bell](const LinkStudy&, QPainter& painter) { paintdistribution(*bell, size, painter); },
        false);
}
} // namespace

BENCHMARK(study)->Unit(benchmark::kMicrosecond);
BENCHMARK(cursor)->Unit(benchmark::kMicrosecond);
BENCHMARK(studyandprofile)->ArgName("density")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(range)->ArgName("density")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(spread)->ArgName("density")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
