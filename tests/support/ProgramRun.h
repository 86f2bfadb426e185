/// @file ProgramRun.h
/// Runs a program of this build to its end, as a user's shell would.
#pragma once

#include <string>
#include <vector>

struct ProgramResult {
    int nStatus = -1;  ///< exit status; -1 when it ended by a signal
    std::string sOut;
    std::string sError;
};

/// @param asWords  full path of the program, then its arguments; no shell meaning in any of them.
ProgramResult ProgramRun(const std::vector<std::string>& asWords);
