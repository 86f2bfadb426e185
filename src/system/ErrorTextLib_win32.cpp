#include <windows.h>

#include <array>
#include <string>
#include <string_view>

#include "system/ErrorTextLib.h"
#include "system/HostPath.h"

std::string SystemErrorText(int nCode)
{
    std::array<char, 1024> aBuffer{};
    const DWORD nLength = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                         nullptr, static_cast<DWORD>(nCode), 0, aBuffer.data(),
                                         static_cast<DWORD>(aBuffer.size()), nullptr);
    if (nLength == 0)
        return "Error Code " + std::to_string(nCode);
    return Utf8FromAnsi(std::string_view(aBuffer.data(), nLength));
}
