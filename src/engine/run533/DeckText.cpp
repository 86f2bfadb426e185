#include "engine/run533/DeckText.h"

#include <algorithm>
#include <cmath>

#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace run533 {

std::string TextQuote(std::string_view sText) { return '"' + TextPrintable(sText) + '"'; }

RunError DeckErrorMake(std::string_view sCard, Field fld, std::string_view sWhy)
{
    return {std::string(sCard) + ", columns " + NumberToText(fld.nCol) + "-"
            + NumberToText(fld.nCol + fld.nWidth - 1) + ": " + std::string(sWhy)};
}

RunError DeckErrorMake(std::string_view sCard, std::string_view sWhy)
{
    return {std::string(sCard) + ": " + std::string(sWhy)};
}

std::string_view CardReader::TextGet(Field fld) const
{
    return TextTrim(TextColumns(m_sLine, fld.nCol, fld.nWidth));
}

void CardReader::Fail(Field fld, std::string_view sWhy)
{
    if (m_bFailed)
        return;
    m_bFailed = true;
    m_error = DeckErrorMake(m_sCard, fld, sWhy);
}

void CardReader::EndCheck(Field fld)
{
    const std::string_view sBehind = TextColumns(m_sLine, fld.nCol + fld.nWidth, 1);
    if (!TextTrim(sBehind).empty())
        Fail(fld, "the text continues after these columns");
}

double CardReader::NumberGet(Field fld, double dLeast, double dMost)
{
    const std::string_view sText = TextGet(fld);
    const Result<double> resNumber = NumberFromText(sText);
    if (!resNumber) {
        Fail(fld, TextQuote(sText) + " is not a number");
        return dLeast;
    }
    const double dNumber = resNumber.ValueGet();
    if (!(dNumber >= dLeast && dNumber <= dMost)) {
        Fail(fld, std::string(sText) + " is not within " + NumberToText(dLeast) + " to "
                      + NumberToText(dMost));
        return dLeast;
    }
    return dNumber;
}

int CardReader::IntegerGet(Field fld, int nLeast, int nMost)
{
    const double dNumber = NumberGet(fld, nLeast, nMost);
    if (dNumber != std::floor(dNumber))
        Fail(fld, std::string(TextGet(fld)) + " is not a whole number");
    return static_cast<int>(dNumber);
}

bool CardReader::SecondGet(Field fld, std::string_view sFirst, std::string_view sSecond)
{
    const std::string_view sText = TextGet(fld);
    if (sText != sFirst && sText != sSecond)
        Fail(fld, "neither " + std::string(sFirst) + " nor " + std::string(sSecond));
    return sText == sSecond;
}

std::size_t CardReader::ChoiceGet(Field fld, std::span<const std::string_view> aTexts)
{
    const auto itText = std::find(aTexts.begin(), aTexts.end(), TextGet(fld));
    if (itText != aTexts.end())
        return static_cast<std::size_t>(itText - aTexts.begin());
    std::string sAll;
    for (const std::string_view sText : aTexts)
        sAll.append(sAll.empty() ? "none of " : ", ").append(sText);
    Fail(fld, sAll);
    return 0;
}

double CardReader::SignedGet(Field fldNumber, Field fldLetter, std::string_view sPlus,
                             std::string_view sMinus, double dMost)
{
    const double dNumber = NumberGet(fldNumber, 0.0, dMost);
    return SecondGet(fldLetter, sPlus, sMinus) ? -dNumber : dNumber;
}

std::string CardReader::BracketGet(Field fld)
{
    if (TextGet({fld.nCol - 1, 1, kText}) != "["
        || TextGet({fld.nCol + fld.nWidth, 1, kText}) != "]")
        Fail(fld, "no name between brackets");
    return std::string(TextColumns(m_sLine, fld.nCol, fld.nWidth));
}

}  // namespace run533
