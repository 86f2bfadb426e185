#include <windows.h>
// windows.h first: shellapi.h needs its types
#include <shellapi.h>

#include <atomic>
#include <cstdio>

#include "system/ConsoleLib.h"
#include "system/HostPath.h"

namespace {

/// The console's previous settings; 0 and no value: nothing was changed. The handler of the
/// keyboard's signals runs in its own thread.
struct ConsoleBefore {
    std::atomic<UINT> nCodePage = 0;
    std::atomic<bool> bMode = false;
    std::atomic<DWORD> nMode = 0;
};

ConsoleBefore& ConsoleBeforeGet()
{
    static ConsoleBefore before;
    return before;
}

void ConsoleRestore()
{
    ConsoleBefore& before = ConsoleBeforeGet();
    if (const UINT nCodePage = before.nCodePage.exchange(0); nCodePage != 0)
        SetConsoleOutputCP(nCodePage);
    if (before.bMode.exchange(false))
        SetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), before.nMode);
}

BOOL WINAPI KeyboardEnds(DWORD /*nSignal*/)
{
    ConsoleRestore();
    return FALSE;  // the next handler ends the program
}

}  // namespace

ConsoleUtf8::ConsoleUtf8()
{
    ConsoleBeforeGet().nCodePage = GetConsoleOutputCP();  // 0 without a console
    SetConsoleCtrlHandler(KeyboardEnds, TRUE);
    SetConsoleOutputCP(CP_UTF8);
}

ConsoleUtf8::~ConsoleUtf8()
{
    std::fflush(nullptr);
    ConsoleRestore();
    SetConsoleCtrlHandler(KeyboardEnds, FALSE);
}

std::vector<std::string> ArgumentsGet(int /*nArguments*/, char** /*asArguments*/)
{
    std::vector<std::string> asWords;
    int nWords = 0;
    wchar_t** asWide = CommandLineToArgvW(GetCommandLineW(), &nWords);
    for (int i = 1; asWide != nullptr && i < nWords; ++i)
        asWords.push_back(Utf8FromWide(asWide[i]));
    LocalFree(static_cast<HLOCAL>(asWide));
    return asWords;
}

bool ConsoleIsOpen()
{
    HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    return hOutput != nullptr && GetFileType(hOutput) != FILE_TYPE_UNKNOWN;
}

bool ConsoleTakesColor()
{
    const auto Set = [](const char* sName) {
        const std::string sValue = EnvironmentGet(sName);
        return !sValue.empty() && sValue != "0";
    };
    if (Set("NO_COLOR"))
        return false;
    HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD nMode = 0;
    const bool bConsole =
        GetConsoleMode(hOutput, &nMode) != 0
        && SetConsoleMode(hOutput, nMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
    ConsoleBefore& before = ConsoleBeforeGet();
    if (bConsole && !before.bMode) {
        before.nMode = nMode;
        before.bMode = true;
    }
    return bConsole || Set("CLICOLOR_FORCE");
}
