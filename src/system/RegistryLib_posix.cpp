#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "system/DrivePath.h"
#include "system/FileLib.h"
#include "system/PathLib.h"
#include "system/RegistryLib.h"
#include "system/TextLib.h"

namespace {

/// The number in nBase at the start of sText, of at most nMax digits; they are removed from sText.
std::uint32_t DigitsTake(std::string_view& sText, int nBase, std::size_t nMax)
{
    std::uint32_t nCode = 0;
    const char* pEnd = sText.data() + std::min(nMax, sText.size());
    const auto result = std::from_chars(sText.data(), pEnd, nCode, nBase);
    sText.remove_prefix(static_cast<std::size_t>(result.ptr - sText.data()));
    return nCode;
}

/// The UTF-16 unit that an escape represents; sText begins after the backslash.
std::uint32_t EscapeTake(std::string_view& sText)
{
    constexpr std::string_view kLetters = "abtnvfre";
    constexpr std::string_view kCodes = "\a\b\t\n\v\f\r\x1b";
    const char cLetter = sText.front();
    if (cLetter >= '0' && cLetter <= '7')
        return DigitsTake(sText, 8, 3);
    sText.remove_prefix(1);
    if (cLetter == 'x')
        return DigitsTake(sText, 16, 4);
    const std::size_t nLetter = kLetters.find(cLetter);
    return static_cast<unsigned char>(nLetter == std::string_view::npos ? cLetter
                                                                        : kCodes[nLetter]);
}

/// A text up to cEnd with the registry file's escapes decoded; sText then begins after cEnd. A byte
/// beyond ASCII, which Wine itself escapes, is the character of its number, as Wine reads it.
/// @return nothing when cEnd is missing.
std::optional<std::string> TextTake(std::string_view& sText, char cEnd)
{
    constexpr std::uint32_t kReplacement = 0xFFFD;
    std::string sTaken;
    std::uint32_t nHigh = 0;  // first half of a character beyond 16 bits
    while (!sText.empty() && sText.front() != cEnd) {
        std::uint32_t nUnit = static_cast<unsigned char>(sText.front());
        sText.remove_prefix(1);
        if (nUnit == '\\' && !sText.empty())
            nUnit = EscapeTake(sText);
        const bool bLow = nUnit >= 0xDC00 && nUnit < 0xE000;
        if (nHigh != 0 && !bLow)
            Utf8Append(sTaken, kReplacement);
        if (bLow)
            nUnit = nHigh == 0 ? kReplacement
                               : 0x10000U + ((nHigh - 0xD800U) << 10U) + (nUnit - 0xDC00U);
        nHigh = nUnit >= 0xD800 && nUnit < 0xDC00 ? nUnit : 0;
        if (nHigh == 0)
            Utf8Append(sTaken, nUnit);
    }
    if (nHigh != 0)
        Utf8Append(sTaken, kReplacement);
    if (sText.empty())
        return std::nullopt;
    sText.remove_prefix(1);
    return sTaken;
}

/// The string of a line `"Name"="..."`, `"Name"=str(2):"..."` or `@="..."` when it has this name;
/// the inner optional is empty for a value that is not a string.
std::optional<std::optional<std::string>> ValueTake(std::string_view sLine, std::string_view sName)
{
    std::optional<std::string> sFound;
    if (sLine.substr(0, 1) == "@") {
        sLine.remove_prefix(1);
        sFound.emplace();
    } else if (sLine.substr(0, 1) == "\"") {
        sLine.remove_prefix(1);
        sFound = TextTake(sLine, '"');
    }
    if (!sFound || !TextEqualNoCase(*sFound, sName) || sLine.substr(0, 1) != "=")
        return std::nullopt;
    sLine.remove_prefix(1);
    constexpr std::string_view kExpandable = "str(2):";
    if (sLine.substr(0, kExpandable.size()) == kExpandable)
        sLine.remove_prefix(kExpandable.size());
    std::optional<std::string> sValue;
    if (sLine.substr(0, 1) == "\"") {
        sLine.remove_prefix(1);
        sValue = TextTake(sLine, '"');
    }
    return sValue;
}

/// The value in user.reg of the Wine prefix; a later entry replaces an earlier one.
std::optional<std::string> ValueRead(std::string_view sKey, std::string_view sName)
{
    auto resFile = TextFile::Open(WinePrefixGet() + "/user.reg");
    if (!resFile)
        return std::nullopt;
    std::optional<std::string> sValue;
    std::string sLine;
    bool bInKey = false;
    for (;;) {
        const auto resLine = resFile.ValueGet().LineRead(sLine);
        if (!resLine || !resLine.ValueGet())
            return sValue;
        std::string_view sRest = sLine;
        if (sRest.substr(0, 1) == "[") {
            sRest.remove_prefix(1);
            const auto sSection = TextTake(sRest, ']');
            bInKey = sSection && TextEqualNoCase(*sSection, sKey);
        } else if (auto sFound = bInKey ? ValueTake(sRest, sName) : std::nullopt) {
            sValue = *sFound;
        }
    }
}

}  // namespace

std::optional<RegistryString> RegistryStringGet(std::string_view sKey, std::string_view sName,
                                                int nMaxBytes)
{
    const std::optional<std::string> sValue = ValueRead(sKey, sName);
    if (!sValue)
        return std::nullopt;
    const std::size_t nBytes = Windows1252FromUtf8(*sValue).size() + 1;
    if (nMaxBytes < 0 || nBytes > static_cast<std::size_t>(nMaxBytes))
        return std::nullopt;
    return RegistryString{sValue->substr(0, sValue->find('\0')), static_cast<int>(nBytes)};
}
