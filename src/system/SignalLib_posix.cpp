#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <thread>
#include <utility>

#include "system/ChildHost.h"
#include "system/SignalLib.h"

namespace {

int nPipeEnd = -1;  // for the handler

/// The ending signals that are not ignored.
sigset_t EndSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (sigaction(nSignal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&set, nSignal);
    }
    return set;
}

/// Waits for one of the signals. REQUIRES: they are blocked in every thread.
int SignalAwait(const sigset_t& set)
{
    int nSignal = 0;
    while (sigwait(&set, &nSignal) != 0) {
    }
    return nSignal;
}

/// Waits for a signal and ends the program by it.
void EndAwait(sigset_t set, const std::function<void()>& fnCleanUp)
{
    const int nSignal = SignalAwait(set);
    HostProcessesEnd();
    fnCleanUp();
    signal(nSignal, SIG_DFL);
    sigset_t setThis;
    sigemptyset(&setThis);
    sigaddset(&setThis, nSignal);
    pthread_sigmask(SIG_UNBLOCK, &setThis, nullptr);
    kill(getpid(), nSignal);  // no other thread waits for it
}

void PipeWrite(int)
{
    const char cTold = 1;
    (void)!write(nPipeEnd, &cTold, 1);
}

}  // namespace

void EndSignalsHandle(std::function<void()> fnCleanUp)
{
    const sigset_t set = EndSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);  // later threads inherit it
    std::thread(EndAwait, set, std::move(fnCleanUp)).detach();
}

int EndSignalsPipe()
{
    std::array<int, 2> anEnds{-1, -1};
    if (pipe2(anEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return -1;
    nPipeEnd = anEnds[1];
    const sigset_t set = EndSignals();
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        action.sa_handler = PipeWrite;
        action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
        if (sigismember(&set, nSignal) == 1)
            sigaction(nSignal, &action, nullptr);
    }
    return anEnds[0];
}

std::stop_token EndSignalsStop()
{
    static auto* const pStop = new std::stop_source;  // outlives the thread
    for (const int nSignal : {SIGPIPE, SIGXFSZ}) signal(nSignal, SIG_IGN);
    const sigset_t set = EndSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    std::thread([set] {
        (void)SignalAwait(set);
        pStop->request_stop();
    }).detach();
    return pStop->get_token();
}
