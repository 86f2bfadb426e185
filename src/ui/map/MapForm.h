/// @file MapForm.h
/// What the map window consists of: its controls and menus, the part of the world that is shown,
/// and the two places. The window and its parts (MapNavigation, MapMarkers ...) share it.
///
/// Units:   degrees, pixels of the controls.
/// Tests:   tests/ui/map/frmMapWalkTest.cpp, MapNavigationTest.cpp
#pragma once

#include <QAction>
#include <QFrame>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <vector>

#include "ui/map/MapControls.h"
#include "ui/map/MapView.h"

class HourBar;

class MapForm {
public:
    /// Makes all controls as children of the window.
    explicit MapForm(QWidget* pWindow);
    MapForm(const MapForm&) = delete;
    MapForm& operator=(const MapForm&) = delete;

    /// Adds an item at the end of a menu.
    static QAction* ItemMake(QMenu* pMenu, const QString& sName, const QString& sText);

    /// The buttons below the map, from left to right.
    [[nodiscard]] std::vector<QAbstractButton*> RowGet() const;
    /// The position on one of the controls; 0, 0 on one that does not show the map.
    [[nodiscard]] LatLon PointGetLatLon(const QWidget* pControl, double dX, double dY) const;
    /// The map pixel of a position, limited to where a control can be.
    [[nodiscard]] QPoint LatLonGetPoint(double dLat, double dLon) const;

    QFrame* pctFrame = nullptr;
    PctMap* pctMap = nullptr;
    MarkerLabel* lblRc = nullptr;
    MarkerLabel* lblTx = nullptr;
    QScrollBar* hscMap = nullptr;
    QScrollBar* vscMap = nullptr;
    QLineEdit* txtCursor = nullptr;
    HourBar* barHour = nullptr;  ///< below the map, with the overlay
    QPushButton* cmdZoomIn = nullptr;
    QPushButton* cmdZoomOut = nullptr;
    QPushButton* cmdZoomOff = nullptr;
    QPushButton* cmdZoomTxRc = nullptr;
    QPushButton* cmdOverlay = nullptr;
    QPushButton* cmdStations = nullptr;
    QToolButton* chkPath = nullptr;   ///< great-circle path
    QToolButton* chkNight = nullptr;  ///< day/night line
    QToolButton* chkTwilight = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
    QMenu* mnuMap = nullptr;
    QAction* mnuMapCenter = nullptr;
    QAction* mnuMapZoomIn = nullptr;
    QAction* mnuMapZoomOut = nullptr;
    QAction* mnuMapCopy = nullptr;
    QAction* mnuMapExport = nullptr;
    QMenu* mnuOverlay = nullptr;
    QMenu* mnuOverlayFrequency = nullptr;
    QMenu* mnuOverlayTime = nullptr;
    QAction* mnuOverlaySeparator = nullptr;
    QAction* mnuOverlayDraw = nullptr;  ///< checked: the overlay is shown
    QAction* mnuOverlaySmooth = nullptr;
    QMenu* mnuStations = nullptr;
    QMenu* mnuStation = nullptr;
    QAction* mnuStationSetRc = nullptr;
    QAction* mnuStationSetTx = nullptr;
    std::vector<QAction*> mnuOverlayFrequencyData;  ///< from 0
    std::vector<QAction*> mnuOverlayTimeData;
    std::vector<QAction*> mnuStationsSystem;
    std::vector<StationDot*> imgStation;

    MapView m_view;
    LatLon m_posRc;  ///< working copies
    LatLon m_posTx;

private:
    void MapMake(QWidget* pWindow);
    void BarsMake();
    void ButtonsMake(QWidget* pWindow);
    void MenusMake(QWidget* pWindow);
};
