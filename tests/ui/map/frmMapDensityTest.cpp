// The picture at the screen's pixel density. The test program runs twice: at 100 and at 200 %.
#include "MapFakes.h"
#include "ui/map/MapGraticule.h"

namespace {

class frmMapDensity : public MapWindow {
protected:
    [[nodiscard]] double DensityGet() const { return m_pMap->pctMap->devicePixelRatioF(); }
};

TEST_F(frmMapDensity, PictureHasThePixelsOfTheScreen)
{
    EXPECT_EQ(m_pMap->pctMap->m_img.size(), m_pMap->pctMap->size() * DensityGet());
    EXPECT_EQ(m_pMap->pctMap->m_img.devicePixelRatio(), DensityGet());
    EXPECT_EQ(m_pMap->m_view.m_nMapWidth, m_pMap->pctMap->width());
    const QByteArray sScale = qgetenv("QT_SCALE_FACTOR");
    EXPECT_EQ(DensityGet(), sScale.isEmpty() ? 1 : sScale.toDouble());
}

TEST_F(frmMapDensity, CoastsAreAsFineAsThePixels)
{
    const QImage& img = m_pMap->pctMap->m_img;
    int nFine = 0;  // differing neighbours that a coarser picture would have equal
    for (int y = 0; y + 1 < img.height(); y += 2)
        for (int x = 0; x + 1 < img.width(); x += 2)
            nFine += img.pixel(x, y) != img.pixel(x + 1, y) ? 1 : 0;
    EXPECT_GT(nFine, 1000);
}

TEST_F(frmMapDensity, RubberBandIsWhereThePointerIs)
{
    const QImage img = m_pMap->pctMap->m_img.copy();
    QTest::mousePress(m_pMap->pctMap, Qt::LeftButton, {}, {400, 200});
    QMouseEvent evt(QEvent::MouseMove, QPointF(500, 300),
                    m_pMap->pctMap->mapToGlobal(QPoint(500, 300)), Qt::NoButton, Qt::LeftButton,
                    Qt::NoModifier);
    QApplication::sendEvent(m_pMap->pctMap, &evt);
    const QPoint pt = QPoint(450, 200) * DensityGet();
    EXPECT_EQ(m_pMap->pctMap->m_img.pixel(pt), img.pixel(pt) ^ 0xFFFFFF);
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    EXPECT_EQ(m_pMap->pctMap->m_img, img);
    QTest::mouseRelease(m_pMap->pctMap, Qt::LeftButton, {}, {500, 300});
}

TEST_F(frmMapDensity, CellsLieUnderTheirPositions)
{
    EngineFake engine;
    engine.m_fnSnr = [](double, double dLon) { return dLon < -116 ? 52.0 : 66.0; };
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    OverlayChoose();
    const auto ColorAt = [&](double dLat, double dLon) {
        return m_pMap->pctMap->m_img.pixel(m_pMap->m_view.LatLonGetPoint(dLat, dLon)
                                           * DensityGet());
    };
    EXPECT_EQ(ColorAt(30.3, -119.3), qRgb(0, 0, 255));
    EXPECT_EQ(ColorAt(30.3, -113.3), qRgb(255, 0, 255));
}

TEST(GraticuleDense, DensePictureGetsLinesAtItsOwnPixels)
{
    MapView view;
    view.m_nImgWidth = 360;
    view.m_nImgHeight = 338;
    view.m_nMapWidth = 180;
    view.m_nMapHeight = 169;
    view.ZoomSet({2, 0, 180});
    QImage img(360, 338, QImage::Format_RGB32);
    img.setDevicePixelRatio(2);
    img.fill(Qt::white);
    QImage imgLines = img;
    GraticulePaint(imgLines, view, false, QFont());
    EXPECT_EQ(imgLines.devicePixelRatio(), 2);
    EXPECT_EQ(imgLines.pixel(90, 40), qRgb(128, 128, 128));
    EXPECT_EQ(imgLines.pixel(91, 40), qRgb(128, 128, 128));
    EXPECT_EQ(imgLines.pixel(89, 40), qRgb(255, 255, 255));
    EXPECT_EQ(imgLines.pixel(92, 40), qRgb(255, 255, 255));
}

}  // namespace
