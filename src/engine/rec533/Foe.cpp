#include "engine/rec533/Foe.h"

namespace rec533 {
namespace {

constexpr double kSinPolar = 0.9540428329158197;  // 72.5622 degrees
constexpr double kNight =
    -2.6310891599660819;        // ln 0.072: Dd at the end of the day, before the power p
constexpr double kDecay = 1.4;  // an hour, of its logarithm

bool PolarWinterIs(const FoeHour& tbl, const Place& tblPlace)
{
    const bool bNorthWinter = tbl.nMonth >= 11 || tbl.nMonth == 1;
    const bool bSouthWinter = tbl.nMonth >= 5 && tbl.nMonth <= 7;
    // The ITU program lacks the minus of the southern limit.
    const double dSouthLimit = tbl.quirks.bWinterNorth ? kSinPolar : -kSinPolar;
    return (tblPlace.dSinLat > kSinPolar && bNorthWinter)
           || (tblPlace.dSinLat < dSouthLimit && bSouthWinter);
}

// Hours since sunset; 0 where the cases of the method do not apply.
double SinceSunsetGet(const FoeHour& tbl, const Place& tblPlace)
{
    const SunTimes tblTimes = SunTimesGet(*tbl.pSun, tblPlace);
    if (!tblTimes.bRises)
        return 0.0;
    const double dSet = tblTimes.dSunset;
    const double dRise = tblTimes.dSunrise;
    const double dNow = tbl.dClock;
    if (dSet >= dRise ? dNow >= dSet : dSet <= dNow && dNow < dRise)
        return dNow - dSet;
    if (dSet >= dRise && dNow < dRise)
        return 24.0 - dSet + dNow;
    return 0.0;
}

// Hours since sunset, at least, told without an angle. In the evening the cosine of the zenith
// angle has fallen at most as fast as it does at six o'clock; in the morning half the night is
// over.
double SinceSunsetLeastGet(const FoeHour& tbl, const Place& tblPlace, double dCosChi)
{
    const SunHour& tblSun = *tbl.pSun;
    const double dSwing = tblPlace.dCosLat * tblSun.dCosDecl;
    const double dMean = tblPlace.dSinLat * tblSun.dSinDecl;
    const double dSet = kSunRiseZenithCos - dMean;  // over the swing: cosine of the hour angle
    if (tbl.quirks.bSunEarly || dCosChi >= kSunRiseZenithCos || std::abs(dSet) >= 0.999 * dSwing)
        return 0.0;
    const double dEvening = (kSunRiseZenithCos - dCosChi) / dSwing * (12.0 / kPi);
    const double dSinTurn = tblSun.dSinTurn * tblPlace.dCosLon + tblSun.dCosTurn * tblPlace.dSinLon;
    // An arc cosine is concave: arccos y >= (1 - y) pi/2.
    const double dMorning = dSinTurn < -0.001 ? 6.0 * (1.0 - std::max(-dSet / dSwing, 0.0)) : 0.0;
    return std::max(dEvening, dMorning);
}

}  // namespace

FoeHour FoeHourGet(const Ionosphere& tbl, int nLabel)
{
    const double dR = tbl.dSsnLimited;
    const double dFlux = 63.7 + 0.728 * dR + 0.00089 * dR * dR;
    FoeHour tblHour;
    tblHour.pSun = &tbl.tblSun.aHours[static_cast<std::size_t>(SunHourOfLabel(tbl, nLabel))];
    tblHour.dActivity = 1.0 + 0.0094 * (dFlux - 66.0);
    tblHour.dFloor = 0.004 * Square(1.0 + 0.021 * dFlux);
    tblHour.nMonth = tbl.nMonth;
    tblHour.dClock = nLabel % 24;
    tblHour.quirks = tbl.quirks;
    return tblHour;
}

double FoeDarkLogGet(const FoeHour& tblHour, const Place& tblPlace, double dCosChi, double dPower,
                     double dLogFloor)
{
    const double dNight = dPower * kNight;
    const double dLeast = dNight - kDecay * SinceSunsetLeastGet(tblHour, tblPlace, dCosChi);
    // An arc sine is larger than its sine, so the angle is at least this one.
    const double dFarMost = dNight + 25.2 - 0.28 * (90.0 - kDegrees * dCosChi);
    if (dLeast <= dLogFloor && dFarMost <= dLogFloor && dCosChi < 0.0)
        return dLogFloor - 1.0;
    const double dChi = std::acos(dCosChi) * kDegrees;
    if (dChi < 90.0) {
        const double dPower8 = Square(Square(Square(dChi - 50.0)));
        return dPower * std::log(std::cos((dChi - 6.27e-13 * dPower8) * kRadians));
    }
    const double dFar = dNight + 25.2 - 0.28 * dChi;
    if (dLeast <= std::max(dFar, dLogFloor) || PolarWinterIs(tblHour, tblPlace))
        return dFar;
    return std::max(dNight - kDecay * SinceSunsetGet(tblHour, tblPlace), dFar);
}

double FoeGet(const FoeHour& tblHour, const Place& tblPlace, double dCosChi)
{
    return FoeLanesGet<double>(tblHour, tblPlace.dSinLat, tblPlace.dCosLat, tblPlace.dSinLon,
                               tblPlace.dCosLon, dCosChi);
}

}  // namespace rec533
