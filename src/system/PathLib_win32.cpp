#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "system/DrivePath.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProfileFolder.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

std::wstring WideFrom(std::string_view sBytes, UINT nCodePage)
{
    const int nBytes = static_cast<int>(sBytes.size());
    const int nWide = MultiByteToWideChar(nCodePage, 0, sBytes.data(), nBytes, nullptr, 0);
    std::wstring sWide(static_cast<std::size_t>(nWide), L'\0');
    MultiByteToWideChar(nCodePage, 0, sBytes.data(), nBytes, sWide.data(), nWide);
    return sWide;
}

std::string BytesFrom(std::wstring_view sWide, UINT nCodePage)
{
    const int nWide = static_cast<int>(sWide.size());
    const int nBytes =
        WideCharToMultiByte(nCodePage, 0, sWide.data(), nWide, nullptr, 0, nullptr, nullptr);
    std::string sBytes(static_cast<std::size_t>(nBytes), '\0');
    WideCharToMultiByte(nCodePage, 0, sWide.data(), nWide, sBytes.data(), nBytes, nullptr, nullptr);
    return sBytes;
}

bool PathIsBelow(const std::string& sPath, const std::string& sFolder)
{
    return !sFolder.empty() && sPath.size() >= sFolder.size()
           && TextEqualNoCase(std::string_view(sPath).substr(0, sFolder.size()), sFolder)
           && (sPath.size() == sFolder.size() || sPath[sFolder.size()] == '\\');
}

}  // namespace

std::wstring WideFromUtf8(std::string_view sText) { return WideFrom(sText, CP_UTF8); }

std::string Utf8FromWide(std::wstring_view sText) { return BytesFrom(sText, CP_UTF8); }

std::string AnsiFromUtf8(std::string_view sText) { return BytesFrom(WideFromUtf8(sText), CP_ACP); }

std::string Utf8FromAnsi(std::string_view sBytes) { return Utf8FromWide(WideFrom(sBytes, CP_ACP)); }

fs::path PathFromText(std::string_view sText) { return {WideFromUtf8(sText)}; }

std::string TextFromPath(const fs::path& pthFile) { return Utf8FromWide(pthFile.native()); }

std::string EnvironmentGet(const char* sName)
{
    const std::wstring sWideName = WideFromUtf8(sName);
    const DWORD nSize = GetEnvironmentVariableW(sWideName.c_str(), nullptr, 0);
    std::wstring sValue(nSize, L'\0');
    sValue.resize(GetEnvironmentVariableW(sWideName.c_str(), sValue.data(), nSize));
    return Utf8FromWide(sValue);
}

std::string HostPathBelow(const std::string& sFolder, std::string_view sRest)
{
    std::string sPath = sFolder + std::string(sRest);
    std::replace(sPath.begin(), sPath.end(), '/', '\\');
    return sPath;
}

std::string DrivePath(std::string_view sPath) { return std::string(sPath); }

std::string PathToWindows(std::string_view sHostPath) { return std::string(sHostPath); }

std::string HomeFolderProblemGet() { return {}; }

std::string WinePrefixGet() { return {}; }

std::string ProgramFileGet()
{
    constexpr DWORD kPathMax = 32768;
    std::wstring sPath(kPathMax, L'\0');
    sPath.resize(GetModuleFileNameW(nullptr, sPath.data(), kPathMax));
    return Utf8FromWide(sPath);
}

bool FolderIsSystemOwned(const fs::path& pthFolder)
{
    const std::string sFolder = TextFromPath(pthFolder);
    for (const char* sVariable :
         {"ProgramFiles", "ProgramFiles(x86)", "ProgramW6432", "SystemRoot"})
        if (PathIsBelow(sFolder, EnvironmentGet(sVariable)))
            return true;
    return false;
}

bool FolderIsWritable(const fs::path& pthFolder)
{
    // The surest way to evaluate the access lists is to try.
    const fs::path pthProbe = pthFolder / (L".hopcast-" + std::to_wstring(GetCurrentProcessId()));
    const HANDLE hFile = CreateFileW(pthProbe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return false;
    CloseHandle(hFile);
    return true;
}

fs::path ProfileFolderGet() { return PathFromText(EnvironmentGet("APPDATA")) / L"Hopcast"; }
