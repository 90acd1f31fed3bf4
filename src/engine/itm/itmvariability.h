#pragma once

#include "engine/itm/itmattenuation.h"

// What time, locations and situations add to the reference attenuation (Algorithm, section 5).

namespace itm
{
inline namespace ITM_VARIANT
{

/// A curve of the climate over effective distance, dB.
template <class R> ITM_INLINE R curve(const ClimateCurve& c, R de)
{
    // (c1 + c2 / (1 + ((de - x2) / x3)^2)) (de / x1)^2 / (1 + (de / x1)^2), over one denominator
    const double x1square = c.x1 * c.x1;
    const double x3square = c.x3 * c.x3;
    const R bell = squared(de - c.x2) + x3square;
    const R de2 = de * de;
    return (c.c1 * bell + c.c2 * x3square) * de2 / (bell * (x1square + de2));
}

/// Effective distance of a path of length d, m: 130 km where its smooth-earth horizons, 9000 km
/// earth, and the wave's own share end (Algorithm, section 5; TN 101, 10.1).
template <class R> ITM_INLINE R effectivedistance(const Radio& radio, R d, R dls)
{
    // sqrt(2 a1 he1) + sqrt(2 a1 he2) with a1 = 9000 km, from the same roots of 1 / gme
    const R dex = dls * radio.dexfactor + radio.dexbase;
    return select(d < dex, 130e3 * d / dex, 130e3 + d - dex);
}

/// Spread of locations, dB, from the irregularity seen, m (Algorithm, section 5).
template <class R> ITM_INLINE R locationspread(const Radio& radio, R seen)
{
    const R q = seen * radio.k;
    return 10.0 * q / (q + 13.0);
}

/// Attenuation beyond free space at the wanted percentages, dB, from the reference attenuation.
template <class R> ITM_INLINE R varied(const Radio& radio, R aref, const Paths<R>& p)
{
    const R de = effectivedistance(radio, p.d, p.dls);
    const double zt = radio.zt, zl = radio.zl, zs = radio.zs;
    const R st = curve(radio.time, de) * radio.timefactor;
    const R sl = radio.locations ? locationspread(radio, roughnessat(p.d, p.dh)) : fill<R>(0);
    const R st2 = st * st;
    const R sl2 = sl * sl;
    const double zs2 = zs * zs;
    R vs = st2 * (zt * zt / (7.8 + zs2)) + sl2 * (zl * zl / (24 + zs2));
    if (radio.situations)
        vs += squared(5.0 + 3.0 * exponential(de * (-1 / 100e3)));
    R y = fill<R>(0);
    R spread;
    switch (radio.mode) {
    case 0:
        spread = squareroot(st2 + sl2 + vs);
        break;
    case 1:
        y = st * zt;
        spread = squareroot(sl2 + vs);
        break;
    case 2:
        y = squareroot(st2 + sl2) * zt;
        spread = squareroot(vs);
        break;
    default:
        y = st * zt + sl * zl;
        spread = squareroot(vs);
    }
    const R a = aref - curve(radio.median, de) - y - spread * zs;
    // Below free space the gain is held back.
    return select(a < 0.0, a * (29.0 - a) / (29.0 - 10.0 * a), a);
}

} // namespace ITM_VARIANT
} // namespace itm
