#pragma once

// Arithmetic of the propagation kernel on several paths side by side. Everything here works on a
// plain double as on a vector of ITM_WIDTH of them, operation by operation the same, so that one
// text serves both and gives the same bits on every machine.
//
// This header is compiled once per instruction set; ITM_VARIANT keeps the copies apart.

#include <bit>

#ifndef ITM_VARIANT
#define ITM_VARIANT twolanes
#define ITM_WIDTH 2
#endif

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace itm
{
inline namespace ITM_VARIANT
{

#define ITM_INLINE [[gnu::always_inline]] inline

inline constexpr int width = ITM_WIDTH;
/// Vectors that make eight lanes: numbers are summed up in eight partial sums whatever the width,
/// so that every machine rounds alike.
inline constexpr int parts = 8 / width;
using Lanes = double __attribute__((vector_size(8 * ITM_WIDTH)));
using LaneBits = unsigned long long __attribute__((vector_size(8 * ITM_WIDTH)));
using LaneMask = decltype(Lanes{} < Lanes{});

/// A number's bits as they stand in memory, and the number of such bits.
ITM_INLINE LaneBits bitsof(Lanes x)
{
    return reinterpret_cast<LaneBits>(x);
}
ITM_INLINE unsigned long long bitsof(double x)
{
    return std::bit_cast<unsigned long long>(x);
}
ITM_INLINE Lanes realof(LaneBits x)
{
    return reinterpret_cast<Lanes>(x);
}
ITM_INLINE double realof(unsigned long long x)
{
    return std::bit_cast<double>(x);
}

/// The same number in every lane.
template <class R> ITM_INLINE R fill(double x)
{
    return R{} + x;
}

/// Numbers that follow one another in memory, at any address, one a lane; `store` puts them there.
ITM_INLINE Lanes load(const double* from)
{
    Lanes x;
    __builtin_memcpy(&x, from, sizeof x);
    return x;
}
ITM_INLINE void store(double* to, Lanes x)
{
    __builtin_memcpy(to, &x, sizeof x);
}

/// a in the lanes where m holds, else b; both are evaluated.
ITM_INLINE double select(bool m, double a, double b)
{
    return m ? a : b;
}
ITM_INLINE Lanes select(LaneMask m, Lanes a, Lanes b)
{
    return m ? a : b;
}
ITM_INLINE Lanes select(LaneMask m, double a, Lanes b)
{
    return m ? fill<Lanes>(a) : b;
}
ITM_INLINE Lanes select(LaneMask m, Lanes a, double b)
{
    return m ? a : fill<Lanes>(b);
}
ITM_INLINE Lanes select(LaneMask m, double a, double b)
{
    return m ? fill<Lanes>(a) : fill<Lanes>(b);
}

/// Conditions lane by lane, both evaluated.
ITM_INLINE bool both(bool a, bool b)
{
    return a && b;
}
ITM_INLINE LaneMask both(LaneMask a, LaneMask b)
{
    return a & b;
}
ITM_INLINE bool either(bool a, bool b)
{
    return a || b;
}
ITM_INLINE LaneMask either(LaneMask a, LaneMask b)
{
    return a | b;
}

/// Whether a condition holds in at least one lane.
ITM_INLINE bool any(bool m)
{
    return m;
}
ITM_INLINE bool any(LaneMask m)
{
#if ITM_WIDTH == 8 && defined(__AVX512DQ__)
    return _mm512_movepi64_mask(reinterpret_cast<__m512i>(m)) != 0;
#elif ITM_WIDTH == 4 && defined(__AVX__)
    return _mm256_movemask_pd(reinterpret_cast<__m256d>(m)) != 0;
#elif ITM_WIDTH == 2 && defined(__SSE2__)
    return _mm_movemask_pd(reinterpret_cast<__m128d>(m)) != 0;
#else
    long long all = 0;
    for (int i = 0; i < width; ++i)
        all |= m[i];
    return all != 0;
#endif
}

/// Square root, correctly rounded; of a negative number a NaN.
ITM_INLINE double squareroot(double x)
{
    return __builtin_sqrt(x);
}
ITM_INLINE Lanes squareroot(Lanes x)
{
#if ITM_WIDTH == 8 && defined(__AVX512F__)
    return _mm512_sqrt_pd(x);
#elif ITM_WIDTH == 4 && defined(__AVX__)
    return _mm256_sqrt_pd(x);
#elif ITM_WIDTH == 2 && defined(__SSE2__)
    return _mm_sqrt_pd(x);
#else
    for (int i = 0; i < width; ++i)
        x[i] = __builtin_sqrt(x[i]);
    return x;
#endif
}

/// The larger and the smaller of two numbers, |x|, and x^2, lane by lane. Where a comparison with a
/// NaN decides, b is taken.
template <class R> ITM_INLINE R larger(R a, R b)
{
    return select(a > b, a, b);
}
template <class R> ITM_INLINE R smaller(R a, R b)
{
    return select(a < b, a, b);
}
ITM_INLINE Lanes larger(Lanes a, double b)
{
    return larger(a, fill<Lanes>(b));
}
ITM_INLINE Lanes smaller(Lanes a, double b)
{
    return smaller(a, fill<Lanes>(b));
}
template <class R> ITM_INLINE R magnitude(R x)
{
    return larger(x, -x);
}
template <class R> ITM_INLINE R squared(R x)
{
    return x * x;
}

/// A positive normal number as 2^e m with m within a factor sqrt 2 of 1.
template <class R> struct Scaled {
    R e, m;
};
template <class R> ITM_INLINE Scaled<R> scale(R x)
{
    constexpr unsigned long long roothalf = 0x3fe6a09e667f3bcd; // bits of 1 / sqrt 2
    constexpr unsigned long long one = 0x3ff0000000000000;
    constexpr unsigned long long ulp52 = 0x4330000000000000; // bits of 2^52
    const auto shifted = bitsof(x) - roothalf + one;
    return {realof((shifted >> 52) | ulp52) - (0x1p52 + 1023),
            realof(bitsof(x) - (shifted & 0xfff0000000000000) + one)};
}

/// e ln 2 + 2 artanh s, the latter by its series to the 17th power; |s| < 0.1716.
template <class R> ITM_INLINE R logarithmof(R e, R s)
{
    const R z = s * s;
    const R z2 = z * z;
    const R z4 = z2 * z2;
    const R low = (2.0 / 3 + z * (2.0 / 5)) + z2 * (2.0 / 7 + z * (2.0 / 9));
    const R high = (2.0 / 11 + z * (2.0 / 13)) + z2 * (2.0 / 15 + z * (2.0 / 17));
    constexpr double ln2high = 0x1.62e42fefa3800p-1; // ln 2 = ln2high + ln2low; e ln2high is exact
    constexpr double ln2low = 0x1.ef35793c76730p-45;
    return e * ln2high + (2.0 * s + (s * z * (low + z4 * high) + e * ln2low));
}

/// first, first + 1, ... in the lanes.
ITM_INLINE Lanes countfrom(int first)
{
    Lanes x{};
    for (int l = 0; l < width; ++l)
        x[l] = first + l;
    return x;
}

/// Sum of eight partial sums.
ITM_INLINE double total(const Lanes (&x)[parts])
{
    double row[8];
    for (int k = 0; k < parts; ++k)
        store(row + k * width, x[k]);
    return ((row[0] + row[4]) + (row[2] + row[6])) + ((row[1] + row[5]) + (row[3] + row[7]));
}

/// The least number of all lanes.
ITM_INLINE double least(Lanes x)
{
    double row[width];
    store(row, x);
    for (int half = width / 2; half > 0; half /= 2)
        for (int l = 0; l < half; ++l)
            row[l] = row[l] < row[l + half] ? row[l] : row[l + half];
    return row[0];
}

/// Natural logarithm of a positive normal number, to 1e-15 of the larger of 1 and itself: with
/// x = 2^e m it is e ln 2 + 2 artanh((m - 1) / (m + 1)).
template <class R> ITM_INLINE R logarithm(R x)
{
    const Scaled<R> a = scale(x);
    return logarithmof(a.e, (a.m - 1.0) / (a.m + 1.0));
}

template <class R> struct Pair {
    R a, b;
};

/// 1 / a and 1 / b by one division, which is the slowest of all operations here.
template <class R> ITM_INLINE Pair<R> reciprocals(R a, R b)
{
    const R inverse = 1.0 / (a * b);
    return {b * inverse, a * inverse};
}

/// The logarithms of two numbers by one division.
template <class R> ITM_INLINE Pair<R> logarithms(R x, R y)
{
    const Scaled<R> a = scale(x);
    const Scaled<R> b = scale(y);
    const Pair<R> inverse = reciprocals(a.m + 1.0, b.m + 1.0);
    return {logarithmof(a.e, (a.m - 1.0) * inverse.a), logarithmof(b.e, (b.m - 1.0) * inverse.b)};
}

/// Exponential function, to 4e-16 of itself; arguments below -700 give e^-700, above 700 e^700:
/// with x = k ln 2 + r, |r| <= ln 2 / 2, it is 2^k e^r, the latter by its series to the 13th power.
template <class R> ITM_INLINE R exponential(R x)
{
    constexpr double rounder = 0x1.8p52;
    constexpr double ln2high = 0x1.62e42fefa3800p-1;
    constexpr double ln2low = 0x1.ef35793c76730p-45;
    const R held = larger(smaller(x, fill<R>(700)), fill<R>(-700));
    const R shifted = held * 0x1.71547652b82fep0 + rounder;
    const R k = shifted - rounder;
    const R r = (held - k * ln2high) - k * ln2low;
    const R r2 = r * r;
    const R r4 = r2 * r2;
    const R c2 = (1.0 / 2 + r * (1.0 / 6)) + r2 * (1.0 / 24 + r * (1.0 / 120));
    const R c6 = (1.0 / 720 + r * (1.0 / 5040)) + r2 * (1.0 / 40320 + r * (1.0 / 362880));
    const R c10 =
        (1.0 / 3628800 + r * (1.0 / 39916800)) + r2 * (1.0 / 479001600 + r * (1.0 / 6227020800));
    const R p = 1.0 + (r + r2 * (c2 + r4 * (c6 + r4 * c10)));
    return realof(bitsof(p) + (bitsof(shifted) << 52));
}

/// x^(-1/3) or x^(-1/4) of a positive normal number, to 1e-15 of itself: a first value from its
/// bits, which are all but a logarithm, then Newton's steps on y^-root - x, each squaring the
/// error.
template <int root, class R> ITM_INLINE R inverseroot(R x)
{
    static_assert(root == 3 || root == 4);
    constexpr double ulp52 = 0x1p52;
    constexpr double one = 1023.0 * (1 << 20); // upper half of the bits of 1
    constexpr double offset = -0.062;
    // Upper halves of the bits as whole numbers in floating point: 1 + the logarithm, base
    // 2^(2^-20)
    const R upper = realof((bitsof(x) >> 32) | bitsof(ulp52)) - ulp52;
    const R guess = (one * (1 + 1.0 / root) + offset * (1 << 20)) - upper * (1.0 / root);
    R y = realof(bitsof(guess + ulp52) << 32);
    for (int i = 0; i < 4; ++i) {
        const R y2 = y * y;
        const R power = root == 3 ? y2 * y : y2 * y2;
        y = y * ((root + 1.0) / root - x * power * (1.0 / root));
    }
    return y;
}

/// Sine and cosine of u, |u| <= pi/2, to 3e-16, from the series of half of it.
template <class R> struct SineCosine {
    R sine, cosine;
};
template <class R> ITM_INLINE SineCosine<R> sinecosine(R u)
{
    const R h = 0.5 * u;
    const R z = h * h;
    const R z2 = z * z;
    const R z4 = z2 * z2;
    const R s = h + h * z *
                        ((-1.0 / 6 + z * (1.0 / 120)) + z2 * (-1.0 / 5040 + z * (1.0 / 362880)) +
                         z4 * ((-1.0 / 39916800 + z * (1.0 / 6227020800)) +
                               z2 * (-1.0 / 1307674368000 + z * (1.0 / 355687428096000))));
    const R c = 1.0 + z * ((-1.0 / 2 + z * (1.0 / 24)) + z2 * (-1.0 / 720 + z * (1.0 / 40320)) +
                           z4 * ((-1.0 / 3628800 + z * (1.0 / 479001600)) +
                                 z2 * (-1.0 / 87178291200 + z * (1.0 / 20922789888000))));
    return {2.0 * s * c, 1.0 - 2.0 * s * s};
}

} // namespace ITM_VARIANT
} // namespace itm
