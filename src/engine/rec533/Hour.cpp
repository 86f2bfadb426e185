#include <cassert>

#include "engine/rec533/AuroralLoss.h"
#include "engine/rec533/Modes.h"

namespace rec533 {
namespace {

constexpr int kOrderEMost = 3;
constexpr int kHopSumMore = 3;  // orders above the lowest in the hop sum

// Lowest order whose hop is shorter than the longest one at a height; 0 when there is none.
int OrderLowestGet(const WayPath& tbl, double dHeight, int nMost)
{
    const double dLongest = std::min(HopLongestGet(tbl.dLeastElevation, dHeight), kRangeF2Most);
    for (int n = 1; n <= nMost; ++n)
        if (dLongest > tbl.way.dKm / n)
            return n;
    return 0;
}

void FoeFill(WayHour& tbl)
{
    const WayPath& path = *tbl.pWay;
    tbl.dFoeModes = tbl.dFoeScreen = tbl.mid.dFoe;
    const double dKm = path.way.dKm;
    if (dKm <= kControlShort || dKm > kRangeEMost)
        return;
    const double dFoeT = SiteFoeGet(tbl.foe, path.aheadT.place);
    const double dFoeR = SiteFoeGet(tbl.foe, path.aheadR.place);
    tbl.dFoeModes = std::min(dFoeT, dFoeR);
    tbl.dFoeScreen = std::max(dFoeT, dFoeR);
}

// The control points of gyrofrequency and auroral loss, and their means.
struct ControlMeans {
    double dGyro = 0.0;
    double dAuroralNear = 0.0, dAuroralFar = 0.0;  // by the length of hops
};

ControlMeans ControlMeansGet(const WayHour& tbl, bool bBeyondRange)
{
    const WayPath& path = *tbl.pWay;
    std::array<const Site*, 5> aSites{&path.mid};
    std::size_t nSites = 1;
    if (path.way.dKm > kControlShort) {
        aSites[nSites++] = &path.aheadT;
        aSites[nSites++] = &path.aheadR;
    }
    if (bBeyondRange) {
        aSites[nSites++] = &path.aHopT[static_cast<std::size_t>(tbl.nOrderF2)];
        aSites[nSites++] = &path.aHopR[static_cast<std::size_t>(tbl.nOrderF2)];
    }
    const Ionosphere& iono = *path.pIonosphere;
    const int nLocal = AuroralHourGet(iono, tbl.nLabel, path.mid.place.dLon);
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

void ModeRayFill(Mode& mode, const WayHour& tbl, double dHeight, const ControlMeans& means)
{
    const WayPath& path = *tbl.pWay;
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

void ModesEFill(WayHour& tbl)
{
    const WayPath& path = *tbl.pWay;
    const double dKm = path.way.dKm;
    if (dKm >= kRangeEMost)
        return;
    tbl.nOrderE = OrderLowestGet(path, kHeightE, kOrderEMost);
    if (tbl.nOrderE == 0)
        return;
    const ControlMeans means = ControlMeansGet(tbl, false);
    for (int n = tbl.nOrderE; n <= kOrderEMost; ++n) {
        Mode mode;
        mode.bE = true;
        mode.nHops = n;
        ModeRayFill(mode, tbl, kHeightE, means);
        mode.dMuf = tbl.dFoeModes / mode.dCosIncidence;
        mode.deciles = kDecilesE;
        mode.dOperational = mode.dMuf;
        mode.bReaches = n > tbl.nOrderE || dKm / n <= kControlShort;
        tbl.aModes[static_cast<std::size_t>(tbl.nModes++)] = mode;
    }
}

// Basic MUF of an F2 order beyond the reach of one hop.
double MufBeyondGet(const WayHour& tbl, int nHops, double dLowest)
{
    const double dHop = tbl.pWay->way.dKm / nHops;
    if (nHops == tbl.nOrderF2)
        return dLowest;
    const double dHop0 = tbl.pWay->way.dKm / tbl.nOrderF2;
    const auto fnRatio = [&](const F2Layer& layer) {
        return F2MufGet(layer, dHop, layer.dRangeMost) / F2MufGet(layer, dHop0, layer.dRangeMost);
    };
    return dLowest * std::min(fnRatio(tbl.hopT), fnRatio(tbl.hopR));
}

// The reflection height beyond one hop: at the control point with the lowest foF2. As in the ITU
// program T + 1000 is not among them.
double HeightBeyondGet(const WayHour& tbl)
{
    WayPath& path = *tbl.pWay;
    const F2Layer* pLowest = &tbl.mid;
    for (const F2Layer* pLayer : {&tbl.hopT, &tbl.hopR})
        if (pLayer->dFof2 < pLowest->dFof2)
            pLowest = pLayer;
    double dM3 = pLowest->dM3;
    if (path.way.dKm > kControlShort) {
        const F2Layer ahead = SiteLayerGet(*path.pIonosphere, tbl.foe, path.aheadR, tbl.nLabel);
        if (ahead.dFof2 < pLowest->dFof2)
            dM3 = ahead.dM3;
    }
    return MirrorHeightSimpleGet(dM3);
}

void HopLayersFill(WayHour& tbl)
{
    WayPath& path = *tbl.pWay;
    const auto nAt = static_cast<std::size_t>(tbl.nOrderF2);
    PathHopSitesMake(path, tbl.nOrderF2);
    tbl.hopT = SiteLayerGet(*path.pIonosphere, tbl.foe, path.aHopT[nAt], tbl.nLabel);
    tbl.hopR = SiteLayerGet(*path.pIonosphere, tbl.foe, path.aHopR[nAt], tbl.nLabel);
}

// Decile factors and operational MUF of the F2 modes of a path.
void ModesVariabilityFill(WayHour& tbl, int nFirst)
{
    constexpr double kKilowattDbw = 30.0;
    const WayPath& path = *tbl.pWay;
    const Ionosphere& iono = *path.pIonosphere;
    const Place& mid = path.mid.place;
    const Season eSeason = SeasonOfFour(iono.nMonth, mid.dSinLat >= 0.0);
    const DecileFactors deciles =
        DecileFactorsGet(mid.dLat, DecileHourGet(iono, tbl.nLabel, mid.dLon), eSeason, iono.dSsn);
    const bool bDay = OperationalDayIs(iono, tbl.nLabel, mid);
    for (int i = nFirst; i < tbl.nModes; ++i) {
        Mode& mode = tbl.aModes[static_cast<std::size_t>(i)];
        const double dEirp =
            iono.quirks.bLowPower ? 0.0 : path.dPowerDb + kKilowattDbw + mode.dTxGain;
        mode.deciles = deciles;
        mode.dOperational = mode.dMuf * OperationalRatioGet(eSeason, bDay, dEirp);
    }
}

// The lowest order's basic MUF beyond the reach of one hop, and the height of all; false within it.
bool BeyondFill(WayHour& tbl, double& dLowest)
{
    const double dKm = tbl.pWay->way.dKm;
    if (dKm <= tbl.dRangeMost)
        return false;
    HopLayersFill(tbl);
    const double dHop0 = dKm / tbl.nOrderF2;
    dLowest = std::min(F2MufGet(tbl.hopT, dHop0, tbl.dRangeMost),
                       F2MufGet(tbl.hopR, dHop0, tbl.dRangeMost));
    tbl.dHeightF2 = HeightBeyondGet(tbl);
    return true;
}

void ModesF2Fill(WayHour& tbl)
{
    const WayPath& path = *tbl.pWay;
    const bool bHopSum = path.bHopSum;
    const double dKm = path.way.dKm;
    const bool bShort = dKm <= kLongOnly;  // the short method's own MUFs count
    tbl.dHeightF2 = MirrorHeightSimpleGet(tbl.mid.dM3);
    tbl.nOrderF2 = OrderLowestGet(path, tbl.dHeightF2, bHopSum ? kOrderHopSumMost : kOrderMost);
    if (tbl.nOrderF2 == 0)
        return;
    double dLowest = 0.0;
    const bool bBeyond = BeyondFill(tbl, dLowest);
    const ControlMeans means = ControlMeansGet(tbl, bBeyond);
    const int nFirst = tbl.nModes;
    const int nLast = bHopSum ? std::max(kOrderMost, tbl.nOrderF2 + kHopSumMore) : kOrderMost;
    for (int n = tbl.nOrderF2; n <= nLast; ++n) {
        Mode mode;
        mode.nHops = n;
        mode.bReaches = n > tbl.nOrderF2 || dKm / n <= tbl.dRangeMost;
        if (bHopSum && mode.bReaches)
            mode.dWorst = PathWorstMufGet(*tbl.pWay, tbl.foe, tbl.nLabel, n);
        mode.dMuf = !bShort   ? mode.dWorst
                    : bBeyond ? MufBeyondGet(tbl, n, dLowest)
                              : F2MufGet(tbl.mid, dKm / n, tbl.dRangeMost);
        ModeRayFill(mode, tbl, tbl.dHeightF2, means);
        tbl.aModes[static_cast<std::size_t>(tbl.nModes++)] = mode;
    }
    if (bShort)
        ModesVariabilityFill(tbl, nFirst);
}

// Path values: basic MUF from the lowest modes, the rest from all of them.
void PathMufFill(Hour& tbl)
{
    const double dKm = tbl.pPath->way.dKm;
    for (int i = 0; i < tbl.nModes; ++i) {
        const Mode& mode = tbl.aModes[static_cast<std::size_t>(i)];
        if (mode.nHops == (mode.bE ? tbl.nOrderE : tbl.nOrderF2))
            tbl.dMuf = std::max(tbl.dMuf, mode.dMuf);
        tbl.dMuf10 = std::max(tbl.dMuf10, mode.dMuf * mode.deciles.dUpper);
        tbl.dMuf90 = std::max(tbl.dMuf90, mode.dMuf * mode.deciles.dLower);
        tbl.dOperational = std::max(tbl.dOperational, mode.dOperational);
        tbl.dOperational10 = std::max(tbl.dOperational10, mode.dOperational * mode.deciles.dUpper);
        tbl.dOperational90 = std::max(tbl.dOperational90, mode.dOperational * mode.deciles.dLower);
    }
    if (dKm > kShortOnly && tbl.nOrderF2 > 0) {
        const double dHop = dKm / tbl.nOrderF2;
        const auto fnMuf = [&](const F2Layer& layer) {
            return F2MufGet(layer, dHop, std::min(layer.dRangeMost, kRangeF2Most));
        };
        tbl.dMuf = std::min(fnMuf(tbl.hopT), fnMuf(tbl.hopR));
    }
}

void LongMufFill(Hour& tbl)
{
    const Path& path = *tbl.pPath;
    const Ionosphere& iono = *path.pIonosphere;
    const auto nPoint = static_cast<std::size_t>(tbl.longPath.nSmaller);
    const DecileFactors deciles = DecileFactorsGet(
        path.longPath.aLat[nPoint], DecileHourGet(iono, tbl.nLabel, path.longPath.aLon[nPoint]),
        SeasonOfFour(iono.nMonth, path.mid.place.dSinLat >= 0.0), iono.dSsn);
    tbl.dMuf = tbl.longPath.dBasic;
    tbl.dMuf10 = tbl.dMuf * deciles.dUpper;
    tbl.dMuf90 = tbl.dMuf * deciles.dLower;
    tbl.dOperational = tbl.longPath.dUpper;
    tbl.dOperational10 = tbl.dOperational * deciles.dUpper;
    tbl.dOperational90 = tbl.dOperational * deciles.dLower;
}

// An hour of a way: limits of the long method, modes.
void WayHourFill(WayHour& tbl, WayPath& path, int nLabel)
{
    const Ionosphere& iono = *path.pIonosphere;
    const double dKm = path.way.dKm;
    assert(path.nOnlyHour < 0 || path.nOnlyHour == MapHourGet(nLabel));
    tbl.pWay = &path;
    tbl.nLabel = nLabel;
    tbl.foe = FoeHourGet(iono, nLabel);
    tbl.absorption = {&iono, tbl.foe};
    tbl.nOrderF2 = tbl.nOrderE = tbl.nModes = tbl.nCrossings = 0;
    tbl.mid = SiteLayerGet(iono, tbl.foe, path.mid, nLabel);
    tbl.dRangeMost = std::min(tbl.mid.dRangeMost, kRangeF2Most);
    if (dKm >= kShortOnly)
        tbl.longPath = LongHourGet(path.longPath, nLabel);
    if (dKm > kLongOnly && !path.bHopSum)
        return;
    FoeFill(tbl);
    ModesEFill(tbl);
    ModesF2Fill(tbl);
}

}  // namespace

void HourFill(Hour& tbl, Path& path, int nLabel)
{
    WayHourFill(tbl, path, nLabel);
    tbl.pPath = &path;
    tbl.noise = NoiseHourGet(*path.pIonosphere, path.noise, nLabel);
    tbl.dMuf = tbl.dMuf10 = tbl.dMuf90 = 0.0;
    tbl.dOperational = tbl.dOperational10 = tbl.dOperational90 = 0.0;
    for (std::size_t i = 0; i < path.nBent; ++i) WayHourFill(tbl.aBent[i], path.aBent[i], nLabel);
    if (path.way.dKm <= kLongOnly)
        PathMufFill(tbl);
    else
        LongMufFill(tbl);
}

}  // namespace rec533
