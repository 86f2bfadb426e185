/// @file MapMouse.h
/// The mouse on the map picture: rubber band, moving the picture along, wheel, popup menu, tips.
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

    /// A band is drawn, or the picture or a marker is being moved.
    [[nodiscard]] bool IsBusy() const;
    /// Ends what the mouse is doing, or takes back what the arrow keys did to a marker.
    /// @return false when there is neither.
    bool Leave();
    /// The picture was painted anew.
    void PictureForget() { m_band.PictureForget(); }

Q_SIGNALS:
    /// The view was moved by the wheel or along with the mouse.
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
    bool m_bPan = false;  // the picture is being moved with the middle button
    QPointF m_ptPan;      // where that began, and what was shown then
    MapView m_viewPan;
    int m_nWheel = 0;  // eighths of a degree that have not made a notch yet
};
