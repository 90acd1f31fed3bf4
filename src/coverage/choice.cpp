#include "coverage/choice.h"

#include "base/numbers.h"
#include "base/settings.h"
#include "coverage/pattern.h"
#include "network/unsaved.h"

CoverageChoice coveragechoice;
std::array<float, 11> rainbowlevel{};

/// A number held within bounds; NaN becomes the lower one.
static float held(float low, float high, float value)
{
    return smin(smax(value, low), high);
}

void readcoveragesettings(CoverageChoice& choice)
{
    std::int16_t number = choice.covdir;
    readsetting("CovDir", std::int16_t{0}, number);
    choice.covdir = number == 1 ? 1 : 0;
    number = choice.covuselink;
    readsetting("CovAnt", std::int16_t{0}, number);
    choice.covuselink = number == 1 ? 1 : 0;
    readsetting("CovIndex", std::int16_t{0}, choice.covindex);
    readsetting("CovLow", -107.0F, choice.levels.low);
    readsetting("CovHigh", -67.0F, choice.levels.high);
}

void savecoveragesettings(const CoverageChoice& choice)
{
    writesetting("CovDir", std::int32_t{choice.covdir});
    writesetting("CovAnt", std::int32_t{choice.covuselink});
    writesetting("CovIndex", std::int32_t{choice.covindex});
    writesetting("CovLow", choice.levels.low);
    writesetting("CovHigh", choice.levels.high);
}

static CoverageParams heldwithin(float lastazmin, float lastantenna, const CoverageParams& params)
{
    CoverageParams heldones = params;
    heldones.azmin = held(0, lastazmin, params.azmin);
    heldones.azmax = held(heldones.azmin, 360, params.azmax);
    heldones.azstep = held(0.1F, 10, params.azstep);
    heldones.antazimuth = held(0, lastantenna, params.antazimuth);
    heldones.rangemax = held(1, 1000, params.rangemax);
    heldones.rangemin = held(0.1F, heldones.rangemax, params.rangemin);
    heldones.sensorheight = held(0.1F, 9999, params.sensorheight);
    heldones.targetheight = held(0.1F, 9999, params.targetheight);
    return heldones;
}

CoverageParams shownparams(const CoverageParams& params)
{
    return heldwithin(359, 359.99F, params);
}

CoverageParams heldparams(const CoverageParams& params)
{
    return heldwithin(359.9F, 360, params);
}

/// Parameters as the fields show them, with the pattern that an empty name stands for.
static CoverageParams comparable(const CoverageParams& params)
{
    CoverageParams shown = shownparams(params);
    if (shown.antfile.text().empty())
        shown.antfile.assign(omnipattern);
    return shown;
}

void storeparams(const CoverageParams& params)
{
    const CoverageParams stored = heldparams(params);
    if (comparable(stored) != comparable(network.coverage))
        markedited();
    network.coverage = stored;
}

float heldlower(double typed, double least, double upper)
{
    return static_cast<float>(smax(smin(typed, upper - pairgap), least));
}

float heldupper(double typed, double lower, double most)
{
    return static_cast<float>(smin(smax(typed, lower + pairgap), most));
}

SweepBounds sweepbounds(const CoverageParams& params)
{
    return {params.azmin, params.azmax, params.azstep, params.rangemin, params.rangemax};
}

CoverageOrder coverageorder(const CoverageParams& params, const CoverageChoice& choice,
                            const Selection& pair)
{
    CoverageOrder order;
    order.centre = pair.linkunit1;
    order.mobile = pair.linkunit2;
    order.net = pair.linknet;
    order.mobiletransmits = choice.covdir == 1;
    order.bounds = sweepbounds(params);
    order.antaz = params.antazimuth;
    order.pattern = readpattern(params.antfile.text());
    order.unit = levelunit(params.unit);
    order.levels = choice.levels;
    order.curve = params.drawcurve != 0;
    order.surface = params.drawsurface != 0;
    order.rainbow = params.surfacecolour == 0;
    return order;
}

ViewOrder vieworder(const CoverageParams& params, std::int16_t visualmode)
{
    ViewOrder order;
    order.bounds = sweepbounds(params);
    order.sensorh = params.sensorheight;
    order.targeth = params.targetheight;
    order.terrainfollow = visualmode != 0;
    return order;
}
