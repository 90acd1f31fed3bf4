#include "base/hooks.h"
#include "base/paths.h"
#include "hillynetwork.h"
#include "netoverlay/paint/overlay.h"
#include "network/windows/frmCity.h"
#include "network/windows/frmUnit.h"
#include "pictures/paint/fonts.h"
#include "pictures/windows/frmPic.h"
#include "support/places.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <benchmark/benchmark.h>

// The station editor over fifty stations in twenty-five nets and a picture of 2000 x 2000 pixels:
// opening it is to take less than 50 ms, a key in the name's field less than 16 ms until the
// picture shows the name, opening the list of towns on the shipped gazetteer less than 100 ms.

namespace
{
constexpr int picturesize = 2000; // pixels

/// The picture in a window that shows all of it, with the nets over it.
void showpicture()
{
    picturehooks.showpicture(makepicture(picturesize));
    drawnets();
    QApplication::processEvents();
}

void openeditor(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        frmUnit* editor = new frmUnit;
        editor->show();
        QApplication::processEvents();
        state.PauseTiming();
        delete editor;
        state.ResumeTiming();
    }
}

void press(QLineEdit& field, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier,
                    key == Qt::Key_A ? QStringLiteral("a") : QString());
    QApplication::sendEvent(&field, &event);
}

void typekey(benchmark::State& state)
{
    showpicture();
    auto* editor = new frmUnit;
    editor->show();
    editor->choose(25);
    drawnets();
    auto* name = editor->findChild<QLineEdit*>(QStringLiteral("name"));
    QApplication::processEvents();
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        press(*name, step++ % 2 == 0 ? Qt::Key_A : Qt::Key_Backspace);
        QApplication::processEvents();
    }
    delete editor;
}

void opentowns(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        frmCity* towns = new frmCity;
        towns->show();
        QApplication::processEvents();
        state.PauseTiming();
        delete towns;
        state.ResumeTiming();
    }
}
} // namespace

BENCHMARK(openeditor)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(typekey)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(opentowns)->UseRealTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    setshippedfolder(sourcefolder() + "/data/");
    unitwindowhooks.redrawstation = redrawstation;
    unitwindowhooks.clearpictures = clearpictures;
    unitwindowhooks.labelfont = labelfont;
    connectpicturewindows([](QWidget* window) { window->resize(picturesize, picturesize); });
    makehills();
    makenetwork(MAXNET, Topology::voice);
    showpicture();
    benchmark::RunSpecifiedBenchmarks();
    while (!openpictures.empty())
        closepicture(*openpictures.back());
    return 0;
}
