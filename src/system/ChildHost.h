/// @file ChildHost.h
/// How a program is started outside Windows, and where its output goes. Private to
/// ChildProcess, ProcessLib and SignalLib.
///
/// Errors:  errno values.
/// Tests:   tests/system/ProcessLibPosixTest.cpp, ChildProcessPosixTest.cpp
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

#include "system/ChildProcess.h"

/// An open file, closed at the end of its scope.
class FileHandle {
public:
    explicit FileHandle(int nFile = -1) : m_nFile(nFile) {}
    ~FileHandle() { Close(); }
    FileHandle(FileHandle&& other) noexcept;
    FileHandle& operator=(FileHandle&& other) noexcept;
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    [[nodiscard]] int Get() const { return m_nFile; }
    void Close();

private:
    int m_nFile;
};

/// Carries a program's standard output and error into a file: the first MB is kept, the rest is
/// read and dropped, so that no program can fill the disk.
class ChildOutput {
public:
    /// Opens a new file for output; without a name everything is dropped. @return 0 or an errno
    /// value.
    int Open(const std::string& sHostPath);
    /// What the program writes to.
    [[nodiscard]] int WriteEndGet() const { return m_writeEnd.Get(); }
    /// Called when the program has started.
    void WriteEndClose() { m_writeEnd.Close(); }
    /// The descriptor to poll(); -1 once nothing more can come.
    [[nodiscard]] int ReadEndGet() const { return m_readEnd.Get(); }
    /// Reads what is there, at most 1 MB, without waiting.
    void Drain();

    static constexpr std::size_t kKeptMax = std::size_t{1} << 20;

private:
    FileHandle m_readEnd;
    FileHandle m_writeEnd;
    FileHandle m_file;
    std::size_t m_nKept = 0;
};

/// What a program starts with. It also gets the null device as standard input, default signal
/// handling and, on Linux, the order to die with the thread that starts it.
struct ChildStart {
    std::vector<std::string> asWords;        ///< the first is the program's full path
    std::vector<std::string> asEnvironment;  ///< NAME=VALUE
    std::string sFolder;                     ///< empty: the current one
    int nOutput = -1;                        ///< becomes standard output and error
    int nLock = -1;                          ///< becomes descriptor 3; the holder is noted in it
    bool bOwnGroup = false;                  ///< its own process group, and no other open file
};

/// Starts a program. @return 0 or the errno of the failure.
[[nodiscard]] int HostChildStart(ChildStart start, pid_t& nId);

/// This program's environment.
[[nodiscard]] std::vector<std::string> EnvironmentCopy();

/// The program that the system starts, and its words.
struct HostCommand {
    std::vector<std::string> asWords;
    bool bWine = false;
};

/// The command as the system starts it: through wine for a Windows program. REQUIRES: at least one
/// word, the first not empty.
[[nodiscard]] Result<HostCommand> HostCommandMake(const ProcessCommand& command);

/// Why a program could not be started.
[[nodiscard]] RunError StartErrorMake(int nErrno);

/// Ends all started programs and their groups because this program is ending: first SIGTERM, after
/// 0.2 s SIGKILL. From then on no program is started, and a call that starts one or waits for one
/// never returns.
void HostProcessesEnd();
