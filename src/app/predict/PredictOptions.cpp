#include "app/predict/PredictOptions.h"

#include <array>
#include <map>
#include <string_view>
#include <variant>
#include <vector>

#include "airmail/AirMailFolders.h"
#include "app/predict/PredictAreaOptions.h"
#include "app/predict/PredictArguments.h"
#include "app/predict/PredictPosition.h"
#include "app/predict/PredictValue.h"
#include "propagation/Request.h"
#include "settings/ProfileLib.h"
#include "settings/SettingsTable.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/TextLib.h"

namespace {

/// The option for a row of the table of settings: one number within the row's range.
PredictOption SettingOptionMake(const SettingRow& row)
{
    const unsigned nKinds = row.option.eRuns == OptionRuns::Path   ? kKindPath | kKindReach
                            : row.option.eRuns == OptionRuns::Area ? kKindArea
                                                                   : kKindPredicts;
    return {row.option.sName, nKinds,
            [&row](PredictOptions& options, const std::string& sValue) -> Result<void> {
                if (const auto* ppInteger = std::get_if<int Settings::*>(&row.member))
                    return ValueKeep(ValueWholeGet(sValue, row.range, row.option.sExpected),
                                     options.settings.*(*ppInteger));
                return ValueKeep(ValueBoundedGet(sValue, row.range, row.option.sExpected),
                                 options.settings.*std::get<float Settings::*>(row.member));
            }};
}

Result<void> PositionApply(const std::string& sValue, const char* sEnd, PredictOptions& options,
                           double& dLat, double& dLon)
{
    const auto res = PredictPositionGet(sValue);
    if (!res)
        return res.ErrorGet();
    dLat = res.ValueGet().dLat;
    dLon = res.ValueGet().dLon;
    if (options.sFault.empty())
        options.sFault = res.ValueGet().sFault;
    if (!res.ValueGet().sNote.empty())
        options.sPlaces += std::string(sEnd) + ": " + res.ValueGet().sNote + "\n";
    return {};
}

Result<int> ModelGet(const std::string& sValue)
{
    const std::map<std::string, int> mapModel{
        {"ICEPAC", kEngineIcepac}, {"VOACAP", kEngineVoacap}, {"REC533", kEngineRec533}};
    const auto it = mapModel.find(TextUpper(sValue));
    if (it == mapModel.end())
        return RunError{"\"" + sValue + "\" is not an engine: icepac, voacap or rec533"};
    return it->second;
}

Result<void> ModelApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(ModelGet(sValue), options.settings.m_iPropagationModel);
}

Result<void> CompareApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(ModelGet(sValue), options.iCompare);
}

Result<void> MonthApply(PredictOptions& options, const std::string& sValue)
{
    options.settings.m_bPropagationMonth = false;
    return ValueKeep(ValueWholeGet(sValue, kRangeMonth, "a month"),
                     options.settings.m_iPropagationMonth);
}

Result<void> SunSpotApply(PredictOptions& options, const std::string& sValue)
{
    const bool bAirMail = TextEqualNoCase(sValue, "airmail");
    const bool bForecast = TextEqualNoCase(sValue, "forecast");
    options.settings.m_bPropagationSunSpotNumber = bAirMail;
    options.settings.m_bPropagationForecast = bForecast;
    if (bAirMail || bForecast)
        return {};
    return ValueKeep(ValueBoundedGet(sValue, kRangeSunSpot, "a smoothed sunspot number"),
                     options.settings.m_fPropagationSunSpotNumber);
}

Result<void> ForecastFileApply(PredictOptions& options, const std::string& sValue)
{
    options.sForecastFile = sValue;
    options.settings.m_bPropagationSunSpotNumber = false;
    options.settings.m_bPropagationForecast = true;
    return {};
}

/// Refuses a forecast together with another source of the sunspot number.
Result<void> SunSpotCheck(const std::vector<GivenOption>& aGiven)
{
    const GivenOption* pSource = GivenFind(aGiven, "--ssn");
    if (GivenFind(aGiven, "--ssn-file") != nullptr && pSource != nullptr
        && !TextEqualNoCase(pSource->sValue, "forecast"))
        return RunError{"--ssn-file: goes with --ssn forecast only"};
    return {};
}

Result<void> NeedApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(NeedFromText(options.settings.m_aNeed, sValue), options.need);
}

Result<void> ReachApply(PredictOptions& options, const std::string& sValue)
{
    const std::map<std::string, PlaceKind> mapList{{"HAM", PlaceKind::Ham},
                                                   {"SAILMAIL", PlaceKind::SailMail},
                                                   {"OTHER", PlaceKind::Other},
                                                   {"PLACES", PlaceKind::Own}};
    for (const std::string& sPiece : ValueListGet(sValue)) {
        const auto it = mapList.find(TextUpper(sPiece));
        if (it == mapList.end())
            return RunError{"\"" + sPiece + "\" is not a list: ham, sailmail, other or places"};
        options.reach.aLists.insert(it->second);
    }
    return {};
}

Result<void> FrequenciesApply(PredictOptions& options, const std::string& sValue)
{
    const std::vector<std::string> asPiece = ValueListGet(sValue);
    if (asPiece.size() > static_cast<std::size_t>(kFrequencyMax))
        return RunError{std::to_string(asPiece.size())
                        + " frequencies given; at most 15 are taken"};
    int iIndex = 0;
    for (const std::string& sPiece : asPiece) {
        const auto res = ValueBoundedGet(sPiece, kRangeFrequency, "a frequency in kHz");
        if (!res)
            return res.ErrorGet();
        options.settings.FrequencySet(++iIndex, static_cast<float>(res.ValueGet()));
    }
    options.settings.m_nData = iIndex;
    options.reach.bFrequencies = true;
    return {};
}

Result<void> CoefficientsApply(PredictOptions& options, const std::string& sValue)
{
    const std::string sUpper = TextUpper(sValue);
    if (sUpper != "CCIR" && sUpper != "URSI" && sUpper != kCoefficientsMean)
        return RunError{"\"" + sValue + "\" is not a coefficient set: CCIR, URSI or MEAN"};
    options.settings.m_bPropagationMapsMean = sUpper == kCoefficientsMean;
    if (!options.settings.m_bPropagationMapsMean)
        options.settings.m_sPropagationIonCoefficients = sUpper;
    return {};
}

Result<void> LayersApply(PredictOptions& options, const std::string& sValue)
{
    const std::vector<std::string> asPiece = ValueListGet(sValue);
    const std::array<float Settings::*, 4> apMember{
        &Settings::m_fPropagationLayerAdjustE, &Settings::m_fPropagationLayerAdjustF1,
        &Settings::m_fPropagationLayerAdjustF2, &Settings::m_fPropagationLayerAdjustEs};
    if (asPiece.size() != apMember.size())
        return RunError{"give four layer factors: E,F1,F2,Es"};
    for (std::size_t n = 0; n < apMember.size(); ++n) {
        const auto res = ValueBoundedGet(asPiece[n], kRangeLayer, "a layer factor");
        if (!res)
            return res.ErrorGet();
        options.settings.*apMember[n] = static_cast<float>(res.ValueGet());
    }
    return {};
}

Result<void> FormatApply(PredictOptions& options, const std::string& sValue)
{
    if (TextEqualNoCase(sValue, "table"))
        options.eFormat = PredictFormat::Table;
    else if (TextEqualNoCase(sValue, "csv"))
        options.eFormat = PredictFormat::Csv;
    else if (TextEqualNoCase(sValue, "json"))
        options.eFormat = PredictFormat::Json;
    else
        return RunError{"\"" + sValue + "\" is not a format: table, csv or json"};
    return {};
}

Result<void> ReachFromApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(ValueWholeGet(sValue, {0, 23}, "an hour"), options.reach.iFrom);
}

Result<void> ReachHoursApply(PredictOptions& options, const std::string& sValue)
{
    return ValueKeep(ValueWholeGet(sValue, {1, 24}, "a number of hours"), options.reach.nHours);
}

Result<void> JobsApply(PredictOptions& options, const std::string& sValue)
{
    constexpr double kJobsMost = 64;
    return ValueKeep(ValueWholeGet(sValue, {1, kJobsMost}, "a number of jobs"), options.nJobs);
}

std::vector<PredictOption> OptionsMake()
{
    std::vector<PredictOption> aOption{
        // The profile is read before any other option is applied (see PredictOptionsGet).
        {"--profile", kKindPredicts | kKindStations,
         [](PredictOptions&, const std::string&) -> Result<void> { return {}; }},
        {"--tx", kKindPath,
         [](PredictOptions& options, const std::string& sValue) {
             Settings& settings = options.settings;
             return PositionApply(sValue, "Transmitter", options, settings.m_dTxLat,
                                  settings.m_dTxLon);
         }},
        {"--rc", kKindPredicts,
         [](PredictOptions& options, const std::string& sValue) {
             Settings& settings = options.settings;
             return PositionApply(sValue, "Receiver", options, settings.m_dRcLat,
                                  settings.m_dRcLon);
         }},
        {"--model", kKindPredicts, ModelApply},
        {"--compare", kKindPath, CompareApply},
        {"--month", kKindPredicts, MonthApply},
        {"--ssn", kKindPredicts, SunSpotApply},
        {"--ssn-file", kKindPredicts, ForecastFileApply},
        {"--frequencies", kKindPath | kKindDay | kKindReach, FrequenciesApply},
        {"--need", kKindPath | kKindReach, NeedApply},
        {"--coefficients", kKindPredicts, CoefficientsApply},
        {"--layers", kKindPredicts, LayersApply},
        {"--format", kKindPredicts | kKindStations, FormatApply},
        {"--output", kKindPredicts | kKindStations,
         [](PredictOptions& options, const std::string& sValue) -> Result<void> {
             options.sOutput = sValue == "-" ? "" : sValue;
             return {};
         }},
        {"--area", kKindArea, AreaBoundsApply},
        {"--hour", kKindHour, AreaHourApply},
        {"--frequency", kKindHour, AreaFrequencyApply},
        {"--day", kKindDay,
         [](PredictOptions& options, const std::string&) -> Result<void> {
             options.bDay = true;
             return {};
         },
         false},
        {"--jobs", kKindDay, JobsApply},
        {"--reach", kKindReach, ReachApply},
        {"--from", kKindReach, ReachFromApply},
        {"--hours", kKindReach, ReachHoursApply},
        {"--all", kKindReach,
         [](PredictOptions& options, const std::string&) -> Result<void> {
             options.reach.bAll = true;
             return {};
         },
         false},
        {"--list-stations", kKindStations,
         [](PredictOptions&, const std::string&) -> Result<void> { return {}; }, false},
    };
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.option.sName != nullptr)
            aOption.push_back(SettingOptionMake(row));
    }
    return aOption;
}

Result<void> ProfileApply(const std::vector<GivenOption>& aGiven, PredictOptions& options)
{
    const GivenOption* pProfile = GivenFind(aGiven, "--profile");
    if (pProfile == nullptr)
        return {};
    // The private-profile service looks for a bare name in the system's own folder.
    const bool bBareName = pProfile->sValue.find_first_of("/\\") == std::string::npos;
    options.settings.m_sProfileFile =
        bBareName ? PathJoin(".", pProfile->sValue) : pProfile->sValue;
    if (const auto res = ProfileLoad(options.settings, {}, ProfileRanges::Keep); !res)
        return RunError{"--profile: " + res.TextGet() + ", " + pProfile->sValue};
    return {};
}

}  // namespace

Result<PredictOptions> PredictOptionsGet(std::span<const std::string> asArguments)
{
    PredictOptions options;
    for (const std::string& sWord : asArguments) {
        options.bHelp = options.bHelp || sWord == "--help" || sWord == "-h";
        options.bVersion = options.bVersion || sWord == "--version";
    }
    if (options.bHelp || options.bVersion)
        return options;
    const std::vector<PredictOption> aOption = OptionsMake();
    const auto resGiven = GivenGet(asArguments, aOption);
    if (!resGiven)
        return resGiven.ErrorGet();
    const std::vector<GivenOption>& aGiven = resGiven.ValueGet();
    if (const auto res = ModeCheck(aGiven, options); !res)
        return res.ErrorGet();
    if (const auto res = SunSpotCheck(aGiven); !res)
        return res.ErrorGet();
    if (const auto res = ProfileApply(aGiven, options); !res)
        return res.ErrorGet();
    AirMailFoldersFind();  // positions and the sunspot number may come from there
    for (const GivenOption& given : aGiven) {
        if (const auto res = given.pOption->fnApply(options, given.sValue); !res)
            return RunError{std::string(given.pOption->sName) + ": " + res.TextGet()};
    }
    return options;
}
