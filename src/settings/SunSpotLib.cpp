#include "settings/SunSpotLib.h"

#include "airmail/AirMailIni.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"

Result<bool> SunSpotNumberGet(Settings& settings, float& fNumber, Messages* paMessages)
{
    if (settings.m_bPropagationSunSpotNumber) {
        const std::string sText = AirMailSunSpotNumberGet(paMessages);
        if (sText.empty())
            return false;
        const auto resNumber = NumberFromTextSingle(sText);
        if (!resNumber)
            return resNumber.ErrorGet();
        if (!kRangeSunSpot.Holds(resNumber.ValueGet()))
            return RunError{AirMailIniPlaceGet("Propagation", "SSN") + ": "
                            + RangeFaultText(resNumber.ValueGet(), kRangeSunSpot)};
        settings.m_fPropagationSunSpotNumber = resNumber.ValueGet();
    }
    fNumber = settings.m_fPropagationSunSpotNumber;
    return true;
}
