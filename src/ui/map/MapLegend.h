/// @file MapLegend.h
/// The colour scale of the overlay at the map's right edge.
///
/// Units:   dB; colours 0x00BBGGRR.
/// Tests:   tests/ui/map/MapLegendTest.cpp, MapLegendPlaceTest.cpp
#pragma once

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QString>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

struct LegendRow {
    QString sText;  ///< "70 and above", "40 to 45", "below 40"
    QRgb nColor = 0;
    bool bDrawn = true;  ///< false: all of it is below the least SNR that is painted
};

struct Legend {
    QString sHead;
    std::vector<LegendRow> aRows;  ///< best first
    QString sFoot;
};

/// The bands of the colour scale, best first.
/// @param fMinSnr   least SNR that is painted; it becomes the lower end of the band that contains
/// it
[[nodiscard]] std::vector<LegendRow> LegendGetRows(
    float fMinSnr, const std::function<std::uint32_t(float fSnr)>& fnColor);

/// The scale of the SNR with its minimum.
[[nodiscard]] Legend LegendOfSnr(std::vector<LegendRow> aRows, float fMinSnr);

/// Where the legend goes: at the map's right edge, or at the left edge or in a corner if only that
/// hides nothing of aKeepFree. It is never under the pointer.
/// @param rctPointer  around the pointer; empty if it is not on the map
[[nodiscard]] QRect LegendGetRect(const QFontMetrics& metrics, const QRect& rctMap,
                                  const std::vector<LegendRow>& aRows, float fMinSnr,
                                  std::span<const QRect> aKeepFree, const QRect& rctPointer = {});
[[nodiscard]] QRect LegendGetRect(const QFontMetrics& metrics, const QRect& rctMap,
                                  const Legend& legend, std::span<const QRect> aKeepFree,
                                  const QRect& rctPointer = {});

/// Paints the rows and a line with the minimum in the legend's rectangle; bands that are not drawn
/// are empty boxes.
void LegendPaint(QPainter& painter, const QRect& rct, const std::vector<LegendRow>& aRows,
                 float fMinSnr);
void LegendPaint(QPainter& painter, const QRect& rct, const Legend& legend);
