#include "ui/main/StatusText.h"

#include <array>

#include "propagation/EngineLib.h"
#include "system/NumberLib.h"

namespace {

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

constexpr const char* kBetween = " \xC2\xB7 ";  // middle dot

std::string EngineName(const Settings& settings)
{
    const Engine* pEngine = EngineFind(settings.m_iPropagationModel);
    return pEngine != nullptr ? std::string(pEngine->sName) : "no engine";
}

std::string MonthName(int nMonth)
{
    const bool bKnown = nMonth >= 1 && nMonth <= static_cast<int>(kMonths.size());
    return bKnown ? kMonths[static_cast<std::size_t>(nMonth - 1)] : "month " + NumberToText(nMonth);
}

}  // namespace

std::string StatusInForce(const Settings& settings, bool bBuiltIn, bool bSunSpotNumber)
{
    const std::string sNumber =
        "sunspot number " + NumberToText(settings.m_fPropagationSunSpotNumber)
        + (settings.m_bPropagationSunSpotNumber ? " (Airmail)" : " (options)");
    return EngineName(settings) + (bBuiltIn ? " (built-in, P.533 with long-path rule)" : "")
           + kBetween + MonthName(settings.m_iPropagationMonth) + kBetween
           + (bSunSpotNumber ? sNumber : "no sunspot number (Airmail)");
}

std::string StatusTrouble(RunTrouble eTrouble, const Settings& settings,
                          const std::string& sMessage, const std::string& sEngine)
{
    if (eTrouble == RunTrouble::SunSpot)
        return "No sunspot number from Airmail: Options, Model, clear Auto";
    if (eTrouble == RunTrouble::Frequencies)
        return "No frequencies to predict: Options, Frequency";
    if (sMessage.find("not found.") != std::string::npos)
        return EngineName(settings) + " is not installed: Options, Model, choose another engine";
    const std::string sLine = sMessage.substr(0, sMessage.find_first_of("\r\n"));
    return sLine.empty()
               ? "The prediction failed: Options, Model, choose an engine"
               : "The prediction failed: " + sLine + (sEngine.empty() ? "" : " (" + sEngine + ")");
}
