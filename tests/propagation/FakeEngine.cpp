#include "propagation/FakeEngine.h"

#ifdef _WIN32
#include <windows.h>
#endif

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "system/LockLib.h"
#include "system/MsgLib.h"

namespace fs = std::filesystem;

namespace {

#ifndef _WIN32
constexpr fs::perms kRunnable = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec
                                | fs::perms::others_read | fs::perms::others_exec;
#endif
constexpr std::chrono::seconds kGoneMax(2);

}  // namespace

FakeRoot::FakeRoot() : m_environment("HOPCAST_ITSHFBC", m_folder.Path())
{
    for (const char* sName : {"bin_win", "RUN", "areadata"}) fs::create_directory(Path(sName));
}

FakeRoot::~FakeRoot()
{
    std::ifstream stmPids(Path("pids"));
    const auto tmEnd = std::chrono::steady_clock::now() + kGoneMax;
    for (int nPid = 0; stmPids >> nPid;) {
        // On a busy machine a killed process takes a moment to go.
        while (ProcessIsAlive(nPid) && std::chrono::steady_clock::now() < tmEnd)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_FALSE(ProcessIsAlive(nPid)) << nPid << " is left running";
    }
    if (!fs::exists(m_folder.Path()))
        return;
    EXPECT_TRUE(FileLock::Take(Path("hopcast.lock"), 0.0)) << "the lock is held still";
    for (const char* sFolder : {"RUN", "areadata", ""})
        for (const std::string& sName : Names(sFolder)) {
            const bool bKnown = sName.starts_with("sound.") || sName.starts_with("working.")
                                || sName.starts_with("deck.") || sName == "pids"
                                || sName == "calls";
            EXPECT_TRUE(bKnown) << sFolder << "/" << sName << " is left";
        }
}

void FakeRoot::Engine(std::string_view sProgram, const std::string& sScript) const
{
#ifdef _WIN32
    const std::string sName = "bin_win/" + std::string(sProgram);
    fs::copy_file(FAKE_ENGINE, Path(sName), fs::copy_options::overwrite_existing);
    m_folder.Write(sName + ".script", sScript);
#else
    const std::string sPath = m_folder.Write("bin_win/" + std::string(sProgram),
                                             "#!/bin/sh\n"
                                             "echo $$ >> pids\n"
                                             "echo \"$(basename \"$0\")|$(pwd)|$*\" >> calls\n"
                                             "n=$(wc -l < calls)\n"
                                             "if [ \"$2\" = AREA ]; then deck=areadata/$4; "
                                             "out=$(echo $deck | sed 's/ice$/ig1/; s/voa$/vg1/; "
                                             "s/rec$/rg1/'); else deck=RUN/$2; out=RUN/$3; fi\n"
                                             "cp $deck deck.$n\n"
                                                 + sScript + "\n");
    fs::permissions(sPath, kRunnable);
#endif
}

void FakeRoot::EngineCopying(std::string_view sProgram, const std::string& sCaptured) const
{
    Engine(sProgram, "cp '" + sCaptured + "' $out");
}

int FakeRoot::CallCount() const
{
    std::ifstream stmCalls(Path("calls"));
    int nCalls = 0;
    for (std::string sLine; std::getline(stmCalls, sLine);) ++nCalls;
    return nCalls;
}

std::string FakeRoot::DeckGet(int nCall) const
{
    return BytesRead(Path("deck." + std::to_string(nCall)));
}

std::vector<std::string> FakeRoot::Names(std::string_view sFolder) const
{
    std::vector<std::string> asNames;
    for (const auto& entry : fs::directory_iterator(fs::path(Path("")) / sFolder))
        if (!entry.is_directory())
            asNames.push_back(entry.path().filename().string());
    std::sort(asNames.begin(), asNames.end());
    return asNames;
}

#ifdef _WIN32
bool ProcessIsAlive(int nProcessId)
{
    const HANDLE hProcess = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(nProcessId));
    if (hProcess == nullptr)
        return false;
    const bool bAlive = WaitForSingleObject(hProcess, 0) == WAIT_TIMEOUT;
    CloseHandle(hProcess);
    return bAlive;
}
#else
bool ProcessIsAlive(int nProcessId)
{
    std::ifstream stmStat("/proc/" + std::to_string(nProcessId) + "/stat");
    std::string sLine;
    if (!std::getline(stmStat, sLine))
        return false;
    const std::size_t nName = sLine.rfind(')');
    return nName != std::string::npos && nName + 2 < sLine.size() && sLine[nName + 2] != 'Z';
}
#endif

namespace {

Failure& LastGet()
{
    static Failure failure;
    return failure;
}

void Tell(const std::vector<Failure>& aFailures)
{
    LastGet() = Failure{FailureKind::Cancelled, {}};
    for (const Failure& failure : aFailures) {
        LastGet() = failure;
        if (!failure.sText.empty())
            MsgBox(failure.eIcon, failure.sText);
    }
}

}  // namespace

ToldFailures::~ToldFailures() { Tell(m_aFailures); }

bool Succeeded(const std::optional<Failure>& failure)
{
    Tell(failure ? std::vector{*failure} : std::vector<Failure>{});
    return !failure;
}

const Failure& FailureLast() { return LastGet(); }
