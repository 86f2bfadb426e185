/// Values out of range at Update: no engine sees them, and the window says so.
#include <gtest/gtest.h>

#include <QTest>

#include "ui/common/ElidedLabel.h"
#include "ui/support/MainRig.h"

namespace {

struct BeyondCase {
    int iBad;
    const char* sText;
    const char* sTrouble;
};

class FrmMainBeyond : public testing::TestWithParam<BeyondCase> {};

TEST_P(FrmMainBeyond, APositionOutOfRangeRunsNothingAndIsMarkedAndExplained)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    LocationField* const apField[] = {frm.txtLat0, frm.txtLon0, frm.txtLat1, frm.txtLon1};
    const double* const adValues[] = {&frm.m_settings.m_dRcLat, &frm.m_settings.m_dRcLon,
                                      &frm.m_settings.m_dTxLat, &frm.m_settings.m_dTxLon};
    double adBefore[4];
    for (int n = 0; n < 4; ++n) {
        adBefore[n] = *adValues[n];
        apField[n]->TextSet(n % 2 == 0 ? QStringLiteral("11°00.00'N")
                                       : QStringLiteral("011°00.00'E"));
    }
    LocationField* pBad = apField[GetParam().iBad];
    pBad->TextSet(QString::fromUtf8(GetParam().sText));
    const QString sTip = pBad->toolTip();
    frm.cmdUpdate->setEnabled(true);
    rig.m_engine.nStarts = 0;
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    for (int n = 0; n < 4; ++n) {
        EXPECT_DOUBLE_EQ(*adValues[n], n < GetParam().iBad ? 11.0 : adBefore[n]) << n;
        EXPECT_EQ(apField[n]->MarkIs(), n == GetParam().iBad) << n;
    }
    EXPECT_EQ(frm.lblTrouble->text(), QString::fromUtf8(GetParam().sTrouble));
    EXPECT_EQ(pBad->text(), QString::fromUtf8(GetParam().sText));
    EXPECT_NE(pBad->toolTip(), sTip);
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    pBad->setFocus();
    QTest::keyClick(pBad, Qt::Key_0);
    EXPECT_FALSE(pBad->MarkIs());
    EXPECT_EQ(pBad->toolTip(), sTip);
}

INSTANTIATE_TEST_SUITE_P(
    Order, FrmMainBeyond,
    testing::Values(BeyondCase{0, "90°00.01'N",
                               "Receiver latitude 90°00.01'N is out of range, 90° at most. "
                               "Correct it, then Update"},
                    BeyondCase{1, "181°00.00'W",
                               "Receiver longitude 181°00.00'W is out of range, 180° at most. "
                               "Correct it, then Update"},
                    BeyondCase{2, "89°70.00'S",
                               "Transmitter latitude 89°70.00'S is out of range, 90° at most. "
                               "Correct it, then Update"},
                    BeyondCase{3, "180°00.01'E",
                               "Transmitter longitude 180°00.01'E is out of range, 180° at most. "
                               "Correct it, then Update"}));

TEST(FrmMainUpdate, SeventyMinutesInRangeStayAllowed)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.txtLat0->TextSet(QStringLiteral("88°70.00'N"));
    frm.cmdUpdate->setEnabled(true);
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_NEAR(frm.m_settings.m_dRcLat, 89.166667, 1e-6);
    EXPECT_FALSE(frm.txtLat0->MarkIs());
}

TEST(FrmMainUpdate, WithoutAFrequencyInRangeTheListIsToBeChanged)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_nData = 1;
    frm.FrequencySet(1, 50.0F);
    rig.m_engine.nStarts = 0;
    EXPECT_FALSE(frm.Update());
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("No frequencies to predict: Options, Frequency"));
    EXPECT_EQ(frm.m_settings.FrequencyGet(1), 50.0F) << "it stays in the list";
    EXPECT_EQ(frm.grdData->TextGet(1, 0), QStringLiteral("2000")) << "of the table that is kept";
}

}  // namespace
