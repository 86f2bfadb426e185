// A small program that the tests of process starts run.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "system/ConsoleLib.h"
#include "system/LockLib.h"

namespace {

/// What the system tells a program of its own start.
int StartPrint()
{
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    const bool bHidden =
        (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 && startup.wShowWindow == SW_HIDE;
    std::printf("hidden %d\nconsole window %d\ninput %d\n", bHidden ? 1 : 0,
                GetConsoleWindow() != nullptr ? 1 : 0, std::getchar());
    return 0;
}

int LockHold(const std::string& sFile)
{
    const auto resLock = FileLock::Take(sFile, 5.0);
    if (!resLock)
        return 1;
    std::puts("held");
    std::fflush(stdout);
    Sleep(60000);
    return 0;
}

/// Starts another of this program that sleeps, and tells its number.
bool ChildStart(wchar_t* sProgram)
{
    std::wstring sLine = L"child sleep 60000";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(sProgram, sLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &process))
        return false;
    std::printf("%lu\n", process.dwProcessId);
    std::fflush(stdout);
    return true;
}

}  // namespace

int main(int nArguments, char** asArguments)
{
    const auto asWords = ArgumentsGet(nArguments, asArguments);
    const std::string sVerb = asWords.empty() ? "" : asWords[0];
    if (sVerb == "exit")
        return std::atoi(asWords[1].c_str());
    if (sVerb == "sleep") {
        Sleep(static_cast<DWORD>(std::atoi(asWords[1].c_str())));
        return 0;
    }
    if (sVerb == "family") {  // and then sleeps or ends itself
        wchar_t acProgram[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, acProgram, MAX_PATH);
        const bool bStarted = ChildStart(acProgram);
        Sleep(static_cast<DWORD>(std::atoi(asWords[1].c_str())));
        return bStarted ? 0 : 1;
    }
    if (sVerb == "crash")
        RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    if (sVerb == "start")
        return StartPrint();
    if (sVerb == "lock")
        return LockHold(asWords[1]);
    if (sVerb == "folder") {
        std::wstring sFolder(MAX_PATH, L'\0');
        sFolder.resize(GetCurrentDirectoryW(MAX_PATH, sFolder.data()));
        std::printf("%ls\n", sFolder.c_str());
        return 0;
    }
    for (const std::string& sWord : asWords) std::printf("%s|", sWord.c_str());
    std::fputs("err", stderr);
    return 0;
}
