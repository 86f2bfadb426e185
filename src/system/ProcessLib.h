/// @file ProcessLib.h
/// External programs by their process ids: starting one by its command line, and waiting for it
/// with a time limit. Built on ChildProcess.
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
/// as finished and gives true at once: a very short run may already be gone.
/// @return true when the process ended by itself with exit code 0.
[[nodiscard]] bool ProcessWait(int nProcessId, double dSeconds, const std::stop_token& stop = {});

/// True when a program file (host path) is a Windows program, so that its words use Windows paths.
[[nodiscard]] bool ProgramIsWindows(const std::string& sProgram);

/// What is missing on this machine to run a program file (host path), in words for the user; empty
/// when nothing is known to be missing. Outside Windows this is Wine's 32-bit half: without it a
/// 32-bit program ends at once, silently and with exit code 0.
[[nodiscard]] std::string ProgramMissingPartGet(const std::string& sProgram);

/// For tests: replaces what ProcessStart does; an empty function restores it.
using ProcessStartFn = std::function<Result<int>(const ProcessCommand&)>;
ProcessStartFn ProcessSetHandler(ProcessStartFn fnStart);
