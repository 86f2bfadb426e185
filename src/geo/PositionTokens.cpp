#include "geo/PositionTokens.h"

#include <array>
#include <string>

#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr std::size_t kPartsMost = 3;  // degrees, minutes, seconds

struct Spelling {
    std::string_view sText;
    PositionMark eMark;
    char chr = '\0';
};

// Seconds come before minutes because two apostrophes are one sign.
constexpr Spelling kSpellings[] = {
    {" ", PositionMark::Blank},
    {"\t", PositionMark::Blank},
    {"\n", PositionMark::Blank},
    {"\r", PositionMark::Blank},
    {"\xC2\xA0", PositionMark::Blank},          // U+00A0 no-break space
    {"\xE2\x80\x89", PositionMark::Blank},      // U+2009 thin space
    {"\xE2\x80\xAF", PositionMark::Blank},      // U+202F narrow no-break space
    {kDegreeSign, PositionMark::Degree},        //
    {"\xC2\xBA", PositionMark::Degree},         // U+00BA masculine ordinal
    {"\xCB\x9A", PositionMark::Degree},         // U+02DA ring above
    {"''", PositionMark::Second},               //
    {"\"", PositionMark::Second},               //
    {"\xE2\x80\xB3", PositionMark::Second},     // U+2033 double prime
    {"\xE2\x80\x9D", PositionMark::Second},     // U+201D closing double quote
    {"'", PositionMark::Minute},                //
    {"\xE2\x80\xB2", PositionMark::Minute},     // U+2032 prime
    {"\xE2\x80\x99", PositionMark::Minute},     // U+2019 closing quote
    {":", PositionMark::Colon},                 //
    {",", PositionMark::Separator},             //
    {";", PositionMark::Separator},             //
    {"+", PositionMark::Sign, '+'},             //
    {"-", PositionMark::Sign, '-'},             //
    {"\xE2\x88\x92", PositionMark::Sign, '-'},  // U+2212 minus sign
};

std::size_t DigitsEnd(std::string_view sText, std::size_t n)
{
    while (n < sText.size() && DigitIs(sText[n])) ++n;
    return n;
}

/// Cuts a text into numbers, signs and letters.
class Tokens {
public:
    Tokens(std::string_view sText, bool bDecimalComma)
        : m_sText(sText),
          m_bDecimalComma(bDecimalComma && sText.find('.') == std::string_view::npos)
    {
    }
    /// Nothing if the text contains anything that no position has.
    [[nodiscard]] std::optional<std::vector<PositionToken>> Get()
    {
        while (m_n < m_sText.size()) {
            if (!NumberTake() && !LetterTake() && !SpellingTake())
                return {};
        }
        return std::move(m_aTokens);
    }

private:
    void Add(PositionToken token)
    {
        token.bBlank = std::exchange(m_bBlank, false);
        m_aTokens.push_back(token);
    }

    bool NumberTake()
    {
        const std::size_t nPoint = DigitsEnd(m_sText, m_n);
        std::size_t nEnd = nPoint;
        const char chrPoint = nPoint < m_sText.size() ? m_sText[nPoint] : '\0';
        const std::size_t nFraction = DigitsEnd(m_sText, nPoint + 1);
        const bool bDigits = nFraction > nPoint + 1;  // after the point
        const bool bComma = m_bDecimalComma && chrPoint == ',' && bDigits && nPoint > m_n;
        const bool bBehindNumber =
            !m_bBlank && !m_aTokens.empty() && m_aTokens.back().eMark == PositionMark::Number;
        if (bComma || (chrPoint == '.' && (nPoint > m_n || bDigits)))
            nEnd = nFraction;
        if (nEnd == m_n || bBehindNumber)
            return false;
        std::string sNumber(m_sText.substr(m_n, nEnd - m_n));
        if (bComma)
            sNumber[nPoint - m_n] = '.';
        const auto resNumber = NumberFromText(sNumber);
        if (!resNumber)
            return false;
        Add({PositionMark::Number, '\0', resNumber.ValueGet(), nPoint - m_n, nEnd > nPoint});
        m_n = nEnd;
        m_bCommaSeen = m_bCommaSeen || bComma;
        return true;
    }

    bool LetterTake()
    {
        const std::string sLetter = TextUpper(m_sText.substr(m_n, 1));
        if (std::string_view("NSEW").find(sLetter) == std::string_view::npos)
            return false;
        Add({PositionMark::Letter, sLetter[0]});
        ++m_n;
        return true;
    }

    bool SpellingTake()
    {
        for (const Spelling& spelling : kSpellings) {
            if (!m_sText.substr(m_n).starts_with(spelling.sText))
                continue;
            m_n += spelling.sText.size();
            if (spelling.eMark == PositionMark::Blank) {
                m_bBlank = true;
                return true;
            }
            // "1,2,3" could be cut in two ways.
            if (spelling.sText == "," && m_bCommaSeen && DigitsEnd(m_sText, m_n) > m_n)
                return false;
            Add({spelling.eMark, spelling.chr});
            return true;
        }
        return false;
    }

    std::string_view m_sText;
    bool m_bDecimalComma;
    bool m_bCommaSeen = false;
    bool m_bBlank = false;
    std::size_t m_n = 0;
    std::vector<PositionToken> m_aTokens;
};

}  // namespace

std::optional<std::vector<PositionToken>> PositionTokensGet(std::string_view sText,
                                                            bool bDecimalComma)
{
    return Tokens(sText, bDecimalComma).Get();
}

std::optional<PositionAngle> PositionAngles::Next()
{
    PositionAngle ang;
    if (const PositionToken* pLetter = Take(PositionMark::Letter)) {
        ang.chrLetter = pLetter->chr;
        ang.bLeading = true;
    }
    if (const PositionToken* pSign = Take(PositionMark::Sign))
        ang.chrSign = pSign->chr;
    if (!PartsTake(ang))
        return {};
    if (!ang.bLeading) {
        if (const PositionToken* pLetter = Take(PositionMark::Letter))
            ang.chrLetter = pLetter->chr;
    }
    if (ang.chrSign != '\0' && ang.chrLetter != '\0')
        return {};
    return ang;
}

bool PositionAngles::GapTake(const PositionAngle& angBefore)
{
    if (Take(PositionMark::Separator) != nullptr)
        return true;
    if (IsAtEnd())
        return false;
    const PositionToken& token = m_aTokens[m_n];
    return token.bBlank || token.eMark == PositionMark::Letter
           || (angBefore.chrLetter != '\0' && !angBefore.bLeading);
}

const PositionToken* PositionAngles::Take(PositionMark eMark)
{
    if (IsAtEnd() || m_aTokens[m_n].eMark != eMark)
        return nullptr;
    return &m_aTokens[m_n++];
}

void PositionAngles::ColonTake()
{
    if (m_n + 1 < m_aTokens.size() && m_aTokens[m_n + 1].eMark == PositionMark::Number)
        (void)Take(PositionMark::Colon);
}

bool PositionAngles::PartsTake(PositionAngle& ang)
{
    constexpr std::array<PositionMark, kPartsMost> kMarks{
        PositionMark::Degree, PositionMark::Minute, PositionMark::Second};
    constexpr std::array<double, kPartsMost> kUnits{1.0, kSixty, kSixty * kSixty};
    constexpr std::size_t kDegreeDigits = 3;
    constexpr std::size_t kPartDigits = 2;
    bool bFraction = false;
    while (ang.nParts < kPartsMost && !bFraction) {
        const PositionToken* pNumber = Take(PositionMark::Number);
        if (pNumber == nullptr)
            break;
        const bool bFirst = ang.nParts == 0;
        if (pNumber->nWhole > (bFirst ? kDegreeDigits : kPartDigits)
            || (!bFirst && pNumber->dValue >= kSixty))
            return false;
        ang.dValue += pNumber->dValue / kUnits[ang.nParts];
        bFraction = pNumber->bFraction;
        if (Take(kMarks[ang.nParts]) != nullptr)
            ++ang.nMarks;
        else if (!bFraction)
            ColonTake();
        ++ang.nParts;
    }
    return ang.nParts > 0;
}
