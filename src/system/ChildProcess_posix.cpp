#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>

#include "system/ChildHost.h"
#include "system/ChildProcess.h"
#include "system/Deadline.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

struct ChildProcess::Host {
    pid_t nId = 0;
    bool bOwnGroup = true;
    bool bWaited = false;
    ChildOutput output{};
};

namespace {

/// The programs that were started and not yet reaped. The signals' thread reads them, too.
struct StartedPrograms {
    std::mutex m_mutex;
    std::set<pid_t> m_setIds;
    bool bEnding = false;
};

StartedPrograms& StartedGet()
{
    static auto* const pStarted = new StartedPrograms;  // outlives every thread
    return *pStarted;
}

/// Blocks a thread for good once the program is ending: what the thread would do now, or report of
/// a killed engine, no longer matters.
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
/// that its number, which is also its group's, cannot have been reused.
void GroupSignal(pid_t nId, int nSignal)
{
    kill(nId, nSignal);  // it leads no group if it was not started here
    kill(-nId, nSignal);
}

/// True when the child has ended; it stays unreaped.
bool ChildHasEnded(pid_t nId)
{
    siginfo_t info{};
    const int nResult = waitid(P_PID, static_cast<id_t>(nId), &info, WEXITED | WNOHANG | WNOWAIT);
    return nResult == 0 && info.si_pid == nId;
}

/// A descriptor that becomes readable when the child ends; -1 on a kernel without them.
class ChildEndSignal {
public:
    // Through syscall(): glibc 2.36 declares pidfd_open for C only.
    explicit ChildEndSignal(pid_t nId) : m_nFile(static_cast<int>(syscall(SYS_pidfd_open, nId, 0)))
    {
    }
    ChildEndSignal(const ChildEndSignal&) = delete;
    ChildEndSignal& operator=(const ChildEndSignal&) = delete;
    ~ChildEndSignal()
    {
        if (m_nFile != -1)
            close(m_nFile);
    }
    [[nodiscard]] int FileGet() const { return m_nFile; }

private:
    int m_nFile;
};

/// Takes the child's output until it ends or the time is up. Its end and its output wake this
/// thread; the limit and a stop are polled, and so is the end on a kernel that does not signal it.
bool ChildAwait(pid_t nId, ChildOutput& output, const Deadline& deadline,
                const std::stop_token& stop = {})
{
    constexpr timespec kWoken{0, 4'000'000};  // ns
    constexpr timespec kAsking{0, 500'000};
    const ChildEndSignal end(nId);
    while (!ChildHasEnded(nId)) {
        if (deadline.IsOver() || stop.stop_requested())
            return false;
        // poll() ignores descriptor -1.
        std::array<pollfd, 2> aPoll{{{output.ReadEndGet(), POLLIN, 0}, {end.FileGet(), POLLIN, 0}}};
        ppoll(aPoll.data(), aPoll.size(), end.FileGet() == -1 ? &kAsking : &kWoken, nullptr);
        output.Drain();
    }
    output.Drain();
    return true;
}

/// Reaps a child. From here on the number may belong to another process, so no other thread may be
/// signalling it.
ChildResult ChildReap(pid_t nId)
{
    const auto lock = StartedLock();
    StartedGet().m_setIds.erase(nId);
    int nStatus = 0;
    if (waitpid(nId, &nStatus, WNOHANG) != nId)
        return {ChildEnd::Killed, 0};
    if (WIFEXITED(nStatus))
        return {ChildEnd::Exited, WEXITSTATUS(nStatus)};
    return {ChildEnd::Killed, WTERMSIG(nStatus)};
}

}  // namespace

ChildProcess::ChildProcess(std::unique_ptr<Host> pHost) : m_pHost(std::move(pHost)) {}
ChildProcess::ChildProcess(ChildProcess&&) noexcept = default;

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept
{
    std::swap(m_pHost, other.m_pHost);
    return *this;
}

ChildProcess::~ChildProcess()
{
    if (m_pHost && !m_pHost->bWaited)
        (void)Wait(0.0);
}

int ChildProcess::IdGet() const { return m_pHost->nId; }

Result<ChildProcess> ChildProcess::Start(const ProcessCommand& command)
{
    if (command.asWords.empty() || command.asWords.front().empty())
        return RunError{kFileNotFound};
    auto resHost = HostCommandMake(command);
    if (!resHost)
        return resHost.ErrorGet();
    const std::string& sFolder = command.sWorkFolder;
    std::error_code ec;
    if (!sFolder.empty() && !fs::is_directory(sFolder, ec))
        return RunError{kPathNotFound};
    auto pHost = std::make_unique<Host>();
    pHost->bOwnGroup = command.bOwnGroup;
    if (const int nErrno = pHost->output.Open(command.sOutputFile))
        return RunErrorFromErrno(nErrno);
    // Some parents ignore SIGCHLD, which is inherited; then no child could be waited for.
    struct sigaction action {};
    if (sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        signal(SIGCHLD, SIG_DFL);
    HostCommand& host = resHost.ValueGet();
    ChildStart start{host.asWords, EnvironmentCopy(), sFolder, pHost->output.WriteEndGet(),
                     -1,           command.bOwnGroup};
    if (host.bWine && std::getenv("WINEDEBUG") == nullptr)
        start.asEnvironment.emplace_back("WINEDEBUG=-all");
    if (!host.bWine && command.pLock != nullptr)
        start.nLock = command.pLock->DescriptorGet();
    const auto lock = StartedLock();
    if (const int nErrno = HostChildStart(std::move(start), pHost->nId))
        return StartErrorMake(nErrno);
    pHost->output.WriteEndClose();
    StartedGet().m_setIds.insert(pHost->nId);
    return ChildProcess(std::move(pHost));
}

std::optional<ChildProcess> ChildProcess::Open(int nProcessId)
{
    siginfo_t info{};
    if (nProcessId <= 1
        || waitid(P_PID, static_cast<id_t>(nProcessId), &info, WEXITED | WNOHANG | WNOWAIT) != 0)
        return {};
    auto pHost = std::make_unique<Host>();
    pHost->nId = nProcessId;
    return ChildProcess(std::move(pHost));
}

ChildResult ChildProcess::Wait(double dSeconds, const std::stop_token& stop)
{
    constexpr double kGrace = 0.2;          // seconds
    constexpr double kGraceStopped = 0.02;  // a window is closing
    constexpr double kReapMax = 2.0;        // a killed process ends at once, unless a disk hangs
    const pid_t nId = m_pHost->nId;
    ChildOutput& output = m_pHost->output;
    m_pHost->bWaited = true;
    const bool bEnded = ChildAwait(nId, output, Deadline(dSeconds), stop);
    const ChildEnd eCut = stop.stop_requested() ? ChildEnd::Stopped : ChildEnd::TimeLimit;
    StartedLock().unlock();  // when this program is ending it signals its engines itself
    if (!bEnded && m_pHost->bOwnGroup) {
        GroupSignal(nId, SIGTERM);  // a launcher removes its temporary files
        (void)ChildAwait(nId, output, Deadline(eCut == ChildEnd::Stopped ? kGraceStopped : kGrace));
    }
    GroupSignal(nId, SIGKILL);
    if (!bEnded)
        (void)ChildAwait(nId, output, Deadline(kReapMax));
    const ChildResult result = ChildReap(nId);
    return bEnded ? result : ChildResult{eCut, 0};
}

void HostProcessesEnd()
{
    constexpr double kGrace = 0.2;  // seconds
    const std::unique_lock<std::mutex> lock(StartedGet().m_mutex);
    StartedGet().bEnding = true;
    const std::set<pid_t>& setIds = StartedGet().m_setIds;
    for (const pid_t nId : setIds) GroupSignal(nId, SIGTERM);
    const Deadline deadline(kGrace);
    for (const pid_t nId : setIds) {
        while (!ChildHasEnded(nId) && !deadline.IsOver())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        GroupSignal(nId, SIGKILL);
    }
}
