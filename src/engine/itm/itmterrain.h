#pragma once

#include "engine/itm/lanes.h"

// What the model reads from a profile (Algorithm, section 3, point-to-point mode). Elevations stand
// in arrays that may be read, but aren't used, up to 16 numbers beyond their end. A path is
// cut at its sample n. Positions on it are counted in steps where not said otherwise.

namespace itm
{
inline namespace ITM_VARIANT
{

/// A profile and the earth below it.
struct Terrain {
    const double* z; ///< elevations, m
    double step;     ///< m
    double halfgme;  ///< half the effective earth curvature, 1/m
};

/// Horizon that an antenna sees: sample that makes it, distance in m, elevation angle in rad.
struct Horizon {
    int sample;
    double distance, angle;
};

/// Elevation angle, rad, from height `top` to `z`, so many metres away over the curved earth.
ITM_INLINE double sightangle(double z, double top, double distance, double halfgme)
{
    return (z - top) / distance - halfgme * distance;
}

/// The highest of the angles to samples passed, as a fraction: height over distance. Fractions are
/// compared without dividing them.
struct Highest {
    Lanes height = fill<Lanes>(-1e290);
    Lanes distance = fill<Lanes>(1);

    /// Takes one more angle a lane: height `h` over distance `s`, both in m, s > 0.
    ITM_INLINE void see(Lanes h, Lanes s)
    {
        const auto higher = h * distance > height * s;
        height = select(higher, h, height);
        distance = select(higher, s, distance);
    }

    /// Distance of the highest, m, that of the nearest if several are level.
    ITM_INLINE double nearest() const
    {
        double angles[width], distances[width];
        store(angles, height / distance);
        store(distances, distance);
        int best = 0;
        for (int l = 1; l < width; ++l)
            best = angles[l] > angles[best] ? l : best;
        return distances[best];
    }
};

struct Horizons {
    Horizon left, right;
    bool clear; ///< no sample stands above the line between the antennas
};

/// Horizons of the antennas at both ends of a path, at heights top1 and top2: the samples between
/// that they see highest. Without one above the line between them each other's end is the horizon
/// (Algorithm, section 3; Guide, annex on terrain).
ITM_INLINE Horizons horizons(const Terrain& t, int n, double top1, double top2)
{
    Highest left, right;
    Lanes at = countfrom(1);
    for (int j = 1; j < n; j += width) {
        const Lanes s1 = at * t.step;
        const Lanes s2 = (n - at) * t.step;
        const Lanes z = select(at < n + 0.0, load(t.z + j), -1e280);
        left.see(z - top1 - t.halfgme * s1 * s1, s1);
        right.see(z - top2 - t.halfgme * s2 * s2, s2);
        at += static_cast<double>(width);
    }
    const double d = n * t.step;
    Horizons out{{n, d, sightangle(top2, top1, d, t.halfgme)},
                 {0, d, sightangle(top1, top2, d, t.halfgme)},
                 true};
    if (n < 2)
        return out;
    const auto look = [&](Horizon& horizon, double distance, double top, bool leftwards) {
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): of a positive number it is right
        const int steps = static_cast<int>(distance / t.step + 0.5);
        const int sample = leftwards ? n - steps : steps;
        const double angle = sightangle(t.z[sample], top, steps * t.step, t.halfgme);
        if (angle > horizon.angle)
            horizon = {sample, steps * t.step, angle};
    };
    look(out.left, left.nearest(), top1, false);
    out.clear = out.left.sample == n;
    if (!out.clear)
        look(out.right, right.nearest(), top2, true);
    return out;
}

/// First and last sample that a least-squares line over positions x1 to x2 takes in.
struct Window {
    int first, last;
};
ITM_INLINE Window linewindow(int n, double x1, double x2)
{
    int first = x1 > 0 ? static_cast<int>(x1) : 0;
    int last = n - (n > x2 ? static_cast<int>(n - x2) : 0);
    if (last <= first) { // too short: one sample more on either side
        first = first > 0 ? first - 1 : 0;
        last = last < n ? last + 1 : n;
    }
    return {first, last};
}

/// A line's heights at sample 0 and at sample n, m.
struct LineEnds {
    double left, right;
};

/// Least-squares line through a window of samples from their sum and their moment about the middle
/// of the window, the end samples counting half (Guide, appendix; Algorithm, section 3).
ITM_INLINE LineEnds lineends(int n, const Window& w, double sum, double moment)
{
    const double length = w.last - w.first;
    const double middle = 0.5 * (w.first + w.last);
    const double mean = sum / length;
    const double slope = 12 * moment / ((length * length + 2) * length);
    return {mean - slope * middle, mean + slope * (n - middle)};
}

/// The line over a window, the samples summed up one by one.
ITM_INLINE LineEnds linefit(const double* z, int n, const Window& w)
{
    const double middle = 0.5 * (w.first + w.last);
    const Lanes start = countfrom(w.first) - middle;
    Lanes sums[parts]{}, moments[parts]{};
    const int count = w.last + 1 - w.first;
    int j = 0;
    for (; j + 8 <= count; j += 8)
        for (int k = 0; k < parts; ++k) {
            const Lanes value = load(z + w.first + j + k * width);
            sums[k] += value;
            moments[k] += value * (start + static_cast<double>(j + k * width));
        }
    for (int k = 0; j < count && k < parts; ++k) {
        const Lanes at = countfrom(j + k * width);
        const Lanes value = select(at < count + 0.0, load(z + w.first + j + k * width), 0.0);
        sums[k] += value;
        moments[k] += value * (start + static_cast<double>(j + k * width));
    }
    const double ends = 0.5 * (z[w.first] + z[w.last]);
    const double tilt = 0.5 * (z[w.last] - z[w.first]) * 0.5 * (w.last - w.first);
    return lineends(n, w, total(sums) - ends, total(moments) - tilt);
}

/// Running sums of a profile, from which the line over any window follows at once. Each is kept
/// with what its rounding lost, so that their differences are as good as sums of their own.
struct RunningSums {
    double *sum, *sumlost;       ///< of z before sample j
    double *moment, *momentlost; ///< of j z before sample j
};

/// Fills running sums for samples 0 to n; they have n + 2 numbers each.
ITM_INLINE void makesums(const double* z, int n, const RunningSums& sums)
{
    const auto add = [](double& sum, double& lost, double term) {
        const double next = sum + term;
        const double took = next - sum; // two-sum: what of the term and the sum was rounded away
        lost += (sum - (next - took)) + (term - took);
        sum = next;
    };
    double sum = 0, sumlost = 0, moment = 0, momentlost = 0;
    for (int j = 0; j <= n + 1; ++j) {
        sums.sum[j] = sum;
        sums.sumlost[j] = sumlost;
        sums.moment[j] = moment;
        sums.momentlost[j] = momentlost;
        if (j <= n) {
            add(sum, sumlost, z[j]);
            add(moment, momentlost, j * z[j]);
        }
    }
}

/// The line over a window from running sums.
ITM_INLINE LineEnds linefit(const double* z, const RunningSums& s, int n, const Window& w)
{
    const int end = w.last + 1;
    const double middle = 0.5 * (w.first + w.last);
    const double sum = (s.sum[end] - s.sum[w.first]) + (s.sumlost[end] - s.sumlost[w.first]);
    const double moment =
        (s.moment[end] - s.moment[w.first]) + (s.momentlost[end] - s.momentlost[w.first]);
    const double ends = 0.5 * (z[w.first] + z[w.last]);
    const double tilt = 0.5 * (z[w.last] - z[w.first]) * 0.5 * (w.last - w.first);
    return lineends(n, w, sum - ends, (moment - middle * sum) - tilt);
}

/// Upper hull of a profile's samples from 1 on, in the frame in which the earth's curve is
/// straight: what can be the horizon of an antenna further right. Samples enter from left to right.
struct Hull {
    int* samples; ///< those on the hull, left to right
    double* y;    ///< their heights in that frame, m
    int count = 0;

    /// Is `a` left of `b` seen higher than it from sample i at height yi, both left of i?
    static bool higher(int a, double ya, int b, double yb, int i, double yi)
    {
        return (ya - yi) * (i - b) > (yb - yi) * (i - a);
    }

    /// Takes sample i at height yi, m in that frame, right of all taken before.
    ITM_INLINE void add(int i, double yi)
    {
        // The last one goes if the one before it is seen no lower from here.
        while (count > 1 &&
               !higher(samples[count - 1], y[count - 1], samples[count - 2], y[count - 2], i, yi))
            --count;
        samples[count] = i;
        y[count++] = yi;
    }

    /// Sample seen highest from sample i, height yi. Along the hull, right to left, the angles rise
    /// and then fall; the summit is found by steps that double, then halve.
    ITM_INLINE int highest(int i, double yi) const
    {
        const auto climbs = [&](int at) { // does going left from hull point `at` climb?
            return higher(samples[at - 1], y[at - 1], samples[at], y[at], i, yi);
        };
        int right = count - 1; // everything right of it is lower
        int reach = 1;
        while (reach <= right && climbs(right - reach + 1)) {
            right -= reach;
            reach *= 2;
        }
        int left = reach > right ? 0 : right - reach + 1; // the summit is in left .. right
        while (right > left) {
            const int middle = left + (right - left + 1) / 2;
            if (climbs(middle))
                right = middle - 1;
            else
                left = middle;
        }
        return samples[right];
    }
};

} // namespace ITM_VARIANT
} // namespace itm
