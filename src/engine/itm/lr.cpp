#include "engine/itm/lr.h"

#include "engine/itm/itm.h"

#include <algorithm>
#include <cmath>
#include <span>

static ItmInput inputof(const LRRecord& rec)
{
    ItmInput in;
    in.freq_mhz = rec.freq;
    in.h1_m = rec.h1;
    in.h2_m = rec.h2;
    in.ns = rec.ns;
    in.eps = rec.eps;
    in.sgm = rec.sgm;
    in.pol = rec.pol;
    in.clim = rec.clim;
    in.varmode = rec.varmode;
    in.ptime = rec.ptime;
    in.ploc = rec.ploc;
    in.psit = rec.psit;
    in.interference = rec.interf != 0;
    return in;
}

static void answer(const ItmResult& result, LRRecord& rec)
{
    rec.loss = result.loss_db;
    rec.dl1 = result.dl_m[0];
    rec.dl2 = result.dl_m[1];
    rec.the1 = result.the_rad[0];
    rec.the2 = result.the_rad[1];
    rec.gme = result.gme;
    rec.lfree = result.free_db;
    rec.lobst = result.aref_db;
    rec.los = result.clear ? 1 : 0;
    rec.scatter = !result.clear && result.region == ItmRegion::scatter ? 1 : 0;
}

/// Number of intervals of a profile block; 0 where it can't be one.
static int intervals(double n)
{
    const double whole = std::nearbyint(n);
    return whole >= 1 && whole <= lrmaxintervals ? static_cast<int>(whole) : 0;
}

void LR(const double* prof, double* losses, LRRecord* rec)
{
    const int n = intervals(prof[1]);
    const ItmInput in = inputof(*rec);
    if (n == 0) {
        answer(itmpath({}, prof[2], in), *rec);
        return;
    }
    const std::span elevations(prof + 3, static_cast<std::size_t>(n) + 1);
    const int first = std::clamp(static_cast<int>(rec->startpt), 0, n);
    ItmResult result;
    if (first == n) {
        result = itmpath(elevations, prof[2], in);
        losses[n + 3] = result.loss_db == itmnopath_db && result.gme == 0 ? 0 : result.loss_db;
    } else {
        result = itmradial(elevations, prof[2], in, first, {losses + 3, elevations.size()});
    }
    answer(result, *rec);
}
