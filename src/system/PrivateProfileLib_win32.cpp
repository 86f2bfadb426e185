#include <windows.h>

#include <algorithm>
#include <string>

#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/TextLib.h"

std::string PrivateProfileGet(std::string_view sSection, std::string_view sKey,
                              std::string_view sDefault, int nBufferSize, std::string_view sFile)
{
    std::string sBuffer(static_cast<std::size_t>(std::max(nBufferSize, 1)), '\0');
    const DWORD nLength = GetPrivateProfileStringA(
        Windows1252FromUtf8(sSection).c_str(), Windows1252FromUtf8(sKey).c_str(),
        Windows1252FromUtf8(sDefault).c_str(), sBuffer.data(), static_cast<DWORD>(sBuffer.size()),
        AnsiFromUtf8(PathToHost(sFile)).c_str());
    return Utf8FromWindows1252(std::string_view(sBuffer).substr(0, nLength));
}

int PrivateProfileWrite(std::string_view sSection, std::string_view sKey, std::string_view sValue,
                        std::string_view sFile)
{
    const BOOL bWritten = WritePrivateProfileStringA(
        Windows1252FromUtf8(sSection).c_str(), Windows1252FromUtf8(sKey).c_str(),
        Windows1252FromUtf8(sValue).c_str(), AnsiFromUtf8(PathToHost(sFile)).c_str());
    return bWritten ? 0 : static_cast<int>(GetLastError());
}
