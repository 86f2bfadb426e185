/// @file StatusText.h
/// What the status line says: what is in force, and what went wrong last and what to do about it.
///
/// Texts:   UTF-8, one line.
/// Tests:   tests/ui/main/StatusTextTest.cpp
#pragma once

#include <string>

#include "settings/Settings.h"

/// "REC533 (built-in, P.533 with long-path rule) · November · sunspot number 100 (options)". An
/// engine number that is none reads "no engine".
/// @param bSunSpotNumber  false: Airmail was asked and had none
[[nodiscard]] std::string StatusInForce(const Settings& settings, bool bBuiltIn,
                                        bool bSunSpotNumber);

/// Why a run failed.
enum class RunTrouble { SunSpot, Frequencies, Engine };

/// One line of advice on a failed run.
/// @param sMessage  the box that was shown, empty when there was none
/// @param sEngine   what else is known of the engine's failure (EngineTroubleGet)
[[nodiscard]] std::string StatusTrouble(RunTrouble eTrouble, const Settings& settings,
                                        const std::string& sMessage,
                                        const std::string& sEngine = {});
