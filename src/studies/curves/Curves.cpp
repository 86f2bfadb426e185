#include "studies/curves/Curves.h"

#include <algorithm>
#include <cmath>

#include "geo/SunLib.h"
#include "propagation/SnrScale.h"

namespace {

/// A frequency in kHz; engines print 0 or less if they find none.
float FrequencyOf(float fKilohertz)
{
    return fKilohertz > 0.0F ? fKilohertz : PropagationTable::kNotPrinted;
}

DayCurve CurveOf(const HourArray<float>& afHour)
{
    DayCurve af{};
    for (std::size_t n = 0; n < kCurveHours; ++n)
        af.at(n) = FrequencyOf(afHour[static_cast<int>(n) + 1]);
    return af;
}

CurveRibbon RibbonOf(const PropagationTable& table, int iFrequency)
{
    CurveRibbon ribbon;
    ribbon.iFrequency = iFrequency;
    ribbon.fFrequency = table.request.FrequencyGet(iFrequency);
    for (std::size_t n = 0; n < kCurveHours; ++n) {
        const float fSnr = table.fSnr(static_cast<int>(n) + 1, iFrequency);
        ribbon.afSnr.at(n) = SnrIs(fSnr) ? fSnr : PropagationTable::kNotPrinted;
    }
    return ribbon;
}

SunCurve SunOf(const LatLon& pos, int nMonth)
{
    SunCurve af{};
    for (std::size_t n = 0; n < af.size(); ++n)
        af.at(n) =
            static_cast<float>(SunHeightGet(pos, nMonth, static_cast<double>(n) / kSunStepsAnHour));
    return af;
}

}  // namespace

double SunHeightGet(const LatLon& pos, int nMonth, double dHour)
{
    const Vector3 vecPlace = VectorFrom(pos);
    const Vector3 vecSun = VectorFrom(SunGetPosition(nMonth, dHour));
    const double dSine =
        vecPlace.dX * vecSun.dX + vecPlace.dY * vecSun.dY + vecPlace.dZ * vecSun.dZ;
    return std::asin(std::clamp(dSine, -1.0, 1.0)) / kRadiansPerDegree;
}

DayCurves DayCurvesGet(const PropagationTable& table)
{
    DayCurves curves;
    curves.afMuf = CurveOf(table.fMUF);
    curves.afFot = CurveOf(table.fFOT);
    curves.afLuf = CurveOf(table.fLUF);
    for (int i = 1; i <= table.nData; ++i)
        if (table.PresentIs(i))
            curves.aRibbons.push_back(RibbonOf(table, i));
    const Request& request = table.request;
    curves.afSunTx = SunOf({request.dTxLat, request.dTxLon}, request.nMonth);
    curves.afSunRc = SunOf({request.dRcLat, request.dRcLon}, request.nMonth);
    return curves;
}
