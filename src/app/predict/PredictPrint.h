/// @file PredictPrint.h
/// A prediction as text: a table for people, comma-separated values and JSON for programs.
///
/// Units:   kHz, degrees, ms, km, dBW, dB in 1 Hz, W, nautical miles, as in the column names.
/// Tests:   tests/app/PredictPrintTest.cpp
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "propagation/AreaDay.h"
#include "propagation/Prediction.h"
#include "settings/Settings.h"

/// The run's data for the head of the output.
struct PredictRun {
    const Settings* pSettings;  ///< with the run's month and sunspot number
    const PropagationTable* pTable;
    int nYear;                        ///< year of the decks
    std::string sEngine;              ///< display name, "REC533 (built-in)"
    std::string sSunSpotSource;       ///< "given", "Airmail", "mean cycle", "NOAA forecast" ...
    std::string sPlaces;              ///< lines on positions taken from Airmail, or nothing
    std::string sSunSpotDetail = {};  ///< scale, date and age of a forecast; empty without one
    std::optional<Need> need = {};    ///< what the contact is for
};

/// A need in words: "E-mail, normal: 40 dB in 1 Hz", without a name "40 dB in 1 Hz".
[[nodiscard]] std::string PredictNeedText(const Need& need);
/// An SNR's margin over the need, dB, without the noise of a binary difference: 46.3 less 40 is
/// 6.3. Empty if there is no SNR.
[[nodiscard]] std::string PredictMarginText(float fSnr, const Need& need);
/// A printable text, in quotes only if it would break the row: engines and lists may contain
/// anything.
[[nodiscard]] std::string PredictCsvText(std::string_view sForeign);

/// @param bColor  24-bit terminal colours on the cells (SnrBandOfCell).
[[nodiscard]] std::string PredictTableGet(const PredictRun& run, bool bColor);
[[nodiscard]] std::string PredictCsvGet(const PredictRun& run);
[[nodiscard]] std::string PredictJsonGet(const PredictRun& run);
[[nodiscard]] std::string PredictAreaCsvGet(const std::vector<AreaPoint>& aPoint);
/// A row for each point, hour and frequency: points in grid order, hours 0 to 23, frequencies in
/// the given order.
[[nodiscard]] std::string PredictDayCsvGet(const std::vector<AreaDay>& aDays);
/// "khz" and "points": each with "lat", "lon" and "snr_db", an array of the frequencies' values for
/// each hour.
[[nodiscard]] std::string PredictDayJsonGet(const std::vector<AreaDay>& aDays);
[[nodiscard]] std::string PredictAreaJsonGet(const std::vector<AreaPoint>& aPoint);
