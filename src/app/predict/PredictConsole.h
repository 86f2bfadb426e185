/// @file PredictConsole.h
/// The error output and exit status of the programs without windows.
///
/// Tests:   tests/app/HopcastPredictTest.cpp, HopcastExportTest.cpp
#pragma once

#include <string>

inline constexpr int kExitPredicted = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

/// Prints "PROGRAM: TEXT" on standard error, with a box's line breaks (single carriage returns too)
/// as lines, and without terminal control characters. @return nStatus
int PredictFail(const char* sProgram, int nStatus, const std::string& sText);
