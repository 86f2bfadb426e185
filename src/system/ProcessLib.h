/// @file ProcessLib.h
/// External programs: hidden start by command line, and waiting with a time limit.
///
/// Units:   seconds.
/// Tests:   tests/system/ProcessLibPosixTest.cpp, ProcessLibWin32Test.cpp
#pragma once

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "system/LockLib.h"
#include "system/Result.h"

/// A command line in words.
struct ProcessCommand {
    std::vector<std::string>
        asWords;                      ///< program first; no shell ever sees them, nothing maps them
    std::string sWorkFolder;          ///< host path; empty: the current folder
    std::string sOutputFile;          ///< takes the first MB of standard output and error, the
                                      ///< rest is dropped; empty: discarded
    const FileLock* pLock = nullptr;  ///< the program inherits it: held until both have ended
    std::string sProgram = {};        ///< host path of the program's file; empty: the first word
};

/// Starts a program with a hidden window, the null device as standard input, and a process group of
/// its own. A program file that starts with "MZ" is started through wine outside Windows, with
/// WINEDEBUG at -all unless the user set it (a word about the missing 32-bit half would pass for
/// the program's own). A program named without a folder is sought on the search path. The program
/// ends with Hopcast, even when that is killed: on Windows with its whole family (its job); on
/// Linux with the thread that started it, so that this thread has to be the one that waits. A
/// Windows program under wine gets no lock: wine's server would hold it on.
/// @return the process id (0: started without one); "File not found" when there is no such program,
///         "Permission denied" when it may not be run, "Invalid procedure call or argument" when it
///         is no program, "Path not found" when the working folder is missing.
[[nodiscard]] Result<int> ProcessStart(const ProcessCommand& command);

/// Waits for a process started here. An id that cannot be opened (outside Windows: that is no child
/// of this program) counts as finished and is true at once: a very short run may already be gone.
/// At the limit the process is killed with all of its family (its process group, on Windows its
/// job), outside Windows asked first (SIGTERM) and given 0.2 s to clean up; the result is false.
/// What a process leaves behind of its family when it ends by itself is killed, too.
/// @param stop  ends the wait like the limit, within some milliseconds
/// @return true when the process ended by itself with exit code 0.
[[nodiscard]] bool ProcessWait(int nProcessId, double dSeconds, const std::stop_token& stop = {});

/// True when a program file (host path) is one of Windows, so that its words name Windows paths.
[[nodiscard]] bool ProgramIsWindows(const std::string& sProgram);

/// What this machine lacks to run a program file (host path), in words for the user;
/// empty when nothing is known to lack. Outside Windows that is Wine's 32-bit half: without it a
/// 32-bit program ends at once, with exit code 0 and without a word.
[[nodiscard]] std::string ProgramLackGet(const std::string& sProgram);

/// The seam for tests: replaces ProcessStart's work; an empty function restores it.
using ProcessStartFn = std::function<Result<int>(const ProcessCommand&)>;
ProcessStartFn ProcessSetHandler(ProcessStartFn fnStart);
