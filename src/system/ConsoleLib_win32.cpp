#include <windows.h>
// windows.h first: shellapi.h needs its types
#include <shellapi.h>

#include "system/ConsoleLib.h"
#include "system/HostPath.h"

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

bool ConsoleIsThere()
{
    HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    return hOutput != nullptr && GetFileType(hOutput) != FILE_TYPE_UNKNOWN;
}

bool ConsoleTakesColor()
{
    SetConsoleOutputCP(CP_UTF8);
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
    return bConsole || Set("CLICOLOR_FORCE");
}
