/// @file StatusText.h
/// Texts of the status line: what the table was made with, what last went wrong and what to do
/// about it.
///
/// Texts:   UTF-8, one line.
/// Tests:   tests/ui/main/StatusTextTest.cpp
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "propagation/Prediction.h"
#include "system/ClockLib.h"
#include "system/Result.h"

/// Facts about a run that its request does not hold.
struct StatusFacts {
    bool bBuiltIn = false;
    bool bSunSpotNumber = true;  ///< false: Airmail was to supply the number and had none
    std::string sAirMail = {};   ///< Airmail's number when another source is in force; or empty
    std::string sProfile = {};   ///< name of a profile other than the standard one; or empty
};

enum class StatusForm { Long, Short };

/// A line such as
///   REC533 (built-in, P.533 with long-path rule, mean maps) · May · SSN 62 (mean cycle) · 100 W
/// or without the user's own power "5 kW, as the antenna choice". An unknown engine number reads
/// "no engine". The short form drops what is in brackets, but not a bracket in the profile's name:
/// "REC533 built-in · May · SSN 62 · 100 W".
[[nodiscard]] std::string StatusInForce(const Request& input, const StatusFacts& facts,
                                        StatusForm eForm = StatusForm::Long);

/// "Best now: 14000 kHz, 58 dB"; empty if there is no row.
[[nodiscard]] std::string StatusBest(const PropagationTable& table, int iRow, int iHour);

/// "Receiver: position of Airmail, 2 days old"; the age is given from 6 hours on.
[[nodiscard]] std::string StatusPosition(const DateTime& dtPosition, const DateTime& dtNow);

/// The value of a request that is out of range for every engine, "Receiver latitude 99° is out of
/// range"; empty if all are in range.
[[nodiscard]] std::string StatusInputFault(const Request& input);

/// One line on the values of a profile that were not taken, or on a file that could not be read;
/// empty if all is well or there is no file.
/// @param resDropped  the result of ProfileLoad
[[nodiscard]] std::string StatusProfile(const Result<std::vector<std::string>>& resDropped);

/// What failed, or what caused it.
enum class RunTrouble { SunSpot, Frequencies, Engine, Overlay };

/// One line on a failed run: plain words for the user, then the message of its box.
/// @param iModel       the run's engine
/// @param failure      the engine's; nothing if it did not run
/// @param sInputFault  from StatusInputFault
[[nodiscard]] std::string StatusTrouble(RunTrouble eTrouble, int iModel,
                                        const std::optional<Failure>& failure = {},
                                        const std::string& sInputFault = {});

/// "No values for 2000, 4000 kHz: PropagationRec533, Shell do not finish. (no map)"; empty if every
/// frequency of the table has values.
/// @param failure  of a part of the run; nothing if none failed
[[nodiscard]] std::string StatusAbsent(const PropagationTable& table,
                                       const std::optional<Failure>& failure);
