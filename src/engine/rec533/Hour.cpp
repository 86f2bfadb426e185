#include <cassert>

#include "engine/rec533/AuroralLoss.h"
#include "engine/rec533/Modes.h"

namespace rec533 {
namespace {

constexpr int kOrderEMost = 3;

// Lowest order whose hop is shorter than the longest possible one at a height; 0 if there is none.
int OrderLowestGet(const WayPath& wayPath, double dHeight, int nMost)
{
    const double dLongest = std::min(HopLongestGet(wayPath.dLeastElevation, dHeight), kRangeF2Most);
    for (int n = 1; n <= nMost; ++n)
        if (dLongest > wayPath.way.dKm / n)
            return n;
    return 0;
}

void FoeFill(WayHour& wayHour)
{
    const WayPath& path = *wayHour.pWay;
    wayHour.dFoeModes = wayHour.dFoeScreen = wayHour.mid.dFoe;
    const double dKm = path.way.dKm;
    if (dKm <= kControlShort || dKm > kRangeEMost)
        return;
    const double dFoeT = SiteFoeGet(wayHour.foe, path.aheadT.place);
    const double dFoeR = SiteFoeGet(wayHour.foe, path.aheadR.place);
    wayHour.dFoeModes = std::min(dFoeT, dFoeR);
    wayHour.dFoeScreen = std::max(dFoeT, dFoeR);
}

// The control points of gyrofrequency and auroral loss, and their means.
struct ControlMeans {
    double dGyro = 0.0;
    double dAuroralNear = 0.0, dAuroralFar = 0.0;  // by the length of hops
};

ControlMeans ControlMeansGet(const WayHour& wayHour, bool bBeyondRange)
{
    WayPath& path = *wayHour.pWay;
    std::array<const Site*, 5> aSites{&path.mid};
    std::size_t nSites = 1;
    if (path.way.dKm > kControlShort) {
        aSites[nSites++] = &path.aheadT;
        aSites[nSites++] = &path.aheadR;
    }
    if (bBeyondRange) {
        const std::size_t nAt = PathHopSitesMake(path, wayHour.nOrderF2);
        aSites[nSites++] = &path.aHopT[nAt];
        aSites[nSites++] = &path.aHopR[nAt];
    }
    const Ionosphere& iono = *path.pIonosphere;
    const int nLocal = AuroralHourGet(iono, wayHour.nLabel, path.mid.place.dLon);
    ControlMeans means;
    for (std::size_t i = 0; i < nSites; ++i) {
        const Season eSeason = SeasonOfThree(iono.nMonth, aSites[i]->place.dSinLat >= 0.0);
        means.dGyro += aSites[i]->dGyroDip;
        means.dAuroralNear += AuroralLossGet(aSites[i]->dGeomagneticSin, eSeason, 0.0, nLocal);
        means.dAuroralFar +=
            AuroralLossGet(aSites[i]->dGeomagneticSin, eSeason, kRangeF2Most, nLocal);
    }
    const auto dCount = static_cast<double>(nSites);
    return {means.dGyro / dCount, means.dAuroralNear / dCount, means.dAuroralFar / dCount};
}

void ModeRayFill(Mode& mode, const WayHour& wayHour, double dHeight, const ControlMeans& means)
{
    const WayPath& path = *wayHour.pWay;
    const double dHop = path.way.dKm / mode.nHops;
    mode.dElevation = ElevationGet(dHop, dHeight);
    mode.dSlant = SlantRangeGet(path.way.dKm, mode.nHops, mode.dElevation);
    mode.dCosIncidence = IncidenceCosGet(mode.dElevation, kHeightE);
    mode.dGyro = means.dGyro;
    mode.dAuroral = dHop > kAuroralNearHop ? means.dAuroralFar : means.dAuroralNear;
    mode.dTxGain = AntennaGainGet(path.pTx, mode.dElevation);
    mode.dRxGain = AntennaGainGet(path.pRx, mode.dElevation);
    mode.dRxPower = mode.dRxGain == 0.0 ? 1.0 : PowerFromDb(mode.dRxGain);
}

void ModesEFill(WayHour& wayHour)
{
    const WayPath& path = *wayHour.pWay;
    const double dKm = path.way.dKm;
    if (dKm >= kRangeEMost)
        return;
    wayHour.nOrderE = OrderLowestGet(path, kHeightE, kOrderEMost);
    if (wayHour.nOrderE == 0)
        return;
    const ControlMeans means = ControlMeansGet(wayHour, false);
    for (int n = wayHour.nOrderE; n <= kOrderEMost; ++n) {
        Mode mode;
        mode.bE = true;
        mode.nHops = n;
        ModeRayFill(mode, wayHour, kHeightE, means);
        mode.dMuf = wayHour.dFoeModes / mode.dCosIncidence;
        mode.deciles = kDecilesE;
        mode.dOperational = mode.dMuf;
        mode.bReaches = n > wayHour.nOrderE || dKm / n <= kControlShort;
        wayHour.aModes[static_cast<std::size_t>(wayHour.nModes++)] = mode;
    }
}

// Basic MUF of an F2 order beyond the reach of one hop.
double MufBeyondGet(const WayHour& wayHour, int nHops, double dLowest)
{
    const double dHop = wayHour.pWay->way.dKm / nHops;
    if (nHops == wayHour.nOrderF2)
        return dLowest;
    const double dHop0 = wayHour.pWay->way.dKm / wayHour.nOrderF2;
    const auto fnRatio = [&](const F2Layer& layer) {
        return F2MufGet(layer, dHop, layer.dRangeMost) / F2MufGet(layer, dHop0, layer.dRangeMost);
    };
    return dLowest * std::min(fnRatio(wayHour.hopT), fnRatio(wayHour.hopR));
}

// The reflection height beyond one hop: at the control point with the lowest foF2. As in the ITU
// program, T + 1000 is not one of these.
double HeightBeyondGet(const WayHour& wayHour)
{
    WayPath& path = *wayHour.pWay;
    const F2Layer* pLowest = &wayHour.mid;
    for (const F2Layer* pLayer : {&wayHour.hopT, &wayHour.hopR})
        if (pLayer->dFof2 < pLowest->dFof2)
            pLowest = pLayer;
    double dM3 = pLowest->dM3;
    if (path.way.dKm > kControlShort) {
        const F2Layer ahead =
            SiteLayerGet(*path.pIonosphere, wayHour.foe, path.aheadR, wayHour.nLabel);
        if (ahead.dFof2 < pLowest->dFof2)
            dM3 = ahead.dM3;
    }
    return MirrorHeightSimpleGet(dM3);
}

void HopLayersFill(WayHour& wayHour)
{
    WayPath& path = *wayHour.pWay;
    const std::size_t nAt = PathHopSitesMake(path, wayHour.nOrderF2);
    wayHour.hopT = SiteLayerGet(*path.pIonosphere, wayHour.foe, path.aHopT[nAt], wayHour.nLabel);
    wayHour.hopR = SiteLayerGet(*path.pIonosphere, wayHour.foe, path.aHopR[nAt], wayHour.nLabel);
}

// Decile factors and operational MUF of the F2 modes of a path.
void ModesVariabilityFill(WayHour& wayHour, int nFirst)
{
    constexpr double kKilowattDbw = 30.0;
    const WayPath& path = *wayHour.pWay;
    const Ionosphere& iono = *path.pIonosphere;
    const Place& mid = path.mid.place;
    const Season eSeason = SeasonOfFour(iono.nMonth, mid.dSinLat >= 0.0);
    const DecileFactors deciles = DecileFactorsGet(
        mid.dLat, DecileHourGet(iono, wayHour.nLabel, mid.dLon), eSeason, iono.dSsn);
    const bool bDay = OperationalDayIs(iono, wayHour.nLabel, mid);
    for (int i = nFirst; i < wayHour.nModes; ++i) {
        Mode& mode = wayHour.aModes[static_cast<std::size_t>(i)];
        const double dEirp =
            iono.quirks.bLowPower ? 0.0 : path.dPowerDb + kKilowattDbw + mode.dTxGain;
        mode.deciles = deciles;
        mode.dOperational = mode.dMuf * OperationalRatioGet(eSeason, bDay, dEirp);
    }
}

// The lowest order's basic MUF beyond the reach of one hop, and the height for all orders; false
// within the reach.
bool BeyondFill(WayHour& wayHour, double& dLowest)
{
    const double dKm = wayHour.pWay->way.dKm;
    if (dKm <= wayHour.dRangeMost)
        return false;
    HopLayersFill(wayHour);
    const double dHop0 = dKm / wayHour.nOrderF2;
    dLowest = std::min(F2MufGet(wayHour.hopT, dHop0, wayHour.dRangeMost),
                       F2MufGet(wayHour.hopR, dHop0, wayHour.dRangeMost));
    wayHour.dHeightF2 = HeightBeyondGet(wayHour);
    return true;
}

void ModesF2Fill(WayHour& wayHour)
{
    const WayPath& path = *wayHour.pWay;
    const bool bHopSum = path.bHopSum;
    const double dKm = path.way.dKm;
    const bool bShort = dKm <= kLongOnly;  // the short method's MUFs count
    wayHour.dHeightF2 = MirrorHeightSimpleGet(wayHour.mid.dM3);
    wayHour.nOrderF2 =
        OrderLowestGet(path, wayHour.dHeightF2, bHopSum ? kOrderHopSumMost : kOrderMost);
    if (wayHour.nOrderF2 == 0)
        return;
    double dLowest = 0.0;
    const bool bBeyond = BeyondFill(wayHour, dLowest);
    const ControlMeans means = ControlMeansGet(wayHour, bBeyond);
    const int nFirst = wayHour.nModes;
    const int nLast = bHopSum ? std::max(kOrderMost, wayHour.nOrderF2 + kHopSumMore) : kOrderMost;
    for (int n = wayHour.nOrderF2; n <= nLast; ++n) {
        Mode mode;
        mode.nHops = n;
        mode.bReaches = n > wayHour.nOrderF2 || dKm / n <= wayHour.dRangeMost;
        if (bHopSum && mode.bReaches)
            mode.dWorst = PathWorstMufGet(*wayHour.pWay, wayHour.foe, wayHour.nLabel, n);
        mode.dMuf = !bShort   ? mode.dWorst
                    : bBeyond ? MufBeyondGet(wayHour, n, dLowest)
                              : F2MufGet(wayHour.mid, dKm / n, wayHour.dRangeMost);
        ModeRayFill(mode, wayHour, wayHour.dHeightF2, means);
        wayHour.aModes[static_cast<std::size_t>(wayHour.nModes++)] = mode;
    }
    if (bShort)
        ModesVariabilityFill(wayHour, nFirst);
}

// Path values: basic MUF from the lowest modes, the rest from all of them.
void PathMufFill(Hour& hour)
{
    const double dKm = hour.pPath->way.dKm;
    for (int i = 0; i < hour.nModes; ++i) {
        const Mode& mode = hour.aModes[static_cast<std::size_t>(i)];
        if (mode.nHops == (mode.bE ? hour.nOrderE : hour.nOrderF2))
            hour.dMuf = std::max(hour.dMuf, mode.dMuf);
        hour.dMuf10 = std::max(hour.dMuf10, mode.dMuf * mode.deciles.dUpper);
        hour.dMuf90 = std::max(hour.dMuf90, mode.dMuf * mode.deciles.dLower);
        hour.dOperational = std::max(hour.dOperational, mode.dOperational);
        hour.dOperational10 =
            std::max(hour.dOperational10, mode.dOperational * mode.deciles.dUpper);
        hour.dOperational90 =
            std::max(hour.dOperational90, mode.dOperational * mode.deciles.dLower);
    }
    if (dKm > kShortOnly && hour.nOrderF2 > 0) {
        const double dHop = dKm / hour.nOrderF2;
        const auto fnMuf = [&](const F2Layer& layer) {
            return F2MufGet(layer, dHop, std::min(layer.dRangeMost, kRangeF2Most));
        };
        hour.dMuf = std::min(fnMuf(hour.hopT), fnMuf(hour.hopR));
    }
}

void LongMufFill(Hour& hour)
{
    const Path& path = *hour.pPath;
    const Ionosphere& iono = *path.pIonosphere;
    const auto nPoint = static_cast<std::size_t>(hour.longPath.nSmaller);
    const DecileFactors deciles = DecileFactorsGet(
        path.longPath.aLat[nPoint], DecileHourGet(iono, hour.nLabel, path.longPath.aLon[nPoint]),
        SeasonOfFour(iono.nMonth, path.mid.place.dSinLat >= 0.0), iono.dSsn);
    hour.dMuf = hour.longPath.dBasic;
    hour.dMuf10 = hour.dMuf * deciles.dUpper;
    hour.dMuf90 = hour.dMuf * deciles.dLower;
    hour.dOperational = hour.longPath.dUpper;
    hour.dOperational10 = hour.dOperational * deciles.dUpper;
    hour.dOperational90 = hour.dOperational * deciles.dLower;
}

// An hour of a way: limits of the long method, modes.
void WayHourFill(WayHour& wayHour, WayPath& path, int nLabel)
{
    const Ionosphere& iono = *path.pIonosphere;
    const double dKm = path.way.dKm;
    assert(path.nOnlyHour < 0 || path.nOnlyHour == MapHourGet(nLabel));
    wayHour.pWay = &path;
    wayHour.nLabel = nLabel;
    wayHour.foe = FoeHourGet(iono, nLabel);
    wayHour.absorption = {&iono, wayHour.foe};
    wayHour.nOrderF2 = wayHour.nOrderE = wayHour.nModes = wayHour.nCrossings = 0;
    wayHour.mid = SiteLayerGet(iono, wayHour.foe, path.mid, nLabel);
    wayHour.dRangeMost = std::min(wayHour.mid.dRangeMost, kRangeF2Most);
    if (dKm >= kShortOnly)
        wayHour.longPath = LongHourGet(path.longPath, nLabel);
    if (dKm > kLongOnly && !path.bHopSum)
        return;
    FoeFill(wayHour);
    ModesEFill(wayHour);
    ModesF2Fill(wayHour);
}

}  // namespace

void HourFill(Hour& hour, Path& path, int nLabel)
{
    WayHourFill(hour, path, nLabel);
    hour.pPath = &path;
    hour.noise = NoiseHourGet(*path.pIonosphere, path.noise, nLabel);
    hour.dMuf = hour.dMuf10 = hour.dMuf90 = 0.0;
    hour.dOperational = hour.dOperational10 = hour.dOperational90 = 0.0;
    for (std::size_t i = 0; i < path.nBent; ++i) WayHourFill(hour.aBent[i], path.aBent[i], nLabel);
    if (path.way.dKm <= kLongOnly)
        PathMufFill(hour);
    else
        LongMufFill(hour);
}

}  // namespace rec533
