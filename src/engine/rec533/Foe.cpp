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
    const double dSouthLimit = tbl.bReference ? kSinPolar : -kSinPolar;
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

// True where the night is so far advanced that neither of its two laws is above the floor, told
// without an angle: since sunset the cosine of the zenith angle has fallen at most as fast as it
// does at six o'clock, and an arc sine is larger than its sine.
bool DeepNightIs(const FoeHour& tbl, const Place& tblPlace, double dCosChi, double dNight,
                 double dLogFloor)
{
    if (tbl.bReference || dCosChi >= kSunRiseZenithCos)
        return false;
    const double dFar = dNight + 25.2 - 0.28 * (90.0 - kDegrees * dCosChi);
    const double dSwing = tblPlace.dCosLat * tbl.pSun->dCosDecl;
    const double dMean = tblPlace.dSinLat * tbl.pSun->dSinDecl;
    if (dFar > dLogFloor || std::abs(kSunRiseZenithCos - dMean) >= 0.999 * dSwing)
        return false;
    const double dSince = (kSunRiseZenithCos - dCosChi) / dSwing * (12.0 / kPi);  // hours, at least
    return dNight - kDecay * dSince <= dLogFloor;
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
    tblHour.bReference = tbl.bReference;
    return tblHour;
}

double FoeDarkLogGet(const FoeHour& tblHour, const Place& tblPlace, double dCosChi, double dPower,
                     double dLogFloor)
{
    const double dNight = dPower * kNight;
    if (DeepNightIs(tblHour, tblPlace, dCosChi, dNight, dLogFloor))
        return dLogFloor - 1.0;
    const double dChi = std::acos(dCosChi) * kDegrees;
    if (dChi < 90.0) {
        const double dPower8 = Square(Square(Square(dChi - 50.0)));
        return dPower * std::log(std::cos((dChi - 6.27e-13 * dPower8) * kRadians));
    }
    const double dFar = dNight + 25.2 - 0.28 * dChi;
    return PolarWinterIs(tblHour, tblPlace)
               ? dFar
               : std::max(dNight - kDecay * SinceSunsetGet(tblHour, tblPlace), dFar);
}

double FoeGet(const FoeHour& tblHour, const Place& tblPlace, double dCosChi)
{
    return FoeLanesGet<double>(tblHour, tblPlace.dSinLat, tblPlace.dCosLat, tblPlace.dSinLon,
                               tblPlace.dCosLon, dCosChi);
}

}  // namespace rec533
