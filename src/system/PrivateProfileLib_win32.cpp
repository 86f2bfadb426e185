#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "system/FileHost.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/TextLib.h"

namespace {

std::wstring FullPathGet(const std::wstring& sFile)
{
    std::wstring sPath(GetFullPathNameW(sFile.c_str(), 0, nullptr, nullptr), L'\0');
    sPath.resize(
        GetFullPathNameW(sFile.c_str(), static_cast<DWORD>(sPath.size()), sPath.data(), nullptr));
    return sPath;
}

/// The path in the system's short names, which are in its own alphabet; empty when it does not
/// exist or has none.
std::wstring ShortPathGet(const std::wstring& sPath)
{
    std::wstring sShort(GetShortPathNameW(sPath.c_str(), nullptr, 0), L'\0');
    sShort.resize(
        GetShortPathNameW(sPath.c_str(), sShort.data(), static_cast<DWORD>(sShort.size())));
    return sShort;
}

bool IsAnsi(const std::wstring& sText)
{
    return WideFromUtf8(Utf8FromAnsi(AnsiFromUtf8(Utf8FromWide(sText)))) == sText;
}

/// The file for the "A" calls. They would seek a bare name in the Windows folder, so it is a full
/// path; and letters that their alphabet lacks stand in short names, which a file has once it is
/// made.
std::string AnsiFileGet(std::string_view sFile, bool bMake)
{
    std::wstring sPath = FullPathGet(WideFromUtf8(PathToHost(sFile)));
    if (!IsAnsi(sPath)) {
        if (bMake) {
            const HANDLE hFile = CreateFileW(sPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                             OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
            if (hFile != INVALID_HANDLE_VALUE)
                CloseHandle(hFile);
        }
        const std::size_t nName = sPath.find_last_of(L'\\') + 1;
        const std::wstring sShort = ShortPathGet(sPath);
        sPath =
            sShort.empty() ? ShortPathGet(sPath.substr(0, nName)) + sPath.substr(nName) : sShort;
    }
    return AnsiFromUtf8(Utf8FromWide(sPath));
}

}  // namespace

std::string PrivateProfileGet(std::string_view sSection, std::string_view sKey,
                              std::string_view sDefault, int nBufferSize, std::string_view sFile)
{
    std::string sBuffer(static_cast<std::size_t>(std::max(nBufferSize, 1)), '\0');
    const DWORD nLength = GetPrivateProfileStringA(
        Windows1252FromUtf8(sSection).c_str(), Windows1252FromUtf8(sKey).c_str(),
        Windows1252FromUtf8(sDefault).c_str(), sBuffer.data(), static_cast<DWORD>(sBuffer.size()),
        AnsiFileGet(sFile, false).c_str());
    return Utf8FromWindows1252(std::string_view(sBuffer).substr(0, nLength));
}

int PrivateProfileWrite(std::string_view sSection, std::string_view sKey, std::string_view sValue,
                        std::string_view sFile)
{
    if (FileReplaceCheck(sFile) == EACCES)
        return ERROR_ACCESS_DENIED;  // before the call, which asks the disk alone
    const BOOL bWritten = WritePrivateProfileStringA(
        Windows1252FromUtf8(sSection).c_str(), Windows1252FromUtf8(sKey).c_str(),
        Windows1252FromUtf8(sValue).c_str(), AnsiFileGet(sFile, true).c_str());
    if (bWritten)
        return 0;
    const DWORD nCode = GetLastError();
    return static_cast<int>(nCode != ERROR_SUCCESS ? nCode : ERROR_WRITE_FAULT);
}
