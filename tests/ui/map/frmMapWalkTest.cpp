// A long random walk over the map: some things hold whatever the user does.
#include <cmath>
#include <set>

#include "MapFakes.h"
#include "support/PropertyRandom.h"
#include "ui/map/MapGraticule.h"

namespace {

class frmMapWalk : public MapWindow {
protected:
    frmMapWalk()
    {
        m_host.m_settings.m_iMapOverlayGridSize = 12;
        m_engine.m_fnSnr = [](double dLat, double dLon) {
            return 50 + 30 * std::sin(dLat / 9) * std::cos(dLon / 7);
        };
    }
    [[nodiscard]] QPoint PointAny()
    {
        return {m_rnd.Whole(0, m_pMap->pctMap->width() - 1),
                m_rnd.Whole(0, m_pMap->pctMap->height() - 1)};
    }
    void Act(int nAction);
    void PointerAct(int nAction);
    void Check() const;
    void OverlayCheck();

    EngineFake m_engine;
    PropertyRandom m_rnd;
};

void frmMapWalk::PointerAct(int nAction)
{
    const QPoint pt = PointAny();
    switch (nAction) {
        case 0:
            Drag(m_pMap->pctMap, pt, PointAny());
            break;
        case 1:
            Drag(m_pMap->pctMap, pt, PointAny(), Qt::MiddleButton);
            break;
        case 2: {
            const LatLon posBefore = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
            const bool bOnImage = m_pMap->m_view.ImageGetRect().contains(pt);
            QWheelEvent evt(pt, m_pMap->pctMap->mapToGlobal(pt), {},
                            {0, m_rnd.Whole(0, 1) == 0 ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                            Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_pMap->pctMap, &evt);
            if (bOnImage) {  // the wheel keeps the place under the pointer
                const QPointF ptAfter(
                    m_pMap->m_view.LonGetX(m_pMap->m_view.LonGetOnScale(posBefore.dLon)),
                    m_pMap->m_view.LatGetY(posBefore.dLat));
                EXPECT_NEAR(
                    std::remainder(ptAfter.x() - pt.x(),
                                   360 / (m_pMap->m_view.m_box.dRight - m_pMap->m_view.m_box.dLeft)
                                       * m_pMap->m_view.m_nMapWidth),
                    0, 12);
                EXPECT_NEAR(ptAfter.y(), pt.y(), 12);
            }
            break;
        }
        case 3:
            Drag(m_rnd.Whole(0, 1) == 0 ? m_pMap->lblRc : m_pMap->lblTx, {5, 5},
                 {m_rnd.Whole(-200, 200), m_rnd.Whole(-150, 150)});
            break;
        case 4:
            MapMenuChoose(m_pMap->pctMap, pt,
                          std::array{m_pMap->mnuMapCenter, m_pMap->mnuMapZoomIn,
                                     m_pMap->mnuMapZoomOut}[std::size_t(m_rnd.Whole(0, 2))]);
            QApplication::setActiveWindow(m_pMap);
            break;
        default:
            TipAt(pt);
    }
}

void frmMapWalk::Act(int nAction)
{
    switch (nAction) {
        case 6:
            QTest::keyClick(m_pMap, std::array{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                                               Qt::Key_Down}[std::size_t(m_rnd.Whole(0, 3))]);
            break;
        case 7:
            QTest::keyClick(m_pMap, std::array{'+', '-', '0'}[std::size_t(m_rnd.Whole(0, 2))]);
            break;
        case 8:
            QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
            break;
        case 9:
            m_pMap->mnuOverlayDraw->trigger();
            break;
        case 10:
            m_pMap->hscMap->setFocus();
            m_pMap->hscMap->setValue(m_rnd.Whole(-1900, 3700));
            break;
        case 11:
            m_pMap->vscMap->setFocus();
            m_pMap->vscMap->setValue(m_rnd.Whole(-900, 900));
            break;
        case 12: {
            const MapBox box = m_pMap->m_view.m_box;
            m_pMap->Update();
            BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
            break;
        }
        case 13:
            if (m_rnd.Whole(0, 4) == 0) {
                m_host.m_settings.m_iMapWorldBegins = m_rnd.Whole(0, 1) * -180;
                m_pMap->Update();
            }
            break;
        case 14:
            if (m_rnd.Whole(0, 4) == 0)
                m_pMap->resize(m_rnd.Whole(750, 1100), m_rnd.Whole(400, 700));
            break;
        default:
            PointerAct(nAction);
    }
}

void frmMapWalk::Check() const
{
    const MapView& view = m_pMap->m_view;
    ASSERT_TRUE(std::isfinite(view.m_box.dTop) && std::isfinite(view.m_box.dLeft));
    ASSERT_GT(view.m_box.dTop, view.m_box.dBottom);
    ASSERT_GE(view.m_dScale, kScaleMin);
    ASSERT_FALSE(view.ImageGetRect().isEmpty());  // part of the world is visible
    ASSERT_EQ(m_pMap->pctMap->m_img.size(), m_pMap->pctMap->size());
    ASSERT_EQ(m_pMap->cursor().shape(), Qt::ArrowCursor);
    for (const auto& [pMarker, pos] :
         {std::pair(m_pMap->lblRc, m_pMap->m_posRc), std::pair(m_pMap->lblTx, m_pMap->m_posTx)}) {
        ASSERT_GT(pos.dLon, -180 - 1e-9);
        ASSERT_LE(pos.dLon, 180);
    }
    ASSERT_TRUE(m_host.m_sOverlayFailed.empty());
}

/// Where cells are shown, the colour and the tip of a place match the engine's value at its grid
/// point.
void frmMapWalk::OverlayCheck()
{
    if (!m_pMap->windowTitle().startsWith(QStringLiteral("Snr Overlay")))
        return;
    const QPoint pt = PointAny();
    if (!m_pMap->m_view.ImageGetRect().contains(pt))
        return;
    const QString sTip = TipAt(pt);
    const auto nAt = sTip.indexOf(QStringLiteral("Snr "));
    ASSERT_GE(nAt, 0) << sTip.toStdString();
    const float fSnr = sTip.mid(nAt + 4).split(QLatin1Char(' ')).at(0).toFloat();
    std::set<QRgb> setNear;
    const QRect rct = m_pMap->pctMap->m_img.rect();
    for (int y = -2; y <= 2; ++y)
        for (int x = -2; x <= 2; ++x)
            if (rct.contains(pt + QPoint(x, y)))
                setNear.insert(m_pMap->pctMap->m_img.pixel(pt + QPoint(x, y)));
    const std::uint32_t nColor = m_host.SnrGetColor(fSnr);
    const QRgb nWanted =
        fSnr < m_host.m_settings.m_fMapOverlayMinSnr
            ? qRgb(255, 255, 255)
            : qRgb(int(nColor & 255), int(nColor >> 8 & 255), int(nColor >> 16 & 255));
    // A line or a label may cover the cell.
    EXPECT_TRUE(setNear.count(nWanted) == 1 || setNear.count(qRgb(0, 0, 0)) == 1
                || setNear.count(kMapBackground) == 1)
        << sTip.toStdString();
}

TEST_F(frmMapWalk, TwoThousandActionsBreakNothing)
{
    constexpr int kActions = 2000;
    for (int i = 0; i < kActions; ++i) {
        const PropertyCase cse(i);
        const int nAction = m_rnd.Whole(0, 14);
        Act(nAction);
        if (m_rnd.Whole(0, 9) == 0)
            QTest::qWait(300);  // for the run that the wheel starts
        Check();
        OverlayCheck();
        ASSERT_FALSE(HasFailure()) << "action " << i << " of kind " << nAction;
    }
}

}  // namespace
