/// @file ProcessLib.h
/// External programs by their process ids: start by command line, and waiting with a time limit.
/// The programs themselves are ChildProcess.
///
/// Units:   seconds.
/// Tests:   tests/system/ProcessLibPosixTest.cpp, ProcessLibWin32Test.cpp
#pragma once

#include <functional>
#include <stop_token>
#include <string>

#include "system/ChildProcess.h"

/// Starts a program as ChildProcess::Start does.
/// @return the process id (0: started without one), or what ChildProcess::Start fails with.
[[nodiscard]] Result<int> ProcessStart(const ProcessCommand& command);

/// Waits as ChildProcess::Wait does for a process started here. An id that cannot be opened counts
/// as finished and is true at once: a very short run may already be gone.
/// @return true when the process ended by itself with exit code 0.
[[nodiscard]] bool ProcessWait(int nProcessId, double dSeconds, const std::stop_token& stop = {});

/// True when a program file (host path) is one of Windows, so that its words name Windows paths.
[[nodiscard]] bool ProgramIsWindows(const std::string& sProgram);

/// What this machine is missing to run a program file (host path), in words for the user;
/// empty when nothing is known to be missing. Outside Windows that is Wine's 32-bit half: without
/// it a 32-bit program ends at once, with exit code 0 and without a word.
[[nodiscard]] std::string ProgramMissingPartGet(const std::string& sProgram);

/// The seam for tests: replaces ProcessStart's work; an empty function restores it.
using ProcessStartFn = std::function<Result<int>(const ProcessCommand&)>;
ProcessStartFn ProcessSetHandler(ProcessStartFn fnStart);
