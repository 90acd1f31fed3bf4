#pragma once

#include "engine/itm/itm.h"
#include "engine/itm/lanes.h"

// What the model draws from everything but the terrain: computed once for a path or a radial.

namespace itm
{

/// Coefficients of one curve of variability over effective distance (Algorithm, section 5), m, dB.
struct ClimateCurve {
    double c1, c2, x1, x2, x3;
};

/// Frequency factor c1 + c2 / (1 + (c3 ln(0.133 k))^2) of a spread (Algorithm, section 5).
struct FrequencyCurve {
    double c1, c2, c3;
};

/// A climate: the median's departure from the reference, the spreads of time below and above it,
/// and what ducting does to the strongest signals (Algorithm, section 5; ESSA 79, annex 3).
struct Climate {
    ClimateCurve median, minus, plus;
    double zducting; ///< deviate from which ducting sets in
    double cducting; ///< slope beyond, as a share of the spread
    FrequencyCurve fminus, fplus;
};

/// Equatorial, continental subtropical, maritime subtropical, desert, continental temperate,
/// maritime temperate over land, maritime temperate over sea.
extern const Climate climates[7];

/// k = f / f0 (Algorithm, section 1).
inline constexpr double f0_mhzm = 47.7;

/// 10 / ln 10 and the like: decibels from natural logarithms.
inline constexpr double db_per_neper10 = 4.342944819032518;

inline namespace ITM_VARIANT
{

struct Radio {
    double k; // wave number, 1/m
    double f_mhz;
    double gme;        // effective earth curvature, 1/m
    double ns;         // N-units
    double zre, zim;   // ground impedance over that of free space
    double hg1, hg2;   // antennas above ground, m
    double xae;        // (a^2 / f)^(1/3): unit of the distances at which diffraction is sampled, m
    double scatterlag; // least distance of scatter beyond the horizons, m
    double kfactor;    // K of a radius a is kfactor C, C^3 = 4/3 6370 km / a
    double xfactor;    // x of a distance d is xfactor (1.607 - K) C^2 d
    double lnkfactor;
    double clutterfactor;       // 4.77e-4 k hg1 hg2
    double inverseheights;      // 1 / (hg1 hg2 + 10)
    double fading;              // exp(-10 xae / 50 km)
    double etq;                 // share of the refractivity in the scatter efficiency
    double free;                // free-space loss at 1 m, dB
    double dexbase;             // wave's share of the distance dex, m
    double dexfactor;           // and the horizons' share, over the sum of the smooth-earth ones
    int mode;                   // 0 to 3
    bool locations, situations; // are they variable?
    double zt, zl, zs;          // standard normal deviates
    ClimateCurve median;
    ClimateCurve time; // the one of both spreads that zt asks for
    double timefactor; // its frequency and ducting factors
};

/// Least input values held, then everything that follows from them. In interference mode each
/// deviate z becomes sqrt(z^2 + z10^2), z10 being the deviate of 10 %: it asks of the same three
/// variabilities what the signal reaches on the favourable side, at the decile where the median is
/// asked for and further out the rarer the asked percentage on either side. It exceeds z for every
/// z, and the loss falls with each deviate; so the loss is below the normal one at any percentages,
/// and varies smoothly with them.
ITM_INLINE Radio makeradio(const ItmInput& in);

/// Effective earth curvature, 1/m, from the surface refractivity (Algorithm, section 1).
ITM_INLINE double curvature(double ns)
{
    return 157e-9 * (1 - 0.04665 * exponential(ns / 179.3));
}

/// Ground impedance over that of free space (Algorithm, section 1; exactly 18000 where the rounded
/// form has 60 times 299.79), for a wave in the plane of incidence or across it.
struct Impedance {
    double re, im;
};
ITM_INLINE Impedance impedance(double eps, double sgm, double f_mhz, bool vertical)
{
    const double loss = 18000 * sgm / f_mhz;
    const double size = squareroot(squared(eps - 1) + squared(loss));
    const double re = squareroot((size + (eps - 1)) / 2); // sqrt of eps + i loss - 1
    const double im = loss / (2 * re);
    if (!vertical)
        return {re, im};
    const double power = squared(eps) + squared(loss);
    return {(re * eps + im * loss) / power, (im * eps - re * loss) / power};
}

/// Standard normal deviate that is exceeded with probability q, 0 < q < 1 (M. Abramowitz,
/// I. A. Stegun, Handbook of Mathematical Functions, 26.2.23; constants as version 1.4 has them).
ITM_INLINE double deviate(double q)
{
    const double t = squareroot(-2 * logarithm(smaller(q, 1 - q)));
    const double z = t - ((0.010328 * t + 0.802853) * t + 2.515516) /
                             (((0.001308 * t + 0.189269) * t + 1.432788) * t + 1);
    return q > 0.5 ? -z : z;
}

ITM_INLINE double frequencyfactor(const FrequencyCurve& c, double lnf)
{
    return c.c1 + c.c2 / (1 + squared(c.c3 * lnf));
}

/// A value held between bounds; NaN becomes `otherwise`.
ITM_INLINE double held(double value, double least, double most, double otherwise)
{
    if (!(value == value))
        return otherwise;
    return value < least ? least : value > most ? most : value;
}

/// Deviates of the variabilities that the mode keeps apart, and the spread of time that they ask
/// for (Algorithm, section 5).
ITM_INLINE void setvariability(Radio& r, const ItmInput& in, double lnf)
{
    const bool known = in.varmode >= 0 && in.varmode < 40 && in.varmode % 10 <= 3;
    const int varmode = known ? in.varmode : 0;
    r.mode = varmode % 10;
    r.locations = varmode / 10 % 2 == 0;
    r.situations = varmode / 20 % 2 == 0;
    const auto z = [&in](double percent) {
        const double asked = deviate(held(percent, 0.01, 99.99, 50) / 100);
        constexpr double z10 = 1.2815515655446004;
        return in.interference ? squareroot(squared(asked) + squared(z10)) : asked;
    };
    r.zs = z(in.psit);
    r.zt = r.mode == 0 ? r.zs : z(in.ptime);
    r.zl = r.mode == 3 ? z(in.ploc) : r.mode == 2 ? r.zt : r.zs;
    const Climate& c = climates[in.clim >= 1 && in.clim <= 7 ? in.clim - 1 : 4];
    r.median = c.median;
    r.time = r.zt < 0 ? c.minus : c.plus;
    r.timefactor = frequencyfactor(r.zt < 0 ? c.fminus : c.fplus, lnf);
    if (r.zt > c.zducting)
        r.timefactor *= c.cducting + (1 - c.cducting) * c.zducting / r.zt;
}

ITM_INLINE Radio makeradio(const ItmInput& in)
{
    Radio r;
    r.f_mhz = held(in.freq_mhz, 1, 1e5, 1);
    r.k = r.f_mhz / f0_mhzm;
    r.ns = held(in.ns, 150, 400, 301);
    r.hg1 = held(in.h1_m, 0.5, 3000, 0.5);
    r.hg2 = held(in.h2_m, 0.5, 3000, 0.5);
    r.gme = curvature(r.ns);
    const Impedance z =
        impedance(held(in.eps, 1, 1e4, 15), held(in.sgm, 1e-9, 1e4, 0.005), r.f_mhz, in.pol == 1);
    r.zre = z.re;
    r.zim = z.im;
    const double lnf = logarithm(r.f_mhz);
    const double lnz = 0.5 * logarithm(squared(z.re) + squared(z.im));
    const double rootf = exponential(lnf / 3); // third root
    r.xae = exponential((-2 * logarithm(r.gme) - lnf) / 3);
    r.scatterlag = 1.088 * r.xae * lnf;
    r.lnkfactor = -4.029793541162654 - lnf / 3 - lnz; // of 0.017778
    r.kfactor = exponential(r.lnkfactor);
    r.xfactor = rootf / 1000;
    r.clutterfactor = 4.77e-4 * r.k * r.hg1 * r.hg2;
    r.inverseheights = 1 / (r.hg1 * r.hg2 + 10);
    r.fading = exponential(10 * r.xae * (-1 / 50e3));
    r.etq = (5.67e-6 * r.ns - 2.32e-3) * r.ns + 0.031;
    r.free = 32.45 - 60 + 2 * db_per_neper10 * lnf;
    r.dexfactor = squareroot(9e6 * r.gme);
    // (575.7e12 / k)^(1/3)
    r.dexbase = 301697.3782447421 / rootf;
    setvariability(r, in, lnf - 5.882337548654679 /* 0.133 / f0 */);
    return r;
}

} // namespace ITM_VARIANT
} // namespace itm
