#include "ui/main/StatusText.h"

#include <array>

#include "propagation/itshfbc/EngineProgram.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

constexpr const char* kBetween = " \xC2\xB7 ";  // middle dot

std::string EngineName(int iModel)
{
    const EngineProgram* pEngine = EngineFind(iModel);
    return pEngine != nullptr ? std::string(pEngine->sName) : "no engine";
}

std::string MonthName(int nMonth)
{
    const bool bKnown = nMonth >= 1 && nMonth <= static_cast<int>(kMonths.size());
    return bKnown ? kMonths[static_cast<std::size_t>(nMonth - 1)] : "month " + NumberToText(nMonth);
}

/// How Hopcast's own engine computes.
std::string BuiltInText(const std::string& sCoefficients)
{
    return " (built-in, P.533 with long-path rule, "
           + (sCoefficients == kCoefficientsMean ? "mean" : TextForMessage(sCoefficients))
           + " maps)";
}

std::string LineFirst(const std::string& sMessage)
{
    return TextForMessage(sMessage.substr(0, sMessage.find_first_of("\r\n")));
}

/// The message's first line, and what else is known.
std::string FailureLine(const Failure& failure)
{
    return LineFirst(failure.sText) + (failure.sDetail.empty() ? "" : " (" + failure.sDetail + ")");
}

}  // namespace

std::string StatusInForce(const Request& input, bool bBuiltIn, bool bSunSpotNumber)
{
    const bool bAirMail = input.eSunSpotSource == SunSpotSource::AirMail;
    const std::string sNumber = "sunspot number " + NumberToText(input.fSunSpotNumber)
                                + (bAirMail ? " (Airmail)" : " (options)");
    return EngineName(input.iModel) + (bBuiltIn ? BuiltInText(input.sIonCoefficients) : "")
           + kBetween + MonthName(input.nMonth) + kBetween
           + (bSunSpotNumber ? sNumber : "no sunspot number (Airmail)");
}

std::string StatusProfile(const Result<std::vector<std::string>>& resDropped)
{
    if (resDropped.TextGet() == kFileNotFound)
        return {};  // the first start
    if (!resDropped)
        return "The profile was not read: " + resDropped.TextGet();
    const std::vector<std::string>& asDropped = resDropped.ValueGet();
    if (asDropped.empty())
        return {};
    std::string sText = "Not taken from the profile: " + asDropped.front();
    if (asDropped.size() > 1)
        sText += " (and " + std::to_string(asDropped.size() - 1) + " more)";
    return sText;
}

std::string StatusTrouble(RunTrouble eTrouble, int iModel, const std::optional<Failure>& failure)
{
    if (eTrouble == RunTrouble::SunSpot)
        return "No sunspot number from Airmail: Options, Model, clear Auto";
    if (eTrouble == RunTrouble::Frequencies)
        return "No frequencies to predict: Options, Frequency";
    if (!failure)
        return "The prediction failed: Options, Model, choose an engine";
    if (failure->eKind == FailureKind::NotInstalled)
        return EngineName(iModel) + " is not installed: Options, Model, choose another engine";
    const std::string sWhat = eTrouble == RunTrouble::Overlay ? "overlay" : "prediction";
    return "The " + sWhat + " failed: " + FailureLine(*failure);
}

std::string StatusAbsent(const PropagationTable& table, const std::optional<Failure>& failure)
{
    const std::string sList = PropagationAbsentText(table);
    if (sList.empty())
        return {};
    return "No values for " + sList + " kHz" + (failure ? ": " + FailureLine(*failure) : "");
}
