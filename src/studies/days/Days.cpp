#include "studies/days/Days.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"

namespace {

constexpr double kDecile = 1.2815515655446004;  // standard deviations from the median

/// Fraction of a normal distribution below dDeviations.
double NormalShare(double dDeviations)
{
    return 0.5 * std::erfc(-dDeviations / std::numbers::sqrt2);
}

double MedianGet(const PropagationTable& table, int iHour, int iFrequency)
{
    const float fMedian = table.fSnrMedian(iHour, iFrequency);
    if (!std::isnan(fMedian))
        return fMedian;
    return double{table.fSdBW(iHour, iFrequency)} - double{table.fNdBW(iHour, iFrequency)};
}

}  // namespace

DaySteps DayStepsOf(int iModel)
{
    return iModel == kEngineRec533 ? DaySteps::P842 : DaySteps::HalfNormals;
}

std::optional<SnrDays> SnrDaysGet(const PropagationTable& table, int iHour, int iFrequency)
{
    if (!table.PresentIs(iFrequency))
        return {};
    return SnrDaysOf(table.fSnr(iHour, iFrequency), MedianGet(table, iHour, iFrequency),
                     table.fSnrLower(iHour, iFrequency), table.fSnrUpper(iHour, iFrequency));
}

std::optional<SnrDays> SnrDaysOf(float fSnr, double dMedian, double dLower, double dUpper)
{
    // Not-a-number is neither above 0 nor finite.
    if (!SnrIs(fSnr) || !(dLower > 0.0) || !(dUpper > 0.0) || !std::isfinite(dMedian))
        return {};
    return SnrDays{dMedian, dLower, dUpper};
}

double DaysShareGet(const SnrDays& days, double dNeed, DaySteps eSteps)
{
    const double dOver = days.dMedian - dNeed;
    const double dInDeciles = dOver / (dOver >= 0.0 ? days.dLower : days.dUpper);
    if (eSteps == DaySteps::HalfNormals)
        return NormalShare(dInDeciles * kDecile);
    return dOver >= 0.0 ? std::min(1.0, 1.3 - 0.8 / (1.0 + dInDeciles))
                        : std::max(0.0, 0.8 / (1.0 - dInDeciles) - 0.3);
}

int DaysCell::DaysInTenGet() const
{
    return std::isnan(fShare) ? -1 : RoundHalfEven(fShare * 10.0);
}

CellArray<DaysCell> DaysGet(const PropagationTable& table, double dNeed)
{
    CellArray<DaysCell> aCells(table.nData);
    const DaySteps eSteps = DayStepsOf(table.request.iModel);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        for (int i = 1; i <= table.nData; ++i) {
            const auto days = SnrDaysGet(table, iHour, i);
            if (!days)
                continue;
            aCells(iHour, i) = {static_cast<float>(DaysShareGet(*days, dNeed, eSteps)),
                                static_cast<float>(days->dMedian - days->dLower),
                                static_cast<float>(days->dMedian),
                                static_cast<float>(days->dMedian + days->dUpper)};
        }
    }
    return aCells;
}

bool DaysArePrinted(const PropagationTable& table)
{
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        for (int i = 1; i <= table.nData; ++i)
            if (SnrDaysGet(table, iHour, i))
                return true;
    return false;
}

std::array<Request, 3> DaysRequestsGet(const Request& request)
{
    std::array<Request, 3> aRequests{request, request, request};
    aRequests[0].fReliability = 10.0F;
    aRequests[1].fReliability = 50.0F;
    aRequests[2].fReliability = 90.0F;
    return aRequests;
}

PropagationTable DaysJoin(const PropagationTable& tableGood, const PropagationTable& tableMedian,
                          const PropagationTable& tableBad)
{
    PropagationTable table = tableMedian;
    for (int i = 1; i <= table.nData; ++i) {
        const bool bPresent = tableGood.PresentIs(i) && table.PresentIs(i) && tableBad.PresentIs(i);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const float fGood = tableGood.fSnr(iHour, i);
            const float fMedian = table.fSnr(iHour, i);
            const float fBad = tableBad.fSnr(iHour, i);
            const bool bSnr = bPresent && SnrIs(fGood) && SnrIs(fMedian) && SnrIs(fBad);
            table.fSnrMedian(iHour, i) = bSnr ? fMedian : PropagationTable::kNotPrinted;
            table.fSnrUpper(iHour, i) = bSnr ? fGood - fMedian : PropagationTable::kNotPrinted;
            table.fSnrLower(iHour, i) = bSnr ? fMedian - fBad : PropagationTable::kNotPrinted;
        }
    }
    return table;
}
