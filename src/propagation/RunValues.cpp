#include "propagation/RunValues.h"

#include "settings/SunSpotLib.h"
#include "system/ClockLib.h"

bool RunValuesTake(Settings& settings, Messages& aMessages)
{
    float fSunSpotNumber = 0.0F;
    const auto res = SunSpotNumberGet(settings, fSunSpotNumber, &aMessages);
    if (!res)
        return MessageFail(&aMessages, MsgIcon::None, "Airmail's sunspot number: " + res.TextGet());
    if (!res.ValueGet())
        return false;
    if (settings.m_bPropagationMonth)
        settings.m_iPropagationMonth = UtcNow().nMonth;
    return true;
}
