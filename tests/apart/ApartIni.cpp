#include "apart/ApartIni.h"

#include <algorithm>
#include <array>

#include "apart/ApartText.h"

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

/// Decodes UTF-8 of 1 to 4 bytes. Invalid bytes and overlong forms are replaced.
std::u32string FromUtf8(const std::string& sBytes)
{
    static constexpr std::array<char32_t, 4> kFirst{0, 0x80, 0x800, 0x10000};
    std::u32string sText;
    for (std::size_t n = 0; n < sBytes.size();) {
        const auto fnByte = [&](std::size_t i) {
            return i < sBytes.size() ? static_cast<unsigned char>(sBytes[i]) : 0U;
        };
        const unsigned nLead = fnByte(n);
        const std::size_t nMore = nLead < 0xC0 ? 0 : nLead < 0xE0 ? 1 : nLead < 0xF0 ? 2 : 3;
        bool bWhole = nLead < 0x80 || nLead >= 0xC0;
        char32_t nCode = nMore == 0 ? nLead : nLead & (0x3FU >> nMore);
        for (std::size_t i = 1; i <= nMore; ++i) {
            bWhole = bWhole && (fnByte(n + i) & 0xC0U) == 0x80;
            nCode = nCode * 64 + (fnByte(n + i) & 0x3FU);
        }
        const bool bSense =
            nCode >= kFirst[nMore] && nCode < 0x110000 && (nCode < 0xD800 || nCode >= 0xE000);
        sText += bWhole && bSense ? nCode : kNoCharacter;
        n += bWhole ? nMore + 1 : 1;
    }
    return sText;
}

std::string ToUtf8(const std::u32string& sText)
{
    std::string sBytes;
    for (const char32_t c : sText) {
        if (c < 0x80) {
            sBytes += static_cast<char>(c);
            continue;
        }
        const int nMore = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        sBytes += static_cast<char>((nMore == 1   ? 0xC0U
                                     : nMore == 2 ? 0xE0U
                                                  : 0xF0U)
                                    | (c >> (6 * nMore)));
        for (int i = nMore - 1; i >= 0; --i)
            sBytes += static_cast<char>(0x80U | ((c >> (6 * i)) & 0x3FU));
    }
    return sBytes;
}

std::u32string FromUtf16(const std::string& sBytes, bool bLittle)
{
    std::u32string sText;
    for (std::size_t n = 0; n + 1 < sBytes.size(); n += 2) {
        const auto nA = static_cast<unsigned char>(sBytes[n]);
        const auto nB = static_cast<unsigned char>(sBytes[n + 1]);
        const char32_t nUnit = bLittle ? nA + 256U * nB : 256U * nA + nB;
        if (nUnit >= 0xDC00 && nUnit < 0xE000 && !sText.empty() && sText.back() >= 0xD800
            && sText.back() < 0xDC00)
            sText.back() = 0x10000 + (sText.back() - 0xD800) * 0x400 + (nUnit - 0xDC00);
        else
            sText += nUnit;
    }
    for (char32_t& c : sText)
        if (c >= 0xD800 && c < 0xE000)
            c = kNoCharacter;  // half a surrogate pair
    return sText;
}

std::u32string TextOf(const std::string& sBytes)
{
    if (sBytes.starts_with("\xEF\xBB\xBF"))
        return FromUtf8(sBytes.substr(3));
    if (sBytes.starts_with("\xFF\xFE") || sBytes.starts_with("\xFE\xFF"))
        return FromUtf16(sBytes.substr(2), sBytes[0] == '\xFF');
    return FromUtf8(ApartUtf8(sBytes));
}

std::u32string Trimmed(const std::u32string& sText)
{
    static const std::u32string kBlanks = U" \t\v\f";
    const std::size_t nFirst = sText.find_first_not_of(kBlanks);
    if (nFirst == std::u32string::npos)
        return {};
    return sText.substr(nFirst, sText.find_last_not_of(kBlanks) - nFirst + 1);
}

std::u32string Unquoted(const std::u32string& sText)
{
    const bool bQuoted = sText.size() > 1 && sText.front() == sText.back()
                         && (sText.front() == U'"' || sText.front() == U'\'');
    return bQuoted ? sText.substr(1, sText.size() - 2) : sText;
}

}  // namespace

ApartIni::ApartIni(const std::string& sBytes)
{
    std::u32string sText = TextOf(sBytes);
    sText += U'\n';
    std::u32string sLine;
    for (const char32_t c : sText) {
        if (c != U'\n' && c != U'\r') {
            sLine += c;
            continue;
        }
        sLine = Trimmed(sLine);
        const std::size_t nEqual = sLine.find(U'=');
        if (sLine.starts_with(U'[')) {
            const std::u32string sName = sLine.substr(1, sLine.find(U']') - 1);
            m_aSections.push_back({ApartLower(ToUtf8(Trimmed(sName))), {}});
        } else if (!sLine.starts_with(U';') && nEqual != std::u32string::npos
                   && !m_aSections.empty())
            m_aSections.back().aKeys.emplace_back(
                ApartLower(ToUtf8(Trimmed(sLine.substr(0, nEqual)))),
                Unquoted(Trimmed(sLine.substr(nEqual + 1))));
        sLine.clear();
    }
}

std::string ApartIni::Get(const std::string& sSection, const std::string& sKey,
                          std::size_t nMost) const
{
    const std::string sName = ApartLower(ToUtf8(Trimmed(FromUtf8(sKey))));
    const auto itSection = std::ranges::find(m_aSections, ApartLower(sSection), &Section::sName);
    if (itSection == m_aSections.end())
        return {};
    for (const auto& [sThis, sValue] : itSection->aKeys)
        if (sThis == sName)
            return ToUtf8(sValue.substr(0, nMost));
    return {};
}
