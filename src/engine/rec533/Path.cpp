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
    if (tbl.way.dKm <= kControlShort)
        return false;
    double aSin[3]{tbl.mid.dGeomagneticSin, tbl.aheadT.dGeomagneticSin, tbl.aheadR.dGeomagneticSin};
    if (!tbl.pIonosphere->quirks.bNorthOnly)
        return std::any_of(aSin, aSin + 3, [](double dSin) { return std::abs(dSin) >= kSin60; });
    if (tbl.way.dKm > kLongOnly) {
        const LongPath& longPath = tbl.longPath;
        aSin[1] = GeomagneticSinGet(longPath.aLowPlaces[0]);
        aSin[2] = GeomagneticSinGet(
            longPath.aLowPlaces[2 * static_cast<std::size_t>(longPath.nLowHops) - 2]);
    }
    return std::any_of(aSin, aSin + 3, [](double dSin) { return dSin >= kSin60; });
}

// A control point, with the field along the way in place of its own.
void SiteOfWayFill(Site& tbl, const CrossingTrack& track, double dFraction)
{
    const Way& way = track.way;
    const double dAngle = dFraction * way.dAngle;
    const double dCos = std::cos(dAngle);
    const double dSin = std::sin(dAngle);
    const std::size_t nArc = WayArcIndex(way, dAngle);
    tbl.place = ArcPlace(way.aArcs[nArc], dCos, dSin);
    tbl.bMap = false;
    tbl.dGyroDip = FieldTrackGyroDipGet(track.aFields[nArc], dCos, dSin);
    tbl.dGeomagneticSin = GeomagneticSinGet(tbl.place);
}

// The control points of a way whose geometry is there.
void WaySitesFill(WayPath& tbl)
{
    const double dKm = tbl.way.dKm;
    tbl.track = CrossingTrackMake(tbl.way);
    SiteOfWayFill(tbl.mid, tbl.track, 0.5);
    if (dKm > kControlShort) {
        SiteOfWayFill(tbl.aheadT, tbl.track, kControlAhead / dKm);
        SiteOfWayFill(tbl.aheadR, tbl.track, 1.0 - kControlAhead / dKm);
    }
    tbl.aHopMade.fill(false);
    tbl.middles.aMade.fill(false);
    if (dKm >= kShortOnly)
        LongPathFill(tbl.longPath, *tbl.pIonosphere, tbl.way);
}

// The ways bent to the right and to the left of a long path.
void BentWaysFill(Path& tbl)
{
    tbl.dBend = tbl.bHopSum ? WayBendGet(tbl.way.dAngle) : 0.0;
    tbl.nBent = tbl.dBend > 0.0 ? tbl.aBent.size() : 0;
    for (std::size_t i = 0; i < tbl.nBent; ++i) {
        WayPath& bent = tbl.aBent[i];
        bent.pIonosphere = tbl.pIonosphere;
        bent.nOnlyHour = tbl.nOnlyHour;
        bent.pTx = tbl.pTx;
        bent.pRx = tbl.pRx;
        bent.dPowerDb = tbl.dPowerDb;
        bent.dLeastElevation = tbl.dLeastElevation;
        bent.bHopSum = true;
        bent.txLow = tbl.txLow;
        bent.rxLow = tbl.rxLow;
        bent.way = WayBentMake(tbl.way, tbl.dBend, i == 0 ? -1.0 : 1.0);
        WaySitesFill(bent);
        bent.longPath.dGap = tbl.longPath.dGap;
    }
}

}  // namespace

void PathFill(Path& tbl, const Ionosphere& ionosphere, const Circuit& circuit, int nOnlyLabel)
{
    constexpr double kShareLeast = 1.0;
    constexpr double kShareMost = 99.0;
    constexpr double kElevationMost = 60.0;  // degrees
    tbl.pIonosphere = &ionosphere;
    tbl.circuit = circuit;
    tbl.circuit.dRequiredReliability =
        std::clamp(circuit.dRequiredReliability, kShareLeast, kShareMost);
    tbl.circuit.dLeastElevation = std::clamp(circuit.dLeastElevation, 0.0, kElevationMost);
    tbl.dLeastElevation = tbl.circuit.dLeastElevation * kRadians;
    tbl.txLow = AntennaLowGet(circuit.pTx, tbl.circuit.dLeastElevation);
    tbl.rxLow = AntennaLowGet(circuit.pRx, tbl.circuit.dLeastElevation);
    tbl.dShareQuantile = ShareQuantileGet(tbl.circuit.dRequiredReliability);
    tbl.dPowerDb = DbFromPower(circuit.dPowerKw);
    const Place rx = PlaceFromDegrees(circuit.dRxLat, circuit.dRxLon);
    tbl.nOnlyHour = nOnlyLabel > 0 ? MapHourGet(nOnlyLabel) : -1;
    tbl.pTx = circuit.pTx;
    tbl.pRx = circuit.pRx;
    tbl.way = WayMake(PlaceFromDegrees(circuit.dTxLat, circuit.dTxLon), rx, circuit.bLongWay);
    tbl.bHopSum = ionosphere.eBehaviour == Behaviour::Best && tbl.way.dKm > kShortOnly;
    WaySitesFill(tbl);
    BentWaysFill(tbl);
    tbl.noise = NoisePlaceMake(rx);
    tbl.bHighLatitude = HighLatitudeIs(tbl);
}

void PathHopSitesMake(WayPath& tbl, int nOrder)
{
    const auto nAt = static_cast<std::size_t>(nOrder);
    if (tbl.aHopMade[nAt])
        return;
    const double dHalf = 0.5 / nOrder;
    SiteOfWayFill(tbl.aHopT[nAt], tbl.track, dHalf);
    SiteOfWayFill(tbl.aHopR[nAt], tbl.track, 1.0 - dHalf);
    tbl.aHopMade[nAt] = true;
}

}  // namespace rec533
