/// @file frmMap.h
/// The world map: shows and moves transmitter and receiver, zooms, scrolls, and lays the SNR
/// overlay and the stations over the world. It keeps working copies of both locations; the main
/// window gets them on Apply or OK.
///
/// The window is the frame: what a user does is handled by the rooms, one class for each subject,
/// which share the controls (MapForm). The frame paints the picture and joins the rooms.
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
    /// @param host      outlives the window.
    /// @param fnEngine  the engines of the map's day; without it they are programs
    explicit frmMap(MainWindowHost& host, MapEngineFn fnEngine = {}, QWidget* pParent = nullptr);

    /// Places a marker on its working copy.
    void DrawRc() { m_markers.DrawRc(); }
    void DrawTx() { m_markers.DrawTx(); }
    /// For what the tips of stations tell at once.
    void EnginesSet(MapReach::EngineFn fnEngine) { m_reach.EnginesSet(std::move(fnEngine)); }
    /// The settings have changed: takes both locations from them, repaints the view, and draws the
    /// overlay anew where it is shown. Nothing before the first activation.
    void Update();

protected:
    void closeEvent(QCloseEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    void RoomsConnect();
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
