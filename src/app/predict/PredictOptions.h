/// @file PredictOptions.h
/// The command line of hopcast-predict.
///
/// Units:   as in Settings; area bounds in degrees, the area's frequency in kHz.
/// Errors:  one line with the option; nothing has been run by then.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>

#include "places/Place.h"
#include "settings/Need.h"
#include "settings/Settings.h"
#include "system/Result.h"

enum class PredictFormat { Table, Csv, Json };

struct PredictArea {
    double dNorth = 0;
    double dWest = 0;
    double dSouth = 0;
    double dEast = 0;  ///< may be west of dWest: the area then crosses longitude 180
    int iHour = 0;     ///< 0..23 UT
    float fFrequency = 0;
};

/// Which places can be heard at the receiver.
struct PredictReach {
    std::set<PlaceKind> aLists;
    int iFrom = -1;  ///< UTC hour, 0..23; -1: the current one
    int nHours = 24;
    bool bAll = false;          ///< every frequency, not only an hour's best
    bool bFrequencies = false;  ///< use those of the settings for every place, not its own
};

struct PredictOptions {
    bool bHelp = false;
    bool bVersion = false;
    Settings settings;  ///< defaults, then the given profile (ranges not checked), then options
    PredictFormat eFormat = PredictFormat::Table;
    std::string sOutput;  ///< file; empty: standard output, also given as "-"
    bool bArea = false;
    PredictArea area;
    bool bDay = false;  ///< all hours and frequencies of the area
    bool bReach = false;
    PredictReach reach;
    int iCompare = -1;          ///< EngineModel of a second engine; -1: none
    bool bStations = false;     ///< the list of stations, no prediction
    std::optional<Need> need;   ///< what the contact is for
    std::string sForecastFile;  ///< replaces the forecast that is kept with the profile
    int nJobs = 0;              ///< workers of a day; 0: one per core
    std::string sFault;         ///< a position from Airmail out of range, with file and key
    std::string sPlaces;        ///< the table head's lines on positions taken from Airmail
};

/// @param asArguments  without the program's name.
[[nodiscard]] Result<PredictOptions> PredictOptionsGet(std::span<const std::string> asArguments);

/// The text of --help.
[[nodiscard]] std::string PredictHelpGet();
