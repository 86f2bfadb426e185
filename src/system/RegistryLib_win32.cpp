#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "system/HostPath.h"
#include "system/RegistryLib.h"

std::optional<RegistryString> RegistryStringGet(std::string_view sKey, std::string_view sName,
                                                int nMaxBytes)
{
    constexpr REGSAM kAccess = KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY;
    static_assert(kAccess == 25);
    HKEY hKey = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, AnsiFromUtf8(sKey).c_str(), 0, kAccess, &hKey)
        != ERROR_SUCCESS)
        return std::nullopt;
    std::string sBuffer(static_cast<std::size_t>(std::max(nMaxBytes, 0)), '\0');
    auto nBytes = static_cast<DWORD>(sBuffer.size());
    DWORD nType = REG_NONE;
    // A null buffer would ask for the size only and succeed; std::string's is never null.
    const LSTATUS nStatus = RegQueryValueExA(hKey, AnsiFromUtf8(sName).c_str(), nullptr, &nType,
                                             reinterpret_cast<BYTE*>(sBuffer.data()), &nBytes);
    RegCloseKey(hKey);
    if (nStatus != ERROR_SUCCESS || (nType != REG_SZ && nType != REG_EXPAND_SZ))
        return std::nullopt;
    const std::string_view sBytes = std::string_view(sBuffer).substr(0, nBytes);
    return RegistryString{Utf8FromAnsi(sBytes.substr(0, sBytes.find('\0'))),
                          static_cast<int>(nBytes)};
}
