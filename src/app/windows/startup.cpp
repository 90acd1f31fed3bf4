#include "app/windows/startup.h"

#include "app/windows/frmMain.h"
#include "app/windows/frmSplash.h"
#include "app/windows/recovery.h"
#include "app/windows/sessionstore.h"
#include "app/windows/shellhooks.h"
#include "base/hooks.h"
#include "base/inplace.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "coordinates/geosys.h"
#include "engine/itm/lr.h"
#include "netoverlay/paint/movestation.h"
#include "network/netfile.h"
#include "pictures/paint/cursor.h"
#include "terrain/mapfile.h"
#include "terrain/mapgrid.h"

#include <QIcon>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

#include <array>
#include <cmath>
#include <exception>

/// Side of the map that stands until the first network is made, samples.
static constexpr int firstmapside = 514;

bool engineanswers()
{
    static constexpr int intervals = 10;
    static constexpr double spacing_m = 1000;
    const std::array<double, intervals + 1> level{};
    std::array<double, intervals + 1> losses{};
    LRRecord record{};
    record.freq = 150;
    record.ns = 301;
    record.eps = 15;
    record.sgm = 0.005;
    record.pol = 1;
    record.clim = 5;
    record.varmode = 3;
    record.h1 = record.h2 = 10;
    record.ptime = record.ploc = record.psit = 50;
    record.startpt = intervals;
    lrpath(level, spacing_m, record, losses);
    return std::isfinite(record.loss) && record.loss > 0;
}

/// Runs a step of the start; one that fails is skipped.
template <typename Step> static void attempt(Step step)
{
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}

/// Opens the first network. One that is refused must not be saved over: the default one keeps its
/// own name.
static void opennet(const std::string& path)
{
    session.netfile = path;
    loadnet(path);
    if (lastnetstatus() == NetStatus::toolarge || lastnetstatus() == NetStatus::foreign)
        session.netfile = "default.net";
}

/// Opens what the command line names, or the last network.
static void openfirst(const std::string& commandline)
{
    if (commandline.empty()) {
        opennet(session.netfile);
        return;
    }
    const std::string bare = unquoted(commandline);
    const std::string ending =
        lowercase(bare.substr(bare.size() - smin<std::size_t>(3, bare.size())));
    if (ending == "bmp" || ending == "gif" || ending == "jpg") {
        hooks.openpicture(commandline, 0);
    } else if (ending == "map") {
        loadmap(commandline);
    } else {
        opennet(commandline);
    }
}

/// A crash in the middle of a write in place has left a copy of what the file held.
static void tellinterrupted()
{
    if (const auto copies = interruptedcopies(); !copies.empty())
        hooks.setlabel2("Enregistrement interrompu, l'ancien contenu est dans " + copies.front());
}

/// The first picture opens maximised, normal or minimised, as the main window stands.
static void matchfirstpicture(const frmMain& window)
{
    const auto frames = window.area->subWindowList(QMdiArea::CreationOrder);
    if (!frames.isEmpty())
        frames.constFirst()->setWindowState(window.windowState() &
                                            (Qt::WindowMaximized | Qt::WindowMinimized));
}

/// Keeps the splash on the screen until its time has passed.
static void waitsplash(double t0, double least_s)
{
    // The clock starts anew at midnight.
    for (double now = t0; now >= t0 && float(now - t0) < float(least_s); now = timeofday())
        pumpslowly();
}

std::unique_ptr<frmMain> startup(const std::string& commandline, const StartOptions& options)
{
    setgeosys("geosys.dat");
    const double t0 = timeofday();
    if (!options.engineprobe()) {
        telluser("VELMOR32.DLL non trouvée");
        return nullptr;
    }
    auto window = std::make_unique<frmMain>();
    mainwindow = window.get();
    window->timersteps.emplace_back(redrawmoved);
    window->timersteps.emplace_back(keeprecovery);
    startrecovery();
    window->winddown_s = options.winddown_s;
    window->setEnabled(false);
    window->setWindowIcon(QIcon(QStringLiteral(":/icons/velmora.svg")));
    window->winId(); // a window to stand above, for the splash
    auto* splash = new frmSplash(window.get());
    splash->show();
    attempt([] { allocatemap(mapgrid, firstmapside, firstmapside); });
    attempt([] { newnet(false); });
    attempt(readsession);
    attempt(readrecent);
    window->show();
    splash->raise();
    attempt([&] { openfirst(commandline); });
    attempt([&] { matchfirstpicture(*window); });
    attempt([&] { waitsplash(t0, options.splash_s); });
    attempt([] { movecursor(mapgrid.record.maplon0, mapgrid.record.maplat0); });
    window->setEnabled(true);
    delete splash;
    window->show();
    window->raise();
    window->activateWindow();
    // A child of a disabled window could not become the active one.
    if (const auto children = window->childwindows(); !children.empty())
        window->activate(children.back());
    attempt(readlivesession);
    session.live.gpsstatus &= ~gpsreplaybit; // a replay that was running does not resume
    window->timer->start();
    session.tempfolder = tempdir();
    tellinterrupted();
    attempt(offerrecovery);
    return window;
}
