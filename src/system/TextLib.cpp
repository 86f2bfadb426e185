#include "system/TextLib.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

// Windows-1252, bytes 0x80 to 0x9F; 0 marks the five bytes without a meaning. The other bytes are
// their own code points (Latin-1).
constexpr std::array<std::uint16_t, 32> kHighControl{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
constexpr char32_t kReplacement = 0xFFFD;

bool BlankIs(char chr) { return chr == ' ' || chr == '\t'; }

char UpperGet(char chr)
{
    return chr >= 'a' && chr <= 'z' ? static_cast<char>(chr - 'a' + 'A') : chr;
}

// The code point at nAt, which moves past it; a malformed byte is taken alone and gives the
// replacement character.
char32_t Utf8Next(std::string_view sText, std::size_t& nAt)
{
    const auto ByteGet = [&](std::size_t n) { return static_cast<unsigned char>(sText[n]); };
    const unsigned nFirst = ByteGet(nAt);
    const int nMore = nFirst < 0x80             ? 0
                      : (nFirst & 0xE0) == 0xC0 ? 1
                      : (nFirst & 0xF0) == 0xE0 ? 2
                      : (nFirst & 0xF8) == 0xF0 ? 3
                                                : -1;
    if (nMore < 0 || nAt + static_cast<std::size_t>(nMore) >= sText.size()) {
        ++nAt;
        return kReplacement;
    }
    char32_t nCode = nMore == 0 ? nFirst : nFirst & (0x3FU >> nMore);
    for (int i = 1; i <= nMore; ++i) {
        const unsigned nByte = ByteGet(nAt + static_cast<std::size_t>(i));
        if ((nByte & 0xC0) != 0x80) {
            ++nAt;
            return kReplacement;
        }
        nCode = (nCode << 6) | (nByte & 0x3F);
    }
    // A longer form than the character needs could smuggle a line end past every check.
    constexpr std::array<char32_t, 4> kLeast{0, 0x80, 0x800, 0x10000};
    if (nCode < kLeast[static_cast<std::size_t>(nMore)]) {
        ++nAt;
        return kReplacement;
    }
    nAt += static_cast<std::size_t>(nMore) + 1;
    return nCode;
}

/// The character as a terminal may get it: none that moves the cursor, ends a line or changes the
/// direction of writing (Unicode 15, categories Cc, Zl and Zp, and the bidirectional controls).
char32_t PrintableGet(char32_t nCode)
{
    const bool bControl = nCode < 0x20 || (nCode >= 0x7F && nCode <= 0x9F);
    const bool bDirection = nCode == 0x061C || nCode == 0x200E || nCode == 0x200F
                            || (nCode >= 0x202A && nCode <= 0x202E)
                            || (nCode >= 0x2066 && nCode <= 0x2069);
    if (bControl || bDirection || nCode == 0x2028 || nCode == 0x2029)
        return ' ';
    const bool bNone = (nCode >= 0xD800 && nCode <= 0xDFFF) || nCode > 0x10FFFF;
    return bNone ? kReplacement : nCode;
}

char Windows1252Get(char32_t nCode)
{
    if (nCode < 0x80 || (nCode >= 0xA0 && nCode <= 0xFF))
        return static_cast<char>(nCode);
    for (std::size_t n = 0; n < kHighControl.size(); ++n) {
        if (kHighControl[n] != 0 && kHighControl[n] == nCode)
            return static_cast<char>(0x80 + n);
    }
    return '?';
}

}  // namespace

void Utf8Append(std::string& sText, char32_t nCode)
{
    if (nCode < 0x80) {
        sText += static_cast<char>(nCode);
        return;
    }
    const int nTails = nCode < 0x800 ? 1 : nCode < 0x10000 ? 2 : 3;
    constexpr std::array<unsigned, 4> kLeads{0, 0xC0, 0xE0, 0xF0};
    sText += static_cast<char>(kLeads[static_cast<std::size_t>(nTails)] | (nCode >> (6 * nTails)));
    for (int i = nTails - 1; i >= 0; --i)
        sText += static_cast<char>(0x80 | ((nCode >> (6 * i)) & 0x3F));
}

std::string Utf8FromWindows1252(std::string_view sBytes)
{
    std::string sText;
    sText.reserve(sBytes.size());
    for (const char chr : sBytes) {
        const auto nByte = static_cast<unsigned char>(chr);
        if (nByte >= 0x80 && nByte < 0xA0) {
            const char32_t nCode = kHighControl[nByte - 0x80U];
            Utf8Append(sText, nCode == 0 ? kReplacement : nCode);
        } else {
            Utf8Append(sText, nByte);
        }
    }
    return sText;
}

std::string Windows1252FromUtf8(std::string_view sText)
{
    std::string sBytes;
    sBytes.reserve(sText.size());
    for (std::size_t nAt = 0; nAt < sText.size();) sBytes += Windows1252Get(Utf8Next(sText, nAt));
    return sBytes;
}

std::string_view TextTrim(std::string_view sText)
{
    while (!sText.empty() && BlankIs(sText.front())) sText.remove_prefix(1);
    while (!sText.empty() && BlankIs(sText.back())) sText.remove_suffix(1);
    return sText;
}

std::string TextUpper(std::string_view sText)
{
    std::string sUpper(sText);
    for (char& chr : sUpper) chr = UpperGet(chr);
    return sUpper;
}

bool TextEqualNoCase(std::string_view sA, std::string_view sB)
{
    if (sA.size() != sB.size())
        return false;
    for (std::size_t n = 0; n < sA.size(); ++n) {
        if (UpperGet(sA[n]) != UpperGet(sB[n]))
            return false;
    }
    return true;
}

std::string_view TextColumns(std::string_view sText, int nStart, int nWidth)
{
    const auto nFrom = static_cast<std::size_t>(nStart < 1 ? 0 : nStart - 1);
    if (nWidth <= 0 || nFrom >= sText.size())
        return {};
    return sText.substr(nFrom, static_cast<std::size_t>(nWidth));
}

std::vector<std::string_view> TextLines(std::string_view sText)
{
    std::vector<std::string_view> asLines;
    while (!sText.empty()) {
        const std::size_t nEnd = std::min(sText.find('\n'), sText.size());
        std::string_view sLine = sText.substr(0, nEnd);
        sText.remove_prefix(std::min(nEnd + 1, sText.size()));
        if (sLine.ends_with('\r'))
            sLine.remove_suffix(1);
        asLines.push_back(sLine);
    }
    return asLines;
}

std::string TextPrintable(std::string_view sText)
{
    std::string sPrintable;
    sPrintable.reserve(sText.size());
    for (std::size_t nAt = 0; nAt < sText.size();)
        Utf8Append(sPrintable, PrintableGet(Utf8Next(sText, nAt)));
    return sPrintable;
}

std::string TextForMessage(std::string_view sText)
{
    std::size_t nAt = 0;
    for (int n = 0; n < kMessageCharactersMax && nAt < sText.size(); ++n)
        (void)Utf8Next(sText, nAt);
    return TextPrintable(sText.substr(0, nAt)) + (nAt < sText.size() ? "..." : "");
}
