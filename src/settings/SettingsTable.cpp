#include "settings/SettingsTable.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>
#include <type_traits>

#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr const char* kAirMail = "AirMail Data";
constexpr const char* kMap = "Map Data";
constexpr const char* kFrequencies = "Propagation Data";
constexpr const char* kModel = "Propagation Model";
constexpr const char* kReceiver = "Receiver Data";
constexpr const char* kTransmitter = "Transmitter Data";

constexpr std::array<std::string_view, 2> kWorldBegins{"0", "-180"};
constexpr std::array<std::string_view, 4> kPalettes{"Standard", "Safe", "Night", "Print"};

// Three keys are written under one name and read under another. Profiles in the field rely on it: a
// saved profile does not restore these three, a hand-edited one does under the read name.
// The keys that this family of programs always had come first; newer keys follow the window's
// place.
// clang-format off
constexpr std::array<SettingRow, 37> kRows{{
    {.member = SettingSpecial::AirMailData, .sSection = kAirMail, .sKey = "Directory Data",
     .sUnit = "folder", .sDefault = R"(C:\Program Files\AirMail)"},
    {.member = SettingSpecial::AirMailProgram, .sSection = kAirMail, .sKey = "Directory Program",
     .sUnit = "folder", .sDefault = R"(C:\Program Files\AirMail)"},
    {.member = &Settings::m_iMapOverlayGridSize, .sSection = kMap, .sKey = "Overlay Grid Size",
     .sUnit = "points a side", .sDefault = "40", .eRule = RangeRule::Offered, .range = kRangeGrid,
     .sControl = "txtMapOverlayGridSize",
     .option = {"--grid", "N", "a number of grid points a side", "points a side",
                OptionGroup::Area, OptionRuns::Area}},
    {.member = &Settings::m_fMapOverlayMinSnr, .sSection = kMap, .sKey = "Overlay Min Snr",
     .sUnit = "dB", .sDefault = "20", .sControl = "txtMapOverlayMinSnr"},
    {.member = &Settings::m_nData, .sSection = kFrequencies, .sKey = "Count",
     .sUnit = "frequencies in use", .sDefault = "15", .eRule = RangeRule::Limit, .range = {0, kFrequencyMax}},
    {.member = SettingSpecial::Frequencies, .sSection = kFrequencies, .sKey = "Frequency 1` ... `Frequency 15",
     .sUnit = "kHz", .sDefault = "2000, 4000 ... 30000", .range = kRangeFrequency},
    {.member = &Settings::m_iPropagationAntennaType, .sSection = kModel, .sKey = "Antenna Type",
     .sUnit = "code of the deck's antenna cards", .sDefault = "1", .eRule = RangeRule::Offered, .range = kRangeAntenna,
     .sControl = "cmbPropagationAntennaType",
     .option = {"--antenna", "0|1|2", "an antenna type", "0 Tx omni, Rc omni; 1 Tx omni, Rc whip; 2 both whip"}},
    {.member = &Settings::m_sPropagationIonCoefficients, .sSection = kModel, .sKey = "Ion Coefficients",
     .sKeyRead = "Ion Coeficients", .sUnit = "`URSI` or `CCIR`", .sDefault = "URSI",
     .sControl = "cmbPropagationIonCoefficients"},
    {.member = &Settings::m_fPropagationLayerAdjustE, .sSection = kModel, .sKey = "Layer Adjust E",
     .sUnit = "factor on foE", .sDefault = "1", .eRule = RangeRule::Drop, .range = kRangeLayer,
     .sControl = "txtPropagationLayerE"},
    {.member = &Settings::m_fPropagationLayerAdjustEs, .sSection = kModel, .sKey = "Layer Adjust Es",
     .sUnit = "factor on foEs", .sDefault = "0.7", .eRule = RangeRule::Drop, .range = kRangeLayer,
     .sControl = "txtPropagationLayerEs"},
    {.member = &Settings::m_fPropagationLayerAdjustF1, .sSection = kModel, .sKey = "Layer Adjust F1",
     .sUnit = "factor on foF1", .sDefault = "1", .eRule = RangeRule::Drop, .range = kRangeLayer,
     .sControl = "txtPropagationLayerF1"},
    {.member = &Settings::m_fPropagationLayerAdjustF2, .sSection = kModel, .sKey = "Layer Adjust F2",
     .sUnit = "factor on foF2", .sDefault = "1", .eRule = RangeRule::Drop, .range = kRangeLayer,
     .sControl = "txtPropagationLayerF2"},
    {.member = &Settings::m_iPropagationModel, .sSection = kModel, .sKey = "Model",
     .sUnit = "1 ICEPAC, 2 VOACAP, 3 REC533", .sDefault = "3", .eRule = RangeRule::Reported, .range = kRangeModel,
     .sControl = "optPropagationModel"},
    {.member = &Settings::m_bPropagationMonth, .sSection = kModel, .sKey = "Month Option",
     .sUnit = "True: the current UTC month at each run", .sDefault = "True", .sControl = "chkPropagationMonth"},
    {.member = &Settings::m_iPropagationMonth, .sSection = kModel, .sKey = "Month Number",
     .sUnit = "month; at first the current one of UTC", .eRule = RangeRule::Reported, .range = kRangeMonth,
     .sControl = "cmbPropagationMonth"},
    {.member = &Settings::m_fPropagationMultipathDelay, .sSection = kModel, .sKey = "Multipath Delay",
     .sUnit = "ms", .sDefault = "10", .eRule = RangeRule::Drop, .range = kRangeMultipathDelay,
     .sControl = "txtPropagationMultipathDelay",
     .option = {"--multipath-delay", "ms", "a multipath delay in ms", "delay tolerance", OptionGroup::EngineComplex}},
    {.member = &Settings::m_fPropagationMultipathPower, .sSection = kModel, .sKey = "Model Multipath Power",
     .sKeyRead = "Multipath Power", .sUnit = "dB", .sDefault = "0", .eRule = RangeRule::Drop,
     .range = kRangeMultipathPower, .sControl = "txtPropagationMultipathPower",
     .option = {"--multipath-power", "dB", "a multipath power tolerance in dB", "power tolerance", OptionGroup::EngineComplex}},
    {.member = &Settings::m_fPropagationNoiseLevel, .sSection = kModel, .sKey = "Noise Level",
     .sUnit = "dBW in 1 Hz at 3 MHz", .sDefault = "-145", .eRule = RangeRule::Drop, .range = kRangeNoise,
     .sControl = "txtPropagationNoiseLevel",
     .option = {"--noise", "dBW", "a noise level in dBW", "man-made noise in 1 Hz at 3 MHz"}},
    {.member = &Settings::m_fPropagationQIndex, .sSection = kModel, .sKey = "Q Index",
     .sUnit = "geomagnetic Q index", .sDefault = "3", .eRule = RangeRule::Drop, .range = kRangeQIndex,
     .sControl = "txtPropagationQIndex",
     .option = {"--q-index", "N", "a Q index", "geomagnetic Q index", OptionGroup::EngineComplex, OptionRuns::Path}},
    {.member = &Settings::m_fPropagationReliability, .sSection = kModel, .sKey = "Reliability",
     .sKeyRead = "Model Reliability", .sUnit = "%", .sDefault = "50", .eRule = RangeRule::Drop,
     .range = kRangeReliability, .sControl = "txtPropagationReliability",
     .option = {"--reliability", "%", "a reliability in %", "required reliability"}},
    {.member = &Settings::m_bPropagationSunSpotNumber, .sSection = kModel, .sKey = "SunSpot Option",
     .sUnit = "True: Airmail's number at each run", .sDefault = "True", .sShipped = "False",
     .sControl = "chkPropagationSunSpotNumber"},
    {.member = &Settings::m_fPropagationSunSpotNumber, .sSection = kModel, .sKey = "SunSpot Number",
     .sUnit = "smoothed sunspot number", .sDefault = "170", .sShipped = "100", .eRule = RangeRule::Drop,
     .range = kRangeSunSpot, .sControl = "txtPropagationSunSpotNumber"},
    {.member = &Settings::m_fPropagationTakeoffAngle, .sSection = kModel, .sKey = "Takeoff Angle",
     .sUnit = "degrees", .sDefault = "3", .eRule = RangeRule::Drop, .range = kRangeTakeoff,
     .sControl = "txtPropagationTakeoffAngle",
     .option = {"--takeoff", "deg", "a takeoff angle", "least takeoff angle"}},
    {.member = &Settings::m_dRcLat, .sSection = kReceiver, .sKey = "Latitude",
     .sUnit = "degrees, north positive", .sDefault = "24", .eRule = RangeRule::DropPair, .range = kRangeLatitude},
    {.member = &Settings::m_dRcLon, .sSection = kReceiver, .sKey = "Longitude",
     .sUnit = "degrees, east positive", .sDefault = "-110", .eRule = RangeRule::DropPair, .range = kRangeLongitude},
    {.member = &Settings::m_iTimeCode, .sSection = "Time Data", .sKey = "Code",
     .sUnit = "hour labels: 0 Zulu, 1 local", .sDefault = "0", .eRule = RangeRule::Offered,
     .range = {kTimeZulu, kTimeLocal}, .sControl = "optTimeCode"},
    {.member = &Settings::m_dTxLat, .sSection = kTransmitter, .sKey = "Latitude",
     .sUnit = "degrees, north positive", .sDefault = "38", .eRule = RangeRule::DropPair, .range = kRangeLatitude},
    {.member = &Settings::m_dTxLon, .sSection = kTransmitter, .sKey = "Longitude",
     .sUnit = "degrees, east positive", .sDefault = "-122", .eRule = RangeRule::DropPair, .range = kRangeLongitude},
    {.member = SettingSpecial::Window, .sSection = "Window Data", .sKey = "Height`, `Left`, `Top`, `Width",
     .sUnit = "twips: pixels times 15, of the outer frame"},
    {.member = &Settings::m_iMapWorldBegins, .sSection = kMap, .sKey = "World Begins",
     .sUnit = "longitude of the world map's left edge", .sDefault = "0", .asChoice = kWorldBegins,
     .sControl = "cmbMapWorldBegins"},
    {.member = &Settings::m_bPropagationMapsMean, .sSection = kModel, .sKey = "Maps Option",
     .sUnit = "True: the built-in engine takes the mean of the CCIR and URSI maps; the other engines "
              "`Ion Coeficients` in any case",
     .sDefault = "True", .sControl = "chkPropagationMaps"},
    {.member = &Settings::m_bPropagationForecast, .sSection = kModel, .sKey = "Forecast Option",
     .sUnit = "True: the forecast's sunspot number, where Airmail's is not taken", .sDefault = "False", .sShipped = "True",
     .bStays = true, .sControl = "chkPropagationForecast"},
    {.member = &Settings::m_fStationPower, .sSection = "Station Data", .sKey = "Power",
     .sUnit = "W; 0: the power of the antenna choice", .sDefault = "0", .sShipped = "100", .eRule = RangeRule::Drop,
     .range = kRangePower, .bStays = true, .sControl = "txtStationPower",
     .option = {"--power", "W", "a power in W", "own power; 0 is the antenna choice's"}},
    {.member = &Settings::m_sNeedSelected, .sSection = "Need Data", .sKey = "Selected",
     .sUnit = "name of the need in force; empty: none"},
    {.member = SettingSpecial::Needs, .sSection = "Need Data",
     .sKey = "Count`, `Name 1`, `Snr 1`, `Source 1` ... `Source 50",
     .sUnit = "what contacts are for: name, dB in 1 Hz, where the number comes from; at first Hopcast's list",
     .range = kRangeNeed, .bStays = true},
    {.member = &Settings::m_ePalette, .sSection = "Colour Data", .sKey = "Palette",
     .sUnit = "colours of the SNR", .sDefault = "Standard", .asChoice = kPalettes, .bStays = true,
     .sControl = "cmbPalette"},
    {.member = SettingSpecial::PlanWindows, .sSection = "NAME Window Data", .sKey = "Height`, `Left`, `Top`, `Width",
     .sUnit = "twips, as above; of the planning windows: NAME is Reach, Curves, Days, Compare, Card or Places",
     .bStays = true},
}};
// clang-format on

bool ChoiceIs(const SettingRow& row, const std::string& sText)
{
    return row.asChoice.empty()
           || std::find(row.asChoice.begin(), row.asChoice.end(), sText) != row.asChoice.end();
}

bool ValueTake(const SettingRow& row, std::string_view sText, int& iValue)
{
    const auto res = NumberFromTextLenient(sText);
    if (!res || res.ValueGet() < std::numeric_limits<int>::min()
        || res.ValueGet() > std::numeric_limits<int>::max())
        return false;
    int iTaken = RoundHalfEven(res.ValueGet());
    if (!ChoiceIs(row, NumberToText(iTaken)))
        return false;
    if (row.eRule == RangeRule::Limit)
        iTaken = std::clamp(iTaken, static_cast<int>(row.range.dLeast),
                            static_cast<int>(row.range.dMost));
    iValue = iTaken;
    return true;
}

bool ValueTake(const SettingRow& row, std::string_view sText, float& fValue)
{
    constexpr double kMost = std::numeric_limits<float>::max();
    const auto res = NumberFromTextLenient(sText);
    if (!res || !std::isfinite(res.ValueGet()))
        return false;
    // If there is a range, a number too large for the member is out of range, not unreadable.
    if (row.eRule == RangeRule::Any && std::abs(res.ValueGet()) > kMost)
        return false;
    fValue = static_cast<float>(std::clamp(res.ValueGet(), -kMost, kMost));
    return true;
}

bool ValueTake(const SettingRow& /*row*/, std::string_view sText, double& dValue)
{
    const auto res = NumberFromTextLenient(sText);
    if (!res || !std::isfinite(res.ValueGet()))
        return false;
    dValue = res.ValueGet();
    return true;
}

bool ValueTake(const SettingRow& /*row*/, std::string_view sText, bool& bValue)
{
    const std::string_view sWord = TextTrim(sText);
    const auto res = NumberFromTextLenient(sWord);
    if (TextEqualNoCase(sWord, "True"))
        bValue = true;
    else if (TextEqualNoCase(sWord, "False"))
        bValue = false;
    else if (res)
        bValue = res.ValueGet() != 0.0;
    else
        return false;
    return true;
}

bool ValueTake(const SettingRow& /*row*/, std::string_view sText, std::string& sValue)
{
    sValue = sText;
    return true;
}

bool ValueTake(const SettingRow& row, std::string_view sText, Palette& ePalette)
{
    const auto it = std::find_if(row.asChoice.begin(), row.asChoice.end(), [&](auto sChoice) {
        return TextEqualNoCase(sChoice, TextTrim(sText));
    });
    if (it == row.asChoice.end())
        return false;
    ePalette = static_cast<Palette>(it - row.asChoice.begin());
    return true;
}

std::string ValueText(const SettingRow& /*row*/, int iValue) { return NumberToText(iValue); }
std::string ValueText(const SettingRow& /*row*/, float fValue) { return NumberToText(fValue); }
std::string ValueText(const SettingRow& /*row*/, double dValue) { return NumberToText(dValue); }
std::string ValueText(const SettingRow& /*row*/, bool bValue) { return bValue ? "True" : "False"; }
std::string ValueText(const SettingRow& /*row*/, const std::string& sValue) { return sValue; }
std::string ValueText(const SettingRow& row, Palette ePalette)
{
    return std::string(row.asChoice[static_cast<std::size_t>(ePalette)]);
}

}  // namespace

std::span<const SettingRow> SettingsTableGet() { return kRows; }

const SettingRow& SettingRowGet(const SettingMember& member)
{
    const auto it = std::find_if(kRows.begin(), kRows.end(),
                                 [&](const SettingRow& row) { return row.member == member; });
    assert(it != kRows.end());
    return *it;
}

std::string SettingRangeText(const SettingRow& row)
{
    std::string sText;
    for (const std::string_view sChoice : row.asChoice)
        sText += (sText.empty() ? "" : ", ") + std::string(sChoice);
    if (row.range.dLeast < row.range.dMost)
        sText = NumberToText(row.range.dLeast) + " to " + NumberToText(row.range.dMost);
    return sText;
}

std::string SettingHelpText(const SettingRow& row)
{
    std::string sText = row.option.sHelp;
    // An option's value such as "0|1|2" already lists the numbers.
    if (std::string_view(row.option.sValue).find('|') == std::string_view::npos)
        sText += ", " + SettingRangeText(row);
    return sText + " (default " + row.sDefault + ")";
}

std::string SettingToText(const SettingRow& row, const Settings& settings)
{
    return std::visit(
        [&](auto member) -> std::string {
            if constexpr (std::is_same_v<decltype(member), SettingSpecial>)
                return "";
            else
                return ValueText(row, settings.*member);
        },
        row.member);
}

bool SettingFromText(const SettingRow& row, std::string_view sText, Settings& settings)
{
    return std::visit(
        [&](auto member) {
            if constexpr (std::is_same_v<decltype(member), SettingSpecial>)
                return false;
            else
                return ValueTake(row, sText, settings.*member);
        },
        row.member);
}

void SettingCopy(const SettingRow& row, const Settings& from, Settings& to)
{
    std::visit(
        [&](auto member) {
            if constexpr (!std::is_same_v<decltype(member), SettingSpecial>)
                to.*member = from.*member;
        },
        row.member);
}

void SettingsDefaultSet(Settings& settings)
{
    const Settings before = settings;
    settings.Initialize();
    for (const SettingRow& row : kRows) {
        if (row.bStays)
            SettingCopy(row, before, settings);
    }
    settings.m_sProfileFile = before.m_sProfileFile;
    settings.m_aNeed = before.m_aNeed;
    if (settings.m_bPropagationForecast)
        settings.m_bPropagationSunSpotNumber = false;
}
