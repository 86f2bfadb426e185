#include <QImage>
#include <QPainter>
#include <vector>

#include "MapFakes.h"

namespace {

/// Fills a rectangle, leaves the painter changed, and records what it is asked.
class LayerFake final : public MapLayer {
public:
    LayerFake(const QColor& clr, const QString& sTip, std::vector<QPoint>& aPointer)
        : m_clr(clr), m_sTip(sTip), m_aPointer(aPointer)
    {
    }
    void Paint(QPainter& painter) override
    {
        painter.fillRect(0, 0, 2, 2, m_clr);
        painter.translate(5, 5);
        painter.setClipRect(0, 0, 1, 1);
    }
    [[nodiscard]] QString TipGet(const LatLon& /*pos*/) const override { return m_sTip; }
    void PointerMove(const QPoint& ptPointer) override { m_aPointer.push_back(ptPointer); }

private:
    QColor m_clr;
    QString m_sTip;
    std::vector<QPoint>& m_aPointer;
};

TEST(MapLayers, LastAddedLiesOnTopAndEachFindsThePainterInOrder)
{
    std::vector<QPoint> aPointer;
    MapLayers layers;
    layers.Add(std::make_unique<LayerFake>(Qt::red, QString(), aPointer));
    layers.Add(std::make_unique<LayerFake>(Qt::blue, QString(), aPointer));
    QImage img(8, 8, QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter painter(&img);
    layers.Paint(painter);
    EXPECT_TRUE(painter.transform().isIdentity());
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_EQ(img.pixel(1, 1), qRgb(0, 0, 255));
    EXPECT_EQ(img.pixel(5, 5), qRgb(255, 255, 255));
}

TEST(MapLayers, TipIsThePositionAndWhatEachLayerAddsFromTheLowestUp)
{
    std::vector<QPoint> aPointer;
    MapLayers layers;
    EXPECT_EQ(layers.TipGet({10, -20}), PositionText({10, -20}));
    layers.Add(std::make_unique<LayerFake>(Qt::red, QStringLiteral(", first"), aPointer));
    layers.Add(std::make_unique<LayerFake>(Qt::red, QStringLiteral(", second"), aPointer));
    EXPECT_EQ(layers.TipGet({10, -20}),
              PositionText({10, -20}) + QStringLiteral(", first, second"));
}

TEST(MapLayers, EveryLayerHearsOfThePointer)
{
    std::vector<QPoint> aPointer;
    MapLayers layers;
    layers.Add(std::make_unique<LayerFake>(Qt::red, QString(), aPointer));
    layers.Add(std::make_unique<LayerFake>(Qt::red, QString(), aPointer));
    layers.PointerMove({3, 4});
    EXPECT_EQ(aPointer, (std::vector<QPoint>{{3, 4}, {3, 4}}));
}

class frmMapLayers : public MapWindow {};

TEST_F(frmMapLayers, MarkerOutsideTheViewHasAnArrowAtTheEdge)
{
    ZoomInside();  // the North Pacific, west of both ends
    m_pMap->m_posRc = m_pMap->m_posTx = {30, 230};
    m_pMap->m_posRc.dLat = 30.5;
    const QImage imgInside = m_pMap->pctMap->grab().toImage();
    m_pMap->m_posTx = {30, 20};  // far to the west
    const QImage img = m_pMap->pctMap->grab().toImage();
    const double dY = m_pMap->pctMap->height() / 2.0;
    bool bChanged = false;
    for (int y = int(dY) - 60; y < int(dY) + 60; ++y)
        bChanged = bChanged || img.pixel(8, y) != imgInside.pixel(8, y);
    EXPECT_TRUE(bChanged);
}

TEST_F(frmMapLayers, TogglesPaintAboveThePictureOnly)
{
    const QImage img = m_pMap->pctMap->m_img.copy();
    const QImage imgShown = m_pMap->pctMap->grab().toImage();
    for (QToolButton* pToggle : {m_pMap->chkPath, m_pMap->chkNight, m_pMap->chkTwilight}) {
        EXPECT_FALSE(pToggle->isChecked());
        QTest::mouseClick(pToggle, Qt::LeftButton);
        EXPECT_NE(m_pMap->pctMap->grab().toImage(), imgShown);
        EXPECT_EQ(m_pMap->pctMap->m_img, img);
        QTest::mouseClick(pToggle, Qt::LeftButton);
        EXPECT_EQ(m_pMap->pctMap->grab().toImage(), imgShown);
    }
}

TEST_F(frmMapLayers, TheShadeFollowsHourAndView)
{
    const auto DarkAt = [this](double dLat, double dLon) {
        return qGray(m_pMap->pctMap->grab().toImage().pixel(PointOf(dLat, dLon)));
    };
    const int nDay = DarkAt(-20, -95);
    QTest::mouseClick(m_pMap->chkTwilight, Qt::LeftButton);
    m_host.m_settings.m_selected = {1, 7};  // 06 UTC: midnight at 90 W
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    m_pMap->mnuOverlay->close();
    EXPECT_LT(DarkAt(-20, -95), nDay);
    m_pMap->mnuOverlayTimeData[18]->trigger();
    EXPECT_EQ(DarkAt(-20, -95), nDay);
    m_pMap->mnuOverlayTimeData[6]->trigger();
    ZoomInside();
    const QImage img = m_pMap->pctMap->grab().toImage();
    QTest::mouseClick(m_pMap->chkTwilight, Qt::LeftButton);
    QTest::mouseClick(m_pMap->chkTwilight, Qt::LeftButton);
    EXPECT_EQ(m_pMap->pctMap->grab().toImage(), img);
}

}  // namespace
