/// @file MapDayLayer.h
/// What the map's day shows above the picture while it has cells: the legend of its layer, which
/// gives way to the pointer, and the value in the tips.
///
/// Tests:   tests/ui/map/MapDayControlTest.cpp
#pragma once

#include <QRect>

#include "ui/map/MapDayControl.h"
#include "ui/map/MapForm.h"
#include "ui/map/MapLayers.h"

class MapDayLayer final : public MapLayer {
public:
    MapDayLayer(const MapForm& form, const MapDayControl& day) : m_form(form), m_day(day) {}
    void Paint(QPainter& painter) override;
    [[nodiscard]] QString TipGet(const LatLon& pos) const override { return m_day.TipGet(pos); }
    void PointerMove(const QPoint& ptPointer) override;

private:
    [[nodiscard]] QRect LegendRectGet(const QFontMetrics& metrics) const;

    const MapForm& m_form;
    const MapDayControl& m_day;
    QRect m_rctPointer;  // where the pointer is on the map
    QRect m_rctLegend;   // where the legend was last painted
};
