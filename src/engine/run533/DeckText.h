/// @file DeckText.h
/// Reading fields from the fixed columns of a deck's lines.
///
/// Errors:  one line for the user, with the card and its columns.
/// Tests:   tests/engine/DeckTest.cpp
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "propagation/deck/DeckLayout.h"
#include "system/Result.h"

namespace run533 {

/// The text between quotation marks, on one line.
[[nodiscard]] std::string TextQuote(std::string_view sText);
/// "NAME, columns 11-15: why".
[[nodiscard]] RunError DeckErrorMake(std::string_view sCard, Field fld, std::string_view sWhy);
/// "NAME: why".
[[nodiscard]] RunError DeckErrorMake(std::string_view sCard, std::string_view sWhy);

/// Reads the fields of one card and keeps the first error.
class CardReader {
public:
    CardReader(std::string_view sCard, std::string_view sLine) : m_sCard(sCard), m_sLine(sLine) {}

    /// The field's text without the blanks at its ends.
    [[nodiscard]] std::string_view TextGet(Field fld) const;
    /// A number within its limits.
    double NumberGet(Field fld, double dLeast, double dMost);
    /// A whole number within its limits; "11." and "11.00" are whole.
    int IntegerGet(Field fld, int nLeast, int nMost);
    /// True for the second, false for the first of the two texts that the field may have.
    bool SecondGet(Field fld, std::string_view sFirst, std::string_view sSecond);
    /// Index of the field's text among these, from 0.
    std::size_t ChoiceGet(Field fld, std::span<const std::string_view> aTexts);
    /// A signed number: an absolute value followed by one of two letters for its sign. fldLetter is
    /// one column wide.
    double SignedGet(Field fldNumber, Field fldLetter, std::string_view sPlus,
                     std::string_view sMinus, double dMost);
    /// A name with its blanks, from a field between brackets.
    std::string BracketGet(Field fld);
    /// Fails if there is text in the column after the field: a number in wrong columns, which would
    /// be cut to another number or left out. For fields that are followed by a blank or the card's
    /// end.
    void EndCheck(Field fld);
    /// Records the caller's error.
    void Fail(Field fld, std::string_view sWhy);

    [[nodiscard]] bool Failed() const { return m_bFailed; }
    [[nodiscard]] RunError ErrorGet() const { return m_error; }

private:
    std::string_view m_sCard;
    std::string_view m_sLine;
    bool m_bFailed = false;
    RunError m_error;
};

}  // namespace run533
