#include "airmail/AirMailPosition.h"

#include <array>

#include "airmail/AirMailIni.h"
#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

struct Place {
    const char* sSection;
    const char* sLatitude;
    const char* sLongitude;
    const char* sTime;  // nullptr: this place keeps no time
};

constexpr std::array kPlaces{
    Place{"Position Report", "Current Latitude", "Current Longitude", "Current Time"},
    Place{"Position Report", "Latitude", "Longitude", "DateTime"},
    Place{"Propagation", "Latitude", "Longitude", nullptr},
};

/// A value out of range counts as one that cannot be decoded, and is reported as such.
bool RangeCheck(const Place& place, const char* sKey, const std::string& sText, bool bInRange,
                Messages* paMessages, std::string* psFault)
{
    if (bInRange)
        return true;
    const std::string sFault =
        AirMailIniPlaceGet(place.sSection, sKey) + ": " + TextPrintable(sText) + " is out of range";
    if (psFault && psFault->empty())
        *psFault = sFault;
    return MessageFail(paMessages, MsgIcon::Exclamation, sFault);
}

Result<bool> PlaceRead(const Place& place, double& dLatitude, double& dLongitude, DateTime& dtTime,
                       Messages* paMessages, std::string* psFault)
{
    const auto ValueGet = [&](const char* sKey) {
        return AirMailIniGet(kAirMailIniFile, place.sSection, sKey, paMessages);
    };
    const std::string sLatitude = ValueGet(place.sLatitude);
    if (sLatitude.empty() || !TextToLatitude(sLatitude, dLatitude, paMessages)
        || !RangeCheck(place, place.sLatitude, sLatitude, PositionInRange(dLatitude, 0), paMessages,
                       psFault))
        return false;
    const std::string sLongitude = ValueGet(place.sLongitude);
    if (sLongitude.empty() || !TextToLongitude(sLongitude, dLongitude, paMessages)
        || !RangeCheck(place, place.sLongitude, sLongitude, PositionInRange(0, dLongitude),
                       paMessages, psFault))
        return false;
    if (!place.sTime)
        return true;
    const std::string sTime = ValueGet(place.sTime);
    if (sTime.empty())
        return false;
    const auto resTime = DateTimeFromText(sTime);
    if (!resTime)
        return resTime.ErrorGet();
    dtTime = resTime.ValueGet();
    return true;
}

}  // namespace

Result<bool> AirMailPositionGet(double& dLatitude, double& dLongitude, DateTime& dtTime,
                                Messages* paMessages, std::string* psFault)
{
    dtTime = {};
    for (const Place& place : kPlaces) {
        const bool bLast = &place == &kPlaces.back();
        auto resFound =
            PlaceRead(place, dLatitude, dLongitude, dtTime, bLast ? paMessages : nullptr, psFault);
        if (!resFound || resFound.ValueGet())
            return resFound;
    }
    return false;
}

std::string AirMailAgeText(const DateTime& dtTime)
{
    const DateTime dtNow = UtcNow();
    if (const long long nDays = DayBoundaries(dtTime, dtNow))
        return NumberToText(nDays) + " days";
    if (const long long nHours = HourBoundaries(dtTime, dtNow))
        return NumberToText(nHours) + " hours";
    return NumberToText(MinuteBoundaries(dtTime, dtNow)) + " minutes";
}
