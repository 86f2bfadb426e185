/// The main window's part in entering positions.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QTest>

#include "ui/support/MainRig.h"

namespace {

TEST(FrmMainEntry, PastedPairFillsTheRowItIsPastedInto)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const QString sLat1 = frm.txtLat1->text();
    const QString sLon1 = frm.txtLon1->text();
    QApplication::clipboard()->setText(QStringLiteral("24.308333, -110.403333"));
    frm.txtLat0->setFocus();
    QTest::keySequence(frm.txtLat0, QKeySequence::Paste);
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("24°18.50'N"));
    EXPECT_EQ(frm.txtLon0->text(), QStringLiteral("110°24.20'W"));
    EXPECT_EQ(frm.txtLat1->text(), sLat1);
    EXPECT_EQ(frm.txtLon1->text(), sLon1);
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    frm.txtLon1->setFocus();
    QTest::keySequence(frm.txtLon1, QKeySequence::Paste);
    EXPECT_EQ(frm.txtLat1->text(), QStringLiteral("24°18.50'N"));
    EXPECT_EQ(frm.txtLon1->text(), QStringLiteral("110°24.20'W"));
}

TEST(FrmMainEntry, StatusLineSaysWhyAPasteIsRefusedUntilTheNextKey)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    QApplication::clipboard()->setText(QStringLiteral("somewhere"));
    frm.txtLat0->setFocus();
    QTest::keySequence(frm.txtLat0, QKeySequence::Paste);
    EXPECT_TRUE(frm.lblTrouble->isVisible());
    EXPECT_TRUE(frm.lblTrouble->toolTip().startsWith(
        QStringLiteral("Not pasted: \"somewhere\" is not a position. ")))
        << frm.lblTrouble->toolTip().toStdString();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    EXPECT_FALSE(frm.lblTrouble->isVisible());
    QTest::keyClicks(frm.txtLat0, QStringLiteral("x"));
    EXPECT_EQ(frm.lblTrouble->toolTip(),
              QStringLiteral("Digits here; a grid square can be pasted (Ctrl+V)"));
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_FALSE(frm.lblTrouble->isVisible());
}

TEST(FrmMainEntry, BehindALatitudesLetterTheCaretGoesToTheLongitude)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1230"));
    EXPECT_TRUE(frm.txtLat0->hasFocus());
    frm.txtLat0->CaretPlace(9, 1);
    QTest::keyClicks(frm.txtLat0, QStringLiteral("x"));
    EXPECT_TRUE(frm.txtLat0->hasFocus()) << "no letter of a latitude";
    QTest::keyClicks(frm.txtLat0, QStringLiteral("s"));
    EXPECT_EQ(frm.txtLat0->text().right(1), QStringLiteral("S"));
    EXPECT_TRUE(frm.txtLon0->hasFocus());
    EXPECT_EQ(frm.txtLon0->CaretGet(), 0);
    frm.txtLon0->CaretPlace(10, 1);
    QTest::keyClicks(frm.txtLon0, QStringLiteral("e"));
    EXPECT_TRUE(frm.txtLon0->hasFocus()) << "a longitude's letter ends the position";
}

TEST(FrmMainEntry, ReturnPressesUpdate)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    frm.txtLon1->setFocus();
    QTest::keyClick(frm.txtLon1, Qt::Key_Return);
    EXPECT_EQ(rig.m_engine.nStarts, 0) << "the button is off while nothing waits";
    QTest::keyClicks(frm.txtLon1, QStringLiteral("050"));
    QTest::keyClick(frm.txtLon1, Qt::Key_Return);
    EXPECT_GT(rig.m_engine.nStarts, 0);
    EXPECT_NEAR(frm.m_settings.m_dTxLon, -50.0, 1e-9);
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
    QTest::keyClicks(frm.txtLon1, QStringLiteral("0"));
    QTest::keyClick(frm.txtLon1, Qt::Key_Enter);
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
}

/// Types the degrees and the hemisphere of a field; its minutes stay.
void Type(LocationField* pField, const char* sDegrees, const char* sLetter)
{
    pField->setFocus();
    pField->CaretPlace(0, 1);
    QTest::keyClicks(pField, QString::fromLatin1(sDegrees));
    pField->CaretPlace(static_cast<int>(pField->text().length()) - 1, 1);
    QTest::keyClicks(pField, QString::fromLatin1(sLetter));
}

TEST(FrmMainEntry, WhatWaitsIsTakenByAnUpdateThatIsNotTheButtons)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dTxLat = 38.0012345;  // finer than the field shows
    EXPECT_TRUE(frm.Update());
    Type(frm.txtLat0, "11", "S");
    Type(frm.txtLon1, "033", "E");
    EXPECT_TRUE(frm.Update());
    EXPECT_NEAR(frm.m_settings.m_dRcLat, -11.0, 1e-9);
    EXPECT_NEAR(frm.m_settings.m_dTxLon, 33.0, 1e-9);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLat, 38.0012345) << "nothing was typed there";
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("11°00.00'S"));
    EXPECT_FALSE(frm.lblOld->isVisible());
}

TEST(FrmMainEntry, WhatWaitsIsLeftWhereItIsOutOfRange)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const double dRcLat = frm.m_settings.m_dRcLat;
    Type(frm.txtLat0, "99", "N");
    Type(frm.txtLon0, "044", "E");
    EXPECT_TRUE(frm.Update());
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, dRcLat);
    EXPECT_NEAR(frm.m_settings.m_dRcLon, 44.0, 1e-9);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(FrmMainEntry, WhatWaitsIsTakenAtExit)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    Type(frm.txtLat1, "12", "S");
    frm.close();
    EXPECT_NEAR(frm.m_settings.m_dTxLat, -12.0, 1e-9);
    frmMain& again = rig.Make();
    again.show();
    EXPECT_EQ(again.txtLat1->text(), QStringLiteral("12°00.00'S"));
}

TEST(FrmMainEntry, ARowThatTheCommandSetsGivesUpWhatWaitsThereAlone)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini",
                     "[Propagation]\nLatitude=24\xB0"
                     "00.00'N\nLongitude=110\xB0"
                     "00.00'W\n");
    frmMain& frm = rig.Start();
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 24.0) << "Airmail's is the one in force";
    Type(frm.txtLat0, "11", "S");
    Type(frm.txtLat1, "12", "S");
    QTest::mouseClick(frm.cmdRcAirmail, Qt::LeftButton);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, 24.0, 1e-9);
    EXPECT_NEAR(frm.m_settings.m_dTxLat, -12.0, 1e-9);
}

TEST(FrmMainEntry, ARowThatTheMapMovedGivesUpWhatWaitsThere)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    Type(frm.txtLat0, "11", "S");
    Type(frm.txtLat1, "12", "S");
    frm.SettingsGet().m_dTxLat = 5.0;  // the map's Apply does this
    EXPECT_TRUE(frm.Update());
    EXPECT_NEAR(frm.m_settings.m_dRcLat, -11.0, 1e-9);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLat, 5.0);
}

TEST(FrmMainEntry, DefaultAndOpenGiveUpWhatWaits)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_bPropagationSunSpotNumber = false;
    rig.m_sAnswer = QString::fromStdString(rig.m_sProfileFile);
    for (QAction* pAction : {frm.mnuFileOpen, frm.mnuFileDefault}) {
        rig.m_msg.m_aShown.clear();
        Type(frm.txtLat1, "12", "S");
        pAction->trigger();
        EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLat, 38.0) << pAction->objectName().toStdString();
    }
    rig.m_msg.m_aShown.clear();
}

TEST(FrmMainEntry, TheOldPathsTableIsMarkedWhilePositionsWait)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_FALSE(frm.grdData->StaleGet());
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    EXPECT_TRUE(frm.grdData->StaleGet());
    EXPECT_TRUE(frm.lblOld->isVisible());
    QTest::keySequence(frm.txtLat0, QKeySequence::Undo);
    EXPECT_FALSE(frm.grdData->StaleGet()) << "the text is the table's again";
    EXPECT_FALSE(frm.lblOld->isVisible());
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    EXPECT_TRUE(frm.Update());
    EXPECT_FALSE(frm.grdData->StaleGet());
}

TEST(FrmMainEntry, ACorrectedPositionIsTakenByTheNextUpdateOfAnyCommand)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    Type(frm.txtLat0, "11", "S");
    Type(frm.txtLon0, "181", "E");
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, -11.0, 1e-9) << "decoded before the refused one";
    EXPECT_TRUE(frm.txtLon0->MarkIs());
    Type(frm.txtLon0, "044", "E");
    EXPECT_TRUE(frm.Update());
    EXPECT_NEAR(frm.m_settings.m_dRcLon, 44.0, 1e-9);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, -11.0, 1e-9);
}

TEST(FrmMainEntry, ARefusedPositionIsToldUntilItIsEditedAndHidesNoOtherTrouble)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const QString sRefused = QStringLiteral("Receiver latitude 99");
    Type(frm.txtLat0, "99", "N");
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_TRUE(frm.lblTrouble->text().startsWith(sRefused));
    Type(frm.txtLat0, "11", "N");
    EXPECT_FALSE(frm.lblTrouble->isVisible());
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    const QString sTrouble = frm.lblTrouble->text();
    EXPECT_FALSE(sTrouble.isEmpty());
    Type(frm.txtLat0, "99", "N");
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_TRUE(frm.lblTrouble->text().startsWith(sRefused));
    QTest::keyClicks(frm.txtLon0, QStringLiteral("0"));
    EXPECT_EQ(frm.lblTrouble->text(), sTrouble) << "that of the run, which still holds";
}

TEST(FrmMainEntry, AnInputMethodsTextGoesOnInTheLongitude)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    frm.txtLat0->setFocus();
    frm.txtLat0->CaretPlace(0, 1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("304512s1223"));
    QApplication::sendEvent(frm.txtLat0, &event);
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("30°45.12'S"));
    EXPECT_TRUE(frm.txtLon0->hasFocus());
    EXPECT_EQ(frm.txtLon0->text().left(5), QStringLiteral("122°3"));
}

}  // namespace
