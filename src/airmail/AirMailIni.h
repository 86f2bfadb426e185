/// @file AirMailIni.h
/// The reader of Airmail's initialisation files that every other Airmail read goes through, and the
/// hint that ends every Airmail message.
///
/// Texts:   UTF-8 here, Windows-1252 in the files. Messages break lines with carriage returns
///          alone.
/// Errors:  a missing file, section or key, and an empty value, are all the empty text.
/// Tests:   tests/airmail/AirMailIniTest.cpp
#pragma once

#include <string>

#include "system/Message.h"

inline constexpr const char* kAirMailIniFile = "Airmail.ini";

/// Characters of a value that are read; the rest of a longer one is cut off.
inline constexpr int kAirMailValueMost = 511;

/// One value of a file in the data folder.
/// @param paMessages  gets a warning for an empty result: which section, key and file, and the
///                    hint.
[[nodiscard]] std::string AirMailIniGet(const std::string& sFile, const std::string& sSection,
                                        const std::string& sKey, Messages* paMessages);

/// Airmail's own file and a key of it, for messages: "C:\Program Files\AirMail\Airmail.ini,
/// [Propagation] SSN".
[[nodiscard]] std::string AirMailIniPlaceGet(const std::string& sSection, const std::string& sKey);

/// Two carriage returns, then the request to check the data folder, which it names.
[[nodiscard]] std::string AirMailFolderHint();

/// "Airmail " and the version that last ran here, with a notice when it is not 3.1.936, the one
/// tested with; "Unable to get current version number." when it is not known. Silent.
[[nodiscard]] std::string AirMailVersionText();

/// The sunspot number as Airmail keeps it, empty when there is none (which paMessages is told).
[[nodiscard]] std::string AirMailSunSpotNumberGet(Messages* paMessages);
