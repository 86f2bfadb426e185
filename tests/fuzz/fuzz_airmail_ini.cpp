// Any bytes as Airmail.ini: position, version and sunspot number.
#include "fuzz/FuzzPrefix.h"
#include "settings/SunSpotLib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;
    prefix.Write("drive_c/Program Files/AirMail/Airmail.ini", pBytes, nBytes);
    double dLat = 0.0;
    double dLon = 0.0;
    DateTime dtTime;
    Messages aMessages;
    const auto resFound = AirMailPositionGet(dLat, dLon, dtTime, &aMessages);
    if (resFound && resFound.ValueGet())
        (void)AirMailAgeText(dtTime);
    else
        Check(dtTime.IsZero());
    Check(!AirMailVersionText().empty());
    CheckValue(AirMailIniGet("Airmail.ini", "Position Report", "Comment", &aMessages));
    Settings settings;
    float fNumber = -1.0F;
    const auto resNumber = SunSpotNumberGet(settings, fNumber, &aMessages);
    const bool bOk = resNumber && resNumber.ValueGet();
    Check(settings.m_fPropagationSunSpotNumber == (bOk ? fNumber : 170.0F));
    return 0;
}
