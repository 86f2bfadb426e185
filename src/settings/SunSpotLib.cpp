#include "settings/SunSpotLib.h"

#include "airmail/AirMailIni.h"
#include "system/NumberLib.h"

Result<bool> SunSpotNumberGet(Settings& settings, float& fNumber)
{
    if (settings.m_bPropagationSunSpotNumber) {
        const std::string sText = AirMailSunSpotNumberGet(true);
        if (sText.empty())
            return false;
        const auto resNumber = NumberFromTextSingle(sText);
        if (!resNumber)
            return resNumber.ErrorGet();
        settings.m_fPropagationSunSpotNumber = resNumber.ValueGet();
    }
    fNumber = settings.m_fPropagationSunSpotNumber;
    return true;
}
