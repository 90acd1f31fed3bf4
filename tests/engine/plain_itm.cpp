#include "engine/plain_itm.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <functional>
#include <numbers>
#include <vector>

// References: "Algorithm" is G. A. Hufford, The ITS Irregular Terrain Model, version 1.2.2: The
// Algorithm. Constants are those of the model's version 1.4, which takes exactly most of what
// version 1.2.2 rounds, but not all: 8.686, 4.343 and 17.372 of the height gain stay.

namespace
{

constexpr double f0_mhzm = 47.7; // k = f / f0

/// A path and what has been found out about it.
struct Path {
    double k = 0; // wave number, 1/m
    double f_mhz = 0;
    double gme = 0;          // effective earth curvature, 1/m
    double ns = 0;           // N-units
    std::complex<double> zg; // ground impedance, of that of free space
    double d = 0;            // length, m
    double hg[2]{};          // antennas above ground, m
    double he[2]{};          // effective heights, m
    double dl[2]{};          // horizon distances, m
    double the[2]{};         // horizon angles, rad
    double dh = 0;           // terrain irregularity, m
    double dls[2]{};         // smooth-earth horizon distances, m
    double dlssum = 0, dlsum = 0, thesum = 0;
};

double roughnessat(double s, double dh)
{
    return (1 - 0.8 * std::exp(-s / 50e3)) * dh;
}

double deviation(double dhs)
{
    return 0.78 * dhs * std::exp(-std::pow(dhs / 16, 0.25));
}

std::complex<double> impedance(double eps, double sgm, double f_mhz, int pol)
{
    const std::complex<double> er(eps, 18000 * sgm / f_mhz);
    const std::complex<double> z = std::sqrt(er - 1.0);
    return pol == 1 ? z / er : z;
}

// Least-squares line through samples between x1 and x2 (in intervals), heights at both path ends.
std::array<double, 2> linefit(std::span<const double> z, double x1, double x2)
{
    const double n = static_cast<double>(z.size() - 1);
    double first = std::floor(std::max(x1, 0.0));
    double last = n - std::floor(std::max(n - x2, 0.0));
    if (last <= first) {
        first = std::max(first - 1, 0.0);
        last = n - std::max(n - (last + 1), 0.0);
    }
    const auto a = static_cast<std::size_t>(first);
    const auto b = static_cast<std::size_t>(last);
    const double length = last - first;
    const double middle = 0.5 * (first + last);
    double sum = 0.5 * (z[a] + z[b]);
    double moment = 0.5 * (z[b] - z[a]) * length / 2;
    for (std::size_t i = a + 1; i < b; ++i) {
        sum += z[i];
        moment += z[i] * (static_cast<double>(i) - middle);
    }
    const double mean = sum / length;
    const double slope = 12 * moment / ((length * length + 2) * length);
    return {mean - slope * middle, mean + slope * (n - middle)};
}

// Interdecile range of the terrain about its own line between x1 and x2, extrapolated to an
// infinite path.
double irregularity(std::span<const double> z, double step, double x1, double x2)
{
    const double from = x1 / step;
    const double to = x2 / step;
    if (to - from < 2)
        return 0;
    const int tenth = std::clamp(static_cast<int>(0.1 * (to - from + 8)), 4, 25);
    const int count = 10 * tenth - 5;
    const double stride = (to - from) / (count - 1);
    std::vector<double> s(static_cast<std::size_t>(count));
    const std::size_t n = z.size() - 1;
    for (int j = 0; j < count; ++j) {
        const double x = from + j * stride;
        const std::size_t i = std::min(static_cast<std::size_t>(x), n - 1);
        s[static_cast<std::size_t>(j)] = z[i] + (z[i + 1] - z[i]) * (x - static_cast<double>(i));
    }
    const auto [left, right] = linefit(s, 0, count - 1);
    const double slope = (right - left) / (count - 1);
    for (int j = 0; j < count; ++j)
        s[static_cast<std::size_t>(j)] -= left + slope * j;
    const auto high = s.begin() + (tenth - 1);
    std::nth_element(s.begin(), high, s.end(), std::greater<>());
    const double q10 = *high;
    const auto low = s.begin() + (count - tenth);
    std::nth_element(s.begin(), low, s.end(), std::greater<>());
    return (q10 - *low) / (1 - 0.8 * std::exp(-(x2 - x1) / 50e3));
}

// Horizons on the profile (Algorithm, section 3): true when nothing is in the way.
bool horizons(std::span<const double> z, double step, Path& p)
{
    const std::size_t n = z.size() - 1;
    const double top1 = z[0] + p.hg[0];
    const double top2 = z[n] + p.hg[1];
    const double half = 0.5 * p.gme;
    p.the[0] = (top2 - top1) / p.d - half * p.d;
    p.the[1] = (top1 - top2) / p.d - half * p.d;
    p.dl[0] = p.dl[1] = p.d;
    bool clear = true;
    for (std::size_t i = 1; i < n; ++i) {
        const double from1 = static_cast<double>(i) * step;
        const double from2 = p.d - from1;
        const double over1 = z[i] - (half * from1 + p.the[0]) * from1 - top1;
        if (over1 > 0) {
            p.the[0] += over1 / from1;
            p.dl[0] = from1;
            clear = false;
        }
        if (clear)
            continue;
        const double over2 = z[i] - (half * from2 + p.the[1]) * from2 - top2;
        if (over2 > 0) {
            p.the[1] += over2 / from2;
            p.dl[1] = from2;
        }
    }
    return clear;
}

double horizonestimate(double he, double gme, double dh)
{
    return std::sqrt(2 * he / gme) * std::exp(-0.07 * std::sqrt(dh / std::max(he, 5.0)));
}

// Terrain irregularity, effective heights and, on a clear path, horizons estimated from them
// (Algorithm, section 3, point-to-point mode).
void terrain(std::span<const double> z, double step, Path& p)
{
    const double x1 = std::min(15 * p.hg[0], 0.1 * p.dl[0]);
    const double x2 = p.d - std::min(15 * p.hg[1], 0.1 * p.dl[1]);
    p.dh = irregularity(z, step, x1, x2);
    const double ends[2] = {z.front(), z.back()};
    if (p.dl[0] + p.dl[1] <= 1.5 * p.d) {
        const double left = linefit(z, x1 / step, 0.9 * p.dl[0] / step)[0];
        const double right = linefit(z, (p.d - 0.9 * p.dl[1]) / step, x2 / step)[1];
        p.he[0] = p.hg[0] + std::max(ends[0] - left, 0.0);
        p.he[1] = p.hg[1] + std::max(ends[1] - right, 0.0);
        return;
    }
    const auto fit = linefit(z, x1 / step, x2 / step);
    for (std::size_t j = 0; j < 2; ++j) {
        p.he[j] = p.hg[j] + std::max(ends[j] - fit[j], 0.0);
        p.dl[j] = horizonestimate(p.he[j], p.gme, p.dh);
    }
    if (p.dl[0] + p.dl[1] <= p.d) {
        const double q = std::pow(p.d / (p.dl[0] + p.dl[1]), 2);
        for (std::size_t j = 0; j < 2; ++j) {
            p.he[j] *= q;
            p.dl[j] = horizonestimate(p.he[j], p.gme, p.dh);
        }
    }
    for (std::size_t j = 0; j < 2; ++j) {
        const double smooth = std::sqrt(2 * p.he[j] / p.gme);
        p.the[j] = (0.65 * p.dh * (smooth / p.dl[j] - 1) - 2 * p.he[j]) / smooth;
    }
}

double knifeedge(double v2)
{
    return v2 < 5.76 ? 6.02 + 9.11 * std::sqrt(v2) - 1.27 * v2 : 12.953 + 10 * std::log10(v2);
}

// Height gain over the smooth earth, F(x, K).
double heightgain(double x, double K)
{
    if (x < 200) {
        const double w = -std::log(K);
        if (K < 1e-5 || x * w * w * w > 5495)
            return x > 1 ? 17.372 * std::log(x) - 117 : -117;
        return 2.5e-5 * x * x / K + 8.686 * std::log(K) - 15;
    }
    const double far = 0.05751 * x - 4.343 * std::log(x);
    if (x >= 2000)
        return far;
    const double w = 0.0134 * x * std::exp(-0.005 * x);
    return (1 - w) * far + w * (17.372 * std::log(x) - 117);
}

struct Smooth {
    double K, C; // of one of the three radii
};

Smooth smoothradius(const Path& p, double a)
{
    const double C = std::cbrt(4.0 / 3.0 * 6370e3 / a);
    return {0.017778 * C / std::cbrt(p.f_mhz) / std::abs(p.zg), C};
}

double smoothdistance(const Path& p, const Smooth& r, double d_m)
{
    return (1.607 - r.K) * r.C * r.C * std::cbrt(p.f_mhz) * d_m / 1000;
}

double roundedearth(const Path& p, double s)
{
    const double theta = p.thesum + s * p.gme;
    double x[2];
    double gains = 0;
    for (std::size_t j = 0; j < 2; ++j) {
        const Smooth r = smoothradius(p, p.dl[j] * p.dl[j] / (2 * p.he[j]));
        x[j] = smoothdistance(p, r, p.dl[j]);
        gains += heightgain(x[j], r.K);
    }
    const double a0 = (s - p.dlsum) / theta;
    const double x0 = smoothdistance(p, smoothradius(p, a0), a0 * theta) + x[0] + x[1];
    return 0.05751 * x0 - 10 * std::log10(x0) - gains - 20;
}

double diffraction(const Path& p, double s)
{
    const double theta = p.thesum + s * p.gme;
    const double between = s - p.dlsum;
    double edges = 0;
    for (const double dl : p.dl)
        edges += knifeedge(0.0795775 * p.k * theta * theta * between * dl / (between + dl));
    const double hgs = p.hg[0] * p.hg[1];
    const double q =
        std::min(roughnessat(s, p.dh) * p.k, 6283.2) *
        (std::sqrt((p.he[0] * p.he[1] + 10) / (hgs + 10)) + (p.dlsum + p.thesum / p.gme) / s);
    const double w = 25.1 / (25.1 + std::sqrt(q));
    const double sigma = deviation(roughnessat(p.dlssum, p.dh));
    const double clutter = std::min(15.0, 5 * std::log10(1 + 4.77e-4 * p.k * hgs * sigma));
    return (1 - w) * edges + w * roundedearth(p, s) + clutter;
}

double lineofsight(const Path& p, double s, double aed, double md)
{
    const double hes = p.he[0] + p.he[1];
    const double sinpsi = hes / std::sqrt(s * s + hes * hes);
    const double dhs = roughnessat(s, p.dh);
    std::complex<double> r = (sinpsi - p.zg) / (sinpsi + p.zg) *
                             std::exp(-std::min(10.0, p.k * deviation(dhs) * sinpsi));
    const double power = std::norm(r);
    if (power < 0.25 || power < sinpsi)
        r *= std::sqrt(sinpsi / power);
    double delta = 2 * p.k * p.he[0] * p.he[1] / s;
    constexpr double quarter = std::numbers::pi / 2;
    if (delta > quarter)
        delta = std::numbers::pi - quarter * quarter / delta;
    const double tworay = -10 * std::log10(std::norm(std::polar(1.0, -delta) + r));
    const double w = 1 / (1 + f0_mhzm * p.k * p.dh / std::max(10e3, p.dlssum));
    return (1 - w) * (aed + md * s) + w * tworay;
}

// F(D, Ns) of troposcatter, D in m.
double scatterdistance(double D, double ns)
{
    static constexpr std::array a{133.4, 104.6, 71.8};
    static constexpr std::array b{0.332e-3, 0.212e-3, 0.157e-3};
    static constexpr std::array c{-10.0, -2.5, 5.0};
    const std::size_t i = D <= 10e3 ? 0 : D <= 70e3 ? 1 : 2;
    return a[i] + b[i] * D + c[i] * std::log10(D) - 0.1 * (ns - 301) * std::exp(-D / 40e3);
}

double frequencygain(double r, double eta)
{
    static constexpr std::array a{25.0, 80.0, 177.0, 395.0, 705.0};
    static constexpr std::array b{24.0, 45.0, 68.0, 80.0, 105.0};
    const auto h01 = [r](std::size_t j) {
        const double x = 1 / (r * r);
        return 10 * std::log10(1 + b[j] * x + a[j] * x * x);
    };
    eta = std::clamp(eta, 1.0, 5.0);
    const auto j = static_cast<std::size_t>(eta);
    const double q = eta - static_cast<double>(j);
    return q == 0 ? h01(j - 1) : (1 - q) * h01(j - 1) + q * h01(j);
}

double scatter(const Path& p, double s, double& previous)
{
    const double theta = p.the[0] + p.the[1] + p.gme * s;
    double h0 = previous;
    if (!(previous > 15)) {
        const double r1 = 2 * p.k * theta * p.he[0];
        const double r2 = 2 * p.k * theta * p.he[1];
        if (r1 < 0.2 && r2 < 0.2)
            return 1001;
        const bool swapped = p.dl[0] < p.dl[1];
        const double ad = std::abs(p.dl[0] - p.dl[1]);
        const double rr = swapped ? p.he[0] / p.he[1] : p.he[1] / p.he[0];
        const double asymmetry = (s - ad) / (s + ad);
        const double q = std::clamp(rr / asymmetry, 0.1, 10.0);
        const double ss = std::max(0.1, asymmetry);
        const double z0 = (s - ad) * (s + ad) * theta * 0.25 / s;
        const double etq = (5.67e-6 * p.ns - 2.32e-3) * p.ns + 0.031;
        const double eta =
            (1 + etq * std::exp(-std::pow(std::min(1.7, z0 / 8e3), 6))) * z0 / 1.7556e3;
        const double etas = std::max(eta, 1.0);
        h0 = (frequencygain(r1, etas) + frequencygain(r2, etas)) / 2;
        h0 += std::min(h0, 6 * (0.6 - std::log10(etas)) * std::log10(ss) * std::log10(q));
        h0 = std::max(h0, 0.0);
        if (eta < 1) {
            const double root2 = std::numbers::sqrt2;
            const double low = 10 * std::log10(std::pow((1 + root2 / r1) * (1 + root2 / r2), 2) *
                                               (r1 + r2) / (r1 + r2 + 2 * root2));
            h0 = eta * h0 + (1 - eta) * low;
        }
        if (h0 > 15 && previous >= 0)
            h0 = previous;
    }
    previous = h0;
    const double th = p.thesum + s * p.gme;
    return scatterdistance(th * s, p.ns) + 10 * std::log10(p.k * f0_mhzm * std::pow(th, 4)) + h0;
}

double sightline(const Path& p, double d, double aed, double md)
{
    const double d2 = p.dlssum;
    const double a2 = aed + d2 * md;
    double d0 = 1.908 * p.k * p.he[0] * p.he[1];
    double d1;
    if (aed >= 0) {
        d0 = std::min(d0, 0.5 * p.dlsum);
        d1 = d0 + 0.25 * (p.dlsum - d0);
    } else {
        d1 = std::max(-aed / md, 0.25 * p.dlsum);
    }
    const double a1 = lineofsight(p, d1, aed, md);
    double k1 = 0;
    double k2 = 0;
    bool threepoints = false;
    if (d0 < d1) {
        const double a0 = lineofsight(p, d0, aed, md);
        const double q = std::log(d2 / d0);
        k2 = std::max(0.0, ((d2 - d0) * (a1 - a0) - (d1 - d0) * (a2 - a0)) /
                               ((d2 - d0) * std::log(d1 / d0) - (d1 - d0) * q));
        threepoints = aed >= 0 || k2 > 0;
        if (threepoints) {
            k1 = (a2 - a0 - k2 * q) / (d2 - d0);
            if (k1 < 0) {
                k1 = 0;
                k2 = std::max(a2 - a0, 0.0) / q;
                if (k2 == 0)
                    k1 = md;
            }
        }
    }
    if (!threepoints) {
        k1 = std::max(a2 - a1, 0.0) / (d2 - d1);
        k2 = 0;
        if (k1 == 0)
            k1 = md;
    }
    return a2 + k1 * (d - d2) + k2 * std::log(d / d2);
}

double reference(Path& p, int& region)
{
    for (std::size_t j = 0; j < 2; ++j)
        p.dls[j] = std::sqrt(2 * p.he[j] / p.gme);
    p.dlssum = p.dls[0] + p.dls[1];
    p.dlsum = p.dl[0] + p.dl[1];
    p.thesum = std::max(p.the[0] + p.the[1], -p.dlsum * p.gme);
    const double xae = std::cbrt(1 / (p.f_mhz * p.gme * p.gme)); // d3, d4 in these units: 5 and 10
    const double d3 = std::max(p.dlssum, p.dlsum + 5 * xae);
    const double d4 = d3 + 10 * xae;
    const double a3 = diffraction(p, d3);
    const double a4 = diffraction(p, d4);
    const double md = (a4 - a3) / (d4 - d3);
    const double aed = a3 - md * d3;
    double aref;
    if (p.d < p.dlssum) {
        region = 1;
        aref = sightline(p, p.d, aed, md);
    } else {
        const double d5 = p.dlsum + 200e3;
        const double d6 = d5 + 200e3;
        double h0 = -15;
        const double a6 = scatter(p, d6, h0);
        const double a5 = scatter(p, d5, h0);
        double ms = md;
        double aes = aed;
        double dx = 10e6;
        if (a5 < 1000) {
            ms = (a6 - a5) / 200e3;
            dx = (a5 - aed - ms * d5) / (md - ms);
            dx = std::max({dx, p.dlssum, p.dlsum + 1.088 * xae * std::log(p.f_mhz)});
            aes = (md - ms) * dx + aed;
        }
        region = p.d > dx ? 3 : 2;
        aref = region == 3 ? aes + ms * p.d : aed + md * p.d;
    }
    // Where the rounded earth's attenuation has no value (ground of so high an impedance that its
    // path parameter turns negative) the model's reference results have none either.
    return aref > 0 ? aref : 0;
}

double curve(const std::array<double, 5>& c, double de)
{
    const double bump = (de - c[3]) / c[4];
    const double r = de / c[2];
    return (c[0] + c[1] / (1 + bump * bump)) * r * r / (1 + r * r);
}

struct Climate {
    std::array<double, 5> median, minus, plus; // c1, c2, x1, x2, x3
    double zd, csd;                            // ducting
    std::array<double, 3> fminus, fplus;       // frequency factors
};

constexpr std::array<Climate, 7> climates{{
    {{-9.67, 12.7, 144.9e3, 190.3e3, 133.8e3},
     {2.13, 159.5, 762.2e3, 123.6e3, 94.5e3},
     {2.11, 102.3, 636.9e3, 134.8e3, 95.6e3},
     1.282,
     1.224,
     {1, 0, 0},
     {1, 0, 0}},
    {{-0.62, 9.19, 228.9e3, 205.2e3, 143.6e3},
     {2.66, 7.67, 100.4e3, 172.5e3, 136.4e3},
     {6.87, 15.53, 138.7e3, 143.7e3, 98.6e3},
     2.161,
     0.801,
     {1, 0, 0},
     {0.93, 0.31, 2.00}},
    {{1.26, 15.5, 262.6e3, 185.2e3, 99.8e3},
     {6.11, 6.65, 138.2e3, 242.2e3, 178.6e3},
     {10.08, 9.60, 165.3e3, 225.7e3, 129.7e3},
     1.282,
     1.380,
     {1, 0, 0},
     {1, 0, 0}},
    {{-9.21, 9.05, 84.1e3, 101.1e3, 98.6e3},
     {1.98, 13.11, 139.1e3, 132.7e3, 193.5e3},
     {3.68, 159.3, 464.4e3, 93.1e3, 94.2e3},
     20.0,
     1.000,
     {1, 0, 0},
     {0.93, 0.19, 1.79}},
    {{-0.62, 9.19, 228.9e3, 205.2e3, 143.6e3},
     {2.68, 7.16, 93.7e3, 186.8e3, 133.5e3},
     {4.75, 8.12, 93.2e3, 135.9e3, 113.4e3},
     1.282,
     1.224,
     {0.92, 0.25, 1.77},
     {0.93, 0.31, 2.00}},
    {{-0.39, 2.86, 141.7e3, 315.9e3, 167.4e3},
     {6.86, 10.38, 187.8e3, 169.6e3, 108.9e3},
     {8.58, 13.97, 216.0e3, 152.0e3, 122.7e3},
     1.282,
     1.518,
     {1, 0, 0},
     {1, 0, 0}},
    {{3.15, 857.9, 2222.0e3, 164.8e3, 116.3e3},
     {8.51, 169.8, 609.8e3, 119.9e3, 106.6e3},
     {8.43, 8.19, 136.2e3, 188.5e3, 122.9e3},
     1.282,
     1.518,
     {1, 0, 0},
     {1, 0, 0}},
}};

// Normal deviate exceeded with probability q (Abramowitz and Stegun 26.2.23).
double deviate(double q)
{
    const double t = std::sqrt(-2 * std::log(std::min(q, 1 - q)));
    const double z = t - ((0.010328 * t + 0.802853) * t + 2.515516) /
                             (((0.001308 * t + 0.189269) * t + 1.432788) * t + 1);
    return q > 0.5 ? -z : z;
}

double frequencyfactor(const std::array<double, 3>& c, double f_mhz)
{
    const double q = c[2] * std::log(0.133 * f_mhz / f0_mhzm);
    return c[0] + c[1] / (q * q + 1);
}

// The loss beyond free space that isn't exceeded with the wanted probabilities (Algorithm,
// section 5).
double variability(const Path& p, const PlainInput& in, double aref)
{
    const Climate& c = climates[static_cast<std::size_t>(in.clim - 1)];
    const int mode = in.varmode % 10;
    const bool nolocation = in.varmode / 10 % 2 == 1;
    const bool nosituation = in.varmode / 20 % 2 == 1;
    double zt = deviate(in.ptime / 100);
    double zl = deviate(in.ploc / 100);
    const double zs = deviate(in.psit / 100);
    if (mode == 0)
        zt = zl = zs;
    else if (mode == 1)
        zl = zs;
    else if (mode == 2)
        zl = zt;
    const double dex =
        std::sqrt(18e6 * p.he[0]) + std::sqrt(18e6 * p.he[1]) + std::cbrt(575.7e12 / p.k);
    const double de = p.d < dex ? 130e3 * p.d / dex : 130e3 + p.d - dex;
    const double vmedian = curve(c.median, de);
    const double tminus = curve(c.minus, de) * frequencyfactor(c.fminus, p.f_mhz);
    const double tplus = curve(c.plus, de) * frequencyfactor(c.fplus, p.f_mhz);
    const double duct = tplus * c.csd;
    const double tail = (tplus - duct) * c.zd;
    double sl = 0;
    if (!nolocation) {
        const double q = roughnessat(p.d, p.dh) * p.k;
        sl = 10 * q / (q + 13);
    }
    const double vs0 = nosituation ? 0 : std::pow(5 + 3 * std::exp(-de / 100e3), 2);
    const double st = zt < 0 ? tminus : zt <= c.zd ? tplus : duct + tail / zt;
    const double vs =
        vs0 + std::pow(st * zt, 2) / (7.8 + zs * zs) + std::pow(sl * zl, 2) / (24 + zs * zs);
    double y = 0;
    double sgc;
    if (mode == 0) {
        sgc = std::sqrt(st * st + sl * sl + vs);
    } else if (mode == 1) {
        y = st * zt;
        sgc = std::sqrt(sl * sl + vs);
    } else if (mode == 2) {
        y = std::sqrt(st * st + sl * sl) * zt;
        sgc = std::sqrt(vs);
    } else {
        y = st * zt + sl * zl;
        sgc = std::sqrt(vs);
    }
    const double a = aref - vmedian - y - sgc * zs;
    return a < 0 ? a * (29 - a) / (29 - 10 * a) : a;
}

} // namespace

PlainResult plainitm(std::span<const double> elevations, double step_m, const PlainInput& in)
{
    Path p;
    p.f_mhz = in.freq_mhz;
    p.k = in.freq_mhz / f0_mhzm;
    p.ns = in.ns;
    p.gme = 157e-9 * (1 - 0.04665 * std::exp(in.ns / 179.3));
    p.zg = impedance(in.eps, in.sgm, in.freq_mhz, in.pol);
    p.d = static_cast<double>(elevations.size() - 1) * step_m;
    p.hg[0] = in.h1_m;
    p.hg[1] = in.h2_m;
    PlainResult out;
    out.clear = horizons(elevations, step_m, p);
    std::copy_n(p.dl, 2, out.hz_m);
    std::copy_n(p.the, 2, out.hza_rad);
    terrain(elevations, step_m, p);
    out.aref_db = reference(p, out.region);
    out.free_db = 32.45 + 20 * std::log10(in.freq_mhz) + 20 * std::log10(p.d / 1000);
    out.loss_db = out.free_db + variability(p, in, out.aref_db);
    out.gme = p.gme;
    std::copy_n(p.dl, 2, out.dl_m);
    std::copy_n(p.the, 2, out.the_rad);
    std::copy_n(p.he, 2, out.he_m);
    out.dh_m = p.dh;
    return out;
}
