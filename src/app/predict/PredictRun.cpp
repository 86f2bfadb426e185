#include "app/predict/PredictRun.h"

#include <vector>

#include "app/engines/EngineList.h"
#include "app/predict/PredictCompare.h"
#include "app/predict/PredictDay.h"
#include "app/predict/PredictPrint.h"
#include "app/predict/PredictReach.h"
#include "propagation/AreaBoxes.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "propagation/Request.h"
#include "propagation/RunValues.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "settings/ProfileLib.h"
#include "studies/days/Days.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"

namespace {

std::string EngineNameGet(int iModel)
{
    const EngineProgram* pEngine = EngineFind(iModel);
    if (pEngine == nullptr)
        return "no engine";
    return std::string(pEngine->sName) + (EngineIsHopcasts(iModel) ? " (built-in)" : "");
}

/// Sets the run's month and sunspot number, as the main window's update does.
bool SettingsComplete(const PredictOptions& options, Settings& settings, SunSpotRun& ssn)
{
    Messages aMessages;
    const bool bOk = RunValuesTake(settings, aMessages, &ssn, options.sForecastFile);
    if (!bOk && settings.m_bPropagationSunSpotNumber && !aMessages.empty())
        aMessages.back().sText += " (or give --ssn N)";
    if (!bOk && !options.sForecastFile.empty() && !aMessages.empty())
        aMessages.back().sText = "--ssn-file: " + aMessages.back().sText;
    MsgShow(aMessages);
    if (bOk && !ssn.sWarning.empty())
        MsgBox(MsgIcon::Info, ssn.sWarning);
    return bOk;
}

/// Keeps values out of range from the engines. Only those from the profile can be out of range: the
/// options have been checked.
bool RangesCheck(const PredictOptions& options)
{
    if (!options.sFault.empty())
        return MsgFail(MsgIcon::Exclamation, options.sFault);
    const auto asFault = SettingsFaultsGet(options.settings, !options.bArea);
    return asFault.empty()
           || MsgFail(MsgIcon::Exclamation,
                      options.settings.m_sProfileFile + ", " + asFault.front());
}

/// Shows why a run failed, with the details. @return false if there was nothing to show.
bool FailuresShow(const std::vector<Failure>& aFailures)
{
    for (const Failure& failure : aFailures) MsgBox(failure.eIcon, failure.sText);
    if (!aFailures.empty() && !aFailures.back().sDetail.empty())
        MsgBox(MsgIcon::Info, aFailures.back().sDetail);
    return !aFailures.empty();
}

std::string TextGet(PredictFormat eFormat, const PredictRun& run, bool bColor)
{
    switch (eFormat) {
        case PredictFormat::Csv:
            return PredictCsvGet(run);
        case PredictFormat::Json:
            return PredictJsonGet(run);
        case PredictFormat::Table:
            break;
    }
    return PredictTableGet(run, bColor);
}

/// Adds the deciles, which Hopcast's own engine knows but its output has no space for.
void DecilesTake(const Request& input, PropagationTable& table)
{
    if (!EngineIsHopcasts(input.iModel) || DaysArePrinted(table))
        return;
    const Prediction prediction = EngineMake(input.iModel)->Predict(input, {});
    if (!prediction.bOk)
        return;
    table.fSnrLower = prediction.table.fSnrLower;
    table.fSnrUpper = prediction.table.fSnrUpper;
}

/// @return false when there is no table
bool PathRun(PredictPath& path)
{
    Request input = RequestFromSettings(path.settings);
    input.eSunSpotSource = path.ssn.eSource;
    path.table = PropagationTable(input.nData);
    std::vector<Failure> aFailures;
    const bool bOk = PropagationRun(input, path.table, aFailures);
    if (!FailuresShow(aFailures) && !bOk)
        MsgBox(MsgIcon::Exclamation, input.nData < 1
                                         ? "The frequency list is empty; give --frequencies."
                                         : "There is no such engine; give --model.");
    if (!bOk)
        return false;
    // A list in several chunks may fail in one of them and still succeed.
    const std::string sAbsent = PropagationAbsentText(path.table);
    if (!sAbsent.empty())
        MsgBox(MsgIcon::Exclamation, "No values for " + sAbsent + " kHz.");
    path.bWhole = sAbsent.empty();
    return true;
}

std::optional<PredictOutput> PointToPointGet(const PredictOptions& options, bool bColor)
{
    auto path = PredictPathGet(options);
    if (!path)
        return std::nullopt;
    DecilesTake(path->table.request, path->table);
    const SunSpotRun& ssn = path->ssn;
    const PredictRun run{&path->settings,
                         &path->table,
                         LocalNow().nYear,
                         EngineNameGet(path->settings.m_iPropagationModel),
                         ssn.eSource == SunSpotSource::Typed ? "given" : ssn.sSource,
                         options.sPlaces,
                         ssn.dtDay.IsZero() ? "" : ssn.sDetail,
                         options.need};
    return PredictOutput{TextGet(options.eFormat, run, bColor), path->bWhole};
}

/// Output that is either complete or missing.
std::optional<PredictOutput> TextOutput(std::optional<std::string> sText)
{
    if (!sText)
        return std::nullopt;
    return PredictOutput{std::move(*sText)};
}

std::optional<PredictOutput> DayGet(const PredictOptions& options, const Settings& settings)
{
    return TextOutput(PredictDayGet(options, settings, *EngineMake(settings.m_iPropagationModel)));
}

/// With the settings of the run.
std::optional<PredictAreaRun> AreaRun(const PredictOptions& options, const Settings& settings,
                                      SunSpotSource eSource)
{
    PredictAreaRun run{settings, {}};
    AreaRequest input = AreaRequestFromSettings(settings);
    input.eSunSpotSource = eSource;
    input.iHour = options.area.iHour;
    input.fFrequency = options.area.fFrequency / 1000.0F;
    const bool bOverDateLine = options.area.dEast <= options.area.dWest;
    for (const AreaBox& box :
         AreaBoxesGet({options.area.dSouth, options.area.dNorth, options.area.dWest,
                       options.area.dEast + (bOverDateLine ? 360.0 : 0.0)})) {
        input.dNorth = box.dTop;
        input.dSouth = box.dBottom;
        input.dWest = box.dLeft;
        input.dEast = box.dRight;
        std::vector<AreaPoint> aPoints;
        if (FailuresShow(AreaPointsRead(input, aPoints)))
            return std::nullopt;
        run.aBoxes.push_back({input, std::move(aPoints)});
    }
    return run;
}

/// Both boxes of an area that crosses longitude 180 as one list.
std::optional<PredictOutput> AreaGet(const PredictOptions& options, const Settings& settings,
                                     SunSpotSource eSource)
{
    const auto run = AreaRun(options, settings, eSource);
    if (!run)
        return std::nullopt;
    std::vector<AreaPoint> aPoint;
    for (const PredictAreaBox& box : run->aBoxes)
        aPoint.insert(aPoint.end(), box.aPoints.begin(), box.aPoints.end());
    return PredictOutput{options.eFormat == PredictFormat::Json ? PredictAreaJsonGet(aPoint)
                                                                : PredictAreaCsvGet(aPoint)};
}

}  // namespace

std::optional<PredictPath> PredictPathGet(const PredictOptions& options)
{
    PredictPath path;
    path.settings = options.settings;
    if (!RangesCheck(options) || !SettingsComplete(options, path.settings, path.ssn)
        || !PathRun(path))
        return std::nullopt;
    return path;
}

std::optional<PredictAreaRun> PredictAreaRunGet(const PredictOptions& options)
{
    Settings settings = options.settings;
    SunSpotRun ssn;
    if (!RangesCheck(options) || !SettingsComplete(options, settings, ssn))
        return std::nullopt;
    return AreaRun(options, settings, ssn.eSource);
}

std::optional<PredictOutput> PredictRunGet(const PredictOptions& options, bool bColor)
{
    if (options.bStations)
        return TextOutput(PredictStationsGet(options));
    if (!options.bReach && !options.bArea && options.iCompare == -1)
        return PointToPointGet(options, bColor);
    Settings settings = options.settings;
    SunSpotRun ssn;
    if (!RangesCheck(options) || !SettingsComplete(options, settings, ssn))
        return std::nullopt;
    if (options.bReach)
        return TextOutput(PredictReachGet(options, settings, ssn.eSource));
    if (options.iCompare != -1)
        return PredictCompareGet(options, settings, ssn.eSource);
    return options.bDay ? DayGet(options, settings) : AreaGet(options, settings, ssn.eSource);
}
