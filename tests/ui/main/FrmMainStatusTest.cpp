/// The status line: what is in force, what went wrong, and the best frequency.
#include <gtest/gtest.h>

#include <QLabel>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include "ui/common/ElidedLabel.h"
#include "ui/main/StatusLine.h"
#include "ui/support/MainRig.h"

namespace {

TEST(FrmMainStatus, WindowDoesNotGrowForALongTrouble)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const QSize size = frm.size();
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    MainRig::EventsRun();
    EXPECT_EQ(frm.size(), size);
    EXPECT_EQ(frm.lblTrouble->toolTip(), frm.lblTrouble->text());
}

TEST(FrmMainStatus, WhatIsInForceStaysReadableBesideALongTrouble)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.resize(900, 600);
    MainRig::EventsRun();
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    MainRig::EventsRun();
    const auto* pInForce = qobject_cast<ElidedLabel*>(frm.lblInForce);
    const auto* pTrouble = qobject_cast<ElidedLabel*>(frm.lblTrouble);
    ASSERT_TRUE(pInForce != nullptr && pTrouble != nullptr);
    EXPECT_EQ(pInForce->TextShown(), frm.lblInForce->text());
    EXPECT_TRUE(pInForce->TextShown().startsWith(QStringLiteral("VOACAP · November · SSN")));
    EXPECT_TRUE(pTrouble->TextShown().startsWith(QStringLiteral("VOACAP gave no usable")))
        << pTrouble->TextShown().toStdString();
    EXPECT_TRUE(pTrouble->TextShown().endsWith(QChar(0x2026)));
    EXPECT_TRUE(pTrouble->toolTip().endsWith(QString::fromStdString(rig.m_msg.m_aShown[0].sText)));
    EXPECT_LE(pTrouble->geometry().right(), pInForce->geometry().left());
}

TEST(FrmMainStatus, WhatIsInForceIsShownWholeInItsLongOrShortForm)
{
    MainRig rig(kEngineRec533);
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=98\n");
    rig.m_sProfileFile = rig.m_folder.Write("marquesas_2027.ini", BytesRead(rig.m_sProfileFile));
    frmMain& frm = rig.Start();
    const auto* pInForce = qobject_cast<ElidedLabel*>(frm.lblInForce);
    for (const int nWidth : {640, 1024, 2000}) {
        frm.resize(nWidth, 600);
        MainRig::EventsRun();
        const QString sShown = pInForce->TextShown();
        EXPECT_TRUE(sShown.startsWith(QStringLiteral("REC533"))) << nWidth;
        EXPECT_TRUE(
            sShown.endsWith(QStringLiteral("5 kW, as the antenna choice · marquesas_2027.ini")))
            << sShown.toStdString();
        EXPECT_EQ(sShown.contains(QStringLiteral("Airmail has 98")), nWidth > 640) << nWidth;
        EXPECT_EQ(frm.lblBest->isVisible(), nWidth > 640) << nWidth;
    }
}

TEST(FrmMainStatus, BesideATroubleWhatIsInForceIsShort)
{
    QStatusBar bar;
    StatusLine line(bar, nullptr);
    line.TroubleSet("Trouble");
    line.Show("REC533 (built-in)", "REC533");
    EXPECT_EQ(line.lblInForce->text(), QStringLiteral("REC533"));
    EXPECT_EQ(line.lblInForce->toolTip(), QStringLiteral("REC533 (built-in)"));
}

TEST(FrmMainStatus, ANoticeWaitsUntilATroubleIsOverAndIsToldOnce)
{
    QStatusBar bar;
    StatusLine line(bar, nullptr);
    const auto Shown = [&] {
        line.Show("VOACAP", "VOACAP");
        return line.lblTrouble->text().toStdString();
    };
    line.NoticeSet("Notice");
    line.WarningSet("Warning");
    line.TroubleSet("Trouble");
    line.RefusedSet("Refused");
    line.HintSet("Hint");
    EXPECT_EQ(Shown(), "Hint");
    line.HintSet({});
    EXPECT_EQ(Shown(), "Refused");
    line.RefusedSet({});
    EXPECT_EQ(Shown(), "Trouble");
    line.TroubleSet({});
    EXPECT_EQ(Shown(), "Notice");
    EXPECT_EQ(Shown(), "Warning");
    EXPECT_EQ(Shown(), "Warning") << "it lasts";
}

TEST(FrmMainStatus, AWarningTakesTheRoomThatTheBestFrequencyLeaves)
{
    QStatusBar bar;
    StatusLine line(bar, nullptr);
    line.BestSet("Best now: 14000 kHz, 58 dB");
    line.WarningSet("The forecast is older than six months. Read a newer one.");
    line.Show("REC533 · May", "REC533 · May");
    bar.show();
    for (int nWidth = 300; nWidth <= 1500; nWidth += 50) {
        bar.resize(nWidth, bar.height());
        QApplication::processEvents();
        if (nWidth >= 600) {
            EXPECT_TRUE(line.lblBest->isVisible()) << nWidth;
            EXPECT_LE(line.lblBest->geometry().right(), line.lblInForce->geometry().left());
        }
    }
    const auto Whole = [](QLabel* pLabel) {
        const auto* pElided = qobject_cast<ElidedLabel*>(pLabel);
        return pElided->isVisible() && pElided->TextShown() == pElided->text();
    };
    EXPECT_TRUE(Whole(line.lblTrouble) && Whole(line.lblBest) && Whole(line.lblInForce));
}

TEST(FrmMainStatus, ADamagedForecastIsTheWarningOfTheTable)
{
    MainRig rig;
    rig.m_folder.Write("hopcast.forecast.txt", "damaged");
    frmMain& frm = rig.Start();
    frm.m_settings.m_bPropagationForecast = true;
    EXPECT_TRUE(frm.Update());
    frm.resize(1600, 600);
    MainRig::EventsRun();
    const QString sWarning = frm.lblInForce->toolTip().section(u'\n', -1);
    EXPECT_TRUE(
        sWarning.endsWith(QStringLiteral("The mean cycle is used. Read the forecast again.")))
        << sWarning.toStdString();
    EXPECT_EQ(frm.lblTrouble->text(), sWarning);
    EXPECT_TRUE(frm.lblBest->isVisible());
    EXPECT_FALSE(frm.grdData->StaleGet());
}

TEST(FrmMainStatus, NoFrequencyIsBestWhilePositionsWait)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    ASSERT_TRUE(frm.lblBest->isVisible());
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    EXPECT_FALSE(frm.lblBest->isVisible());
    QTest::keySequence(frm.txtLat0, QKeySequence::Undo);
    EXPECT_TRUE(frm.lblBest->isVisible());
}

TEST(FrmMainStatus, NamesTheBestFrequencyOfThisHourWhichCtrlHomeSelects)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int iHour, int i) { return i == 4 || i == 6 ? 50.0 + iHour : 10.0; };
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.lblBest->text(), QStringLiteral("Best now: 8000 kHz, 64 dB"));
    EXPECT_TRUE(frm.lblBest->isVisible());
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 1) << "the first selection stays";
    rig.m_dtUtc.nHour = 14;
    frm.tmrTime->setInterval(1);
    EXPECT_TRUE(QTest::qWaitFor(
        [&frm] { return frm.lblBest->text() == QStringLiteral("Best now: 8000 kHz, 65 dB"); }));
    frm.grdData->setFocus();
    QTest::keyClick(frm.grdData, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 4);
    EXPECT_EQ(frm.DataGetSelected().iHour, 15);
    EXPECT_TRUE(frm.grdData->CellGet(4, 15).bFrame);
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    EXPECT_FALSE(frm.lblBest->isVisible());
}

TEST(FrmMainStatus, NoFrequencyIsBestWhereNoneHasAValue)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int, int) { return -99.0; };
    const frmMain& frm = rig.Start();
    EXPECT_FALSE(frm.lblBest->isVisible());
}

TEST(FrmMainStatus, NamesAirmailsNumberWhileTheTypedOneIsInForce)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=98\n");
    const frmMain& frm = rig.Start();
    EXPECT_TRUE(
        frm.lblInForce->toolTip().contains(QStringLiteral("SSN 100 (typed; Airmail has 98)")))
        << frm.lblInForce->toolTip().toStdString();
}

TEST(FrmMainStatus, ASettingOutOfRangeIsToldInAUsersWordsThenByItsMessage)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = 99.0;
    EXPECT_FALSE(frm.Update());
    ASSERT_FALSE(rig.m_msg.m_aShown.empty());
    EXPECT_EQ(frm.lblTrouble->toolTip(),
              QStringLiteral("Receiver latitude 99° is out of range: ")
                  + QString::fromStdString(rig.m_msg.m_aShown.back().sText));
}

}  // namespace
