#include "engine/rec533/Variability.h"

namespace rec533 {
namespace {

Season SeasonGet(bool bAroundJanuary, bool bAroundJuly, bool bNorth)
{
    if (!bAroundJanuary && !bAroundJuly)
        return Season::Equinox;
    return bAroundJanuary == bNorth ? Season::Winter : Season::Summer;
}

double DecileGet(bool bUpper, Season eSeason, int nClass, double dLat, double dHour)
{
    const double dRow = std::min(std::abs(dLat) * kDegrees / 5.0, 17.999999);
    const int nRow = static_cast<int>(dRow);
    const int nHour = static_cast<int>(dHour);
    const int nNext = (nHour + 1) % 24;
    const double dR = dRow - nRow;
    const double dH = dHour - nHour;
    const int nSeason = static_cast<int>(eSeason);
    const auto fnAt = [&](int i, int j) { return FiguresDecile(bUpper, nSeason, nClass, i, j); };
    const double dSouth = fnAt(nRow, nHour) * (1.0 - dH) + fnAt(nRow, nNext) * dH;
    const double dNorth = fnAt(nRow + 1, nHour) * (1.0 - dH) + fnAt(nRow + 1, nNext) * dH;
    return (dSouth * (1.0 - dR) + dNorth * dR) / 100.0;
}

}  // namespace

Season SeasonOfFour(int nMonth, bool bNorth)
{
    return SeasonGet(nMonth >= 11 || nMonth <= 2, nMonth >= 5 && nMonth <= 8, bNorth);
}

Season SeasonOfThree(int nMonth, bool bNorth)
{
    return SeasonGet(nMonth == 12 || nMonth <= 2, nMonth >= 6 && nMonth <= 8, bNorth);
}

DecileFactors DecileFactorsGet(double dLat, double dLocalHour, Season eSeason, double dSsn)
{
    const int nClass = dSsn < 50.0 ? 0 : dSsn <= 100.0 ? 1 : 2;
    double dHour = std::fmod(dLocalHour, 24.0);
    if (dHour < 0.0)
        dHour = std::fmod(dHour + 24.0, 24.0);
    return {DecileGet(false, eSeason, nClass, dLat, dHour),
            DecileGet(true, eSeason, nClass, dLat, dHour)};
}

double DecileHourGet(const Ionosphere& ionosphere, int nLabel, double dLon)
{
    const int nHour = SunHourOfLabel(ionosphere, nLabel);
    // The ITU program reads the local-time tables at the UT hour.
    return ionosphere.quirks.bDecilesAtUtc ? nHour : nHour + dLon * (12.0 / kPi);
}

double OperationalRatioGet(Season eSeason, bool bDay, double dEirp)
{
    constexpr double kEirpClass = 30.0;  // dBW
    constexpr double kRatio[2][3][2]{
        {{1.20, 1.30},
         {1.15, 1.25},
         {1.10, 1.20}},  // up to 30 dBW; winter, equinox, summer; day, night
        {{1.15, 1.25}, {1.20, 1.30}, {1.25, 1.35}},
    };
    return kRatio[dEirp > kEirpClass ? 1 : 0][static_cast<int>(eSeason)][bDay ? 0 : 1];
}

bool OperationalDayIs(const Ionosphere& ionosphere, int nLabel, const Place& place)
{
    const int nHour = SunHourOfLabel(ionosphere, nLabel);
    const SunHour& sun = ionosphere.sun.aHours[static_cast<std::size_t>(nHour)];
    if (!ionosphere.quirks.bDayByUtc)
        return SunZenithCosGet(sun, place) > kSunRiseZenithCos;
    // The ITU program compares UT hours and ignores midnight; it treats polar day as night.
    const SunTimes times = SunTimesGet(sun, place);
    return times.bRises && times.dSunrise < nHour && nHour < times.dSunset;
}

}  // namespace rec533
