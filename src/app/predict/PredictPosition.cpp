#include "app/predict/PredictPosition.h"

#include "airmail/AirMailLib.h"
#include "geo/MathLib.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr const char* kForms =
    "give LAT,LON in degrees (38,-122), 38°30.00'N,122°15.00'W, a grid square (FN42), airmail or a "
    "station (ham:KEY)";

/// The error of a failed call: what it returned, else its last message.
RunError ErrorOf(const Result<bool>& res, const Messages& aMessages)
{
    if (!res)
        return res.ErrorGet();
    return {aMessages.empty() ? std::string() : aMessages.back().sText};
}

Result<PredictPosition> AirMailPlaceGet()
{
    PredictPosition pos;
    DateTime dtTime;
    Messages aMessages;
    const auto res = AirMailPositionGet(pos.dLat, pos.dLon, dtTime, &aMessages, &pos.sFault);
    if (!pos.sFault.empty())
        return pos;  // an older position in its place would be a wrong answer
    if (!res || !res.ValueGet())
        return ErrorOf(res, aMessages);
    pos.sNote = dtTime.IsZero() ? "Airmail's position, its time is not known"
                                : "Airmail's position, " + AirMailAgeText(dtTime) + " old";
    return pos;
}

Result<PredictPosition> StationPlaceGet(const std::string& sSystem, const std::string& sKey)
{
    PredictPosition pos;
    if (AirMailIniGet("System." + sSystem + ".ini", "Station Info", sKey, nullptr).empty())
        return RunError{"Airmail's list \"" + TextForMessage(sSystem) + "\" holds no station \""
                        + TextForMessage(sKey) + "\" (data folder \""
                        + TextForMessage(AirMailDataFolderGet()) + "\")"};
    Messages aMessages;
    const auto res =
        AirMailStationPosition(sSystem, sKey, pos.dLat, pos.dLon, false, aMessages, &pos.sFault);
    if (!pos.sFault.empty())
        return pos;
    if (!res || !res.ValueGet())
        return ErrorOf(res, aMessages);
    pos.sNote = "Airmail's station " + TextForMessage(sKey) + " (" + TextForMessage(sSystem) + ")";
    return pos;
}

bool LetterIs(char chr, char chrLast) { return chr >= 'A' && chr <= chrLast; }

bool DigitIs(char chr) { return chr >= '0' && chr <= '9'; }

// Field letters A to R, square digits, sub-square letters A to X.
bool GridSquareIs(const std::string& sUpper)
{
    if (sUpper.size() != 4 && sUpper.size() != 6)
        return false;
    if (!LetterIs(sUpper[0], 'R') || !LetterIs(sUpper[1], 'R') || !DigitIs(sUpper[2])
        || !DigitIs(sUpper[3]))
        return false;
    return sUpper.size() == 4 || (LetterIs(sUpper[4], 'X') && LetterIs(sUpper[5], 'X'));
}

// Degrees and minutes with a hemisphere letter, in which a slip must not move a ship to the other
// side of the world: letter and minutes are checked before the text form's own lenient decoder
// runs.
bool DegreeMinutesRead(std::string_view sText, char chrPositive, char chrNegative, bool bLatitude,
                       double& dAngle)
{
    std::string sUpper = TextUpper(TextTrim(sText));
    if (sUpper.empty() || (sUpper.back() != chrPositive && sUpper.back() != chrNegative))
        return false;
    const bool bRead = bLatitude ? TextToLatitude(sUpper, dAngle, nullptr)
                                 : TextToLongitude(sUpper, dAngle, nullptr);
    if (!bRead)
        return false;
    const std::size_t nMinutes = sUpper.find(kDegreeSign) + kDegreeSign.size();
    const auto resMinutes = NumberFromText(sUpper.substr(nMinutes, sUpper.find('\'') - nMinutes));
    return sUpper.find('-') == std::string::npos && resMinutes && resMinutes.ValueGet() < 60.0;
}

bool AngleRead(std::string_view sText, bool bLatitude, double& dAngle)
{
    if (sText.find(kDegreeSign) != std::string_view::npos)
        return DegreeMinutesRead(sText, bLatitude ? 'N' : 'E', bLatitude ? 'S' : 'W', bLatitude,
                                 dAngle);
    const auto res = NumberFromText(sText);
    if (res)
        dAngle = res.ValueGet();
    return static_cast<bool>(res);
}

}  // namespace

Result<PredictPosition> PredictPositionGet(std::string_view sText)
{
    PredictPosition pos;
    const std::size_t nComma = sText.find(',');
    if (nComma == std::string_view::npos) {
        std::string sGrid = TextUpper(TextTrim(sText));
        if (sGrid == "AIRMAIL")
            return AirMailPlaceGet();
        if (const std::size_t nColon = sText.find(':'); nColon != std::string_view::npos)
            return StationPlaceGet(std::string(TextTrim(sText.substr(0, nColon))),
                                   std::string(TextTrim(sText.substr(nColon + 1))));
        if (!GridSquareIs(sGrid) || !GridSquareToPosition(sGrid, pos.dLat, pos.dLon, nullptr))
            return RunError{"\"" + TextForMessage(sText) + "\" is no position; " + kForms};
        return pos;
    }
    if (!AngleRead(sText.substr(0, nComma), true, pos.dLat)
        || !AngleRead(sText.substr(nComma + 1), false, pos.dLon))
        return RunError{"\"" + TextForMessage(sText) + "\" is no position; " + kForms};
    if (!kRangeLatitude.Holds(pos.dLat))
        return RunError{"latitude " + RangeFaultText(pos.dLat, kRangeLatitude)};
    if (!kRangeLongitude.Holds(pos.dLon))
        return RunError{"longitude " + RangeFaultText(pos.dLon, kRangeLongitude)};
    return pos;
}
