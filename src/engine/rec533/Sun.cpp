#include "engine/rec533/Sun.h"

namespace rec533 {
namespace {

// Days before the month. June's 152 is one too many, as in the ITU program: the sun moves only 0.05
// degrees in a June day, and this way the tables stay comparable.
constexpr std::array kDaysBefore{0, 31, 59, 90, 120, 152, 181, 212, 243, 273, 304, 334};
constexpr double kDayOfMonth = 15.0;
constexpr double kDegreesPerDay = 0.98565327;
constexpr double kObliquity = 23.45 * kRadians;
constexpr double kEccentricity = 0.016713;
constexpr double kMinutesPerDegree = 4.0;

// Hours between -24 and 48 into a day.
double Wrap24(double dHour)
{
    return dHour < 0.0 ? dHour + 24.0 : dHour >= 24.0 ? dHour - 24.0 : dHour;
}

}  // namespace

SunHour SunHourGet(int nMonth, double dHour)
{
    const double dDay =
        kDaysBefore[static_cast<std::size_t>(nMonth - 1)] + kDayOfMonth + dHour / 24.0;
    const double dLam = kDegreesPerDay * kRadians * (dDay - 2.0);
    const double dNu = dLam + 1.915169 * kRadians * std::sin(dLam);
    double dEps = kDegreesPerDay * (dDay - 80.0);
    if (dEps >= 270.0)
        dEps -= 360.0;
    else if (dEps >= 90.0)
        dEps -= 180.0;
    dEps *= kRadians;
    const double dBeta = std::atan(std::cos(kObliquity) * std::tan(dEps));
    SunHour sunHour;
    sunHour.dHour = dHour;
    sunHour.dEquation = 3.98891967 * ((dEps - dBeta) + (dLam - dNu)) * kDegrees;
    sunHour.dSinDecl = std::sin(kObliquity)
                       * std::sin(kEccentricity * std::sin(dLam) + dLam - 78.746118 * kRadians);
    sunHour.dDeclination = std::asin(sunHour.dSinDecl);
    sunHour.dCosDecl = std::cos(sunHour.dDeclination);
    const double dTurn = SunHourAngleGet(sunHour, 0.0);
    sunHour.dSinTurn = std::sin(dTurn);
    sunHour.dCosTurn = std::cos(dTurn);
    return sunHour;
}

double SunHourAngleGet(const SunHour& sun, double dLon)
{
    return ((60.0 * sun.dHour + sun.dEquation) / kMinutesPerDegree - 180.0) * kRadians + dLon;
}

double SunZenithCosGet(const SunHour& sun, const Place& place)
{
    return SunZenithCosLanesGet<double>(sun, place.dSinLat, place.dCosLat, place.dSinLon,
                                        place.dCosLon);
}

SunTimes SunTimesGet(const SunHour& sun, const Place& place)
{
    const double dCos =
        (kSunRiseZenithCos - place.dSinLat * sun.dSinDecl) / (place.dCosLat * sun.dCosDecl);
    if (!(std::abs(dCos) <= 1.0))
        return {};
    const double dHalf = std::acos(dCos) * kDegrees;
    const double dLon = std::atan2(place.dSinLon, place.dCosLon) * kDegrees;
    return {true, Wrap24((720.0 - kMinutesPerDegree * (dLon + dHalf) - sun.dEquation) / 60.0),
            Wrap24((720.0 - kMinutesPerDegree * (dLon - dHalf) - sun.dEquation) / 60.0)};
}

SunDay SunDayMake(int nMonth)
{
    SunDay sunDay;
    for (std::size_t i = 0; i < sunDay.aHours.size(); ++i)
        sunDay.aHours[i] = SunHourGet(nMonth, static_cast<double>(i));
    return sunDay;
}

}  // namespace rec533
