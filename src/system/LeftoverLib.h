/// @file LeftoverLib.h
/// What killed programs leave in a folder, and the folders that Hopcast makes.
///
/// Paths:   host paths, UTF-8.
/// Errors:  none reported: what cannot be removed stays.
/// Tests:   tests/system/LeftoverLibTest.cpp
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>

/// No run and no write takes that long: anything older is no longer in use.
inline constexpr std::chrono::hours kLeftoverAge(24);

/// Removes Hopcast's temporary files (.hopcast-...) and the run folders of its VOACAP
/// (voacapw.....run) that are older than a day. Links are neither removed nor followed.
void LeftoversRemove(const std::string& sFolder);

/// True when a file or folder was last written more than a day ago.
[[nodiscard]] bool LeftoverIsOld(const std::filesystem::path& pthFile);

/// Makes a folder and any missing folders above it; only the user may enter the new ones.
void FolderMakePrivate(const std::filesystem::path& pthFolder, std::error_code& ec);
