#include "engine/rec533/Path.h"

#include "engine/rec533/Reliability.h"

namespace rec533 {
namespace {

constexpr double kSin60 = 0.86602540378443865;

// Signals vary more at high latitudes. The ITU program looks at the northern side alone, and beyond
// 9000 km at the first crossing of 90 km and the last hop's first one instead of T + 1000 and R -
// 1000.
bool HighLatitudeIs(const Path& tbl)
{
    if (tbl.tblWay.dKm <= kControlShort)
        return false;
    double aSin[3]{tbl.tblMid.dGeomagneticSin, tbl.tblAheadT.dGeomagneticSin,
                   tbl.tblAheadR.dGeomagneticSin};
    if (!tbl.pIonosphere->bReference)
        return std::any_of(aSin, aSin + 3, [](double dSin) { return std::abs(dSin) >= kSin60; });
    if (tbl.tblWay.dKm > kLongOnly) {
        const LongPath& tblLong = tbl.tblLong;
        aSin[1] = GeomagneticSinGet(tblLong.aLowPlaces[0]);
        aSin[2] = GeomagneticSinGet(
            tblLong.aLowPlaces[2 * static_cast<std::size_t>(tblLong.nLowHops) - 2]);
    }
    return std::any_of(aSin, aSin + 3, [](double dSin) { return dSin >= kSin60; });
}

}  // namespace

void PathFill(Path& tbl, const Ionosphere& tblIonosphere, const Circuit& tblCircuit)
{
    constexpr double kShareLeast = 1.0;
    constexpr double kShareMost = 99.0;
    constexpr double kElevationMost = 60.0;  // degrees
    tbl.pIonosphere = &tblIonosphere;
    tbl.tblCircuit = tblCircuit;
    tbl.tblCircuit.dRequiredReliability =
        std::clamp(tblCircuit.dRequiredReliability, kShareLeast, kShareMost);
    tbl.tblCircuit.dLeastElevation = std::clamp(tblCircuit.dLeastElevation, 0.0, kElevationMost);
    tbl.dLeastElevation = tbl.tblCircuit.dLeastElevation * kRadians;
    tbl.tblTxLow = AntennaLowGet(tblCircuit.pTx, tbl.tblCircuit.dLeastElevation);
    tbl.tblRxLow = AntennaLowGet(tblCircuit.pRx, tbl.tblCircuit.dLeastElevation);
    tbl.dShareQuantile = ShareQuantileGet(tbl.tblCircuit.dRequiredReliability);
    tbl.dPowerDb = DbFromPower(tblCircuit.dPowerKw);
    const Place tblRx = PlaceFromDegrees(tblCircuit.dRxLat, tblCircuit.dRxLon);
    tbl.tblWay = GreatCircleMake(PlaceFromDegrees(tblCircuit.dTxLat, tblCircuit.dTxLon), tblRx,
                                 tblCircuit.bLongWay);
    tbl.tblTrack = CrossingTrackMake(tbl.tblWay);
    const double dKm = tbl.tblWay.dKm;
    SiteFill(tbl.tblMid, GreatCirclePlace(tbl.tblWay, 0.5));
    if (dKm > kControlShort) {
        SiteFill(tbl.tblAheadT, GreatCirclePlace(tbl.tblWay, kControlAhead / dKm));
        SiteFill(tbl.tblAheadR, GreatCirclePlace(tbl.tblWay, 1.0 - kControlAhead / dKm));
    }
    tbl.aHopMade.fill(false);
    tbl.tblNoise = NoisePlaceMake(tblRx);
    if (dKm >= kShortOnly)
        LongPathFill(tbl.tblLong, tblIonosphere, tbl.tblWay);
    tbl.bHighLatitude = HighLatitudeIs(tbl);
}

void PathHopSitesMake(Path& tbl, int nOrder)
{
    const auto nAt = static_cast<std::size_t>(nOrder);
    if (tbl.aHopMade[nAt])
        return;
    const double dHalf = 0.5 / nOrder;
    SiteFill(tbl.aHopT[nAt], GreatCirclePlace(tbl.tblWay, dHalf));
    SiteFill(tbl.aHopR[nAt], GreatCirclePlace(tbl.tblWay, 1.0 - dHalf));
    tbl.aHopMade[nAt] = true;
}

}  // namespace rec533
