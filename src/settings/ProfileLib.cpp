#include "settings/ProfileLib.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "airmail/AirMailFolders.h"
#include "settings/SettingsRange.h"
#include "system/DrivePath.h"
#include "system/ErrorTextLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/TextLib.h"

namespace {

constexpr int kBufferSize = 256;

constexpr const char* kAirMail = "AirMail Data";
constexpr const char* kMap = "Map Data";
constexpr const char* kMapsOption = "Maps Option";
constexpr const char* kWorldBegins = "World Begins";
constexpr const char* kFrequencies = "Propagation Data";
constexpr const char* kModel = "Propagation Model";
constexpr const char* kReceiver = "Receiver Data";
constexpr const char* kTime = "Time Data";
constexpr const char* kTransmitter = "Transmitter Data";
constexpr const char* kWindow = "Window Data";

// Three keys are written under one name and read under another. Profiles in the field rely on it: a
// saved profile does not bring these three back, a hand-edited one does under the read name.
constexpr const char* kCoefficientsWritten = "Ion Coefficients";
constexpr const char* kCoefficientsRead = "Ion Coeficients";
constexpr const char* kMultipathPowerWritten = "Model Multipath Power";
constexpr const char* kMultipathPowerRead = "Multipath Power";
constexpr const char* kReliabilityWritten = "Reliability";
constexpr const char* kReliabilityRead = "Model Reliability";

std::string FrequencyKey(int iIndex) { return "Frequency " + NumberToText(iIndex); }

/// Reads keys of one file into members; what is missing or unreadable leaves them alone.
class Reader {
public:
    explicit Reader(PrivateProfile file) : m_file(std::move(file)) {}

    void Text(const char* sSection, const char* sKey, std::string& sValue) const
    {
        std::string sText = Get(sSection, sKey);
        if (!sText.empty())
            sValue = std::move(sText);
    }

    void Double(const char* sSection, const char* sKey, double& dValue) const
    {
        const auto res = NumberFromTextLenient(Get(sSection, sKey));
        if (res && std::isfinite(res.ValueGet()))
            dValue = res.ValueGet();
    }

    void Single(const char* sSection, const std::string& sKey, float& fValue) const
    {
        const auto res = NumberFromTextLenient(Get(sSection, sKey));
        if (res && std::abs(res.ValueGet()) <= std::numeric_limits<float>::max())
            fValue = static_cast<float>(res.ValueGet());
    }

    /// A member with a range; a number too great for it is the greatest, which is out of range too.
    void Ranged(const char* sKey, float& fValue) const
    {
        constexpr double kMost = std::numeric_limits<float>::max();
        const auto res = NumberFromTextLenient(Get(kModel, sKey));
        if (res && std::isfinite(res.ValueGet()))
            fValue = static_cast<float>(std::clamp(res.ValueGet(), -kMost, kMost));
    }

    void Integer(const char* sSection, const char* sKey, int& iValue) const
    {
        const auto res = NumberFromTextLenient(Get(sSection, sKey));
        if (res && res.ValueGet() >= std::numeric_limits<int>::min()
            && res.ValueGet() <= std::numeric_limits<int>::max())
            iValue = RoundHalfEven(res.ValueGet());
    }

    void Boolean(const char* sSection, const char* sKey, bool& bValue) const
    {
        const std::string sText = Get(sSection, sKey);
        const std::string_view sWord = TextTrim(sText);
        if (TextEqualNoCase(sWord, "True"))
            bValue = true;
        else if (TextEqualNoCase(sWord, "False"))
            bValue = false;
        else if (const auto res = NumberFromTextLenient(sWord))
            bValue = res.ValueGet() != 0.0;
    }

    [[nodiscard]] std::string Get(const char* sSection, const std::string& sKey) const
    {
        return m_file.Get(sSection, sKey, "", kBufferSize);
    }

private:
    PrivateProfile m_file;
};

void FrequenciesLoad(const Reader& reader, Settings& settings)
{
    int nCount = settings.m_nData;
    reader.Integer(kFrequencies, "Count", nCount);
    settings.m_nData = nCount < 0 ? 0 : nCount > kFrequencyMax ? kFrequencyMax : nCount;
    for (int i = 1; i <= settings.m_nData; ++i) {
        float fFrequency = settings.FrequencyGet(i);
        reader.Single(kFrequencies, FrequencyKey(i), fFrequency);
        settings.FrequencySet(i, fFrequency);
    }
}

void ModelLoad(const Reader& reader, Settings& settings)
{
    reader.Integer(kModel, "Antenna Type", settings.m_iPropagationAntennaType);
    reader.Text(kModel, kCoefficientsRead, settings.m_sPropagationIonCoefficients);
    reader.Ranged("Layer Adjust E", settings.m_fPropagationLayerAdjustE);
    reader.Ranged("Layer Adjust Es", settings.m_fPropagationLayerAdjustEs);
    reader.Ranged("Layer Adjust F1", settings.m_fPropagationLayerAdjustF1);
    reader.Ranged("Layer Adjust F2", settings.m_fPropagationLayerAdjustF2);
    reader.Integer(kModel, "Model", settings.m_iPropagationModel);
    reader.Boolean(kModel, "Month Option", settings.m_bPropagationMonth);
    reader.Integer(kModel, "Month Number", settings.m_iPropagationMonth);
    reader.Ranged("Multipath Delay", settings.m_fPropagationMultipathDelay);
    reader.Ranged(kMultipathPowerRead, settings.m_fPropagationMultipathPower);
    reader.Ranged("Noise Level", settings.m_fPropagationNoiseLevel);
    reader.Ranged("Q Index", settings.m_fPropagationQIndex);
    reader.Ranged(kReliabilityRead, settings.m_fPropagationReliability);
    reader.Boolean(kModel, "SunSpot Option", settings.m_bPropagationSunSpotNumber);
    reader.Ranged("SunSpot Number", settings.m_fPropagationSunSpotNumber);
    reader.Ranged("Takeoff Angle", settings.m_fPropagationTakeoffAngle);
}

void WorldBeginsLoad(const Reader& reader, Settings& settings)
{
    int iWorldBegins = settings.m_iMapWorldBegins;
    reader.Integer(kMap, kWorldBegins, iWorldBegins);
    if (iWorldBegins == 0 || iWorldBegins == -180)
        settings.m_iMapWorldBegins = iWorldBegins;
}

void WindowLoad(const Reader& reader, const WindowApplyFn& fnWindowApply)
{
    struct Row {
        const char* sKey;
        WindowKey eKey;
    };
    for (const Row& row : {Row{"Height", WindowKey::Height}, Row{"Left", WindowKey::Left},
                           Row{"Top", WindowKey::Top}, Row{"Width", WindowKey::Width}}) {
        float fTwips = std::numeric_limits<float>::quiet_NaN();
        reader.Single(kWindow, row.sKey, fTwips);
        if (!std::isnan(fTwips) && fnWindowApply)
            fnWindowApply(row.eKey, fTwips);
    }
}

struct RangedNumber {
    const char* sKey;  // as it is read
    float Settings::*pMember;
};

constexpr std::array<RangedNumber, 11> kRangedNumbers{{
    {"Layer Adjust E", &Settings::m_fPropagationLayerAdjustE},
    {"Layer Adjust Es", &Settings::m_fPropagationLayerAdjustEs},
    {"Layer Adjust F1", &Settings::m_fPropagationLayerAdjustF1},
    {"Layer Adjust F2", &Settings::m_fPropagationLayerAdjustF2},
    {"Multipath Delay", &Settings::m_fPropagationMultipathDelay},
    {kMultipathPowerRead, &Settings::m_fPropagationMultipathPower},
    {"Noise Level", &Settings::m_fPropagationNoiseLevel},
    {"Q Index", &Settings::m_fPropagationQIndex},
    {kReliabilityRead, &Settings::m_fPropagationReliability},
    {"SunSpot Number", &Settings::m_fPropagationSunSpotNumber},
    {"Takeoff Angle", &Settings::m_fPropagationTakeoffAngle},
}};

struct RangedPlace {
    const char* sSection;
    double Settings::*pLat;
    double Settings::*pLon;
};

constexpr std::array<RangedPlace, 2> kRangedPlaces{
    {{kReceiver, &Settings::m_dRcLat, &Settings::m_dRcLon},
     {kTransmitter, &Settings::m_dTxLat, &Settings::m_dTxLon}}};

template <class T>
std::string FaultText(const char* sSection, const std::string& sKey, T dValue,
                      const NumberRange& range)
{
    return std::string("[") + sSection + "] " + sKey + ": " + RangeFaultText(dValue, range);
}

/// Puts back what lies out of range. @return a line for each value.
std::vector<std::string> FaultsDrop(const Settings& before, Settings& settings)
{
    std::vector<std::string> asDropped;
    const auto Holds = [&](const char* sSection, const char* sKey, auto dValue,
                           const NumberRange& range) {
        if (!range.Holds(dValue))
            asDropped.push_back(FaultText(sSection, sKey, dValue, range));
        return range.Holds(dValue);
    };
    for (const RangedNumber& num : kRangedNumbers) {
        if (!Holds(kModel, num.sKey, settings.*num.pMember, SettingsRangeGet(num.pMember)))
            settings.*num.pMember = before.*num.pMember;
    }
    for (const RangedPlace& place : kRangedPlaces) {
        const bool bLat = Holds(place.sSection, "Latitude", settings.*place.pLat, kRangeLatitude);
        const bool bLon = Holds(place.sSection, "Longitude", settings.*place.pLon, kRangeLongitude);
        if (bLat && bLon)
            continue;
        settings.*place.pLat = before.*place.pLat;
        settings.*place.pLon = before.*place.pLon;
    }
    return asDropped;
}

/// Gathers keys for one file.
class Writer {
public:
    void Text(const char* sSection, const std::string& sKey, const std::string& sValue)
    {
        m_aValue.push_back({sSection, sKey, sValue});
    }
    template <class T>
    void Number(const char* sSection, const std::string& sKey, T value)
    {
        Text(sSection, sKey, NumberToText(value));
    }
    void Boolean(const char* sSection, const std::string& sKey, bool bValue)
    {
        Text(sSection, sKey, bValue ? "True" : "False");
    }
    /// @return 0, or the system's error code.
    [[nodiscard]] int Write(const std::string& sFile) const
    {
        const int nError = ProfileFolderMake(sFile);
        return nError != 0 ? nError : PrivateProfileWriteAll(m_aValue, DrivePath(sFile));
    }

private:
    std::vector<PrivateProfileValue> m_aValue;
};

void ModelSave(Writer& writer, const Settings& settings)
{
    writer.Number(kModel, "Antenna Type", settings.m_iPropagationAntennaType);
    writer.Text(kModel, kCoefficientsWritten, settings.m_sPropagationIonCoefficients);
    writer.Number(kModel, "Layer Adjust E", settings.m_fPropagationLayerAdjustE);
    writer.Number(kModel, "Layer Adjust Es", settings.m_fPropagationLayerAdjustEs);
    writer.Number(kModel, "Layer Adjust F1", settings.m_fPropagationLayerAdjustF1);
    writer.Number(kModel, "Layer Adjust F2", settings.m_fPropagationLayerAdjustF2);
    writer.Number(kModel, "Model", settings.m_iPropagationModel);
    writer.Boolean(kModel, "Month Option", settings.m_bPropagationMonth);
    writer.Number(kModel, "Month Number", settings.m_iPropagationMonth);
    writer.Number(kModel, "Multipath Delay", settings.m_fPropagationMultipathDelay);
    writer.Number(kModel, kMultipathPowerWritten, settings.m_fPropagationMultipathPower);
    writer.Number(kModel, "Noise Level", settings.m_fPropagationNoiseLevel);
    writer.Number(kModel, "Q Index", settings.m_fPropagationQIndex);
    writer.Number(kModel, kReliabilityWritten, settings.m_fPropagationReliability);
    writer.Boolean(kModel, "SunSpot Option", settings.m_bPropagationSunSpotNumber);
    writer.Number(kModel, "SunSpot Number", settings.m_fPropagationSunSpotNumber);
    writer.Number(kModel, "Takeoff Angle", settings.m_fPropagationTakeoffAngle);
}

void WindowSave(Writer& writer, const WindowData& window)
{
    writer.Number(kWindow, "Height", window.fHeight);
    writer.Number(kWindow, "Left", window.fLeft);
    writer.Number(kWindow, "Top", window.fTop);
    writer.Number(kWindow, "Width", window.fWidth);
}

}  // namespace

Result<std::vector<std::string>> ProfileLoad(Settings& settings, const WindowApplyFn& fnWindowApply,
                                             ProfileRanges eRanges)
{
    auto resFile = PrivateProfile::Open(DrivePath(ProfileFileToRead(settings.m_sProfileFile)));
    if (!resFile)
        return resFile.ErrorGet();
    const Reader reader(std::move(resFile.ValueGet()));
    const Settings before = settings;
    std::string sFolder = AirMailDataFolderGet();
    reader.Text(kAirMail, "Directory Data", sFolder);
    AirMailDataFolderSet(sFolder);
    sFolder = AirMailProgramFolderGet();
    reader.Text(kAirMail, "Directory Program", sFolder);
    AirMailProgramFolderSet(sFolder);
    reader.Integer(kMap, "Overlay Grid Size", settings.m_iMapOverlayGridSize);
    reader.Single(kMap, "Overlay Min Snr", settings.m_fMapOverlayMinSnr);
    FrequenciesLoad(reader, settings);
    ModelLoad(reader, settings);
    reader.Double(kReceiver, "Latitude", settings.m_dRcLat);
    reader.Double(kReceiver, "Longitude", settings.m_dRcLon);
    reader.Integer(kTime, "Code", settings.m_iTimeCode);
    reader.Double(kTransmitter, "Latitude", settings.m_dTxLat);
    reader.Double(kTransmitter, "Longitude", settings.m_dTxLon);
    std::vector<std::string> asDropped;
    if (eRanges == ProfileRanges::Drop)
        asDropped = FaultsDrop(before, settings);
    WindowLoad(reader, fnWindowApply);
    WorldBeginsLoad(reader, settings);
    reader.Boolean(kModel, kMapsOption, settings.m_bPropagationMapsMean);
    return asDropped;
}

void ProfileShippedSet(Settings& settings)
{
    constexpr float kSunSpotNumber = 100.0F;
    const std::string sProfileFile = settings.m_sProfileFile;
    settings.Initialize();
    settings.m_sProfileFile = sProfileFile;
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_fPropagationSunSpotNumber = kSunSpotNumber;
}

std::vector<std::string> SettingsFaultsGet(const Settings& settings, bool bFrequencies)
{
    std::vector<std::string> asFault;
    const auto Check = [&](const char* sSection, const std::string& sKey, auto dValue,
                           const NumberRange& range) {
        if (!range.Holds(dValue))
            asFault.push_back(FaultText(sSection, sKey, dValue, range));
    };
    for (int i = 1; bFrequencies && i <= settings.m_nData; ++i)
        Check(kFrequencies, FrequencyKey(i), settings.FrequencyGet(i), kRangeFrequency);
    Check(kModel, "Model", static_cast<double>(settings.m_iPropagationModel), kRangeModel);
    Check(kModel, "Month Number", static_cast<double>(settings.m_iPropagationMonth), kRangeMonth);
    for (const RangedNumber& num : kRangedNumbers)
        Check(kModel, num.sKey, settings.*num.pMember, SettingsRangeGet(num.pMember));
    for (const RangedPlace& place : kRangedPlaces) {
        Check(place.sSection, "Latitude", settings.*place.pLat, kRangeLatitude);
        Check(place.sSection, "Longitude", settings.*place.pLon, kRangeLongitude);
    }
    return asFault;
}

bool ProfileSave(const Settings& settings, const std::optional<WindowData>& window,
                 Messages* paMessages)
{
    Writer writer;
    writer.Text(kAirMail, "Directory Data", AirMailDataFolderGet());
    writer.Text(kAirMail, "Directory Program", AirMailProgramFolderGet());
    writer.Number(kMap, "Overlay Grid Size", settings.m_iMapOverlayGridSize);
    writer.Number(kMap, "Overlay Min Snr", settings.m_fMapOverlayMinSnr);
    writer.Number(kFrequencies, "Count", settings.m_nData);
    for (int i = 1; i <= settings.m_nData; ++i)
        writer.Number(kFrequencies, FrequencyKey(i), settings.FrequencyGet(i));
    ModelSave(writer, settings);
    writer.Number(kReceiver, "Latitude", settings.m_dRcLat);
    writer.Number(kReceiver, "Longitude", settings.m_dRcLon);
    writer.Number(kTime, "Code", settings.m_iTimeCode);
    writer.Number(kTransmitter, "Latitude", settings.m_dTxLat);
    writer.Number(kTransmitter, "Longitude", settings.m_dTxLon);
    if (window)
        WindowSave(writer, *window);
    writer.Number(kMap, kWorldBegins, settings.m_iMapWorldBegins);
    writer.Boolean(kModel, kMapsOption, settings.m_bPropagationMapsMean);
    const int nError = writer.Write(settings.m_sProfileFile);
    if (nError != 0 && paMessages != nullptr)
        paMessages->push_back(ProfileSaveError(settings, nError));
    return nError == 0;
}

Message ProfileSaveError(const Settings& settings, int nErrorCode)
{
    return {MsgIcon::Info, "Problem with initialization file " + settings.m_sProfileFile + ", "
                               + SystemErrorText(nErrorCode)};
}
