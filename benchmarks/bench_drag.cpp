#include "netoverlay/paint/movestation.h"
#include "netoverlay/paint/overlay.h"
#include "network/moveunit.h"
#include "radio/evaluate.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

// What happens at each step of a station that the mouse carries: its links are evaluated, all lines
// and stations laid out anew, and a picture of 1000 x 1000 pixels painted. Fifty stations, every
// path with the most intervals, on two cores: less than 50 ms from the move to the redrawn lines.

namespace
{
constexpr int side = 2000;        // samples of the map
constexpr int picturesize = 1000; // pixels

void makehills()
{
    allocatemap(mapgrid, side, side);
    mapgrid.record.mapsize = 200;
    mapgrid.record.maplon0 = 6;
    mapgrid.record.maplat0 = 46;
    mapframe(mapgrid);
    std::mt19937 random(1);
    std::uniform_int_distribution<int> rough(0, 20);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            mapgrid.at(x, y) = static_cast<std::int16_t>(
                600 + 350 * std::sin(x * 0.013) * std::cos(y * 0.017) + rough(random));
}

/// A position by its share of the map's width and height.
float lonat(double share)
{
    return static_cast<float>(double{mapgrid.maplon[0]} +
                              share * (double{mapgrid.maplon[2]} - double{mapgrid.maplon[0]}));
}
float latat(double share)
{
    return static_cast<float>(double{mapgrid.maplat[2]} +
                              share * (double{mapgrid.maplat[0]} - double{mapgrid.maplat[2]}));
}

void makenetwork(int nets, Topology kind)
{
    network = defaulttables();
    for (int unit = 1; unit <= MAXUNIT; ++unit) {
        Unit& station = network.units[static_cast<std::size_t>(unit)];
        station.name.assign("Station " + std::to_string(unit));
        const int row = (unit - 1) / 7;
        const int column = (unit - 1) % 7;
        placeunit(unit, lonat((column + 0.5) / 7.2), latat((row + 0.5) / 8.2));
    }
    for (int n = 1; n <= MAXNET; ++n) {
        Net& net = network.nets[static_cast<std::size_t>(n)];
        net.topology = static_cast<std::int16_t>(static_cast<int>(kind) + visiblebit);
        net.maxretrans = 20;
        net.fmin = net.fmax = static_cast<float>(100 + 10 * n);
        net.member.fill(n <= nets ? memberbit : std::uint8_t{0});
        net.system.fill(1);
    }
    network.systems[1].height = 20;
}

OpenPicture& makepicture()
{
    openpictures.clear();
    openpictures.push_back(std::make_unique<OpenPicture>());
    OpenPicture& picture = *openpictures.back();
    picture.data.Pictype = pictype::map;
    picture.data.lon = mapgrid.maplon;
    picture.data.lat = mapgrid.maplat;
    resizepicture(picture, picturesize, picturesize);
    return picture;
}

void dragging(benchmark::State& state, Topology kind)
{
    const int nets = static_cast<int>(state.range(0));
    const int scale = static_cast<int>(state.range(1));
    makenetwork(nets, kind);
    const OpenPicture& picture = makepicture();
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
