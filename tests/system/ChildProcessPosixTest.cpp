#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "support/ChildRun.h"
#include "support/TempFolder.h"
#include "system/ChildHost.h"
#include "system/RunErrorText.h"
#include "system/SignalLib.h"

namespace {

constexpr double kLong = 10.0;

ProcessCommand Shell(const std::string& sScript)
{
    ProcessCommand command;
    command.asWords = {"sh", "-c", sScript};
    return command;
}

TEST(ChildProcessPosix, GivesTheExitStatus)
{
    const auto res = ChildRun(Shell("exit 7"), kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Exited);
    EXPECT_EQ(res.ValueGet().nCode, 7);
}

TEST(ChildProcessPosix, GivesTheExitStatusEvenWhenChildSignalsWereIgnored)
{
    signal(SIGCHLD, SIG_IGN);
    const auto res = ChildRun(Shell("exit 7"), kLong);
    signal(SIGCHLD, SIG_DFL);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Exited);
    EXPECT_EQ(res.ValueGet().nCode, 7);
}

TEST(ChildProcessPosix, RunsInItsFolderWithTheNullDeviceAsInputAndBothStreamsInTheFile)
{
    const TempFolder folder;
    ProcessCommand command = Shell("cat; pwd; echo said; echo wailed >&2");
    command.sWorkFolder = folder.Path();
    command.sOutputFile = folder.Path("console.txt");
    const auto res = ChildRun(command, kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(BytesRead(command.sOutputFile), folder.Path() + "\nsaid\nwailed\n");
}

TEST(ChildProcessPosix, IsNotStartedWithoutTheLockThatItIsToHold)
{
    const FileHandle output(open("/dev/null", O_WRONLY | O_CLOEXEC));
    ChildStart start{{"/bin/sh", "-c", "exit 0"}, EnvironmentCopy(), "", output.Get(), 0, true};
    start.nLock = std::numeric_limits<int>::max();
    pid_t nId = -1;
    EXPECT_EQ(HostChildStart(start, nId), EBADF) << "nothing is open under the number";
    if (nId > 0)
        waitpid(nId, nullptr, 0);
}

TEST(ChildProcessPosix, KillsAtTheLimit)
{
    const auto tStart = std::chrono::steady_clock::now();
    const auto res = ChildRun(Shell("exec sleep 60"), 0.2);
    const std::chrono::duration<double> tTaken = std::chrono::steady_clock::now() - tStart;
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::TimeLimit);
    EXPECT_GE(tTaken.count(), 0.2);
    EXPECT_LT(tTaken.count(), 2.0);
}

TEST(ChildProcessPosix, TellsAnEndBySignalAndLeavesTheChildItsSignals)
{
    const auto res = ChildRun(Shell("kill -TERM $$; exec sleep 60"), kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Killed);
    EXPECT_EQ(res.ValueGet().nCode, SIGTERM);
}

TEST(ChildProcessPosix, EndsTheChildWhenThisProgramIsAskedToEnd)
{
    const pid_t nLauncher = fork();
    ASSERT_GE(nLauncher, 0);
    if (nLauncher == 0) {
        const std::stop_token stop = EndSignalsStop();
        const auto res = ChildRun(Shell("kill -TERM $PPID; exec sleep 60"), kLong, stop);
        _exit(res && res.ValueGet().eEnd == ChildEnd::Stopped ? 7 : 1);
    }
    int nStatus = 0;
    ASSERT_EQ(waitpid(nLauncher, &nStatus, 0), nLauncher);
    EXPECT_TRUE(WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == 7) << nStatus;
}

TEST(ChildProcessPosix, OneThatNobodyWaitedForIsKilled)
{
    int nId = 0;
    {
        auto res = ChildProcess::Start(Shell("exec sleep 60"));
        ASSERT_TRUE(res) << res.TextGet();
        nId = res.ValueGet().IdGet();
    }
    EXPECT_FALSE(std::filesystem::exists("/proc/" + std::to_string(nId)));
}

/// The programs ignore SIGTERM, so that each takes its whole grace of 0.2 s.
TEST(ChildProcessPosix, ManyAreKilledInLessThanTheSumOfTheirGraces)
{
    constexpr int kCount = 30;
    constexpr double kGrace = 0.2;
    const TempFolder folder;
    std::vector<std::thread> aThreads;
    const auto tStart = std::chrono::steady_clock::now();
    for (int i = 0; i < kCount; ++i)
        aThreads.emplace_back([] {
            auto res = ChildProcess::Start(Shell("trap '' TERM; while :; do sleep 1; done"));
            ASSERT_TRUE(res) << res.TextGet();
            EXPECT_EQ(res.ValueGet().Wait(kGrace).eEnd, ChildEnd::TimeLimit);
        });
    for (std::thread& thread : aThreads) thread.join();
    const std::chrono::duration<double> tTaken = std::chrono::steady_clock::now() - tStart;
    EXPECT_LT(tTaken.count(), kCount * kGrace) << "one after the other";
}

TEST(ChildProcessPosix, StaysInTheGroupOfItsParent)
{
    const TempFolder folder;
    ProcessCommand command = Shell("read -r _ _ _ _ nGroup _ < /proc/$$/stat; echo $nGroup");
    command.sOutputFile = folder.Path("group.txt");
    ASSERT_TRUE(ChildRun(command, kLong));
    EXPECT_EQ(BytesRead(command.sOutputFile), std::to_string(getpgrp()) + "\n");
}

TEST(ChildProcessPosix, PutsTheSignalMaskBack)
{
    sigset_t setBefore;
    sigset_t setAfter;
    pthread_sigmask(SIG_SETMASK, nullptr, &setBefore);
    ASSERT_TRUE(ChildRun(Shell("true"), kLong));
    pthread_sigmask(SIG_SETMASK, nullptr, &setAfter);
    for (const int nSignal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
        EXPECT_EQ(sigismember(&setAfter, nSignal), sigismember(&setBefore, nSignal)) << nSignal;
}

TEST(ChildProcessPosix, KeepsAMegabyteOfEndlessOutput)
{
    constexpr std::uintmax_t kKept = std::uintmax_t{1} << 20;
    const TempFolder folder;
    ProcessCommand command = Shell("echo first; exec yes ''");
    command.sOutputFile = folder.Path("console.txt");
    const auto tStart = std::chrono::steady_clock::now();
    const auto res = ChildRun(command, 0.5);
    const std::chrono::duration<double> tTaken = std::chrono::steady_clock::now() - tStart;
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::TimeLimit);
    EXPECT_LT(tTaken.count(), 3.0);
    EXPECT_EQ(std::filesystem::file_size(command.sOutputFile), kKept);
}

TEST(ChildProcessPosix, DescribesWhatCannotBeStarted)
{
    const TempFolder folder;
    ProcessCommand command;
    EXPECT_EQ(ChildRun(command, kLong).TextGet(), kFileNotFound);
    command.asWords = {folder.Path("nowhere")};
    EXPECT_EQ(ChildRun(command, kLong).TextGet(), kFileNotFound);
    command.asWords = {folder.Write("plain.txt", "no program")};
    EXPECT_EQ(ChildRun(command, kLong).TextGet(), kPermissionDenied);
}

}  // namespace
