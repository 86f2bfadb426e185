#include <QImage>

#include "MapFakes.h"
#include "geo/MathLib.h"

namespace {

class MapSmoothShown : public MapWindow {
protected:
    MapSmoothShown()
    {
        QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
        m_engine.m_fnSnr = [](double, double dLon) { return 50 + (dLon + 116) * 2; };
    }
    void SmoothChoose()
    {
        QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
        ItemChoose(m_pMap->mnuOverlay, m_pMap->mnuOverlaySmooth);
    }
    EngineFake m_engine;
    MsgRecorder m_msg;
};

TEST_F(MapSmoothShown, TheItemStandsBelowTheRequiredOnesAndIsOffAtFirst)
{
    QStringList asItem;
    for (const QAction* pItem : m_pMap->mnuOverlay->actions())
        asItem.append(pItem->isSeparator() ? QString() : pItem->objectName());
    EXPECT_EQ(asItem.indexOf(QStringLiteral("mnuOverlayDraw")), 3);
    EXPECT_GT(asItem.indexOf(QStringLiteral("mnuOverlaySmooth")), 3);
    EXPECT_EQ(m_pMap->mnuOverlaySmooth->text(), QStringLiteral("Smooth"));
    EXPECT_TRUE(m_pMap->mnuOverlaySmooth->isCheckable());
    EXPECT_FALSE(m_pMap->mnuOverlaySmooth->isChecked());
}

TEST_F(MapSmoothShown, ItChangesTheLookWithoutAnotherRunAndBack)
{
    OverlayChoose();
    const QImage imgCells = m_pMap->pctMap->m_img;
    const QString sTitle = m_pMap->windowTitle();
    SmoothChoose();
    EXPECT_TRUE(m_pMap->mnuOverlayDraw->isChecked());
    const QImage imgSmooth = m_pMap->pctMap->m_img;
    EXPECT_NE(imgSmooth, imgCells);
    EXPECT_EQ(m_pMap->windowTitle(), sTitle);
    EXPECT_EQ(m_engine.m_aRuns.size(), 1u);
    SmoothChoose();
    EXPECT_EQ(m_pMap->pctMap->m_img, imgCells) << "pixel by pixel";
    EXPECT_EQ(m_engine.m_aRuns.size(), 1u);
    SmoothChoose();
    EXPECT_EQ(m_pMap->pctMap->m_img, imgSmooth);
    m_pMap->Update();
    EXPECT_EQ(m_pMap->pctMap->m_img, imgSmooth) << "kept for the next run";
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
}

TEST_F(MapSmoothShown, HiddenOverlayStaysHiddenAndTheNextOneIsSmooth)
{
    const QImage img = m_pMap->pctMap->m_img;
    SmoothChoose();
    EXPECT_EQ(m_pMap->pctMap->m_img, img);
    EXPECT_FALSE(m_pMap->mnuOverlayDraw->isChecked());
    EXPECT_TRUE(m_engine.m_aRuns.empty());
    OverlayChoose();
    const QImage imgSmooth = m_pMap->pctMap->m_img;
    SmoothChoose();
    EXPECT_NE(m_pMap->pctMap->m_img, imgSmooth);
}

TEST_F(MapSmoothShown, TipsTellWhatThePictureShows)
{
    OverlayChoose();
    const QPoint pt = PointOf(30, -115.3);
    const auto SnrAt = [&] {
        const QString sTip = TipAt(pt);
        const auto nAt = sTip.indexOf(QStringLiteral("Snr "));
        return sTip.mid(nAt + 4, sTip.indexOf(QStringLiteral(" dB")) - nAt - 4).toDouble();
    };
    const double dStep = (m_engine.m_aRuns[0].dEast - m_engine.m_aRuns[0].dWest) / 39;
    const LatLon pos = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
    const double dExact = 50 + (pos.dLon + 116) * 2;
    const double dCells = SnrAt();
    EXPECT_NEAR(dCells, dExact, dStep + 0.1);
    SmoothChoose();
    EXPECT_NEAR(SnrAt(), dExact, 0.11);
    SmoothChoose();
    EXPECT_DOUBLE_EQ(SnrAt(), dCells);
}

TEST_F(MapSmoothShown, AFailureOfTheSecondBoxStaysTold)
{
    m_pMap->mnuMapZoomOut->trigger();
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    m_engine.m_fnSpoil = [this](std::string sGrid) {
        return m_engine.m_aRuns.size() == 2 ? std::string() : sGrid;
    };
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 2u);
    ASSERT_NE(m_host.m_sOverlayFailed, "");
    const std::string sFailed = m_host.m_sOverlayFailed;
    SmoothChoose();
    EXPECT_EQ(m_host.m_sOverlayFailed, sFailed);
    EXPECT_TRUE(m_pMap->txtCursor->isVisible());
    EXPECT_EQ(m_msg.m_aShown.size(), 1u) << "one box for one failure";
}

}  // namespace
