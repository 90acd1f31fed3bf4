#include "engine/lr.h"

#include "engine/plain_itm.h"

#include <algorithm>
#include <cmath>
#include <span>

static PlainInput fromrecord(const LRRecord& rec)
{
    PlainInput in;
    in.freq_mhz = rec.freq > 1 ? rec.freq : 1;
    in.h1_m = rec.h1 > 0.5 ? rec.h1 : 0.5;
    in.h2_m = rec.h2 > 0.5 ? rec.h2 : 0.5;
    in.ns = rec.ns > 150 ? std::min(rec.ns, 400.0) : 150;
    in.eps = rec.eps > 1 ? rec.eps : 1;
    in.sgm = rec.sgm > 1e-9 ? rec.sgm : 1e-9;
    in.pol = rec.pol;
    in.clim = rec.clim >= 1 && rec.clim <= 7 ? rec.clim : 5;
    in.varmode = rec.varmode >= 0 && rec.varmode <= 3 ? rec.varmode : 0;
    const auto percent = [](double q) { return q > 0.01 ? std::min(q, 99.99) : 0.01; };
    in.ptime = percent(rec.ptime);
    in.ploc = percent(rec.ploc);
    in.psit = percent(rec.psit);
    return in;
}

void LR(const double* prof, double* losses, LRRecord* rec)
{
    constexpr double nopath_db = 1000;
    rec->loss = nopath_db;
    if (!(prof[1] >= 1 && prof[1] <= lrmaxintervals && prof[2] > 0))
        return;
    const int n = static_cast<int>(prof[1]);
    const PlainInput in = fromrecord(*rec);
    const auto cut = [&](int i) { return std::span(prof + 3, static_cast<std::size_t>(i) + 1); };
    for (int i = std::clamp(rec->startpt, 0, n); i < n; ++i)
        losses[i + 3] = i == 0 ? 0 : plainitm(cut(i), prof[2], in).loss_db;
    const PlainResult far = plainitm(cut(n), prof[2], in);
    losses[n + 3] = rec->loss = far.loss_db;
    rec->dl1 = far.dl_m[0];
    rec->dl2 = far.dl_m[1];
    rec->the1 = far.the_rad[0];
    rec->the2 = far.the_rad[1];
    rec->gme = far.gme;
    rec->lfree = far.free_db;
    rec->lobst = far.aref_db;
    rec->los = far.clear ? 1 : 0;
    rec->scatter = !far.clear && far.region == 3 ? 1 : 0;
}
