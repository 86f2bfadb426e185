#include "MapFakes.h"

namespace {

class frmMapLayout : public MapWindow {};

TEST_F(frmMapLayout, ControlsCarryTheirNamesAndTexts)
{
    for (const char* sName : {"pctFrame", "pctMap", "hscMap", "vscMap", "txtCursor", "cmdZoomIn",
                              "cmdZoomOut", "cmdZoomOff", "cmdZoomTxRc", "cmdOverlay",
                              "cmdStations", "cmdApply", "cmdOk", "cmdCancel", "lblRc", "lblTx"})
        Find<QWidget>(sName);
    for (const char* sName : {"mnuMapCenter", "mnuMapZoomIn", "mnuMapZoomOut", "mnuOverlayDraw",
                              "mnuOverlaySeparator", "mnuStationSetRc", "mnuStationSetTx"})
        Find<QAction>(sName);
    EXPECT_EQ(m_pMap->cmdZoomTxRc->text(), QStringLiteral("Zoom to Transmitter and Receiver"));
    EXPECT_EQ(m_pMap->cmdZoomOff->text(), QStringLiteral("Zoom Off"));
    EXPECT_EQ(m_pMap->mnuMapZoomOut->text(), QStringLiteral("Center, Zoom Out"));
    EXPECT_EQ(m_pMap->cmdOverlay->toolTip(),
              QStringLiteral("Display Snr Overlay (Snr vs Range from Rc)"));
    EXPECT_EQ(m_pMap->cmdStations->toolTip(), QStringLiteral("Display AirMail Stations"));
}

TEST_F(frmMapLayout, ButtonsFormOneRowWithinTheWindow)
{
    m_pMap->resize(m_pMap->minimumSize());
    EXPECT_LE(m_pMap->minimumWidth(), 1000);
    const int nTop = m_pMap->height() - m_pMap->cmdZoomOff->height() - 10;
    int nRight = 0;
    for (QAbstractButton* pButton : std::initializer_list<QAbstractButton*>{
             m_pMap->cmdZoomIn, m_pMap->cmdZoomOut, m_pMap->cmdZoomOff, m_pMap->cmdZoomTxRc,
             m_pMap->cmdOverlay, m_pMap->cmdStations, m_pMap->chkPath, m_pMap->chkNight,
             m_pMap->chkTwilight, m_pMap->cmdOk, m_pMap->cmdCancel, m_pMap->cmdApply}) {
        EXPECT_EQ(pButton->y(), nTop);
        EXPECT_GT(pButton->x(), nRight);
        nRight = pButton->geometry().right();
    }
    EXPECT_LT(nRight, m_pMap->width());
}

TEST_F(frmMapLayout, FrameAndMapFollowTheWindowsSize)
{
    m_pMap->resize(1200, 800);
    EXPECT_EQ(m_pMap->pctFrame->geometry(), QRect(10, 10, 1180, m_pMap->cmdZoomOff->y() - 10 - 10));
    const QRect rctInner = m_pMap->pctFrame->contentsRect();
    EXPECT_EQ(m_pMap->pctMap->width(), rctInner.width() - m_pMap->vscMap->width());
    EXPECT_EQ(m_pMap->pctMap->height(), rctInner.height() - m_pMap->hscMap->height());
    EXPECT_EQ(m_pMap->hscMap->width(), m_pMap->pctMap->width());
    EXPECT_EQ(m_pMap->vscMap->height(), m_pMap->pctMap->height());
    EXPECT_EQ(m_pMap->pctMap->m_img.size(), m_pMap->pctMap->size());
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
}

TEST_F(frmMapLayout, ReadOutIsAsWideAsItsText)
{
    QTest::mousePress(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});
    const QFontMetrics metrics = m_pMap->txtCursor->fontMetrics();
    const int nText = metrics.horizontalAdvance(m_pMap->txtCursor->text());
    EXPECT_GT(nText, 100);
    EXPECT_GT(m_pMap->txtCursor->width(), nText + 8);
    EXPECT_LT(m_pMap->txtCursor->width(), nText + 40);
    EXPECT_NEAR(m_pMap->txtCursor->geometry().center().x(), m_pMap->pctMap->geometry().center().x(),
                1);
    m_pMap->txtCursor->setText(QString(400, QLatin1Char('m')));
    EXPECT_LE(m_pMap->txtCursor->width(), m_pMap->pctMap->width());
    QTest::mouseRelease(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});
}

}  // namespace
