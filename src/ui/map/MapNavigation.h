/// @file MapNavigation.h
/// Which part of the world the map shows: the zoom commands and the map's popup menu. It remembers
/// what was asked for, so that a resized window shows it again.
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

    /// Shows a whole box.
    void ViewSet(const MapBox& box);
    /// Shows again what was last asked for, after a change of the window's size.
    void ViewRestore();
    /// Keeps scale and centre after the bar of hours was shown or hidden; showing and hiding it
    /// gives the same view again. Paints nothing.
    void ViewFit();
    /// Shows scale and centre as asked for by the wheel, a scroll bar or a drag.
    void ZoomRequest(const MapZoom& zoom);
    /// Moves the view by shares of its width and height, east and south positive.
    void ViewShift(double dShareX, double dShareY);

    /// Shows the whole world, from the edge that the settings name.
    void WorldShow(const Settings& settings);
    /// Moves the edge of the world if Options have changed the setting; otherwise the window keeps
    /// its own. Paints nothing.
    void EdgeFollowSetting(const Settings& settings);

    /// Opens the menu that centres the map on the clicked point.
    void mnuMapShow(QWidget* pSource, const QMouseEvent* pEvent);
    /// The same for a pixel of the control.
    void mnuMapOpen(QWidget* pSource, const QPointF& pt);

Q_SIGNALS:
    /// The view has changed; the picture must be painted again.
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

    // Last asked for: a box, or scale and centre.
    bool m_bBoxRequested = true;
    MapBox m_boxRequested;
    // What ViewFit last showed, and with which zoom.
    QRect m_rctFit;
    MapZoom m_zoomFit;
    double m_dEdgeSetting = kEdgeGreenwich;  // the setting last applied to the view
};
