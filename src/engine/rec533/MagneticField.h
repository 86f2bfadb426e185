/// @file MagneticField.h
/// The Earth's magnetic field as the ionospheric maps were made with.
///
/// Units:   radians, km, MHz.
/// Domain:  everywhere; within 0.01 degrees of a pole the field of that circle is taken.
/// Source:  Recommendation ITU-R P.1239, equations 5 to 11 (sixth-order spherical harmonics).
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Geometry.h"

namespace rec533 {

struct MagneticField {
    double dDip = 0.0;  ///< magnetic dip, radians, positive in the north
    double dSinDip = 0.0;
    double dGyro = 0.0;  ///< electron gyrofrequency, MHz
};

enum class FieldHeight { Absorption, Maps };  ///< 100 km, 300 km

[[nodiscard]] MagneticField MagneticFieldGet(const Place& tblPlace, FieldHeight eHeight);
/// Tangents of the dip at 100 km at two places at once, for the many crossings at 90 km.
void MagneticDipTansGet(const Place& tblA, const Place& tblB, double& dTanA, double& dTanB);

}  // namespace rec533
