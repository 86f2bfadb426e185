#include "app/predict/PredictPosition.h"

#include "airmail/AirMailLib.h"
#include "geo/PositionText.h"
#include "settings/SettingsRange.h"
#include "system/TextLib.h"

namespace {

constexpr const char* kForms =
    "give LAT,LON in degrees (38,-122), 38°30.00'N,122°15.00'W, a grid square (FN42), airmail or a "
    "station (ham:KEY)";

/// The error of a failed call: the one that it returned, else its last message.
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
        return pos;  // an older position instead would be a wrong answer
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
        return RunError{"Airmail's list \"" + TextForMessage(sSystem) + "\" has no station \""
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

bool AngleRead(std::string_view sText, PositionAxis eAxis, double& dAngle)
{
    const auto res = AngleFromText(sText, eAxis, PositionForm::Argument);
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
        if (TextEqualNoCase(TextTrim(sText), "airmail"))
            return AirMailPlaceGet();
        if (const std::size_t nColon = sText.find(':'); nColon != std::string_view::npos)
            return StationPlaceGet(std::string(TextTrim(sText.substr(0, nColon))),
                                   std::string(TextTrim(sText.substr(nColon + 1))));
        const auto posSquare = GridSquareFromText(sText);
        if (!posSquare)
            return RunError{"\"" + TextForMessage(sText) + "\" is not a position; " + kForms};
        pos.dLat = *posSquare->dLat;
        pos.dLon = *posSquare->dLon;
        return pos;
    }
    if (!AngleRead(sText.substr(0, nComma), PositionAxis::Latitude, pos.dLat)
        || !AngleRead(sText.substr(nComma + 1), PositionAxis::Longitude, pos.dLon))
        return RunError{"\"" + TextForMessage(sText) + "\" is not a position; " + kForms};
    if (!kRangeLatitude.Holds(pos.dLat))
        return RunError{"latitude " + RangeFaultText(pos.dLat, kRangeLatitude)};
    if (!kRangeLongitude.Holds(pos.dLon))
        return RunError{"longitude " + RangeFaultText(pos.dLon, kRangeLongitude)};
    return pos;
}
