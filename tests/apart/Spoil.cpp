#include "apart/Spoil.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace {

/// Makes one change at a time, at random places in the text.
class Spoiler {
public:
    Spoiler(std::string& sBytes, PropertyRandom& random) : m_s(sBytes), m_random(random) {}

    void ByteFlip()
    {
        char& c = m_s[At()];
        c = static_cast<char>(static_cast<unsigned char>(c) ^ (1U << Below(8)));
    }
    void ByteReplace() { m_s[At()] = Any(); }
    void BytesDelete() { m_s.erase(At(), 1 + Below(5)); }
    void BytesInsert()
    {
        for (std::size_t n = 1 + Below(4); n > 0; --n)
            m_s.insert(m_s.begin() + Offset(At()), Any());
    }
    void BytesDouble()
    {
        const std::size_t nAt = At();
        m_s.insert(nAt, m_s.substr(nAt, 1 + Below(40)));
    }
    void Truncate() { m_s.resize(At()); }
    void LineDelete()
    {
        const Span line = Line();
        m_s.erase(line.nAt, line.nSize);
    }
    void LineDouble()
    {
        const Span line = Line();
        m_s.insert(line.nAt, m_s.substr(line.nAt, line.nSize));
    }
    void LineCut()
    {
        const Span line = Line();
        const std::size_t nKept = Below(line.nSize);
        m_s.erase(line.nAt + nKept, line.nSize - nKept - (line.nSize > nKept ? 1 : 0));
    }
    void LineEmpty() { m_s.insert(Line().nAt, Chance() ? "\n" : "\r\n"); }
    void LinesSwap()
    {
        const Span lineA = Line(), lineB = Line();
        const auto [first, second] =
            std::minmax(lineA, lineB, [](const Span& a, const Span& b) { return a.nAt < b.nAt; });
        if (first.nAt + first.nSize > second.nAt)
            return;
        const std::string sFirst = m_s.substr(first.nAt, first.nSize);
        const std::string sSecond = m_s.substr(second.nAt, second.nSize);
        m_s.replace(second.nAt, second.nSize, sFirst);
        m_s.replace(first.nAt, first.nSize, sSecond);
    }
    /// Swaps two parts of the same width, like mistaken columns.
    void FieldsSwap()
    {
        const std::size_t nWidth = 1 + Below(10);
        const std::size_t nA = At(), nB = At();
        if (std::max(nA, nB) + nWidth > m_s.size())
            return;
        for (std::size_t n = 0; n < nWidth; ++n) std::swap(m_s[nA + n], m_s[nB + n]);
    }
    void WordCopy()
    {
        const Span from = Run([](unsigned char c) { return std::isgraph(c) != 0; });
        const Span to = Run([](unsigned char c) { return std::isgraph(c) != 0; });
        m_s.replace(to.nAt, to.nSize, m_s.substr(from.nAt, from.nSize));
    }
    void DigitChange()
    {
        const Span digits = Digits();
        if (digits.nSize > 0)
            m_s[digits.nAt + Below(digits.nSize)] = static_cast<char>('0' + Below(10));
    }
    void NumberReplace()
    {
        static constexpr std::array<std::string_view, 18> kNumbers{
            "0",    "-0", "1e5", "1E-3", "nan", "inf", "0x10",       "+7",       "99999",
            "-999", ".",  "1.5", "2,5",  "--3", "1 2", "9999999999", "12345678", "-90"};
        const Span digits = Digits();
        m_s.replace(digits.nAt, digits.nSize, kNumbers[Below(kNumbers.size())]);
    }
    /// Fortran prints stars for a number that does not fit.
    void NumberStars() { NumberFill('*'); }
    void NumberBlank() { NumberFill(' '); }
    /// Puts a minus before a number, in place of a blank or next to what precedes it, or removes
    /// one.
    void MinusChange()
    {
        const Span digits = Digits();
        if (digits.nAt == 0 || digits.nSize == 0)
            return;
        char& cBefore = m_s[digits.nAt - 1];
        if (cBefore == '-' || cBefore == ' ')
            cBefore = cBefore == '-' ? ' ' : '-';
        else
            m_s.insert(digits.nAt, 1, '-');
    }
    void LetterCase()
    {
        const Span letters = Run([](unsigned char c) { return std::isalpha(c) != 0; });
        for (std::size_t n = 0; n < letters.nSize; ++n) {
            char& c = m_s[letters.nAt + n];
            c = static_cast<char>(static_cast<unsigned char>(c) ^ 0x20U);
        }
    }
    void BlankToTab()
    {
        const Span blanks = Run([](unsigned char c) { return c == ' '; });
        if (blanks.nSize > 0)
            m_s[blanks.nAt + Below(blanks.nSize)] = '\t';
    }
    void Nul() { m_s.insert(m_s.begin() + Offset(At()), '\0'); }
    void Quotes()
    {
        const Span word = Run([](unsigned char c) { return std::isgraph(c) != 0 && c != '='; });
        const char cQuote = Chance() ? '"' : '\'';
        m_s.insert(m_s.begin() + Offset(word.nAt + word.nSize), cQuote);
        m_s.insert(m_s.begin() + Offset(word.nAt), cQuote);
    }
    void LineEnds()
    {
        static constexpr std::array<std::string_view, 3> kEnds{"\n", "\r\n", "\r"};
        const std::string_view sEnd = kEnds[Below(kEnds.size())];
        std::string sNew;
        for (const char c : m_s) {
            if (c == '\n')
                sNew += sEnd;
            else if (c != '\r')
                sNew += c;
        }
        m_s = sNew;
    }
    void LastLineEnd()
    {
        while (!m_s.empty() && (m_s.back() == '\n' || m_s.back() == '\r')) m_s.pop_back();
    }
    /// Adds a byte order mark, to the text as it is or after converting the text to match.
    void Mark()
    {
        if (Chance()) {
            m_s.insert(0, "\xEF\xBB\xBF");
            return;
        }
        const bool bLittle = Chance();
        std::string sWide = bLittle ? "\xFF\xFE" : "\xFE\xFF";
        for (const char c : m_s) {
            sWide += bLittle ? c : '\0';
            sWide += bLittle ? '\0' : c;
        }
        m_s = sWide;
    }

private:
    struct Span {
        std::size_t nAt, nSize;
    };
    std::size_t Below(std::size_t nCount)
    {
        return nCount < 2
                   ? 0
                   : static_cast<std::size_t>(m_random.Whole(0, static_cast<int>(nCount) - 1));
    }
    std::size_t At() { return Below(m_s.size()); }
    static std::ptrdiff_t Offset(std::size_t nAt) { return static_cast<std::ptrdiff_t>(nAt); }
    bool Chance() { return m_random.Chance(2); }
    /// A byte with a meaning in one of the formats, or any byte.
    char Any()
    {
        static constexpr std::string_view kMeaning = " -+.,:;=[]'\"*0123456789ENWSK\t\r\n\\#";
        return Chance() ? kMeaning[Below(kMeaning.size())] : static_cast<char>(Below(256));
    }
    /// A line including its end.
    Span Line()
    {
        const std::size_t nAny = At();
        const std::size_t nBefore = nAny == 0 ? std::string::npos : m_s.rfind('\n', nAny - 1);
        const std::size_t nAt = nBefore == std::string::npos ? 0 : nBefore + 1;
        const std::size_t nEnd = m_s.find('\n', nAt);
        return {nAt, (nEnd == std::string::npos ? m_s.size() : nEnd + 1) - nAt};
    }
    /// The first run of such characters after a random place; empty if there is none.
    template <class Is>
    Span Run(Is is)
    {
        const auto fnIs = [&](char c) { return is(static_cast<unsigned char>(c)); };
        auto it = std::find_if(m_s.begin() + Offset(At()), m_s.end(), fnIs);
        const auto itEnd = std::find_if_not(it, m_s.end(), fnIs);
        return {static_cast<std::size_t>(it - m_s.begin()), static_cast<std::size_t>(itEnd - it)};
    }
    Span Digits()
    {
        return Run([](unsigned char c) { return std::isdigit(c) != 0; });
    }
    void NumberFill(char c)
    {
        const Span number = Run([](unsigned char cOld) {
            return std::isdigit(cOld) != 0 || cOld == '.' || cOld == '-';
        });
        m_s.replace(number.nAt, number.nSize, number.nSize, c);
    }

    std::string& m_s;
    PropertyRandom& m_random;
};

struct Way {
    const char* sName;
    void (Spoiler::*fnChange)();
};

constexpr std::array kWays{
    Way{"byte flipped", &Spoiler::ByteFlip},
    Way{"byte replaced", &Spoiler::ByteReplace},
    Way{"bytes deleted", &Spoiler::BytesDelete},
    Way{"bytes inserted", &Spoiler::BytesInsert},
    Way{"bytes doubled", &Spoiler::BytesDouble},
    Way{"truncated", &Spoiler::Truncate},
    Way{"line deleted", &Spoiler::LineDelete},
    Way{"line doubled", &Spoiler::LineDouble},
    Way{"line cut", &Spoiler::LineCut},
    Way{"empty line", &Spoiler::LineEmpty},
    Way{"lines swapped", &Spoiler::LinesSwap},
    Way{"fields swapped", &Spoiler::FieldsSwap},
    Way{"word copied", &Spoiler::WordCopy},
    Way{"digit changed", &Spoiler::DigitChange},
    Way{"digit changed", &Spoiler::DigitChange},
    Way{"number replaced", &Spoiler::NumberReplace},
    Way{"number in stars", &Spoiler::NumberStars},
    Way{"number blank", &Spoiler::NumberBlank},
    Way{"minus", &Spoiler::MinusChange},
    Way{"case of letters", &Spoiler::LetterCase},
    Way{"tab", &Spoiler::BlankToTab},
    Way{"NUL", &Spoiler::Nul},
    Way{"quotes", &Spoiler::Quotes},
    Way{"line ends", &Spoiler::LineEnds},
    Way{"no last line end", &Spoiler::LastLineEnd},
    Way{"byte order mark", &Spoiler::Mark},
};

}  // namespace

Spoilt SpoiltMake(const std::string& sSample, PropertyRandom& random)
{
    constexpr int kChangesMost = 3;
    Spoilt spoilt{sSample, ""};
    Spoiler spoiler(spoilt.sBytes, random);
    for (int n = random.Whole(1, kChangesMost); n > 0 && !spoilt.sBytes.empty(); --n) {
        const Way& way =
            kWays[static_cast<std::size_t>(random.Whole(0, static_cast<int>(kWays.size()) - 1))];
        const std::string sBefore = spoilt.sBytes;
        (spoiler.*way.fnChange)();
        const auto itSame = std::mismatch(sBefore.begin(), sBefore.end(), spoilt.sBytes.begin(),
                                          spoilt.sBytes.end());
        const auto nLine = 1 + std::count(sBefore.begin(), itSame.first, '\n');
        spoilt.sHow += std::string(way.sName) + " in line " + std::to_string(nLine) + "; ";
    }
    return spoilt;
}
