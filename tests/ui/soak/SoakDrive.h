/// @file SoakDrive.h
/// Works the main window as a user does, again and again.
#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "ui/common/ElidedLabel.h"
#include "ui/details/frmDetails.h"
#include "ui/e2e/RealRig.h"
#include "ui/map/frmMap.h"
#include "ui/support/UiEvents.h"

/// Opens map and details beside the main window, which stays active.
inline frmMain& WithMapAndDetails(frmMain& frm)
{
    frm.mnuViewWorldMap->trigger();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
    CellMouse(*frm.grdData, {7, 19});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frm.m_pDetails));
    frm.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frm));
    return frm;
}

/// Types new degrees of the receiver's latitude and presses the button; all windows are painted.
inline void LatitudeUpdate(frmMain& frm, const char* sDegrees)
{
    frm.txtLat0->setFocus();
    frm.txtLat0->setCursorPosition(0);
    QTest::keyClicks(frm.txtLat0, QString::fromLatin1(sDegrees));
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    MainRig::EventsRun();
    ASSERT_EQ(frm.m_settings.m_dRcLat, QString::fromLatin1(sDegrees).toDouble());
    ASSERT_EQ(frm.m_pMap->m_posRc.dLat, frm.m_settings.m_dRcLat);
    ASSERT_TRUE(frm.lblTrouble->text().isEmpty()) << frm.lblTrouble->text().toStdString();
}
