#include "engine/rec533/Foe.h"

namespace rec533 {
namespace {

constexpr double kSinPolar = 0.9540428329158197;  // 72.5622 degrees
constexpr double kNight =
    -2.6310891599660819;        // ln 0.072: Dd at the end of the day, before the power p
constexpr double kDecay = 1.4;  // per hour, of its logarithm

bool PolarWinterIs(const FoeHour& foeHour, const Place& place)
{
    const bool bNorthWinter = foeHour.nMonth >= 11 || foeHour.nMonth == 1;
    const bool bSouthWinter = foeHour.nMonth >= 5 && foeHour.nMonth <= 7;
    // In the ITU program the minus sign of the southern limit is missing.
    const double dSouthLimit = foeHour.quirks.bWinterNorth ? kSinPolar : -kSinPolar;
    return (place.dSinLat > kSinPolar && bNorthWinter)
           || (place.dSinLat < dSouthLimit && bSouthWinter);
}

// Hours since sunset; 0 if none of the method's cases applies.
double SinceSunsetGet(const FoeHour& foeHour, const Place& place)
{
    const SunTimes times = SunTimesGet(*foeHour.pSun, place);
    if (!times.bRises)
        return 0.0;
    const double dSet = times.dSunset;
    const double dRise = times.dSunrise;
    const double dNow = foeHour.dClock;
    if (dSet >= dRise ? dNow >= dSet : dSet <= dNow && dNow < dRise)
        return dNow - dSet;
    if (dSet >= dRise && dNow < dRise)
        return 24.0 - dSet + dNow;
    return 0.0;
}

// Lower bound of the hours since sunset, found without computing an angle. In the evening the
// cosine of the zenith angle has fallen at most as fast as it does at six o'clock; in the morning
// at least half the night is over.
double SinceSunsetLeastGet(const FoeHour& foeHour, const Place& place, double dCosChi)
{
    const SunHour& sun = *foeHour.pSun;
    const double dSwing = place.dCosLat * sun.dCosDecl;
    const double dMean = place.dSinLat * sun.dSinDecl;
    const double dSet = kSunRiseZenithCos - dMean;  // divided by the swing: cosine of hour angle
    if (foeHour.quirks.bSunEarly || dCosChi >= kSunRiseZenithCos
        || std::abs(dSet) >= 0.999 * dSwing)
        return 0.0;
    const double dEvening = (kSunRiseZenithCos - dCosChi) / dSwing * (12.0 / kPi);
    const double dSinTurn = sun.dSinTurn * place.dCosLon + sun.dCosTurn * place.dSinLon;
    // An arc cosine is concave: arccos y >= (1 - y) pi/2.
    const double dMorning = dSinTurn < -0.001 ? 6.0 * (1.0 - std::max(-dSet / dSwing, 0.0)) : 0.0;
    return std::max(dEvening, dMorning);
}

}  // namespace

FoeHour FoeHourGet(const Ionosphere& ionosphere, int nLabel)
{
    const double dR = ionosphere.dSsnLimited;
    const double dFlux = 63.7 + 0.728 * dR + 0.00089 * dR * dR;
    FoeHour hour;
    hour.pSun =
        &ionosphere.sun.aHours[static_cast<std::size_t>(SunHourOfLabel(ionosphere, nLabel))];
    hour.dActivity = 1.0 + 0.0094 * (dFlux - 66.0);
    hour.dFloor = 0.004 * Square(1.0 + 0.021 * dFlux);
    hour.nMonth = ionosphere.nMonth;
    hour.dClock = nLabel % 24;
    hour.quirks = ionosphere.quirks;
    return hour;
}

double FoeDarkLogGet(const FoeHour& hour, const Place& place, double dCosChi, double dPower,
                     double dLogFloor)
{
    const double dNight = dPower * kNight;
    const double dLeast = dNight - kDecay * SinceSunsetLeastGet(hour, place, dCosChi);
    // An arc sine is larger than its argument, so the angle is at least this one.
    const double dFarMost = dNight + 25.2 - 0.28 * (90.0 - kDegrees * dCosChi);
    if (dLeast <= dLogFloor && dFarMost <= dLogFloor && dCosChi < 0.0)
        return dLogFloor - 1.0;
    const double dChi = std::acos(dCosChi) * kDegrees;
    if (dChi < 90.0) {
        const double dPower8 = Square(Square(Square(dChi - 50.0)));
        return dPower * std::log(std::cos((dChi - 6.27e-13 * dPower8) * kRadians));
    }
    const double dFar = dNight + 25.2 - 0.28 * dChi;
    if (dLeast <= std::max(dFar, dLogFloor) || PolarWinterIs(hour, place))
        return dFar;
    return std::max(dNight - kDecay * SinceSunsetGet(hour, place), dFar);
}

double FoeGet(const FoeHour& hour, const Place& place, double dCosChi)
{
    return FoeLanesGet<double>(hour, place.dSinLat, place.dCosLat, place.dSinLon, place.dCosLon,
                               dCosChi);
}

}  // namespace rec533
