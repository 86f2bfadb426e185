// Colours and tips of the overlay compared with single predictions of the same engine.
#include <cmath>

#include "MapFakes.h"
#include "airmail/AirMailFolders.h"
#include "engine/builtin/BuiltInEngine.h"
#include "propagation/AreaBoxes.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "propagation/Request.h"
#include "support/NeedVoacapl.h"
#include "support/PropertyRandom.h"
#include "system/NumberLib.h"
#include "ui/e2e/EngineReal.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapOverlay.h"

namespace {

constexpr int kGrid = 14;
constexpr int kPoints = 12;

class MapTruth : public MapWindow {
protected:
    MapTruth()
    {
        Settings& settings = m_host.m_settings;
        settings.m_iMapOverlayGridSize = kGrid;
        settings.m_fPropagationSunSpotNumber = 100;
        settings.m_selected = {5, 19};  // 10 MHz at 18 UT
    }
    void Show(int iEdge, const MapBox& box, const LatLon& posRc)
    {
        m_host.m_settings.m_iMapWorldBegins = iEdge;
        m_host.m_settings.m_dRcLat = posRc.dLat;
        m_host.m_settings.m_dRcLon = posRc.dLon;
        m_pMap->Update();
        QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
        m_pMap->m_view.ZoomSet(m_pMap->m_view.BoxGetZoom(box));
        OverlayChoose();
        ASSERT_TRUE(m_pMap->windowTitle().startsWith(QStringLiteral("Snr Overlay, ")));
    }
    /// The grid point nearest to a position, by the bounds in the decks.
    [[nodiscard]] LatLon GridPointOf(const LatLon& pos) const
    {
        LatLon posBest;
        double dBest = 1e9;
        for (const AreaBox& box : OverlayGetBoxes(m_pMap->m_view.m_box, m_pMap->m_view.m_dEdge)) {
            const AreaBox boxDeck = AreaBoxPrinted(box);
            for (int iLat = 0; iLat < kGrid; ++iLat)
                for (int iLon = 0; iLon < kGrid; ++iLon) {
                    const double dLat =
                        boxDeck.dBottom + iLat * (boxDeck.dTop - boxDeck.dBottom) / (kGrid - 1);
                    const double dLon =
                        boxDeck.dLeft + iLon * (boxDeck.dRight - boxDeck.dLeft) / (kGrid - 1);
                    const double dFar =
                        std::hypot(pos.dLat - dLat, std::remainder(pos.dLon - dLon, 360.0));
                    if (dFar < dBest) {
                        dBest = dFar;
                        posBest = {dLat, dLon};
                    }
                }
        }
        return posBest;
    }
    /// A separate run of the engine for one place, which the deck rounds to hundredths of a degree.
    [[nodiscard]] float SnrAlone(const LatLon& pos) const
    {
        constexpr double kHundredth = 0.01;
        AreaRequest input = AreaRequestFromSettings(m_host.m_settings);
        input.iHour = 18;
        input.fFrequency = 10.0F;
        input.nGridSize = 2;
        input.dSouth = std::round(pos.dLat / kHundredth) * kHundredth;
        input.dWest = std::min(std::round(pos.dLon / kHundredth) * kHundredth, 179.99);
        input.dNorth = input.dSouth + kHundredth;
        input.dEast = input.dWest + kHundredth;
        std::vector<AreaPoint> aPoints;
        EXPECT_TRUE(AreaPointsRead(input, aPoints).empty());
        const auto fSnr = GridGetNearest(aPoints, input.dSouth, input.dWest);
        EXPECT_TRUE(fSnr);
        return fSnr.value_or(999.0F);
    }
    [[nodiscard]] float SnrOfTip(QPoint pt)
    {
        const QString sTip = TipAt(pt);
        const auto nAt = sTip.indexOf(QStringLiteral("Snr "));
        EXPECT_GE(nAt, 0) << sTip.toStdString();
        return sTip.mid(nAt + 4).split(QLatin1Char(' ')).at(0).toFloat();
    }
    /// A random pixel inside a cell, with no line or label on it.
    [[nodiscard]] QPoint PointAny()
    {
        const QRect rct = m_pMap->m_view.ImageGetRect().adjusted(2, 2, -2, -2);
        for (;;) {
            const QPoint pt(m_rnd.Whole(rct.left(), rct.right()),
                            m_rnd.Whole(rct.top(), rct.bottom()));
            const QRgb nPixel = m_pMap->pctMap->m_img.pixel(pt);
            bool bInside = nPixel != qRgb(0, 0, 0) && nPixel != kMapBackground && pt.x() > 90
                           && pt.y() < rct.bottom() - 30;
            const LatLon pos = GridPointOf(PositionOf(pt));
            for (const QPoint ptBy : {QPoint(2, 2), QPoint(-2, -2), QPoint(2, -2), QPoint(-2, 2)}) {
                const LatLon posBy = GridPointOf(PositionOf(pt + ptBy));
                bInside = bInside && posBy.dLat == pos.dLat && posBy.dLon == pos.dLon;
            }
            if (bInside)
                return pt;
        }
    }
    [[nodiscard]] LatLon PositionOf(QPoint pt) const
    {
        return m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
    }
    void PointsCheck();

    EngineReal m_engine;
    PropertyRandom m_rnd;
};

void MapTruth::PointsCheck()
{
    // The deck may be off the grid point by half a hundredth of a degree, and values are printed to
    // a tenth.
    constexpr float kTolerance = 0.6F;
    for (int i = 0; i < kPoints; ++i) {
        const QPoint pt = PointAny();
        const LatLon pos = GridPointOf(PositionOf(pt));
        const float fTip = SnrOfTip(pt);
        const std::uint32_t nColor = m_host.SnrGetColor(fTip);
        const QRgb nWanted =
            fTip < m_host.m_settings.m_fMapOverlayMinSnr
                ? qRgb(255, 255, 255)
                : qRgb(int(nColor & 255), int(nColor >> 8 & 255), int(nColor >> 16 & 255));
        EXPECT_EQ(m_pMap->pctMap->m_img.pixel(pt), nWanted) << pos.dLat << " " << pos.dLon;
        EXPECT_NEAR(fTip, SnrAlone(pos), kTolerance) << pos.dLat << " " << pos.dLon;
    }
}

TEST_F(MapTruth, WholeWorldOverLongitude180)
{
    Show(0, {90, 0, -90, 360}, {24, -110});
    PointsCheck();
}

TEST_F(MapTruth, WholeWorldOverGreenwich)
{
    Show(-180, {90, -180, -90, 180}, {52.5, 13.4});
    PointsCheck();
}

TEST_F(MapTruth, NearThePole)
{
    Show(-180, {83, -60, 66, 60}, {69.6, 18.9});
    PointsCheck();
}

TEST_F(MapTruth, CloseToTheGround)
{
    Show(-180, {51.6, -0.17, 51.45, 0.03}, {48.1, 11.6});
    EXPECT_LT(m_pMap->m_view.m_box.dRight - m_pMap->m_view.m_box.dLeft, 1);
    PointsCheck();
}

TEST_F(MapTruth, SmoothGoesThroughTheGridPoints)
{
    Show(0, {60, 150, -20, 260}, {24, -110});
    m_pMap->mnuOverlaySmooth->trigger();
    for (int i = 0; i < kPoints; ++i) {
        const LatLon pos = GridPointOf(PositionOf(PointAny()));
        const QPoint pt = PointOf(pos.dLat, pos.dLon);
        if (!m_pMap->pctMap->rect().contains(pt))
            continue;
        // The pixel may be half a pixel off the point, and the next point is some 50 pixels away.
        EXPECT_NEAR(SnrOfTip(pt), SnrAlone(pos), 1.2) << pos.dLat << " " << pos.dLon;
    }
}

TEST_F(MapTruth, AStationsTipIsItsSinglePrediction)
{
    const TempFolder folder;
    folder.Write("System.HAM.ini", "[Station Info]\r\nW1ABC=FN42:Boston\r\nVK4=QG62:East\r\n");
    AirMailDataFolderSet(folder.Path());
    const auto pEngine = std::make_shared<BuiltInEngine>(folder.Path());  // no antenna files
    m_pMap->EnginesSet([pEngine](int) { return pEngine; });
    QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
    m_pMap->mnuStations->close();
    QCoreApplication::processEvents();
    ASSERT_EQ(m_pMap->imgStation.size(), 2u);
    for (std::size_t n = 0; n < 2; ++n) {
        QEnterEvent evt({4, 4}, {4, 4}, {4, 4});
        QApplication::sendEvent(m_pMap->imgStation[n], &evt);
        QTest::mouseClick(m_pMap->imgStation[n], Qt::LeftButton);  // makes it the transmitter
        Request request = RequestFromSettings(m_host.m_settings);
        request.dTxLat = m_pMap->m_posTx.dLat;
        request.dTxLon = m_pMap->m_posTx.dLon;
        PropagationTable table(request.nData);
        std::vector<Failure> aFailures;
        ASSERT_TRUE(PropagationRun(request, table, aFailures));  // by the program
        int iBest = 1;
        for (int i = 2; i <= request.nData; ++i)
            iBest = table.fSnr(19, i) > table.fSnr(19, iBest) ? i : iBest;
        const QString sBest =
            QStringLiteral("18:00 UTC: %1 kHz, %2 dB\n")
                .arg(QString::number(request.FrequencyGet(iBest)),
                     QString::fromStdString(NumberFormat(table.fSnr(19, iBest), "0")));
        EXPECT_TRUE(m_pMap->imgStation[n]->toolTip().contains(sBest))
            << m_pMap->imgStation[n]->toolTip().toStdString() << "\n"
            << sBest.toStdString();
    }
    AirMailFoldersReset();
}

TEST_F(MapTruth, VoacapOverTheDateLine)
{
    NEED_VOACAPL();
    m_host.m_settings.m_iPropagationModel = kEngineVoacap;
    Show(0, {10, 140, -45, 215}, {-17.8, 178});
    PointsCheck();
}

}  // namespace
