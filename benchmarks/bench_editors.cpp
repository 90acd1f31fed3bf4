#include "base/paths.h"
#include "hillynetwork.h"
#include "netoverlay/paint/overlay.h"
#include "network/windows/frmNet.h"
#include "radio/evaluate.h"
#include "support/places.h"

#include <QApplication>

#include <benchmark/benchmark.h>

// What a user waits for with the network dialog, on two cores: 50 ms until it stands painted on the
// screen with the shipped list of predefined systems; 60 ms from its closing until 25 nets of 50
// stations are evaluated, and their lines drawn over a picture of 2000 x 2000 pixels.

namespace
{
void opening(benchmark::State& state)
{
    makenetwork(MAXNET, Topology::voice);
    for ([[maybe_unused]] auto _ : state) {
        frmNet dialog;
        dialog.show();
        QApplication::processEvents(); // laid out and painted
    }
}

void evaluating(benchmark::State& state)
{
    makenetwork(static_cast<int>(state.range(0)), Topology::swarm);
    for ([[maybe_unused]] auto _ : state)
        evalnets(false);
}

/// All that follows the closing.
void drawing(benchmark::State& state)
{
    constexpr int picturesize = 2000; // pixels
    makenetwork(static_cast<int>(state.range(0)), Topology::swarm);
    makepicture(picturesize);
    for ([[maybe_unused]] auto _ : state)
        drawnets();
}
} // namespace

BENCHMARK(opening)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(evaluating)->Arg(1)->Arg(25)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(drawing)->Arg(1)->Arg(25)->UseRealTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    setshippedfolder(sourcefolder() + "/data/");
    makehills();
    benchmark::RunSpecifiedBenchmarks();
    openpictures.clear();
    return 0;
}
