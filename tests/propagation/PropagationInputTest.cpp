#include <gtest/gtest.h>

#include "propagation/PropagationInput.h"

namespace {

/// Settings of which no two values are alike.
Settings DistinctSettings()
{
    Settings settings;
    settings.m_iPropagationModel = kEngineVoacap;
    settings.m_iPropagationMonth = 5;
    settings.m_sPropagationIonCoefficients = "CCIR";
    settings.m_fPropagationSunSpotNumber = 101.0F;
    settings.m_fPropagationQIndex = 2.0F;
    settings.m_fPropagationNoiseLevel = -150.0F;
    settings.m_fPropagationTakeoffAngle = 4.0F;
    settings.m_fPropagationReliability = 60.0F;
    settings.m_fPropagationMultipathPower = 7.0F;
    settings.m_fPropagationMultipathDelay = 8.0F;
    settings.m_fPropagationLayerAdjustE = 0.1F;
    settings.m_fPropagationLayerAdjustF1 = 0.2F;
    settings.m_fPropagationLayerAdjustF2 = 0.3F;
    settings.m_fPropagationLayerAdjustEs = 0.4F;
    settings.m_iPropagationAntennaType = 2;
    settings.m_dTxLat = 11.0;
    settings.m_dTxLon = 12.0;
    settings.m_dRcLat = 13.0;
    settings.m_dRcLon = 14.0;
    return settings;
}

void ModelExpect(const PropagationModel& model)
{
    EXPECT_EQ(model.iModel, kEngineVoacap);
    EXPECT_EQ(model.nMonth, 5);
    EXPECT_EQ(model.sIonCoefficients, "CCIR");
    EXPECT_EQ(model.fSunSpotNumber, 101.0F);
    EXPECT_EQ(model.fTakeoffAngle, 4.0F);
    EXPECT_EQ(model.fReliability, 60.0F);
    EXPECT_EQ(model.fMultipathPower, 7.0F);
    EXPECT_EQ(model.fMultipathDelay, 8.0F);
    EXPECT_EQ(model.fLayerAdjustE, 0.1F);
    EXPECT_EQ(model.fLayerAdjustF1, 0.2F);
    EXPECT_EQ(model.fLayerAdjustF2, 0.3F);
    EXPECT_EQ(model.fLayerAdjustEs, 0.4F);
    EXPECT_EQ(model.iAntennaType, 2);
}

TEST(PropagationInput, TakesEveryValueFromTheSettings)
{
    Settings settings = DistinctSettings();
    settings.m_nData = 3;
    settings.FrequencySet(3, 7050.5F);
    const PropagationInput input = PropagationInputFromSettings(settings);
    ModelExpect(input);
    EXPECT_EQ(input.fNoiseLevel, -150.0F);
    EXPECT_EQ(input.fQIndex, 2.0F);
    EXPECT_EQ(input.dTxLat, 11.0);
    EXPECT_EQ(input.dTxLon, 12.0);
    EXPECT_EQ(input.dRcLat, 13.0);
    EXPECT_EQ(input.dRcLon, 14.0);
    EXPECT_EQ(input.nData, 3);
    EXPECT_EQ(input.FrequencyGet(1), 2000.0F);
    EXPECT_EQ(input.FrequencyGet(2), 4000.0F);
    EXPECT_EQ(input.FrequencyGet(3), 7050.5F);
}

TEST(PropagationInput, TellsWhereTheSunspotNumberIsFrom)
{
    Settings settings;
    settings.m_bPropagationSunSpotNumber = true;
    EXPECT_EQ(PropagationInputFromSettings(settings).eSunSpotSource, SunSpotSource::AirMail);
    settings.m_bPropagationSunSpotNumber = false;
    EXPECT_EQ(PropagationInputFromSettings(settings).eSunSpotSource, SunSpotSource::Typed);
}

TEST(PropagationInput, CountOutsideTheListIsBroughtIntoIt)
{
    Settings settings;
    settings.m_nData = 16;
    EXPECT_EQ(PropagationInputFromSettings(settings).nData, 15);
    EXPECT_EQ(PropagationInputFromSettings(settings).FrequencyGet(15), 30000.0F);
    settings.m_nData = -1;
    EXPECT_EQ(PropagationInputFromSettings(settings).nData, 0);
}

TEST(PropagationAreaInput, FixedEndIsTheReceiverAndNoiseIsPositive)
{
    const PropagationAreaInput input = PropagationAreaInputFromSettings(DistinctSettings());
    ModelExpect(input);
    EXPECT_EQ(input.fNoiseLevel, 150.0F);
    EXPECT_EQ(input.dFixedLat, 13.0);
    EXPECT_EQ(input.dFixedLon, 14.0);
    EXPECT_EQ(input.nGridSize, 40);
}

TEST(PropagationAreaInput, GridSizeIsBroughtInto2To999)
{
    Settings settings;
    for (const auto& [nSetting, nExpected] : {std::pair{-5, 2}, std::pair{1, 2}, std::pair{2, 2},
                                              std::pair{999, 999}, std::pair{1000, 999}}) {
        settings.m_iMapOverlayGridSize = nSetting;
        EXPECT_EQ(PropagationAreaInputFromSettings(settings).nGridSize, nExpected) << nSetting;
    }
}

}  // namespace
