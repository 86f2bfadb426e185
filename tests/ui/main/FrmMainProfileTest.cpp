/// The profile commands, saving at the end, and damaged profiles.
#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "ui/options/frmOptions.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace fs = std::filesystem;

namespace {

TEST(FrmMainProfile, OpenAsksWithTheProfileInForceAndPredicts)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const std::string sOther = rig.m_folder.Write("other.ini", "[Receiver Data]\nLatitude=12\n");
    rig.m_sAnswer = QString::fromStdString(sOther);
    rig.m_engine.nStarts = 0;
    frm.mnuFileOpen->trigger();
    ASSERT_EQ(rig.m_aAsked.size(), 1u);
    EXPECT_EQ(rig.m_aAsked[0].eKind, FileDialogKind::Open);
    EXPECT_EQ(rig.m_aAsked[0].sFile, QString::fromStdString(rig.m_sProfileFile));
    EXPECT_EQ(rig.m_aAsked[0].sFilter, QStringLiteral("File (*.ini)|*.ini"));
    EXPECT_EQ(frm.m_settings.m_sProfileFile, sOther);
    EXPECT_EQ(frm.m_settings.m_dRcLat, 12.0);
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("12°00.00'N"));
    EXPECT_EQ(rig.m_engine.nStarts, 2);
}

TEST(FrmMainProfile, SaveWritesUnderTheChosenNameAndPredictsNothing)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const std::string sOther = rig.m_folder.Path("saved.ini");
    rig.m_sAnswer = QString::fromStdString(sOther);
    rig.m_engine.nStarts = 0;
    frm.mnuFileSave->trigger();
    ASSERT_EQ(rig.m_aAsked.size(), 1u);
    EXPECT_EQ(rig.m_aAsked[0].eKind, FileDialogKind::Save);
    EXPECT_EQ(rig.m_aAsked[0].sFile, QString::fromStdString(rig.m_sProfileFile));
    EXPECT_EQ(frm.m_settings.m_sProfileFile, sOther);
    EXPECT_NE(BytesRead(sOther).find("SunSpot Number=100"), std::string::npos);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
}

TEST(FrmMainProfile, SaveTakesForecastAndPlacesToTheNewNameUnlessItHasItsOwn)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const fs::path pthOld = rig.m_sProfileFile;
    const auto Beside = [&](const char* sEnding) {
        return fs::path(pthOld).replace_extension(sEnding).filename().string();
    };
    rig.m_folder.Write(Beside(".forecast.txt"), "a forecast");
    rig.m_folder.Write(Beside(".places.csv"), "places");
    rig.m_folder.Write("saved.places.csv", "its own");
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("saved.ini"));
    frm.mnuFileSave->trigger();
    EXPECT_EQ(BytesRead(rig.m_folder.Path("saved.forecast.txt")), "a forecast");
    EXPECT_EQ(BytesRead(rig.m_folder.Path("saved.places.csv")), "its own");
    frm.mnuFileSave->trigger();
    EXPECT_EQ(BytesRead(rig.m_folder.Path("saved.forecast.txt")), "a forecast") << "the same name";
}

TEST(FrmMainProfile, CancelledDialogsChangeNothing)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const std::string sBytes = BytesRead(rig.m_sProfileFile);
    rig.m_engine.nStarts = 0;
    frm.mnuFileOpen->trigger();
    frm.mnuFileSave->trigger();
    EXPECT_EQ(rig.m_aAsked.size(), 2u);
    EXPECT_EQ(frm.m_settings.m_sProfileFile, rig.m_sProfileFile);
    EXPECT_EQ(BytesRead(rig.m_sProfileFile), sBytes);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
}

TEST(FrmMainProfile, OpenMovesTheWindowToTheProfilesPlace)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_sAnswer = QString::fromStdString(
        rig.m_folder.Write("place.ini", "[Window Data]\nLeft=150\nTop=300\n"));
    const QSize size = frm.frameGeometry().size();
    frm.mnuFileOpen->trigger();
    EXPECT_EQ(frm.frameGeometry().topLeft(), QPoint(10, 20));
    EXPECT_EQ(frm.frameGeometry().size(), size);  // missing keys leave the size alone
}

TEST(FrmMainProfile, EndSavesSettingsListAndPlace)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = 11.0;
    frm.FrequencySet(2, 3500.0F);
    frm.move(30, 40);
    frm.close();
    const std::string sBytes = BytesRead(rig.m_sProfileFile);
    EXPECT_NE(sBytes.find("Frequency 2=3500"), std::string::npos);
    EXPECT_NE(sBytes.find("Latitude=11"), std::string::npos);
    EXPECT_NE(sBytes.find("Left=450"), std::string::npos);
    EXPECT_NE(sBytes.find("Top=600"), std::string::npos);
}

TEST(FrmMainProfile, MaximisedWindowLeavesTheLastNormalPlace)
{
    MainRig rig;
    rig.ProfileAdd("[Window Data]\nHeight=8400\nLeft=150\nTop=225\nWidth=11700\n");
    frmMain& frm = rig.Start();
    frm.setWindowState(Qt::WindowMaximized);
    frm.close();
    const std::string sBytes = BytesRead(rig.m_sProfileFile);
    for (const char* sLine : {"Height=8400", "Left=150", "Top=225", "Width=11700"})
        EXPECT_NE(sBytes.find(sLine), std::string::npos) << sLine;
}

TEST(FrmMainProfile, FailedSaveAtTheEndIsToldOnceAndTheProgramEnds)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_sProfileFile = rig.m_folder.Path("hopcast.ini") + "/no/profile.ini";
    frm.close();
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].eIcon, MsgIcon::Info);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText.rfind(
                  "Problem with initialization file " + frm.m_settings.m_sProfileFile + ", ", 0),
              0u);
    EXPECT_FALSE(frm.isVisible());
}

#ifndef _WIN32
TEST(FrmMainProfile, ReadOnlyProfileIsLeftAloneAndToldOnce)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const std::string sBytes = BytesRead(rig.m_sProfileFile);
    fs::permissions(rig.m_folder.Path(), fs::perms::all);
    fs::permissions(rig.m_sProfileFile, fs::perms::owner_read | fs::perms::others_read);
    frm.m_settings.m_dRcLat = 1.0;
    frm.close();  // without any write bit a file is read-only even for the superuser
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(BytesRead(rig.m_sProfileFile), sBytes);
    EXPECT_FALSE(frm.isVisible());
}
#endif

TEST(FrmMainProfile, ProfileSaveErrorTellsFileAndReason)
{
    MainRig rig;
    const frmMain& frm = rig.Make();
    frm.ProfileSaveError(2);
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText.rfind(
                  "Problem with initialization file " + rig.m_sProfileFile + ", ", 0),
              0u);
}

TEST(FrmMainProfile, CountBeyondTheListBecomesFifteen)
{
    MainRig rig;
    rig.ProfileAdd("[Propagation Data]\nCount=999\n");
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.m_settings.m_nData, 15);
    EXPECT_EQ(frm.grdData->RowsGet(), 16);
    EXPECT_EQ(rig.m_engine.nStarts, 2);
}

TEST(FrmMainProfile, CountOfThreeMakesThreeRows)
{
    MainRig rig;
    rig.m_engine.nChunks = 1;
    rig.ProfileAdd(
        "[Propagation Data]\nCount=3\nFrequency 1=3000\nFrequency 2=4000\nFrequency "
        "3=5000\nFrequency 4=6000\n");
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->RowsGet(), 4);
    EXPECT_EQ(frm.grdData->TextGet(3, 0), QStringLiteral("5000"));
    EXPECT_EQ(frm.grdData->TextGet(3, 24), QStringLiteral("27"));
}

TEST(FrmMainProfile, DecimalCommaIsRead)
{
    MainRig rig;
    rig.ProfileAdd("[Transmitter Data]\nLatitude=51,25\n");
    EXPECT_EQ(rig.Start().txtLat1->text(), QStringLiteral("51°15.00'N"));
}

TEST(FrmMainProfile, RubbishAndHugeProfilesDoNotHurt)
{
    std::string sRubbish;
    for (int n = 0; n < 200000; ++n) sRubbish += static_cast<char>(n * 7919 % 256);
    std::string sHuge = "[Propagation Model]\nModel=2\nSunSpot Option=False\n";
    sHuge.append(std::size_t{10} << 20, 'x');
    for (const std::string& sBytes : {sRubbish, sHuge}) {
        MainRig rig;
        rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=66\n");
        rig.m_folder.Write("hopcast.ini", sBytes);
        const frmMain& frm = rig.Start();
        EXPECT_EQ(frm.grdData->RowsGet(), 16);
        EXPECT_EQ(frm.txtLat1->text(), QStringLiteral("38°00.00'N"));
    }
}

TEST(FrmMainProfile, PositionsBeyondTheGlobeAreNone)
{
    MainRig rig;
    rig.ProfileAdd("[Transmitter Data]\nLatitude=500\nLongitude=-9999\n");
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.txtLat1->text(), QStringLiteral("38°00.00'N"));
    EXPECT_EQ(frm.txtLon1->text(), QStringLiteral("122°00.00'W"));
    frm.txtLat1->setFocus();
    QTest::keyClicks(frm.txtLat1, QStringLiteral("123456789"));
    EXPECT_EQ(frm.txtLat1->selectedText().length(), 1);
}

TEST(FrmMainProfile, WhatWasNotTakenFromItIsToldOnceByTheStatusLine)
{
    MainRig rig;
    rig.ProfileAdd("[Receiver Data]\nLatitude=95\nLongitude=10\n");
    frmMain& frm = rig.Start();
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 24.0);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLon, -110.0);
    EXPECT_GT(rig.m_engine.nStarts, 0);
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("Not taken from the profile: [Receiver Data] Latitude: 95 is "
                             "outside -90 to 90"));
    EXPECT_FALSE(frm.lblOld->isVisible()) << "the table is the one asked for";
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.lblTrouble->text(), QString());
}

TEST(FrmMainProfile, UndoDefaultTakesDefaultBackUntilASettingIsChanged)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const auto Offered = [&] {
        Q_EMIT frm.mnuFile->aboutToShow();
        return frm.mnuFileUndoDefault->isEnabled();
    };
    EXPECT_FALSE(Offered()) << "nothing to undo after the start";
    frm.m_settings.m_fPropagationTakeoffAngle = 8.0F;
    frm.m_settings.m_dRcLat = 10.0;
    frm.mnuFileDefault->trigger();
    EXPECT_EQ(frm.m_settings.m_fPropagationTakeoffAngle, 3.0F);
    EXPECT_TRUE(Offered());
    const int nStarts = rig.m_engine.nStarts;
    frm.mnuFileUndoDefault->trigger();
    EXPECT_EQ(frm.m_settings.m_fPropagationTakeoffAngle, 8.0F);
    EXPECT_EQ(frm.m_settings.m_dRcLat, 10.0);
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("10°00.00'N"));
    EXPECT_GT(rig.m_engine.nStarts, nStarts) << "a prediction with them follows";
    EXPECT_FALSE(Offered());
    frm.mnuFileDefault->trigger();
    frm.m_settings.m_dTxLat = 1.0;
    frm.Update();
    EXPECT_FALSE(Offered());
    frm.mnuFileUndoDefault->setEnabled(true);
    frm.mnuFileUndoDefault->trigger();
    EXPECT_EQ(frm.m_settings.m_fPropagationTakeoffAngle, 3.0F);
}

TEST(FrmMainProfile, DefaultSettingsOfTheOptionsAreTakenBackToo)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_fPropagationTakeoffAngle = 8.0F;
    frm.mnuOptionsModel->trigger();
    ASSERT_TRUE(frm.m_pOptions);
    frm.m_pOptions->cmdDefault->click();
    EXPECT_EQ(frm.m_pOptions->txtPropagationTakeoffAngle->text(), QStringLiteral("3"));
    frm.mnuFileUndoDefault->trigger();
    EXPECT_EQ(frm.m_settings.m_fPropagationTakeoffAngle, 8.0F);
    EXPECT_EQ(frm.m_pOptions->txtPropagationTakeoffAngle->text(), QStringLiteral("8"));
}

TEST(FrmMainProfile, OpenLeavesNothingToUndo)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuFileDefault->trigger();
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Write("empty.ini", "[Map Data]\n"));
    frm.mnuFileOpen->trigger();
    Q_EMIT frm.mnuFile->aboutToShow();
    EXPECT_FALSE(frm.mnuFileUndoDefault->isEnabled());
}

TEST(FrmMainProfile, DefaultKeepsItsPath)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const std::string sProfile = frm.m_settings.m_sProfileFile;
    frm.m_settings.m_fPropagationReliability = 77.0F;
    frm.mnuFileDefault->trigger();
    EXPECT_EQ(frm.m_settings.m_fPropagationReliability, 50.0F);
    EXPECT_EQ(frm.m_settings.m_sProfileFile, sProfile);
}

TEST(FrmMainProfile, AProfileThatCannotBeReadLeavesWhatWaitsAndTheUndo)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=66\n");
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = 21.0;
    EXPECT_TRUE(frm.Update());
    frm.mnuFileDefault->trigger();
    rig.m_msg.m_aShown.clear();  // from the search on a machine without Airmail
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 24.0);
    fs::create_directories(rig.m_folder.Path("folder.ini"));
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("folder.ini"));
    frm.txtLat1->setFocus();
    frm.txtLat1->CaretPlace(0, 1);
    QTest::keyClicks(frm.txtLat1, QStringLiteral("12"));
    const QString sTyped = frm.txtLat1->text();
    frm.mnuFileOpen->trigger();
    EXPECT_NEAR(frm.m_settings.m_dTxLat, 12.0, 1e-9);
    EXPECT_EQ(frm.txtLat1->text(), sTyped);
    frm.m_settings.m_dTxLat = 38.0;  // now no setting differs
    Q_EMIT frm.mnuFile->aboutToShow();
    EXPECT_TRUE(frm.mnuFileUndoDefault->isEnabled());
    frm.mnuFileUndoDefault->trigger();
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 21.0);
    rig.m_msg.m_aShown.clear();
}

}  // namespace
