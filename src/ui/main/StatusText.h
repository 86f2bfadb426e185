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
#include "system/Result.h"

/// "REC533 (built-in, P.533 with long-path rule, mean maps) · November · sunspot number 100
/// (options)". An engine number that is none reads "no engine".
/// @param bSunSpotNumber  false: Airmail was asked and had none
[[nodiscard]] std::string StatusInForce(const Request& input, bool bBuiltIn, bool bSunSpotNumber);

/// One line on values of a profile that did not come into force, or on a file that could not be
/// read; empty when all is well or there is no file.
/// @param resDropped  as ProfileLoad gives it
[[nodiscard]] std::string StatusProfile(const Result<std::vector<std::string>>& resDropped);

/// What failed, or why.
enum class RunTrouble { SunSpot, Frequencies, Engine, Overlay };

/// One line of advice on a failed run.
/// @param iModel   engine of that run
/// @param failure  the engine's; nothing where it was not asked
[[nodiscard]] std::string StatusTrouble(RunTrouble eTrouble, int iModel,
                                        const std::optional<Failure>& failure = {});

/// "No values for 2000, 4000 kHz: PropagationRec533, Shell do not finish. (no map)"; empty when no
/// frequency of the table is without values.
/// @param failure  of a chunk; nothing where none failed
[[nodiscard]] std::string StatusAbsent(const PropagationTable& table,
                                       const std::optional<Failure>& failure);
