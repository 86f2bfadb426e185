/// @file PositionTokens.h
/// A position's text split into numbers, signs and letters, and the angles that they form. Private
/// to PositionText.
///
/// Units:   degrees.
/// Tests:   tests/geo/PositionTextTest.cpp
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

enum class PositionMark { Blank, Number, Degree, Minute, Second, Colon, Letter, Sign, Separator };

struct PositionToken {
    PositionMark eMark = PositionMark::Blank;
    char chr = '\0';         ///< of a letter (in upper case) or sign
    double dValue = 0.0;     ///< of a number
    std::size_t nWhole = 0;  ///< a number's digits before the point
    bool bFraction = false;
    bool bBlank = false;  ///< preceded by a blank
};

/// @param bDecimalComma  read a comma between digits as a decimal point if the text has no point
/// @return nothing if the text contains anything that no position has
[[nodiscard]] std::optional<std::vector<PositionToken>> PositionTokensGet(std::string_view sText,
                                                                          bool bDecimalComma);

/// An angle as it was written.
struct PositionAngle {
    double dValue = 0.0;  ///< without its sign
    char chrSign = '\0';
    char chrLetter = '\0';
    bool bLeading = false;  ///< the letter comes first
    std::size_t nMarks = 0;
    std::size_t nParts = 0;

    [[nodiscard]] double ValueGet() const
    {
        return chrSign == '-' || chrLetter == 'S' || chrLetter == 'W' ? -dValue : dValue;
    }
};

/// Reads angles from tokens, one after the other.
class PositionAngles {
public:
    explicit PositionAngles(std::vector<PositionToken> aTokens) : m_aTokens(std::move(aTokens)) {}
    [[nodiscard]] bool IsAtEnd() const { return m_n == m_aTokens.size(); }
    [[nodiscard]] std::optional<PositionAngle> Next();
    /// Takes what separates two angles. A bare sign does not: charts write 24-18.5 for 24°18.5'.
    /// @return false if nothing separates them
    bool GapTake(const PositionAngle& angBefore);

private:
    const PositionToken* Take(PositionMark eMark);
    /// Takes a colon, which is allowed between two parts only.
    void ColonTake();
    bool PartsTake(PositionAngle& ang);

    std::vector<PositionToken> m_aTokens;
    std::size_t m_n = 0;
};

inline constexpr double kSixty = 60.0;  ///< minutes in a degree, seconds in a minute

[[nodiscard]] inline bool DigitIs(char chr) { return chr >= '0' && chr <= '9'; }
