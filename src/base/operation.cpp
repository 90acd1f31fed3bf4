#include "base/operation.h"

#include "base/hooks.h"
#include "base/numbers.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <string>

std::int16_t opbusy = 0;
float optotal = 0;
std::int32_t optiles = 0;
std::int32_t tilecount = 0;
OperationExtent operationextent;

/// Shortest time between two paintings of the bar, seconds.
static constexpr double paintinterval = 0.25;
/// Steps from one report to the next.
static constexpr std::int32_t reportevery = 20;
/// Side of the tiles in which maps are drawn, cells.
static constexpr std::int32_t tileside = 256;

static int shownpercent = 0;
static double nextpaint = 0;

static double clocktime()
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto sub = now - std::chrono::system_clock::from_time_t(seconds);
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec +
           std::chrono::duration<double>(sub).count();
}

double (*timeofday)() = clocktime;

static const char* operationtext(Operation code)
{
    switch (code) {
    case Operation::drawmap:
        return "Dessin de l'image 2D...";
    case Operation::gtopo30:
        return "Extraction des données GTOPO30...";
    case Operation::openmap:
        return "Ouverture du fichier carte...";
    case Operation::statistics:
        return "Compilation des statistiques de la carte...";
    case Operation::terrain:
        return "Extraction des données Terrain...";
    case Operation::dted:
        return "Extraction des données DTED...";
    case Operation::draw3d:
        return "Dessin de l'image 3D...";
    case Operation::adrg:
        return "Dessin de l'image ADRG...";
    case Operation::panorama:
        return "Dessin du panorama...";
    case Operation::merge:
        return "Mélange des images...";
    case Operation::coverage:
        return "Calcul de la couverture ...";
    case Operation::stereo:
        return "Dessin d'une image stereo 2D...";
    case Operation::quovadis:
        return "Mélange avec une carte Quo Vadis...";
    }
    return "";
}

/// Total of an operation; those whose caller sets it keep what stands.
static float operationtotal(Operation code)
{
    const OperationExtent& extent = operationextent;
    const auto tiles = [](std::int32_t upper) {
        return std::floor(static_cast<float>(upper) / tileside) + 1;
    };
    switch (code) {
    case Operation::drawmap:
        return tiles(extent.upperx) * tiles(extent.uppery);
    case Operation::gtopo30:
    case Operation::stereo:
        return static_cast<float>(extent.uppery);
    case Operation::openmap:
        return 512;
    case Operation::statistics:
        return static_cast<float>(extent.upperx);
    case Operation::terrain:
    case Operation::dted:
    case Operation::quovadis:
        return static_cast<float>(tilecount);
    case Operation::draw3d:
    case Operation::adrg:
        return static_cast<float>(extent.upperx) * static_cast<float>(extent.uppery);
    case Operation::merge:
        return static_cast<float>(extent.scaleheight);
    case Operation::panorama:
    case Operation::coverage:
        break;
    }
    return optotal;
}

void beginop(Operation code)
{
    opbusy = 0;
    hooks.pumpevents();
    if (code != Operation::coverage) // a coverage is drawn on top of the networks
        hooks.erasenets();
    hooks.setbusyinterface(true);
    opbusy = static_cast<std::int16_t>(code);
    hooks.setlabel2(operationtext(code));
    optotal = operationtotal(code);
    optiles = 0;
    showprogress(0.0001F); // the bar appears at once, at its least width
}

void endop()
{
    hooks.setbusyinterface(false);
    hooks.setprogress(0);
    hooks.setlabel2(opbusy == 0 ? "Arrêté par l'utilisateur." : "Complété.");
    hooks.setlabel1("Prêt");
    showprogress(0);
    opbusy = 0;
}

/// A step in the unit of `optotal`.
static float progressvalue(float step)
{
    const auto tiles = static_cast<float>(optiles);
    switch (static_cast<Operation>(opbusy)) {
    case Operation::drawmap:
        return tiles + step / tileside;
    case Operation::terrain:
        return tiles;
    case Operation::dted:
        return tiles + step / static_cast<float>(operationextent.upperx);
    case Operation::quovadis:
        return tiles + step / static_cast<float>(operationextent.uppery);
    case Operation::panorama:
        return tiles * optotal * 0.5F + step;
    case Operation::gtopo30:
    case Operation::openmap:
    case Operation::statistics:
    case Operation::draw3d:
    case Operation::adrg:
    case Operation::merge:
    case Operation::coverage:
    case Operation::stereo:
        return step;
    }
    return 0; // stopped: the bar goes
}

static bool refreshes(std::int16_t code)
{
    const auto operation = static_cast<Operation>(code);
    return operation == Operation::panorama || operation == Operation::merge ||
           operation == Operation::stereo;
}

std::int32_t opstep(std::int32_t step)
{
    hooks.pumpevents();
    if (step % reportevery == 0) {
        if (refreshes(opbusy))
            hooks.refreshoperation(opbusy);
        showprogress(progressvalue(static_cast<float>(step)));
    }
    return std::min<std::int32_t>(opbusy, 1);
}

void showprogress(float value)
{
    if (!(value > 0)) {
        hooks.setprogress(0);
        return;
    }
    if (optotal > 0)
        value /= optotal;
    const float share = std::clamp(value * 100, 1.0F, 100.0F);
    const int percent = static_cast<int>(std::nearbyint(share));
    const double now = timeofday();
    // The clock starts anew at midnight; the next painting is never further away than its interval.
    const bool toosoon = now <= nextpaint && nextpaint - now <= paintinterval;
    if (toosoon || percent == shownpercent)
        return;
    nextpaint = now + paintinterval;
    shownpercent = percent;
    hooks.setprogress(percent);
    hooks.setlabel1(std::to_string(percent) + "%");
}
