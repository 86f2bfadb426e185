#include "studies/reach/ReachList.h"

#include <algorithm>
#include <cmath>

#include "system/TextLib.h"

namespace {

constexpr double kLast = std::numeric_limits<double>::infinity();

const ReachHour& HourNow(const Reach& reach, const ReachRow& row)
{
    return row.aHours.at(static_cast<std::size_t>(reach.InputGet().iFrom));
}

double NumberOr(double dValue) { return std::isnan(dValue) ? kLast : dValue; }

/// The key by which rows are ordered, lowest first.
double KeyGet(const Reach& reach, const ReachRow& row, ReachOrder eOrder)
{
    switch (eOrder) {
        case ReachOrder::Frequency: {
            const float fChannel = ReachChannelGet(reach, row);
            return fChannel > 0.0F ? static_cast<double>(fChannel) : kLast;
        }
        case ReachOrder::Now:
            return NumberOr(-static_cast<double>(HourNow(reach, row).fSnr));
        case ReachOrder::Margin:
            return NumberOr(-static_cast<double>(row.fMargin));
        case ReachOrder::Open:
            return row.opening.nWait >= 0 ? row.opening.nWait : kLast;
        case ReachOrder::Bearing:
            return row.dBearing;
        case ReachOrder::Range:
            return row.dRange;
        case ReachOrder::Use:
        case ReachOrder::Station:
            break;
    }
    return 0.0;
}

bool TextIs(const Place& place, const std::string& sUpper)
{
    return sUpper.empty()
           || TextUpper(place.sSystem + " " + place.sKey + " " + place.sDescription).find(sUpper)
                  != std::string::npos;
}

bool MarginIs(const Reach& reach, const ReachRow& row, float fLeast)
{
    if (std::isnan(fLeast))
        return true;
    const int iHour = ReachBestHourGet(reach, row);
    return iHour != -1
           && row.aHours.at(static_cast<std::size_t>(iHour)).fSnr - reach.InputGet().fNeed
                  >= fLeast;
}

}  // namespace

int ReachBestHourGet(const Reach& reach, const ReachRow& row)
{
    int iBest = -1;
    float fBest = 0.0F;
    for (int n = 0; n < reach.InputGet().nHours; ++n) {
        const int iHour = (reach.InputGet().iFrom + n) % kReachHours;
        const float fSnr = row.aHours.at(static_cast<std::size_t>(iHour)).fSnr;
        if (!std::isnan(fSnr) && (iBest == -1 || fSnr > fBest)) {
            iBest = iHour;
            fBest = fSnr;
        }
    }
    return iBest;
}

std::vector<std::size_t> ReachListGet(const Reach& reach, const ReachView& view)
{
    const std::string sUpper = TextUpper(view.sText);
    std::vector<std::size_t> aRows = reach.RankingGet();
    std::erase_if(aRows, [&](std::size_t iRow) {
        const ReachRow& row = reach.RowsGet()[iRow];
        return !TextIs(reach.PlacesGet()[iRow], sUpper) || !MarginIs(reach, row, view.fLeastMargin);
    });
    if (view.eOrder == ReachOrder::Use)
        return aRows;
    if (view.eOrder == ReachOrder::Station) {
        std::stable_sort(aRows.begin(), aRows.end(), [&](std::size_t iA, std::size_t iB) {
            return TextUpper(reach.PlacesGet()[iA].sKey) < TextUpper(reach.PlacesGet()[iB].sKey);
        });
        return aRows;
    }
    std::stable_sort(aRows.begin(), aRows.end(), [&](std::size_t iA, std::size_t iB) {
        return KeyGet(reach, reach.RowsGet()[iA], view.eOrder)
               < KeyGet(reach, reach.RowsGet()[iB], view.eOrder);
    });
    return aRows;
}

float ReachChannelGet(const Reach& reach, const ReachRow& row)
{
    const int nWait = std::max(0, row.opening.nWait);
    const int iHour = (reach.InputGet().iFrom + nWait) % kReachHours;
    return row.aHours.at(static_cast<std::size_t>(iHour)).fFrequency;
}
