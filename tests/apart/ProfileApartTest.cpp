/// Profiles, whole and spoilt, read by the program and by an independently written reader: every
/// setting is the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "airmail/AirMailFolders.h"
#include "apart/ApartProfile.h"
#include "settings/ProfileLib.h"
#include "support/ClockSet.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"

namespace {

using Windows = std::map<WindowKey, float>;

void NumbersCollect(const Settings& settings, Outcome& to)
{
    to.Add("Overlay Min Snr", settings.m_fMapOverlayMinSnr);
    to.Add("Layer Adjust E", settings.m_fPropagationLayerAdjustE);
    to.Add("Layer Adjust Es", settings.m_fPropagationLayerAdjustEs);
    to.Add("Layer Adjust F1", settings.m_fPropagationLayerAdjustF1);
    to.Add("Layer Adjust F2", settings.m_fPropagationLayerAdjustF2);
    to.Add("Multipath Delay", settings.m_fPropagationMultipathDelay);
    to.Add("Multipath Power", settings.m_fPropagationMultipathPower);
    to.Add("Noise Level", settings.m_fPropagationNoiseLevel);
    to.Add("Q Index", settings.m_fPropagationQIndex);
    to.Add("Model Reliability", settings.m_fPropagationReliability);
    to.Add("SunSpot Number", settings.m_fPropagationSunSpotNumber);
    to.Add("Takeoff Angle", settings.m_fPropagationTakeoffAngle);
    to.Add("Power", settings.m_fStationPower);
    to.Add("Overlay Grid Size", settings.m_iMapOverlayGridSize);
    to.Add("Antenna Type", settings.m_iPropagationAntennaType);
    to.Add("Model", settings.m_iPropagationModel);
    to.Add("Month Number", settings.m_iPropagationMonth);
    to.Add("Code", settings.m_iTimeCode);
    to.Add("Month Option", settings.m_bPropagationMonth);
    to.Add("SunSpot Option", settings.m_bPropagationSunSpotNumber);
    to.Add("Maps Option", settings.m_bPropagationMapsMean);
    to.Add("Forecast Option", settings.m_bPropagationForecast);
}

void ListsCollect(const Settings& settings, Outcome& to)
{
    to.Add("Count", settings.m_nData);
    for (int i = 1; i <= settings.m_nData; ++i) to.Add("Frequency", settings.FrequencyGet(i), i);
    to.Add("Receiver Data", settings.m_dRcLat, 1);
    to.Add("Receiver Data", settings.m_dRcLon, 2);
    to.Add("Transmitter Data", settings.m_dTxLat, 1);
    to.Add("Transmitter Data", settings.m_dTxLon, 2);
}

void WindowsCollect(const Settings& settings, Windows windows, Outcome& to)
{
    constexpr std::array kKeys{"Height", "Left", "Top", "Width"};
    for (int i = 0; i < 4; ++i) {
        const auto eKey = static_cast<WindowKey>(i);
        to.Add(kKeys.at(static_cast<std::size_t>(i)),
               windows.contains(eKey) ? windows[eKey] : -1.0F);
    }
    for (const auto& data : settings.m_aPlanWindow) {
        if (!data)
            continue;
        for (const float f : {data->fHeight, data->fLeft, data->fTop, data->fWidth})
            to.Add("window", f);
    }
}

Outcome ProgramRead(const std::string& sFile)
{
    constexpr std::array kPalettes{"standard", "safe", "night", "print"};
    AirMailFoldersReset();
    Settings settings;
    settings.m_sProfileFile = sFile;
    const NeedList needsBefore = {{"before", 1.0F, ""}};
    settings.m_aNeed = needsBefore;
    Windows windows;
    EXPECT_TRUE(ProfileLoad(settings, [&](WindowKey eKey, float f) { windows[eKey] = f; }));
    Outcome outcome;
    outcome.Add("Directory Data", AirMailDataFolderGet());
    outcome.Add("Directory Program", AirMailProgramFolderGet());
    NumbersCollect(settings, outcome);
    outcome.Add("Ion Coeficients", settings.m_sPropagationIonCoefficients);
    outcome.Add("World Begins", settings.m_iMapWorldBegins == -180);
    outcome.Add("Palette",
                std::string(kPalettes.at(static_cast<std::size_t>(settings.m_ePalette))));
    ListsCollect(settings, outcome);
    WindowsCollect(settings, windows, outcome);
    if (settings.m_aNeed == needsBefore)
        outcome.Add("needs", std::string("as they were"));
    else
        for (const Need& need : settings.m_aNeed) {
            outcome.Add("need", need.sName);
            outcome.Add("its source", need.sSource);
            outcome.Add("its ratio", need.fSnr);
        }
    outcome.Add("Selected", settings.m_sNeedSelected);
    AirMailFoldersReset();
    return outcome;
}

/// A profile that the program itself has written, with the position of every window.
std::string ProfileSaved(const TempFolder& folder)
{
    Settings settings;
    settings.m_sProfileFile = folder.Path("saved.ini");
    const WindowData window{9000, 150, -300, 12000.5F};
    settings.m_aPlanWindow.fill(window);
    EXPECT_TRUE(ProfileSave(settings, window, CallMessages()));
    return BytesRead(settings.m_sProfileFile);
}

TEST(ProfileApart, ProfilesAreReadAlikeByAReaderWrittenApart)
{
    // Every variant is written to a file, so use a disk in memory if there is one.
    const EnvironmentSet env{"TMPDIR", std::filesystem::exists("/dev/shm")
                                           ? std::optional<std::string>("/dev/shm")
                                           : std::nullopt};
    const TempFolder folder;
    const DateTime dtNovember{2026, 11, 22, 12, 0, 0};
    const ClockSet clock(dtNovember, dtNovember);
    OutcomesCompare(
        {BytesRead(PROFILE_SEED), ProfileSaved(folder), BytesRead(SHIPPED_PROFILE)},
        [&](const std::string& sBytes, std::size_t) {
            return ProgramRead(folder.Write("profile.ini", sBytes));
        },
        [](const std::string& sBytes, std::size_t) { return ApartProfile(sBytes); }, 1000, 0);
}

}  // namespace
