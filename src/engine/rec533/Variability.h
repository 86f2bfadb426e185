/// @file Variability.h
/// Variation from day to day: decile factors of the MUF, the operational MUF's ratio, seasons.
///
/// Source:  Recommendation ITU-R P.1239, tables 2 and 3; P.1240, table 1; P.533-14, 3.6 and 3.7.
/// Tests:   tests/engine/CorrectionsTest.cpp
#pragma once

#include "engine/rec533/Ionosphere.h"

namespace rec533 {

enum class Season { Winter = 0, Equinox = 1, Summer = 2 };

/// Season of the decile factors and the operational MUF: four months of winter and summer.
[[nodiscard]] Season SeasonOfFour(int nMonth, bool bNorth);
/// Season of the auroral loss: three months of winter and summer.
[[nodiscard]] Season SeasonOfThree(int nMonth, bool bNorth);

struct DecileFactors {
    double dLower = 1.0;  ///< exceeded on 90 % of the days
    double dUpper = 1.0;  ///< exceeded on 10 %
};
inline constexpr DecileFactors kDecilesE{0.95, 1.05};

/// dLat radians, bilinear; dLocalHour wrapped into a day; dSsn chooses the class.
[[nodiscard]] DecileFactors DecileFactorsGet(double dLat, double dLocalHour, Season eSeason,
                                             double dSsn);

/// Hour at which the decile factors are read for a label at a longitude.
[[nodiscard]] double DecileHourGet(const Ionosphere& ionosphere, int nLabel, double dLon);

/// Ratio of operational to basic MUF for F2 modes. dEirp in dBW.
[[nodiscard]] double OperationalRatioGet(Season eSeason, bool bDay, double dEirp);
/// Day at a place for that ratio.
[[nodiscard]] bool OperationalDayIs(const Ionosphere& ionosphere, int nLabel, const Place& place);

}  // namespace rec533
