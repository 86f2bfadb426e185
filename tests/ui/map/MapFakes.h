/// @file MapFakes.h
/// A main window that records, an engine that answers from a formula, and an open map window.
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <QtTest/QtTest>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/ClockSet.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"
#include "system/ProcessLib.h"
#include "ui/map/frmMap.h"

/// Records what the map asks of the main window.
class MapHostFake final : public MainWindowHost {
public:
    MapHostFake();
    Settings& SettingsGet() override { return m_settings; }
    void Initialize() override { m_settings.Initialize(); }
    bool Update() override;
    void DataSetSelected(int iRow, int iColumn) override;
    [[nodiscard]] SelectedCell DataGetSelected() const override { return m_settings.m_selected; }
    [[nodiscard]] std::uint32_t SnrGetColor(float fSnr) const override;
    [[nodiscard]] float FrequencyGet(int iIndex) const override;
    void FrequencySet(int iIndex, float fKhz) override { m_settings.FrequencySet(iIndex, fKhz); }
    [[nodiscard]] Request TableInputGet() const override;
    [[nodiscard]] bool TakenIs() const override { return m_bTaken; }
    void OverlayFailedSet(const std::optional<Failure>& failure) override
    {
        m_sOverlayFailed = failure ? failure->sText : std::string();
    }

    Settings m_settings;
    std::optional<Request> m_inputTable;  ///< the table's; without it the settings apply
    std::string m_sOverlayFailed;         ///< the last one reported
    bool m_bTaken = false;
    int m_nUpdates = 0;
    frmMap* m_pMap = nullptr;  ///< informed of each update, as by the main window
};

/// One area run as the engine saw it.
struct AreaRun {
    std::string sDeck;
    double dWest = 0, dEast = 0, dSouth = 0, dNorth = 0;
    int nGridSize = 0;
};

/// Stands for the engine program, with its own root: reads the area deck and writes the grid.
class EngineFake {
public:
    EngineFake();
    ~EngineFake();
    EngineFake(const EngineFake&) = delete;
    EngineFake& operator=(const EngineFake&) = delete;

    [[nodiscard]] std::string GridPath() const;
    /// The text of the grid file for a run.
    [[nodiscard]] std::string GridMake(const AreaRun& run) const;

    std::vector<AreaRun> m_aRuns;
    /// SNR of a point, dB.
    std::function<double(double dLat, double dLon)> m_fnSnr = [](double, double) { return 52.0; };
    /// Changes the grid's text before it is written.
    std::function<std::string(std::string)> m_fnSpoil;
    bool m_bWriteGrid = true;
    bool m_bStart = true;
    std::function<void()> m_fnWhileRunning;

private:
    Result<int> Run();
    TempFolder m_folder;
    EnvironmentSet m_root{"HOPCAST_ITSHFBC", m_folder.Path("itshfbc")};
    ProcessStartFn m_fnBefore;
};

/// A map window of 1000 x 660 as a user has it open.
class MapWindow : public testing::Test {
protected:
    MapWindow();
    ~MapWindow() override;

    void BoxIs(double dTop, double dLeft, double dBottom, double dRight, double dTolerance) const;
    /// Presses a control, moves twice and releases.
    static void Drag(QWidget* pControl, QPoint ptFrom, QPoint ptTo,
                     Qt::MouseButton eButton = Qt::LeftButton);
    /// Zooms to a view well inside the image, so that nothing is cut off.
    void ZoomInside() { Drag(m_pMap->pctMap, PointOf(50, 200), PointOf(10, 260)); }
    [[nodiscard]] QPoint PointOf(double dLat, double dLon) const
    {
        return m_pMap->m_view.LatLonGetPoint(dLat, dLon);
    }
    [[nodiscard]] double SpanGet() const
    {
        return m_pMap->m_view.m_box.dRight - m_pMap->m_view.m_box.dLeft;
    }
    [[nodiscard]] LatLon CenterGet() const { return m_pMap->m_view.CenterGet(); }
    [[nodiscard]] QPoint Middle() const { return m_pMap->pctMap->rect().center(); }
    /// True once the window has closed and deleted itself.
    [[nodiscard]] bool IsGone() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_pMap.isNull();
    }
    /// Chooses an item of an open menu with the mouse.
    static void ItemChoose(QMenu* pMenu, QAction* pItem);
    /// Toggles the overlay's item through the button and its menu.
    void OverlayChoose();
    void MapMenuChoose(QWidget* pControl, QPoint pt, QAction* pItem);
    /// Moves the mouse without a button. @return the map's tooltip then
    QString TipAt(QPoint pt);
    [[nodiscard]] QRgb PixelAt(double dLat, double dLon) const;
    /// Counts pixels of the picture that are neither black nor white, labels excluded.
    [[nodiscard]] int ColoredCount() const;
    template <class T>
    T* Find(const char* sName) const
    {
        T* pFound = m_pMap->findChild<T*>(QLatin1String(sName));
        EXPECT_NE(pFound, nullptr) << sName;
        return pFound;
    }

    ClockSet m_clock{DateTime{2026, 6, 15, 10, 30, 0}, DateTime{2026, 6, 15, 10, 30, 0}};
    MapHostFake m_host;
    QPointer<frmMap> m_pMap;
};
