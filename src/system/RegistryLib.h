/// @file RegistryLib.h
/// One string of the current user's registry: on Windows RegOpenKeyExA (query value, enumerate
/// subkeys, notify: access mask 25), RegQueryValueExA, RegCloseKey; elsewhere the same key read
/// from the Wine prefix's user.reg.
///
/// Tests:   tests/system/RegistryLibPosixTest.cpp; on Windows tests/airmail/AirMailFoldersTest.cpp
#pragma once

#include <optional>
#include <string>
#include <string_view>

struct RegistryString {
    std::string sValue;  ///< UTF-8, without the terminating NUL
    int nBytes = 0;      ///< size as the registry reports it: bytes in the system's code page
                         ///< (Windows-1252 outside Windows) with the terminating NUL
};

/// @param sKey        below HKEY_CURRENT_USER, backslashes between components.
/// @param nMaxBytes   size of the caller's buffer, including the NUL; a longer value fails.
/// @return the string, or nothing when key or value is missing or not a string.
[[nodiscard]] std::optional<RegistryString> RegistryStringGet(std::string_view sKey,
                                                              std::string_view sName,
                                                              int nMaxBytes);
