/// @file SunSpotForecast.h
/// The smoothed sunspot number of a month without Airmail: from a forecast that the user has
/// loaded, or from the mean cycle as a formula.
///
/// Units:   smoothed sunspot numbers on the scale used until July 2015 ("version 1"), for which the
///          maps of the ionosphere are made; solar flux at 10.7 cm in 1e-22 W/(m2 Hz).
/// Domain:  years 1 to 9999, months 1 to 12. The clock is never read: today's date is a parameter.
/// Errors:  none; warnings are in SunSpotEstimate::sWarning.
/// Source:  mean cycle: Hathaway, Wilson, Reichmann 1994, The shape of the sunspot cycle, Solar
///          Physics 151, 177. Version 2 times 0.7: SILSO (Royal Observatory of Belgium), with
///          Clette et al. 2016, Solar Physics 291, 2629. Flux: CCIR Report 371,
///          F = 63.7 + 0.728 R + 0.00089 R^2.
/// Tests:   tests/settings/SunSpotForecastTest.cpp
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/ClockLib.h"

/// Where a forecast comes from; its months have numbers on that source's own scale.
enum class ForecastSource {
    Noaa,   ///< NOAA's predicted solar cycle, version-2 numbers
    Silso,  ///< SILSO's forecast by the Kalman filter (KFprediCM), version-2 numbers
    Wwv,    ///< WWV's bulletin: one day's solar flux
};

/// Where the sunspot number of a prediction is from.
enum class SunSpotSource { Typed, AirMail, MeanCycle, Noaa, Silso, Wwv };

/// A short name for a line with other values: "typed", "Airmail", "mean cycle", "NOAA forecast",
/// "SILSO forecast", "WWV, one day's flux".
[[nodiscard]] std::string_view SunSpotSourceName(SunSpotSource eSource);
/// The same source of a forecast.
[[nodiscard]] SunSpotSource SunSpotSourceOf(ForecastSource eSource);

/// What the date of a forecast means.
enum class ForecastDating {
    Issued,  ///< the day of issue, from the text itself
    Mailed,  ///< the day of the mail that it came in
    Read,    ///< the text has no date: the day on which Hopcast read it
};

struct ForecastMonth {
    int nYear = 0;
    int nMonth = 0;       ///< 1..12
    double dValue = 0.0;  ///< on the source's scale
};

struct SunSpotForecast {
    ForecastSource eSource = ForecastSource::Noaa;
    ForecastDating eDating = ForecastDating::Read;
    DateTime dtDay;                      ///< a day; its time is 0
    std::vector<ForecastMonth> aMonths;  ///< at least one, ascending, none twice
};

inline constexpr double kVersion2Factor = 0.7;  ///< version-2 number to version 1
/// Largest version-2 number that is accepted; the largest smoothed number ever is 285, in 1958.
inline constexpr double kVersion2Most = 350.0;
/// Limits of a day's flux; the quiet sun has 64, and 370 gives R = 306, near the engines' limit.
inline constexpr double kFluxLeast = 60.0;
inline constexpr double kFluxMost = 370.0;
inline constexpr int kForecastYearLeast = 2000;
inline constexpr int kForecastYearMost = 2100;
inline constexpr int kForecastOldMonths = 6;  ///< a forecast older than that is reported as old

/// The mean cycle: cycles of the same shape begin every 132 months from December 2019, and those
/// that have begun are added. 0 until December 2019.
/// @return the number before rounding, 0 or more.
[[nodiscard]] double SunSpotMeanCycleGet(int nYear, int nMonth);

/// R for a day's flux; 0 at 63.7 and below.
[[nodiscard]] double SunSpotFromFlux(double dFlux);

/// A value on a source's scale as the number that the engines take.
[[nodiscard]] double SunSpotFromValue(ForecastSource eSource, double dValue);

/// The value of a month; nothing if the forecast does not cover it. A day's flux counts only for
/// the current month, and only if the bulletin was issued in that month.
[[nodiscard]] std::optional<double> ForecastValueGet(const SunSpotForecast& forecast, int nYear,
                                                     int nMonth, const DateTime& dtToday);

/// True when more than six months lie between the forecast's date and today.
[[nodiscard]] bool ForecastIsOld(const SunSpotForecast& forecast, const DateTime& dtToday);

/// A description of the forecast for the user: source, scale, months, date and age.
/// "NOAA forecast for 2026-11 to 2030-12, version-2 numbers times 0.7, of the mail of 2026-11-20
/// (1 day old)".
[[nodiscard]] std::string ForecastText(const SunSpotForecast& forecast, const DateTime& dtToday);

struct SunSpotEstimate {
    double dNumber = 0.0;  ///< before rounding
    int nNumber = 0;       ///< as predictions take it: whole, 0..311
    SunSpotSource eSource = SunSpotSource::MeanCycle;
    std::string sScale;    ///< "version-2 number 87.9 times 0.7"; empty for the mean cycle
    DateTime dtDay;        ///< of the forecast; all zero for the mean cycle
    std::string sDetail;   ///< scale, date and age: "version-2 number 87.9 times 0.7, ..."
    std::string sWarning;  ///< why the mean cycle is used, or that the forecast is old; else empty
};

/// The number of a month: the forecast's if it covers the month, else the mean cycle's.
/// @param pForecast  the forecast that is kept; nullptr if there is none
[[nodiscard]] SunSpotEstimate SunSpotEstimateGet(const SunSpotForecast* pForecast, int nYear,
                                                 int nMonth, const DateTime& dtToday);
