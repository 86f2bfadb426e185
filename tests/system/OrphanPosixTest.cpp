// What happens to an engine, and to the lock, when the program that started the engine is killed.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

#include "support/ChildRun.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/ProcessLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

bool IsAlive(const std::string& sId)
{
    std::ifstream stmStat("/proc/" + sId + "/stat");
    std::string sLine;
    std::getline(stmStat, sLine);
    const std::size_t nName = sLine.rfind(") ");
    return nName != std::string::npos && sLine[nName + 2] != 'Z' && sLine[nName + 2] != 'X';
}

template <class Fn>
bool WithinASecond(Fn fnTrue)
{
    for (const auto tmEnd = Clock::now() + std::chrono::seconds(1); Clock::now() < tmEnd;) {
        if (fnTrue())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return fnTrue();
}

/// A separate program that starts an engine while holding the lock, until it is killed.
class Orphan : public testing::Test {
protected:
    void OwnerStart(const std::string& sScript)
    {
        m_nOwner = fork();
        ASSERT_GE(m_nOwner, 0);
        if (m_nOwner == 0)
            OwnerBecome(sScript);
        ASSERT_TRUE(WithinASecond([&] { return !NoteGet("engine").empty(); }));
    }
    void OwnerKill(int nSignal = SIGKILL)
    {
        kill(m_nOwner, nSignal);
        waitpid(m_nOwner, nullptr, 0);
        m_nOwner = 0;
    }
    void TearDown() override
    {
        if (m_nOwner > 0)
            OwnerKill();
        for (const char* sName : {"engine", "child"})
            if (const std::string sId = NoteGet(sName); !sId.empty() && IsAlive(sId))
                kill(std::stoi(sId), SIGKILL);
    }
    /// The process id that a script left in a file.
    std::string NoteGet(const std::string& sName) const
    {
        const std::string sFile = m_folder.Path(sName);
        const std::string sNote = FileExists(sFile) ? BytesRead(sFile) : "";
        return sNote.find('\n') == std::string::npos ? "" : sNote.substr(0, sNote.find('\n'));
    }
    /// Makes the lock look as if the engine had been started that long ago.
    void LockAge(std::chrono::seconds tAge) const
    {
        fs::last_write_time(m_sLock, fs::file_time_type::clock::now() - tAge);
    }

    TempFolder m_folder;
    const std::string m_sLock = m_folder.Path("hopcast.lock");
    pid_t m_nOwner = 0;

private:
    [[noreturn]] void OwnerBecome(const std::string& sScript) const
    {
        const auto resLock = FileLock::Take(m_sLock, 0.0);
        ProcessCommand command{
            {"/bin/sh", "-c", "echo $$ > new; mv new engine; " + sScript}, m_folder.Path(), ""};
        if (resLock)
            command.pLock = &resLock.ValueGet();
        const Result<int> resId = ProcessStart(command);
        if (resId)
            (void)ProcessWait(resId.ValueGet(), 60.0);
        _exit(0);
    }
};

TEST_F(Orphan, EngineDiesWithTheProgramThatStartedItAndTheLockIsFree)
{
    OwnerStart("exec sleep 60");
    EXPECT_EQ(FileLock::Take(m_sLock, 0.0).TextGet(), kPermissionDenied);
    OwnerKill();
    EXPECT_TRUE(WithinASecond([&] { return !IsAlive(NoteGet("engine")); }));
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(m_sLock, 1.0)));
}

TEST_F(Orphan, WhatTheEngineStartedHoldsTheLockUntilTenSecondsAreOver)
{
    OwnerStart("sleep 60 & echo $! > child; wait");
    ASSERT_TRUE(WithinASecond([&] { return !NoteGet("child").empty(); }));
    OwnerKill();
    EXPECT_TRUE(WithinASecond([&] { return !IsAlive(NoteGet("engine")); }));
    LockAge(std::chrono::seconds(8));
    EXPECT_EQ(FileLock::Take(m_sLock, 0.3).TextGet(), kPermissionDenied);
    EXPECT_TRUE(IsAlive(NoteGet("child")));
    LockAge(std::chrono::seconds(12));
    EXPECT_TRUE(static_cast<bool>(FileLock::Take(m_sLock, 1.0)));
    EXPECT_TRUE(WithinASecond([&] { return !IsAlive(NoteGet("child")); }));
}

TEST_F(Orphan, AnOldEngineWhoseOwnerLivesIsLeftAlone)
{
    OwnerStart("sleep 60 & echo $! > child; wait");
    LockAge(std::chrono::seconds(60));
    EXPECT_EQ(FileLock::Take(m_sLock, 0.3).TextGet(), kPermissionDenied);
    EXPECT_TRUE(IsAlive(NoteGet("engine")));
}

TEST_F(Orphan, NobodyIsEndedForANoteThatNamesAGroupWithoutTheLock)
{
    // The note is of a dead program; the number of its engine now belongs to another process.
    OwnerStart("exec sleep 60");
    const pid_t nOther = fork();
    if (nOther == 0) {
        setpgid(0, 0);
        for (;;) pause();
    }
    ASSERT_GT(nOther, 0);
    const pid_t nGone = fork();
    if (nGone == 0)
        _exit(0);
    waitpid(nGone, nullptr, 0);
    std::ofstream(m_sLock) << nGone << ' ' << nOther << '\n';
    LockAge(std::chrono::seconds(60));
    EXPECT_EQ(FileLock::Take(m_sLock, 0.3).TextGet(), kPermissionDenied);
    EXPECT_TRUE(IsAlive(std::to_string(nOther)));
    kill(nOther, SIGKILL);
    waitpid(nOther, nullptr, 0);
}

TEST_F(Orphan, AHelperOfALauncherDiesWithIt)
{
    m_nOwner = fork();
    ASSERT_GE(m_nOwner, 0);
    if (m_nOwner == 0) {
        ProcessCommand command{
            {"sh", "-c", "echo $$ > new; mv new engine; exec sleep 60"}, m_folder.Path(), ""};
        (void)ChildRun(command, 60.0);
        _exit(0);
    }
    ASSERT_TRUE(WithinASecond([&] { return !NoteGet("engine").empty(); }));
    OwnerKill();
    EXPECT_TRUE(WithinASecond([&] { return !IsAlive(NoteGet("engine")); }));
}

}  // namespace
