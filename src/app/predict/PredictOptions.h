/// @file PredictOptions.h
/// The command line of hopcast-predict.
///
/// Units:   as in Settings; area bounds in degrees, the area's frequency in kHz.
/// Errors:  one line that names the option; nothing has been run by then.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <span>
#include <string>

#include "settings/Settings.h"
#include "system/Result.h"

enum class PredictFormat { Table, Csv, Json };

struct PredictArea {
    double dNorth = 0;
    double dWest = 0;
    double dSouth = 0;
    double dEast = 0;  ///< may lie west of dWest: the area then crosses longitude 180
    int iHour = 0;     ///< 0..23 UT
    float fFrequency = 0;
};

struct PredictOptions {
    bool bHelp = false;
    bool bVersion = false;
    Settings settings;  ///< defaults, then the profile named (its ranges not checked), then options
    PredictFormat eFormat = PredictFormat::Table;
    std::string sOutput;  ///< file; empty: standard output, which "-" names too
    bool bArea = false;
    PredictArea area;
    bool bDay = false;    ///< all hours and frequencies of the area
    int nJobs = 0;        ///< workers of a day; 0: one a core
    std::string sFault;   ///< a position from Airmail out of range, with file and key
    std::string sPlaces;  ///< what the table's head says of positions taken from Airmail
};

/// @param asArguments  without the program's name.
[[nodiscard]] Result<PredictOptions> PredictOptionsGet(std::span<const std::string> asArguments);

/// The text of --help.
[[nodiscard]] std::string PredictHelpGet();
