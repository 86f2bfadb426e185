/// @file MapDayFakes.h
/// An engine of areas that evaluates a formula and holds each run until it is let through, and a
/// map window that asks it for its day.
#pragma once

#include <QClipboard>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <semaphore>

#include "MapFakes.h"
#include "ui/map/HourBar.h"

/// Computes one area per run, as engine programs do.
class EngineOfAreas final : public Engine {
public:
    [[nodiscard]] int ModelGet() const override { return kEngineVoacap; }
    [[nodiscard]] std::string NameGet() const override { return "Areas"; }
    [[nodiscard]] std::string VersionGet() const override { return {}; }
    [[nodiscard]] EngineLimits LimitsGet() const override { return {10, 1}; }
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override { return m_obstacle; }
    [[nodiscard]] Prediction Predict(const Request& /*request*/,
                                     const std::stop_token& /*stop*/) const override
    {
        return Prediction();
    }
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& request,
                                             const std::stop_token& stop) const override
    {
        AreaPrediction prediction;
        prediction.request = request;
        ++m_nBegun;
        while (!m_semRuns.try_acquire_for(std::chrono::milliseconds(2)))
            if (stop.stop_requested()) {
                ++m_nStopped;
                prediction.aFailures.push_back({FailureKind::Cancelled, "stopped"});
                return prediction;
            }
        ++m_nRuns;
        if (m_failure) {
            prediction.aFailures.push_back(*m_failure);
            return prediction;
        }
        prediction.bOk = true;
        const double dLat = (request.dNorth - request.dSouth) / (request.nGridSize - 1);
        const double dLon = (request.dEast - request.dWest) / (request.nGridSize - 1);
        for (int iLat = 0; iLat < request.nGridSize; ++iLat)
            for (int iLon = 0; iLon < request.nGridSize; ++iLon) {
                AreaPoint pnt{request.dSouth + iLat * dLat, request.dWest + iLon * dLon, 0.0F};
                pnt.fSnr = SnrGet(pnt.dLat, request.iHour, request.fFrequency * 1000.0F,
                                  request.fReliability);
                prediction.aPoints.push_back(pnt);
            }
        return prediction;
    }
    /// Falls with the distance from a best frequency, which rises with hour and latitude. One day
    /// in ten is 5 dB better than the median, one 10 dB worse.
    [[nodiscard]] static float SnrGet(double dLat, int iHour, float fKhz, float fReliability)
    {
        const double dBest = 5000.0 + 500.0 * iHour + 50.0 * dLat;
        const double dDays = fReliability < 50.0F ? 5.0 : fReliability > 50.0F ? -10.0 : 0.0;
        const double dSnr = 60.0 - std::abs(dBest - double{fKhz}) / 200.0 + dDays;
        return static_cast<float>(std::round(dSnr * 10) / 10);
    }
    /// Lets nRuns runs through.
    void Let(int nRuns) const { m_semRuns.release(nRuns); }

    std::optional<Failure> m_obstacle;
    std::optional<Failure> m_failure;
    mutable std::atomic<int> m_nBegun = 0;
    mutable std::atomic<int> m_nRuns = 0;
    mutable std::atomic<int> m_nStopped = 0;

private:
    mutable std::counting_semaphore<1'000'000> m_semRuns{0};
};

/// A map with three frequencies on a grid of 6 x 6. REC533's program computes the overlay, the
/// engine of areas the day.
class MapDayWindow : public testing::Test {
protected:
    MapDayWindow()
    {
        m_host.m_settings.m_iMapOverlayGridSize = 6;
        m_host.m_settings.m_fPropagationReliability = 50.0F;
        m_host.m_settings.m_nData = 3;
        m_host.m_settings.FrequencySet(1, 7000.0F);
        m_host.m_settings.FrequencySet(2, 10000.0F);
        m_host.m_settings.FrequencySet(3, 14000.0F);
        m_host.m_settings.m_selected = {2, 7};  // 10 MHz at 6 UTC
        m_pMap = new frmMap(m_host, [this](int) { return m_pEngine; });
        m_host.m_pMap = m_pMap;
        m_pMap->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(m_pMap));
        QApplication::setActiveWindow(m_pMap);
        m_pMap->m_view.ZoomSet(m_pMap->m_view.BoxGetZoom({50, 200, 10, 260}));
        m_pMap->Update();
    }
    ~MapDayWindow() override { delete m_pMap; }

    [[nodiscard]] MapDayControl& Day() const { return *m_pMap->findChild<MapDayControl*>(); }
    /// The caption in the picture that Copy makes.
    [[nodiscard]] QString CaptionGet() const
    {
        m_pMap->mnuMapCopy->trigger();
        return QGuiApplication::clipboard()->image().text(QStringLiteral("Description"));
    }
    void OverlayShow()
    {
        m_pMap->mnuOverlayDraw->trigger();
        ASSERT_TRUE(m_pMap->mnuOverlayDraw->isChecked());
    }
    void LayerChoose(int iLayer) { Item(iLayer)->trigger(); }
    [[nodiscard]] QAction* Item(int iLayer) const
    {
        return m_pMap->findChild<QAction*>(QStringLiteral("mnuOverlayLayer%1").arg(iLayer));
    }
    void HourKey(Qt::Key eKey) { QTest::keyClick(m_pMap->barHour->hscHour, eKey); }
    [[nodiscard]] bool TitleBecomes(const QString& sTitle) const
    {
        return QTest::qWaitFor([&] { return m_pMap->windowTitle() == sTitle; }, 20000);
    }
    /// Waits until nBegun runs have begun; each then waits for Let.
    [[nodiscard]] bool BegunBecome(int nBegun) const
    {
        return QTest::qWaitFor([&] { return m_pEngine->m_nBegun == nBegun; }, 20000);
    }
    [[nodiscard]] bool RunsBecome(int nRuns) const
    {
        return QTest::qWaitFor([&] { return m_pEngine->m_nRuns == nRuns; }, 20000);
    }
    [[nodiscard]] bool IsGoneSoon() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_pMap.isNull();
    }
    QString TipAt(QPoint pt)
    {
        QMouseEvent evt(QEvent::MouseMove, pt, m_pMap->pctMap->mapToGlobal(pt), Qt::NoButton,
                        Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_pMap->pctMap, &evt);
        return m_pMap->pctMap->toolTip();
    }
    [[nodiscard]] QPoint PointOf(double dLat, double dLon) const
    {
        return m_pMap->m_view.LatLonGetPoint(dLat, dLon);
    }
    /// The latitude of the grid point nearest to a pixel.
    [[nodiscard]] double GridLatOf(QPoint pt) const
    {
        const double dLat = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y()).dLat;
        const MapBox& box = m_pMap->m_view.m_box;
        const double dStep = (box.dTop - box.dBottom) / 5;
        return box.dBottom + std::round((dLat - box.dBottom) / dStep) * dStep;
    }

    ClockSet m_clock{DateTime{2026, 6, 15, 10, 30, 0}, DateTime{2026, 6, 15, 10, 30, 0}};
    MapHostFake m_host;
    EngineFake m_program;
    std::shared_ptr<EngineOfAreas> m_pEngine = std::make_shared<EngineOfAreas>();
    QPointer<frmMap> m_pMap;
};
