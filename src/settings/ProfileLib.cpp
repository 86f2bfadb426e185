#include "settings/ProfileLib.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "airmail/AirMailFolders.h"
#include "settings/SettingsTable.h"
#include "system/DrivePath.h"
#include "system/ErrorTextLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"

namespace {

constexpr int kBufferSize = 256;

constexpr const char* kFrequencies = "Propagation Data";
constexpr const char* kNeed = "Need Data";
constexpr const char* kWindow = "Window Data";

std::string IndexedKey(const char* sKey, int iIndex)
{
    return std::string(sKey) + " " + NumberToText(iIndex);
}

/// One file's values; "" for a missing key.
class Reader {
public:
    explicit Reader(PrivateProfile file) : m_file(std::move(file)) {}

    [[nodiscard]] std::string Get(const char* sSection, const std::string& sKey) const
    {
        return m_file.Get(sSection, sKey, "", kBufferSize);
    }
    /// True when the key exists, even without a value.
    [[nodiscard]] bool Has(const char* sSection, const std::string& sKey) const
    {
        return m_file.Get(sSection, sKey, "1", kBufferSize)
               == m_file.Get(sSection, sKey, "2", kBufferSize);
    }
    /// @return false unless the key has a number that fits a single.
    bool Single(const char* sSection, const std::string& sKey, float& fValue) const
    {
        const auto res = NumberFromTextLenient(Get(sSection, sKey));
        if (!res || !(std::abs(res.ValueGet()) <= std::numeric_limits<float>::max()))
            return false;
        fValue = static_cast<float>(res.ValueGet());
        return true;
    }

private:
    PrivateProfile m_file;
};

/// Reads as many as are in use; their count has been read before.
void FrequenciesLoad(const Reader& reader, Settings& settings)
{
    for (int i = 1; i <= settings.m_nData; ++i) {
        float fFrequency = settings.FrequencyGet(i);
        reader.Single(kFrequencies, IndexedKey("Frequency", i), fFrequency);
        settings.FrequencySet(i, fFrequency);
    }
}

/// Reads the whole list or, without a count, none of it. An invalid entry is left out.
void NeedsLoad(const Reader& reader, Settings& settings)
{
    float fCount = 0.0F;
    if (!reader.Single(kNeed, "Count", fCount))
        return;
    const int nCount = RoundHalfEven(std::clamp(fCount, 0.0F, static_cast<float>(kNeedMax)));
    settings.m_aNeed.clear();
    for (int i = 1; i <= nCount; ++i) {
        Need need;
        need.sName = reader.Get(kNeed, IndexedKey("Name", i));
        need.sSource = reader.Get(kNeed, IndexedKey("Source", i));
        if (reader.Single(kNeed, IndexedKey("Snr", i), need.fSnr))
            (void)NeedAdd(settings.m_aNeed, need);
    }
}

struct WindowRow {
    const char* sKey;
    WindowKey eKey;
    float WindowData::*pMember;
};

constexpr std::array<WindowRow, 4> kWindowRows{{{"Height", WindowKey::Height, &WindowData::fHeight},
                                                {"Left", WindowKey::Left, &WindowData::fLeft},
                                                {"Top", WindowKey::Top, &WindowData::fTop},
                                                {"Width", WindowKey::Width, &WindowData::fWidth}}};

void WindowLoad(const Reader& reader, const WindowApplyFn& fnWindowApply)
{
    for (const WindowRow& row : kWindowRows) {
        float fTwips = 0.0F;
        if (reader.Single(kWindow, row.sKey, fTwips) && fnWindowApply)
            fnWindowApply(row.eKey, fTwips);
    }
}

std::string PlanSection(std::size_t iPlan)
{
    return std::string(kPlanNames.at(iPlan)) + " " + kWindow;
}

/// A window's place counts only if all its values are there.
void PlanWindowsLoad(const Reader& reader, Settings& settings)
{
    for (std::size_t n = 0; n < kPlanNames.size(); ++n) {
        const std::string sSection = PlanSection(n);
        WindowData data;
        if (std::all_of(kWindowRows.begin(), kWindowRows.end(), [&](const WindowRow& row) {
                return reader.Single(sSection.c_str(), row.sKey, data.*row.pMember);
            }))
            settings.m_aPlanWindow.at(n) = data;
    }
}

void SpecialLoad(const SettingRow& row, const Reader& reader, Settings& settings,
                 const WindowApplyFn& fnWindowApply)
{
    const std::string sText = reader.Get(row.sSection, row.KeyRead());
    switch (std::get<SettingSpecial>(row.member)) {
        case SettingSpecial::AirMailData:
            return AirMailDataFolderSet(sText.empty() ? AirMailDataFolderGet() : sText);
        case SettingSpecial::AirMailProgram:
            return AirMailProgramFolderSet(sText.empty() ? AirMailProgramFolderGet() : sText);
        case SettingSpecial::Frequencies:
            return FrequenciesLoad(reader, settings);
        case SettingSpecial::Window:
            return WindowLoad(reader, fnWindowApply);
        case SettingSpecial::Needs:
            return NeedsLoad(reader, settings);
        case SettingSpecial::PlanWindows:
            return PlanWindowsLoad(reader, settings);
    }
}

void RowLoad(const SettingRow& row, const Reader& reader, Settings& settings)
{
    const std::string sText = reader.Get(row.sSection, row.KeyRead());
    // A key without a value counts only if the setting may be empty.
    const bool bMayBeEmpty = std::holds_alternative<std::string Settings::*>(row.member)
                             && std::string_view(row.sDefault).empty();
    if (!sText.empty() || (bMayBeEmpty && reader.Has(row.sSection, row.KeyRead())))
        SettingFromText(row, sText, settings);
}

/// A value of the settings that is outside its range.
struct Fault {
    const SettingRow* pRow;
    std::string sText;
};

template <class T>
std::string FaultText(const char* sSection, const std::string& sKey, T value,
                      const NumberRange& range)
{
    return std::string("[") + sSection + "] " + sKey + ": " + RangeFaultText(value, range);
}

/// The numbers out of range, without the frequencies.
std::vector<Fault> FaultsFind(const Settings& settings)
{
    std::vector<Fault> aFault;
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.eRule != RangeRule::Reported && row.eRule != RangeRule::Drop
            && row.eRule != RangeRule::DropPair)
            continue;
        const auto Check = [&](auto value) {
            if (!row.range.Holds(value))
                aFault.push_back({&row, FaultText(row.sSection, row.KeyRead(), value, row.range)});
        };
        if (const auto* ppInteger = std::get_if<int Settings::*>(&row.member))
            Check(static_cast<double>(settings.*(*ppInteger)));
        else if (const auto* ppSingle = std::get_if<float Settings::*>(&row.member))
            Check(settings.*(*ppSingle));
        else if (const auto* ppDouble = std::get_if<double Settings::*>(&row.member))
            Check(settings.*(*ppDouble));
    }
    return aFault;
}

/// Restores the previous value of what is out of range. @return a line for each value.
std::vector<std::string> FaultsDrop(const Settings& before, Settings& settings)
{
    std::vector<std::string> asDropped;
    for (const Fault& fault : FaultsFind(settings)) {
        const RangeRule eRule = fault.pRow->eRule;
        if (eRule == RangeRule::Reported)
            continue;
        for (const SettingRow& row : SettingsTableGet()) {
            const bool bOther = eRule == RangeRule::DropPair && row.eRule == eRule
                                && std::string_view(row.sSection) == fault.pRow->sSection;
            if (&row == fault.pRow || bOther)
                SettingCopy(row, before, settings);
        }
        asDropped.push_back(fault.sText);
    }
    return asDropped;
}

/// A text that is read back unchanged: reading drops one pair of quotes around a value.
std::string InQuotesWhereNeeded(const std::string& sText)
{
    const bool bPair = sText.size() >= 2 && sText.front() == '\'' && sText.back() == '\'';
    return bPair ? '"' + sText + '"' : sText;
}

/// Collects keys for one file.
class Writer {
public:
    void Text(const char* sSection, const std::string& sKey, const std::string& sValue)
    {
        // Folders are written as typed: one typed in quotes loses them when read, as it should.
        const bool bNeed = std::string_view(sSection) == kNeed;
        m_aValue.push_back({sSection, sKey, bNeed ? InQuotesWhereNeeded(sValue) : sValue});
    }
    template <class T>
    void Number(const char* sSection, const std::string& sKey, T value)
    {
        Text(sSection, sKey, NumberToText(value));
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

void FrequenciesSave(Writer& writer, const Settings& settings)
{
    for (int i = 1; i <= settings.m_nData; ++i)
        writer.Number(kFrequencies, IndexedKey("Frequency", i), settings.FrequencyGet(i));
}

void NeedsSave(Writer& writer, const Settings& settings)
{
    const int nCount = std::min(static_cast<int>(settings.m_aNeed.size()), kNeedMax);
    writer.Number(kNeed, "Count", nCount);
    for (int i = 1; i <= nCount; ++i) {
        const Need& need = settings.m_aNeed[static_cast<std::size_t>(i - 1)];
        writer.Text(kNeed, IndexedKey("Name", i), need.sName);
        writer.Number(kNeed, IndexedKey("Snr", i), need.fSnr);
        writer.Text(kNeed, IndexedKey("Source", i), need.sSource);
    }
}

void WindowSave(Writer& writer, const std::string& sSection, const std::optional<WindowData>& data)
{
    for (const WindowRow& row : kWindowRows) {
        if (data)
            writer.Number(sSection.c_str(), row.sKey, (*data).*row.pMember);
    }
}

void PlanWindowsSave(Writer& writer, const Settings& settings)
{
    for (std::size_t n = 0; n < kPlanNames.size(); ++n)
        WindowSave(writer, PlanSection(n), settings.m_aPlanWindow.at(n));
}

void SpecialSave(const SettingRow& row, Writer& writer, const Settings& settings,
                 const std::optional<WindowData>& window)
{
    switch (std::get<SettingSpecial>(row.member)) {
        case SettingSpecial::AirMailData:
            return writer.Text(row.sSection, row.sKey, AirMailDataFolderGet());
        case SettingSpecial::AirMailProgram:
            return writer.Text(row.sSection, row.sKey, AirMailProgramFolderGet());
        case SettingSpecial::Frequencies:
            return FrequenciesSave(writer, settings);
        case SettingSpecial::Needs:
            return NeedsSave(writer, settings);
        case SettingSpecial::PlanWindows:
            return PlanWindowsSave(writer, settings);
        case SettingSpecial::Window:
            return WindowSave(writer, kWindow, window);
    }
}

bool SpecialIs(const SettingRow& row) { return std::holds_alternative<SettingSpecial>(row.member); }

}  // namespace

Result<std::vector<std::string>> ProfileLoad(Settings& settings, const WindowApplyFn& fnWindowApply,
                                             ProfileRanges eRanges)
{
    auto resFile = PrivateProfile::Open(DrivePath(ProfileFileToRead(settings.m_sProfileFile)));
    if (!resFile)
        return resFile.ErrorGet();
    const Reader reader(std::move(resFile.ValueGet()));
    const Settings before = settings;
    for (const SettingRow& row : SettingsTableGet()) {
        if (SpecialIs(row))
            SpecialLoad(row, reader, settings, fnWindowApply);
        else
            RowLoad(row, reader, settings);
    }
    if (NeedFind(settings.m_aNeed, settings.m_sNeedSelected) == nullptr)
        settings.m_sNeedSelected.clear();
    std::vector<std::string> asDropped;
    if (eRanges == ProfileRanges::Drop)
        asDropped = FaultsDrop(before, settings);
    return asDropped;
}

void ProfileShippedSet(Settings& settings)
{
    const std::string sProfileFile = settings.m_sProfileFile;
    settings.Initialize();
    settings.m_sProfileFile = sProfileFile;
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.sShipped != nullptr)
            SettingFromText(row, row.sShipped, settings);
    }
}

std::vector<std::string> SettingsFaultsGet(const Settings& settings, bool bFrequencies)
{
    std::vector<std::string> asFault;
    for (int i = 1; bFrequencies && i <= settings.m_nData; ++i) {
        const float fFrequency = settings.FrequencyGet(i);
        if (!kRangeFrequency.Holds(fFrequency))
            asFault.push_back(
                FaultText(kFrequencies, IndexedKey("Frequency", i), fFrequency, kRangeFrequency));
    }
    for (Fault& fault : FaultsFind(settings)) asFault.push_back(std::move(fault.sText));
    return asFault;
}

bool ProfileSave(const Settings& settings, const std::optional<WindowData>& window,
                 Messages* paMessages)
{
    Writer writer;
    for (const SettingRow& row : SettingsTableGet()) {
        if (SpecialIs(row))
            SpecialSave(row, writer, settings, window);
        else
            writer.Text(row.sSection, row.sKey, SettingToText(row, settings));
    }
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
