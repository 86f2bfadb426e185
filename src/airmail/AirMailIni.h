/// @file AirMailIni.h
/// The reader of Airmail's initialisation files, which all other Airmail readers use, and the hint
/// that ends every Airmail message.
///
/// Texts:   UTF-8 here, Windows-1252 in the files. Messages break lines with carriage returns
///          only.
/// Errors:  a missing file, section or key, and an empty value, all give the empty text.
/// Tests:   tests/airmail/AirMailIniTest.cpp
#pragma once

#include <string>

#include "system/Message.h"

inline constexpr const char* kAirMailIniFile = "Airmail.ini";

/// Characters of a value that are read; the rest of a longer one is cut off.
inline constexpr int kAirMailValueMost = 511;

/// One value of a file in the data folder.
/// @param paMessages  gets a warning for an empty result, with section, key, file and the hint.
[[nodiscard]] std::string AirMailIniGet(const std::string& sFile, const std::string& sSection,
                                        const std::string& sKey, Messages* paMessages);

/// Airmail's own file and a key of it, for messages: "C:\Program Files\AirMail\Airmail.ini,
/// [Propagation] SSN".
[[nodiscard]] std::string AirMailIniPlaceGet(const std::string& sSection, const std::string& sKey);

/// Two carriage returns, then the request to check the data folder, with its path.
[[nodiscard]] std::string AirMailFolderHint();

/// "Airmail " and the version that last ran here, with a notice when it is not 3.1.936, which was
/// tested; "Unable to get current version number." when it is not known. Silent.
[[nodiscard]] std::string AirMailVersionText();

/// The sunspot number as Airmail keeps it; empty, with a message, when there is none.
[[nodiscard]] std::string AirMailSunSpotNumberGet(Messages* paMessages);
