#include "engine/rec533/Path.h"

#include "engine/rec533/Reliability.h"

namespace rec533 {
namespace {

constexpr double kSin60 = 0.86602540378443865;

// Signals vary more at high latitudes. The ITU program checks only the northern side, and beyond
// 9000 km it checks the first crossing of 90 km and the last hop's first one instead of T + 1000
// and R - 1000.
bool HighLatitudeIs(const Path& path)
{
    if (path.way.dKm <= kControlShort)
        return false;
    double aSin[3]{path.mid.dGeomagneticSin, path.aheadT.dGeomagneticSin,
                   path.aheadR.dGeomagneticSin};
    if (!path.pIonosphere->quirks.bNorthOnly)
        return std::any_of(aSin, aSin + 3, [](double dSin) { return std::abs(dSin) >= kSin60; });
    if (path.way.dKm > kLongOnly) {
        const LongPath& longPath = path.longPath;
        aSin[1] = GeomagneticSinGet(longPath.aLowPlaces[0]);
        aSin[2] = GeomagneticSinGet(
            longPath.aLowPlaces[2 * static_cast<std::size_t>(longPath.nLowHops) - 2]);
    }
    return std::any_of(aSin, aSin + 3, [](double dSin) { return dSin >= kSin60; });
}

// A control point, with the field along the way instead of its own.
void SiteOfWayFill(Site& site, const CrossingTrack& track, double dFraction)
{
    const Way& way = track.way;
    const double dAngle = dFraction * way.dAngle;
    const double dCos = std::cos(dAngle);
    const double dSin = std::sin(dAngle);
    const std::size_t nArc = WayArcIndex(way, dAngle);
    site.place = ArcPlace(way.aArcs[nArc], dCos, dSin);
    site.bMap = false;
    site.dGyroDip = FieldTrackGyroDipGet(track.aFields[nArc], dCos, dSin);
    site.dGeomagneticSin = GeomagneticSinGet(site.place);
}

// The control points of a way whose geometry is complete.
void WaySitesFill(WayPath& wayPath)
{
    const double dKm = wayPath.way.dKm;
    wayPath.track = CrossingTrackMake(wayPath.way);
    SiteOfWayFill(wayPath.mid, wayPath.track, 0.5);
    if (dKm > kControlShort) {
        SiteOfWayFill(wayPath.aheadT, wayPath.track, kControlAhead / dKm);
        SiteOfWayFill(wayPath.aheadR, wayPath.track, 1.0 - kControlAhead / dKm);
    }
    wayPath.anHopMade.fill(0);
    wayPath.middles.aMade.fill(false);
    if (dKm >= kShortOnly)
        LongPathFill(wayPath.longPath, *wayPath.pIonosphere, wayPath.way);
}

// The ways bent to the right and to the left of a long path.
void BentWaysFill(Path& path)
{
    path.dBend = path.bHopSum ? WayBendGet(path.way.dAngle) : 0.0;
    path.nBent = path.dBend > 0.0 ? path.aBent.size() : 0;
    for (std::size_t i = 0; i < path.nBent; ++i) {
        WayPath& bent = path.aBent[i];
        bent.pIonosphere = path.pIonosphere;
        bent.nOnlyHour = path.nOnlyHour;
        bent.pTx = path.pTx;
        bent.pRx = path.pRx;
        bent.dPowerDb = path.dPowerDb;
        bent.dLeastElevation = path.dLeastElevation;
        bent.bHopSum = true;
        bent.txLow = path.txLow;
        bent.rxLow = path.rxLow;
        bent.way = WayBentMake(path.way, path.dBend, i == 0 ? -1.0 : 1.0);
        WaySitesFill(bent);
        bent.longPath.dGap = path.longPath.dGap;
    }
}

}  // namespace

void PathFill(Path& path, const Ionosphere& ionosphere, const Circuit& circuit, int nOnlyLabel)
{
    constexpr double kShareLeast = 1.0;
    constexpr double kShareMost = 99.0;
    constexpr double kElevationMost = 60.0;  // degrees
    path.pIonosphere = &ionosphere;
    path.circuit = circuit;
    path.circuit.dRequiredReliability =
        std::clamp(circuit.dRequiredReliability, kShareLeast, kShareMost);
    path.circuit.dLeastElevation = std::clamp(circuit.dLeastElevation, 0.0, kElevationMost);
    path.dLeastElevation = path.circuit.dLeastElevation * kRadians;
    path.txLow = AntennaLowGet(circuit.pTx, path.circuit.dLeastElevation);
    path.rxLow = AntennaLowGet(circuit.pRx, path.circuit.dLeastElevation);
    path.dShareQuantile = ShareQuantileGet(path.circuit.dRequiredReliability);
    path.dPowerDb = DbFromPower(circuit.dPowerKw);
    const Place rx = PlaceFromDegrees(circuit.dRxLat, circuit.dRxLon);
    path.nOnlyHour = nOnlyLabel > 0 ? MapHourGet(nOnlyLabel) : -1;
    path.pTx = circuit.pTx;
    path.pRx = circuit.pRx;
    path.way = WayMake(PlaceFromDegrees(circuit.dTxLat, circuit.dTxLon), rx, circuit.bLongWay);
    path.bHopSum = ionosphere.eBehaviour == Behaviour::Best && path.way.dKm > kShortOnly;
    WaySitesFill(path);
    BentWaysFill(path);
    path.noise = NoisePlaceMake(rx);
    path.bHighLatitude = HighLatitudeIs(path);
}

std::size_t PathHopSitesMake(WayPath& wayPath, int nOrder)
{
    const auto nAt = static_cast<std::size_t>(nOrder <= kHopsKept ? nOrder : 0);
    if (wayPath.anHopMade[nAt] == nOrder)
        return nAt;
    const double dHalf = 0.5 / nOrder;
    SiteOfWayFill(wayPath.aHopT[nAt], wayPath.track, dHalf);
    SiteOfWayFill(wayPath.aHopR[nAt], wayPath.track, 1.0 - dHalf);
    wayPath.anHopMade[nAt] = nOrder;
    return nAt;
}

}  // namespace rec533
