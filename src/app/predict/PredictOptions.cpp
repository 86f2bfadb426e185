#include "app/predict/PredictOptions.h"

#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "airmail/AirMailFolders.h"
#include "app/predict/PredictPosition.h"
#include "propagation/Request.h"
#include "settings/ProfileLib.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/TextLib.h"

namespace {

/// What an option goes with: any run, a path, an area, a day of an area.
enum class Mode { Both, PointToPoint, PathOrDay, Area, Day };

/// What an option does with its value; an error says what is wrong with it.
using ApplyFn = std::function<Result<void>(PredictOptions& options, const std::string& sValue)>;

struct Option {
    const char* sName;
    Mode eMode;
    ApplyFn fnApply;
    bool bValue = true;  ///< a value follows
};

std::vector<std::string> ListGet(std::string_view sText)
{
    std::vector<std::string> asPiece;
    for (;;) {
        const std::size_t nComma = sText.find(',');
        asPiece.emplace_back(TextTrim(sText.substr(0, nComma)));
        if (nComma == std::string_view::npos)
            return asPiece;
        sText.remove_prefix(nComma + 1);
    }
}

/// A number within bounds, or an error that names what was expected.
Result<double> BoundedGet(const std::string& sValue, const NumberRange& range, const char* sWhat)
{
    const auto res = NumberFromText(sValue);
    if (!res || !range.Holds(res.ValueGet()))
        return RunError{"\"" + sValue + "\" is not " + sWhat + ", " + NumberToText(range.dLeast)
                        + " to " + NumberToText(range.dMost)};
    return res;
}

Result<int> WholeGet(const std::string& sValue, const NumberRange& range, const char* sWhat)
{
    const auto res = BoundedGet(sValue, range, sWhat);
    if (!res)
        return res.ErrorGet();
    if (res.ValueGet() != std::floor(res.ValueGet()))
        return RunError{"\"" + sValue + "\" is not a whole number"};
    return static_cast<int>(res.ValueGet());
}

/// Stores a checked value; its error is handed on.
template <class From, class To>
Result<void> Keep(const Result<From>& res, To& to)
{
    if (!res)
        return res.ErrorGet();
    to = static_cast<To>(res.ValueGet());
    return {};
}

/// An option that sets one single-precision member within bounds.
ApplyFn SingleOption(float Settings::*pMember, const char* sWhat)
{
    return [=](PredictOptions& options, const std::string& sValue) {
        return Keep(BoundedGet(sValue, SettingsRangeGet(pMember), sWhat),
                    options.settings.*pMember);
    };
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

Result<void> ModelApply(PredictOptions& options, const std::string& sValue)
{
    const std::map<std::string, int> mapModel{
        {"ICEPAC", kEngineIcepac}, {"VOACAP", kEngineVoacap}, {"REC533", kEngineRec533}};
    const auto it = mapModel.find(TextUpper(sValue));
    if (it == mapModel.end())
        return RunError{"\"" + sValue + "\" is not an engine: icepac, voacap or rec533"};
    options.settings.m_iPropagationModel = it->second;
    return {};
}

Result<void> MonthApply(PredictOptions& options, const std::string& sValue)
{
    options.settings.m_bPropagationMonth = false;
    return Keep(WholeGet(sValue, kRangeMonth, "a month"), options.settings.m_iPropagationMonth);
}

Result<void> SunSpotApply(PredictOptions& options, const std::string& sValue)
{
    options.settings.m_bPropagationSunSpotNumber = false;
    return Keep(BoundedGet(sValue, kRangeSunSpot, "a smoothed sunspot number"),
                options.settings.m_fPropagationSunSpotNumber);
}

Result<void> FrequenciesApply(PredictOptions& options, const std::string& sValue)
{
    const std::vector<std::string> asPiece = ListGet(sValue);
    if (asPiece.size() > static_cast<std::size_t>(kFrequencyMax))
        return RunError{std::to_string(asPiece.size())
                        + " frequencies given; at most 15 are taken"};
    int iIndex = 0;
    for (const std::string& sPiece : asPiece) {
        const auto res = BoundedGet(sPiece, kRangeFrequency, "a frequency in kHz");
        if (!res)
            return res.ErrorGet();
        options.settings.FrequencySet(++iIndex, static_cast<float>(res.ValueGet()));
    }
    options.settings.m_nData = iIndex;
    return {};
}

Result<void> AntennaApply(PredictOptions& options, const std::string& sValue)
{
    return Keep(WholeGet(sValue, kRangeAntenna, "an antenna type"),
                options.settings.m_iPropagationAntennaType);
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
    const std::vector<std::string> asPiece = ListGet(sValue);
    const std::array<float Settings::*, 4> apMember{
        &Settings::m_fPropagationLayerAdjustE, &Settings::m_fPropagationLayerAdjustF1,
        &Settings::m_fPropagationLayerAdjustF2, &Settings::m_fPropagationLayerAdjustEs};
    if (asPiece.size() != apMember.size())
        return RunError{"give four layer factors: E,F1,F2,Es"};
    for (std::size_t n = 0; n < apMember.size(); ++n) {
        const auto res = BoundedGet(asPiece[n], kRangeLayer, "a layer factor");
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

/// Height and width as the deck prints the bounds, in hundredths of a degree.
Result<void> AreaCheck(PredictArea& area)
{
    const auto Printed = [](double dDegrees) { return NumberFormat(dDegrees, "0.00"); };
    if (Printed(area.dNorth) == Printed(area.dSouth))
        return RunError{"the area has no height"};
    if (area.dNorth < area.dSouth)
        return RunError{"the north bound must lie north of the south bound"};
    // Longitude 180 has two names; an area that begins or ends there does not cross it.
    if (area.dWest > area.dEast && Printed(area.dWest) == Printed(kLongitudeMost))
        area.dWest = -kLongitudeMost;
    if (area.dWest > area.dEast && Printed(area.dEast) == Printed(-kLongitudeMost))
        area.dEast = kLongitudeMost;
    if (Printed(area.dWest) == Printed(area.dEast))
        return RunError{"the area has no width"};
    return {};
}

Result<void> AreaApply(PredictOptions& options, const std::string& sValue)
{
    const std::vector<std::string> asPiece = ListGet(sValue);
    if (asPiece.size() != 4)
        return RunError{"give four bounds: NORTH,WEST,SOUTH,EAST"};
    struct Bound {
        double* pValue;
        double dMost;
        const char* sWhat;
    };
    const std::array<Bound, 4> aBound{{{&options.area.dNorth, 89.9, "a latitude"},
                                       {&options.area.dWest, 180, "a longitude"},
                                       {&options.area.dSouth, 89.9, "a latitude"},
                                       {&options.area.dEast, 180, "a longitude"}}};
    for (std::size_t n = 0; n < aBound.size(); ++n) {
        const auto res =
            BoundedGet(asPiece[n], {-aBound[n].dMost, aBound[n].dMost}, aBound[n].sWhat);
        if (!res)
            return res.ErrorGet();
        *aBound[n].pValue = res.ValueGet();
    }
    return AreaCheck(options.area);
}

Result<void> HourApply(PredictOptions& options, const std::string& sValue)
{
    return Keep(WholeGet(sValue, {0, 23}, "an hour"), options.area.iHour);
}

Result<void> AreaFrequencyApply(PredictOptions& options, const std::string& sValue)
{
    return Keep(BoundedGet(sValue, kRangeFrequency, "a frequency in kHz"), options.area.fFrequency);
}

Result<void> GridApply(PredictOptions& options, const std::string& sValue)
{
    return Keep(WholeGet(sValue, {kGridSizeMin, kGridSizeMax}, "a number of grid points a side"),
                options.settings.m_iMapOverlayGridSize);
}

Result<void> JobsApply(PredictOptions& options, const std::string& sValue)
{
    constexpr double kJobsMost = 64;
    return Keep(WholeGet(sValue, {1, kJobsMost}, "a number of jobs"), options.nJobs);
}

std::vector<Option> OptionsMake()
{
    return {
        // The profile is read before any other option is applied (see PredictOptionsGet).
        {"--profile", Mode::Both,
         [](PredictOptions&, const std::string&) -> Result<void> { return {}; }},
        {"--tx", Mode::PointToPoint,
         [](PredictOptions& options, const std::string& sValue) {
             Settings& settings = options.settings;
             return PositionApply(sValue, "Transmitter", options, settings.m_dTxLat,
                                  settings.m_dTxLon);
         }},
        {"--rc", Mode::Both,
         [](PredictOptions& options, const std::string& sValue) {
             Settings& settings = options.settings;
             return PositionApply(sValue, "Receiver", options, settings.m_dRcLat,
                                  settings.m_dRcLon);
         }},
        {"--model", Mode::Both, ModelApply},
        {"--month", Mode::Both, MonthApply},
        {"--ssn", Mode::Both, SunSpotApply},
        {"--frequencies", Mode::PathOrDay, FrequenciesApply},
        {"--noise", Mode::Both,
         SingleOption(&Settings::m_fPropagationNoiseLevel, "a noise level in dBW")},
        {"--takeoff", Mode::Both,
         SingleOption(&Settings::m_fPropagationTakeoffAngle, "a takeoff angle")},
        {"--reliability", Mode::Both,
         SingleOption(&Settings::m_fPropagationReliability, "a reliability in %")},
        {"--multipath-power", Mode::Both,
         SingleOption(&Settings::m_fPropagationMultipathPower,
                      "a multipath power tolerance in dB")},
        {"--multipath-delay", Mode::Both,
         SingleOption(&Settings::m_fPropagationMultipathDelay, "a multipath delay in ms")},
        {"--q-index", Mode::PointToPoint,
         SingleOption(&Settings::m_fPropagationQIndex, "a Q index")},
        {"--antenna", Mode::Both, AntennaApply},
        {"--coefficients", Mode::Both, CoefficientsApply},
        {"--layers", Mode::Both, LayersApply},
        {"--format", Mode::Both, FormatApply},
        {"--output", Mode::Both,
         [](PredictOptions& options, const std::string& sValue) -> Result<void> {
             options.sOutput = sValue == "-" ? "" : sValue;
             return {};
         }},
        {"--area", Mode::Area, AreaApply},
        {"--hour", Mode::Area, HourApply},
        {"--frequency", Mode::Area, AreaFrequencyApply},
        {"--grid", Mode::Area, GridApply},
        {"--day", Mode::Area,
         [](PredictOptions& options, const std::string&) -> Result<void> {
             options.bDay = true;
             return {};
         },
         false},
        {"--jobs", Mode::Day, JobsApply},
    };
}

struct Given {
    const Option* pOption;
    std::string sValue;
};

/// Words to options with their values ("--month 3" and "--month=3").
Result<std::vector<Given>> GivenGet(std::span<const std::string> asArguments,
                                    const std::vector<Option>& aOption)
{
    std::vector<Given> aGiven;
    for (std::size_t n = 0; n < asArguments.size(); ++n) {
        const std::string& sWord = asArguments[n];
        const std::size_t nEqual = sWord.find('=');
        const std::string sName = sWord.substr(0, nEqual);
        const Option* pFound = nullptr;
        for (const Option& opt : aOption) {
            if (sName == opt.sName)
                pFound = &opt;
        }
        if (pFound == nullptr)
            return RunError{"unknown option " + sWord + " (see --help)"};
        for (const Given& given : aGiven) {
            if (given.pOption == pFound)
                return RunError{sName + ": given twice"};
        }
        if (!pFound->bValue) {
            if (nEqual != std::string::npos)
                return RunError{sName + ": takes no value"};
            aGiven.push_back({pFound, sName});
            continue;
        }
        if (nEqual != std::string::npos)
            aGiven.push_back({pFound, sWord.substr(nEqual + 1)});
        else if (n + 1 < asArguments.size() && !asArguments[n + 1].starts_with("--"))
            aGiven.push_back({pFound, asArguments[++n]});
        else
            return RunError{sName + ": a value is missing"};
        if (aGiven.back().sValue.empty())
            return RunError{sName + ": a value is missing"};
    }
    return aGiven;
}

const Given* GivenFind(const std::vector<Given>& aGiven, std::string_view sName)
{
    for (const Given& given : aGiven) {
        if (given.pOption->sName == sName)
            return &given;
    }
    return nullptr;
}

/// One of the two modes, and whole.
Result<void> ModeCheck(const std::vector<Given>& aGiven, PredictOptions& options)
{
    options.bArea = GivenFind(aGiven, "--area") != nullptr;
    const bool bDay = GivenFind(aGiven, "--day") != nullptr;
    for (const Given& given : aGiven) {
        const Mode eMode = given.pOption->eMode;
        const std::string sName = given.pOption->sName;
        if (options.bArea && (eMode == Mode::PointToPoint || (eMode == Mode::PathOrDay && !bDay)))
            return RunError{sName + ": does not go with --area"};
        if (!options.bArea && (eMode == Mode::Area || eMode == Mode::Day))
            return RunError{sName + ": goes with --area only"};
        if (eMode == Mode::Day && !bDay)
            return RunError{sName + ": goes with --day only"};
    }
    if (!options.bArea)
        return {};
    for (const char* sHour : {"--hour", "--frequency"}) {
        const bool bGiven = GivenFind(aGiven, sHour) != nullptr;
        if (bGiven && bDay)
            return RunError{std::string(sHour) + ": does not go with --day"};
        if (!bGiven && !bDay)
            return RunError{std::string(sHour) + ": is needed with --area (or --day)"};
    }
    options.eFormat = PredictFormat::Csv;
    if (const Given* pFormat = GivenFind(aGiven, "--format");
        pFormat != nullptr && TextEqualNoCase(pFormat->sValue, "table"))
        return RunError{"--format: an area has no table; give csv or json"};
    return {};
}

Result<void> ProfileApply(const std::vector<Given>& aGiven, PredictOptions& options)
{
    const Given* pProfile = GivenFind(aGiven, "--profile");
    if (pProfile == nullptr)
        return {};
    // The private-profile service takes a bare name for one in the system's own folder.
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
    const std::vector<Option> aOption = OptionsMake();
    const auto resGiven = GivenGet(asArguments, aOption);
    if (!resGiven)
        return resGiven.ErrorGet();
    const std::vector<Given>& aGiven = resGiven.ValueGet();
    if (const auto res = ModeCheck(aGiven, options); !res)
        return res.ErrorGet();
    if (const auto res = ProfileApply(aGiven, options); !res)
        return res.ErrorGet();
    AirMailFoldersFind();  // positions and the sunspot number may come from there
    for (const Given& given : aGiven) {
        if (const auto res = given.pOption->fnApply(options, given.sValue); !res)
            return RunError{std::string(given.pOption->sName) + ": " + res.TextGet()};
    }
    return options;
}
