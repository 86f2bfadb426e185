#include "settings/SunSpotForecast.h"

#include <algorithm>
#include <cmath>

#include "settings/SettingsRange.h"
#include "system/NumberLib.h"

namespace {

// Months since December 2019, in which the present cycle began.
int CycleMonthGet(int nYear, int nMonth) { return (nYear - 2019) * 12 + nMonth - 12; }

double CycleGet(double dMonths)
{
    constexpr double kA = 0.00198;  // its maximum of 112.6 is 160.9 on the version-2 scale
    const double dB = 27.12 + 25.15 / std::pow(1000.0 * kA, 0.25);  // months
    constexpr double kC = 0.71;
    return kA * dMonths * dMonths * dMonths / (std::exp(dMonths * dMonths / (dB * dB)) - kC);
}

std::string MonthText(int nYear, int nMonth)
{
    return NumberFormat(static_cast<double>(nYear), "0000") + "-"
           + NumberFormat(static_cast<double>(nMonth), "00");
}

std::string MonthText(const ForecastMonth& month) { return MonthText(month.nYear, month.nMonth); }

std::string DateText(const DateTime& dt)
{
    return MonthText(dt.nYear, dt.nMonth) + "-" + NumberFormat(static_cast<double>(dt.nDay), "00");
}

/// Whole months from one date to another, as ages are counted.
int AgeInMonths(const DateTime& dtFrom, const DateTime& dtTo)
{
    const int nMonths = (dtTo.nYear - dtFrom.nYear) * 12 + dtTo.nMonth - dtFrom.nMonth;
    return dtTo.nDay < dtFrom.nDay ? nMonths - 1 : nMonths;
}

std::string AgeText(const DateTime& dtFrom, const DateTime& dtTo)
{
    constexpr long long kDaysMost = 60;  // longer ages are given in months
    const long long nDays = std::max(DayBoundaries(dtFrom, dtTo), 0LL);
    if (nDays == 0)
        return "of today";
    if (nDays <= kDaysMost)
        return NumberToText(nDays) + (nDays == 1 ? " day old" : " days old");
    const int nMonths = AgeInMonths(dtFrom, dtTo);
    return NumberToText(nMonths) + (nMonths == 1 ? " month old" : " months old");
}

std::string DatingText(const SunSpotForecast& forecast, const DateTime& dtToday)
{
    const char* sWord = forecast.eDating == ForecastDating::Issued   ? "issued "
                        : forecast.eDating == ForecastDating::Mailed ? "of the mail of "
                                                                     : "read on ";
    return sWord + DateText(forecast.dtDay) + " (" + AgeText(forecast.dtDay, dtToday) + ")";
}

std::string NameOf(const SunSpotForecast& forecast)
{
    return std::string(SunSpotSourceName(SunSpotSourceOf(forecast.eSource)));
}

/// Why a forecast has no value for a month.
std::string NotCoveredText(const SunSpotForecast& forecast, int nYear, int nMonth)
{
    const std::string sMonth = MonthText(nYear, nMonth);
    if (forecast.eSource == ForecastSource::Wwv)
        return "One day's flux counts for the current month alone, and this bulletin is of "
               + DateText(forecast.dtDay) + "; the mean cycle is used for " + sMonth
               + ". Read a bulletin of today, or a forecast.";
    return "The " + NameOf(forecast) + " is for " + MonthText(forecast.aMonths.front()) + " to "
           + MonthText(forecast.aMonths.back()) + "; the mean cycle is used for " + sMonth
           + ". Read a newer forecast.";
}

std::string ScaleText(ForecastSource eSource, double dValue)
{
    return eSource == ForecastSource::Wwv
               ? "10.7 cm flux " + NumberToText(dValue) + " of one day"
               : "version-2 number " + NumberToText(dValue) + " times 0.7";
}

}  // namespace

double SunSpotMeanCycleGet(int nYear, int nMonth)
{
    constexpr int kCycleMonths = 132;
    double dSum = 0.0;
    for (int nMonths = CycleMonthGet(nYear, nMonth); nMonths > 0; nMonths -= kCycleMonths)
        dSum += CycleGet(nMonths);
    return dSum;
}

double SunSpotFromFlux(double dFlux)
{
    constexpr double kQuiet = 63.7;
    constexpr double kLinear = 0.728;
    constexpr double kSquare = 0.00089;
    if (dFlux <= kQuiet)
        return 0.0;
    return (std::sqrt(kLinear * kLinear + 4.0 * kSquare * (dFlux - kQuiet)) - kLinear)
           / (2.0 * kSquare);
}

double SunSpotFromValue(ForecastSource eSource, double dValue)
{
    return eSource == ForecastSource::Wwv ? SunSpotFromFlux(dValue) : dValue * kVersion2Factor;
}

std::optional<double> ForecastValueGet(const SunSpotForecast& forecast, int nYear, int nMonth,
                                       const DateTime& dtToday)
{
    if (forecast.eSource == ForecastSource::Wwv
        && (nYear != dtToday.nYear || nMonth != dtToday.nMonth))
        return std::nullopt;
    const auto itMonth = std::ranges::find_if(forecast.aMonths, [&](const ForecastMonth& month) {
        return month.nYear == nYear && month.nMonth == nMonth;
    });
    if (itMonth == forecast.aMonths.end())
        return std::nullopt;
    return itMonth->dValue;
}

bool ForecastIsOld(const SunSpotForecast& forecast, const DateTime& dtToday)
{
    const int nMonths = AgeInMonths(forecast.dtDay, dtToday);
    return nMonths > kForecastOldMonths
           || (nMonths == kForecastOldMonths && forecast.dtDay.nDay != dtToday.nDay);
}

std::string_view SunSpotSourceName(SunSpotSource eSource)
{
    switch (eSource) {
        case SunSpotSource::Typed:
            return "typed";
        case SunSpotSource::AirMail:
            return "Airmail";
        case SunSpotSource::MeanCycle:
            return "mean cycle";
        case SunSpotSource::Noaa:
            return "NOAA forecast";
        case SunSpotSource::Silso:
            return "SILSO forecast";
        case SunSpotSource::Wwv:
            return "WWV, one day's flux";
    }
    return "";
}

SunSpotSource SunSpotSourceOf(ForecastSource eSource)
{
    switch (eSource) {
        case ForecastSource::Noaa:
            return SunSpotSource::Noaa;
        case ForecastSource::Silso:
            return SunSpotSource::Silso;
        case ForecastSource::Wwv:
            return SunSpotSource::Wwv;
    }
    return SunSpotSource::Typed;
}

std::string ForecastText(const SunSpotForecast& forecast, const DateTime& dtToday)
{
    std::string sText = NameOf(forecast);
    const ForecastMonth& first = forecast.aMonths.front();
    if (forecast.eSource == ForecastSource::Wwv) {
        sText += " " + NumberToText(first.dValue) + ", for " + MonthText(first);
    } else {
        sText += " for " + MonthText(first);
        if (forecast.aMonths.size() > 1)
            sText += " to " + MonthText(forecast.aMonths.back());
        sText += ", version-2 numbers times 0.7";
    }
    return sText + ", " + DatingText(forecast, dtToday);
}

SunSpotEstimate SunSpotEstimateGet(const SunSpotForecast* pForecast, int nYear, int nMonth,
                                   const DateTime& dtToday)
{
    SunSpotEstimate estimate;
    const auto optValue =
        pForecast == nullptr ? std::nullopt : ForecastValueGet(*pForecast, nYear, nMonth, dtToday);
    if (optValue) {
        estimate.dNumber = SunSpotFromValue(pForecast->eSource, *optValue);
        estimate.eSource = SunSpotSourceOf(pForecast->eSource);
        estimate.sScale = ScaleText(pForecast->eSource, *optValue);
        estimate.dtDay = pForecast->dtDay;
        estimate.sDetail = estimate.sScale + ", " + DatingText(*pForecast, dtToday);
        if (ForecastIsOld(*pForecast, dtToday))
            estimate.sWarning =
                "The " + NameOf(*pForecast) + " is older than six months. Read a newer one.";
    } else {
        estimate.dNumber = SunSpotMeanCycleGet(nYear, nMonth);
        estimate.sDetail =
            "mean cycle by Hathaway, Wilson and Reichmann 1994, for " + MonthText(nYear, nMonth);
        if (pForecast != nullptr)
            estimate.sWarning = NotCoveredText(*pForecast, nYear, nMonth);
    }
    estimate.nNumber = static_cast<int>(
        std::lround(std::clamp(estimate.dNumber, kRangeSunSpot.dLeast, kRangeSunSpot.dMost)));
    return estimate;
}
