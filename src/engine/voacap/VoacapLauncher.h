/// @file VoacapLauncher.h
/// VOACAP outside Windows: the command line of voacapw.exe, carried out by the Linux port voacapl.
///
/// voacapl runs in a private folder with the read-only data of its package. Only a complete output
/// is moved into place; after a failure there is no output, not even an old one.
///
/// Units:   seconds.
/// Tests:   tests/engine/voacap/VoacapLauncherTest.cpp, VoacapProgramTest.cpp
#pragma once

#include <span>
#include <stop_token>
#include <string>

#include "system/ChildProcess.h"
#include "system/Result.h"

/// The program to run, and its data.
struct VoacapPlaces {
    std::string sProgram = "voacapl";  ///< looked up in PATH
    std::string sDataFolder = "/usr/share/voacapl/itshfbc";
    /// Hopcast kills the launcher and voacapl after 5 seconds. Giving up a little earlier leaves
    /// time to clean up.
    double dSeconds = 4.8;
    std::stop_token stop = {};  ///< ends a run, which then leaves no files behind
};

struct VoacapOutcome {
    int nStatus = 0;    ///< exit status: 0 predicted, 1 failed, 2 wrong command line or deck
    std::string sText;  ///< one line about the failure
};

/// Checks how voacapl ended.
/// @param bStop         the run was asked to end
/// @param sConsoleFile  voacapl's console output
[[nodiscard]] Result<void> VoacaplEndCheck(const ChildResult& ended, bool bStop,
                                           const std::string& sConsoleFile);

/// Runs one prediction. asArguments are "ROOT DECK OUTPUT" with both names relative to ROOT/RUN, or
/// "ROOT AREA CALC DECK" with the name relative to ROOT/areadata; the grid file then has the deck's
/// name with the extension "vg1".
[[nodiscard]] VoacapOutcome VoacapLaunch(std::span<const std::string> asArguments,
                                         const VoacapPlaces& places);
