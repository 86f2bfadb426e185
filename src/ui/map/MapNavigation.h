/// @file MapNavigation.h
/// Which part of the world the map shows: the zoom commands and the popup menu of the map. What is
/// asked for is kept, so that a resized window shows it again.
///
/// Units:   degrees, pixels of the controls.
/// Tests:   tests/ui/map/MapNavigationTest.cpp
#pragma once

#include <QObject>
#include <QPointF>

#include "ui/map/MapForm.h"

class QMouseEvent;
class Settings;

class MapNavigation final : public QObject {
    Q_OBJECT
public:
    explicit MapNavigation(MapForm& form);

    /// Shows a box, the whole of it.
    void ViewSet(const MapBox& box);
    /// Shows what was asked for last, after the window's size has changed.
    void ViewRestore();
    /// Scale and centre stay after the bar of hours has appeared or gone; back and forth gives the
    /// same view again. Paints nothing.
    void ViewFit();
    /// Shows scale and centre as they were asked for by the wheel, a bar or a drag.
    void ZoomAsk(const MapZoom& zoom);
    /// Moves the view by shares of its width and height, east and south positive.
    void ViewShift(double dShareX, double dShareY);

    /// The whole world, as the settings want it.
    void WorldShow(const Settings& settings);
    /// A setting that Options has changed moves the edge of the world; a view of this window's own
    /// stays as long as it has not. Paints nothing.
    void EdgeFollowSetting(const Settings& settings);

    /// The menu that centres the map on the point of the click.
    void mnuMapShow(QWidget* pSource, const QMouseEvent* pEvent);
    /// The same for a pixel of the control.
    void mnuMapOpen(QWidget* pSource, const QPointF& pt);

Q_SIGNALS:
    /// The view is another one; the picture is to be painted anew.
    void ViewChanged();

private:
    void ZoomSet(const MapZoom& zoom);
    void ZoomAroundMiddle(double dFactor);
    void cmdZoomOffClick();
    void cmdZoomTxRcClick();
    void mnuMapZoom(double dFactor);

    MapForm& m_form;
    QWidget* m_pPopupSource = nullptr;
    QPointF m_ptPopup;

    // Asked for last: a box, or scale and centre.
    bool m_bAskedBox = true;
    MapBox m_boxAsked;
    // What ViewFit has shown last, and by which zoom.
    QRect m_rctFit;
    MapZoom m_zoomFit;
    double m_dEdgeSetting = kEdgeGreenwich;  // the setting that the view has taken over last
};
