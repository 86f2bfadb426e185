/// @file frmMap.h
/// The world map: shows and moves transmitter and receiver, zooms, scrolls, and lays the SNR
/// overlay and the stations over the world. It keeps working copies of both locations; the main
/// window gets them on Apply or OK.
///
/// The window deletes itself when it is closed.
/// Tests:   tests/ui/map/frmMap*Test.cpp
#pragma once

#include <QAction>
#include <QFrame>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <string>
#include <vector>

#include "system/Result.h"
#include "ui/common/MainWindowHost.h"
#include "ui/map/MapControls.h"
#include "ui/map/MapLegend.h"
#include "ui/map/MapOverlay.h"
#include "ui/map/MapOverlayGrid.h"
#include "ui/map/MapView.h"

/// A station on the map, its list's number counted from 1.
struct MapStation {
    double dLat = 0.0;
    double dLon = 0.0;
    int iSystem = 1;
};

class frmMap final : public QWidget {
    Q_OBJECT
public:
    /// @param host  outlives the window.
    explicit frmMap(MainWindowHost& host, QWidget* pParent = nullptr);
    ~frmMap() override;

    /// Places a marker on its working copy.
    void DrawRc();
    void DrawTx();
    /// The settings have changed: takes both locations from them, repaints the view, and draws the
    /// overlay anew where it is shown. Nothing before the first activation.
    void Update();

    QFrame* pctFrame = nullptr;
    PctMap* pctMap = nullptr;
    MarkerLabel* lblRc = nullptr;
    MarkerLabel* lblTx = nullptr;
    QScrollBar* hscMap = nullptr;
    QScrollBar* vscMap = nullptr;
    QLineEdit* txtCursor = nullptr;
    QPushButton* cmdZoomIn = nullptr;
    QPushButton* cmdZoomOut = nullptr;
    QPushButton* cmdZoomOff = nullptr;
    QPushButton* cmdZoomTxRc = nullptr;
    QPushButton* cmdOverlay = nullptr;
    QPushButton* cmdStations = nullptr;
    QToolButton* chkPath = nullptr;   ///< great-circle path
    QToolButton* chkNight = nullptr;  ///< day/night line
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
    QMenu* mnuMap = nullptr;
    QAction* mnuMapCenter = nullptr;
    QAction* mnuMapZoomIn = nullptr;
    QAction* mnuMapZoomOut = nullptr;
    QMenu* mnuOverlay = nullptr;
    QMenu* mnuOverlayFrequency = nullptr;
    QMenu* mnuOverlayTime = nullptr;
    QAction* mnuOverlaySeparator = nullptr;
    QAction* mnuOverlayDraw = nullptr;  ///< checked: the overlay is shown
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

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    // construction and layout (frmMap.cpp)
    void MapMake();
    void ButtonsMake();
    void MenusMake();
    void SignalsConnect();
    void MarkersConnect();
    QPushButton* ButtonMake(const char* sName, const QString& sText);
    QToolButton* ToggleMake(const char* sName, const QString& sPicture, const QString& sTip);
    QAction* ItemMake(QMenu* pMenu, const char* sName, const QString& sText);
    [[nodiscard]] std::vector<QAbstractButton*> RowGet() const;
    void LayoutSet();
    void ButtonsPlace(int nTop);
    void ButtonShow(const QWidget* pButton);
    void FrameFill();
    void CursorFit();
    void Activate();
    void LocationsTake();
    void EdgeFollowSetting();
    void cmdApplyClick();
    bool Apply();
    bool MarkersCheck();
    void cmdOkClick();

    // keys (frmMapKeys.cpp)
    void KeysConnect();
    void EnterPress();
    void EscapePress();
    void ArrowPress(double dShareX, double dShareY);
    void MarkerKeyMove(MarkerLabel* pMarker, LatLon& pos, int nByX, int nByY);

    // view and navigation (frmMapNavigation.cpp)
    void ViewSet(const MapBox& box);
    void ViewRestore();
    void ViewPaint();
    void ZoomSet(const MapZoom& zoom);
    void PicturePaint();
    void ScrollBarsSet();
    void LayersPaint(QPainter& painter);
    void LinesLayerPaint(QPainter& painter);
    void LegendLayerPaint(QPainter& painter);
    void ArrowsLayerPaint(QPainter& painter);
    [[nodiscard]] std::vector<LegendRow> LegendRowsGet() const;
    [[nodiscard]] QRect LegendRectGet(const QFontMetrics& metrics) const;
    [[nodiscard]] LatLon ViewGetCenter() const;
    [[nodiscard]] LatLon PointGetLatLon(const QWidget* pControl, double dX, double dY) const;
    [[nodiscard]] QPoint LatLonGetPoint(double dLat, double dLon) const;
    void cmdZoomInClick();
    void cmdZoomOutClick();
    void cmdZoomOffClick();
    void cmdZoomTxRcClick();
    void ZoomAroundMiddle(double dFactor);
    void mnuMapZoom(double dFactor);
    void mnuMapShow(QWidget* pSource, const QMouseEvent* pEvent);
    void hscMapChange();
    void vscMapChange();
    void BarAct(QScrollBar* pBar, int nAction);
    bool BarWheel(QScrollBar* pBar, QWheelEvent* pEvent);
    void ViewShift(double dShareX, double dShareY);

    // mouse on the map and the markers (frmMapMouse.cpp)
    void pctMapMouseDown(QMouseEvent* pEvent);
    void pctMapMouseMove(QMouseEvent* pEvent);
    void pctMapMouseUp(QMouseEvent* pEvent);
    void pctMapWheel(QWheelEvent* pEvent);
    void BandDraw(const QPointF& pt);
    void BandInvert();
    void BandErase();
    void BandLeave();
    void PanLeave();
    [[nodiscard]] MapBox BandGetBox(const QPointF& ptEnd) const;
    void MapTipShow(const QMouseEvent* pEvent);
    void LegendDodge(const QPoint& ptPointer);
    [[nodiscard]] QString MapTipGet(const LatLon& pos);
    void MarkerMouseDown(MarkerLabel* pMarker, const LatLon& pos, const QMouseEvent* pEvent);
    void MarkerMouseMove(MarkerLabel* pMarker, LatLon& pos, const QMouseEvent* pEvent);
    void MarkerMouseUp(MarkerLabel* pMarker, const LatLon& pos, const QMouseEvent* pEvent);
    void MarkerTextShow(MarkerLabel* pMarker, const LatLon& pos);
    void MarkerDragLeave();
    void MarkerPlace(MarkerLabel* pMarker, const LatLon& pos);

    // SNR overlay (frmMapOverlay.cpp)
    class OverlayBusy;
    void cmdOverlayClick();
    void mnuOverlayOpen();
    void OverlayFollowSelection();
    void mnuOverlayFrequencyFill();
    void mnuOverlayTimeFill();
    void mnuOverlayFrequencyDataClick(int iIndex);
    void mnuOverlayTimeDataClick(int iHour);
    void OverlayChosen();
    void mnuOverlayDrawClick();
    void OverlayShow();
    void OverlayAgain();
    void OverlayLater();
    void OverlayFailedSet(const std::optional<Failure>& failure);
    [[nodiscard]] bool LegendIsShown() const;
    void MapOutline();
    std::optional<Failure> OverlayDraw();
    std::optional<Failure> OverlayDrawBox(const AreaBox& box);
    [[nodiscard]] std::optional<float> OverlayGetSnr(double dLat, double dLon);

    // stations (frmMapStations.cpp)
    void cmdStationsClick();
    Result<void> StationsLoad();
    Result<void> SystemLoad(const std::string& sSystem, int iSystem);
    void StationAdd(const MapStation& station, const QString& sTip);
    void StationsDraw();
    void imgStationMouseUp(int iStation, const QMouseEvent* pEvent);
    void mnuStationSet(LatLon& pos);

    MainWindowHost& m_host;
    bool m_bActivated = false;

    QPointF m_ptDown;  // last mouse-down, in the pixels of the control that had it
    QWidget* m_pPopupSource = nullptr;
    QPointF m_ptPopup;
    bool m_bBand = false;  // a drag on the map is under way
    bool m_bPan = false;   // the picture is being moved with the middle button
    QPointF m_ptPan;       // where that began, and what was shown then
    MapView m_viewPan;
    MarkerLabel* m_pDragged = nullptr;  // the marker that is being dragged
    LatLon m_posDragged;                // and its location before
    QRect m_rctPointer;                 // what the pointer looks at on the map
    QRect m_rctLegend;                  // where the legend was painted last
    QRect m_rctBand;                    // the rubber band as it is on the picture
    int m_nWheel = 0;                   // eighths of a degree that have not made a notch yet

    // What the view was asked for last: a box, or scale and centre. A resized window shows it
    // again.
    bool m_bAskedBox = true;
    MapBox m_boxAsked;
    double m_dEdgeSetting = kEdgeGreenwich;  // the setting that the view has taken over last
    std::vector<int> m_aContent;             // widths in the row of buttons, see MapButtonRow.h
    int m_nRowShift = 0;                     // how far the row of buttons is scrolled

    float m_fOverlayFrequency = 0.0F;  // kHz
    int m_iOverlayFrequency = 1;
    int m_iOverlayHour = 0;
    bool m_bOverlayChosen = false;
    bool m_bOverlayBusy = false;
    QTimer m_tmrOverlay;                     // the next run, once nothing has moved for a moment
    OverlayGrid m_grid;                      // of the picture that is shown
    std::optional<Failure> m_overlayFailed;  // why the last run failed

    int m_nSystem = 0;  // 0: not loaded yet
    std::vector<MapStation> m_aStation;
    int m_iStation = 0;  // selected one, from 1
};
