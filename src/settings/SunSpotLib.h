/// @file SunSpotLib.h
/// The sunspot number of the next prediction: Airmail's, the forecast's, or the typed one.
///
/// Units:   smoothed sunspot number, single precision.
/// Tests:   tests/settings/SunSpotLibTest.cpp, SunSpotRunTest.cpp
#pragma once

#include <string>

#include "settings/Settings.h"
#include "settings/SunSpotForecast.h"
#include "system/Message.h"
#include "system/Result.h"

/// With m_bPropagationSunSpotNumber set, Airmail's number is first stored in
/// m_fPropagationSunSpotNumber; that member is the answer.
/// @param fNumber  untouched unless the result is true.
/// @return true; false, with a message, when Airmail has no number (the stored number stays); "Type
///         mismatch" or "Overflow" when Airmail's text is not a number, and an error in words, with
///         file and key, when it is out of range; for these errors no message is added.
Result<bool> SunSpotNumberGet(Settings& settings, float& fNumber, Messages* paMessages);

/// The sunspot number of a run and its source.
struct SunSpotRun {
    float fNumber = 0.0F;
    SunSpotSource eSource = SunSpotSource::Typed;
    std::string sSource;     ///< "typed", "Airmail", "mean cycle", "NOAA forecast" ...
    std::string sScale;      ///< "version-2 number 87.9 times 0.7"; empty: as the engines take it
    DateTime dtDay;          ///< of the forecast; all zero: the source has no date
    long long nDaysOld = 0;  ///< of the forecast, 0 or more
    std::string sDetail;     ///< all of this in words, for a tooltip
    std::string sWarning;    ///< that the forecast is old, damaged or of other months; else empty
};

/// The month of the next run: with m_bPropagationMonth UTC's month and year, else the chosen month
/// in the local clock's year, which the decks contain. At the turn of the year the two years differ
/// for some hours; the current month keeps UTC's year, so that January is not looked up a year too
/// early. A month out of range, with which no run begins, gives the nearest.
struct RunMonth {
    int nYear = 0;
    int nMonth = 0;
};
[[nodiscard]] RunMonth RunMonthGet(const Settings& settings);

/// The number of the next run, for windows and console alike; it is stored in
/// m_fPropagationSunSpotNumber. In this order: with m_bPropagationSunSpotNumber Airmail's; with
/// m_bPropagationForecast the forecast's if it covers the month of the run, else the mean cycle's,
/// as a whole number; else the typed one. If the kept forecast is damaged there is a warning; one
/// that was named must be readable.
/// @param sForecastFile  a file to use instead of the forecast that is kept with the profile
/// @param ssn            untouched unless the result is true.
/// @return as SunSpotNumberGet; also, in words, why the named forecast cannot be read.
Result<bool> SunSpotRunGet(Settings& settings, const std::string& sForecastFile, SunSpotRun& ssn,
                           Messages* paMessages);
