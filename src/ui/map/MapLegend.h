/// @file MapLegend.h
/// The scale of the overlay's colours, drawn at the map's right edge.
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
    bool bDrawn = true;  ///< false: wholly below the least SNR that is painted
};

struct Legend {
    QString sHead;
    std::vector<LegendRow> aRows;  ///< from the best down
    QString sFoot;
};

/// The bands of the colour scale from the best down.
/// @param fMinSnr   least SNR that is painted; a band that it cuts names it as its lower end.
[[nodiscard]] std::vector<LegendRow> LegendGetRows(
    float fMinSnr, const std::function<std::uint32_t(float fSnr)>& fnColor);

/// The scale of SNRs with its minimum.
[[nodiscard]] Legend LegendOfSnr(std::vector<LegendRow> aRows, float fMinSnr);

/// Where the legend stands: at the map's right edge, or at the left one or in a corner where only
/// so it hides nothing of aKeepFree. It is never under the pointer.
/// @param rctPointer  what the pointer looks at; empty where it is elsewhere
[[nodiscard]] QRect LegendGetRect(const QFontMetrics& metrics, const QRect& rctMap,
                                  const std::vector<LegendRow>& aRows, float fMinSnr,
                                  std::span<const QRect> aKeepFree, const QRect& rctPointer = {});
[[nodiscard]] QRect LegendGetRect(const QFontMetrics& metrics, const QRect& rctMap,
                                  const Legend& legend, std::span<const QRect> aKeepFree,
                                  const QRect& rctPointer = {});

/// Paints the rows and a line with the minimum into the legend's rectangle; bands that are not
/// drawn show as empty boxes.
void LegendPaint(QPainter& painter, const QRect& rct, const std::vector<LegendRow>& aRows,
                 float fMinSnr);
void LegendPaint(QPainter& painter, const QRect& rct, const Legend& legend);
