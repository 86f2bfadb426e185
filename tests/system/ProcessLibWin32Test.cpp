#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/ProcessLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point timeStart)
{
    return std::chrono::duration<double>(Clock::now() - timeStart).count();
}

bool ProcessIsThere(int nId)
{
    const HANDLE hProcess = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(nId));
    if (hProcess == nullptr)
        return false;
    const bool bRuns = WaitForSingleObject(hProcess, 0) == WAIT_TIMEOUT;
    CloseHandle(hProcess);
    return bRuns;
}

class ProcessLibWin32 : public testing::Test {
protected:
    int Start(std::vector<std::string> asWords)
    {
        asWords.insert(asWords.begin(), CHILD_PROGRAM);
        const auto resId = ProcessStart({asWords, m_sFolder, m_sOutput});
        EXPECT_TRUE(resId) << resId.TextGet();
        return resId ? resId.ValueGet() : 0;
    }
    std::string Said(std::vector<std::string> asWords)
    {
        EXPECT_TRUE(ProcessWait(Start(std::move(asWords)), 10.0));
        return BytesRead(m_sOutput);
    }
    [[nodiscard]] std::string StartErrorGet(const std::string& sProgram,
                                            const std::string& sFolder = {}) const
    {
        const auto resId = ProcessStart({{sProgram}, sFolder, m_sOutput});
        if (resId)
            (void)ProcessWait(resId.ValueGet(), 10.0);
        return resId.TextGet();
    }

    TempFolder m_folder;
    std::string m_sFolder;
    std::string m_sOutput = m_folder.Path("console.txt");
};

TEST_F(ProcessLibWin32, EndsWellOnlyWithExitCode0)
{
    EXPECT_TRUE(ProcessWait(Start({"exit", "0"}), 10.0));
    EXPECT_FALSE(ProcessWait(Start({"exit", "1"}), 10.0));
    EXPECT_FALSE(ProcessWait(Start({"exit", "259"}), 10.0)) << "the code of what is still active";
    EXPECT_FALSE(ProcessWait(Start({"exit", "-1"}), 10.0));
    EXPECT_FALSE(ProcessWait(Start({"crash"}), 10.0));
}

TEST_F(ProcessLibWin32, AnEndBeforeTheWaitKeepsItsExitCode)
{
    const int nId = Start({"exit", "3"});
    while (ProcessIsThere(nId)) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    EXPECT_FALSE(ProcessWait(nId, 10.0));
}

TEST_F(ProcessLibWin32, WhatCannotBeOpenedHasFinished)
{
    for (const int nId : {0, -1, 0x7FFFFFF0}) EXPECT_TRUE(ProcessWait(nId, 5.0)) << nId;
}

TEST_F(ProcessLibWin32, AtTheLimitItIsKilledAndLetsGoOfItsFilesAtOnce)
{
    for (const double dLimit : {0.3, 0.0, -1.0}) {
        m_sOutput = m_folder.Path(std::to_string(dLimit));
        const auto timeStart = Clock::now();
        const int nId = Start({"sleep", "60000"});
        EXPECT_FALSE(ProcessWait(nId, dLimit));
        EXPECT_GE(SecondsSince(timeStart), dLimit);
        EXPECT_LT(SecondsSince(timeStart), 5.0);
        EXPECT_FALSE(ProcessIsThere(nId));
        EXPECT_EQ(FileDelete(m_sOutput).TextGet(), "") << dLimit;
    }
}

TEST_F(ProcessLibWin32, WhatItStartedGoesWithItAndLetsGoOfItsFiles)
{
    for (const bool bKilled : {true, false}) {
        m_sOutput = m_folder.Path(bKilled ? "killed" : "ended");
        const int nId = Start({"family", bKilled ? "60000" : "0"});
        const auto timeStart = Clock::now();
        while (BytesRead(m_sOutput).empty() && SecondsSince(timeStart) < 10.0)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_EQ(ProcessWait(nId, bKilled ? 0.0 : 10.0), !bKilled);
        const int nChild = std::stoi("0" + BytesRead(m_sOutput));
        EXPECT_NE(nChild, 0);
        EXPECT_FALSE(ProcessIsThere(nChild));
        EXPECT_EQ(FileDelete(m_sOutput).TextGet(), "");
        EXPECT_FALSE(FileExists(m_sOutput));
    }
}

TEST_F(ProcessLibWin32, InheritsNoOtherHandle)
{
    const std::string sFile = m_folder.Path() + "\\other";
    SECURITY_ATTRIBUTES security{sizeof security, nullptr, TRUE};
    const HANDLE hFile =
        CreateFileA(sFile.c_str(), GENERIC_WRITE, 0, &security, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    const int nId = Start({"sleep", "60000"});
    CloseHandle(hFile);
    EXPECT_EQ(FileDelete(sFile).TextGet(), "");
    EXPECT_FALSE(ProcessWait(nId, 0.0));
}

TEST_F(ProcessLibWin32, WordsReachTheProgramAsTheyAre)
{
    EXPECT_EQ(Said({"print", "a b", "", "%PATH%", "\"", "a\\\"b\\\\", "c d\\", "x\\y", "*", "\tz",
                    "Gr\xC3\xB6\xC3\x9F"
                    "e \xE6\xB3\xA2"}),
              "print|a b||%PATH%|\"|a\\\"b\\\\|c d\\|x\\y|*|\tz|Gr\xC3\xB6\xC3\x9F"
              "e \xE6\xB3\xA2|err");
}

TEST_F(ProcessLibWin32, TheProgramsFileMayHaveAnotherNameThanItsFirstWord)
{
    ProcessCommand command{{"c:\\none\\other.exe", "print", "a b"}, m_sFolder, m_sOutput};
    command.sProgram = CHILD_PROGRAM;
    const auto resId = ProcessStart(command);
    ASSERT_TRUE(resId) << resId.TextGet();
    EXPECT_TRUE(ProcessWait(resId.ValueGet(), 10.0));
    EXPECT_EQ(BytesRead(m_sOutput), "print|a b|err");
    EXPECT_TRUE(ProgramIsWindows(CHILD_PROGRAM));
}

TEST_F(ProcessLibWin32, StartsHiddenWithAnEmptyInput)
{
    EXPECT_EQ(Said({"start"}), "hidden 1\r\nconsole window 0\r\ninput -1\r\n");
}

TEST_F(ProcessLibWin32, WorksInItsFolder)
{
    m_sFolder = m_folder.Path() + "\\work";
    fs::create_directory(m_sFolder);
    EXPECT_EQ(Said({"folder"}), m_sFolder + "\r\n");
}

TEST_F(ProcessLibWin32, TellsWhyAProgramCannotBeStarted)
{
    EXPECT_EQ(StartErrorGet(m_folder.Path() + "\\none.exe"), kFileNotFound);
    EXPECT_EQ(StartErrorGet(m_folder.Path() + "\\none\\none.exe"), kFileNotFound);
    EXPECT_EQ(StartErrorGet(m_folder.Write("text.exe", "no program\r\n")), kInvalidCall);
    EXPECT_EQ(StartErrorGet(m_folder.Write("empty.exe", "")), kInvalidCall);
    EXPECT_EQ(StartErrorGet(CHILD_PROGRAM, m_folder.Path() + "\\none"), kPathNotFound);
    EXPECT_EQ(StartErrorGet(""), kFileNotFound);
}

TEST_F(ProcessLibWin32, ALockGoesWithItsKilledHolder)
{
    const std::string sLock = m_folder.Path() + "\\hopcast.lock";
    const int nId = Start({"lock", sLock});
    const auto timeStart = Clock::now();
    while (BytesRead(m_sOutput).empty() && SecondsSince(timeStart) < 10.0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(FileLock::Take(sLock, 0.1).TextGet(), kPermissionDenied);
    EXPECT_FALSE(ProcessWait(nId, 0.0));
    EXPECT_TRUE(FileLock::Take(sLock, 1.0));
    EXPECT_FALSE(FileExists(sLock));
}

}  // namespace
