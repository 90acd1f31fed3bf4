#include "hillynetwork.h"
#include "netoverlay/paint/movestation.h"
#include "netoverlay/paint/overlay.h"
#include "network/moveunit.h"
#include "radio/evaluate.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

// What happens at each step of a station that the mouse carries: its links are evaluated, all lines
// and stations laid out anew, and a picture of 1000 x 1000 pixels painted. Fifty stations, every
// path with the most intervals, on two cores: less than 50 ms from the move to the redrawn lines.

namespace
{
constexpr int picturesize = 1000; // pixels

void dragging(benchmark::State& state, Topology kind)
{
    const int nets = static_cast<int>(state.range(0));
    const int scale = static_cast<int>(state.range(1));
    makenetwork(nets, kind);
    const OpenPicture& picture = makepicture(picturesize);
    QImage screen(picturesize * scale, picturesize * scale, QImage::Format_RGB32);
    const StationDrag drag = begindrag(25);
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        step = (step + 1) % 100;
        dragunit(drag, lonat(0.4 + 0.002 * step), latat(0.45 + 0.001 * step));
        QPainter painter(&screen);
        painter.scale(scale, scale);
        paintsurface(picture.surface, painter);
    }
    state.counters["strokes"] = static_cast<double>(picture.surface.over.size());
}

/// Of that, the evaluation of the station's own links in all nets.
void evaluating(benchmark::State& state, Topology kind)
{
    makenetwork(static_cast<int>(state.range(0)), kind);
    begindrag(25);
    for ([[maybe_unused]] auto _ : state)
        reevaluate(network, mapgrid, false, 0, 25, quality);
}
} // namespace

BENCHMARK_CAPTURE(dragging, voice, Topology::voice)
    ->ArgNames({"nets", "scale"})
    ->Args({1, 1})
    ->Args({25, 1})
    ->Args({25, 2})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragging, swarm, Topology::swarm)
    ->ArgNames({"nets", "scale"})
    ->Args({25, 1})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(evaluating, voice, Topology::voice)
    ->Arg(25)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(evaluating, swarm, Topology::swarm)
    ->Arg(25)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    makehills();
    benchmark::RunSpecifiedBenchmarks();
    openpictures.clear();
    return 0;
}
