// A small program that the tests of starting processes run.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "system/ConsoleLib.h"
#include "system/LockLib.h"

namespace {

/// Prints what the system tells a program about its own start.
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

/// Starts a second instance, which sleeps, and prints its process number.
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

/// Prints the mode of the console's output before, during and after a request for colours.
int ColorPrint()
{
    const HANDLE hScreen =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    SetStdHandle(STD_OUTPUT_HANDLE, hScreen);
    const auto ModeGet = [hScreen] {
        DWORD nMode = 0;
        return GetConsoleMode(hScreen, &nMode) ? nMode : ~DWORD{0};
    };
    const DWORD nPlain = ModeGet() & ~DWORD{ENABLE_VIRTUAL_TERMINAL_PROCESSING};
    SetConsoleMode(hScreen, nPlain);
    DWORD nDuring = 0;
    {
        const ConsoleUtf8 console;
        (void)ConsoleTakesColor();
        nDuring = ModeGet();
    }
    std::printf("colours %d kept %d\n", (nDuring & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 ? 1 : 0,
                ModeGet() == nPlain ? 1 : 0);
    return 0;
}

/// Runs a program in this console, which has an old code page, and reports the console's code page
/// while the program prints and after its end. The program prints into a full pipe, so that it
/// waits.
int ConsoleWatch(const std::vector<std::string>& asWords)
{
    constexpr UINT kOld = 437;
    constexpr DWORD kPipe = 4096;
    constexpr int kTriesMax = 1000;
    SetConsoleOutputCP(kOld);
    SECURITY_ATTRIBUTES security{sizeof security, nullptr, TRUE};
    HANDLE hRead = nullptr;
    HANDLE hWrite = nullptr;
    CreatePipe(&hRead, &hWrite, &security, kPipe);
    SetHandleInformation(hRead, HANDLE_FLAG_INHERIT, 0);
    std::string sBuffer(kPipe, 'x');
    DWORD nBytes = 0;
    WriteFile(hWrite, sBuffer.data(), kPipe, &nBytes, nullptr);
    std::wstring sLine;
    for (std::size_t n = 1; n < asWords.size(); ++n)
        sLine += L'"' + std::wstring(asWords[n].begin(), asWords[n].end()) + L"\" ";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = hWrite;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, sLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &process))
        return 1;
    CloseHandle(hWrite);
    UINT nDuring = kOld;
    for (int i = 0; i < kTriesMax && (nDuring = GetConsoleOutputCP()) == kOld; ++i) Sleep(10);
    while (ReadFile(hRead, sBuffer.data(), kPipe, &nBytes, nullptr)) continue;
    WaitForSingleObject(process.hProcess, INFINITE);
    std::printf("during %u after %u\n", nDuring, GetConsoleOutputCP());
    return 0;
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
    if (sVerb == "family") {  // then sleeps or ends itself
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
    if (sVerb == "color")
        return ColorPrint();
    if (sVerb == "watch")
        return ConsoleWatch(asWords);
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
