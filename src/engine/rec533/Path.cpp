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
    if (!tbl.pIonosphere->quirks.bNorthOnly)
        return std::any_of(aSin, aSin + 3, [](double dSin) { return std::abs(dSin) >= kSin60; });
    if (tbl.tblWay.dKm > kLongOnly) {
        const LongPath& tblLong = tbl.tblLong;
        aSin[1] = GeomagneticSinGet(tblLong.aLowPlaces[0]);
        aSin[2] = GeomagneticSinGet(
            tblLong.aLowPlaces[2 * static_cast<std::size_t>(tblLong.nLowHops) - 2]);
    }
    return std::any_of(aSin, aSin + 3, [](double dSin) { return dSin >= kSin60; });
}

// A control point, with the field along the way in place of its own.
void SiteOfWayFill(Site& tbl, const CrossingTrack& tblTrack, double dFraction)
{
    const Way& tblWay = tblTrack.tblWay;
    const double dAngle = dFraction * tblWay.dAngle;
    const double dCos = std::cos(dAngle);
    const double dSin = std::sin(dAngle);
    const std::size_t nArc = WayArcIndex(tblWay, dAngle);
    tbl.tblPlace = ArcPlace(tblWay.aArcs[nArc], dCos, dSin);
    tbl.bMap = false;
    tbl.dGyroDip = FieldTrackGyroDipGet(tblTrack.aFields[nArc], dCos, dSin);
    tbl.dGeomagneticSin = GeomagneticSinGet(tbl.tblPlace);
}

// The control points of a way whose geometry is there.
void WaySitesFill(WayPath& tbl)
{
    const double dKm = tbl.tblWay.dKm;
    tbl.tblTrack = CrossingTrackMake(tbl.tblWay);
    SiteOfWayFill(tbl.tblMid, tbl.tblTrack, 0.5);
    if (dKm > kControlShort) {
        SiteOfWayFill(tbl.tblAheadT, tbl.tblTrack, kControlAhead / dKm);
        SiteOfWayFill(tbl.tblAheadR, tbl.tblTrack, 1.0 - kControlAhead / dKm);
    }
    tbl.aHopMade.fill(false);
    tbl.tblMiddles.aMade.fill(false);
    if (dKm >= kShortOnly)
        LongPathFill(tbl.tblLong, *tbl.pIonosphere, tbl.tblWay);
}

// The ways bent to the right and to the left of a long path.
void BentWaysFill(Path& tbl)
{
    tbl.dBend = tbl.bHopSum ? WayBendGet(tbl.tblWay.dAngle) : 0.0;
    tbl.nBent = tbl.dBend > 0.0 ? tbl.aBent.size() : 0;
    for (std::size_t i = 0; i < tbl.nBent; ++i) {
        WayPath& tblBent = tbl.aBent[i];
        tblBent.pIonosphere = tbl.pIonosphere;
        tblBent.nOnlyHour = tbl.nOnlyHour;
        tblBent.pTx = tbl.pTx;
        tblBent.pRx = tbl.pRx;
        tblBent.dPowerDb = tbl.dPowerDb;
        tblBent.dLeastElevation = tbl.dLeastElevation;
        tblBent.bHopSum = true;
        tblBent.tblTxLow = tbl.tblTxLow;
        tblBent.tblRxLow = tbl.tblRxLow;
        tblBent.tblWay = WayBentMake(tbl.tblWay, tbl.dBend, i == 0 ? -1.0 : 1.0);
        WaySitesFill(tblBent);
        tblBent.tblLong.dGap = tbl.tblLong.dGap;
    }
}

}  // namespace

void PathFill(Path& tbl, const Ionosphere& tblIonosphere, const Circuit& tblCircuit, int nOnlyLabel)
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
    tbl.nOnlyHour = nOnlyLabel > 0 ? MapHourGet(nOnlyLabel) : -1;
    tbl.pTx = tblCircuit.pTx;
    tbl.pRx = tblCircuit.pRx;
    tbl.tblWay =
        WayMake(PlaceFromDegrees(tblCircuit.dTxLat, tblCircuit.dTxLon), tblRx, tblCircuit.bLongWay);
    tbl.bHopSum = tblIonosphere.eBehaviour == Behaviour::Best && tbl.tblWay.dKm > kShortOnly;
    WaySitesFill(tbl);
    BentWaysFill(tbl);
    tbl.tblNoise = NoisePlaceMake(tblRx);
    tbl.bHighLatitude = HighLatitudeIs(tbl);
}

void PathHopSitesMake(WayPath& tbl, int nOrder)
{
    const auto nAt = static_cast<std::size_t>(nOrder);
    if (tbl.aHopMade[nAt])
        return;
    const double dHalf = 0.5 / nOrder;
    SiteOfWayFill(tbl.aHopT[nAt], tbl.tblTrack, dHalf);
    SiteOfWayFill(tbl.aHopR[nAt], tbl.tblTrack, 1.0 - dHalf);
    tbl.aHopMade[nAt] = true;
}

}  // namespace rec533
