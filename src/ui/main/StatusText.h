/// @file StatusText.h
/// What the status line says: what the table that is shown was made with, and what went wrong last
/// and what to do about it.
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

/// What a request does not know of its own run.
struct StatusFacts {
    bool bBuiltIn = false;
    bool bSunSpotNumber = true;  ///< false: Airmail was asked and had none
    std::string sAirMail = {};   ///< the number that Airmail has where it is not asked; or empty
    std::string sProfile = {};   ///< name of a profile that is not the standard one; or empty
};

enum class StatusForm { Long, Short };

/// "REC533 (built-in, P.533 with long-path rule, mean maps) · November · SSN 62 (mean cycle) ·
/// 100 W", without an own power "5 kW, as the antenna choice". An engine number that is none reads
/// "no engine". The short form leaves out what stands in brackets, save the words of the profile's
/// name: "REC533 built-in · November · SSN 62 · 100 W".
[[nodiscard]] std::string StatusInForce(const Request& input, const StatusFacts& facts,
                                        StatusForm eForm = StatusForm::Long);

/// "Best now: 14000 kHz, 58 dB"; empty for no row.
[[nodiscard]] std::string StatusBest(const PropagationTable& table, int iRow, int iHour);

/// "Receiver: position of Airmail, 2 days old", the age in words from 6 hours on.
[[nodiscard]] std::string StatusPosition(const DateTime& dtPosition, const DateTime& dtNow);

/// Which value of a request no engine can take, "Receiver latitude 99° is out of range"; empty
/// when all are in range.
[[nodiscard]] std::string StatusInputFault(const Request& input);

/// One line on values of a profile that did not come into force, or on a file that could not be
/// read; empty when all is well or there is no file.
/// @param resDropped  as ProfileLoad gives it
[[nodiscard]] std::string StatusProfile(const Result<std::vector<std::string>>& resDropped);

/// What failed, or why.
enum class RunTrouble { SunSpot, Frequencies, Engine, Overlay };

/// One line on a failed run: first in a user's words, then the message of its box.
/// @param iModel       engine of that run
/// @param failure      the engine's; nothing where it was not asked
/// @param sInputFault  as StatusInputFault gives it
[[nodiscard]] std::string StatusTrouble(RunTrouble eTrouble, int iModel,
                                        const std::optional<Failure>& failure = {},
                                        const std::string& sInputFault = {});

/// "No values for 2000, 4000 kHz: PropagationRec533, Shell do not finish. (no map)"; empty when no
/// frequency of the table is without values.
/// @param failure  of a chunk; nothing where none failed
[[nodiscard]] std::string StatusAbsent(const PropagationTable& table,
                                       const std::optional<Failure>& failure);
