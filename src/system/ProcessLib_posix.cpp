#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
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

/// nCount bytes at a place in a file; fewer when it ends before.
std::string BytesAt(const FileHandle& file, off_t nPlace, std::size_t nCount)
{
    std::string sBytes(nCount, '\0');
    const ssize_t nRead =
        file.Get() >= 0 ? pread(file.Get(), sBytes.data(), sBytes.size(), nPlace) : 0;
    sBytes.resize(nRead > 0 ? static_cast<std::size_t>(nRead) : 0);
    return sBytes;
}

FileHandle ProgramOpen(const std::string& sProgram)
{
    return FileHandle(open(sProgram.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

bool IsWindowsProgram(const std::string& sProgram)
{
    return BytesAt(ProgramOpen(sProgram), 0, 2) == "MZ";
}

/// True for a Windows program of 32 bits: byte 0x3C tells where the header "PE" stands, behind
/// which the processor is named.
bool IsWindowsProgram32(const std::string& sProgram)
{
    constexpr std::size_t kHeaderPlace = 0x3C;
    constexpr std::string_view kHeader386("PE\0\0\x4C\x01", 6);
    const FileHandle file = ProgramOpen(sProgram);
    const std::string sStart = BytesAt(file, 0, kHeaderPlace + 4);
    if (sStart.size() < kHeaderPlace + 4 || sStart.substr(0, 2) != "MZ")
        return false;
    std::uint32_t nHeader = 0;
    for (std::size_t i = 4; i-- > 0;)
        nHeader = (nHeader << 8U) + static_cast<unsigned char>(sStart[kHeaderPlace + i]);
    return BytesAt(file, nHeader, kHeader386.size()) == kHeader386;
}

/// True when the Wine prefix is made for 64 bits and holds no library for 32. (The time stamp is
/// written when the prefix is complete.)
bool WineLacks32()
{
    const std::string sPrefix = WinePrefixGet();
    const std::string sWindows = HostPathBelow(sPrefix + "/drive_c", "/windows");
    std::error_code ec;
    return fs::exists(sPrefix + "/.update-timestamp", ec)
           && fs::is_directory(sWindows + "/syswow64", ec)
           && !fs::exists(sWindows + "/syswow64/ntdll.dll", ec);
}

/// The environment of a started program.
std::vector<std::string> EnvironmentMake(bool bWine)
{
    std::vector<std::string> asEnvironment;
    for (char** pWord = environ; *pWord != nullptr; ++pWord) asEnvironment.emplace_back(*pWord);
    if (bWine && std::getenv("WINEDEBUG") == nullptr)
        asEnvironment.emplace_back("WINEDEBUG=-all");
    return asEnvironment;
}

std::vector<char*> PointersMake(std::vector<std::string>& asWords)
{
    std::vector<char*> apWords;
    apWords.reserve(asWords.size() + 1);
    for (std::string& sWord : asWords) apWords.push_back(sWord.data());
    apWords.push_back(nullptr);
    return apWords;
}

/// The fixed root and what lies below it, as Windows programs find it; other paths are theirs
/// already.
std::string WordToWindows(const std::string& sWord)
{
    const bool bOwnRoot = EngineRootGet().sFolder == FixedEngineRootGet();
    return PathIsEngineRoot(sWord) && !bOwnRoot ? PathToWindows(PathToHost(sWord)) : sWord;
}

/// What the system starts.
struct HostCommand {
    std::vector<std::string> asWords;
    bool bWine = false;
};

/// The words that the system starts: through wine for a Windows program.
Result<HostCommand> HostCommandMake(const ProcessCommand& command)
{
    const std::string sProgram = ProgramFind(command.asWords.front());
    struct stat info {};
    if (sProgram.empty() || stat(sProgram.c_str(), &info) != 0)
        return StartErrorMake(sProgram.empty() ? ENOENT : errno);
    if (!S_ISREG(info.st_mode))
        return RunError{kPermissionDenied};
    HostCommand host{{}, IsWindowsProgram(sProgram)};
    std::vector<std::string>& asWords = host.asWords;
    if (host.bWine) {
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
    return host;
}

int Spawn(HostCommand& host, const std::string& sFolder, int nOutput, pid_t& nId)
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
    std::vector<std::string> asEnvironment = EnvironmentMake(host.bWine);
    const std::vector<char*> apArguments = PointersMake(host.asWords);
    const std::vector<char*> apEnvironment = PointersMake(asEnvironment);
    return posix_spawn(&nId, apArguments[0], &settings.m_actions, &settings.m_attributes,
                       apArguments.data(), apEnvironment.data());
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
    auto resHost = HostCommandMake(command);
    if (!resHost)
        return resHost.ErrorGet();
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
    if (const int nErrno = Spawn(resHost.ValueGet(), sFolder, output.Get(), nId))
        return StartErrorMake(nErrno);
    return nId;
}

std::string ProgramLackGet(const std::string& sProgram)
{
    if (!IsWindowsProgram32(ProgramFind(sProgram)) || !WineLacks32())
        return {};
    return "a 32-bit program, and Wine's 32-bit half is missing: install the package wine32:i386, "
           "then run wineboot -u";
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
