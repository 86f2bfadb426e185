#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "system/EngineRootLib.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProcessHost.h"
#include "system/RunErrorText.h"

extern char** environ;

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

/// An open file, closed at the end of its scope.
class FileHandle {
public:
    explicit FileHandle(int nFile) : m_nFile(nFile) {}
    ~FileHandle()
    {
        if (m_nFile >= 0)
            close(m_nFile);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    [[nodiscard]] int Get() const { return m_nFile; }

private:
    int m_nFile;
};

/// The settings of one posix_spawn call.
struct SpawnSettings {
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};

    SpawnSettings()
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawnattr_init(&m_attributes);
    }
    ~SpawnSettings()
    {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_actions);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
};

RunError StartErrorMake(int nErrno)
{
    switch (nErrno) {
        case ENOENT:
        case ENOTDIR:
            return {kFileNotFound};
        case EACCES:
        case EPERM:
            return {kPermissionDenied};
        default:
            return {kInvalidCall};  // no program of this machine
    }
}

/// Full host path of the program; a bare name is sought on the search path.
std::string ProgramFind(const std::string& sWord)
{
    const std::string sProgram = PathToHost(sWord);
    if (sProgram.find('/') == std::string::npos)
        return ProgramSearch(sProgram, EnvironmentGet("PATH"));
    std::error_code ec;
    return fs::absolute(sProgram, ec).native();
}

bool IsWindowsProgram(const std::string& sProgram)
{
    const FileHandle file(open(sProgram.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    char acMagic[2] = {};
    return file.Get() >= 0 && read(file.Get(), acMagic, sizeof acMagic) == 2 && acMagic[0] == 'M'
           && acMagic[1] == 'Z';
}

/// The fixed root and what lies below it, as Windows programs find it; other paths are theirs
/// already.
std::string WordToWindows(const std::string& sWord)
{
    const bool bOwnRoot = EngineRootGet().sFolder == FixedEngineRootGet();
    return PathIsEngineRoot(sWord) && !bOwnRoot ? PathToWindows(PathToHost(sWord)) : sWord;
}

/// The words that the system starts: through wine for a Windows program.
Result<std::vector<std::string>> HostWordsMake(const ProcessCommand& command)
{
    const std::string sProgram = ProgramFind(command.asWords.front());
    struct stat info {};
    if (sProgram.empty() || stat(sProgram.c_str(), &info) != 0)
        return StartErrorMake(sProgram.empty() ? ENOENT : errno);
    if (!S_ISREG(info.st_mode))
        return RunError{kPermissionDenied};
    std::vector<std::string> asWords;
    if (IsWindowsProgram(sProgram)) {
        asWords.push_back(ProgramSearch("wine", EnvironmentGet("PATH")));
        if (asWords.front().empty())
            return RunError{std::string(kFileNotFound) + " (wine, which runs Windows programs)"};
        std::transform(command.asWords.begin(), command.asWords.end(), std::back_inserter(asWords),
                       WordToWindows);
        if (!PathHasDrive(asWords[1]))
            asWords[1] = PathToWindows(sProgram);
    } else {
        std::transform(command.asWords.begin(), command.asWords.end(), std::back_inserter(asWords),
                       [](const std::string& sWord) { return PathToHost(sWord); });
        asWords.front() = sProgram;
    }
    return asWords;
}

int Spawn(std::vector<std::string>& asWords, const std::string& sFolder, int nOutput, pid_t& nId)
{
    SpawnSettings settings;
    sigset_t setNone;
    sigset_t setAll;
    sigemptyset(&setNone);
    sigfillset(&setAll);
    posix_spawnattr_setflags(
        &settings.m_attributes,
        static_cast<short>(POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
    posix_spawnattr_setpgroup(&settings.m_attributes, 0);
    posix_spawnattr_setsigmask(&settings.m_attributes, &setNone);
    posix_spawnattr_setsigdefault(&settings.m_attributes, &setAll);
    posix_spawn_file_actions_addopen(&settings.m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&settings.m_actions, nOutput, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&settings.m_actions, nOutput, STDERR_FILENO);
    if (!sFolder.empty())
        posix_spawn_file_actions_addchdir_np(&settings.m_actions, sFolder.c_str());
    posix_spawn_file_actions_addclosefrom_np(&settings.m_actions, STDERR_FILENO + 1);
    std::vector<char*> asArguments;
    asArguments.reserve(asWords.size() + 1);
    for (std::string& sWord : asWords) asArguments.push_back(sWord.data());
    asArguments.push_back(nullptr);
    return posix_spawn(&nId, asArguments[0], &settings.m_actions, &settings.m_attributes,
                       asArguments.data(), environ);
}

/// Signals the process and what is left of its group. REQUIRES: the process is not reaped yet, so
/// that its number, which is its group's, cannot belong to anybody else.
void GroupSignal(pid_t nId, int nSignal)
{
    kill(nId, nSignal);  // no leader of a group when somebody else started it
    kill(-nId, nSignal);
}

/// True when the child has ended; it stays unreaped.
bool ChildHasEnded(pid_t nId)
{
    siginfo_t info{};
    const int nResult = waitid(P_PID, static_cast<id_t>(nId), &info, WEXITED | WNOHANG | WNOWAIT);
    return nResult == 0 && info.si_pid == nId;
}

/// Asks again and again until the child ends or the time is up. The steps are short at first, so
/// that a short run costs next to nothing on top.
bool ChildAwait(pid_t nId, Clock::time_point timeEnd)
{
    constexpr int kQuickSteps = 500;
    constexpr std::chrono::microseconds kQuick(200);
    constexpr std::chrono::milliseconds kSlow(1);
    for (int i = 0; !ChildHasEnded(nId); ++i) {
        if (Clock::now() >= timeEnd)
            return false;
        if (i < kQuickSteps)
            std::this_thread::sleep_for(kQuick);
        else
            std::this_thread::sleep_for(kSlow);
    }
    return true;
}

}  // namespace

Result<int> HostProcessStart(const ProcessCommand& command)
{
    auto resWords = HostWordsMake(command);
    if (!resWords)
        return resWords.ErrorGet();
    const std::string sFolder = PathToHost(command.sWorkFolder);
    std::error_code ec;
    if (!sFolder.empty() && !fs::is_directory(sFolder, ec))
        return RunError{kPathNotFound};
    const std::string sOutput =
        command.sOutputFile.empty() ? "/dev/null" : PathToHost(command.sOutputFile);
    const FileHandle output(
        open(sOutput.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666));
    if (output.Get() < 0)
        return RunErrorFromErrno(errno);
    // Where children are ignored (a habit of some parents, inherited) none could be waited for.
    struct sigaction action {};
    if (sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        signal(SIGCHLD, SIG_DFL);
    pid_t nId = 0;
    if (const int nErrno = Spawn(resWords.ValueGet(), sFolder, output.Get(), nId))
        return StartErrorMake(nErrno);
    return nId;
}

bool ProcessWait(int nProcessId, double dSeconds)
{
    constexpr double kSecondsMax = 1e6;
    constexpr std::chrono::milliseconds kGrace(200);
    constexpr std::chrono::seconds kReapMax(
        2);  // a killed process goes at once, save in a hung disk
    siginfo_t info{};
    if (nProcessId <= 1
        || waitid(P_PID, static_cast<id_t>(nProcessId), &info, WEXITED | WNOHANG | WNOWAIT) != 0)
        return true;  // no child of ours, or no longer
    const double dLimit = dSeconds > 0.0 ? std::min(dSeconds, kSecondsMax) : 0.0;
    const auto timeEnd =
        Clock::now()
        + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(dLimit));
    const bool bEnded = ChildAwait(nProcessId, timeEnd);
    if (!bEnded) {
        GroupSignal(nProcessId, SIGTERM);  // a launcher takes its temporary files away
        (void)ChildAwait(nProcessId, Clock::now() + kGrace);
    }
    GroupSignal(nProcessId, SIGKILL);
    if (!bEnded && !ChildAwait(nProcessId, Clock::now() + kReapMax))
        return false;
    int nStatus = 0;
    const bool bReaped = waitpid(nProcessId, &nStatus, WNOHANG) == nProcessId;
    return bEnded && bReaped && WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == 0;
}
