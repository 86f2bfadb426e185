/// @file Maps.h
/// foF2 and M(3000)F2 from the numerical maps, for one month and sunspot number.
///
/// A map value is a sum of 76 (49) geographic functions, each with a Fourier series of the hour.
/// The hour's series are summed once per month and hour (MapHours), the geographic functions are
/// computed once per place (MapPlace), so that a value costs one scalar product.
///
/// Units:   MHz for foF2; M(3000)F2 has none; hours UT 0 to 23.
/// Source:  Recommendation ITU-R P.1239, section 2, equations 1 to 4.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include <array>

#include "engine/rec533/Figures.h"
#include "engine/rec533/Lanes.h"
#include "engine/rec533/MagneticField.h"

namespace rec533 {

/// Coefficients of the geographic functions at the 24 hours, sunspot number already applied.
struct MapHours {
    alignas(16) std::array<std::array<double, kFof2Functions>, 24> aFof2;
    alignas(16) std::array<std::array<double, kM3Functions + 1>, 24> aM3;  // last one 0
};

/// dActivity: index of foF2; dSsn: sunspot number of M(3000)F2; both mix the figures for 0 and 100.
void MapHoursFill(MapHours& hours, MapSet eSet, int nMonth, double dActivity, double dSsn);

/// Geographic functions at one place.
struct MapPlace {
    alignas(16) std::array<double, kFof2Functions> aFof2;
    alignas(16) std::array<double, kM3Functions + 1> aM3;
};

/// field: at 300 km over the place.
/// bGrid: as the ITU program, which interpolates in 1.5-degree grids; in the south and the west its
/// weights count from the wrong side of the cell. As the maps are linear, this is a mean of the
/// functions of four places. Without bGrid the series is evaluated at the place itself.
void MapPlaceFill(MapPlace& map, const Place& place, const MagneticField& field, bool bGrid);

/// Several places at once: cosines of latitude, sines and cosines of longitude, dip at 300 km.
/// After the last one there is space for a whole vector.
struct MapPlaces {
    const double* pCosLat;
    const double* pSinLon;
    const double* pCosLon;
    const double* pDip;
    std::size_t nCount;
};
/// Rows of values by hour UT; those of hours that are not needed may be null.
using MapRows = std::array<double*, 24>;
/// foF2 and M(3000)F2 of the hours from nFirst to nLast.
void MapPlacesFill(const MapRows& aFof2, const MapRows& aM3, const MapHours& hours,
                   const MapPlaces& places, int nFirst, int nLast);

[[nodiscard]] double MapFof2Get(const MapHours& hours, const MapPlace& map, int nHour);
[[nodiscard]] double MapM3Get(const MapHours& hours, const MapPlace& map, int nHour);

}  // namespace rec533
