#pragma once

#include "engine/itmterrain.h"

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
    Lanes a, b;
    for (int l = 0; l < width; ++l) {
        a[l] = z[k[l]];
        b[l] = z[k[l] + 1];
    }
    return a + (b - a) * (x - __builtin_convertvector(k, Lanes));
}

/// Points along a stretch of terrain, with their line taken off.
struct Residuals {
    double r[pointroom]; ///< m
    int count;
    int tenth;        ///< m of above
    double deviation; ///< their standard deviation, m
};

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
    const Lanes start = countfrom(0);
    const double middle = 0.5 * (count - 1);
    int j = 0;
    for (; j + 8 <= count; j += 8)
        for (int k = 0; k < parts; ++k) {
            const Lanes at = start + static_cast<double>(j + k * width);
            const Lanes s = terrainat<dense>(z, from + at * stride) - datum;
            store(r + j + k * width, s);
            out.sums[k] += s;
            out.moments[k] += s * (at - middle);
        }
    const double last = count - 1;
    for (int k = 0; k < parts; ++k) { // count is odd: some are left
        const Lanes at = start + static_cast<double>(j + k * width);
        const Lanes s = terrainat<dense>(z, from + smaller(at, last) * stride) - datum;
        store(r + j + k * width, s);
        out.sums[k] += select(at <= last, s, 0.0);
        out.moments[k] += select(at <= last, s * (at - middle), 0.0);
    }
    return out;
}

/// Reads the points between positions from and to and takes their line off. Returns false, leaving
/// nothing, where the stretch is too short to have an irregularity.
ITM_INLINE bool takeresiduals(const double* z, double from, double to, Residuals& out)
{
    if (!(to - from >= 2))
        return false;
    const int wanted = static_cast<int>(0.1 * (to - from + 8));
    out.tenth = wanted < 4 ? 4 : wanted > 25 ? 25 : wanted;
    const int count = out.count = 10 * out.tenth - 5;
    const double stride = (to - from) / (count - 1);
    const double datum = z[static_cast<int>(from)]; // heights above it are small
    const double middle = 0.5 * (count - 1);
    double* const r = out.r;
    const PointSums points = stride < 1.9 ? readpoints<true>(z, from, stride, count, datum, r)
                                          : readpoints<false>(z, from, stride, count, datum, r);
    const double ends = 0.5 * (r[0] + r[count - 1]);
    const double tilt = 0.5 * (r[count - 1] - r[0]) * middle;
    const LineEnds line = lineends(count - 1, {0, count - 1}, total(points.sums) - ends,
                                   total(points.moments) - tilt);
    const double slope = (line.right - line.left) / (count - 1);
    const Lanes start = countfrom(0);
    constexpr double below = -1e300; // behind the last
    Lanes squares[parts]{};
    for (int j = 0; j < count; j += 8)
        for (int k = 0; k < parts; ++k) {
            const Lanes at = start + static_cast<double>(j + k * width);
            const Lanes above = load(r + j + k * width) - (line.left + slope * at);
            store(r + j + k * width, above);
            squares[k] += select(at < count + 0.0, squared(above), 0.0);
        }
    for (int k = 0; k < parts; ++k)
        store(r + count + k * width, fill<Lanes>(below));
    out.deviation = squareroot(total(squares) / count);
    return true;
}

/// Numbers above a threshold; behind them stand eight that are far below.
ITM_INLINE int countabove(const double* r, int count, double threshold)
{
    LaneMask above{};
    for (int j = 0; j < count; j += width)
        above -= load(r + j) > threshold;
    long long sum = 0;
    for (int l = 0; l < width; ++l)
        sum += above[l];
    return static_cast<int>(sum);
}

/// Numbers above `high`, and those above `low` but not above it.
struct Census {
    int above;
    int between;
};

/// Takes a census; the numbers between go to `to`, which has room for `width` more.
ITM_INLINE Census takecensus(const double* r, int count, double low, double high, double* to)
{
#if ITM_WIDTH == 8 && defined(__AVX512DQ__)
    Census out{0, 0};
    const __m512d lows = _mm512_set1_pd(low);
    const __m512d highs = _mm512_set1_pd(high);
    for (int j = 0; j < count; j += 8) {
        const __m512d x = _mm512_loadu_pd(r + j);
        const __mmask8 above = _mm512_cmp_pd_mask(x, highs, _CMP_GT_OQ);
        const __mmask8 between = _kandn_mask8(above, _mm512_cmp_pd_mask(x, lows, _CMP_GT_OQ));
        _mm512_storeu_pd(to + out.between, _mm512_maskz_compress_pd(between, x));
        out.above += __builtin_popcount(above);
        out.between += __builtin_popcount(between);
    }
    return out;
#else
    int between = 0;
    for (int j = 0; j < count; ++j) {
        to[between] = r[j];
        between += static_cast<int>(r[j] > low) & static_cast<int>(r[j] <= high);
    }
    return {countabove(r, count, high), between};
#endif
}

/// The rank-th largest of a few numbers, 1 the largest: the smallest of those that fewer than
/// `rank` others exceed. `c` has room for `width` more.
ITM_INLINE double largest(double* c, int count, int rank)
{
    constexpr double infinity = __builtin_inf();
    for (int l = 0; l < width; ++l)
        c[count + l] = -infinity;
    Lanes best = fill<Lanes>(infinity);
    for (int j = 0; j < count; j += width) {
        const Lanes mine = load(c + j);
        LaneMask above{};
        for (int i = 0; i < count; ++i)
            above -= c[i] > mine;
        best = smaller(best, select(above < rank, mine, infinity));
    }
    return least(best);
}

/// The rank-th largest of many numbers, looked for around a guess.
///   reach   half the width of the first bracket, above 0
ITM_INLINE double quantile(const double* r, int count, int rank, double guess, double reach)
{
    constexpr double infinity = __builtin_inf();
    constexpr int few = 16;
    double candidates[pointroom];
    double low = guess - reach;
    double high = guess + reach;
    Census census = takecensus(r, count, low, high, candidates);
    while (census.above >= rank || census.above + census.between < rank) { // beside the bracket
        reach = reach < 1e9 ? 3 * reach : infinity;
        if (census.above >= rank) {
            low = high;
            high += reach;
        } else {
            high = low;
            low -= reach;
        }
        census = takecensus(r, count, low, high, candidates);
    }
    for (int turn = 0; census.between > few && turn < 12; ++turn) { // too wide
        const double share =
            turn % 3 == 2 ? 0.5 : (census.above + census.between - rank + 0.5) / census.between;
        const double pivot = low + share * (high - low);
        if (!(pivot > low && pivot < high))
            break;
        (countabove(r, count, pivot) >= rank ? low : high) = pivot;
        census = takecensus(r, count, low, high, candidates);
    }
    return largest(candidates, census.between, rank - census.above);
}

/// Where the deciles were found last, in standard deviations: where to look for the next ones.
struct Deciles {
    double high = 1.28, low = -1.28;
    bool fresh = true; ///< nothing found yet
};

/// Interdecile range of the terrain about its line between positions from and to, m, before it is
/// extrapolated to a path without end; 0 on even ground.
ITM_INLINE double interdecile(const double* z, double from, double to, Deciles& seen)
{
    constexpr double even_m = 1e-9; // what remains of even ground is rounding
    Residuals res;
    if (!takeresiduals(z, from, to, res) || !(res.deviation > even_m))
        return 0;
    const double unit = res.deviation;
    const double reach = seen.fresh ? 0.15 : 12.0 / res.count;
    const double high = quantile(res.r, res.count, res.tenth, seen.high * unit, reach * unit);
    const double low =
        quantile(res.r, res.count, res.count - res.tenth + 1, seen.low * unit, reach * unit);
    seen = {high / unit, low / unit, false};
    return high - low > even_m ? high - low : 0;
}

} // namespace ITM_VARIANT
} // namespace itm
