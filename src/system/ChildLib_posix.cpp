#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include "system/ChildHost.h"
#include "system/ChildLib.h"
#include "system/Deadline.h"
#include "system/HostPath.h"
#include "system/RunErrorText.h"

namespace {

/// A child's end announces itself by a signal; looking again now and then costs nothing and covers
/// one that was lost.
constexpr std::chrono::milliseconds kLookAgain(100);

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
        m_file = FileHandle(signalfd(-1, &m_set, SFD_CLOEXEC | SFD_NONBLOCK));
    }
    ~SignalsTaken() { pthread_sigmask(SIG_SETMASK, &m_setBefore, nullptr); }
    SignalsTaken(const SignalsTaken&) = delete;
    SignalsTaken& operator=(const SignalsTaken&) = delete;

    /// Waits for one of them, or for a child's output. @return the signal's number, else 0.
    [[nodiscard]] int Next(std::chrono::milliseconds tWait, const ChildOutput& output) const
    {
        std::array<pollfd, 2> aPoll{pollfd{m_file.Get(), POLLIN, 0},
                                    pollfd{output.ReadEndGet(), POLLIN, 0}};
        poll(aPoll.data(), aPoll.size(),
             static_cast<int>(std::clamp(tWait, std::chrono::milliseconds(0), kLookAgain).count()));
        signalfd_siginfo info{};
        return read(m_file.Get(), &info, sizeof info) == sizeof info
                   ? static_cast<int>(info.ssi_signo)
                   : 0;
    }

private:
    sigset_t m_set;
    sigset_t m_setBefore{};
    FileHandle m_file;
};

/// Full path of a program; a bare name is sought in PATH.
std::string ProgramFind(const std::string& sWord)
{
    return sWord.find('/') == std::string::npos ? ProgramSearch(sWord, EnvironmentGet("PATH"))
                                                : sWord;
}

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
    ChildOutput output;
    int nErrno = output.Open(command.sOutputFile);
    if (nErrno != 0)
        return RunErrorFromErrno(nErrno);
    ChildStart start{command.asWords, EnvironmentCopy(), command.sWorkFolder, output.WriteEndGet()};
    start.asWords.front() = ProgramFind(command.asWords.front());
    pid_t nPid = 0;
    nErrno = start.asWords.front().empty() ? ENOENT : ChildProcessStart(std::move(start), nPid);
    if (nErrno != 0)
        return nErrno == ENOEXEC ? RunError{kInvalidCall} : RunErrorFromErrno(nErrno);
    output.WriteEndClose();

    const Deadline deadline(dSeconds);
    while (true) {
        output.Drain();
        if (const auto resEnded = ChildLook(nPid, WNOHANG)) {
            output.Drain();
            return *resEnded;
        }
        if (deadline.IsOver())
            return ChildKill(nPid, {ChildEnd::TimeLimit, 0});
        const int nSignal =
            signalsTaken.Next(std::chrono::ceil<std::chrono::milliseconds>(
                                  std::chrono::duration<double>(deadline.LeftGet())),
                              output);
        if (nSignal != 0 && nSignal != SIGCHLD)
            return ChildKill(nPid, {ChildEnd::Interrupted, nSignal});
    }
}
