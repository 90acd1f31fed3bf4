#pragma once

#include "engine/itm/itmattenuation.h"
#include "engine/itm/itmroughness.h"
#include "engine/itm/itmvariability.h"

// The model on one path and along a radial, compiled once per instruction set.

namespace itm
{

/// The entries of one instruction set's kernel. `z` holds n + 1 finite elevations and may be
/// read `kernelpadding` numbers further; n >= 1.
struct Kernel {
    const char* name;
    /// Copies `count` elevations, held between -1e5 and 1e5 m, and puts zeros behind them for the
    /// others to read; false if one isn't finite.
    bool (*take)(const double* from, int count, double* to);
    void (*path)(const double* z, int n, double step, const ItmInput& in, ItmResult& out);
    /// losses[first .. n - 1] and the whole path; `room` has kernelroom(n) numbers.
    void (*radial)(const double* z, int n, double step, const ItmInput& in, int first,
                   double* losses, double* room, ItmResult& out);
};

/// Numbers that `Kernel::radial` needs as room for a profile of n intervals, and those of them that
/// vectors may read behind a row's end.
inline constexpr int kernelpadding = 16;
constexpr long kernelroom(int n)
{
    return 8L * (n + 2 + kernelpadding);
}

/// Kernels of this build that this machine can run, the fastest first; the list ends with a null.
const Kernel* const* kernels();

inline namespace ITM_VARIANT
{

inline bool take(const double* from, int count, double* to)
{
    constexpr double most_m = 1e5;
    const auto held = [](auto z) {
        using Z = decltype(z);
        return smaller(larger(z, fill<Z>(-most_m)), fill<Z>(most_m));
    };
    LaneMask odd{};
    bool oddtail = false;
    int i = 0;
    for (; i + width <= count; i += width) {
        const Lanes z = load(from + i);
        odd |= z - z != 0.0; // infinite ones and NaN leave a NaN
        store(to + i, held(z));
    }
    for (; i < count; ++i) {
        oddtail = oddtail || from[i] - from[i] != 0;
        to[i] = held(from[i]);
    }
    for (int k = 0; k < kernelpadding; k += width)
        store(to + count + k, fill<Lanes>(0));
    return !any(odd) && !oddtail;
}

/// What is read from the terrain of one path, or of paths side by side.
template <class R> struct Reading {
    R d;          ///< length, m
    R hz1, hz2;   ///< horizon distances on the profile, m
    R hza1, hza2; ///< and angles, rad
    R range;      ///< interdecile range, m
    R span;       ///< length that it was taken over, m
    R fit1, fit2; ///< heights of the fitted lines at both ends, m
    R z1, z2;     ///< ground at both ends, m
};

/// Stretch of a path that its irregularity is read from, m from its left end: at most 15 antenna
/// heights, at most a tenth of the horizon distance away from the ends.
struct Stretch {
    double from, to;
};
ITM_INLINE Stretch stretch(const Radio& radio, double d, double hz1, double hz2)
{
    return {smaller(15 * radio.hg1, 0.1 * hz1), d - smaller(15 * radio.hg2, 0.1 * hz2)};
}

/// A path so clear that its horizons say nothing: they are estimated from the effective heights.
template <class R> ITM_INLINE auto horizonsunknown(R hz1, R hz2, R d)
{
    return hz1 + hz2 > 1.5 * d;
}

/// Windows of the lines whose ends are the ground that the antennas stand above.
struct Windows {
    Window left, right;
};
ITM_INLINE Windows windows(double step, int n, double d, const Stretch& s, double hz1, double hz2)
{
    const double x1 = s.from / step;
    const double x2 = s.to / step;
    if (horizonsunknown(hz1, hz2, d)) {
        const Window whole = linewindow(n, x1, x2);
        return {whole, whole};
    }
    return {linewindow(n, x1, 0.9 * hz1 / step), linewindow(n, (d - 0.9 * hz2) / step, x2)};
}

/// Horizon distance estimated from an effective height (Guide, eq. for d_L; Algorithm, section 3).
template <class R> ITM_INLINE R estimatedhorizon(R smooth, R he, R dh)
{
    return smooth * exponential(-0.07 * squareroot(dh / larger(he, fill<R>(5))));
}

/// Terrain irregularity, effective heights and horizons as the model uses them.
template <class R> ITM_INLINE Paths<R> makepaths(const Radio& radio, const Reading<R>& in)
{
    Paths<R> p;
    p.d = in.d;
    p.dh = in.range / (1.0 - 0.8 * exponential(in.span * (-1 / 50e3)));
    p.he1 = radio.hg1 + larger(in.z1 - in.fit1, fill<R>(0));
    p.he2 = radio.hg2 + larger(in.z2 - in.fit2, fill<R>(0));
    p.dl1 = in.hz1;
    p.dl2 = in.hz2;
    p.the1 = in.hza1;
    p.the2 = in.hza2;
    const auto unknown = horizonsunknown(in.hz1, in.hz2, in.d);
    if (!any(unknown))
        return p;
    const double unit = 2 / radio.gme;
    R he1 = p.he1, he2 = p.he2;
    R smooth1 = squareroot(he1 * unit), smooth2 = squareroot(he2 * unit);
    R dl1 = estimatedhorizon(smooth1, he1, p.dh), dl2 = estimatedhorizon(smooth2, he2, p.dh);
    const auto shortof = both(unknown, dl1 + dl2 <= p.d);
    if (any(shortof)) { // the heights are raised until the horizons meet
        const R q = select(shortof, squared(p.d / (dl1 + dl2)), 1.0);
        he1 = he1 * q;
        he2 = he2 * q;
        smooth1 = squareroot(he1 * unit);
        smooth2 = squareroot(he2 * unit);
        dl1 = estimatedhorizon(smooth1, he1, p.dh);
        dl2 = estimatedhorizon(smooth2, he2, p.dh);
    }
    const R rise = 0.65 * p.dh;
    p.the1 = select(unknown, (rise * (smooth1 / dl1 - 1.0) - 2.0 * he1) / smooth1, p.the1);
    p.the2 = select(unknown, (rise * (smooth2 / dl2 - 1.0) - 2.0 * he2) / smooth2, p.the2);
    p.he1 = select(unknown, he1, p.he1);
    p.he2 = select(unknown, he2, p.he2);
    p.dl1 = select(unknown, dl1, p.dl1);
    p.dl2 = select(unknown, dl2, p.dl2);
    return p;
}

/// Losses of paths, dB.
template <class R> struct Losses {
    R loss, free, aref, region;
};
template <class R> ITM_INLINE Losses<R> lossesof(const Radio& radio, Paths<R>& p)
{
    sumhorizons(radio, p);
    const R lnd = logarithm(p.d);
    const Reference<R> ref = reference(radio, p, lnd);
    const R free = radio.free + 2 * db_per_neper10 * lnd;
    return {free + varied(radio, ref.aref, p), free, ref.aref, ref.region};
}

/// One path's results, from its reading.
ITM_INLINE void answer(const Radio& radio, const Reading<double>& in, bool clear, ItmResult& out)
{
    Paths<double> p = makepaths(radio, in);
    const Losses<double> l = lossesof(radio, p);
    out.loss_db = l.loss;
    out.free_db = l.free;
    out.aref_db = l.aref;
    out.region = static_cast<ItmRegion>(static_cast<int>(l.region));
    out.clear = clear;
    out.gme = radio.gme;
    out.dl_m[0] = p.dl1;
    out.dl_m[1] = p.dl2;
    out.the_rad[0] = p.the1;
    out.the_rad[1] = p.the2;
    out.hz_m[0] = in.hz1;
    out.hz_m[1] = in.hz2;
    out.hza_rad[0] = in.hza1;
    out.hza_rad[1] = in.hza2;
    out.he_m[0] = p.he1;
    out.he_m[1] = p.he2;
    out.dh_m = p.dh;
}

/// One path. Works on `double`, its scans of the terrain on vectors.
inline void path(const double* z, int n, double step, const ItmInput& in, ItmResult& out)
{
    const Radio radio = makeradio(in);
    const Terrain t{z, step, 0.5 * radio.gme};
    const double top1 = z[0] + radio.hg1;
    const double top2 = z[n] + radio.hg2;
    const auto [left, right, clear] = horizons(t, n, top1, top2);
    const double d = n * step;
    const Stretch s = stretch(radio, d, left.distance, right.distance);
    const Windows w = windows(step, n, d, s, left.distance, right.distance);
    const LineEnds fit1 = linefit(z, n, w.left);
    const bool same = w.left.first == w.right.first && w.left.last == w.right.last;
    const LineEnds fit2 = same ? fit1 : linefit(z, n, w.right);
    Deciles seen;
    const Reading<double> reading{d,
                                  left.distance,
                                  right.distance,
                                  left.angle,
                                  right.angle,
                                  interdecile(z, s.from / step, s.to / step, seen),
                                  s.to - s.from,
                                  fit1.left,
                                  fit2.right,
                                  z[0],
                                  z[n]};
    answer(radio, reading, clear, out);
}

/// Readings of `width` paths, one after the other.
struct ReadingRows {
    static constexpr int fields = 11;
    double rows[fields][width];
    /// Sets one lane's path, and gives those of all lanes side by side.
    ITM_INLINE void put(int lane, const Reading<double>& in)
    {
        const double* from = &in.d;
        for (int f = 0; f < fields; ++f)
            rows[f][lane] = from[f];
    }
    ITM_INLINE Reading<Lanes> lanes() const
    {
        return {load(rows[0]), load(rows[1]), load(rows[2]), load(rows[3]),
                load(rows[4]), load(rows[5]), load(rows[6]), load(rows[7]),
                load(rows[8]), load(rows[9]), load(rows[10])};
    }
};

/// What is carried along a radial from cut to cut.
struct Radial {
    Radio radio;
    Terrain t;
    double top1; ///< transmitter's antenna, m
    RunningSums sums;
    Hull hull;    ///< of the samples left of the cut
    Horizon left; ///< highest angle of them
    Deciles seen;
};

/// Takes sample i in, which is then left of the cut.
ITM_INLINE void pass(Radial& r, int i)
{
    const double s = i * r.t.step;
    const double angle = sightangle(r.t.z[i], r.top1, s, r.t.halfgme);
    if (i == 1 || angle > r.left.angle)
        r.left = {i, s, angle};
    r.hull.add(i, r.t.z[i] - r.t.halfgme * s * s);
}

/// Reads the path cut at sample i, samples 1 to i - 1 having been passed.
ITM_INLINE Reading<double> readcut(Radial& r, int i, bool& clear)
{
    const double* z = r.t.z;
    const double step = r.t.step;
    const double d = i * step;
    const double top2 = z[i] + r.radio.hg2;
    Horizon left{i, d, sightangle(top2, r.top1, d, r.t.halfgme)};
    Horizon right{0, d, sightangle(r.top1, top2, d, r.t.halfgme)};
    clear = !(i > 1 && r.left.angle > left.angle);
    if (!clear) {
        left = r.left;
        const int at = r.hull.highest(i, top2 - r.t.halfgme * d * d);
        const double away = (i - at) * step;
        const double angle = sightangle(z[at], top2, away, r.t.halfgme);
        if (angle > right.angle)
            right = {at, away, angle};
    }
    const Stretch s = stretch(r.radio, d, left.distance, right.distance);
    const Windows w = windows(step, i, d, s, left.distance, right.distance);
    const LineEnds fit1 = linefit(z, r.sums, i, w.left);
    const LineEnds fit2 = linefit(z, r.sums, i, w.right);
    return {d,
            left.distance,
            right.distance,
            left.angle,
            right.angle,
            interdecile(z, s.from / step, s.to / step, r.seen),
            s.to - s.from,
            fit1.left,
            fit2.right,
            z[0],
            z[i]};
}

inline void radial(const double* z, int n, double step, const ItmInput& in, int first,
                   double* losses, double* room, ItmResult& out)
{
    const long length = n + 2 + kernelpadding;
    Radial r;
    r.radio = makeradio(in);
    r.t = {z, step, 0.5 * r.radio.gme};
    r.top1 = z[0] + r.radio.hg1;
    r.sums = {room, room + length, room + 2 * length, room + 3 * length};
    r.hull = {reinterpret_cast<int*>(room + 4 * length), room + 5 * length};
    r.left = {};
    makesums(z, n, r.sums);
    ReadingRows rows{};
    int lane = 0;
    bool clear = false;
    for (int i = 1; i <= n; ++i) {
        if (i >= first) {
            const Reading<double> reading = readcut(r, i, clear);
            if (i == n)
                answer(r.radio, reading, clear, out);
            rows.put(lane++, reading);
            if (lane == width || i == n) {
                for (int l = lane; l < width; ++l)
                    rows.put(l, reading);
                Paths<Lanes> p = makepaths(r.radio, rows.lanes());
                const Losses<Lanes> l = lossesof(r.radio, p);
                for (int k = 0; k < lane; ++k)
                    losses[i - lane + 1 + k] = l.loss[k];
                lane = 0;
            }
        }
        pass(r, i);
    }
}

} // namespace ITM_VARIANT
} // namespace itm
