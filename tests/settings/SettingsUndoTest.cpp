#include <gtest/gtest.h>

#include "settings/SettingsUndo.h"

namespace {

class SettingsUndoStep : public testing::Test {
protected:
    SettingsUndoStep()
    {
        m_settings.m_fPropagationTakeoffAngle = 8.0F;
        m_settings.m_nData = 2;
        m_settings.FrequencySet(1, 7100.0F);
        m_settings.m_dRcLat = 1.5;
        AirMailDataFolderSet("D:\\Mail");
    }
    void TearDown() override { AirMailFoldersReset(); }

    Settings m_settings;
    SettingsUndo m_undo;
};

TEST_F(SettingsUndoStep, BringsEverythingBackWithTheFoldersAndTheirOrigin)
{
    EXPECT_FALSE(m_undo.Possible(m_settings));
    m_undo.DefaultSet(m_settings);
    EXPECT_EQ(m_settings.m_fPropagationTakeoffAngle, 3.0F);
    EXPECT_EQ(AirMailDataFolderGet(), kAirMailFolderDefault);
    m_settings.m_sProfileFile = "saved meanwhile.ini";
    EXPECT_TRUE(m_undo.TakeBack(m_settings));
    EXPECT_EQ(m_settings.m_fPropagationTakeoffAngle, 8.0F);
    EXPECT_EQ(m_settings.m_nData, 2);
    EXPECT_EQ(m_settings.FrequencyGet(1), 7100.0F);
    EXPECT_EQ(m_settings.m_dRcLat, 1.5);
    EXPECT_EQ(m_settings.m_sProfileFile, "saved meanwhile.ini");
    EXPECT_EQ(AirMailDataFolderGet(), "D:\\Mail");
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Profile);
    EXPECT_FALSE(m_undo.TakeBack(m_settings)) << "one step";
}

TEST_F(SettingsUndoStep, AChangeOfAnyKindEndsIt)
{
    m_undo.DefaultSet(m_settings);
    const Settings defaults = m_settings;
    const auto Changed = [&](auto fnChange) {
        Settings settings = defaults;
        fnChange(settings);
        return !m_undo.Possible(settings);
    };
    EXPECT_TRUE(m_undo.Possible(defaults));
    EXPECT_TRUE(Changed([](Settings& s) { s.m_iPropagationModel = 1; }));
    EXPECT_TRUE(Changed([](Settings& s) { s.FrequencySet(15, 1.0F); }));
    EXPECT_TRUE(Changed([](Settings& s) { s.m_nData = 14; }));
    EXPECT_TRUE(Changed([](Settings& s) { s.m_dTxLon = 0.0; }));
    EXPECT_TRUE(Changed([](Settings& s) { s.m_aNeed.pop_back(); }));
    EXPECT_TRUE(Changed([](Settings& s) { s.m_bPropagationMonth = false; }));
    EXPECT_FALSE(Changed([](Settings& s) { s.m_selected = {3, 4}; }));
    EXPECT_FALSE(Changed([](Settings& s) { s.m_sProfileFile = "x"; }));
}

TEST_F(SettingsUndoStep, WhatEachRunSetsIsNoChange)
{
    m_undo.DefaultSet(m_settings);
    m_settings.m_iPropagationMonth = m_settings.m_iPropagationMonth % 12 + 1;
    m_settings.m_fPropagationSunSpotNumber = 98.0F;
    EXPECT_TRUE(m_undo.Possible(m_settings));
    m_settings.m_bPropagationSunSpotNumber = false;
    EXPECT_FALSE(m_undo.Possible(m_settings));
}

TEST_F(SettingsUndoStep, DefaultPressedTwiceGoesBackToBeforeTheFirst)
{
    m_undo.DefaultSet(m_settings);
    m_undo.DefaultSet(m_settings);
    EXPECT_TRUE(m_undo.TakeBack(m_settings));
    EXPECT_EQ(m_settings.m_fPropagationTakeoffAngle, 8.0F);
}

TEST_F(SettingsUndoStep, IsForgottenWhenSettingsComeFromElsewhere)
{
    m_undo.DefaultSet(m_settings);
    m_undo.Forget();
    EXPECT_FALSE(m_undo.TakeBack(m_settings));
}

}  // namespace
