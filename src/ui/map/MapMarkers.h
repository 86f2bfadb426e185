/// @file MapMarkers.h
/// The two markers of the map. They show the working copies of the places and change them when
/// dragged or moved by keys; tooltip and read-out give the position.
///
/// Units:   degrees, pixels of the map picture.
/// Tests:   tests/ui/map/MapMarkersTest.cpp
#pragma once

#include <QObject>
#include <QPointF>

#include "ui/map/MapForm.h"

class QMouseEvent;

class MapMarkers final : public QObject {
    Q_OBJECT
public:
    explicit MapMarkers(MapForm& form);

    /// Puts a marker at its working copy.
    void DrawRc() { MarkerPlace(m_form.lblRc); }
    void DrawTx() { MarkerPlace(m_form.lblTx); }
    /// Moves a marker to a position.
    void PlaceSet(MarkerLabel* pMarker, const LatLon& pos);
    /// False if a marker is beyond a pole and so has no position; the read-out says so.
    [[nodiscard]] bool PlacesCheck();

    [[nodiscard]] bool IsDragging() const { return m_pDragged != nullptr; }
    /// Puts the dragged marker back where it was.
    void DragLeave();
    /// Puts the focused marker back to where it was before the arrow keys.
    /// @return false if they have not moved it
    bool KeysLeave();

Q_SIGNALS:
    void MenuRequested(QWidget* pMarker, const QMouseEvent* pEvent);
    void ReceiverMoved();
    /// A drag that moved the receiver has ended.
    void ReceiverDropped();

private:
    [[nodiscard]] LatLon& PlaceOf(const MarkerLabel* pMarker);
    void MarkerPlace(MarkerLabel* pMarker);
    void MouseDown(MarkerLabel* pMarker, const QMouseEvent* pEvent);
    void MouseMove(MarkerLabel* pMarker, const QMouseEvent* pEvent);
    void MouseUp(MarkerLabel* pMarker, const QMouseEvent* pEvent);
    void KeyMove(MarkerLabel* pMarker, int nByX, int nByY);
    [[nodiscard]] QString TextGet(const MarkerLabel* pMarker);
    void TextShow(MarkerLabel* pMarker);

    MapForm& m_form;
    MarkerLabel* m_pDragged = nullptr;
    QPointF m_ptDown;                 // last mouse press, in the marker's pixels
    LatLon m_posDragged;              // the dragged marker's position before
    MarkerLabel* m_pKeyed = nullptr;  // moved by keys since it got the focus
    LatLon m_posKeyed;                // and its position before
};
