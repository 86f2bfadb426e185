#include <gtest/gtest.h>

#include "airmail/AirMailFolders.h"
#include "settings/Settings.h"
#include "support/ClockSet.h"
#include "system/PathLib.h"

namespace {

void DefaultsExpect(const Settings& settings)
{
    EXPECT_EQ(settings.m_nData, 15);
    EXPECT_EQ(settings.m_iMapOverlayGridSize, 40);
    EXPECT_EQ(settings.m_fMapOverlayMinSnr, 20.0F);
    EXPECT_EQ(settings.m_iMapWorldBegins, 0);
    EXPECT_EQ(settings.m_iPropagationAntennaType, 1);
    EXPECT_EQ(settings.m_sPropagationIonCoefficients, "URSI");
    EXPECT_EQ(settings.m_fPropagationLayerAdjustE, 1.0F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustEs, 0.7F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF1, 1.0F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF2, 1.0F);
    EXPECT_TRUE(settings.m_bPropagationMapsMean);
    EXPECT_EQ(settings.m_iPropagationModel, 3);
    EXPECT_TRUE(settings.m_bPropagationMonth);
    EXPECT_EQ(settings.m_fPropagationMultipathDelay, 10.0F);
    EXPECT_EQ(settings.m_fPropagationMultipathPower, 0.0F);
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -145.0F);
    EXPECT_EQ(settings.m_fPropagationQIndex, 3.0F);
    EXPECT_EQ(settings.m_fPropagationReliability, 50.0F);
    EXPECT_TRUE(settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(settings.m_fPropagationSunSpotNumber, 170.0F);
    EXPECT_EQ(settings.m_fPropagationTakeoffAngle, 3.0F);
    EXPECT_EQ(settings.m_dRcLat, 24.0);
    EXPECT_EQ(settings.m_dRcLon, -110.0);
    EXPECT_EQ(settings.m_iTimeCode, 0);
    EXPECT_EQ(settings.m_dTxLat, 38.0);
    EXPECT_EQ(settings.m_dTxLon, -122.0);
    EXPECT_FALSE(settings.m_bPropagationForecast);
    EXPECT_EQ(settings.m_fStationPower, 0.0F);
    EXPECT_EQ(settings.m_aNeed, NeedsShipped());
    EXPECT_EQ(settings.m_sNeedSelected, "");
    EXPECT_EQ(settings.m_ePalette, Palette::Standard);
    EXPECT_EQ(settings.m_selected.iFrequency, 1);
    EXPECT_EQ(settings.m_selected.iHour, -1);
    EXPECT_EQ(settings.m_sProfileFile, ProfileFileDefault());
    for (int i = 0; i <= 15; ++i)
        EXPECT_EQ(settings.FrequencyGet(i), static_cast<float>(i) * 2000.0F);
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\Program Files\\AirMail");
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\Program Files\\AirMail");
}

TEST(Settings, StartOnTheDefaults)
{
    ClockSet clock(DateTime{2026, 8, 31, 23, 59, 59}, DateTime{2026, 9, 1, 9, 59, 59});
    const Settings settings;
    DefaultsExpect(settings);
    EXPECT_EQ(settings.m_iPropagationMonth, 8);  // the month of UTC, not of local time
}

TEST(Settings, InitializePutsEveryMemberBack)
{
    Settings settings;
    settings.m_sProfileFile = "elsewhere.ini";
    settings.m_nData = 2;
    settings.m_iMapOverlayGridSize = 1;
    settings.m_fMapOverlayMinSnr = 1;
    settings.m_iMapWorldBegins = -180;
    settings.m_iPropagationAntennaType = 0;
    settings.m_sPropagationIonCoefficients = "CCIR";
    settings.m_fPropagationLayerAdjustE = settings.m_fPropagationLayerAdjustEs = 9;
    settings.m_fPropagationLayerAdjustF1 = settings.m_fPropagationLayerAdjustF2 = 9;
    settings.m_bPropagationMapsMean = false;
    settings.m_iPropagationModel = 1;
    settings.m_bPropagationMonth = settings.m_bPropagationSunSpotNumber = false;
    settings.m_iPropagationMonth = 99;
    settings.m_fPropagationMultipathDelay = settings.m_fPropagationMultipathPower = 9;
    settings.m_fPropagationNoiseLevel = settings.m_fPropagationQIndex = 9;
    settings.m_fPropagationReliability = settings.m_fPropagationSunSpotNumber = 9;
    settings.m_fPropagationTakeoffAngle = 9;
    settings.m_dRcLat = settings.m_dRcLon = settings.m_dTxLat = settings.m_dTxLon = 9;
    settings.m_iTimeCode = 1;
    settings.m_bPropagationForecast = true;
    settings.m_fStationPower = 9;
    settings.m_aNeed.clear();
    settings.m_sNeedSelected = "x";
    settings.m_ePalette = Palette::Night;
    settings.m_selected = {7, 7};
    settings.FrequencySet(0, 1);
    settings.FrequencySet(15, 1);
    AirMailDataFolderSet("x");
    AirMailProgramFolderSet("y");
    ClockSet clock(DateTime{2026, 3, 1, 0, 0, 0}, DateTime{2026, 2, 28, 17, 0, 0});
    settings.Initialize();
    DefaultsExpect(settings);
    EXPECT_EQ(settings.m_iPropagationMonth, 3);
}

TEST(Settings, TheFrequencyListHoldsSixteenSlotsAndNoMore)
{
    Settings settings;
    settings.FrequencySet(15, 14100.5F);
    EXPECT_EQ(settings.FrequencyGet(15), 14100.5F);
    settings.FrequencySet(16, 1);
    settings.FrequencySet(-1, 1);
    EXPECT_EQ(settings.FrequencyGet(16), 0.0F);
    EXPECT_EQ(settings.FrequencyGet(-1), 0.0F);
    EXPECT_EQ(settings.FrequencyGet(0), 0.0F);
}

TEST(Settings, MadeForAMomentLeaveAirmailsFoldersAsTheyAre)
{
    AirMailDataFolderSet("x");
    const Settings settings;
    EXPECT_EQ(AirMailDataFolderGet(), "x");
    AirMailFoldersReset();
}

}  // namespace
