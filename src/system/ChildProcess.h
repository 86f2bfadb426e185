/// @file ChildProcess.h
/// A program that this one started: an engine, or a launcher's helper.
///
/// Units:   seconds.
/// Tests:   tests/system/ChildProcessPosixTest.cpp, ProcessLibPosixTest.cpp,
/// ProcessLibWin32Test.cpp
#pragma once

#include <memory>
#include <optional>
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
    bool bOwnGroup = true;  ///< false, outside Windows: it stays in this program's process group,
                            ///< so that whoever kills the group ends both, and keeps its open files
};

/// How a program came to its end.
enum class ChildEnd {
    Exited,     ///< by itself; nCode is its exit status
    Killed,     ///< by a signal from elsewhere; nCode is its number
    TimeLimit,  ///< killed at the limit
    Stopped,    ///< killed because a stop was requested
};

struct ChildResult {
    ChildEnd eEnd = ChildEnd::Exited;
    int nCode = 0;
};

/// One program. Destroyed before it was waited for, it is killed.
class ChildProcess {
public:
    /// Starts a program with a hidden window, the null device as standard input, and a process
    /// group of its own. A program file that starts with "MZ" is started through wine outside
    /// Windows, with WINEDEBUG at -all unless the user set it (a word about the missing 32-bit half
    /// would pass for the program's own). A program named without a folder is sought on the search
    /// path. The program ends with Hopcast, even when that is killed: on Windows with its whole
    /// family (its job); on Linux with the thread that started it, so that this thread has to be
    /// the one that waits. A Windows program under wine gets no lock: wine's server would hold it
    /// on.
    /// @return "File not found" when there is no such program, "Permission denied" when it may not
    ///         be run, "Invalid procedure call or argument" when it is no program, "Path not found"
    ///         when the working folder is missing.
    [[nodiscard]] static Result<ChildProcess> Start(const ProcessCommand& command);
    /// A process that something else in this program started; none where it cannot be opened
    /// (outside Windows: where it is no child of this program, or no longer).
    [[nodiscard]] static std::optional<ChildProcess> Open(int nProcessId);

    ChildProcess(ChildProcess&&) noexcept;
    ChildProcess& operator=(ChildProcess&&) noexcept;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] int IdGet() const;
    /// Waits for the end, once. At the limit the program is killed with all of its family (its
    /// process group, on Windows its job); outside Windows it is asked first (SIGTERM) and given
    /// 0.2 s to clean up (0.02 s after a stop), save where it shares this program's group. What a
    /// program leaves behind of its family when it ends by itself is killed, too.
    /// @param stop  ends the wait like the limit, within some milliseconds
    [[nodiscard]] ChildResult Wait(double dSeconds, const std::stop_token& stop = {});

private:
    struct Host;  // what the platform knows of it
    explicit ChildProcess(std::unique_ptr<Host> pHost);
    std::unique_ptr<Host> m_pHost;
};
