/// @file MapRubberBand.h
/// The rectangle that the left button draws on the map, inverted into the picture.
///
/// Units:   pixels of the map picture, degrees.
/// Tests:   tests/ui/map/MapMouseTest.cpp
#pragma once

#include <QPointF>
#include <QRect>
#include <optional>

#include "ui/map/MapForm.h"

class MapRubberBand {
public:
    explicit MapRubberBand(MapForm& form) : m_form(form) {}

    /// The last press of any button; a band in progress then begins there.
    void DownSet(const QPointF& pt) { m_ptDown = pt; }
    void Begin() { m_bOn = true; }
    void Draw(const QPointF& pt);
    /// Ends the band where the button is released.
    /// @return the box to show; nothing after a mere click
    [[nodiscard]] std::optional<MapBox> End(const QPointF& pt);
    /// Abandons the band.
    void Leave();
    /// To be called when the picture is painted again, without the band.
    void PictureForget() { m_rctBand = QRect(); }
    [[nodiscard]] bool IsOn() const { return m_bOn; }

private:
    void Invert();
    void Erase();
    [[nodiscard]] MapBox BoxGet(const QPointF& ptEnd) const;

    MapForm& m_form;
    bool m_bOn = false;
    QPointF m_ptDown;
    QRect m_rctBand;  // as drawn on the picture
};
