#include "geo/PositionText.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "geo/GridSquareLib.h"
#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr double kSixty = 60.0;
constexpr std::size_t kPartsMost = 3;  // degrees, minutes, seconds

enum class Mark { Blank, Number, Degree, Minute, Second, Colon, Letter, Sign, Separator };

struct Token {
    Mark eMark = Mark::Blank;
    char chr = '\0';         ///< of a letter (upper case) or sign
    double dValue = 0.0;     ///< of a number
    std::size_t nWhole = 0;  ///< digits before its point
    bool bFraction = false;
    bool bBlank = false;  ///< a blank stands before it
};

struct Spelling {
    std::string_view sText;
    Mark eMark;
    char chr = '\0';
};

// Seconds before minutes: two apostrophes are one sign.
constexpr Spelling kSpellings[] = {
    {" ", Mark::Blank},
    {"\t", Mark::Blank},
    {"\n", Mark::Blank},
    {"\r", Mark::Blank},
    {"\xC2\xA0", Mark::Blank},          // U+00A0 no-break space
    {"\xE2\x80\x89", Mark::Blank},      // U+2009 thin space
    {"\xE2\x80\xAF", Mark::Blank},      // U+202F narrow no-break space
    {kDegreeSign, Mark::Degree},        //
    {"\xC2\xBA", Mark::Degree},         // U+00BA masculine ordinal
    {"\xCB\x9A", Mark::Degree},         // U+02DA ring above
    {"''", Mark::Second},               //
    {"\"", Mark::Second},               //
    {"\xE2\x80\xB3", Mark::Second},     // U+2033 double prime
    {"\xE2\x80\x9D", Mark::Second},     // U+201D closing double quote
    {"'", Mark::Minute},                //
    {"\xE2\x80\xB2", Mark::Minute},     // U+2032 prime
    {"\xE2\x80\x99", Mark::Minute},     // U+2019 closing quote
    {":", Mark::Colon},                 //
    {",", Mark::Separator},             //
    {";", Mark::Separator},             //
    {"+", Mark::Sign, '+'},             //
    {"-", Mark::Sign, '-'},             //
    {"\xE2\x88\x92", Mark::Sign, '-'},  // U+2212 minus sign
};

bool DigitIs(char chr) { return chr >= '0' && chr <= '9'; }

bool LetterIs(char chr, char chrLast) { return chr >= 'A' && chr <= chrLast; }

bool LatitudeIs(char chrLetter) { return chrLetter == 'N' || chrLetter == 'S'; }

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
    /// Nothing where the text holds something that no position has.
    [[nodiscard]] std::optional<std::vector<Token>> Get()
    {
        while (m_n < m_sText.size()) {
            if (!NumberTake() && !LetterTake() && !SpellingTake())
                return {};
        }
        return std::move(m_aTokens);
    }

private:
    void Add(Token token)
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
        const bool bDigits = nFraction > nPoint + 1;  // behind the point
        const bool bComma = m_bDecimalComma && chrPoint == ',' && bDigits && nPoint > m_n;
        const bool bBehindNumber =
            !m_bBlank && !m_aTokens.empty() && m_aTokens.back().eMark == Mark::Number;
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
        Add({Mark::Number, '\0', resNumber.ValueGet(), nPoint - m_n, nEnd > nPoint});
        m_n = nEnd;
        m_bCommaSeen = m_bCommaSeen || bComma;
        return true;
    }

    bool LetterTake()
    {
        const std::string sLetter = TextUpper(m_sText.substr(m_n, 1));
        if (std::string_view("NSEW").find(sLetter) == std::string_view::npos)
            return false;
        Add({Mark::Letter, sLetter[0]});
        ++m_n;
        return true;
    }

    bool SpellingTake()
    {
        for (const Spelling& spelling : kSpellings) {
            if (!m_sText.substr(m_n).starts_with(spelling.sText))
                continue;
            m_n += spelling.sText.size();
            if (spelling.eMark == Mark::Blank) {
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
    std::vector<Token> m_aTokens;
};

struct Angle {
    double dValue = 0.0;
    char chrSign = '\0';
    char chrLetter = '\0';
    bool bLeading = false;  ///< the letter stands in front
    std::size_t nMarks = 0;
    std::size_t nParts = 0;

    [[nodiscard]] double ValueGet() const
    {
        return chrSign == '-' || chrLetter == 'S' || chrLetter == 'W' ? -dValue : dValue;
    }
};

/// Reads angles from tokens, one after the other.
class Angles {
public:
    explicit Angles(std::vector<Token> aTokens) : m_aTokens(std::move(aTokens)) {}
    [[nodiscard]] bool EndIs() const { return m_n == m_aTokens.size(); }

    [[nodiscard]] std::optional<Angle> Next()
    {
        Angle ang;
        if (const Token* pLetter = Take(Mark::Letter)) {
            ang.chrLetter = pLetter->chr;
            ang.bLeading = true;
        }
        if (const Token* pSign = Take(Mark::Sign))
            ang.chrSign = pSign->chr;
        if (!PartsTake(ang))
            return {};
        if (!ang.bLeading) {
            if (const Token* pLetter = Take(Mark::Letter))
                ang.chrLetter = pLetter->chr;
        }
        if (ang.chrSign != '\0' && ang.chrLetter != '\0')
            return {};
        return ang;
    }

    /// Whatever parts two angles. A bare sign does not: charts write 24-18.5 for 24°18.5'.
    bool GapTake(const Angle& angBefore)
    {
        if (Take(Mark::Separator) != nullptr)
            return true;
        if (EndIs())
            return false;
        const Token& token = m_aTokens[m_n];
        return token.bBlank || token.eMark == Mark::Letter
               || (angBefore.chrLetter != '\0' && !angBefore.bLeading);
    }

private:
    const Token* Take(Mark eMark)
    {
        if (EndIs() || m_aTokens[m_n].eMark != eMark)
            return nullptr;
        return &m_aTokens[m_n++];
    }

    /// Between two parts only.
    void ColonTake()
    {
        if (m_n + 1 < m_aTokens.size() && m_aTokens[m_n + 1].eMark == Mark::Number)
            (void)Take(Mark::Colon);
    }

    bool PartsTake(Angle& ang)
    {
        constexpr std::array<Mark, kPartsMost> kMarks{Mark::Degree, Mark::Minute, Mark::Second};
        constexpr std::array<double, kPartsMost> kUnits{1.0, kSixty, kSixty * kSixty};
        constexpr std::size_t kDegreeDigits = 3;
        constexpr std::size_t kPartDigits = 2;
        bool bFraction = false;
        while (ang.nParts < kPartsMost && !bFraction) {
            const Token* pNumber = Take(Mark::Number);
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

    std::vector<Token> m_aTokens;
    std::size_t m_n = 0;
};

/// Without blanks and line ends around it: what is copied often brings them along.
std::string_view Trimmed(std::string_view sText)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t nFrom = sText.find_first_not_of(kBlanks);
    if (nFrom == std::string_view::npos)
        return {};
    return sText.substr(nFrom, sText.find_last_not_of(kBlanks) - nFrom + 1);
}

std::string Quoted(std::string_view sText) { return "\"" + TextForMessage(Trimmed(sText)) + "\""; }

RunError NoPosition(std::string_view sText) { return {Quoted(sText) + " is no position"}; }

const char* NameOf(PositionAxis eAxis)
{
    return eAxis == PositionAxis::Latitude ? "latitude" : "longitude";
}

PositionAxis OtherOf(PositionAxis eAxis)
{
    return eAxis == PositionAxis::Latitude ? PositionAxis::Longitude : PositionAxis::Latitude;
}

bool AxisIs(const Angle& ang, PositionAxis eAxis)
{
    return ang.chrLetter == '\0' || LatitudeIs(ang.chrLetter) == (eAxis == PositionAxis::Latitude);
}

Result<double> InRange(const Angle& ang, PositionAxis eAxis)
{
    const double dMost = eAxis == PositionAxis::Latitude ? kLatitudeMost : kLongitudeMost;
    if (ang.dValue <= dMost)
        return ang.ValueGet();
    return RunError{std::string(NameOf(eAxis)) + " " + NumberToText(ang.ValueGet())
                    + "° lies beyond " + NumberToText(dMost) + "°"};
}

Result<double> EntryRead(std::string_view sText, PositionAxis eAxis)
{
    const std::size_t nDegree = sText.find(kDegreeSign);
    if (nDegree == std::string_view::npos)
        return RunError{kInvalidCall};
    const std::string_view sBehind = sText.substr(nDegree + kDegreeSign.size());
    const std::size_t nApostrophe = sBehind.find('\'');
    if (nApostrophe == std::string_view::npos)
        return RunError{kInvalidCall};
    const auto resDegrees = NumberFromText(sText.substr(0, nDegree));
    if (!resDegrees)
        return resDegrees.ErrorGet();
    const auto resMinutes = NumberFromText(sBehind.substr(0, nApostrophe));
    if (!resMinutes)
        return resMinutes.ErrorGet();
    const double dValue = resDegrees.ValueGet() + resMinutes.ValueGet() / kSixty;
    // Only the very letter turns the sign: "s", "S " or anything else counts as north or east.
    const std::string_view sNegative = eAxis == PositionAxis::Latitude ? "S" : "W";
    return sBehind.substr(nApostrophe + 1) == sNegative ? -dValue : dValue;
}

Result<double> ArgumentRead(std::string_view sText, PositionAxis eAxis)
{
    if (sText.find(kDegreeSign) == std::string_view::npos)
        return NumberFromText(sText);
    auto aTokens = Tokens(sText, false).Get();
    if (!aTokens)
        return NoPosition(sText);
    Angles angles(std::move(*aTokens));
    const auto ang = angles.Next();
    if (!ang || !angles.EndIs() || ang->chrLetter == '\0' || ang->bLeading || ang->nParts < 2
        || ang->nMarks != ang->nParts || !AxisIs(*ang, eAxis))
        return NoPosition(sText);
    return ang->ValueGet();
}

/// One angle or two.
Result<PositionRead> PastedRead(std::string_view sText, PositionAxis eAxis)
{
    auto aTokens = Tokens(sText, true).Get();
    if (!aTokens)
        return NoPosition(sText);
    Angles angles(std::move(*aTokens));
    const auto angOne = angles.Next();
    if (!angOne)
        return NoPosition(sText);
    const bool bPair = !angles.EndIs();
    PositionAxis eOne = eAxis;
    std::optional<Angle> angOther;
    if (bPair) {
        if (!angles.GapTake(*angOne) || !(angOther = angles.Next()) || !angles.EndIs())
            return NoPosition(sText);
        // Both have a letter, or none; letters tell the order.
        if ((angOne->chrLetter == '\0') != (angOther->chrLetter == '\0'))
            return NoPosition(sText);
        eOne = AxisIs(*angOne, PositionAxis::Latitude) ? PositionAxis::Latitude
                                                       : PositionAxis::Longitude;
        if (!AxisIs(*angOther, OtherOf(eOne)))
            return NoPosition(sText);
    } else if (!AxisIs(*angOne, eAxis)) {
        return RunError{Quoted(sText) + " is a " + NameOf(OtherOf(eAxis))};
    }
    PositionRead pos;
    const auto Put = [&pos](const Angle& ang, PositionAxis e) -> Result<void> {
        const auto res = InRange(ang, e);
        if (!res)
            return res.ErrorGet();
        (e == PositionAxis::Latitude ? pos.dLat : pos.dLon) = res.ValueGet();
        return {};
    };
    if (const auto res = Put(*angOne, eOne); !res)
        return res.ErrorGet();
    if (angOther) {
        if (const auto res = Put(*angOther, OtherOf(eOne)); !res)
            return res.ErrorGet();
    }
    return pos;
}

}  // namespace

Result<double> AngleFromText(std::string_view sText, PositionAxis eAxis, PositionForm eForm)
{
    if (eForm == PositionForm::Entry)
        return EntryRead(sText, eAxis);
    if (eForm == PositionForm::Argument)
        return ArgumentRead(sText, eAxis);
    const auto res = PastedRead(sText, eAxis);
    if (!res)
        return res.ErrorGet();
    const PositionRead& pos = res.ValueGet();
    if (pos.dLat && pos.dLon)
        return NoPosition(sText);
    return pos.dLat ? *pos.dLat : *pos.dLon;
}

Result<PositionRead> PositionFromText(std::string_view sText, PositionAxis eAxis)
{
    if (const auto pos = GridSquareFromText(sText))
        return *pos;
    return PastedRead(sText, eAxis);
}

std::optional<PositionRead> GridSquareFromText(std::string_view sText)
{
    constexpr std::size_t kSquare = 4;
    constexpr std::size_t kSubSquare = 6;
    std::string sGrid = TextUpper(Trimmed(sText));
    if (sGrid.size() != kSquare && sGrid.size() != kSubSquare)
        return {};
    if (!LetterIs(sGrid[0], 'R') || !LetterIs(sGrid[1], 'R') || !DigitIs(sGrid[2])
        || !DigitIs(sGrid[3]))
        return {};
    if (sGrid.size() == kSubSquare && (!LetterIs(sGrid[4], 'X') || !LetterIs(sGrid[5], 'X')))
        return {};
    double dLat = 0.0;
    double dLon = 0.0;
    if (!GridSquareToPosition(sGrid, dLat, dLon, nullptr))
        return {};
    return PositionRead{dLat, dLon};
}
