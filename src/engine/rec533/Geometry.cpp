#include "engine/rec533/Geometry.h"

namespace rec533 {
namespace {

constexpr double kCosLatLeast = 1e-9;
constexpr double kAngleLeast = 1e-10;  // used for a path of zero length, radians

using Vector = std::array<double, 3>;

Vector VectorGet(const Place& place)
{
    return {place.dCosLat * place.dCosLon, place.dCosLat * place.dSinLon, place.dSinLat};
}

// A direction at the start if the ends do not give one: north, or along longitude 0 at a pole.
Vector AheadAnyGet(const Place& place)
{
    return {-place.dSinLat * place.dCosLon, -place.dSinLat * place.dSinLon, place.dCosLat};
}

Vector VectorMix(const Vector& aA, double dA, const Vector& aB, double dB)
{
    return {aA[0] * dA + aB[0] * dB, aA[1] * dA + aB[1] * dB, aA[2] * dA + aB[2] * dB};
}

}  // namespace

Place PlaceFromDegrees(double dLat, double dLon)
{
    Place place;
    place.dLat = dLat * kRadians;
    place.dLon = dLon * kRadians;
    place.dSinLat = std::sin(place.dLat);
    place.dCosLat = std::max(std::cos(place.dLat), kCosLatLeast);
    place.dSinLon = std::sin(place.dLon);
    place.dCosLon = std::cos(place.dLon);
    return place;
}

Way WayMake(const Place& placeFrom, const Place& placeTo, bool bLongWay)
{
    Way way;
    way.placeFrom = placeFrom;
    way.placeTo = placeTo;
    const double dSinLat = std::sin((placeFrom.dLat - placeTo.dLat) / 2.0);
    const double dSinLon = std::sin((placeFrom.dLon - placeTo.dLon) / 2.0);
    const double dChord =
        std::sqrt(dSinLat * dSinLat + placeFrom.dCosLat * placeTo.dCosLat * dSinLon * dSinLon);
    const double dShort = std::max(2.0 * std::asin(std::min(dChord, 1.0)), kAngleLeast);
    way.dAngle = bLongWay ? 2.0 * kPi - dShort : dShort;
    way.dKm = way.dAngle * kEarthKm;

    const double dCos = std::cos(dShort);
    Arc arc;
    arc.aStart = VectorGet(placeFrom);
    arc.aAhead = VectorMix(VectorGet(placeTo), 1.0, arc.aStart, -dCos);
    double dLength = 0.0;
    for (const double dPart : arc.aAhead) dLength += dPart * dPart;
    dLength = std::sqrt(dLength);
    if (dLength < 1e-9) {
        arc.aAhead = AheadAnyGet(placeFrom);
        dLength = 1.0;
    }
    for (double& dPart : arc.aAhead) dPart *= (bLongWay ? -1.0 : 1.0) / dLength;
    way.aArcs = {arc, arc};
    return way;
}

double WayBendGet(double dAngle)
{
    constexpr double kFromKm = 12000.0;
    constexpr double kWholeKm = 2000.0;  // the bend is complete this much further on
    constexpr double kBendMost = kPi / 30.0;
    const double dBend = kBendMost * std::clamp((dAngle * kEarthKm - kFromKm) / kWholeKm, 0.0, 1.0);
    return std::asin(std::min(1.0, std::sin(dBend / 2.0) * std::abs(std::tan(dAngle / 2.0))));
}

Way WayBentMake(const Way& straight, double dBend, double dSide)
{
    const auto& [aStart, aAhead] = straight.aArcs[0];
    const Vector aLeft{aStart[1] * aAhead[2] - aStart[2] * aAhead[1],
                       aStart[2] * aAhead[0] - aStart[0] * aAhead[2],
                       aStart[0] * aAhead[1] - aStart[1] * aAhead[0]};
    const double dCosAll = std::cos(straight.dAngle);
    const double dSinAll = std::sin(straight.dAngle);
    // The middle seen from an end: along the straight way and to the side.
    const double dAlong = std::sin(straight.dAngle / 2.0) * std::cos(dBend);
    const double dAside = dSide * std::sin(dBend);
    const double dSinHalf = std::max(std::hypot(dAlong, dAside), 1e-15);
    const double dHalf = std::atan2(dSinHalf, std::cos(straight.dAngle / 2.0) * std::cos(dBend));
    Way way = straight;
    way.bBent = true;
    way.dAngle = 2.0 * dHalf;
    way.dKm = way.dAngle * kEarthKm;
    way.aArcs[0].aAhead = VectorMix(aAhead, dAlong / dSinHalf, aLeft, dAside / dSinHalf);
    // The second half is made backwards from its end, then reversed.
    const Vector aEnd = VectorMix(aStart, dCosAll, aAhead, dSinAll);
    const Vector aBack = VectorMix(VectorMix(aStart, dSinAll, aAhead, -dCosAll), dAlong / dSinHalf,
                                   aLeft, dAside / dSinHalf);
    const double dCos = std::cos(way.dAngle);
    const double dSin = std::sin(way.dAngle);
    way.aArcs[1].aStart = VectorMix(aEnd, dCos, aBack, dSin);
    way.aArcs[1].aAhead = VectorMix(aEnd, dSin, aBack, -dCos);
    return way;
}

Place WayPlace(const Way& way, double dFraction)
{
    const double dAngle = dFraction * way.dAngle;
    return ArcPlace(WayArcGet(way, dAngle), std::cos(dAngle), std::sin(dAngle));
}

Place ArcPlace(const Arc& arc, double dCos, double dSin)
{
    const Vector aPlace = VectorMix(arc.aStart, dCos, arc.aAhead, dSin);
    const double dX = aPlace[0];
    const double dY = aPlace[1];
    const double dZ = aPlace[2];
    Place place;
    const double dFlat = std::sqrt(dX * dX + dY * dY);
    place.dCosLat = std::max(dFlat, kCosLatLeast);
    place.dSinLat = dZ;
    place.dLat = std::atan2(dZ, dFlat);
    place.dLon = std::atan2(dY, dX);
    place.dSinLon = dFlat > 0.0 ? dY / dFlat : 0.0;
    place.dCosLon = dFlat > 0.0 ? dX / dFlat : 1.0;
    return place;
}

double BearingGet(const Place& placeFrom, const Place& placeTo)
{
    const double dLon = placeTo.dLon - placeFrom.dLon;
    const double dBearing = std::atan2(
        std::sin(dLon) * placeTo.dCosLat,
        placeFrom.dCosLat * placeTo.dSinLat - placeFrom.dSinLat * placeTo.dCosLat * std::cos(dLon));
    return dBearing < 0.0 ? dBearing + 2.0 * kPi : dBearing;
}

double ElevationGet(double dHopKm, double dHeightKm)
{
    const double dHalf = dHopKm / (2.0 * kEarthKm);
    const double dSin = std::sin(dHalf);
    return std::atan(std::cos(dHalf) / dSin - kEarthKm / (kEarthKm + dHeightKm) / dSin);
}

double IncidenceGet(double dElevation, double dHeightKm)
{
    return std::asin(kEarthKm * std::cos(dElevation) / (kEarthKm + dHeightKm));
}

double IncidenceCosGet(double dElevation, double dHeightKm)
{
    const double dSin = kEarthKm * std::cos(dElevation) / (kEarthKm + dHeightKm);
    return std::sqrt(1.0 - dSin * dSin);
}

double SlantRangeGet(double dPathKm, int nHops, double dElevation)
{
    const double dHalf = dPathKm / nHops / (2.0 * kEarthKm);
    return nHops * std::abs(2.0 * kEarthKm * std::sin(dHalf) / std::cos(dElevation + dHalf));
}

double HopLongestGet(double dElevation, double dHeightKm)
{
    return 2.0 * kEarthKm * (kPi / 2.0 - dElevation - IncidenceGet(dElevation, dHeightKm));
}

double GeomagneticSinGet(const Place& place)
{
    constexpr double kSinPole = 0.9799247043087094;  // 78.5 degrees
    constexpr double kCosPole = 0.19936793595131713;
    constexpr double kSinPoleLon = -0.928485826375804;  // -68.2 degrees
    constexpr double kCosPoleLon = 0.3713678368130989;
    const double dCosLon = place.dCosLon * kCosPoleLon + place.dSinLon * kSinPoleLon;
    return std::clamp(place.dSinLat * kSinPole + place.dCosLat * kCosPole * dCosLon, -1.0, 1.0);
}

}  // namespace rec533
