#include "propagation/RequestText.h"

#include <array>
#include <cmath>

#include "propagation/PowerTable.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/NumberLib.h"

namespace {

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

std::string ModelPowerText(const RequestModel& model, DeckKind eKind)
{
    const std::string sPower =
        PowerText(PowerInForceGet(model.fPower, model.iModel, model.iAntennaType, eKind));
    return model.fPower > 0.0F ? sPower : sPower + ", as the antenna choice";
}

std::string ModelFootText(const RequestModel& model, const std::string& sPower, bool bBuiltIn,
                          int nYear)
{
    const std::string sBetween = kTextBetween;
    return "dB in 1 Hz" + sBetween + NumberToText(model.fReliability) + " % of the days" + sBetween
           + "short path" + sBetween + sPower + sBetween + RequestEngineText(model.iModel)
           + (bBuiltIn ? " (built-in)" : "") + sBetween + MonthName(model.nMonth) + " "
           + NumberToText(nYear) + sBetween + RequestSunSpotText(model);
}

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
    return ModelPowerText(request, DeckKind::PointToPoint);
}

std::string RequestSunSpotText(const RequestModel& request, const std::string& sAirMail)
{
    const bool bTell = request.eSunSpotSource != SunSpotSource::AirMail && !sAirMail.empty();
    return "SSN " + NumberToText(request.fSunSpotNumber) + " ("
           + std::string(SunSpotSourceName(request.eSunSpotSource))
           + (bTell ? "; Airmail has " + sAirMail : "") + ")";
}

std::string RequestFootText(const Request& request, bool bBuiltIn, int nYear)
{
    return ModelFootText(request, RequestPowerText(request), bBuiltIn,
                         request.nYear != 0 ? request.nYear : nYear);
}

std::string AreaFootText(const AreaRequest& request, int nYear)
{
    constexpr double kTenthsPerMega = 10'000.0;
    const double dFrequency = std::round(request.fFrequency * kTenthsPerMega) / 10;
    return NumberToText(dFrequency) + " kHz" + kTextBetween
           + NumberFormat(static_cast<double>(request.iHour), "00") + ":00 UTC" + kTextBetween
           + ModelFootText(request, ModelPowerText(request, DeckKind::Area), false, nYear);
}

std::string NeedFootText(const Need& need)
{
    return "need: " + (need.sName.empty() ? "" : need.sName + ", ") + NumberToText(need.fSnr)
           + " dB";
}
