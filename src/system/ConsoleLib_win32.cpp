#include <windows.h>
// windows.h first: shellapi.h needs its types
#include <shellapi.h>

#include <cstdlib>

#include "system/ConsoleLib.h"

namespace {

std::string Utf8FromWide(const wchar_t* sWide)
{
    const int nBytes = WideCharToMultiByte(CP_UTF8, 0, sWide, -1, nullptr, 0, nullptr, nullptr);
    if (nBytes <= 1)
        return {};
    std::string sText(static_cast<std::size_t>(nBytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, sWide, -1, sText.data(), nBytes, nullptr, nullptr);
    sText.resize(static_cast<std::size_t>(nBytes) - 1);
    return sText;
}

}  // namespace

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

bool ConsoleTakesColor()
{
    SetConsoleOutputCP(CP_UTF8);
    if (std::getenv("NO_COLOR") != nullptr)
        return false;
    HANDLE hOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD nMode = 0;
    return GetConsoleMode(hOutput, &nMode) != 0
           && SetConsoleMode(hOutput, nMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}
