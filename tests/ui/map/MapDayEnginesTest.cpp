// Colours and tips of the map's day compared with single runs of the engine in this process.
#include <map>

#include "MapFakes.h"
#include "engine/builtin/BuiltInEngine.h"
#include "propagation/SnrScale.h"
#include "support/PropertyRandom.h"
#include "ui/common/Colors.h"
#include "ui/map/HourBar.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapOverlay.h"

namespace {

constexpr int kGrid = 12;
constexpr int kPoints = 12;
constexpr float kNeed = 40.0F;
constexpr float kLeast = 20.0F;
const std::vector<float> kList{5000.0F, 9000.0F, 14000.0F, 21000.0F};

class MapDayTruth : public testing::Test {
protected:
    MapDayTruth()
    {
        Settings& settings = m_host.m_settings;
        settings.m_iMapOverlayGridSize = kGrid;
        settings.m_fMapOverlayMinSnr = kLeast;
        settings.m_fPropagationSunSpotNumber = 100;
        settings.m_fPropagationReliability = 50.0F;
        settings.m_fStationPower = 100.0F;
        settings.m_dRcLat = -9.8;
        settings.m_dRcLon = -139.0;
        settings.m_nData = static_cast<int>(kList.size());
        for (int i = 0; i < settings.m_nData; ++i)
            settings.FrequencySet(i + 1, kList[static_cast<std::size_t>(i)]);
        settings.m_selected = {2, 7};
        m_pMap = std::make_unique<frmMap>(m_host, [this](int) { return m_pEngine; });
        m_pMap->setAttribute(Qt::WA_DeleteOnClose, false);
        m_pMap->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(m_pMap.get()));
        QApplication::setActiveWindow(m_pMap.get());
    }
    void Show(int iLayer, int iHour, const MapBox& box)
    {
        m_pMap->m_view.ZoomSet(m_pMap->m_view.BoxGetZoom(box));
        m_pMap->findChild<QAction*>(QStringLiteral("mnuOverlayLayer%1").arg(iLayer))->trigger();
        m_pMap->barHour->hscHour->setValue(iHour);
        MapDayControl& day = *m_pMap->findChild<MapDayControl*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !day.RunGet().RunningIs(); }, 60000));
        ASSERT_TRUE(day.HasCells());
        ASSERT_EQ(day.ShownGet().iHour, iHour);
    }
    /// The grid of a separate run that shows the view at one hour and frequency.
    const std::vector<AreaPoint>& RunAlone(int iHour, float fKhz, float fReliability = 50.0F)
    {
        std::vector<AreaPoint>& aPoints = m_mapRuns[{iHour, fKhz, fReliability}];
        if (!aPoints.empty())
            return aPoints;
        AreaRequest request = AreaRequestFromSettings(m_host.m_settings);
        request.iHour = iHour;
        request.fFrequency = fKhz / 1000.0F;
        request.fReliability = fReliability;
        for (const AreaBox& box : OverlayGetBoxes(m_pMap->m_view.m_box, m_pMap->m_view.m_dEdge)) {
            request.dSouth = box.dBottom;
            request.dNorth = box.dTop;
            request.dWest = box.dLeft;
            request.dEast = box.dRight;
            const AreaPrediction prediction = m_pEngine->PredictArea(request, {});
            EXPECT_TRUE(prediction.bOk);
            aPoints.insert(aPoints.end(), prediction.aPoints.begin(), prediction.aPoints.end());
        }
        return aPoints;
    }
    [[nodiscard]] float SnrAt(QPoint pt, int iHour, float fKhz, float fReliability = 50.0F)
    {
        const LatLon pos = PositionOf(pt);
        return GridGetNearest(RunAlone(iHour, fKhz, fReliability), pos.dLat, pos.dLon)
            .value_or(-99.0F);
    }
    struct Best {
        float fKhz = 0.0F;
        float fSnr = -99.0F;
    };
    [[nodiscard]] Best BestAt(QPoint pt, int iHour)
    {
        Best best;
        for (const float fKhz : kList)
            if (const float fSnr = SnrAt(pt, iHour, fKhz); fSnr > best.fSnr)
                best = {fKhz, fSnr};
        return best;
    }
    [[nodiscard]] LatLon PositionOf(QPoint pt) const
    {
        return m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
    }
    [[nodiscard]] const AreaPoint* PointAt(QPoint pt)
    {
        const LatLon pos = PositionOf(pt);
        return GridFindNearest(RunAlone(0, kList[0]), pos.dLat, pos.dLon);
    }
    /// A random pixel inside a cell, with no line or label on it.
    [[nodiscard]] QPoint PointAny()
    {
        const QRect rct = m_pMap->m_view.ImageGetRect().adjusted(90, 2, -2, -32);
        for (;;) {
            const QPoint pt(m_rnd.Whole(rct.left(), rct.right()),
                            m_rnd.Whole(rct.top(), rct.bottom()));
            const QRgb nPixel = PixelAt(pt);
            bool bInside = nPixel != qRgb(0, 0, 0) && nPixel != kMapBackground;
            for (const QPoint ptBy : {QPoint(2, 2), QPoint(-2, -2), QPoint(2, -2), QPoint(-2, 2)})
                bInside = bInside && PointAt(pt + ptBy) == PointAt(pt);
            if (bInside)
                return pt;
        }
    }
    [[nodiscard]] QRgb PixelAt(QPoint pt) const { return m_pMap->pctMap->m_img.pixel(pt); }
    QString TipAt(QPoint pt)
    {
        QMouseEvent evt(QEvent::MouseMove, pt, m_pMap->pctMap->mapToGlobal(pt), Qt::NoButton,
                        Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_pMap->pctMap, &evt);
        return m_pMap->pctMap->toolTip();
    }
    /// The colour of a value in the legend; white if that value is not painted.
    [[nodiscard]] QRgb LegendColor(const QString& sRow) const
    {
        for (const LegendRow& row :
             DayLegendGet(m_pMap->findChild<MapDayControl*>()->ShownGet()).aRows)
            if (row.sText == sRow)
                return row.nColor;
        ADD_FAILURE() << sRow.toStdString();
        return 0;
    }
    static QString Snr(float fSnr) { return QString::number(double{fSnr}, 'f', 1); }
    void SnrCheck(int iHour, float fKhz)
    {
        for (int n = 0; n < kPoints; ++n) {
            const QPoint pt = PointAny();
            const float fSnr = SnrAt(pt, iHour, fKhz);
            EXPECT_TRUE(TipAt(pt).contains(QStringLiteral(", Snr %1 dB, Rng ").arg(Snr(fSnr))))
                << TipAt(pt).toStdString() << " " << fSnr;
            EXPECT_EQ(PixelAt(pt) | 0xFF000000,
                      fSnr >= kLeast ? ColorFromBgr(SnrGetColor(fSnr)).rgb() : qRgb(255, 255, 255));
        }
    }

    const TempFolder m_folder;
    ClockSet m_clock{DateTime{2026, 11, 15, 10, 30, 0}, DateTime{2026, 11, 15, 10, 30, 0}};
    MapHostFake m_host;
    std::shared_ptr<BuiltInEngine> m_pEngine = std::make_shared<BuiltInEngine>(m_folder.Path());
    std::unique_ptr<frmMap> m_pMap;
    PropertyRandom m_rnd;
    std::map<std::tuple<int, float, float>, std::vector<AreaPoint>> m_mapRuns;
};

constexpr MapBox kPacific{30, 170, -45, 260};
constexpr MapBox kWorld{80, 0, -80, 360};

TEST_F(MapDayTruth, SnrOfAnHourThatTheBarWasMovedTo)
{
    Show(1, 6, kPacific);
    m_pMap->findChild<QAction*>(QStringLiteral("mnuOverlayLayer0"))->trigger();
    m_pMap->barHour->hscHour->setValue(21);
    SnrCheck(21, kList[1]);
}

TEST_F(MapDayTruth, SnrOfAnotherFrequencyOfTheWorld)
{
    Show(1, 3, kWorld);
    m_pMap->findChild<QAction*>(QStringLiteral("mnuOverlayLayer0"))->trigger();
    m_pMap->barHour->cmbFrequency->setCurrentIndex(2);
    SnrCheck(3, kList[2]);
}

TEST_F(MapDayTruth, BestFrequency)
{
    Show(1, 6, kPacific);
    for (int n = 0; n < kPoints; ++n) {
        const QPoint pt = PointAny();
        const Best best = BestAt(pt, 6);
        const QString sKhz = QString::number(double{best.fKhz});
        EXPECT_TRUE(TipAt(pt).contains(
            QStringLiteral(", %1 kHz, Snr %2 dB, Rng ").arg(sKhz, Snr(best.fSnr))))
            << TipAt(pt).toStdString() << " " << best.fKhz << " " << best.fSnr;
        EXPECT_EQ(PixelAt(pt) | 0xFF000000,
                  best.fSnr >= kLeast ? LegendColor(sKhz) : qRgb(255, 255, 255));
    }
}

TEST_F(MapDayTruth, DaysInTenLieBetweenThoseOfTheRunsForTheDeciles)
{
    Show(2, 12, kPacific);
    for (int n = 0; n < kPoints; ++n) {
        const QPoint pt = PointAny();
        const float fGood = SnrAt(pt, 12, kList[1], 10.0F);
        const float fMedian = SnrAt(pt, 12, kList[1], 50.0F);
        const float fBad = SnrAt(pt, 12, kList[1], 90.0F);
        // Runs print tenths of a decibel, but the days depend on hundredths.
        const auto DaysAt = [&](double dBy) {
            return 10
                   * DaysShareGet({fMedian + dBy, std::max(0.1, double{fMedian} - fBad),
                                   std::max(0.1, double{fGood} - fMedian)},
                                  kNeed, DaySteps::P842);
        };
        const QString sTip = TipAt(pt);
        if (sTip.contains(QStringLiteral("no value")))
            continue;
        const int nDays =
            sTip.section(QStringLiteral(" days in ten"), 0, 0).section(u' ', -1).toInt();
        EXPECT_GE(nDays, std::floor(DaysAt(-0.3) + 0.5)) << sTip.toStdString();
        EXPECT_LE(nDays, std::ceil(DaysAt(0.3) - 0.5)) << sTip.toStdString();
        EXPECT_EQ(PixelAt(pt) | 0xFF000000, LegendColor(QString::number(nDays)));
    }
}

TEST_F(MapDayTruth, HoursOpen)
{
    Show(3, 6, kPacific);
    for (int n = 0; n < kPoints; ++n) {
        const QPoint pt = PointAny();
        int nOpen = 0;
        for (int iHour = 0; iHour < 24; ++iHour) nOpen += BestAt(pt, iHour).fSnr >= kNeed ? 1 : 0;
        EXPECT_TRUE(TipAt(pt).contains(QStringLiteral(", %1 hours open, Rng ").arg(nOpen)))
            << TipAt(pt).toStdString() << " " << nOpen;
        const int nLast = (nOpen + 2) / 3 * 3;
        EXPECT_EQ(PixelAt(pt) | 0xFF000000,
                  LegendColor(nOpen == 0 ? QStringLiteral("0")
                                         : QStringLiteral("%1 to %2").arg(nLast - 2).arg(nLast)));
    }
}

}  // namespace
