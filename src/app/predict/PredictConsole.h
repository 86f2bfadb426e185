/// @file PredictConsole.h
/// How the programs without windows tell what went wrong, and with which exit status they end.
///
/// Tests:   tests/app/HopcastPredictTest.cpp, HopcastExportTest.cpp
#pragma once

#include <string>

inline constexpr int kExitPredicted = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

/// Prints "PROGRAM: TEXT" on standard error: a box's line breaks (single carriage returns too) as
/// lines, and nothing in them that a terminal obeys. @return nStatus
int PredictFail(const char* sProgram, int nStatus, const std::string& sText);
