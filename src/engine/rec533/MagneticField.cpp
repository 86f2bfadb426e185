#include "engine/rec533/MagneticField.h"

namespace rec533 {
namespace {

constexpr int kOrder = 6;
constexpr double kCosLatLeast = 1.7453292510e-4;  // 89.99 degrees: the west field divides by it
constexpr double kGyroPerField = 2.8;             // MHz

using Triangle = std::array<std::array<double, kOrder + 1>, kOrder + 1>;  // [n][m]

// P.1239: coefficients g(m,n) and h(m,n) of unnormalised functions.
// clang-format off
constexpr Triangle kG{{
    {},
    {0.304112, 0.021474},
    {0.024035, -0.051253, -0.013381},
    {-0.031518, 0.062130, -0.024898, -0.006496},
    {-0.041794, -0.045298, -0.021795, 0.007008, -0.002044},
    {0.016256, -0.034407, -0.019447, -0.000608, 0.002775, 0.000697},
    {-0.019523, -0.004853, 0.003212, 0.021413, 0.001051, 0.000227, 0.001115},
}};
constexpr Triangle kH{{
    {},
    {0.0, -0.057989},
    {0.0, 0.033124, -0.001579},
    {0.0, 0.014870, -0.004075, 0.000210},
    {0.0, -0.011825, 0.010006, 0.000430, 0.001385},
    {0.0, -0.000796, -0.002000, 0.004597, 0.002421, -0.001218},
    {0.0, -0.005758, -0.008735, -0.003406, -0.000118, -0.001116, -0.000325},
}};
// clang-format on

// Coefficients times the height factor a^(n+2), for one height.
struct Scaled {
    Triangle aG, aH;
};

constexpr Scaled ScaledMake(double dHeightKm)
{
    Scaled scaled{};
    const double dA = kEarthKm / (kEarthKm + dHeightKm);
    double dPower = dA * dA;
    for (std::size_t n = 1; n <= kOrder; ++n) {
        dPower *= dA;
        for (std::size_t m = 0; m <= n; ++m) {
            scaled.aG[n][m] = kG[n][m] * dPower;
            scaled.aH[n][m] = kH[n][m] * dPower;
        }
    }
    return scaled;
}

constexpr Scaled kScaledAbsorption = ScaledMake(100.0);
constexpr Scaled kScaledMaps = ScaledMake(300.0);

constexpr double RecursionGet(std::size_t n, std::size_t m)
{
    const double dN = static_cast<double>(n);
    const double dM = static_cast<double>(m);
    return n <= 1 ? 0.0
                  : ((dN - 1.0) * (dN - 1.0) - dM * dM) / ((2.0 * dN - 1.0) * (2.0 * dN - 3.0));
}

constexpr Triangle RecursionMake()
{
    Triangle aK{};
    for (std::size_t n = 1; n <= kOrder; ++n)
        for (std::size_t m = 0; m < n; ++m) aK[n][m] = RecursionGet(n, m);
    return aK;
}

constexpr Triangle kRecursion = RecursionMake();

template <class V>
struct Field {
    V tX, tY, tZ;  // north, west, down
};

// The recursions of P.1239. vC is at least kCosLatLeast.
template <class V>
HOPCAST_INLINE Field<V> FieldGet(const V& vS, const V& vC, const V& vSinLon, const V& vCosLon,
                                 const Scaled& scaled)
{
    Field<V> field{V{}, V{}, V{}};
    V vCosM = LaneAll<V>(1.0), vSinM{};  // of m times the longitude
    V vPmm = LaneAll<V>(1.0), vDmm{};
#pragma GCC unroll 7
    for (std::size_t m = 0; m <= kOrder; ++m) {
        V vP2{}, vD2{}, vP = vPmm, vD = vDmm;
        V vZg{}, vZh{}, vXg{}, vXh{}, vYg{}, vYh{};  // sums over n
#pragma GCC unroll 7
        for (std::size_t n = m; n <= kOrder; ++n) {
            if (n > m) {
                const V vPn = vS * vP - kRecursion[n][m] * vP2;
                const V vDn = vS * vD - vC * vP - kRecursion[n][m] * vD2;
                vP2 = vP;
                vD2 = vD;
                vP = vPn;
                vD = vDn;
            }
            const double dG = scaled.aG[n][m];
            const double dH = scaled.aH[n][m];
            vZg += static_cast<double>(n + 1) * dG * vP;
            vZh += static_cast<double>(n + 1) * dH * vP;
            vXg += dG * vD;
            vXh += dH * vD;
            vYg += dG * vP;
            vYh += dH * vP;
        }
        field.tZ += vZg * vCosM + vZh * vSinM;
        field.tX -= vXg * vCosM + vXh * vSinM;
        field.tY += static_cast<double>(m) * (vYg * vSinM - vYh * vCosM);
        const V vCosNext = vCosM * vCosLon - vSinM * vSinLon;
        vSinM = vSinM * vCosLon + vCosM * vSinLon;
        vCosM = vCosNext;
        vDmm = vC * vDmm + vS * vPmm;
        vPmm *= vC;
    }
    field.tY /= vC;
    return field;
}

// Fifteenths of a circle, and the weights of a sum's terms; a sixteenth place has weight 0.
struct Circle {
    static constexpr std::size_t kLanesAll = FieldTrack::kPlaces + 1;
    using Row = std::array<double, kLanesAll>;
    alignas(64) Row aCos{}, aSin{};
    alignas(64) std::array<Row, FieldTrack::kOrderMost + 1> aCosWeight{}, aSinWeight{};
};
const Circle kCircle = [] {
    Circle circle;
    const auto fnAngle = [](std::size_t i) {
        return 2.0 * kPi * static_cast<double>(i % FieldTrack::kPlaces) / FieldTrack::kPlaces;
    };
    for (std::size_t i = 0; i < Circle::kLanesAll; ++i) {
        circle.aCos[i] = std::cos(fnAngle(i));
        circle.aSin[i] = std::sin(fnAngle(i));
        for (std::size_t j = 0; j <= FieldTrack::kOrderMost && i < FieldTrack::kPlaces; ++j) {
            const double dWeight = (j == 0 ? 1.0 : 2.0) / FieldTrack::kPlaces;
            circle.aCosWeight[j][i] = dWeight * std::cos(fnAngle(i * j));
            circle.aSinWeight[j][i] = dWeight * std::sin(fnAngle(i * j));
        }
    }
    return circle;
}();

double CosLatGet(const Place& place) { return std::max(place.dCosLat, kCosLatLeast); }

double SinLatGet(const Place& place)
{
    if (place.dCosLat >= kCosLatLeast)
        return place.dSinLat;
    return std::copysign(std::sqrt(1.0 - kCosLatLeast * kCosLatLeast), place.dSinLat);
}

// The field at places of a great circle: down, along and across it.
template <class V>
HOPCAST_INLINE Field<V> TrackFieldGet(const Arc& arc, const V& vCos, const V& vSin)
{
    const auto& [aStart, aAhead] = arc;
    const double aAcross[3]{aStart[1] * aAhead[2] - aStart[2] * aAhead[1],
                            aStart[2] * aAhead[0] - aStart[0] * aAhead[2],
                            aStart[0] * aAhead[1] - aStart[1] * aAhead[0]};
    const V vX = aStart[0] * vCos + aAhead[0] * vSin;
    const V vY = aStart[1] * vCos + aAhead[1] * vSin;
    const V vZ = aStart[2] * vCos + aAhead[2] * vSin;
    const V vFlat = LaneMax<V>(LaneSqrt<V>(vX * vX + vY * vY), LaneAll<V>(1e-9));
    const V vSinLon = vY / vFlat;
    const V vCosLon = vX / vFlat;
    const V vCosLat = LaneMax<V>(vFlat, LaneAll<V>(kCosLatLeast));
    const V vMost = LaneAll<V>(std::sqrt(1.0 - kCosLatLeast * kCosLatLeast));
    const V vSinLat = LaneMax<V>(LaneMin<V>(vZ, vMost), -vMost);
    const Field<V> field = FieldGet<V>(vSinLat, vCosLat, vSinLon, vCosLon, kScaledAbsorption);
    const V aFlat[3]{-field.tX * vSinLat * vCosLon + field.tY * vSinLon,
                     -field.tX * vSinLat * vSinLon - field.tY * vCosLon, field.tX * vCosLat};
    Field<V> track{V{}, V{}, field.tZ};
    for (std::size_t k = 0; k < 3; ++k) {
        track.tX += aFlat[k] * (aAhead[k] * vCos - aStart[k] * vSin);
        track.tY += aFlat[k] * aAcross[k];
    }
    return track;
}

template <class V>
HOPCAST_INLINE void FieldTrackFill(FieldTrack& fieldTrack, const Arc& arc)
{
    constexpr std::size_t kVectors = Circle::kLanesAll / kLanes<V>;
    Field<V> aFields[kVectors];
    for (std::size_t i = 0; i < kVectors; ++i)
        aFields[i] = TrackFieldGet<V>(arc, LaneLoad<V>(&kCircle.aCos[i * kLanes<V>]),
                                      LaneLoad<V>(&kCircle.aSin[i * kLanes<V>]));
    for (std::size_t j = 0; j <= FieldTrack::kOrderMost; ++j) {
        LaneSum<V> aSums[6];
        for (std::size_t i = 0; i < kVectors; ++i) {
            const V vCos = LaneLoad<V>(&kCircle.aCosWeight[j][i * kLanes<V>]);
            const V vSin = LaneLoad<V>(&kCircle.aSinWeight[j][i * kLanes<V>]);
            aSums[0].Add(i, aFields[i].tZ * vCos);
            aSums[1].Add(i, aFields[i].tZ * vSin);
            aSums[2].Add(i, aFields[i].tX * vCos);
            aSums[3].Add(i, aFields[i].tX * vSin);
            aSums[4].Add(i, aFields[i].tY * vCos);
            aSums[5].Add(i, aFields[i].tY * vSin);
        }
        fieldTrack.aDownCos[j] = aSums[0].Get();
        fieldTrack.aDownSin[j] = aSums[1].Get();
        fieldTrack.aAlongCos[j] = aSums[2].Get();
        fieldTrack.aAlongSin[j] = aSums[3].Get();
        fieldTrack.aAcrossCos[j] = aSums[4].Get();
        fieldTrack.aAcrossSin[j] = aSums[5].Get();
    }
}

HOPCAST_WIDE void FieldTrackWideFill(FieldTrack& fieldTrack, const Arc& arc)
{
    FieldTrackFill<Lanes4>(fieldTrack, arc);
}

template <class V>
HOPCAST_INLINE void FieldsFill(const FieldPlaces& fieldPlaces)
{
    const V vMost = LaneAll<V>(std::sqrt(1.0 - kCosLatLeast * kCosLatLeast));
    for (std::size_t i = 0; i < fieldPlaces.nCount; i += kLanes<V>) {
        const V vSinLat =
            LaneMax<V>(LaneMin<V>(LaneLoad<V>(fieldPlaces.pSinLat + i), vMost), -vMost);
        const V vCosLat =
            LaneMax<V>(LaneLoad<V>(fieldPlaces.pCosLat + i), LaneAll<V>(kCosLatLeast));
        const Field<V> field = FieldGet<V>(vSinLat, vCosLat, LaneLoad<V>(fieldPlaces.pSinLon + i),
                                           LaneLoad<V>(fieldPlaces.pCosLon + i), kScaledMaps);
        const V vFlat2 = field.tX * field.tX + field.tY * field.tY;
        LaneStore<V>(fieldPlaces.pDip + i, field.tZ / LaneSqrt<V>(vFlat2));
        LaneStore<V>(fieldPlaces.pGyro + i,
                     kGyroPerField * LaneSqrt<V>(vFlat2 + field.tZ * field.tZ));
    }
}

HOPCAST_WIDE void FieldsWideFill(const FieldPlaces& fieldPlaces)
{
    FieldsFill<Lanes4>(fieldPlaces);
}

}  // namespace

void MagneticFieldsFill(const FieldPlaces& fieldPlaces)
{
    if (LanesWideIs())
        FieldsWideFill(fieldPlaces);
    else
        FieldsFill<Lanes2>(fieldPlaces);
    for (std::size_t i = 0; i < fieldPlaces.nCount; ++i)
        fieldPlaces.pDip[i] = std::atan(fieldPlaces.pDip[i]);
}

MagneticField MagneticFieldGet(const Place& place, FieldHeight eHeight)
{
    const Scaled& scaled = eHeight == FieldHeight::Absorption ? kScaledAbsorption : kScaledMaps;
    const auto field =
        FieldGet<double>(SinLatGet(place), CosLatGet(place), place.dSinLon, place.dCosLon, scaled);
    const double dFlat = std::sqrt(field.tX * field.tX + field.tY * field.tY);
    const double dTotal = std::sqrt(dFlat * dFlat + field.tZ * field.tZ);
    return {std::atan2(field.tZ, dFlat), field.tZ / dTotal, kGyroPerField * dTotal};
}

double FieldTrackGyroDipGet(const FieldTrack& fieldTrack, double dCos, double dSin)
{
    double dDown = fieldTrack.aDownCos[0];
    double dC = dCos, dS = dSin;
    for (std::size_t j = 1; j < FieldTrack::kOrderMost; ++j) {  // down has no seventh order
        dDown += fieldTrack.aDownCos[j] * dC + fieldTrack.aDownSin[j] * dS;
        const double dNext = dC * dCos - dS * dSin;
        dS = dS * dCos + dC * dSin;
        dC = dNext;
    }
    return kGyroPerField * std::abs(dDown);
}

FieldTrack FieldTrackMake(const Arc& arc)
{
    FieldTrack fieldTrack;
    if (LanesWideIs())
        FieldTrackWideFill(fieldTrack, arc);
    else
        FieldTrackFill<Lanes2>(fieldTrack, arc);
    return fieldTrack;
}

}  // namespace rec533
