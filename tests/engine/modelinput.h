#pragma once

#include "engine/itm/itm.h"
#include "engine/modelcases.h"
#include "engine/plain_itm.h"

/// Inputs of a reference case, as the kernel and as the plain model take them.
inline ItmInput kernelinput(const ModelCase& c)
{
    ItmInput in;
    in.freq_mhz = c.number("f_mhz");
    in.h1_m = c.number("h1_m");
    in.h2_m = c.number("h2_m");
    in.ns = c.number("ns");
    in.eps = c.number("eps");
    in.sgm = c.number("sigma");
    in.pol = c.whole("pol");
    in.clim = c.whole("climat");
    in.varmode = c.whole("mode_var");
    in.ptime = c.number("temps_pct");
    in.ploc = c.number("lieux_pct");
    in.psit = c.number("situations_pct");
    return in;
}

inline PlainInput plaininput(const ItmInput& in)
{
    return {in.freq_mhz, in.h1_m, in.h2_m,    in.ns,    in.eps,  in.sgm,
            in.pol,      in.clim, in.varmode, in.ptime, in.ploc, in.psit};
}
