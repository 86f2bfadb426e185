#include "propagation/RequestText.h"

#include <array>

#include "propagation/PowerTable.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/NumberLib.h"

namespace {

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

}  // namespace

std::string RequestEngineText(int iModel)
{
    const EngineProgram* pEngine = EngineFind(iModel);
    return pEngine != nullptr ? std::string(pEngine->sName) : "no engine";
}

std::string MonthName(int nMonth)
{
    const bool bKnown = nMonth >= 1 && nMonth <= static_cast<int>(kMonths.size());
    return bKnown ? kMonths[static_cast<std::size_t>(nMonth - 1)] : "month " + NumberToText(nMonth);
}

std::string RequestPowerText(const Request& request)
{
    const std::string sPower = PowerText(PowerInForceGet(
        request.fPower, request.iModel, request.iAntennaType, DeckKind::PointToPoint));
    return request.fPower > 0.0F ? sPower : sPower + ", as the antenna choice";
}

std::string RequestSunSpotText(const Request& request, const std::string& sAirMail)
{
    const bool bTell = request.eSunSpotSource != SunSpotSource::AirMail && !sAirMail.empty();
    return "SSN " + NumberToText(request.fSunSpotNumber) + " ("
           + std::string(SunSpotSourceName(request.eSunSpotSource))
           + (bTell ? "; Airmail has " + sAirMail : "") + ")";
}

std::string RequestFootText(const Request& request, bool bBuiltIn, int nYear)
{
    const std::string sBetween = kTextBetween;
    return "dB in 1 Hz" + sBetween + NumberToText(request.fReliability) + " % of the days"
           + sBetween + "short path" + sBetween + RequestPowerText(request) + sBetween
           + RequestEngineText(request.iModel) + (bBuiltIn ? " (built-in)" : "") + sBetween
           + MonthName(request.nMonth) + " "
           + NumberToText(request.nYear != 0 ? request.nYear : nYear) + sBetween
           + RequestSunSpotText(request);
}

std::string NeedFootText(const Need& need)
{
    return "need: " + (need.sName.empty() ? "" : need.sName + ", ") + NumberToText(need.fSnr)
           + " dB";
}
