#include "radio/link.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

std::int16_t interf = 0;

namespace
{
/// Least transmit power in W: the gain of a system without power stays a number.
constexpr double leastpower_w = 1e-8;
/// Value added to a net's statistical mode that asks for the urban factor.
constexpr int urbanbit = 100;
/// The urban factor at 100 MHz on a path without length, dB, its fall per metre, and its floor.
constexpr double urbanbase_db = 16.5;
constexpr double urbanfall_dbperm = 0.00012;
constexpr double urbanfloor_db = 1;

/// The system that a net gives a station; none when its slot number is outside the table.
const RadioSystem* systemof(const NetworkTables& tables, int net, int unit)
{
    const int slot = tables.net(net).systemof(unit);
    return slot >= 1 && slot <= MAXSYSTEM ? &tables.system(slot) : nullptr;
}

/// Level in dBm at the receiver without path loss, above the receiver's threshold.
double systemgain(const RadioSystem& from, const RadioSystem& to)
{
    return 10 * std::log10(smax(double{from.power}, leastpower_w)) + 30 - double{from.lineloss} +
           double{from.gain} + double{to.gain} - double{to.lineloss} - double{to.threshold};
}

/// Adds the loss of a built-up area, largest at short range, to the path's loss and to each sample
/// that has one. The walk goes from the far end towards the left station, so that the factor rises.
void addurban(Link& target)
{
    LRRecord& record = target.record;
    const int n = target.profile.intervals();
    const double spacing_m = target.profile.spacing_m;
    // Without a usable frequency the factor starts from nothing.
    double factor_db = 0;
    if (record.freq > 0)
        factor_db = std::log10(record.freq / 100) + urbanbase_db - urbanfall_dbperm * n * spacing_m;
    record.lurban = smax(factor_db, urbanfloor_db);
    record.loss += record.lurban;
    for (int i = n; i >= record.startpt; --i) {
        double& loss = target.losses[static_cast<std::size_t>(i)];
        if (loss != 0)
            loss += smax(factor_db, urbanfloor_db);
        factor_db += urbanfall_dbperm * spacing_m;
    }
}

/// A reading rounded to a whole number, ties to even, and held within bounds.
int heldround(double value, int low, int high)
{
    if (!(value > low))
        return low;
    return value < high ? static_cast<int>(roundtoeven(value)) : high;
}
} // namespace

float antheight(const NetworkTables& tables, int net, int unit)
{
    const float own = tables.height(net, unit);
    if (own != 0)
        return own;
    const RadioSystem* system = systemof(tables, net, unit);
    return system ? system->height : 0;
}

void setlink(const NetworkTables& tables, int unitA, int unitB, int net, Link& target)
{
    const RadioSystem* systemA = systemof(tables, net, unitA);
    const RadioSystem* systemB = systemof(tables, net, unitB);
    const bool known = systemA && systemB;
    target.gain12 = known ? systemgain(*systemA, *systemB) : 0;
    target.gain21 = known ? systemgain(*systemB, *systemA) : 0;

    const Net& source = tables.net(net);
    LRRecord& record = target.record;
    record.ns = double{source.refractivity};
    record.pol = source.polarisation;
    record.eps = double{source.permittivity};
    record.sgm = double{source.conductivity};
    record.clim = source.climate;
    record.ptime = double{source.ptime};
    record.ploc = double{source.plocation};
    record.psit = double{source.psituation};
    record.varmode = source.statmode % urbanbit;
    record.h1 = double{antheight(tables, net, unitA)};
    record.h2 = double{antheight(tables, net, unitB)};
    record.freq = (double{source.fmin} + double{source.fmax}) * 0.5;
}

bool finitelink(const Link& link)
{
    return std::isfinite(link.record.freq) && std::isfinite(link.gain12) &&
           std::isfinite(link.gain21);
}

/// What stands for the model's answer about a link that is none: nothing is received anywhere,
/// whoever reads gains and losses.
static double nolink(Link& target)
{
    LRRecord& record = target.record;
    target.gain12 = target.gain21 = 0;
    std::fill(target.losses.begin(), target.losses.end(), -nomargin_db);
    record.loss = -nomargin_db;
    record.dl1 = record.dl2 = record.the1 = record.the2 = record.gme = 0;
    record.lfree = record.lobst = record.lurban = 0;
    record.los = record.scatter = 0;
    return nomargin_db;
}

double linkmargin(const Net& net, bool farendonly, std::int16_t interference, Link& target)
{
    target.record.interf = interference;
    target.record.startpt = farendonly ? target.profile.intervals() : 0;
    target.losses.resize(target.profile.elevations_m.size());
    if (!finitelink(target))
        return nolink(target);
    lrpath(target.profile.elevations_m, target.profile.spacing_m, target.record, target.losses);
    target.record.lurban = 0;
    if (net.statmode >= urbanbit)
        addurban(target);
    return smin(target.gain12, target.gain21) - target.record.loss;
}

std::int16_t sunits(float level, float freq_mhz)
{
    // An S unit is 6 dB on short wave and 3 dB above; S 9 is 48 and 24 dB over the threshold.
    const bool shortwave = freq_mhz < 30;
    const double step_db = shortwave ? 6 : 3;
    const double level9_db = 8 * step_db;
    const double level_db = double{level};
    if (std::isnan(level_db))
        return 0;
    if (level_db < 9 * step_db)
        return static_cast<std::int16_t>(heldround(level_db / step_db + 1, 0, 9));
    return static_cast<std::int16_t>(10 * heldround((level_db - level9_db) / 10, 1, 6));
}
