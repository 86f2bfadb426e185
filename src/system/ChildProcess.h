/// @file ChildProcess.h
/// A program that this one has started: an engine, or a launcher's helper.
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

/// A command line, split into words.
struct ProcessCommand {
    std::vector<std::string> asWords;  ///< program first; passed as they are, without a shell
    std::string sWorkFolder;           ///< host path; empty: the current folder
    std::string sOutputFile;           ///< receives the first MB of standard output and error, the
                                       ///< rest is dropped; empty: all is dropped
    const FileLock* pLock = nullptr;   ///< the program inherits it: held until both have ended
    std::string sProgram = {};         ///< host path of the program's file; empty: the first word
    bool bOwnGroup = true;  ///< false, outside Windows: it stays in this program's process group,
                            ///< so that killing the group ends both, and keeps its open files
};

/// How a program ended.
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

/// One program. It is killed if this is destroyed before the wait.
class ChildProcess {
public:
    /// Starts a program with a hidden window, the null device as standard input, and its own
    /// process group. Outside Windows a program file that starts with "MZ" is started through wine,
    /// with WINEDEBUG=-all unless the user has set it (wine's complaint about its missing 32-bit
    /// half would look like the program's own words). A program named without a folder is looked
    /// for on the search path. The program ends with Hopcast, even when Hopcast is killed: on
    /// Windows with its whole family (its job); on Linux with the thread that started it, so that
    /// the same thread has to wait for it. A Windows program under wine gets no lock: wine's server
    /// would go on holding it.
    /// @return "File not found" when there is no such program, "Permission denied" when it may not
    ///         be run, "Invalid procedure call or argument" when it is not a program, "Path not
    ///         found" when the working folder is missing.
    [[nodiscard]] static Result<ChildProcess> Start(const ProcessCommand& command);
    /// A process that something else in this program has started; nothing if it cannot be opened
    /// (outside Windows: if it is not, or no longer, a child of this program).
    [[nodiscard]] static std::optional<ChildProcess> Open(int nProcessId);

    ChildProcess(ChildProcess&&) noexcept;
    ChildProcess& operator=(ChildProcess&&) noexcept;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] int IdGet() const;
    /// Waits for the end, once. At the limit the program is killed with all of its family (its
    /// process group, on Windows its job); outside Windows it gets SIGTERM first and 0.2 s to clean
    /// up (0.02 s after a stop), unless it shares this program's group. Whatever is left of its
    /// family when a program ends by itself is killed, too.
    /// @param stop  ends the wait like the limit, within some milliseconds
    [[nodiscard]] ChildResult Wait(double dSeconds, const std::stop_token& stop = {});

private:
    struct Host;  // the platform's data of it
    explicit ChildProcess(std::unique_ptr<Host> pHost);
    std::unique_ptr<Host> m_pHost;
};
