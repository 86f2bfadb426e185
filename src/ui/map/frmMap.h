/// @file frmMap.h
/// The world map: shows and moves transmitter and receiver, zooms, scrolls, and shows the SNR
/// overlay and the stations. It works on copies of both locations; the main window gets them on
/// Apply or OK.
///
/// The parts of the window, a class for each subject, handle what the user does; they share the
/// controls (MapForm). This class paints the picture and connects the parts.
///
/// The window deletes itself when it is closed.
/// Tests:   tests/ui/map/frmMap*Test.cpp
#pragma once

#include <QWidget>

#include "ui/common/MainWindowHost.h"
#include "ui/map/MapDayControl.h"
#include "ui/map/MapDayMenu.h"
#include "ui/map/MapExport.h"
#include "ui/map/MapForm.h"
#include "ui/map/MapKeys.h"
#include "ui/map/MapLayers.h"
#include "ui/map/MapMarkers.h"
#include "ui/map/MapMouse.h"
#include "ui/map/MapNavigation.h"
#include "ui/map/MapOverlayControl.h"
#include "ui/map/MapOverlayMenu.h"
#include "ui/map/MapReach.h"
#include "ui/map/MapScrollBars.h"
#include "ui/map/MapStations.h"
#include "ui/map/MapWindowLayout.h"

class frmMap final : public QWidget, public MapForm {
    Q_OBJECT
public:
    /// @param host      must outlive the window
    /// @param fnEngine  the engines for the map's day; by default they run their programs
    explicit frmMap(MainWindowHost& host, MapEngineFn fnEngine = {}, QWidget* pParent = nullptr);

    /// Puts a marker at its working copy.
    void DrawRc() { m_markers.DrawRc(); }
    void DrawTx() { m_markers.DrawTx(); }
    /// The engines for the tips of stations, which need an answer at once.
    void EnginesSet(MapReach::EngineFn fnEngine) { m_reach.EnginesSet(std::move(fnEngine)); }
    /// To be called when the settings have changed: takes both locations, repaints the view, and
    /// predicts the overlay again if it is shown. Does nothing before the first activation.
    void Update();

protected:
    void closeEvent(QCloseEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    void PartsConnect();
    void LayersAdd();
    void Activate();
    void LocationsTake();
    void ViewPaint();
    void OverlayAgain();
    bool Apply();
    void cmdOkClick();

    MainWindowHost& m_host;
    bool m_bActivated = false;

    MapLayers m_layers;
    MapWindowLayout m_layout;
    MapNavigation m_navigation;
    MapScrollBars m_bars;
    MapMarkers m_markers;
    MapMouse m_mouse;
    MapStations m_stations;
    MapOverlayMenu m_overlayMenu;
    MapReach m_reach;
    MapOverlayControl m_overlay;
    MapDayControl m_day;
    MapDayMenu m_dayMenu;
    MapExport m_export;
    MapKeys m_keys;
};
