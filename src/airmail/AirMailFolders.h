/// @file AirMailFolders.h
/// The two process-wide Airmail folders. No trailing backslash; Windows paths; UTF-8.
/// Tests:   tests/airmail/AirMailFoldersTest.cpp
#pragma once

#include <string>

inline constexpr const char* kAirMailFolderDefault = "C:\\Program Files\\AirMail";

/// Folder that holds Airmail3.exe and Install.log.
[[nodiscard]] const std::string& AirMailProgramFolderGet();
void AirMailProgramFolderSet(std::string sFolder);
/// Folder that holds Airmail.ini and the System.*.ini station files.
[[nodiscard]] const std::string& AirMailDataFolderGet();
void AirMailDataFolderSet(std::string sFolder);
/// Both back to "C:\Program Files\AirMail".
void AirMailFoldersReset();
