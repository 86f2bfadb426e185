#include <gtest/gtest.h>

#include <cmath>

#include "propagation/Request.h"
#include "propagation/deck/DeckLib.h"
#include "support/EngineRootSet.h"

namespace {

/// Settings in which every value is different.
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
    settings.m_fStationPower = 150.0F;
    settings.m_dTxLat = 11.0;
    settings.m_dTxLon = 12.0;
    settings.m_dRcLat = 13.0;
    settings.m_dRcLon = 14.0;
    return settings;
}

void ModelExpect(const RequestModel& model)
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
    EXPECT_EQ(model.fPower, 150.0F);
}

TEST(Request, TakesEveryValueFromTheSettings)
{
    Settings settings = DistinctSettings();
    settings.m_nData = 3;
    settings.FrequencySet(3, 7050.5F);
    const Request input = RequestFromSettings(settings);
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

TEST(Request, TellsWhereTheSunspotNumberIsFrom)
{
    Settings settings;
    settings.m_bPropagationSunSpotNumber = true;
    EXPECT_EQ(RequestFromSettings(settings).eSunSpotSource, SunSpotSource::AirMail);
    settings.m_bPropagationSunSpotNumber = false;
    EXPECT_EQ(RequestFromSettings(settings).eSunSpotSource, SunSpotSource::Typed);
}

TEST(Request, AsksForTheMeanMapsOfHopcastsOwnEngineAlone)
{
    struct Case {
        int iModel;
        bool bOwn;
        bool bMean;
        const char* sExpected;
    };
    for (const Case& c : {
             Case{kEngineRec533, true, true, "MEAN"},
             Case{kEngineRec533, true, false, "CCIR"},
             Case{kEngineRec533, false, true, "CCIR"},
             Case{kEngineVoacap, true, true, "CCIR"},
             Case{kEngineIcepac, true, true, "CCIR"},
         }) {
        const EngineRootSet root;
        root.Rec533Put(c.bOwn);
        Settings settings = DistinctSettings();
        settings.m_iPropagationModel = c.iModel;
        settings.m_bPropagationMapsMean = c.bMean;
        EXPECT_EQ(RequestFromSettings(settings).sIonCoefficients, c.sExpected)
            << c.iModel << c.bOwn << c.bMean;
        EXPECT_EQ(AreaRequestFromSettings(settings).sIonCoefficients, c.sExpected)
            << c.iModel << c.bOwn << c.bMean;
    }
}

TEST(Request, WithoutTheEngineNoMeanMapsAreAskedFor)
{
    const EngineRootSet root;
    EXPECT_TRUE(Settings().m_bPropagationMapsMean);
    EXPECT_EQ(RequestFromSettings(Settings()).sIonCoefficients, "URSI");
}

TEST(Request, TheDecksOfHopcastsOwnEngineNameTheMeanMaps)
{
    const EngineRootSet root;
    root.Rec533Put(true);
    const Request input = RequestFromSettings(Settings());
    EXPECT_NE(DeckRec533(input, 1, 1, 2026).ValueGet().find("\nCOEFFS    MEAN\r"),
              std::string::npos);
    AreaRequest area = AreaRequestFromSettings(Settings());
    area.fFrequency = 14.1F;
    area.dNorth = area.dEast = 10.0;
    EXPECT_NE(DeckArea(area).ValueGet().find("\nCoeffs   :MEAN\r"), std::string::npos);
}

TEST(Request, CountOutsideTheListIsBroughtIntoIt)
{
    Settings settings;
    settings.m_nData = 16;
    EXPECT_EQ(RequestFromSettings(settings).nData, 15);
    EXPECT_EQ(RequestFromSettings(settings).FrequencyGet(15), 30000.0F);
    settings.m_nData = -1;
    EXPECT_EQ(RequestFromSettings(settings).nData, 0);
}

TEST(AreaRequest, FixedEndIsTheReceiverAndNoiseIsPositive)
{
    const AreaRequest input = AreaRequestFromSettings(DistinctSettings());
    ModelExpect(input);
    EXPECT_EQ(input.fNoiseLevel, 150.0F);
    EXPECT_EQ(input.dFixedLat, 13.0);
    EXPECT_EQ(input.dFixedLon, 14.0);
    EXPECT_EQ(input.nGridSize, 40);
}

TEST(AreaRequest, GridSizeIsBroughtInto2To999)
{
    Settings settings;
    for (const auto& [nSetting, nExpected] : {std::pair{-5, 2}, std::pair{1, 2}, std::pair{2, 2},
                                              std::pair{999, 999}, std::pair{1000, 999}}) {
        settings.m_iMapOverlayGridSize = nSetting;
        EXPECT_EQ(AreaRequestFromSettings(settings).nGridSize, nExpected) << nSetting;
    }
}

TEST(RequestRange, EveryValueOutOfRangeIsTold)
{
    const Request inputGood = RequestFromSettings(Settings());
    EXPECT_TRUE(RangeCheck(inputGood));
    struct Case {
        void (*fnSpoil)(Request&);
        const char* sText;
    };
    for (const Case& c : {
             Case{[](Request& in) { in.dTxLat = -90.5; }, "latitude -90.5 is outside -90 to 90"},
             Case{[](Request& in) { in.dRcLon = 181; }, "longitude 181 is outside -180 to 180"},
             Case{[](Request& in) { in.nMonth = 13; }, "month 13 is outside 1 to 12"},
             Case{[](Request& in) { in.fSunSpotNumber = 400; },
                  "sunspot number 400 is outside 0 to 311"},
             Case{[](Request& in) { in.fNoiseLevel = 145; },
                  "noise level 145 is outside -200 to -100"},
             Case{[](Request& in) { in.fTakeoffAngle = 41; },
                  "takeoff angle 41 is outside 0 to 40"},
             Case{[](Request& in) { in.fReliability = 100; }, "reliability 100 is outside 1 to 99"},
             Case{[](Request& in) { in.fQIndex = -1; }, "Q index -1 is outside 0 to 9"},
             Case{[](Request& in) { in.fLayerAdjustF2 = 10; },
                  "layer factor 10 is outside 0 to 9.99"},
         }) {
        Request input = inputGood;
        c.fnSpoil(input);
        EXPECT_EQ(RangeCheck(input).TextGet(), c.sText);
    }
}

TEST(RequestRange, AnAreaIsCheckedWithItsFrequency)
{
    AreaRequest input = AreaRequestFromSettings(Settings());
    for (const float fKhz : {100.0F, 45000.0F}) {
        input.fFrequency = fKhz / 1000.0F;
        EXPECT_TRUE(RangeCheck(input)) << fKhz;
    }
    input.fFrequency = 0.05F;
    EXPECT_EQ(RangeCheck(input).TextGet(), "frequency 50 is outside 100 to 45000");
    input.fFrequency = 14.1F;
    input.dFixedLat = 90.25;
    EXPECT_EQ(RangeCheck(input).TextGet(), "latitude 90.25 is outside -90 to 90");
}

TEST(RequestRange, AnAreaIsCheckedWithItsHourGridAndBounds)
{
    AreaRequest inputGood = AreaRequestFromSettings(Settings());
    inputGood.fFrequency = 14.1F;
    struct Case {
        void (*fnSpoil)(AreaRequest&);
        const char* sText;
    };
    for (const Case& c : {
             Case{[](AreaRequest& in) { in.iHour = 23; }, ""},
             Case{[](AreaRequest& in) { in.iHour = 24; }, "hour 24 is outside 0 to 23"},
             Case{[](AreaRequest& in) { in.iHour = -1; }, "hour -1 is outside 0 to 23"},
             Case{[](AreaRequest& in) { in.nGridSize = 1; }, "grid size 1 is outside 2 to 999"},
             Case{[](AreaRequest& in) { in.nGridSize = 1000; },
                  "grid size 1000 is outside 2 to 999"},
             Case{[](AreaRequest& in) { in.dSouth = -91; }, "south bound -91 is outside -90 to 90"},
             Case{[](AreaRequest& in) { in.dNorth = -5; }, "north bound -5 is outside 0 to 90"},
             Case{[](AreaRequest& in) { in.dWest = -181; },
                  "west bound -181 is outside -180 to 360"},
             Case{[](AreaRequest& in) { in.dEast = 360; }, ""},
             Case{[](AreaRequest& in) { in.dEast = -1; }, "east bound -1 is outside 0 to 360"},
             Case{[](AreaRequest& in) { in.dEast = std::nan(""); },
                  "east bound nan is outside 0 to 360"},
         }) {
        AreaRequest input = inputGood;
        c.fnSpoil(input);
        EXPECT_EQ(RangeCheck(input).TextGet(), c.sText);
    }
}

}  // namespace
