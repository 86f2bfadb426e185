#include "engine/rec533/Geometry.h"

namespace rec533 {
namespace {

constexpr double kCosLatLeast = 1e-9;
constexpr double kAngleLeast = 1e-10;  // stands for a path of no length, radians

void VectorGet(const Place& tblPlace, double (&aVector)[3])
{
    aVector[0] = tblPlace.dCosLat * tblPlace.dCosLon;
    aVector[1] = tblPlace.dCosLat * tblPlace.dSinLon;
    aVector[2] = tblPlace.dSinLat;
}

// A direction at the start when the ends do not give one: north, or along longitude 0 at a pole.
void AheadAnyGet(const Place& tblPlace, double (&aAhead)[3])
{
    aAhead[0] = -tblPlace.dSinLat * tblPlace.dCosLon;
    aAhead[1] = -tblPlace.dSinLat * tblPlace.dSinLon;
    aAhead[2] = tblPlace.dCosLat;
}

}  // namespace

Place PlaceFromDegrees(double dLat, double dLon)
{
    Place tbl;
    tbl.dLat = dLat * kRadians;
    tbl.dLon = dLon * kRadians;
    tbl.dSinLat = std::sin(tbl.dLat);
    tbl.dCosLat = std::max(std::cos(tbl.dLat), kCosLatLeast);
    tbl.dSinLon = std::sin(tbl.dLon);
    tbl.dCosLon = std::cos(tbl.dLon);
    return tbl;
}

GreatCircle GreatCircleMake(const Place& tblFrom, const Place& tblTo, bool bLongWay)
{
    GreatCircle tbl{.tblFrom = tblFrom, .tblTo = tblTo, .aStart = {}, .aAhead = {}};
    const double dSinLat = std::sin((tblFrom.dLat - tblTo.dLat) / 2.0);
    const double dSinLon = std::sin((tblFrom.dLon - tblTo.dLon) / 2.0);
    const double dChord =
        std::sqrt(dSinLat * dSinLat + tblFrom.dCosLat * tblTo.dCosLat * dSinLon * dSinLon);
    const double dShort = std::max(2.0 * std::asin(std::min(dChord, 1.0)), kAngleLeast);
    tbl.dAngle = bLongWay ? 2.0 * kPi - dShort : dShort;
    tbl.dKm = tbl.dAngle * kEarthKm;

    double aEnd[3];
    VectorGet(tblFrom, tbl.aStart);
    VectorGet(tblTo, aEnd);
    const double dCos = std::cos(dShort);
    double dLength = 0.0;
    for (int i = 0; i < 3; ++i) {
        tbl.aAhead[i] = aEnd[i] - dCos * tbl.aStart[i];
        dLength += tbl.aAhead[i] * tbl.aAhead[i];
    }
    dLength = std::sqrt(dLength);
    if (dLength < 1e-9) {
        AheadAnyGet(tblFrom, tbl.aAhead);
        dLength = 1.0;
    }
    for (double& dPart : tbl.aAhead) dPart *= (bLongWay ? -1.0 : 1.0) / dLength;
    return tbl;
}

Place GreatCirclePlace(const GreatCircle& tblPath, double dFraction)
{
    return GreatCirclePlaceAt(tblPath, std::cos(dFraction * tblPath.dAngle),
                              std::sin(dFraction * tblPath.dAngle));
}

Place GreatCirclePlaceAt(const GreatCircle& tblPath, double dCos, double dSin)
{
    const double dX = tblPath.aStart[0] * dCos + tblPath.aAhead[0] * dSin;
    const double dY = tblPath.aStart[1] * dCos + tblPath.aAhead[1] * dSin;
    const double dZ = tblPath.aStart[2] * dCos + tblPath.aAhead[2] * dSin;
    Place tbl;
    const double dFlat = std::sqrt(dX * dX + dY * dY);
    tbl.dCosLat = std::max(dFlat, kCosLatLeast);
    tbl.dSinLat = dZ;
    tbl.dLat = std::atan2(dZ, dFlat);
    tbl.dLon = std::atan2(dY, dX);
    tbl.dSinLon = dFlat > 0.0 ? dY / dFlat : 0.0;
    tbl.dCosLon = dFlat > 0.0 ? dX / dFlat : 1.0;
    return tbl;
}

double BearingGet(const Place& tblFrom, const Place& tblTo)
{
    const double dLon = tblTo.dLon - tblFrom.dLon;
    const double dBearing = std::atan2(
        std::sin(dLon) * tblTo.dCosLat,
        tblFrom.dCosLat * tblTo.dSinLat - tblFrom.dSinLat * tblTo.dCosLat * std::cos(dLon));
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

double GeomagneticSinGet(const Place& tblPlace)
{
    constexpr double kSinPole = 0.9799247043087094;  // 78.5 degrees
    constexpr double kCosPole = 0.19936793595131713;
    constexpr double kSinPoleLon = -0.928485826375804;  // -68.2 degrees
    constexpr double kCosPoleLon = 0.3713678368130989;
    const double dCosLon = tblPlace.dCosLon * kCosPoleLon + tblPlace.dSinLon * kSinPoleLon;
    return std::clamp(tblPlace.dSinLat * kSinPole + tblPlace.dCosLat * kCosPole * dCosLon, -1.0,
                      1.0);
}

}  // namespace rec533
