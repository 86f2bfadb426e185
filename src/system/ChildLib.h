/// @file ChildLib.h
/// A helper program that a console program runs to its end. Not built for Windows.
///
/// Unlike ProcessStart, the child stays in its parent's process group: whoever kills the group at a
/// time limit ends parent and child together, and nothing is left running.
///
/// Units:   seconds.
/// Tests:   tests/system/ChildLibTest.cpp
#pragma once

#include "system/ProcessLib.h"
#include "system/Result.h"

enum class ChildEnd {
    Exited,       ///< by itself; nCode is its exit status
    Killed,       ///< by a signal from elsewhere; nCode is its number
    TimeLimit,    ///< killed by ChildRun at the limit
    Interrupted,  ///< killed by ChildRun because this program is asked to end; nCode is the signal
};

struct ChildResult {
    ChildEnd eEnd = ChildEnd::Exited;
    int nCode = 0;
};

/// Holds back the signals that ask a program to end (SIGINT, SIGTERM, SIGHUP) until ChildRun, which
/// answers them, so that the program can clean up; a file that grows too large or a closed pipe
/// becomes an ordinary error. Called once, before the first thing that needs cleaning.
void ChildSignalsHold();

/// Starts a program (looked up in PATH when its name has no slash) with the null device as standard
/// input, and waits for its end, at most dSeconds. Words and folders are host paths. On Linux the
/// child is killed when this program dies. Of its output the first MB is kept.
/// @return how it ended; an error's description when it could not be started.
[[nodiscard]] Result<ChildResult> ChildRun(const ProcessCommand& command, double dSeconds);
