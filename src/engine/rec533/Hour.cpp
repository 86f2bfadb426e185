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
        if (dLongest > tbl.tblWay.dKm / n)
            return n;
    return 0;
}

void FoeFill(WayHour& tbl)
{
    const WayPath& tblPath = *tbl.pWay;
    tbl.dFoeModes = tbl.dFoeScreen = tbl.tblMid.dFoe;
    const double dKm = tblPath.tblWay.dKm;
    if (dKm <= kControlShort || dKm > kRangeEMost)
        return;
    const double dFoeT = SiteFoeGet(tbl.tblFoe, tblPath.tblAheadT.tblPlace);
    const double dFoeR = SiteFoeGet(tbl.tblFoe, tblPath.tblAheadR.tblPlace);
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
    const WayPath& tblPath = *tbl.pWay;
    std::array<const Site*, 5> aSites{&tblPath.tblMid};
    std::size_t nSites = 1;
    if (tblPath.tblWay.dKm > kControlShort) {
        aSites[nSites++] = &tblPath.tblAheadT;
        aSites[nSites++] = &tblPath.tblAheadR;
    }
    if (bBeyondRange) {
        aSites[nSites++] = &tblPath.aHopT[static_cast<std::size_t>(tbl.nOrderF2)];
        aSites[nSites++] = &tblPath.aHopR[static_cast<std::size_t>(tbl.nOrderF2)];
    }
    const Ionosphere& tblIono = *tblPath.pIonosphere;
    const int nLocal = AuroralHourGet(tblIono, tbl.nLabel, tblPath.tblMid.tblPlace.dLon);
    ControlMeans tblMeans;
    for (std::size_t i = 0; i < nSites; ++i) {
        const Season eSeason = SeasonOfThree(tblIono.nMonth, aSites[i]->tblPlace.dSinLat >= 0.0);
        tblMeans.dGyro += aSites[i]->dGyroDip;
        tblMeans.dAuroralNear += AuroralLossGet(aSites[i]->dGeomagneticSin, eSeason, 0.0, nLocal);
        tblMeans.dAuroralFar +=
            AuroralLossGet(aSites[i]->dGeomagneticSin, eSeason, kRangeF2Most, nLocal);
    }
    const auto dCount = static_cast<double>(nSites);
    return {tblMeans.dGyro / dCount, tblMeans.dAuroralNear / dCount, tblMeans.dAuroralFar / dCount};
}

void ModeRayFill(Mode& tblMode, const WayHour& tbl, double dHeight, const ControlMeans& tblMeans)
{
    const WayPath& tblPath = *tbl.pWay;
    const double dHop = tblPath.tblWay.dKm / tblMode.nHops;
    tblMode.dElevation = ElevationGet(dHop, dHeight);
    tblMode.dSlant = SlantRangeGet(tblPath.tblWay.dKm, tblMode.nHops, tblMode.dElevation);
    tblMode.dCosIncidence = IncidenceCosGet(tblMode.dElevation, kHeightE);
    tblMode.dGyro = tblMeans.dGyro;
    tblMode.dAuroral = dHop > kAuroralNearHop ? tblMeans.dAuroralFar : tblMeans.dAuroralNear;
    tblMode.dTxGain = AntennaGainGet(tblPath.pTx, tblMode.dElevation);
    tblMode.dRxGain = AntennaGainGet(tblPath.pRx, tblMode.dElevation);
    tblMode.dRxPower = tblMode.dRxGain == 0.0 ? 1.0 : PowerFromDb(tblMode.dRxGain);
}

void ModesEFill(WayHour& tbl)
{
    const WayPath& tblPath = *tbl.pWay;
    const double dKm = tblPath.tblWay.dKm;
    if (dKm >= kRangeEMost)
        return;
    tbl.nOrderE = OrderLowestGet(tblPath, kHeightE, kOrderEMost);
    if (tbl.nOrderE == 0)
        return;
    const ControlMeans tblMeans = ControlMeansGet(tbl, false);
    for (int n = tbl.nOrderE; n <= kOrderEMost; ++n) {
        Mode tblMode;
        tblMode.bE = true;
        tblMode.nHops = n;
        ModeRayFill(tblMode, tbl, kHeightE, tblMeans);
        tblMode.dMuf = tbl.dFoeModes / tblMode.dCosIncidence;
        tblMode.tblDeciles = kDecilesE;
        tblMode.dOperational = tblMode.dMuf;
        tblMode.bReaches = n > tbl.nOrderE || dKm / n <= kControlShort;
        tbl.aModes[static_cast<std::size_t>(tbl.nModes++)] = tblMode;
    }
}

// Basic MUF of an F2 order beyond the reach of one hop.
double MufBeyondGet(const WayHour& tbl, int nHops, double dLowest)
{
    const double dHop = tbl.pWay->tblWay.dKm / nHops;
    if (nHops == tbl.nOrderF2)
        return dLowest;
    const double dHop0 = tbl.pWay->tblWay.dKm / tbl.nOrderF2;
    const auto fnRatio = [&](const F2Layer& tblLayer) {
        return F2MufGet(tblLayer, dHop, tblLayer.dRangeMost)
               / F2MufGet(tblLayer, dHop0, tblLayer.dRangeMost);
    };
    return dLowest * std::min(fnRatio(tbl.tblHopT), fnRatio(tbl.tblHopR));
}

// The reflection height beyond one hop: at the control point with the lowest foF2. As in the ITU
// program T + 1000 is not among them.
double HeightBeyondGet(const WayHour& tbl)
{
    WayPath& tblPath = *tbl.pWay;
    const F2Layer* pLowest = &tbl.tblMid;
    for (const F2Layer* pLayer : {&tbl.tblHopT, &tbl.tblHopR})
        if (pLayer->dFof2 < pLowest->dFof2)
            pLowest = pLayer;
    double dM3 = pLowest->dM3;
    if (tblPath.tblWay.dKm > kControlShort) {
        const F2Layer tblAhead =
            SiteLayerGet(*tblPath.pIonosphere, tbl.tblFoe, tblPath.tblAheadR, tbl.nLabel);
        if (tblAhead.dFof2 < pLowest->dFof2)
            dM3 = tblAhead.dM3;
    }
    return MirrorHeightSimpleGet(dM3);
}

void HopLayersFill(WayHour& tbl)
{
    WayPath& tblPath = *tbl.pWay;
    const auto nAt = static_cast<std::size_t>(tbl.nOrderF2);
    PathHopSitesMake(tblPath, tbl.nOrderF2);
    tbl.tblHopT = SiteLayerGet(*tblPath.pIonosphere, tbl.tblFoe, tblPath.aHopT[nAt], tbl.nLabel);
    tbl.tblHopR = SiteLayerGet(*tblPath.pIonosphere, tbl.tblFoe, tblPath.aHopR[nAt], tbl.nLabel);
}

// Decile factors and operational MUF of the F2 modes of a path.
void ModesVariabilityFill(WayHour& tbl, int nFirst)
{
    constexpr double kKilowattDbw = 30.0;
    const WayPath& tblPath = *tbl.pWay;
    const Ionosphere& tblIono = *tblPath.pIonosphere;
    const Place& tblMid = tblPath.tblMid.tblPlace;
    const Season eSeason = SeasonOfFour(tblIono.nMonth, tblMid.dSinLat >= 0.0);
    const DecileFactors tblDeciles = DecileFactorsGet(
        tblMid.dLat, DecileHourGet(tblIono, tbl.nLabel, tblMid.dLon), eSeason, tblIono.dSsn);
    const bool bDay = OperationalDayIs(tblIono, tbl.nLabel, tblMid);
    for (int i = nFirst; i < tbl.nModes; ++i) {
        Mode& tblMode = tbl.aModes[static_cast<std::size_t>(i)];
        const double dEirp =
            tblIono.quirks.bLowPower ? 0.0 : tblPath.dPowerDb + kKilowattDbw + tblMode.dTxGain;
        tblMode.tblDeciles = tblDeciles;
        tblMode.dOperational = tblMode.dMuf * OperationalRatioGet(eSeason, bDay, dEirp);
    }
}

// The lowest order's basic MUF beyond the reach of one hop, and the height of all; false within it.
bool BeyondFill(WayHour& tbl, double& dLowest)
{
    const double dKm = tbl.pWay->tblWay.dKm;
    if (dKm <= tbl.dRangeMost)
        return false;
    HopLayersFill(tbl);
    const double dHop0 = dKm / tbl.nOrderF2;
    dLowest = std::min(F2MufGet(tbl.tblHopT, dHop0, tbl.dRangeMost),
                       F2MufGet(tbl.tblHopR, dHop0, tbl.dRangeMost));
    tbl.dHeightF2 = HeightBeyondGet(tbl);
    return true;
}

void ModesF2Fill(WayHour& tbl)
{
    const WayPath& tblPath = *tbl.pWay;
    const bool bHopSum = tblPath.bHopSum;
    const double dKm = tblPath.tblWay.dKm;
    const bool bShort = dKm <= kLongOnly;  // the short method's own MUFs count
    tbl.dHeightF2 = MirrorHeightSimpleGet(tbl.tblMid.dM3);
    tbl.nOrderF2 = OrderLowestGet(tblPath, tbl.dHeightF2, bHopSum ? kOrderHopSumMost : kOrderMost);
    if (tbl.nOrderF2 == 0)
        return;
    double dLowest = 0.0;
    const bool bBeyond = BeyondFill(tbl, dLowest);
    const ControlMeans tblMeans = ControlMeansGet(tbl, bBeyond);
    const int nFirst = tbl.nModes;
    const int nLast = bHopSum ? std::max(kOrderMost, tbl.nOrderF2 + kHopSumMore) : kOrderMost;
    for (int n = tbl.nOrderF2; n <= nLast; ++n) {
        Mode tblMode;
        tblMode.nHops = n;
        tblMode.bReaches = n > tbl.nOrderF2 || dKm / n <= tbl.dRangeMost;
        if (bHopSum && tblMode.bReaches)
            tblMode.dWorst = PathWorstMufGet(*tbl.pWay, tbl.tblFoe, tbl.nLabel, n);
        tblMode.dMuf = !bShort   ? tblMode.dWorst
                       : bBeyond ? MufBeyondGet(tbl, n, dLowest)
                                 : F2MufGet(tbl.tblMid, dKm / n, tbl.dRangeMost);
        ModeRayFill(tblMode, tbl, tbl.dHeightF2, tblMeans);
        tbl.aModes[static_cast<std::size_t>(tbl.nModes++)] = tblMode;
    }
    if (bShort)
        ModesVariabilityFill(tbl, nFirst);
}

// Path values: basic MUF from the lowest modes, the rest from all of them.
void PathMufFill(Hour& tbl)
{
    const double dKm = tbl.pPath->tblWay.dKm;
    for (int i = 0; i < tbl.nModes; ++i) {
        const Mode& tblMode = tbl.aModes[static_cast<std::size_t>(i)];
        if (tblMode.nHops == (tblMode.bE ? tbl.nOrderE : tbl.nOrderF2))
            tbl.dMuf = std::max(tbl.dMuf, tblMode.dMuf);
        tbl.dMuf10 = std::max(tbl.dMuf10, tblMode.dMuf * tblMode.tblDeciles.dUpper);
        tbl.dMuf90 = std::max(tbl.dMuf90, tblMode.dMuf * tblMode.tblDeciles.dLower);
        tbl.dOperational = std::max(tbl.dOperational, tblMode.dOperational);
        tbl.dOperational10 =
            std::max(tbl.dOperational10, tblMode.dOperational * tblMode.tblDeciles.dUpper);
        tbl.dOperational90 =
            std::max(tbl.dOperational90, tblMode.dOperational * tblMode.tblDeciles.dLower);
    }
    if (dKm > kShortOnly && tbl.nOrderF2 > 0) {
        const double dHop = dKm / tbl.nOrderF2;
        const auto fnMuf = [&](const F2Layer& tblLayer) {
            return F2MufGet(tblLayer, dHop, std::min(tblLayer.dRangeMost, kRangeF2Most));
        };
        tbl.dMuf = std::min(fnMuf(tbl.tblHopT), fnMuf(tbl.tblHopR));
    }
}

void LongMufFill(Hour& tbl)
{
    const Path& tblPath = *tbl.pPath;
    const Ionosphere& tblIono = *tblPath.pIonosphere;
    const auto nPoint = static_cast<std::size_t>(tbl.tblLong.nSmaller);
    const DecileFactors tblDeciles = DecileFactorsGet(
        tblPath.tblLong.aLat[nPoint],
        DecileHourGet(tblIono, tbl.nLabel, tblPath.tblLong.aLon[nPoint]),
        SeasonOfFour(tblIono.nMonth, tblPath.tblMid.tblPlace.dSinLat >= 0.0), tblIono.dSsn);
    tbl.dMuf = tbl.tblLong.dBasic;
    tbl.dMuf10 = tbl.dMuf * tblDeciles.dUpper;
    tbl.dMuf90 = tbl.dMuf * tblDeciles.dLower;
    tbl.dOperational = tbl.tblLong.dUpper;
    tbl.dOperational10 = tbl.dOperational * tblDeciles.dUpper;
    tbl.dOperational90 = tbl.dOperational * tblDeciles.dLower;
}

// An hour of a way: limits of the long method, modes.
void WayHourFill(WayHour& tbl, WayPath& tblPath, int nLabel)
{
    const Ionosphere& tblIono = *tblPath.pIonosphere;
    const double dKm = tblPath.tblWay.dKm;
    assert(tblPath.nOnlyHour < 0 || tblPath.nOnlyHour == MapHourGet(nLabel));
    tbl.pWay = &tblPath;
    tbl.nLabel = nLabel;
    tbl.tblFoe = FoeHourGet(tblIono, nLabel);
    tbl.tblAbsorption = {&tblIono, tbl.tblFoe};
    tbl.nOrderF2 = tbl.nOrderE = tbl.nModes = tbl.nCrossings = 0;
    tbl.tblMid = SiteLayerGet(tblIono, tbl.tblFoe, tblPath.tblMid, nLabel);
    tbl.dRangeMost = std::min(tbl.tblMid.dRangeMost, kRangeF2Most);
    if (dKm >= kShortOnly)
        tbl.tblLong = LongHourGet(tblPath.tblLong, nLabel);
    if (dKm > kLongOnly && !tblPath.bHopSum)
        return;
    FoeFill(tbl);
    ModesEFill(tbl);
    ModesF2Fill(tbl);
}

}  // namespace

void HourFill(Hour& tbl, Path& tblPath, int nLabel)
{
    WayHourFill(tbl, tblPath, nLabel);
    tbl.pPath = &tblPath;
    tbl.tblNoise = NoiseHourGet(*tblPath.pIonosphere, tblPath.tblNoise, nLabel);
    tbl.dMuf = tbl.dMuf10 = tbl.dMuf90 = 0.0;
    tbl.dOperational = tbl.dOperational10 = tbl.dOperational90 = 0.0;
    for (std::size_t i = 0; i < tblPath.nBent; ++i)
        WayHourFill(tbl.aBent[i], tblPath.aBent[i], nLabel);
    if (tblPath.tblWay.dKm <= kLongOnly)
        PathMufFill(tbl);
    else
        LongMufFill(tbl);
}

}  // namespace rec533
