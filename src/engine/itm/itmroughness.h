#pragma once

#include "engine/itm/itmterrain.h"

// Terrain irregularity (Algorithm, section 3: Delta h; Guide, annex on terrain): the interdecile
// range of the terrain about its own line. The terrain is read at 10 m - 5 points, m between 4 and
// 25 by the length of the stretch, a line is fitted to them, and from the heights above it the m-th
// largest and the m-th smallest are taken.

namespace itm
{
inline namespace ITM_VARIANT
{

inline constexpr int mostpoints = 245;
inline constexpr int pointroom = 264; // to full vectors, and eight more

/// Terrain at `width` positions `x`, which rise by less than 1.9 if they are `dense`, m.
template <bool dense> ITM_INLINE Lanes terrainat(const double* z, Lanes x)
{
#if ITM_WIDTH == 8 && defined(__AVX512DQ__)
    if constexpr (dense) { // all within 16 samples of the first
        const int base = static_cast<int>(x[0]);
        const Lanes along = x - static_cast<double>(base);
        const __m512d whole = _mm512_roundscale_pd(along, _MM_FROUND_TO_ZERO);
        const __m512i at = _mm512_cvttpd_epi64(whole);
        const __m512d low = _mm512_loadu_pd(z + base);
        const __m512d high = _mm512_loadu_pd(z + base + 8);
        const Lanes a = _mm512_permutex2var_pd(low, at, high);
        const Lanes b =
            _mm512_permutex2var_pd(low, _mm512_add_epi64(at, _mm512_set1_epi64(1)), high);
        return a + (b - a) * (along - whole);
    }
#endif
    using Indices = int __attribute__((vector_size(4 * ITM_WIDTH)));
    const Indices k = __builtin_convertvector(x, Indices);
    Lanes a{}, b{};
    for (int l = 0; l < width; ++l) {
        a[l] = z[k[l]];
        b[l] = z[k[l] + 1];
    }
    return a + (b - a) * (x - __builtin_convertvector(k, Lanes));
}

/// Points along a stretch of terrain and what follows from their number alone.
struct PointPlan {
    int tenth;      ///< m of above
    int count;      ///< 10 m - 5
    double middle;  ///< (count - 1) / 2
    double perstep; ///< 1 / (count - 1)
    double slope;   ///< slope of a least-squares line from a moment of 1: see lineends
};

/// The plans for m from 4 to 25.
struct PointPlans {
    PointPlan of[22];
    constexpr PointPlans() : of{}
    {
        for (int tenth = 4; tenth <= 25; ++tenth) {
            const double length = 10 * tenth - 6;
            of[tenth - 4] = {tenth, 10 * tenth - 5, length / 2, 1 / length,
                             12 / ((length * length + 2) * length)};
        }
    }
};
inline constexpr PointPlans pointplans;

/// The plan for a stretch, in steps; null where it is too short to have an irregularity.
ITM_INLINE const PointPlan* planof(double stretch)
{
    if (!(stretch >= 2))
        return nullptr;
    const int tenth = static_cast<int>(0.1 * (stretch + 8));
    return &pointplans.of[tenth < 4 ? 0 : tenth > 25 ? 21 : tenth - 4];
}

/// Sums over the points, in eight parts each.
struct PointSums {
    Lanes sums[parts]{}, moments[parts]{};
};

/// Reads `count` points from position `from` on, `stride` apart, as heights above `datum`.
template <bool dense>
ITM_INLINE PointSums readpoints(const double* z, double from, double stride, int count,
                                double datum, double* r)
{
    PointSums out;
    const double middle = 0.5 * (count - 1);
    Lanes at[parts];
    for (int k = 0; k < parts; ++k)
        at[k] = countfrom(k * width);
    int j = 0;
    for (; j + 8 <= count; j += 8)
        for (int k = 0; k < parts; ++k) {
            const Lanes s = terrainat<dense>(z, from + at[k] * stride) - datum;
            store(r + j + k * width, s);
            out.sums[k] += s;
            out.moments[k] += s * (at[k] - middle);
            at[k] += 8.0;
        }
    const double last = count - 1;
    for (int k = 0; k < parts; ++k) { // count is odd: some are left
        const Lanes s = terrainat<dense>(z, from + smaller(at[k], last) * stride) - datum;
        store(r + j + k * width, s);
        out.sums[k] += select(at[k] <= last, s, 0.0);
        out.moments[k] += select(at[k] <= last, s * (at[k] - middle), 0.0);
    }
    return out;
}

/// Line through the points, as its height at their middle and its slope over a point.
struct PointLine {
    double mean, slope;
};

/// Reads the points of a plan from position `from` on and fits the line to them.
ITM_INLINE PointLine fitpoints(const double* z, double from, double stretch, const PointPlan& plan,
                               double* r)
{
    const double stride = stretch * plan.perstep;
    const double datum = z[static_cast<int>(from)]; // heights above it are small
    const PointSums points = stride < 1.9
                                 ? readpoints<true>(z, from, stride, plan.count, datum, r)
                                 : readpoints<false>(z, from, stride, plan.count, datum, r);
    const double last = r[plan.count - 1];
    const double sum = total(points.sums) - 0.5 * (r[0] + last);
    const double moment = total(points.moments) - 0.5 * (last - r[0]) * plan.middle;
    return {sum * plan.perstep, moment * plan.slope};
}

/// Numbers of a row above a bracket, and those in it: above `low` but not above `high`.
struct Census {
    double low, high;
    int above = 0;
    int between = 0;
    double found[pointroom]; ///< those between

    /// Sets an empty count of the bracket above `from`, up to and with `to`.
    void begin(double from, double to)
    {
        low = from;
        high = to;
        above = between = 0;
    }

    /// Takes the numbers of a row that fill whole vectors.
    void take(const double* r, int count)
    {
        // Counted in variables of the loop's own: numbers written could lie on those in memory.
        int over = 0;
        int taken = 0;
        const double from = low, to = high;
        for (int j = 0; j < count; j += width)
            takevector(load(r + j), from, to, over, taken);
        above = over;
        between = taken;
    }

    ITM_INLINE void takevector(Lanes x, double from, double to, int& over, int& taken)
    {
#if ITM_WIDTH == 8 && defined(__AVX512DQ__)
        const __mmask8 isover = _mm512_cmp_pd_mask(x, _mm512_set1_pd(to), _CMP_GT_OQ);
        const __mmask8 isin =
            _kandn_mask8(isover, _mm512_cmp_pd_mask(x, _mm512_set1_pd(from), _CMP_GT_OQ));
        _mm512_storeu_pd(found + taken, _mm512_maskz_compress_pd(isin, x));
        over += __builtin_popcount(isover);
        taken += __builtin_popcount(isin);
#else
        double row[width];
        store(row, x);
        for (int l = 0; l < width; ++l) {
            found[taken] = row[l];
            taken += static_cast<int>(row[l] > from) & static_cast<int>(row[l] <= to);
            over += static_cast<int>(row[l] > to);
        }
#endif
    }
};

/// Turns heights into residuals: takes the line off, and behind the last number puts some that are
/// below everything. Counts them on the way.
ITM_INLINE void takeresiduals(const PointPlan& plan, const PointLine& line, double* r, Census& high,
                              Census& low)
{
    constexpr double below = -1e300;
    const double high1 = high.low, high2 = high.high, low1 = low.low, low2 = low.high;
    int highover = 0, highin = 0, lowover = 0, lowin = 0;
    const int count = plan.count;
    const double middle = plan.middle, mean = line.mean, slope = line.slope;
    Lanes at = countfrom(0) - middle;
    int j = 0;
    for (; j + width <= count; j += width) {
        const Lanes above = load(r + j) - (mean + slope * at);
        store(r + j, above);
        high.takevector(above, high1, high2, highover, highin);
        low.takevector(above, low1, low2, lowover, lowin);
        at += static_cast<double>(width);
    }
    const Lanes above = select(at <= middle, load(r + j) - (mean + slope * at), below);
    store(r + j, above);
    high.takevector(above, high1, high2, highover, highin);
    low.takevector(above, low1, low2, lowover, lowin);
    high.above = highover;
    high.between = highin;
    low.above = lowover;
    low.between = lowin;
}

/// Standard deviation of residuals about their line, m, while they are still heights.
ITM_INLINE double deviationof(const PointPlan& plan, const PointLine& line, const double* r)
{
    const Lanes start = countfrom(0) - plan.middle;
    Lanes squares[parts]{};
    for (int j = 0; j < plan.count; j += 8)
        for (int k = 0; k < parts; ++k) {
            const Lanes at = start + static_cast<double>(j + k * width);
            const Lanes above = load(r + j + k * width) - (line.mean + line.slope * at);
            squares[k] += select(at <= plan.middle, squared(above), 0.0);
        }
    return squareroot(total(squares) / plan.count);
}

/// The rank-th largest of a few numbers, 1 the largest: the smallest of those that fewer than
/// `rank` others exceed. `c` has room for eight more.
ITM_INLINE double largest(double* c, int count, int rank)
{
    constexpr double infinity = __builtin_inf();
    for (int k = 0; k < parts; ++k)
        store(c + count + k * width, fill<Lanes>(-infinity));
    Lanes best = fill<Lanes>(infinity);
    for (int j = 0; j < count; j += width) {
        const Lanes mine = load(c + j);
        LaneMask above{};
        for (int i = 0; i < count; i += 8)
            for (int l = 0; l < 8; ++l)
                above -= c[i + l] > mine;
        best = smaller(best, select(above < rank, mine, infinity));
    }
    return least(best);
}

/// The rank-th largest of the residuals, a first bracket having been counted.
ITM_INLINE double quantile(const double* r, int count, int rank, Census& census)
{
    constexpr double infinity = __builtin_inf();
    constexpr int few = 24;
    double reach = census.high - census.low;
    while (census.above >= rank || census.above + census.between < rank) { // beside the bracket
        reach = reach < 1e9 ? 3 * reach : infinity;
        if (census.above >= rank)
            census.begin(census.high, census.high + reach);
        else
            census.begin(census.low - reach, census.low);
        census.take(r, count);
    }
    for (int turn = 0; census.between > few && turn < 12; ++turn) { // too wide
        const double share =
            turn % 3 == 2 ? 0.5 : (census.above + census.between - rank + 0.5) / census.between;
        const double pivot = census.low + share * (census.high - census.low);
        if (!(pivot > census.low && pivot < census.high))
            break;
        const double low = census.low, high = census.high;
        census.begin(low, pivot);
        census.take(r, count);
        if (census.above < rank)
            continue;
        census.begin(pivot, high);
        census.take(r, count);
    }
    return largest(census.found, census.between, rank - census.above);
}

/// Where the deciles were found last: where to look for the next ones, m.
struct Deciles {
    double high = 0, low = 0;
    bool fresh = true; ///< nothing found yet
};

/// Interdecile range of the terrain about its line between positions from and to, m, before it is
/// extrapolated to a path without end; 0 on even ground.
ITM_INLINE double interdecile(const double* z, double from, double to, Deciles& seen)
{
    constexpr double even_m = 1e-9; // what remains of even ground is rounding
    const PointPlan* plan = planof(to - from);
    if (plan == nullptr)
        return 0;
    double r[pointroom];
    const PointLine line = fitpoints(z, from, to - from, *plan, r);
    double reach = (seen.high - seen.low) * 5.0 * plan->perstep;
    if (seen.fresh) { // as if heights were normally distributed
        const double deviation = deviationof(*plan, line, r);
        seen = {1.28 * deviation, -1.28 * deviation, false};
        reach = 0.2 * deviation;
    }
    if (!(reach > even_m))
        reach = even_m;
    Census high, low;
    high.begin(seen.high - reach, seen.high + reach);
    low.begin(seen.low - reach, seen.low + reach);
    takeresiduals(*plan, line, r, high, low);
    if (reach == even_m && high.between == plan->count)
        return 0;
    seen.high = quantile(r, plan->count, plan->tenth, high);
    seen.low = quantile(r, plan->count, plan->count - plan->tenth + 1, low);
    const double range = seen.high - seen.low;
    return range > 4 * even_m ? range : 0;
}

} // namespace ITM_VARIANT
} // namespace itm
