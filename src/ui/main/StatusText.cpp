#include "ui/main/StatusText.h"

#include "propagation/RequestText.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

/// How Hopcast's own engine computes.
std::string BuiltInText(const std::string& sCoefficients, StatusForm eForm)
{
    if (eForm == StatusForm::Short)
        return " built-in";
    return " (built-in, P.533 with long-path rule, "
           + (sCoefficients == kCoefficientsMean ? "mean" : TextForMessage(sCoefficients))
           + " maps)";
}

std::string LineFirst(const std::string& sMessage)
{
    return TextForMessage(sMessage.substr(0, sMessage.find_first_of("\r\n")));
}

std::string NumberText(const Request& input, const StatusFacts& facts, StatusForm eForm)
{
    const bool bShort = eForm == StatusForm::Short;
    if (!facts.bSunSpotNumber)
        return std::string("no sunspot number") + (bShort ? "" : " (Airmail)");
    return bShort ? "SSN " + NumberToText(input.fSunSpotNumber)
                  : RequestSunSpotText(input, facts.sAirMail);
}

/// What happened, as somebody says it who does not know the inside of the program.
std::string FailureWords(FailureKind eKind, const std::string& sEngine)
{
    switch (eKind) {
        case FailureKind::NotInstalled:
            return sEngine + " is not installed: Options, Model, choose another engine";
        case FailureKind::NotStarted:
            return sEngine + " could not be started";
        case FailureKind::Timeout:
            return sEngine + " took too long and was ended";
        case FailureKind::BadInput:
            return "A value does not fit the engine's deck";
        case FailureKind::BadOutput:
            return sEngine + " gave no usable result";
        case FailureKind::Busy:
            return "Another program uses the engine, Update tries again";
        case FailureKind::Cancelled:
            return "The run was stopped";
        case FailureKind::File:
            return "The files of the run could not be written";
    }
    return sEngine + " failed";
}

/// The message's first line, and what else is known.
std::string FailureLine(const Failure& failure)
{
    return LineFirst(failure.sText) + (failure.sDetail.empty() ? "" : " (" + failure.sDetail + ")");
}

}  // namespace

std::string StatusInForce(const Request& input, const StatusFacts& facts, StatusForm eForm)
{
    return RequestEngineText(input.iModel)
           + (facts.bBuiltIn ? BuiltInText(input.sIonCoefficients, eForm) : "") + kTextBetween
           + MonthName(input.nMonth) + kTextBetween + NumberText(input, facts, eForm)
           + kTextBetween + RequestPowerText(input)
           + (facts.sProfile.empty() ? "" : kTextBetween + TextForMessage(facts.sProfile));
}

std::string StatusBest(const PropagationTable& table, int iRow, int iHour)
{
    if (iRow < 1)
        return {};
    return "Best now: " + NumberFormat(table.request.FrequencyGet(iRow), "0") + " kHz, "
           + NumberFormat(table.fSnr(iHour, iRow), "0") + " dB";
}

std::string StatusPosition(const DateTime& dtPosition, const DateTime& dtNow)
{
    constexpr long long kHoursTold = 6;
    constexpr long long kHoursOfDay = 24;
    const std::string sPosition = "Receiver: position of Airmail, ";
    if (dtPosition.IsZero())
        return sPosition + "without a time";
    const long long nHours = MinuteBoundaries(dtPosition, dtNow) / 60;
    if (nHours >= 2 * kHoursOfDay)
        return sPosition + std::to_string(nHours / kHoursOfDay) + " days old";
    if (nHours >= kHoursTold)
        return sPosition + std::to_string(nHours) + " hours old";
    return sPosition + NumberFormat(static_cast<double>(dtPosition.nHour), "00") + ":"
           + NumberFormat(static_cast<double>(dtPosition.nMinute), "00") + " UTC";
}

std::string StatusInputFault(const Request& input)
{
    struct Place {
        const char* sName;
        double dValue;
        const NumberRange& range;
    };
    for (const Place& place : {Place{"Receiver latitude", input.dRcLat, kRangeLatitude},
                               Place{"Receiver longitude", input.dRcLon, kRangeLongitude},
                               Place{"Transmitter latitude", input.dTxLat, kRangeLatitude},
                               Place{"Transmitter longitude", input.dTxLon, kRangeLongitude}})
        if (!place.range.Holds(place.dValue))
            return std::string(place.sName) + " " + NumberToText(place.dValue)
                   + "° is out of range";
    const auto res = RangeCheck(input);
    return res ? std::string() : "A value is out of range, " + res.TextGet();
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

std::string StatusTrouble(RunTrouble eTrouble, int iModel, const std::optional<Failure>& failure,
                          const std::string& sInputFault)
{
    if (eTrouble == RunTrouble::SunSpot)
        return "No sunspot number from Airmail: Options, Model, clear Auto";
    if (eTrouble == RunTrouble::Frequencies)
        return "No frequencies to predict: Options, Frequency";
    if (!failure)
        return "The prediction failed: Options, Model, choose an engine";
    if (failure->eKind == FailureKind::NotInstalled)
        return FailureWords(failure->eKind, RequestEngineText(iModel)) + " ("
               + FailureLine(*failure) + ")";
    const bool bInput = failure->eKind == FailureKind::BadInput && !sInputFault.empty();
    return (eTrouble == RunTrouble::Overlay ? "No overlay: " : "")
           + (bInput ? sInputFault : FailureWords(failure->eKind, RequestEngineText(iModel))) + ": "
           + FailureLine(*failure);
}

std::string StatusAbsent(const PropagationTable& table, const std::optional<Failure>& failure)
{
    const std::string sList = PropagationAbsentText(table);
    if (sList.empty())
        return {};
    return "No values for " + sList + " kHz" + (failure ? ": " + FailureLine(*failure) : "");
}
