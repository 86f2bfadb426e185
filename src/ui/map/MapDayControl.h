/// @file MapDayControl.h
/// The map's day: the overlay for any hour, frequency and layer without a run for each. It begins
/// when the bar of hours is moved or played or a layer is chosen; until then the overlay is that of
/// its own menu item. It ends when the overlay is hidden.
///
/// Errors:  shown in the read-out and the status line, without a message box, since the user does
///          not wait for the result.
/// Tests:   tests/ui/map/MapDayControlTest.cpp, MapDayEnginesTest.cpp
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "ui/map/MapDayPaint.h"
#include "ui/map/MapDayRun.h"
#include "ui/map/MapForm.h"

class MainWindowHost;
class MapOverlayControl;
class MapOverlayMenu;

/// The engine for a model, for many predictions.
using MapEngineFn = std::function<std::shared_ptr<const Engine>(int iModel)>;

class MapDayControl final : public QObject {
    Q_OBJECT
public:
    MapDayControl(MapForm& form, MainWindowHost& host, MapOverlayMenu& menu,
                  MapOverlayControl& overlay, MapEngineFn fnEngine);

    /// True while the shown overlay is the day's.
    [[nodiscard]] bool IsOn() const { return m_bOn; }
    /// True while the picture shows cells of the day.
    [[nodiscard]] bool HasCells() const { return !m_aPoints.empty(); }
    [[nodiscard]] bool PlayingIs() const { return m_tmrPlay.isActive(); }
    [[nodiscard]] MapDayLayerKind LayerGet() const { return m_shown.eLayer; }
    /// What the cells show.
    /// REQUIRES: HasCells
    [[nodiscard]] const MapDayShown& ShownGet() const { return m_shown; }
    /// True if the values are interpolated between the grid points.
    [[nodiscard]] bool IsSmooth() const;
    /// The request of the cells shown, with their hour and frequency.
    /// REQUIRES: HasCells
    [[nodiscard]] AreaRequest RequestGet() const;
    /// The value of the point nearest to a position, and the range; empty without cells.
    [[nodiscard]] QString TipGet(const LatLon& pos) const;
    [[nodiscard]] const MapDayRun& RunGet() const { return m_run; }

    void LayerChoose(MapDayLayerKind eLayer);
    /// To be called when the picture has been painted: adds the cells that are computed and starts
    /// computing the rest.
    void Show();
    /// To be called before the picture is painted again.
    void PictureForget();
    /// For tests: another speed of play, ms per hour.
    void PlayPaceSet(int nMs) { m_tmrPlay.setInterval(nMs); }
    /// Stops the computation and the play.
    /// @return false if there was neither
    bool Leave();

Q_SIGNALS:
    /// The picture is to be painted again, without cells.
    void PictureNeeded();
    /// The cells were painted again, over what was drawn into the picture since.
    void Painted();
    /// The bar of hours was shown or hidden; the picture is painted again in any case.
    void BarShown();

private:
    void BarConnect();
    void OverlayToggled(bool bShown);
    void Begin();
    void HourMove(int iHour);
    void ChoiceFollow();
    void FrequencyMove(std::size_t iFrequency);
    void PlayToggle();
    void PlayStep();
    void Ask();
    void Renew();
    void Paint();
    void BarShow();
    void WorkShow();
    void ListTake();
    void TableFollow();
    void ShownTake();
    [[nodiscard]] std::optional<float> SmoothGet(const LatLon& pos) const;
    [[nodiscard]] MapDayTarget TargetGet(int iHour) const;
    [[nodiscard]] const MapDayGrid* GridGet() const;

    MapForm& m_form;
    MainWindowHost& m_host;
    MapOverlayMenu& m_menu;
    MapOverlayControl& m_overlay;
    MapEngineFn m_fnEngine;
    bool m_bOn = false;
    std::vector<int> m_aiRow;  // rows of the table for the list's frequencies
    MapDayShown m_shown;
    QImage m_imgBase;                  // the picture without cells; null: not painted yet
    MapDayGrid m_apShown;              // the grid shown in the picture
    std::vector<AreaPoint> m_aPoints;  // of all boxes, with the values shown
    QTimer m_tmrPlay;
    QTimer m_tmrWork;  // reports computations that take long
    bool m_bStopped = false;
    MapDayRun m_run;
};
