#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "system/ChildHost.h"
#include "system/Deadline.h"
#include "system/DrivePath.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProcessHost.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

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
std::string ProgramFind(const std::string& sProgram)
{
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

/// What the system starts.
struct HostCommand {
    std::vector<std::string> asWords;
    bool bWine = false;
};

/// The words that the system starts: through wine for a Windows program.
Result<HostCommand> HostCommandMake(const ProcessCommand& command)
{
    const std::string sProgram =
        ProgramFind(command.sProgram.empty() ? command.asWords.front() : command.sProgram);
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
        asWords.insert(asWords.end(), command.asWords.begin(), command.asWords.end());
        if (!PathHasDrive(asWords[1]))
            asWords[1] = PathToWindows(sProgram);
    } else {
        asWords = command.asWords;
        asWords.front() = sProgram;
    }
    return host;
}

/// What was started and not yet waited for. The signals' thread looks at it, too.
struct StartedPrograms {
    std::mutex m_mutex;
    std::map<pid_t, ChildOutput> mapOutput;
    bool bEnding = false;
};

StartedPrograms& StartedGet()
{
    static auto* const pStarted = new StartedPrograms;  // outlives every thread
    return *pStarted;
}

/// The output of a program; a fresh one that takes nothing for one that somebody else started.
ChildOutput& OutputOf(pid_t nId)
{
    const std::lock_guard<std::mutex> lock(StartedGet().m_mutex);
    return StartedGet().mapOutput[nId];
}

/// Holds a thread until the program's end, when that is under way: what it would do now, or tell
/// its user of a killed engine, is no longer wanted.
std::unique_lock<std::mutex> StartedLock()
{
    std::unique_lock<std::mutex> lock(StartedGet().m_mutex);
    while (StartedGet().bEnding) {
        lock.unlock();
        std::this_thread::sleep_for(std::chrono::seconds(1));
        lock.lock();
    }
    return lock;
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

/// Takes the child's output and asks again and again until it ends or the time is up. The steps are
/// short at first, so that a short run costs next to nothing on top.
bool ChildAwait(pid_t nId, ChildOutput& output, const Deadline& deadline,
                const std::stop_token& stop = {})
{
    constexpr int kQuickSteps = 500;
    constexpr timespec kQuick{0, 200'000};  // ns
    constexpr timespec kSlow{0, 1'000'000};
    for (int i = 0; !ChildHasEnded(nId); ++i) {
        if (deadline.IsOver() || stop.stop_requested())
            return false;
        pollfd poll{output.ReadEndGet(), POLLIN, 0};  // of -1 nothing is asked
        ppoll(&poll, 1, i < kQuickSteps ? &kQuick : &kSlow, nullptr);
        output.Drain();
    }
    output.Drain();
    return true;
}

}  // namespace

Result<int> HostProcessStart(const ProcessCommand& command)
{
    auto resHost = HostCommandMake(command);
    if (!resHost)
        return resHost.ErrorGet();
    const std::string& sFolder = command.sWorkFolder;
    std::error_code ec;
    if (!sFolder.empty() && !fs::is_directory(sFolder, ec))
        return RunError{kPathNotFound};
    ChildOutput output;
    if (const int nErrno = output.Open(command.sOutputFile))
        return RunErrorFromErrno(nErrno);
    // Where children are ignored (a habit of some parents, inherited) none could be waited for.
    struct sigaction action {};
    if (sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        signal(SIGCHLD, SIG_DFL);
    HostCommand& host = resHost.ValueGet();
    ChildStart start{host.asWords, EnvironmentCopy(), sFolder, output.WriteEndGet(), -1, true};
    if (host.bWine && std::getenv("WINEDEBUG") == nullptr)
        start.asEnvironment.emplace_back("WINEDEBUG=-all");
    if (!host.bWine && command.pLock != nullptr)
        start.nLock = command.pLock->DescriptorGet();
    const auto lock = StartedLock();
    pid_t nId = 0;
    if (const int nErrno = ChildProcessStart(std::move(start), nId))
        return StartErrorMake(nErrno);
    output.WriteEndClose();
    StartedGet().mapOutput.insert_or_assign(nId, std::move(output));
    return nId;
}

void HostProcessesEnd()
{
    constexpr double kGrace = 0.2;  // seconds
    const std::unique_lock<std::mutex> lock(StartedGet().m_mutex);
    StartedGet().bEnding = true;
    const auto& mapOutput = StartedGet().mapOutput;
    for (const auto& [nId, output] : mapOutput) GroupSignal(nId, SIGTERM);
    const Deadline deadline(kGrace);
    for (const auto& [nId, output] : mapOutput) {
        while (!ChildHasEnded(nId) && !deadline.IsOver())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        GroupSignal(nId, SIGKILL);
    }
}

bool ProgramIsWindows(const std::string& sProgram) { return IsWindowsProgram(sProgram); }

std::string ProgramLackGet(const std::string& sProgram)
{
    if (!IsWindowsProgram32(ProgramFind(sProgram)) || !WineLacks32())
        return {};
    return "a 32-bit program, and Wine's 32-bit half is missing: install the package wine32:i386, "
           "then run wineboot -u";
}

bool ProcessWait(int nProcessId, double dSeconds, const std::stop_token& stop)
{
    constexpr double kGrace = 0.2;          // seconds
    constexpr double kGraceStopped = 0.02;  // a window is closing
    constexpr double kReapMax = 2.0;        // a killed process goes at once, save in a hung disk
    siginfo_t info{};
    if (nProcessId <= 1
        || waitid(P_PID, static_cast<id_t>(nProcessId), &info, WEXITED | WNOHANG | WNOWAIT) != 0)
        return true;  // no child of ours, or no longer
    ChildOutput& output = OutputOf(nProcessId);
    const bool bEnded = ChildAwait(nProcessId, output, Deadline(dSeconds), stop);
    const auto lock = StartedLock();
    if (!bEnded) {
        GroupSignal(nProcessId, SIGTERM);  // a launcher takes its temporary files away
        (void)ChildAwait(nProcessId, output,
                         Deadline(stop.stop_requested() ? kGraceStopped : kGrace));
    }
    GroupSignal(nProcessId, SIGKILL);
    const bool bGone = bEnded || ChildAwait(nProcessId, output, Deadline(kReapMax));
    StartedGet().mapOutput.erase(nProcessId);
    if (!bGone)
        return false;
    int nStatus = 0;
    const bool bReaped = waitpid(nProcessId, &nStatus, WNOHANG) == nProcessId;
    return bEnded && bReaped && WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == 0;
}
