#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

#include "support/TempFolder.h"
#include "system/ChildLib.h"
#include "system/RunErrorText.h"

namespace {

constexpr double kLong = 10.0;

ProcessCommand Shell(const std::string& sScript)
{
    ProcessCommand command;
    command.asWords = {"sh", "-c", sScript};
    return command;
}

TEST(ChildLib, GivesTheExitStatus)
{
    const auto res = ChildRun(Shell("exit 7"), kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Exited);
    EXPECT_EQ(res.ValueGet().nCode, 7);
}

TEST(ChildLib, GivesTheExitStatusEvenWhenChildSignalsWereIgnored)
{
    signal(SIGCHLD, SIG_IGN);
    const auto res = ChildRun(Shell("exit 7"), kLong);
    signal(SIGCHLD, SIG_DFL);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Exited);
    EXPECT_EQ(res.ValueGet().nCode, 7);
}

TEST(ChildLib, RunsInItsFolderWithTheNullDeviceAsInputAndBothStreamsInTheFile)
{
    const TempFolder folder;
    ProcessCommand command = Shell("cat; pwd; echo said; echo wailed >&2");
    command.sWorkFolder = folder.Path();
    command.sOutputFile = folder.Path("console.txt");
    const auto res = ChildRun(command, kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(BytesRead(command.sOutputFile), folder.Path() + "\nsaid\nwailed\n");
}

TEST(ChildLib, KillsAtTheLimit)
{
    const auto tStart = std::chrono::steady_clock::now();
    const auto res = ChildRun(Shell("exec sleep 60"), 0.2);
    const std::chrono::duration<double> tTaken = std::chrono::steady_clock::now() - tStart;
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::TimeLimit);
    EXPECT_GE(tTaken.count(), 0.2);
    EXPECT_LT(tTaken.count(), 2.0);
}

TEST(ChildLib, TellsAnEndBySignalAndLeavesTheChildItsSignals)
{
    const auto res = ChildRun(Shell("kill -TERM $$; exec sleep 60"), kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Killed);
    EXPECT_EQ(res.ValueGet().nCode, SIGTERM);
}

TEST(ChildLib, EndsTheChildWhenThisProgramIsAskedToEnd)
{
    const auto res = ChildRun(Shell("kill -TERM $PPID; exec sleep 60"), kLong);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eEnd, ChildEnd::Interrupted);
    EXPECT_EQ(res.ValueGet().nCode, SIGTERM);
}

TEST(ChildLib, StaysInTheGroupOfItsParent)
{
    const TempFolder folder;
    ProcessCommand command = Shell("read -r _ _ _ _ nGroup _ < /proc/$$/stat; echo $nGroup");
    command.sOutputFile = folder.Path("group.txt");
    ASSERT_TRUE(ChildRun(command, kLong));
    EXPECT_EQ(BytesRead(command.sOutputFile), std::to_string(getpgrp()) + "\n");
}

TEST(ChildLib, PutsTheSignalMaskBack)
{
    sigset_t setBefore;
    sigset_t setAfter;
    pthread_sigmask(SIG_SETMASK, nullptr, &setBefore);
    ASSERT_TRUE(ChildRun(Shell("true"), kLong));
    pthread_sigmask(SIG_SETMASK, nullptr, &setAfter);
    for (const int nSignal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
        EXPECT_EQ(sigismember(&setAfter, nSignal), sigismember(&setBefore, nSignal)) << nSignal;
}

TEST(ChildLib, KeepsAMegabyteOfEndlessOutput)
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

TEST(ChildLib, DescribesWhatCannotBeStarted)
{
    const TempFolder folder;
    ProcessCommand command;
    EXPECT_EQ(ChildRun(command, kLong).TextGet(), kInvalidCall);
    command.asWords = {folder.Path("nowhere")};
    EXPECT_EQ(ChildRun(command, kLong).TextGet(), kFileNotFound);
    command.asWords = {folder.Write("plain.txt", "no program")};
    EXPECT_EQ(ChildRun(command, kLong).TextGet(), kPermissionDenied);
}

}  // namespace
