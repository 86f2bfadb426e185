// Any bytes as a station file: keys, positions and descriptions, and the stations as places.
#include <algorithm>

#include "fuzz/FuzzPrefix.h"
#include "geo/MathLib.h"
#include "places/StationPlaces.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr int kKeysMost = 20;  // each one opens the file again
    static const FuzzPrefix prefix;
    prefix.Write("drive_c/Program Files/AirMail/System.HAM.ini", pBytes, nBytes);
    Messages aMessages;
    int nCount = 0;
    TextList asText;
    Check(AirMailGetSystems(nCount, asText, &aMessages) && nCount == 1 && asText[1] == "HAM");
    const bool bOk = AirMailGetStations("HAM", nCount, asText, &aMessages);
    Check(bOk == (nCount > 0) && nCount == asText.CountGet());
    for (int i = 1; i <= std::min(nCount, kKeysMost); ++i) {
        double dLat = 0.0;
        double dLon = 0.0;
        Check(asText[i].find('=') == std::string::npos);
        const auto res = AirMailStationPosition("HAM", asText[i], dLat, dLon, true, aMessages);
        Check((res && res.ValueGet()) || (dLat == 0.0 && dLon == 0.0));
        const std::string sDescription = AirMailStationDescription("HAM", asText[i], nullptr);
        CheckValue(sDescription);
        Check(sDescription.find(';') == std::string::npos);
    }
    const StationPlaces stations = StationPlacesGet();
    Check(stations.aPlaces.size() + stations.aFaults.size() <= static_cast<std::size_t>(nCount));
    for (const Place& place : stations.aPlaces) {
        Check(!place.sKey.empty() && PositionInRange(place.dLat, place.dLon));
        for (const float f : place.afFrequency)
            Check(f >= kOwnFrequencyLeast && f <= kOwnFrequencyMost);
    }
    return 0;
}
