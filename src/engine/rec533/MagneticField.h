/// @file MagneticField.h
/// The model of the Earth's magnetic field with which the ionospheric maps were made.
///
/// Units:   radians, km, MHz.
/// Domain:  everywhere; within 0.01 degrees of a pole the field at that distance is used.
/// Source:  Recommendation ITU-R P.1239, equations 5 to 11 (sixth-order spherical harmonics).
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include <array>

#include "engine/rec533/Geometry.h"
#include "engine/rec533/Lanes.h"

namespace rec533 {

struct MagneticField {
    double dDip = 0.0;  ///< magnetic dip, radians, positive in the north
    double dSinDip = 0.0;
    double dGyro = 0.0;  ///< electron gyrofrequency, MHz
};

enum class FieldHeight { Absorption, Maps };  ///< 100 km, 300 km

[[nodiscard]] MagneticField MagneticFieldGet(const Place& place, FieldHeight eHeight);

/// The fields at 300 km of several places.
struct FieldPlaces {
    const double* pSinLat;
    const double* pCosLat;
    const double* pSinLon;
    const double* pCosLon;
    double* pDip;
    double* pGyro;
    std::size_t nCount;  ///< followed by space for a whole vector
};
void MagneticFieldsFill(const FieldPlaces& fieldPlaces);

/// The field at 100 km along a great circle, where a field of the sixth order is a trigonometric
/// sum of at most the seventh order, so that 15 places give it everywhere.
struct FieldTrack {
    static constexpr int kOrderMost = 7;
    static constexpr int kPlaces = 2 * kOrderMost + 1;
    /// Cosine and sine terms: down, along and across the circle.
    std::array<double, kOrderMost + 1> aDownCos, aDownSin, aAlongCos, aAlongSin, aAcrossCos,
        aAcrossSin;
};
[[nodiscard]] FieldTrack FieldTrackMake(const Arc& arc);

/// |fH sin I| at an angle from the circle's start, from its cosine and sine, MHz.
[[nodiscard]] double FieldTrackGyroDipGet(const FieldTrack& fieldTrack, double dCos, double dSin);

/// Tangent of the dip at an angle from the circle's start, from its cosine and sine.
template <class V>
HOPCAST_INLINE V FieldTrackDipTanGet(const FieldTrack& fieldTrack, const V& vCos, const V& vSin)
{
    V vDown = LaneAll<V>(fieldTrack.aDownCos[0]);
    V vAlong = LaneAll<V>(fieldTrack.aAlongCos[0]);
    V vAcross = LaneAll<V>(fieldTrack.aAcrossCos[0]);
    V vC = vCos, vS = vSin;
    for (std::size_t j = 1; j <= FieldTrack::kOrderMost; ++j) {
        vDown += fieldTrack.aDownCos[j] * vC + fieldTrack.aDownSin[j] * vS;
        vAlong += fieldTrack.aAlongCos[j] * vC + fieldTrack.aAlongSin[j] * vS;
        vAcross += fieldTrack.aAcrossCos[j] * vC + fieldTrack.aAcrossSin[j] * vS;
        const V vNext = vC * vCos - vS * vSin;
        vS = vS * vCos + vC * vSin;
        vC = vNext;
    }
    return vDown / LaneSqrt(vAlong * vAlong + vAcross * vAcross);
}

}  // namespace rec533
