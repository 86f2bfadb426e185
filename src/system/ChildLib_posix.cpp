#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>

#include "system/ChildLib.h"
#include "system/RunErrorText.h"

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr const char* kNullDevice = "/dev/null";
constexpr mode_t kFileMode = 0666;
/// A child's end announces itself by a signal; looking again now and then costs nothing and covers
/// one that was lost.
constexpr std::chrono::nanoseconds kLookAgain = std::chrono::milliseconds(100);

sigset_t EndSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, nSignal);
    return set;
}

/// Blocks the signals that the wait takes by hand, and puts the old mask back.
class SignalsTaken {
public:
    SignalsTaken() : m_set(EndSignals())
    {
        sigaddset(&m_set, SIGCHLD);
        // An ignored SIGCHLD, inherited from a careless parent, would swallow the child's status.
        signal(SIGCHLD, SIG_DFL);
        pthread_sigmask(SIG_BLOCK, &m_set, &m_setBefore);
    }
    ~SignalsTaken() { pthread_sigmask(SIG_SETMASK, &m_setBefore, nullptr); }
    SignalsTaken(const SignalsTaken&) = delete;
    SignalsTaken& operator=(const SignalsTaken&) = delete;

    /// Waits for one of them. @return its number, 0 when the time is over.
    [[nodiscard]] int Next(std::chrono::nanoseconds tWait) const
    {
        tWait = std::clamp(tWait, std::chrono::nanoseconds(0), kLookAgain);
        const timespec tsWait{0, static_cast<long>(tWait.count())};
        const int nSignal = sigtimedwait(&m_set, nullptr, &tsWait);
        return nSignal > 0 ? nSignal : 0;
    }

private:
    sigset_t m_set;
    sigset_t m_setBefore{};
};

/// What the child starts with: its streams, its folder, an ordinary signal mask.
class SpawnSetup {
public:
    explicit SpawnSetup(const ProcessCommand& command)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawnattr_init(&m_attributes);
        const char* pszOutput =
            command.sOutputFile.empty() ? kNullDevice : command.sOutputFile.c_str();
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, kNullDevice, O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, pszOutput,
                                         O_WRONLY | O_CREAT | O_TRUNC, kFileMode);
        posix_spawn_file_actions_adddup2(&m_actions, STDOUT_FILENO, STDERR_FILENO);
        if (!command.sWorkFolder.empty())
            posix_spawn_file_actions_addchdir_np(&m_actions, command.sWorkFolder.c_str());
        sigset_t setNone;
        sigemptyset(&setNone);
        sigset_t setDefault;
        sigfillset(&setDefault);
        posix_spawnattr_setsigmask(&m_attributes, &setNone);
        posix_spawnattr_setsigdefault(&m_attributes, &setDefault);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSetup()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    /// @return 0 or the errno of the failure.
    int Start(std::vector<std::string> asWords, pid_t& nPid) const
    {
        std::vector<char*> aArguments;
        for (std::string& sWord : asWords) aArguments.push_back(sWord.data());
        aArguments.push_back(nullptr);
        return posix_spawnp(&nPid, aArguments[0], &m_actions, &m_attributes, aArguments.data(),
                            environ);
    }

private:
    posix_spawn_file_actions_t m_actions;
    posix_spawnattr_t m_attributes;
};

std::optional<ChildResult> ChildLook(pid_t nPid, int nOptions)
{
    int nStatus = 0;
    pid_t nEnded = 0;
    do {
        nEnded = waitpid(nPid, &nStatus, nOptions);
    } while (nEnded < 0 && errno == EINTR);
    if (nEnded == 0)
        return std::nullopt;
    if (nEnded == nPid && WIFEXITED(nStatus))
        return ChildResult{ChildEnd::Exited, WEXITSTATUS(nStatus)};
    return ChildResult{ChildEnd::Killed, nEnded == nPid ? WTERMSIG(nStatus) : 0};
}

ChildResult ChildKill(pid_t nPid, ChildResult resWhy)
{
    kill(nPid, SIGKILL);
    ChildLook(nPid, 0);
    return resWhy;
}

}  // namespace

void ChildSignalsHold()
{
    const sigset_t set = EndSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    for (const int nSignal : {SIGPIPE, SIGXFSZ}) signal(nSignal, SIG_IGN);
}

Result<ChildResult> ChildRun(const ProcessCommand& command, double dSeconds)
{
    if (command.asWords.empty())
        return RunError{kInvalidCall};
    const SignalsTaken signalsTaken;
    pid_t nPid = 0;
    const int nErrno = SpawnSetup(command).Start(command.asWords, nPid);
    if (nErrno != 0)
        return nErrno == ENOEXEC ? RunError{kInvalidCall} : RunErrorFromErrno(nErrno);

    const auto tEnd = SteadyClock::now() + std::chrono::duration<double>(dSeconds);
    while (true) {
        if (const auto resEnded = ChildLook(nPid, WNOHANG))
            return *resEnded;
        const auto tLeft =
            std::chrono::duration_cast<std::chrono::nanoseconds>(tEnd - SteadyClock::now());
        if (tLeft.count() <= 0)
            return ChildKill(nPid, {ChildEnd::TimeLimit, 0});
        const int nSignal = signalsTaken.Next(tLeft);
        if (nSignal != 0 && nSignal != SIGCHLD)
            return ChildKill(nPid, {ChildEnd::Interrupted, nSignal});
    }
}
