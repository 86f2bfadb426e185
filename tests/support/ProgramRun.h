/// @file ProgramRun.h
/// Runs a program of this build to its end, as a user's shell would.
#pragma once

#include <string>
#include <vector>

struct ProgramResult {
    int nStatus = -1;  ///< exit status; -1 if a signal ended it
    std::string sOut;
    std::string sError;
};

/// @param asWords  full path of the program, then its arguments, all without special characters of
/// the shell
ProgramResult ProgramRun(const std::vector<std::string>& asWords);
