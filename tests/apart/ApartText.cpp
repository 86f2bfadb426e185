#include "apart/ApartText.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>

namespace {

constexpr const char* kDigits = "0123456789";

/// Length of the number at the beginning, without an exponent; 0 if there is none.
std::size_t PlainLength(const char* psz, const char* pszPoints)
{
    const std::size_t nSign = std::strspn(psz, "+-") == 1 ? 1 : 0;
    const std::size_t nWhole = std::strspn(psz + nSign, kDigits);
    const char* pszPoint = psz + nSign + nWhole;
    if (*pszPoint == '\0' || std::strchr(pszPoints, *pszPoint) == nullptr)
        return nWhole == 0 ? 0 : nSign + nWhole;
    const std::size_t nDecimals = std::strspn(pszPoint + 1, kDigits);
    return nWhole + nDecimals == 0 ? 0 : nSign + nWhole + 1 + nDecimals;
}

/// The text for the C library to read, if it is a plain number.
std::optional<std::string> PlainText(const std::string& sText)
{
    std::string sNumber = ApartTrim(sText);
    if (sNumber.empty() || PlainLength(sNumber.c_str(), ".") != sNumber.size())
        return std::nullopt;
    return sNumber;
}

std::optional<std::string> LenientText(const std::string& sText)
{
    std::string sNumber = ApartTrim(sText);
    const std::size_t nPlain = PlainLength(sNumber.c_str(), ".,");
    const std::string sRest = sNumber.substr(nPlain);
    const std::size_t nSign = sRest.find_first_of("+-") == 1 ? 1 : 0;
    const bool bExponent =
        (sRest.starts_with('e') || sRest.starts_with('E')) && sRest.size() > nSign + 1
        && std::strspn(sRest.c_str() + 1 + nSign, kDigits) == sRest.size() - 1 - nSign;
    if (nPlain == 0 || (!sRest.empty() && !bExponent))
        return std::nullopt;
    if (const std::size_t nComma = sNumber.find(','); nComma != std::string::npos)
        sNumber[nComma] = '.';
    return sNumber;
}

}  // namespace

std::vector<std::string> ApartLines(const std::string& sBytes)
{
    std::vector<std::string> asLine;
    std::string sLine;
    for (const char c : sBytes) {
        if (c != '\n') {
            sLine += c;
            continue;
        }
        if (!sLine.empty() && sLine.back() == '\r')
            sLine.pop_back();
        asLine.push_back(sLine);
        sLine.clear();
    }
    // The file may end between CR and LF.
    const bool bAny = !sLine.empty();
    if (bAny && sLine.back() == '\r')
        sLine.pop_back();
    if (bAny)
        asLine.push_back(sLine);
    return asLine;
}

std::string ApartColumns(const std::string& sLine, std::size_t nFirst, std::size_t nLast)
{
    return nFirst > sLine.size() ? std::string() : sLine.substr(nFirst - 1, nLast - nFirst + 1);
}

std::string ApartTrim(const std::string& sText)
{
    const std::size_t nFirst = sText.find_first_not_of(" \t");
    if (nFirst == std::string::npos)
        return {};
    return sText.substr(nFirst, sText.find_last_not_of(" \t") - nFirst + 1);
}

std::optional<double> ApartNumber(const std::string& sText)
{
    const auto sNumber = PlainText(sText);
    return sNumber ? std::optional(std::strtod(sNumber->c_str(), nullptr)) : std::nullopt;
}

std::optional<float> ApartSingle(const std::string& sText)
{
    const auto sNumber = PlainText(sText);
    return sNumber ? std::optional(std::strtof(sNumber->c_str(), nullptr)) : std::nullopt;
}

std::optional<double> ApartLenient(const std::string& sText)
{
    const auto sNumber = LenientText(sText);
    if (!sNumber || !std::isfinite(std::strtod(sNumber->c_str(), nullptr)))
        return std::nullopt;
    return std::strtod(sNumber->c_str(), nullptr);
}

std::optional<float> ApartLenientSingle(const std::string& sText)
{
    const auto sNumber = LenientText(sText);
    if (!sNumber || !std::isfinite(std::strtof(sNumber->c_str(), nullptr)))
        return std::nullopt;
    return std::strtof(sNumber->c_str(), nullptr);
}

std::string ApartUtf8(const std::string& sBytes)
{
    // The characters of the bytes 0x80 to 0x9F; five have none.
    static constexpr std::array<const char*, 32> kCharacters{
        "€", "\uFFFD", "‚",      "ƒ", "„",      "…",      "†", "‡",      "ˆ", "‰", "Š",
        "‹", "Œ",      "\uFFFD", "Ž", "\uFFFD", "\uFFFD", "‘", "’",      "“", "”", "•",
        "–", "—",      "˜",      "™", "š",      "›",      "œ", "\uFFFD", "ž", "Ÿ"};
    std::string sText;
    for (const char c : sBytes) {
        const auto n = static_cast<unsigned char>(c);
        if (n < 0x80)
            sText += c;
        else if (n < 0xA0)
            sText += kCharacters[n - 0x80U];
        else
            sText +=
                {static_cast<char>(n < 0xC0 ? 0xC2 : 0xC3), static_cast<char>(0x80U | (n & 0x3FU))};
    }
    return sText;
}

std::string ApartLower(std::string sText)
{
    for (char& c : sText)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + 32);
    return sText;
}

std::string ApartBytes(const std::string& sText)
{
    static const std::map<std::string, char> kBytes = [] {
        std::map<std::string, char> map;
        for (int n = 0; n < 0x100; ++n) {
            const char c = static_cast<char>(n);
            map.emplace(ApartUtf8(std::string(1, c)), c);
        }
        map["\uFFFD"] = '?';
        return map;
    }();
    std::string sBytes;
    std::string sCharacter;
    const auto fnEnd = [&] {
        const auto it = kBytes.find(sCharacter);
        if (!sCharacter.empty())
            sBytes += it == kBytes.end() ? '?' : it->second;
        sCharacter.clear();
    };
    for (const char c : sText) {
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80)
            fnEnd();
        sCharacter += c;
    }
    fnEnd();
    return sBytes;
}
