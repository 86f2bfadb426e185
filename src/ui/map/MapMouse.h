/// @file MapMouse.h
/// The mouse on the map picture: rubber band, dragging the picture, wheel, popup menu, tips.
///
/// Units:   pixels of the map picture.
/// Tests:   tests/ui/map/MapMouseTest.cpp
#pragma once

#include <QObject>
#include <QPointF>

#include "ui/map/MapForm.h"
#include "ui/map/MapRubberBand.h"

class MapLayers;
class MapMarkers;
class MapNavigation;
class QMouseEvent;
class QWheelEvent;

class MapMouse final : public QObject {
    Q_OBJECT
public:
    MapMouse(MapForm& form, MapNavigation& navigation, MapMarkers& markers,
             const MapLayers& layers);

    /// True while a band is being drawn, or the picture or a marker is being dragged.
    [[nodiscard]] bool IsBusy() const;
    /// Ends what the mouse is doing, or undoes the arrow keys' move of a marker.
    /// @return false if there was neither
    bool Leave();
    /// To be called when the picture is painted again.
    void PictureForget() { m_band.PictureForget(); }

Q_SIGNALS:
    /// The view was moved by the wheel or by dragging.
    void ViewMoved();

private:
    void pctMapMouseDown(const QMouseEvent* pEvent);
    void pctMapMouseMove(const QMouseEvent* pEvent);
    void pctMapMouseUp(const QMouseEvent* pEvent);
    void pctMapWheel(QWheelEvent* pEvent);
    void BandEnd(const QPointF& pt);
    void PanLeave();
    void TipShow(const QMouseEvent* pEvent);

    MapForm& m_form;
    MapNavigation& m_navigation;
    MapMarkers& m_markers;
    const MapLayers& m_layers;
    MapRubberBand m_band;
    bool m_bPan = false;  // the picture is being dragged with the middle button
    QPointF m_ptPan;      // where the drag began, and the view at that moment
    MapView m_viewPan;
    int m_nWheel = 0;  // eighths of a degree short of a notch
};
