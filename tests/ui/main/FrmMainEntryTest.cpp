/// The entry of positions, as far as the window has a part in it.
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
        QStringLiteral("Not pasted: \"somewhere\" is no position. ")))
        << frm.lblTrouble->toolTip().toStdString();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    EXPECT_FALSE(frm.lblTrouble->isVisible());
    QTest::keyClicks(frm.txtLat0, QStringLiteral("x"));
    EXPECT_EQ(frm.lblTrouble->toolTip(),
              QStringLiteral("Digits here; a grid square can be pasted (Ctrl+V)"));
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_FALSE(frm.lblTrouble->isVisible());
}

}  // namespace
