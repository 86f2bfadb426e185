/// @file Lanes.h
/// Several numbers side by side in the compiler's own vector type, on every processor.
///
/// The templates take a double or a vector of doubles. Each lane of a vector gets the same digits
/// whatever the vector's width, so that every processor gives the same numbers; a sum over lanes is
/// one of LaneSum. For a double LaneLog, LaneExp and LaneSin are the library's functions, which may
/// differ in the last place. All are inlined, so that they use the wider registers of a caller that
/// is compiled for them.
///
/// Domain:  LaneLog: positive normal numbers; LaneExp: -700 to 700, clamped; LaneSin: -2 to 2.
/// Errors:  LaneLog and LaneExp within 2 units of the last place, LaneSin within 5e-16.
/// Tests:   tests/engine/LanesTest.cpp
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#define HOPCAST_INLINE [[gnu::always_inline]] inline

// Vectors are passed by value only within inlined code.
#pragma GCC diagnostic ignored "-Wpsabi"

namespace rec533 {

template <int kCount>
struct LanesOf {
    typedef double Vector __attribute__((vector_size(kCount * sizeof(double))));
    typedef std::uint64_t Bits __attribute__((vector_size(kCount * sizeof(double))));
};
/// Two numbers: every x86-64 and ARM64 processor has registers for these.
using Lanes2 = LanesOf<2>::Vector;
/// Four numbers: AVX2.
using Lanes4 = LanesOf<4>::Vector;

template <class V>
inline constexpr int kLanes = static_cast<int>(sizeof(V) / sizeof(double));

/// True as long as a test has taken the wide registers away, as on a processor without AVX2.
inline bool& LanesNarrowGet()
{
    static bool bNarrow = false;
    return bNarrow;
}

/// Marks a procedure to be compiled for AVX2 in any case, and tells whether this processor has it.
/// GCC does not align the stack of 64-bit Windows for wide registers, so it is not used there.
#if defined(__x86_64__) && !defined(_WIN32)
#define HOPCAST_WIDE [[gnu::target("avx2")]]
inline bool LanesWideIs() { return __builtin_cpu_supports("avx2") != 0 && !LanesNarrowGet(); }
#else
#define HOPCAST_WIDE
inline bool LanesWideIs() { return false; }
#endif

template <class M, class V>
HOPCAST_INLINE V LaneSelect(const M& mask, const V& vYes, const V& vNo)
{
    return mask ? vYes : vNo;
}

template <class V>
HOPCAST_INLINE V LaneMax(const V& vA, const V& vB)
{
    return LaneSelect(vA < vB, vB, vA);
}
template <class V>
HOPCAST_INLINE V LaneMin(const V& vA, const V& vB)
{
    return LaneSelect(vB < vA, vB, vA);
}

template <class V>
HOPCAST_INLINE V LaneAbs(const V& v)
{
    return LaneSelect(v < 0.0, -v, v);
}

template <class V>
HOPCAST_INLINE V LaneSqrt(const V& v)
{
    if constexpr (std::is_same_v<V, double>) {
        return std::sqrt(v);
    } else {
        V vRoot;
        for (int i = 0; i < kLanes<V>; ++i) vRoot[i] = __builtin_sqrt(v[i]);
        return vRoot;
    }
}

template <class V>
HOPCAST_INLINE V LaneAll(double d)
{
    if constexpr (std::is_same_v<V, double>)
        return d;
    else
        return V{} + d;
}
template <class V>
HOPCAST_INLINE V LaneLoad(const double* p)
{
    V v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
template <class V>
HOPCAST_INLINE void LaneStore(double* p, const V& v)
{
    std::memcpy(p, &v, sizeof v);
}

/// One lane.
template <class V>
HOPCAST_INLINE double LaneGet(const V& v, int i)
{
    if constexpr (std::is_same_v<V, double>)
        return v;
    else
        return v[i];
}
template <class V>
HOPCAST_INLINE void LaneSet(V& v, int i, double d)
{
    if constexpr (std::is_same_v<V, double>)
        v = d;
    else
        v[i] = d;
}

/// True when the condition holds in any lane.
template <class M>
HOPCAST_INLINE bool LaneAny(const M& mask)
{
    if constexpr (std::is_same_v<M, bool>) {
        return mask;
    } else {
        decltype(mask[0] | mask[0]) nAll = 0;
        for (int i = 0; i < static_cast<int>(sizeof(M) / sizeof(double)); ++i) nAll |= mask[i];
        return nAll != 0;
    }
}

/// The sum of all lanes of a row of vectors. It has four parts, of every fourth number, so that
/// vectors of either width add in the same order and round alike.
template <class V>
struct LaneSum {
    static constexpr std::size_t kParts = kLanes<Lanes4> / kLanes<V>;
    std::array<V, kParts> aParts{};

    HOPCAST_INLINE void Add(std::size_t nVector, const V& v) { aParts[nVector % kParts] += v; }
    [[nodiscard]] HOPCAST_INLINE double Get() const
    {
        double dSum = 0.0;
        for (const V& vPart : aParts)
            for (int i = 0; i < kLanes<V>; ++i) dSum += vPart[i];
        return dSum;
    }
};

template <class V>
HOPCAST_INLINE V LaneLogOfVector(const V& v)
{
    using Bits = typename LanesOf<kLanes<V>>::Bits;
    constexpr std::uint64_t kHalfRoot = 0x3fe6a09e667f3bcd;  // bits of the root of a half
    constexpr double kShift = 4503599627370496.0;            // 2^52: its last bits are an integer
    constexpr double kLn2High = 6.93147180369123816490e-01;
    constexpr double kLn2Low = 1.90821492927058770002e-10;
    // v = 2^k m with m between the roots of a half and of two; ln m by the series of artanh.
    const Bits nRaised = reinterpret_cast<Bits>(v) + (0x3ff0000000000000 - kHalfRoot);
    const Bits nPower = nRaised >> 52;
    const Bits nMantissa = (nRaised & 0x000fffffffffffff) + kHalfRoot;
    const Bits nCount = nPower | 0x4330000000000000;
    const V vK = reinterpret_cast<V>(nCount) - (kShift + 1023.0);
    const V vM = reinterpret_cast<V>(nMantissa);
    const V vF = vM - 1.0;
    const V vS = vF / (vF + 2.0);
    const V vZ = vS * vS;
    const V vW = vZ * vZ;
    const V vOdd =
        ((((2.0 / 19.0) * vW + 2.0 / 15.0) * vW + 2.0 / 11.0) * vW + 2.0 / 7.0) * vW + 2.0 / 3.0;
    const V vEven =
        ((((2.0 / 21.0) * vW + 2.0 / 17.0) * vW + 2.0 / 13.0) * vW + 2.0 / 9.0) * vW + 2.0 / 5.0;
    const V vRest = vZ * (vOdd + vZ * vEven);
    // ln m = f - s (f - rest): f is exact, so that the error stays below that of the last place.
    return vK * kLn2High - ((vS * (vF - vRest) - vK * kLn2Low) - vF);
}

template <class V>
HOPCAST_INLINE V LaneExpOfVector(const V& v)
{
    using Bits = typename LanesOf<kLanes<V>>::Bits;
    constexpr double kMost = 700.0;
    constexpr double kShift = 6755399441055744.0;  // 1.5 * 2^52: its last bits are an integer
    constexpr double kPerLn2 = 1.44269504088896338700;
    constexpr double kLn2High = 6.93147180369123816490e-01;
    constexpr double kLn2Low = 1.90821492927058770002e-10;
    const V vX = LaneMin(LaneMax(v, LaneAll<V>(-kMost)), LaneAll<V>(kMost));
    const V vShifted = vX * kPerLn2 + kShift;
    const V vK = vShifted - kShift;
    const V vR = (vX - vK * kLn2High) - vK * kLn2Low;
    const V vZ = vR * vR;
    // The series of e^r up to the 13th power, odd and even powers separately.
    const V vOdd = ((((((1.0 / 6227020800.0) * vZ + 1.0 / 39916800.0) * vZ + 1.0 / 362880.0) * vZ
                      + 1.0 / 5040.0)
                         * vZ
                     + 1.0 / 120.0)
                        * vZ
                    + 1.0 / 6.0)
                   * vZ;
    const V vEven =
        (((((1.0 / 479001600.0) * vZ + 1.0 / 3628800.0) * vZ + 1.0 / 40320.0) * vZ + 1.0 / 720.0)
             * vZ
         + 1.0 / 24.0)
            * vZ
        + 0.5;
    const V vSeries = 1.0 + (vR + (vR * vOdd + vZ * vEven));
    const Bits nPower = reinterpret_cast<Bits>(vShifted) << 52;
    const Bits nBits = reinterpret_cast<Bits>(vSeries) + nPower;
    return reinterpret_cast<V>(nBits);
}

/// Sine of angles from -2 to 2 radians.
template <class V>
HOPCAST_INLINE V LaneSin(const V& v)
{
    if constexpr (std::is_same_v<V, double>) {
        return std::sin(v);
    } else {
        const V vZ = v * v;
        V vSum = LaneAll<V>(-1.0 / 25852016738884976640000.0);  // 1/23!
        for (const double dTerm :
             {1.0 / 51090942171709440000.0, -1.0 / 121645100408832000.0, 1.0 / 355687428096000.0,
              -1.0 / 1307674368000.0, 1.0 / 6227020800.0, -1.0 / 39916800.0, 1.0 / 362880.0,
              -1.0 / 5040.0, 1.0 / 120.0, -1.0 / 6.0})
            vSum = vSum * vZ + dTerm;
        return v + v * (vZ * vSum);
    }
}

/// Natural logarithm.
template <class V>
HOPCAST_INLINE V LaneLog(const V& v)
{
    if constexpr (std::is_same_v<V, double>)
        return std::log(v);
    else
        return LaneLogOfVector(v);
}
/// Exponential function.
template <class V>
HOPCAST_INLINE V LaneExp(const V& v)
{
    if constexpr (std::is_same_v<V, double>)
        return std::exp(v);
    else
        return LaneExpOfVector(v);
}

}  // namespace rec533
