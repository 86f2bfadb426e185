/// @file ApartAirmail.h
/// Independent readers of Airmail's files and of a Wine prefix's registry, written from
/// docs/files.md and sample files.
#pragma once

#include <optional>
#include <string>

#include "apart/Outcome.h"

/// Airmail.ini: version, position with its time, sunspot number.
[[nodiscard]] Outcome ApartAirmailIni(const std::string& sBytes);

/// A station file: keys, positions and descriptions.
[[nodiscard]] Outcome ApartStations(const std::string& sBytes);

/// Install.log: the data folder; nothing if the log names none.
[[nodiscard]] std::optional<std::string> ApartInstallLog(const std::string& sBytes);

/// user.reg: both folders; nothing if it has none.
[[nodiscard]] std::optional<std::string> ApartUserReg(const std::string& sBytes);
