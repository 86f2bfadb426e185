#include "ui/main/StatusText.h"

#include <QObject>

#include "propagation/RequestText.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"
#include "ui/common/Words.h"

namespace {

/// The engine; for Hopcast's own, also its method.
std::string EngineText(const Request& input, bool bBuiltIn, StatusForm eForm)
{
    const std::string sEngine = RequestEngineText(input.iModel);
    if (!bBuiltIn)
        return sEngine;
    if (eForm == StatusForm::Short)
        return WordsPut(QObject::tr("%1 built-in"), sEngine);
    return WordsPut(QObject::tr("%1 (built-in, P.533 with long-path rule, %2 maps)"), sEngine,
                    input.sIonCoefficients == kCoefficientsMean
                        ? QObject::tr("mean").toStdString()
                        : TextForMessage(input.sIonCoefficients));
}

std::string LineFirst(const std::string& sMessage)
{
    return TextForMessage(sMessage.substr(0, sMessage.find_first_of("\r\n")));
}

std::string NumberText(const Request& input, const StatusFacts& facts, StatusForm eForm)
{
    const bool bShort = eForm == StatusForm::Short;
    if (!facts.bSunSpotNumber)
        return (bShort ? QObject::tr("no sunspot number")
                       : QObject::tr("no sunspot number (Airmail)"))
            .toStdString();
    return bShort ? WordsPut(QObject::tr("SSN %1"), NumberToText(input.fSunSpotNumber))
                  : RequestSunSpotText(input, facts.sAirMail);
}

/// What happened, in words for someone who does not know how the program works.
std::string FailureWords(FailureKind eKind, const std::string& sEngine)
{
    switch (eKind) {
        case FailureKind::NotInstalled:
            return WordsPut(
                QObject::tr("%1 is not installed: Options, Model, choose another engine"), sEngine);
        case FailureKind::NotStarted:
            return WordsPut(QObject::tr("%1 could not be started"), sEngine);
        case FailureKind::Timeout:
            return WordsPut(QObject::tr("%1 took too long and was stopped"), sEngine);
        case FailureKind::BadInput:
            return QObject::tr("A value does not fit the engine's deck").toStdString();
        case FailureKind::BadOutput:
            return WordsPut(QObject::tr("%1 gave no usable result"), sEngine);
        case FailureKind::Busy:
            return QObject::tr("Another program is using the engine, Update tries again")
                .toStdString();
        case FailureKind::Cancelled:
            return QObject::tr("The run was stopped").toStdString();
        case FailureKind::File:
            return QObject::tr("The files of the run could not be written").toStdString();
    }
    return WordsPut(QObject::tr("%1 failed"), sEngine);
}

/// The first line of the message, and what else is known.
std::string FailureLine(const Failure& failure)
{
    return LineFirst(failure.sText) + (failure.sDetail.empty() ? "" : " (" + failure.sDetail + ")");
}

}  // namespace

std::string StatusInForce(const Request& input, const StatusFacts& facts, StatusForm eForm)
{
    return EngineText(input, facts.bBuiltIn, eForm) + kTextBetween + MonthName(input.nMonth)
           + kTextBetween + NumberText(input, facts, eForm) + kTextBetween + RequestPowerText(input)
           + (facts.sProfile.empty() ? "" : kTextBetween + TextForMessage(facts.sProfile));
}

std::string StatusBest(const PropagationTable& table, int iRow, int iHour)
{
    if (iRow < 1)
        return {};
    return WordsPut(QObject::tr("Best now: %1 kHz, %2 dB"),
                    NumberFormat(table.request.FrequencyGet(iRow), "0"),
                    NumberFormat(table.fSnr(iHour, iRow), "0"));
}

std::string StatusPosition(const DateTime& dtPosition, const DateTime& dtNow)
{
    constexpr long long kHoursTold = 6;
    constexpr long long kHoursOfDay = 24;
    if (dtPosition.IsZero())
        return QObject::tr("Receiver: position of Airmail, without a time").toStdString();
    const long long nHours = MinuteBoundaries(dtPosition, dtNow) / 60;
    if (nHours >= 2 * kHoursOfDay)
        return WordsPut(QObject::tr("Receiver: position of Airmail, %1 days old"),
                        std::to_string(nHours / kHoursOfDay));
    if (nHours >= kHoursTold)
        return WordsPut(QObject::tr("Receiver: position of Airmail, %1 hours old"),
                        std::to_string(nHours));
    return WordsPut(QObject::tr("Receiver: position of Airmail, %1 UTC"),
                    NumberFormat(static_cast<double>(dtPosition.nHour), "00") + ":"
                        + NumberFormat(static_cast<double>(dtPosition.nMinute), "00"));
}

std::string StatusInputFault(const Request& input)
{
    struct Place {
        QString sName;
        double dValue;
        const NumberRange& range;
    };
    for (const Place& place :
         {Place{QObject::tr("Receiver latitude"), input.dRcLat, kRangeLatitude},
          Place{QObject::tr("Receiver longitude"), input.dRcLon, kRangeLongitude},
          Place{QObject::tr("Transmitter latitude"), input.dTxLat, kRangeLatitude},
          Place{QObject::tr("Transmitter longitude"), input.dTxLon, kRangeLongitude}})
        if (!place.range.Holds(place.dValue))
            return WordsPut(QObject::tr("%1 %2° is out of range"), place.sName,
                            NumberToText(place.dValue));
    const auto res = RangeCheck(input);
    return res ? std::string()
               : WordsPut(QObject::tr("A value is out of range, %1"), res.TextGet());
}

std::string StatusProfile(const Result<std::vector<std::string>>& resDropped)
{
    if (resDropped.TextGet() == kFileNotFound)
        return {};  // the first start
    if (!resDropped)
        return WordsPut(QObject::tr("The profile was not read: %1"), resDropped.TextGet());
    const std::vector<std::string>& asDropped = resDropped.ValueGet();
    if (asDropped.empty())
        return {};
    if (asDropped.size() == 1)
        return WordsPut(QObject::tr("Not taken from the profile: %1"), asDropped.front());
    return WordsPut(QObject::tr("Not taken from the profile: %1 (and %2 more)"), asDropped.front(),
                    std::to_string(asDropped.size() - 1));
}

std::string StatusTrouble(RunTrouble eTrouble, int iModel, const std::optional<Failure>& failure,
                          const std::string& sInputFault)
{
    if (eTrouble == RunTrouble::SunSpot)
        return QObject::tr("No sunspot number from Airmail: Options, Model, clear Auto")
            .toStdString();
    if (eTrouble == RunTrouble::Frequencies)
        return QObject::tr("No frequencies to predict: Options, Frequency").toStdString();
    if (!failure)
        return QObject::tr("The prediction failed: Options, Model, choose an engine").toStdString();
    if (failure->eKind == FailureKind::NotInstalled)
        return WordsPut(QObject::tr("%1 (%2)"),
                        FailureWords(failure->eKind, RequestEngineText(iModel)),
                        FailureLine(*failure));
    const bool bInput = failure->eKind == FailureKind::BadInput && !sInputFault.empty();
    return WordsPut(
        eTrouble == RunTrouble::Overlay ? QObject::tr("No overlay: %1: %2") : QObject::tr("%1: %2"),
        bInput ? sInputFault : FailureWords(failure->eKind, RequestEngineText(iModel)),
        FailureLine(*failure));
}

std::string StatusAbsent(const PropagationTable& table, const std::optional<Failure>& failure)
{
    const std::string sList = PropagationAbsentText(table);
    if (sList.empty())
        return {};
    if (!failure)
        return WordsPut(QObject::tr("No values for %1 kHz"), sList);
    return WordsPut(QObject::tr("No values for %1 kHz: %2"), sList, FailureLine(*failure));
}
