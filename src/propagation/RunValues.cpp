#include "propagation/RunValues.h"

#include <utility>

#include "system/ClockLib.h"

bool RunValuesTake(Settings& settings, Messages& aMessages, SunSpotRun* pSunSpot,
                   const std::string& sForecastFile)
{
    SunSpotRun ssn;
    const auto res = SunSpotRunGet(settings, sForecastFile, ssn, &aMessages);
    if (!res)
        return MessageFail(
            &aMessages, MsgIcon::None,
            (settings.m_bPropagationSunSpotNumber ? "Airmail's sunspot number: " : "")
                + res.TextGet());
    if (!res.ValueGet())
        return false;
    if (pSunSpot != nullptr)
        *pSunSpot = std::move(ssn);
    if (settings.m_bPropagationMonth)
        settings.m_iPropagationMonth = UtcNow().nMonth;
    return true;
}
