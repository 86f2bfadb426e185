#include "geo/PositionText.h"

#include <string>
#include <utility>

#include "geo/GridSquareLib.h"
#include "geo/MathLib.h"
#include "geo/PositionTokens.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

bool LetterIs(char chr, char chrLast) { return chr >= 'A' && chr <= chrLast; }

bool LatitudeIs(char chrLetter) { return chrLetter == 'N' || chrLetter == 'S'; }

/// The text without leading and trailing blanks and line ends, which copied text often has.
std::string_view Trimmed(std::string_view sText)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t nFrom = sText.find_first_not_of(kBlanks);
    if (nFrom == std::string_view::npos)
        return {};
    return sText.substr(nFrom, sText.find_last_not_of(kBlanks) - nFrom + 1);
}

std::string Quoted(std::string_view sText) { return "\"" + TextForMessage(Trimmed(sText)) + "\""; }

RunError NoPosition(std::string_view sText) { return {Quoted(sText) + " is not a position"}; }

const char* NameOf(PositionAxis eAxis)
{
    return eAxis == PositionAxis::Latitude ? "latitude" : "longitude";
}

PositionAxis OtherOf(PositionAxis eAxis)
{
    return eAxis == PositionAxis::Latitude ? PositionAxis::Longitude : PositionAxis::Latitude;
}

bool AxisIs(const PositionAngle& ang, PositionAxis eAxis)
{
    return ang.chrLetter == '\0' || LatitudeIs(ang.chrLetter) == (eAxis == PositionAxis::Latitude);
}

Result<double> InRange(const PositionAngle& ang, PositionAxis eAxis)
{
    const double dMost = eAxis == PositionAxis::Latitude ? kLatitudeMost : kLongitudeMost;
    if (ang.dValue <= dMost)
        return ang.ValueGet();
    return RunError{std::string(NameOf(eAxis)) + " " + NumberToText(ang.ValueGet()) + "° is beyond "
                    + NumberToText(dMost) + "°"};
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
    // Only the exact letter makes it negative: "s", "S " or anything else counts as north or east.
    const std::string_view sNegative = eAxis == PositionAxis::Latitude ? "S" : "W";
    return sBehind.substr(nApostrophe + 1) == sNegative ? -dValue : dValue;
}

Result<double> ArgumentRead(std::string_view sText, PositionAxis eAxis)
{
    if (sText.find(kDegreeSign) == std::string_view::npos)
        return NumberFromText(sText);
    auto aTokens = PositionTokensGet(sText, false);
    if (!aTokens)
        return NoPosition(sText);
    PositionAngles angles(std::move(*aTokens));
    const auto ang = angles.Next();
    if (!ang || !angles.IsAtEnd() || ang->chrLetter == '\0' || ang->bLeading || ang->nParts < 2
        || ang->nMarks != ang->nParts || !AxisIs(*ang, eAxis))
        return NoPosition(sText);
    return ang->ValueGet();
}

/// One angle or two.
Result<PositionRead> PastedRead(std::string_view sText, PositionAxis eAxis)
{
    auto aTokens = PositionTokensGet(sText, true);
    if (!aTokens)
        return NoPosition(sText);
    PositionAngles angles(std::move(*aTokens));
    const auto angOne = angles.Next();
    if (!angOne)
        return NoPosition(sText);
    const bool bPair = !angles.IsAtEnd();
    PositionAxis eOne = eAxis;
    std::optional<PositionAngle> angOther;
    if (bPair) {
        if (!angles.GapTake(*angOne) || !(angOther = angles.Next()) || !angles.IsAtEnd())
            return NoPosition(sText);
        // Both have a letter, or neither; letters give the order.
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
    const auto Put = [&pos](const PositionAngle& ang, PositionAxis e) -> Result<void> {
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
