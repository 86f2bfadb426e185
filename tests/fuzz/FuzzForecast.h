/// @file FuzzForecast.h
/// What a reader promises of the forecast that it returns.
#pragma once

#include <cmath>

#include "fuzz/FuzzCheck.h"
#include "settings/ForecastFile.h"
#include "system/TextLib.h"

inline constexpr DateTime kFuzzToday{2026, 11, 21, 15, 30, 0};

/// Months are within their limits and ascending, without repeats; each gives a number that an
/// engine accepts.
inline void ForecastCheck(const SunSpotForecast& forecast)
{
    const bool bFlux = forecast.eSource == ForecastSource::Wwv;
    Check(!forecast.aMonths.empty() && (!bFlux || forecast.aMonths.size() == 1));
    int nBefore = 0;
    for (const ForecastMonth& month : forecast.aMonths) {
        Check(month.nMonth >= 1 && month.nMonth <= 12);
        Check(month.nYear * 12 + month.nMonth > nBefore);
        nBefore = month.nYear * 12 + month.nMonth;
        Check(bFlux ? month.dValue >= kFluxLeast && month.dValue <= kFluxMost
                    : month.dValue >= 0.0 && month.dValue <= kVersion2Most);
        const SunSpotEstimate estimate =
            SunSpotEstimateGet(&forecast, month.nYear, month.nMonth, kFuzzToday);
        Check(estimate.nNumber >= 0 && estimate.nNumber <= 311);
        Check(std::isfinite(estimate.dNumber) && !estimate.sDetail.empty());
    }
    Check(!ForecastText(forecast, kFuzzToday).empty());
}
