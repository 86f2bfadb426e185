#include <gtest/gtest.h>

#include "ui/main/StatusText.h"

namespace {

Settings SettingsMake(int iModel, int nMonth)
{
    Settings settings;
    settings.m_iPropagationModel = iModel;
    settings.m_iPropagationMonth = nMonth;
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_fPropagationSunSpotNumber = 100.0F;
    return settings;
}

TEST(StatusInForce, TellsEngineMonthAndSunspotNumber)
{
    EXPECT_EQ(
        StatusInForce(SettingsMake(kEngineRec533, 11), true, true),
        "REC533 (built-in, P.533 with long-path rule) · November · sunspot number 100 (options)");
    Settings settings = SettingsMake(kEngineVoacap, 1);
    settings.m_bPropagationSunSpotNumber = true;
    settings.m_fPropagationSunSpotNumber = 66.5F;
    EXPECT_EQ(StatusInForce(settings, false, true),
              "VOACAP · January · sunspot number 66.5 (Airmail)");
}

TEST(StatusInForce, NamesNoNumberThatAirmailDidNotGive)
{
    Settings settings = SettingsMake(kEngineVoacap, 1);
    settings.m_bPropagationSunSpotNumber = true;
    EXPECT_EQ(StatusInForce(settings, false, false),
              "VOACAP · January · no sunspot number (Airmail)");
}

TEST(StatusInForce, NamesNumbersThatAreNoEngineOrMonth)
{
    EXPECT_EQ(StatusInForce(SettingsMake(9, 13), false, true),
              "no engine · month 13 · sunspot number 100 (options)");
}

TEST(StatusTrouble, SaysWhatToDo)
{
    const Settings settings = SettingsMake(kEngineIcepac, 11);
    EXPECT_EQ(StatusTrouble(RunTrouble::SunSpot, settings, ""),
              "No sunspot number from Airmail: Options, Model, clear Auto");
    EXPECT_EQ(StatusTrouble(RunTrouble::Frequencies, settings, ""),
              "No frequencies to predict: Options, Frequency");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, settings,
                            "Propagation Model ICEPAC not found.\r\n\r\nPlease check"),
              "ICEPAC is not installed: Options, Model, choose another engine");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, settings, "one\rtwo"),
              "The prediction failed: one");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, settings, "one\rtwo", "no map"),
              "The prediction failed: one (no map)");
    EXPECT_EQ(StatusTrouble(RunTrouble::Engine, settings, ""),
              "The prediction failed: Options, Model, choose an engine");
}

}  // namespace
