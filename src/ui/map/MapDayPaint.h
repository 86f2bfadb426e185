/// @file MapDayPaint.h
/// The layers of the map's day, independent of the window: what is painted for a grid's points, in
/// which colours, the text of the legend and of the tip.
///
/// Units:   degrees, kHz, dB in 1 Hz; hours 0..23 UTC; frequencies as indices into the list.
/// Errors:  none; a point without a value is not painted, and its tip says so.
/// Tests:   tests/ui/map/MapDayPaintTest.cpp
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "settings/Need.h"
#include "studies/areaday/AreaDays.h"
#include "ui/map/MapLegend.h"

enum class MapDayLayerKind { Snr, BestFrequency, DaysInTen, HoursOpen };
inline constexpr int kMapDayLayers = 4;

/// What is shown of a day.
struct MapDayShown {
    MapDayLayerKind eLayer = MapDayLayerKind::Snr;
    int iHour = 0;
    std::size_t iFrequency = 0;
    std::vector<float> afFrequency;  ///< the day's list
    float fMinSnr = 0.0F;            ///< least SNR that is painted
    Need need;                       ///< for days in ten and hours open
    AreaHours hours;                 ///< for hours open: those that are computed
    std::function<std::uint32_t(float fSnr)> fnSnrColor;
};

/// True if the layer is for a single frequency.
[[nodiscard]] bool DayLayerHasFrequency(MapDayLayerKind eLayer);

/// The layer's value for a point: the SNR; the index of the best frequency if its SNR is painted;
/// days in ten; hours open.
[[nodiscard]] std::optional<float> DayValueGet(const MapDayShown& shown, const AreaDay& day,
                                               std::size_t iPoint);
/// The colour of a value, 0x00BBGGRR.
[[nodiscard]] std::uint32_t DayColorGet(const MapDayShown& shown, float fValue);

/// All points of a day with their values; NaN where there is none.
[[nodiscard]] std::vector<AreaPoint> DayPointsGet(const MapDayShown& shown, const AreaDay& day);

[[nodiscard]] Legend DayLegendGet(const MapDayShown& shown);
/// ", Snr 48.0 dB".
[[nodiscard]] QString DaySnrText(float fSnr);
/// ", Snr 48.0 dB", ", 14000 kHz, Snr 48.0 dB", ", 7 days in ten", ", 13 hours open".
[[nodiscard]] QString DayTipGet(const MapDayShown& shown, const AreaDay& day, std::size_t iPoint);
/// A title for the window: "Snr Overlay, 14000.0KHz @ 06:00", "Best Frequency @ 06:00" ...
[[nodiscard]] QString DayTitleGet(const MapDayShown& shown);
/// The line below the picture that says what it shows.
/// @param sAreaFoot  AreaFootText of its frequency and hour
[[nodiscard]] std::string DayFootGet(const MapDayShown& shown, const std::string& sAreaFoot);
