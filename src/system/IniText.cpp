#include "system/IniText.h"

#include <algorithm>
#include <utility>

#include "system/TextLib.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kByteOrderMarkLittle = "\xFF\xFE";
constexpr std::string_view kByteOrderMarkBig = "\xFE\xFF";
constexpr std::string_view kBlanks = " \t\v\f";

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kHighFirst = 0xD800;  // surrogates: high, then low
constexpr char32_t kLowFirst = 0xDC00;
constexpr char32_t kLowLast = 0xDFFF;
constexpr char32_t kBeyond16 = 0x10000;
constexpr char32_t kLast = 0x10FFFF;
constexpr unsigned kSurrogateBits = 10;

std::string_view BlanksTrim(std::string_view sText)
{
    const std::size_t nStart = sText.find_first_not_of(kBlanks);
    if (nStart == std::string_view::npos)
        return {};
    return sText.substr(nStart, sText.find_last_not_of(kBlanks) - nStart + 1);
}

std::string_view QuotesDrop(std::string_view sValue)
{
    if (sValue.size() >= 2 && (sValue.front() == '"' || sValue.front() == '\'')
        && sValue.front() == sValue.back())
        return sValue.substr(1, sValue.size() - 2);
    return sValue;
}

std::string Utf8FromUtf16(std::string_view sBytes, bool bLittle)
{
    const auto UnitGet = [&](std::size_t n) {
        const auto nFirst = static_cast<unsigned char>(sBytes[n]);
        const auto nSecond = static_cast<unsigned char>(sBytes[n + 1]);
        return static_cast<char32_t>(bLittle ? nFirst | nSecond << 8U : nFirst << 8U | nSecond);
    };
    std::string sText;
    sText.reserve(sBytes.size());
    for (std::size_t n = 0; n + 1 < sBytes.size(); n += 2) {
        char32_t nCode = UnitGet(n);
        if (nCode >= kHighFirst && nCode <= kLowLast) {
            const char32_t nLow = n + 3 < sBytes.size() ? UnitGet(n + 2) : 0;
            const bool bPair = nCode < kLowFirst && nLow >= kLowFirst && nLow <= kLowLast;
            nCode = bPair
                        ? kBeyond16 + ((nCode - kHighFirst) << kSurrogateBits) + (nLow - kLowFirst)
                        : kReplacement;
            n += bPair ? 2 : 0;
        }
        Utf8Append(sText, nCode);
    }
    return sText;
}

/// The code of the character at nAt, which moves past it; U+FFFD for a malformed byte.
char32_t CodeTake(std::string_view sText, std::size_t& nAt)
{
    const auto nLead = static_cast<unsigned char>(sText[nAt++]);
    if (nLead < 0x80U)
        return nLead;
    const std::size_t nMore = nLead >= 0xF0U ? 3 : nLead >= 0xE0U ? 2 : nLead >= 0xC0U ? 1 : 0;
    char32_t nCode = nLead & (0x3FU >> nMore);
    if (nMore == 0 || nAt + nMore > sText.size())
        return kReplacement;
    for (std::size_t n = 0; n < nMore; ++n) {
        const auto nByte = static_cast<unsigned char>(sText[nAt + n]);
        if ((nByte & 0xC0U) != 0x80U)
            return kReplacement;
        nCode = nCode << 6U | (nByte & 0x3FU);
    }
    nAt += nMore;
    // In a longer form than needed, a line end would pass for another character.
    constexpr char32_t kFirst[] = {0, 0x80, 0x800, kBeyond16};
    const bool bHalfPair = nCode >= kHighFirst && nCode <= kLowLast;
    return nCode < kFirst[nMore] || nCode > kLast || bHalfPair ? kReplacement : nCode;
}

/// At most nCharacters of it, with U+FFFD for what is not UTF-8.
std::string Utf8Cut(std::string_view sText, std::size_t nCharacters)
{
    std::string sCut;
    for (std::size_t nAt = 0; nAt < sText.size() && nCharacters > 0; --nCharacters)
        Utf8Append(sCut, CodeTake(sText, nAt));
    return sCut;
}

std::string Utf16FromUtf8(std::string_view sText, bool bLittle)
{
    std::string sBytes;
    sBytes.reserve(2 * sText.size());
    const auto UnitPut = [&](char32_t nUnit) {
        const char cHigh = static_cast<char>(nUnit >> 8U);
        const char cLow = static_cast<char>(nUnit & 0xFFU);
        sBytes += bLittle ? cLow : cHigh;
        sBytes += bLittle ? cHigh : cLow;
    };
    for (std::size_t nAt = 0; nAt < sText.size();) {
        const char32_t nCode = CodeTake(sText, nAt);
        if (nCode < kBeyond16) {
            UnitPut(nCode);
        } else {
            UnitPut(kHighFirst + ((nCode - kBeyond16) >> kSurrogateBits));
            UnitPut(kLowFirst + ((nCode - kBeyond16) & ((1U << kSurrogateBits) - 1)));
        }
    }
    return sBytes;
}

}  // namespace

IniText::IniText(std::string sBytes)
{
    const std::string_view sMark = std::string_view(sBytes).substr(0, 2);
    if (sMark == kByteOrderMarkLittle || sMark == kByteOrderMarkBig) {
        const bool bLittle = sMark == kByteOrderMarkLittle;
        m_eAlphabet = bLittle ? Alphabet::Utf16Little : Alphabet::Utf16Big;
        m_sText = Utf8FromUtf16(sBytes, bLittle);  // the mark too, which becomes that of UTF-8
    } else {
        if (sBytes.starts_with(kByteOrderMark))
            m_eAlphabet = Alphabet::Utf8;
        m_sText = std::move(sBytes);
    }
    Parse();
}

void IniText::Parse()
{
    const std::string_view sText = m_sText;
    std::size_t nStart = m_eAlphabet == Alphabet::Windows1252 ? 0 : kByteOrderMark.size();
    // Each kind of line end is searched from the last of its kind, so that no byte is read twice.
    std::size_t nLineFeed = sText.find('\n', nStart);
    std::size_t nReturn = sText.find('\r', nStart);
    while (nStart < sText.size()) {
        if (nLineFeed < nStart)
            nLineFeed = sText.find('\n', nStart);
        if (nReturn < nStart)
            nReturn = sText.find('\r', nStart);
        const std::size_t nEnd = std::min({nLineFeed, nReturn, sText.size()});
        const bool bBoth = nEnd == nReturn && nLineFeed == nEnd + 1;
        const std::size_t nNext = std::min(nEnd + (bBoth ? 2 : 1), sText.size());
        LineAdd(static_cast<std::uint32_t>(nStart), static_cast<std::uint32_t>(nEnd),
                static_cast<std::uint32_t>(nNext));
        nStart = nNext;
    }
}

void IniText::LineAdd(std::uint32_t nStart, std::uint32_t nEnd, std::uint32_t nNext)
{
    const auto SpanOf = [this](std::string_view sPart) {
        const auto nFrom = static_cast<std::uint32_t>(sPart.data() - m_sText.data());
        return Span{nFrom, nFrom + static_cast<std::uint32_t>(sPart.size())};
    };
    const std::string_view sLine = BlanksTrim(TextOf({nStart, nEnd}));
    if (sLine.empty())
        return;
    if (sLine.front() == '[') {
        const std::size_t nClose = std::min(sLine.find(']'), sLine.size());
        const std::string_view sName = BlanksTrim(sLine.substr(1, nClose - 1));
        m_aSection.push_back({sName.empty() ? Span{nStart, nStart} : SpanOf(sName),
                              static_cast<std::uint32_t>(m_aKey.size()), nNext});
        return;
    }
    if (m_aSection.empty())
        return;
    m_aSection.back().nInsert = nNext;
    const std::size_t nEqual = sLine.find('=');
    if (sLine.front() == ';' || nEqual == std::string_view::npos)
        return;
    const std::string_view sName = BlanksTrim(sLine.substr(0, nEqual));
    const std::size_t nAfter = static_cast<std::size_t>(sLine.data() - m_sText.data()) + nEqual + 1;
    const auto nValue = static_cast<std::uint32_t>(
        std::min<std::size_t>(m_sText.find_first_not_of(kBlanks, nAfter), nEnd));
    m_aKey.push_back({sName.empty() ? Span{nStart, nStart} : SpanOf(sName), {nValue, nEnd}});
}

std::string_view IniText::TextOf(const Span& span) const
{
    return std::string_view(m_sText).substr(span.nStart, span.nEnd - span.nStart);
}

/// Text in the encoding of the file.
std::string IniText::FileText(std::string_view sText) const
{
    return m_eAlphabet == Alphabet::Windows1252 ? Windows1252FromUtf8(sText) : std::string(sText);
}

std::optional<std::size_t> IniText::SectionFind(std::string_view sName) const
{
    for (std::size_t n = 0; n < m_aSection.size(); ++n) {
        if (TextEqualNoCase(TextOf(m_aSection[n].name), sName))
            return n;
    }
    return std::nullopt;
}

std::optional<std::size_t> IniText::KeyFind(std::size_t nSection, std::string_view sName) const
{
    const bool bLast = nSection + 1 == m_aSection.size();
    const std::size_t nEnd = bLast ? m_aKey.size() : m_aSection[nSection + 1].nFirstKey;
    for (std::size_t n = m_aSection[nSection].nFirstKey; n < nEnd; ++n) {
        if (TextEqualNoCase(TextOf(m_aKey[n].name), sName))
            return n;
    }
    return std::nullopt;
}

std::optional<std::string> IniText::ValueGet(std::string_view sSection, std::string_view sKey,
                                             std::size_t nCharacters) const
{
    const std::string sFileSection = FileText(sSection);
    const std::string sFileKey = FileText(sKey);
    const auto nSection = SectionFind(BlanksTrim(sFileSection));
    const auto nKey = nSection ? KeyFind(*nSection, BlanksTrim(sFileKey)) : std::nullopt;
    if (!nKey)
        return std::nullopt;
    const std::string_view sValue = QuotesDrop(BlanksTrim(TextOf(m_aKey[*nKey].value)));
    return m_eAlphabet == Alphabet::Windows1252 ? Utf8FromWindows1252(sValue.substr(0, nCharacters))
                                                : Utf8Cut(sValue, nCharacters);
}

void IniText::ValuePut(std::string_view sSection, std::string_view sKey, std::string_view sValue)
{
    std::string sFileValue(sValue);
    // A line end would make the rest of the value a separate line.
    std::replace_if(
        sFileValue.begin(), sFileValue.end(),
        [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    sFileValue = FileText(sFileValue);
    const std::string sFileSection(BlanksTrim(FileText(sSection)));
    const std::string sFileKey(BlanksTrim(FileText(sKey)));
    const auto nSection = SectionFind(sFileSection);
    if (const auto nKey = nSection ? KeyFind(*nSection, sFileKey) : std::nullopt) {
        std::erase_if(m_aChange, [&](const Change& change) { return change.nKey == *nKey; });
        m_aChange.push_back({*nKey, std::move(sFileValue)});
        return;
    }
    auto it = std::find_if(m_aAddition.begin(), m_aAddition.end(), [&](const Addition& add) {
        return TextEqualNoCase(add.sSection, sFileSection);
    });
    if (it == m_aAddition.end())
        it = m_aAddition.insert(it, {sFileSection, nSection, {}});
    const auto itLine = std::find_if(it->aLine.begin(), it->aLine.end(), [&](const auto& line) {
        return TextEqualNoCase(line.first, sFileKey);
    });
    if (itLine != it->aLine.end())
        itLine->second = std::move(sFileValue);
    else
        it->aLine.emplace_back(sFileKey, std::move(sFileValue));
}

/// The file's own line end; CR LF for a new file.
std::string IniText::LineEndGet() const
{
    const std::size_t nLineFeed = m_sText.find('\n');
    const bool bLineFeedOnly =
        nLineFeed != std::string::npos && (nLineFeed == 0 || m_sText[nLineFeed - 1] != '\r');
    return bLineFeedOnly ? "\n" : "\r\n";
}

/// @param nAt  where the lines go; 0: at the beginning of a line
std::string IniText::LinesMake(const Addition& add, std::size_t nAt) const
{
    const std::string sLineEnd = LineEndGet();
    std::string sLines;
    if (nAt > 0 && m_sText[nAt - 1] != '\n' && m_sText[nAt - 1] != '\r'
        && m_sText != kByteOrderMark)
        sLines += sLineEnd;
    if (!add.nSection)
        sLines.append("[").append(add.sSection).append("]").append(sLineEnd);
    for (const auto& [sKey, sValue] : add.aLine)
        sLines.append(sKey).append("=").append(sValue).append(sLineEnd);
    return sLines;
}

/// The changes in the order of the text; at the same place, new lines of an existing section come
/// before new sections.
std::vector<IniText::Edit> IniText::EditsGet() const
{
    std::vector<Edit> aEdit;
    for (const Change& change : m_aChange)
        aEdit.push_back({m_aKey[change.nKey].value, change.sValue});
    for (const bool bNew : {false, true}) {
        for (const Addition& add : m_aAddition) {
            if (add.nSection.has_value() == bNew)
                continue;
            const std::size_t nAt = bNew ? m_sText.size() : m_aSection[*add.nSection].nInsert;
            const auto nPlace = static_cast<std::uint32_t>(nAt);
            // New lines at the same place have already ended the line before them.
            const bool bFirst = std::none_of(
                aEdit.begin() + static_cast<std::ptrdiff_t>(m_aChange.size()), aEdit.end(),
                [&](const Edit& edit) { return edit.span.nStart == nPlace; });
            aEdit.push_back({{nPlace, nPlace}, LinesMake(add, bFirst ? nAt : 0)});
        }
    }
    std::stable_sort(aEdit.begin(), aEdit.end(), [](const Edit& editA, const Edit& editB) {
        return editA.span.nStart < editB.span.nStart;
    });
    return aEdit;
}

std::string IniText::BytesGet() const
{
    std::string sNew;
    std::size_t nDone = 0;
    for (const Edit& edit : EditsGet()) {
        sNew.append(m_sText, nDone, edit.span.nStart - nDone).append(edit.sText);
        nDone = edit.span.nEnd;
    }
    sNew.append(m_sText, nDone);
    if (m_eAlphabet == Alphabet::Utf16Little || m_eAlphabet == Alphabet::Utf16Big)
        return Utf16FromUtf8(sNew, m_eAlphabet == Alphabet::Utf16Little);
    return sNew;
}
