#include <windows.h>

#include <algorithm>

#include "system/AnsiLib.h"
#include "system/HostPath.h"
#include "system/TextLib.h"

namespace {

constexpr UINT kWindows1252 = 1252;
constexpr unsigned char kAsciiMax = 0x7F;

bool IsAscii(char cByte) { return static_cast<unsigned char>(cByte) <= kAsciiMax; }

/// True when the bytes form whole characters of the system's code page.
bool IsAnsi(std::string_view sBytes)
{
    return MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, sBytes.data(),
                               static_cast<int>(sBytes.size()), nullptr, 0)
           != 0;
}

}  // namespace

std::string Utf8FromFileBytes(std::string_view sBytes)
{
    if (std::all_of(sBytes.begin(), sBytes.end(), IsAscii))
        return std::string(sBytes);
    if (GetACP() == kWindows1252 || !IsAnsi(sBytes))
        return Utf8FromWindows1252(sBytes);
    return Utf8FromAnsi(sBytes);
}

std::string FileBytesFromUtf8(std::string_view sText)
{
    if (GetACP() == kWindows1252)
        return Windows1252FromUtf8(sText);
    std::string sBytes = AnsiFromUtf8(sText);
    return Utf8FromAnsi(sBytes) == sText ? sBytes : Windows1252FromUtf8(sText);
}
