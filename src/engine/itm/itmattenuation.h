#pragma once

#include "engine/itm/itmradio.h"

// The reference attenuation of paths side by side: line of sight, diffraction, scatter, and how the
// three are joined over distance (Algorithm, section 4). R is a double or a vector of them.

namespace itm
{
inline namespace ITM_VARIANT
{

/// What the terrain says about paths.
template <class R> struct Paths {
    R d;               ///< length, m
    R he1, he2;        ///< effective antenna heights, m
    R dl1, dl2;        ///< horizon distances, m
    R the1, the2;      ///< horizon elevation angles, rad
    R dh;              ///< terrain irregularity, m
    R dls1, dls2, dls; ///< smooth-earth horizon distances and their sum, m (Algorithm, 3)
    R dl;              ///< sum of the horizon distances, m
    R theta;           ///< total bending angle at zero distance, rad
};

/// Fills the sums of the paths' horizons (Algorithm, section 3).
template <class R> ITM_INLINE void sumhorizons(const Radio& radio, Paths<R>& p)
{
    const double unit = 2 / radio.gme;
    p.dls1 = squareroot(p.he1 * unit);
    p.dls2 = squareroot(p.he2 * unit);
    p.dls = p.dls1 + p.dls2;
    p.dl = p.dl1 + p.dl2;
    p.theta = larger(p.the1 + p.the2, -p.dl * radio.gme);
}

/// Terrain irregularity that a path of length s sees, m (Algorithm, section 3: Delta h(s)).
template <class R> ITM_INLINE R roughnessat(R s, R dh)
{
    return (1.0 - 0.8 * exponential(s * (-1 / 50e3))) * dh;
}

/// Standard deviation of heights within a Fresnel zone, m, from the irregularity seen, m
/// (Algorithm, section 3: sigma_h = 0.78 Dh exp(-(Dh / 16 m)^(1/4))).
template <class R> ITM_INLINE R heightdeviation(R dhs)
{
    const R x = larger(dhs * (1.0 / 16), fill<R>(1e-30));
    const R y = inverseroot<4>(x);
    return 0.78 * dhs * exponential(-x * y * y * y);
}

/// Losses over the two horizons taken as knife edges, without the logarithmic part, which is 10
/// log10 of `product`: approximations to the Fresnel integral (Algorithm, section 6; TN 101,
/// III.24) from the squares of the diffraction parameters.
template <class R> struct KnifeEdges {
    R sum;     ///< dB
    R product; ///< of the squares above 5.76
};
template <class R> ITM_INLINE KnifeEdges<R> knifeedges(R v1square, R v2square)
{
    const auto far1 = v1square >= 5.76;
    const auto far2 = v2square >= 5.76;
    R near1 = fill<R>(12.953), near2 = near1;
    if (any(either(v1square < 5.76, v2square < 5.76))) {
        near1 = 6.02 + 9.11 * squareroot(v1square) - 1.27 * v1square;
        near2 = 6.02 + 9.11 * squareroot(v2square) - 1.27 * v2square;
    }
    return {select(far1, 12.953, near1) + select(far2, 12.953, near2),
            select(far1, v1square, 1.0) * select(far2, v2square, 1.0)};
}

/// Height gain over a smooth earth, dB: F(x, K) of the three-radii method (Algorithm, section 6).
/// The constants are those of version 1.4, rounded in it.
///   inverseK   1 / K
///   lnx        logarithm of the larger of x and 1
template <class R> ITM_INLINE R heightgain(R x, R K, R inverseK, R lnK, R lnx)
{
    const auto beyond = x >= 200.0;
    const R w3 = -lnK * lnK * lnK;
    const auto straight = either(K<1e-5, x * w3> 5495.0);
    const R line = 17.372 * lnx - 117.0;
    const R gain = select(straight, line, 2.5e-5 * x * x * inverseK + 8.686 * lnK - 15.0);
    if (!any(beyond))
        return gain;
    const R far = 0.05751 * x - 4.343 * lnx;
    const R w = select(x < 2000.0, 0.0134 * x * exponential(-0.005 * x), 0.0);
    return select(beyond, far + w * (line - far), gain);
}

/// What diffraction over given paths has in common at all distances.
template <class R> struct Diffraction {
    R clutter;  ///< loss to clutter, dB: A_fo
    R xsum;     ///< x1 + x2 of the rounded earth
    R gains;    ///< F(x1, K1) + F(x2, K2), dB
    R heights;  ///< ratio of effective and structural heights in the weight
    R horizons; ///< d_L + theta_e / gamma_e, m
};

/// Third root of 4/3 6370 km over the inverse of a radius, as the three-radii method has it
/// (Algorithm, section 4; L. E. Vogler 1964): K = kfactor C and x = xfactor (1.607 - K) C^2 d.
template <class R> ITM_INLINE R pathparameter(const Radio& radio, R C, R d)
{
    return radio.xfactor * (1.607 - radio.kfactor * C) * C * C * d;
}

/// What the diffraction attenuation of paths takes from all of their quantities but the distance
/// (Algorithm, section 4).
template <class R> ITM_INLINE Diffraction<R> makediffraction(const Radio& radio, const Paths<R>& p)
{
    constexpr double ln_a0 = 15.954792100000127; // of 4/3 6370e3
    Diffraction<R> out;
    // Radii dl^2 / (2 he) of the earth below the antennas, as C and its logarithm
    const Pair<R> inverse = reciprocals(p.dl1 * p.dl1, p.dl2 * p.dl2);
    const Pair<R> lnbend = logarithms(2.0 * p.he1 * inverse.a, 2.0 * p.he2 * inverse.b);
    const R lnC1 = (ln_a0 + lnbend.a) * (1.0 / 3);
    const R lnC2 = (ln_a0 + lnbend.b) * (1.0 / 3);
    const R C1 = exponential(lnC1), C2 = exponential(lnC2);
    const R K1 = radio.kfactor * C1, K2 = radio.kfactor * C2;
    const R x1 = pathparameter(radio, C1, p.dl1);
    const R x2 = pathparameter(radio, C2, p.dl2);
    const Pair<R> lnx = logarithms(larger(x1, fill<R>(1)), larger(x2, fill<R>(1)));
    const Pair<R> inverseK = reciprocals(K1, K2);
    out.xsum = x1 + x2;
    out.gains = heightgain(x1, K1, inverseK.a, lnC1 + radio.lnkfactor, lnx.a) +
                heightgain(x2, K2, inverseK.b, lnC2 + radio.lnkfactor, lnx.b);
    const R sigma = heightdeviation(roughnessat(p.dls, p.dh));
    out.clutter = smaller(5.0 / 10 * db_per_neper10 * logarithm(1.0 + radio.clutterfactor * sigma),
                          fill<R>(15));
    out.heights = squareroot((p.he1 * p.he2 + 10.0) * radio.inverseheights);
    out.horizons = p.dl + p.theta * (1 / radio.gme);
    return out;
}

/// Parts of the diffraction attenuation at a distance, of which two are best found together.
template <class R> struct DiffractionParts {
    KnifeEdges<R> edges;
    R x0;   ///< of the rounded earth
    R root; ///< root of Q, the argument of the weight
};

/// Parts at distance s (Algorithm, section 4: A_diff).
///   inverse    1 / s
///   seen       terrain irregularity that s sees, m
template <class R>
ITM_INLINE DiffractionParts<R> diffractionat(const Radio& radio, const Paths<R>& p,
                                             const Diffraction<R>& c, R s, R inverse, R seen)
{
    constexpr double root_a0 = 204.02938617212223; // third root of 4/3 6370e3
    const R angle = p.theta + s * radio.gme;
    const R between = s - p.dl;
    const R v2 = 0.0795775 * radio.k * squared(angle) * between; // 1 / (4 pi) as version 1.4 has it
    const Pair<R> ends = reciprocals(between + p.dl1, between + p.dl2);
    const R ia = inverseroot<3>(angle);
    const R C0 = root_a0 * angle * ia * ia * inverseroot<3>(between); // radius between / angle
    const R q = smaller(seen * radio.k, fill<R>(6283.2)) * (c.heights + c.horizons * inverse);
    return {knifeedges(v2 * p.dl1 * ends.a, v2 * p.dl2 * ends.b),
            pathparameter(radio, C0, between) + c.xsum, squareroot(q)};
}

/// The attenuation itself, dB: knife edges and rounded earth, weighted by how rough the terrain is.
/// NaN where the rounded earth has no value.
///   lnx0, lnproduct   logarithms of x0, held above 0, and of the product of the knife edges
///   w                 weight 1 / (1 + 0.1 sqrt Q), as version 1.4 has it
template <class R>
ITM_INLINE R diffracted(const Diffraction<R>& c, const DiffractionParts<R>& at, R lnx0, R lnproduct,
                        R w)
{
    const R edges = at.edges.sum + db_per_neper10 * lnproduct;
    const R round = 0.05751 * at.x0 - db_per_neper10 * lnx0 - c.gains - 20.0;
    return select(at.x0 > 0.0, edges + w * (round - edges) + c.clutter, __builtin_nan(""));
}

/// Line of the diffraction attenuation over distance, A_ed + m_d s (Algorithm, section 4).
template <class R> struct DiffractionLine {
    R start; ///< A_ed, dB
    R slope; ///< m_d, dB/m
};
template <class R>
ITM_INLINE DiffractionLine<R> diffractionline(const Radio& radio, const Paths<R>& p)
{
    const Diffraction<R> c = makediffraction(radio, p);
    const R d3 = larger(p.dls, p.dl + 5 * radio.xae);
    const double between = 10 * radio.xae;
    const R d4 = d3 + between;
    const Pair<R> inverse = reciprocals(d3, d4);
    const R seen3 = exponential(d3 * (-1 / 50e3)); // 1 - 0.8 of it of the irregularity is seen
    const R seen4 = seen3 * radio.fading;
    const auto at3 = diffractionat(radio, p, c, d3, inverse.a, (1.0 - 0.8 * seen3) * p.dh);
    const auto at4 = diffractionat(radio, p, c, d4, inverse.b, (1.0 - 0.8 * seen4) * p.dh);
    const Pair<R> lnx0 = logarithms(larger(at3.x0, fill<R>(1e-30)), larger(at4.x0, fill<R>(1e-30)));
    Pair<R> lnproduct{fill<R>(0), fill<R>(0)};
    if (any(larger(at3.edges.product, at4.edges.product) > 1.0))
        lnproduct = logarithms(at3.edges.product, at4.edges.product);
    const Pair<R> w = reciprocals(25.1 + at3.root, 25.1 + at4.root);
    const R a3 = diffracted(c, at3, lnx0.a, lnproduct.a, 25.1 * w.a);
    const R a4 = diffracted(c, at4, lnx0.b, lnproduct.b, 25.1 * w.b);
    const R slope = (a4 - a3) * (1 / between);
    return {a3 - slope * d3, slope};
}

/// Power of the two rays' sum at distance s, of that of the direct one (Algorithm, section 4:
/// A_t is -10 log10 of it).
///   inverse      1 / s
///   phase        2 k he1 he2, m: phase difference times distance
///   inversephase its inverse
template <class R>
ITM_INLINE R tworays(const Radio& radio, const Paths<R>& p, R s, R inverse, R phase, R inversephase)
{
    const R hes = p.he1 + p.he2;
    const R sine = hes / squareroot(s * s + hes * hes); // of the grazing angle
    const R sigma = heightdeviation(roughnessat(s, p.dh));
    // Reflection coefficient of the ground, (sin - Z) / (sin + Z), times its roughness factor
    const double z2 = radio.zre * radio.zre + radio.zim * radio.zim;
    const R sine2 = sine * sine;
    const R below = 1.0 / (sine2 + 2.0 * radio.zre * sine + z2);
    const R rough = exponential(-smaller(radio.k * sigma * sine, fill<R>(10)));
    R re = (sine2 - z2) * below * rough;
    R im = -2.0 * radio.zim * sine * below * rough;
    const R power = re * re + im * im;
    const auto weak = power < larger(sine, fill<R>(0.25));
    if (any(weak)) { // the effective coefficient isn't below 1/2 nor sqrt(sin)
        const R least = select(weak, squareroot(sine / power), 1.0);
        re = re * least;
        im = im * least;
    }
    constexpr double quarter = 1.5707963267948966;
    const R delta = phase * inverse;
    const R turned =
        select(delta > quarter, quarter - quarter * quarter * s * inversephase, delta - quarter);
    const SineCosine<R> t = sinecosine(turned); // of the phase less a right angle
    return squared(re - t.sine) + squared(im - t.cosine);
}

/// Reference attenuation at the paths' lengths within line of sight, dB: a curve A_el + K1 d + K2
/// ln d through the values at two or three distances, each the two rays' interference and the
/// continued diffraction line, weighted by how rough the terrain is (Algorithm, section 4: A_los).
///   lnd   logarithm of the length
template <class R>
ITM_INLINE R sight(const Radio& radio, const Paths<R>& p, const DiffractionLine<R>& line, R lnd)
{
    const R md = line.slope;
    const R d2 = p.dls;
    const R a2 = line.start + d2 * md;
    const auto above = line.start >= 0.0;
    const R heights = radio.k * p.he1 * p.he2;
    const R first = 1.908 * heights;
    const R d0 = select(above, smaller(first, 0.5 * p.dl), first);
    R d1 = d0 + 0.25 * (p.dl - d0);
    if (any(line.start < 0.0))
        d1 = select(above, d1, larger(-line.start / md, 0.25 * p.dl));
    const Pair<R> inverse = reciprocals(d0, d1);
    const R inversephase = 0.5 / heights;
    const R power0 = tworays(radio, p, d0, inverse.a, 2.0 * heights, inversephase);
    const R power1 = tworays(radio, p, d1, inverse.b, 2.0 * heights, inversephase);
    const Pair<R> lnpower = logarithms(power0, power1);
    const R w = 1.0 / (1.0 + f0_mhzm * radio.k * p.dh / larger(p.dls, fill<R>(10e3)));
    const R line0 = line.start + md * d0;
    const R line1 = line.start + md * d1;
    const R a0 = line0 - w * (db_per_neper10 * lnpower.a + line0);
    const R a1 = line1 - w * (db_per_neper10 * lnpower.b + line1);
    const R lnd2 = logarithm(d2);

    R k1 = larger(a2 - a1, fill<R>(0)) / (d2 - d1);
    k1 = select(k1 == 0.0, md, k1);
    R k2 = fill<R>(0);
    const auto three = d0 < d1;
    if (any(three)) {
        const Pair<R> ln01 = logarithms(d0, d1);
        const R q = lnd2 - ln01.a;
        const R bend = ((d2 - d0) * (a1 - a0) - (d1 - d0) * (a2 - a0)) /
                       ((d2 - d0) * (ln01.b - ln01.a) - (d1 - d0) * q);
        const R bent2 = larger(bend, fill<R>(0));
        const R bent1 = (a2 - a0 - bent2 * q) / (d2 - d0);
        const R flat2 = larger(a2 - a0, fill<R>(0)) / q; // where K1 would be negative
        const R flat1 = select(flat2 == 0.0, md, 0.0);
        const auto bent = both(three, either(above, bent2 > 0.0));
        k1 = select(bent, select(bent1 < 0.0, flat1, bent1), k1);
        k2 = select(bent, select(bent1 < 0.0, flat2, bent2), k2);
    }
    return a2 + k1 * (p.d - d2) + k2 * (lnd - lnd2);
}

/// Attenuation function of troposcatter, dB, of distance times angle D, m (Algorithm, section 6;
/// TN 101, 9.1: F(theta d)).
template <class R> ITM_INLINE R scatterfunction(R D, double ns)
{
    const auto near = D <= 10e3;
    const auto middle = D <= 70e3;
    const R a = select(near, 133.4, select(middle, fill<R>(104.6), fill<R>(71.8)));
    const R b = select(near, 0.332e-3, select(middle, fill<R>(0.212e-3), fill<R>(0.157e-3)));
    const R c = select(near, -10.0, select(middle, fill<R>(-2.5), fill<R>(5.0)));
    return a + b * D + c * (db_per_neper10 / 10) * logarithm(D) -
           0.1 * (ns - 301) * exponential(D * (-1 / 40e3));
}

/// Frequency gain function at whole efficiencies 1 to 5 and between, dB (Algorithm, section 6;
/// TN 101, 9.2: H_01).
template <class R> ITM_INLINE R frequencygain(R r, R eta)
{
    const R x = 1.0 / (r * r);
    R q = eta - 1.0;
    R a = fill<R>(25), b = fill<R>(24), an = fill<R>(80), bn = fill<R>(45);
    const auto step = [&](auto m, double below, double a0, double b0, double a1, double b1) {
        q = select(m, eta - below, q);
        a = select(m, a0, a);
        b = select(m, b0, b);
        an = select(m, a1, an);
        bn = select(m, b1, bn);
    };
    step(eta >= 2.0, 2, 80, 45, 177, 68);
    step(eta >= 3.0, 3, 177, 68, 395, 80);
    step(eta >= 4.0, 4, 395, 80, 705, 105);
    step(eta >= 5.0, 5, 705, 105, 705, 105);
    const R here = logarithm(1.0 + x * (b + a * x));
    const R next = logarithm(1.0 + x * (bn + an * x));
    return db_per_neper10 * (here + smaller(q, fill<R>(1)) * (next - here));
}

/// Frequency gain of the two antennas' scatter at distance s, dB: H_0 (Algorithm, section 6).
template <class R> struct ScatterGain {
    R h0;
    R r1, r2; ///< height parameters
};
template <class R> ITM_INLINE ScatterGain<R> scattergain(const Radio& radio, const Paths<R>& p, R s)
{
    const R angle = p.the1 + p.the2 + radio.gme * s;
    const R r1 = 2.0 * radio.k * angle * p.he1;
    const R r2 = 2.0 * radio.k * angle * p.he2;
    const R ad = magnitude(p.dl1 - p.dl2);
    const R ratio = select(p.dl1 < p.dl2, p.he1 / p.he2, p.he2 / p.he1);
    const R skew = (s - ad) / (s + ad);
    const R q = larger(smaller(ratio / skew, fill<R>(10)), fill<R>(0.1));
    const R ss = larger(skew, fill<R>(0.1));
    const R z0 = (s - ad) * (s + ad) * angle * 0.25 / s; // height of the crossing of the rays
    const R z3 = squared(smaller(z0 * (1 / 8e3), fill<R>(1.7)));
    const R eta = (1.0 + radio.etq * exponential(-z3 * z3 * z3)) * z0 * (1 / 1.7556e3);
    const R etas = larger(eta, fill<R>(1));
    R h0 = 0.5 * (frequencygain(r1, etas) + frequencygain(r2, etas));
    constexpr double ln10 = 2.302585092994046;
    const R correction =
        6 / (ln10 * ln10) * (0.6 - logarithm(etas) * (1 / ln10)) * logarithm(ss) * logarithm(q);
    h0 = larger(h0 + smaller(h0, correction), fill<R>(0));
    constexpr double root2 = 1.4142135623730951;
    if (any(eta < 1.0)) {
        const R low =
            squared((1.0 + root2 / r1) * (1.0 + root2 / r2)) * (r1 + r2) / (r1 + r2 + 2 * root2);
        h0 = select(eta < 1.0, eta * h0 + (1.0 - eta) * db_per_neper10 * logarithm(low), h0);
    }
    return {h0, r1, r2};
}

/// Scatter attenuation at distance s with a frequency gain of h0, dB (Algorithm, section 4: A_scat;
/// TN 101, 9.1).
template <class R> ITM_INLINE R scatterat(const Radio& radio, const Paths<R>& p, R s, R h0)
{
    const R angle = p.theta + s * radio.gme;
    return scatterfunction(angle * s, radio.ns) +
           db_per_neper10 * logarithm(f0_mhzm * radio.k * squared(squared(angle))) + h0;
}

/// Line of the scatter attenuation, A_es + m_s s, and the distance where it takes over from
/// diffraction (Algorithm, section 4).
template <class R> struct ScatterLine {
    R start, slope; ///< dB, dB/m
    R from;         ///< d_x, m
};
template <class R>
ITM_INLINE ScatterLine<R> scatterline(const Radio& radio, const Paths<R>& p,
                                      const DiffractionLine<R>& line)
{
    constexpr double apart_m = 200e3;
    const R d5 = p.dl + apart_m;
    const R d6 = d5 + apart_m;
    const ScatterGain<R> gain6 = scattergain(radio, p, d6);
    const ScatterGain<R> gain5 = scattergain(radio, p, d5);
    // A gain above 15 dB isn't let grow towards the nearer distance.
    const R h6 = gain6.h0;
    const R held = select(gain5.h0 > 15.0, select(h6 >= 0.0, h6, gain5.h0), gain5.h0);
    const R h5 = select(h6 > 15.0, h6, held);
    const R a5 = scatterat(radio, p, d5, h5);
    const R slope = (scatterat(radio, p, d6, h6) - a5) * (1 / apart_m);
    const R meet = (a5 - line.start - slope * d5) / (line.slope - slope);
    const R least = larger(p.dls, p.dl + radio.scatterlag);
    const R from = select(meet < least, least, meet);
    // Antennas too low in wavelengths for the method: no scatter.
    const auto low5 = larger(gain5.r1, gain5.r2) < 0.2;
    const auto low6 = larger(gain6.r1, gain6.r2) < 0.2;
    const auto toolow = both(low5, either(h6 <= 15.0, low6));
    const auto none = either(toolow, a5 >= 1000.0);
    return {(line.slope - slope) * from + line.start, slope, select(none, 1e300, from)};
}

/// Reference attenuation at the paths' lengths, dB, and its region as 1, 2 or 3.
template <class R> struct Reference {
    R aref;
    R region;
};

/// The three regions joined (Algorithm, section 4). Where the rounded earth has no value the
/// model's reference results are 0 dB; so they are here.
///   lnd   logarithm of the length
template <class R> ITM_INLINE Reference<R> reference(const Radio& radio, const Paths<R>& p, R lnd)
{
    constexpr double most_db = 1e6; // of a path beyond all sense; keeps every result finite
    const DiffractionLine<R> line = diffractionline(radio, p);
    R aref = line.start + line.slope * p.d;
    R region = fill<R>(2);
    const auto within = p.d < p.dls;
    if (any(within)) {
        aref = select(within, sight(radio, p, line, lnd), aref);
        region = select(within, 1.0, region);
    }
    const R least = larger(p.dls, p.dl + radio.scatterlag);
    if (any(p.d > least)) {
        const ScatterLine<R> far = scatterline(radio, p, line);
        const auto beyond = p.d > far.from;
        aref = select(beyond, far.start + far.slope * p.d, aref);
        region = select(beyond, 3.0, region);
    }
    return {select(aref > 0.0, smaller(aref, fill<R>(most_db)), 0.0), region};
}

} // namespace ITM_VARIANT
} // namespace itm
