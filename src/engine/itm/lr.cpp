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

void lrpath(std::span<const double> elevations_m, double step_m, LRRecord& rec,
            std::span<double> losses_db)
{
    const ItmInput in = inputof(rec);
    const int n = static_cast<int>(elevations_m.size()) - 1;
    if (n < 1) {
        answer(itmpath({}, step_m, in), rec);
        return;
    }
    const int first = std::clamp(static_cast<int>(rec.startpt), 0, n);
    if (first < n) {
        answer(itmradial(elevations_m, step_m, in, first, losses_db), rec);
        return;
    }
    const ItmResult result = itmpath(elevations_m, step_m, in);
    const bool nopath = result.loss_db == itmnopath_db && result.gme == 0;
    losses_db.back() = nopath ? 0 : result.loss_db;
    answer(result, rec);
}

void LR(const double* prof, double* losses, LRRecord* rec)
{
    const int n = intervals(prof[1]);
    const std::size_t count = n == 0 ? 0 : static_cast<std::size_t>(n) + 1;
    lrpath({prof + 3, count}, prof[2], *rec, {losses + 3, count});
}
