#include "settings/ProfileLib.h"

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "airmail/AirMailFolders.h"
#include "system/ErrorTextLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/TextLib.h"

namespace {

constexpr int kBufferSize = 256;

constexpr const char* kAirMail = "AirMail Data";
constexpr const char* kMap = "Map Data";
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
    explicit Reader(std::string sFile) : m_sFile(std::move(sFile)) {}

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
        return PrivateProfileGet(sSection, sKey, "", kBufferSize, m_sFile);
    }

private:
    std::string m_sFile;
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
    reader.Single(kModel, "Layer Adjust E", settings.m_fPropagationLayerAdjustE);
    reader.Single(kModel, "Layer Adjust Es", settings.m_fPropagationLayerAdjustEs);
    reader.Single(kModel, "Layer Adjust F1", settings.m_fPropagationLayerAdjustF1);
    reader.Single(kModel, "Layer Adjust F2", settings.m_fPropagationLayerAdjustF2);
    reader.Integer(kModel, "Model", settings.m_iPropagationModel);
    reader.Boolean(kModel, "Month Option", settings.m_bPropagationMonth);
    reader.Integer(kModel, "Month Number", settings.m_iPropagationMonth);
    reader.Single(kModel, "Multipath Delay", settings.m_fPropagationMultipathDelay);
    reader.Single(kModel, kMultipathPowerRead, settings.m_fPropagationMultipathPower);
    reader.Single(kModel, "Noise Level", settings.m_fPropagationNoiseLevel);
    reader.Single(kModel, "Q Index", settings.m_fPropagationQIndex);
    reader.Single(kModel, kReliabilityRead, settings.m_fPropagationReliability);
    reader.Boolean(kModel, "SunSpot Option", settings.m_bPropagationSunSpotNumber);
    reader.Single(kModel, "SunSpot Number", settings.m_fPropagationSunSpotNumber);
    reader.Single(kModel, "Takeoff Angle", settings.m_fPropagationTakeoffAngle);
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

/// Writes keys to one file until one fails.
class Writer {
public:
    explicit Writer(const std::string& sFile) : m_sFile(sFile), m_nError(ProfileFolderMake(sFile))
    {
    }

    void Text(const char* sSection, const std::string& sKey, const std::string& sValue)
    {
        if (m_nError == 0)
            m_nError = PrivateProfileWrite(sSection, sKey, sValue, m_sFile);
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
    [[nodiscard]] int ErrorGet() const { return m_nError; }

private:
    std::string m_sFile;
    int m_nError;
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

void ProfileLoad(Settings& settings, const WindowApplyFn& fnWindowApply)
{
    const Reader reader(ProfileFileToRead(settings.m_sProfileFile));
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
    WindowLoad(reader, fnWindowApply);
}

bool ProfileSave(const Settings& settings, const std::optional<WindowData>& window)
{
    Writer writer(settings.m_sProfileFile);
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
    if (writer.ErrorGet() == 0)
        return true;
    ProfileSaveError(settings, writer.ErrorGet());
    return false;
}

void ProfileSaveError(const Settings& settings, int nErrorCode)
{
    MsgBox(MsgIcon::Info, "Problem with initialization file " + settings.m_sProfileFile + ", "
                              + SystemErrorText(nErrorCode));
}
