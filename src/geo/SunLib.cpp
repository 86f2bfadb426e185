#include "geo/SunLib.h"

#include <array>
#include <cmath>

LatLon SunGetPosition(int nMonth, double dHour)
{
    constexpr std::array<int, 12> kMiddle{15,  46,  74,  105, 135, 166,
                                          196, 227, 258, 288, 319, 349};  // days of the year
    const bool bMonth = nMonth >= 1 && nMonth <= 12;
    const int nDay = kMiddle[static_cast<std::size_t>(bMonth ? nMonth - 1 : 0)];
    // The Astronomical Almanac, section C, "Low-precision formulas for the Sun", in the year 2025.
    // Years differ by no more than a quarter of a degree.
    constexpr double kDaysToYear = 9130.5;  // days from noon of 2000-01-01 to the year's day 0
    constexpr double kObliquity = 23.439 * kRadiansPerDegree;
    const double dDays = kDaysToYear + nDay;
    const double dMean = 280.460 + 0.9856474 * dDays;
    const double dAnomaly = (357.528 + 0.9856003 * dDays) * kRadiansPerDegree;
    const double dLongitude =
        (dMean + 1.915 * std::sin(dAnomaly) + 0.020 * std::sin(2 * dAnomaly)) * kRadiansPerDegree;
    const double dDeclination = std::asin(std::sin(kObliquity) * std::sin(dLongitude));
    const double dAscension =
        std::atan2(std::cos(kObliquity) * std::sin(dLongitude), std::cos(dLongitude));
    const double dEquationOfTime = dMean - dAscension / kRadiansPerDegree;  // degrees
    return {dDeclination / kRadiansPerDegree, LonWrap((12 - dHour) * 15 - dEquationOfTime)};
}
