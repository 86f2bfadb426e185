#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/RunErrorText.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/Faults.h"
#endif

namespace {

double SecondsSince(std::chrono::steady_clock::time_point timeStart)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - timeStart).count();
}

TEST(FileLock, KeepsASecondHolderOutAndLeavesNoFile)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.lock";
    {
        const auto resLock = FileLock::Take(sFile, 0.0);
        ASSERT_TRUE(static_cast<bool>(resLock)) << resLock.TextGet();
        EXPECT_TRUE(FileExists(sFile));
        const auto timeStart = std::chrono::steady_clock::now();
        EXPECT_EQ(FileLock::Take(sFile, 0.1).TextGet(), kPermissionDenied);
        EXPECT_GE(SecondsSince(timeStart), 0.1);
        EXPECT_LT(SecondsSince(timeStart), 2.0);
        EXPECT_TRUE(FileExists(sFile));
    }
    EXPECT_FALSE(FileExists(sFile));
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(sFile, 0.0)));
    EXPECT_FALSE(FileExists(sFile));
}

TEST(FileLock, AFileLeftByAKilledProgramIsNoObstacle)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("hopcast.lock", "");
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(sFile, 0.0)));
    EXPECT_FALSE(FileExists(sFile));
}

TEST(FileLock, TheWaitEndsWithTheHolder)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.lock";
    auto resHeld = FileLock::Take(sFile, 0.0);
    ASSERT_TRUE(static_cast<bool>(resHeld));
    std::optional<FileLock> held(std::move(resHeld.ValueGet()));
    std::thread threadHolder([&held] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        held.reset();
    });
    const auto timeStart = std::chrono::steady_clock::now();
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(sFile, 5.0)));
    EXPECT_LT(SecondsSince(timeStart), 2.0);
    threadHolder.join();
}

/// Takes the lock again shortly after each release, until told to stop.
void LockTakeAgainAndAgain(const std::string& sFile, const std::atomic<bool>& bEnd)
{
    while (!bEnd) {
        const auto resLock = FileLock::Take(sFile, 5.0);
        EXPECT_TRUE(static_cast<bool>(resLock)) << resLock.TextGet();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

// A program that kept predicting once locked another one out for good.
TEST(FileLock, AWaiterIsServedBeforeTheFormerHolder)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.lock";
    std::atomic<bool> bEnd = false;
    std::thread threadGreedy([&] { LockTakeAgainAndAgain(sFile, bEnd); });
    while (!FileExists(sFile)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(static_cast<bool>(FileLock::Take(sFile, 2.0))) << i;
    bEnd = true;
    threadGreedy.join();
    EXPECT_FALSE(FileExists(sFile));
    EXPECT_FALSE(FileExists(sFile + ".next"));
}

TEST(FileLock, AStopEndsTheWaitAndLeavesNoPlaceInTheQueue)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.lock";
    const auto resHolder = FileLock::Take(sFile, 0.0);
    ASSERT_TRUE(static_cast<bool>(resHolder)) << resHolder.TextGet();
    std::stop_source stop;
    const auto timeStart = std::chrono::steady_clock::now();
    const std::jthread thread([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        stop.request_stop();
    });
    EXPECT_EQ(FileLock::Take(sFile, 20.0, stop.get_token()).TextGet(), kPermissionDenied);
    EXPECT_LT(SecondsSince(timeStart), 10.0);
    EXPECT_FALSE(FileExists(sFile + ".next"));
}

TEST(FileLock, AWaiterThatGivesUpLeavesNoPlaceInTheQueue)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.lock";
    {
        const auto resLock = FileLock::Take(sFile, 0.0);
        ASSERT_TRUE(static_cast<bool>(resLock));
        EXPECT_FALSE(static_cast<bool>(FileLock::Take(sFile, 0.02)));
        EXPECT_FALSE(FileExists(sFile + ".next"));
    }
    folder.Write("hopcast.lock.next", "");  // left by a program that was killed while it waited
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(sFile, 0.0)));
    EXPECT_FALSE(FileExists(sFile + ".next"));
}

TEST(FileLock, MovesWithItsHolder)
{
    const TempFolder folder;
    auto resOne = FileLock::Take(folder.Path() + "/one", 0.0);
    auto resTwo = FileLock::Take(folder.Path() + "/two", 0.0);
    ASSERT_TRUE(resOne && resTwo);
    resOne.ValueGet() = std::move(resTwo.ValueGet());
    EXPECT_FALSE(FileExists(folder.Path() + "/one")) << "the lock held before is released";
    EXPECT_TRUE(FileExists(folder.Path() + "/two"));
}

TEST(FileLock, TellsAMissingFolder)
{
    const TempFolder folder;
    EXPECT_EQ(FileLock::Take(folder.Path() + "/none/hopcast.lock", 5.0).TextGet(), kPathNotFound);
}

#ifndef _WIN32

TEST(FileLock, MissingRightsEndTheWaitAtOnce)
{
    const TempFolder folder;
    chmod(folder.Path().c_str(), 0555);
    AsUnprivileged([&] {
        const auto timeStart = std::chrono::steady_clock::now();
        EXPECT_EQ(FileLock::Take(folder.Path() + "/hopcast.lock", 5.0).TextGet(),
                  kPermissionDenied);
        EXPECT_LT(SecondsSince(timeStart), 1.0);
    });
    chmod(folder.Path().c_str(), 0755);
}

TEST(FileLock, ANamedPipeOrALinkUnderItsNameOrTheTicketsIsNoObstacle)
{
    for (const char* sName : {"hopcast.lock", "hopcast.lock.next"}) {
        const TempFolder folder;
        const std::string sMine = folder.Write("mine", "kept");
        const auto timeStart = std::chrono::steady_clock::now();
        ASSERT_EQ(mkfifo(folder.Path(sName).c_str(), 0666), 0);
        EXPECT_TRUE(static_cast<bool>(FileLock::Take(folder.Path("hopcast.lock"), 0.5))) << sName;
        std::filesystem::remove(folder.Path(sName));
        std::filesystem::create_symlink(sMine, folder.Path(sName));
        EXPECT_TRUE(static_cast<bool>(FileLock::Take(folder.Path("hopcast.lock"), 0.5))) << sName;
        EXPECT_LT(SecondsSince(timeStart), 5.0);
        EXPECT_EQ(BytesRead(sMine), "kept");
    }
}

TEST(FileLock, AKilledHolderLetsGo)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.lock";
    const pid_t nId = fork();
    ASSERT_GE(nId, 0);
    if (nId == 0) {
        const auto resLock = FileLock::Take(sFile, 0.0);
        folder.Write("ready", resLock ? "1" : "0");
        pause();
    }
    while (!FileExists(folder.Path() + "/ready"))
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    EXPECT_EQ(FileLock::Take(sFile, 0.0).TextGet(), kPermissionDenied);
    kill(nId, SIGKILL);
    waitpid(nId, nullptr, 0);
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(sFile, 1.0)));
    EXPECT_FALSE(FileExists(sFile));
}

/// Repeatedly adds one to a number in a file while holding the lock.
int CounterRaise(const std::string& sFolder, int nTimes)
{
    for (int i = 0; i < nTimes; ++i) {
        const auto resLock = FileLock::Take(sFolder + "/hopcast.lock", 30.0);
        if (!resLock)
            return 1;
        const auto resText = FileRead(sFolder + "/counter", 100);
        auto resFile = OutputFile::Open(sFolder + "/counter");
        if (!resText || !resFile
            || !resFile.ValueGet().Write(std::to_string(std::stoi(resText.ValueGet()) + 1))
            || !resFile.ValueGet().Close())
            return 1;
    }
    return 0;
}

TEST(FileLock, OfManyTakersOnlyOneHoldsIt)
{
    constexpr int kTakers = 4;
    constexpr int kTimes = 50;
    const TempFolder folder;
    folder.Write("counter", "0");
    std::vector<pid_t> anIds;
    for (int i = 0; i < kTakers; ++i) {
        anIds.push_back(fork());
        ASSERT_GE(anIds.back(), 0);
        if (anIds.back() == 0)
            _exit(CounterRaise(folder.Path(), kTimes));
    }
    for (const pid_t nId : anIds) {
        int nStatus = 1;
        waitpid(nId, &nStatus, 0);
        EXPECT_EQ(nStatus, 0);
    }
    EXPECT_EQ(BytesRead(folder.Path() + "/counter"), std::to_string(kTakers * kTimes));
    EXPECT_FALSE(FileExists(folder.Path() + "/hopcast.lock"));
}

#endif

}  // namespace
