#include "engine/rec533/Layers.h"

namespace rec533 {
namespace {

constexpr double kCos73 = 0.29237170472273677;
constexpr double kCos80 = 0.17364817766693041;
constexpr double kSin12 = 0.20791169081775934;
constexpr double kSin32 = 0.52991926423320490;
constexpr double kSinPolar = 0.9540428329158197;  // 72.5622 degrees
constexpr double kNight = 0.072;                  // Dd at the end of the day, before the power p

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

// x > 3.33, f >= foF2.
double MirrorHeightAbove(const MirrorHeightInput& tbl, double dH, double dXr)
{
    const double dE1 = ((-0.09707 * dXr + 0.6870) * dXr - 0.7506) * dXr + 0.6;
    const double dF1 = dXr <= 1.71
                           ? (((-1.862 * dXr + 12.95) * dXr - 32.03) * dXr + 33.50) * dXr - 10.91
                           : 1.21 + 0.2 * dXr;
    // The ITU program leaves the linear term out; with it G is continuous at 3.7.
    const double dLinear = tbl.bReference ? 0.0 : 90.47;
    const double dG =
        dXr <= 3.7 ? (((-2.102 * dXr + 19.50) * dXr - 63.15) * dXr + dLinear) * dXr - 44.73 : 19.25;
    const double dDs = 160.0 + (dH + 43.0) * dG;
    const double dA = (tbl.dHopKm - dDs) / (dH + 140.0);
    const double dA1 = 140.0 + (dH - 47.0) * dE1;
    const double dB1 = 150.0 + (dH - 17.0) * dF1 - dA1;
    return dB1 >= 0.0 && dA >= 0.0 ? dA1 + dB1 * std::pow(2.4, -dA) : dA1 + dB1;
}

// x > 3.33, f < foF2.
double MirrorHeightBelow(const MirrorHeightInput& tbl, double dH, double dXr)
{
    const double dZ = std::max(dXr, 0.1);
    const double dE2 = (0.1906 * dZ + 0.00583) * dZ + 0.1936;
    const double dA2 = 151.0 + (dH - 47.0) * dE2;
    const double dF2 = (0.645 * dZ + 0.883) * dZ + 0.162;
    const double dB2 = 141.0 + (dH - 24.0) * dF2 - dA2;
    const double dDf = std::min(0.115 * tbl.dHopKm / (dZ * (dH + 140.0)), 0.65);
    const double dB = (((-7.535 * dDf + 15.75) * dDf - 8.834) * dDf - 0.378) * dDf + 1.0;
    return dB2 >= 0.0 ? dA2 + dB2 * dB : dA2 + dB2;
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

double FoeGet(const FoeHour& tblHour, const Place& tblPlace, double dCosChi)
{
    const double dAbsSin = std::abs(tblPlace.dSinLat);
    const double dCosLat = tblPlace.dCosLat;
    const bool bLow = dAbsSin < kSin32;
    const double dM = bLow ? -1.93 + 1.92 * dCosLat : 0.11 - 0.49 * dCosLat;
    const double dC = bLow ? 23.0 + 116.0 * dCosLat : 92.0 + 35.0 * dCosLat;
    // N is the sun's noon zenith angle, 80 degrees at most (also where the sun stands below).
    const double dCosN = std::max(
        dCosLat * tblHour.pSun->dCosDecl + tblPlace.dSinLat * tblHour.pSun->dSinDecl, kCos80);
    const double dP = dAbsSin <= kSin12 ? 1.31 : 1.20;
    double dLogD = 0.0;  // ln of the diurnal factor
    if (dCosChi >= kCos73) {
        dLogD = dP * std::log(dCosChi);
    } else {
        const double dChi = std::acos(dCosChi) * kDegrees;
        if (dChi < 90.0) {
            const double dPower8 = Square(Square(Square(dChi - 50.0)));
            dLogD = dP * std::log(std::cos((dChi - 6.27e-13 * dPower8) * kRadians));
        } else {
            const double dNight = dP * std::log(kNight);
            const double dFar = dNight + 25.2 - 0.28 * dChi;
            dLogD = PolarWinterIs(tblHour, tblPlace)
                        ? dFar
                        : std::max(dNight - 1.4 * SinceSunsetGet(tblHour, tblPlace), dFar);
        }
    }
    const double dFourth = tblHour.dActivity * dC * std::exp(dM * std::log(dCosN) + dLogD);
    return std::sqrt(std::sqrt(std::max(dFourth, tblHour.dFloor)));
}

double MirrorHeightSimpleGet(double dM3) { return std::min(1490.0 / dM3 - 176.0, 500.0); }

double MirrorHeightGet(const MirrorHeightInput& tbl)
{
    constexpr double kHighest = 800.0;
    const double dX = tbl.dFof2 / tbl.dFoe;
    const double dY = std::max(dX, 1.8);
    const double dXr = tbl.dFrequency / tbl.dFof2;
    const double dDelta = 0.18 / (dY - 1.4) + 0.096 * (tbl.dSsn - 25.0) / 150.0;
    const double dH = 1490.0 / (tbl.dM3 + dDelta) - 316.0;
    if (dX > 3.33)
        return std::min(
            dXr >= 1.0 ? MirrorHeightAbove(tbl, dH, dXr) : MirrorHeightBelow(tbl, dH, dXr),
            kHighest);
    const double dJ = ((-0.7126 * dY + 5.863) * dY - 16.13) * dY + 16.07;
    const double dU =
        8e-5 * (dH - 80.0) * (1.0 + 11.0 * std::pow(dY, -2.2)) + 1.2e-3 * dH * std::pow(dY, -3.6);
    return std::min(115.0 + dH * dJ + dU * tbl.dHopKm, kHighest);
}

}  // namespace rec533
