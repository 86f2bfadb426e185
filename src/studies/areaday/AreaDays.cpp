#include "studies/areaday/AreaDays.h"

#include "propagation/SnrScale.h"

std::optional<AreaBest> AreaBestGet(const AreaDay& day, std::size_t iPoint, int iHour)
{
    std::optional<AreaBest> best;
    for (std::size_t i = 0; i < day.request.afFrequency.size(); ++i) {
        const float fSnr = day.SnrGet(iPoint, iHour, i);
        if (SnrIs(fSnr) && (!best || fSnr > best->fSnr))
            best = AreaBest{i, fSnr};
    }
    return best;
}

std::optional<int> AreaDaysInTenGet(const AreaDay& day, std::size_t iPoint, int iHour,
                                    std::size_t iFrequency, float fNeed)
{
    const AreaSpread& spread = day.SpreadGet(iPoint, iHour, iFrequency);
    const auto days = SnrDaysOf(day.SnrGet(iPoint, iHour, iFrequency), spread.fMedian,
                                spread.fLower, spread.fUpper);
    if (!days)
        return {};
    DaysCell cell;
    cell.fShare =
        static_cast<float>(DaysShareGet(*days, fNeed, DayStepsOf(day.request.area.iModel)));
    return cell.DaysInTenGet();
}

int AreaHoursOpenGet(const AreaDay& day, std::size_t iPoint, float fNeed, const AreaHours& hours)
{
    int nOpen = 0;
    for (int iHour = 0; iHour < kHourCount; ++iHour) {
        const auto best = hours.test(static_cast<std::size_t>(iHour))
                              ? AreaBestGet(day, iPoint, iHour)
                              : std::nullopt;
        nOpen += best && best->fSnr >= fNeed ? 1 : 0;
    }
    return nOpen;
}
