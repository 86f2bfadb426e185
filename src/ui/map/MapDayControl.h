/// @file MapDayControl.h
/// The map's day: the overlay for any hour, frequency and layer without a run for each. It begins
/// when the bar of hours is moved or played, or a layer is chosen; the overlay as its own item
/// shows it is left alone. It ends when the overlay is hidden.
///
/// Errors:  told in the read-out and in the status line, without a box: nobody waits for the work.
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

/// The engine of a model for many predictions.
using MapEngineFn = std::function<std::shared_ptr<const Engine>(int iModel)>;

class MapDayControl final : public QObject {
    Q_OBJECT
public:
    MapDayControl(MapForm& form, MainWindowHost& host, MapOverlayMenu& menu,
                  MapOverlayControl& overlay, MapEngineFn fnEngine);

    /// The overlay is shown and is one of the day.
    [[nodiscard]] bool IsOn() const { return m_bOn; }
    /// The picture shows cells of the day.
    [[nodiscard]] bool HasCells() const { return !m_aPoints.empty(); }
    [[nodiscard]] bool PlayingIs() const { return m_tmrPlay.isActive(); }
    [[nodiscard]] MapDayLayerKind LayerGet() const { return m_shown.eLayer; }
    /// What the cells show; REQUIRES: HasCells.
    [[nodiscard]] const MapDayShown& ShownGet() const { return m_shown; }
    /// They are painted evenly between the grid points.
    [[nodiscard]] bool IsSmooth() const;
    /// What they were predicted for, with their hour and frequency; REQUIRES: HasCells.
    [[nodiscard]] AreaRequest RequestGet() const;
    /// The value of the point nearest to a position, with the range; empty without cells.
    [[nodiscard]] QString TipGet(const LatLon& pos) const;
    [[nodiscard]] const MapDayRun& RunGet() const { return m_run; }

    void LayerChoose(MapDayLayerKind eLayer);
    /// The picture was painted anew: draws what there is into it and has the rest computed.
    void Show();
    /// The picture is about to be painted anew.
    void PictureForget();
    /// The seam for tests: another pace of the play, ms an hour.
    void PlayPaceSet(int nMs) { m_tmrPlay.setInterval(nMs); }
    /// Ends the work under way, else the play. @return false when there is neither
    bool Leave();

Q_SIGNALS:
    /// The picture is to be painted anew, without cells.
    void PictureWanted();
    /// The bar of hours has appeared or gone; the picture is painted anew in any case.
    void BarShown();

private:
    void BarConnect();
    void OverlayToggled(bool bShown);
    void Begin();
    void HourMove(int iHour);
    void FrequencyMove(std::size_t iFrequency);
    void PlayToggle();
    void PlayStep();
    void Ask();
    void Renew();
    void Paint();
    void BarShow();
    void WorkShow();
    void ListTake();
    void ShownTake();
    [[nodiscard]] std::optional<float> SmoothGet(const LatLon& pos) const;
    [[nodiscard]] MapDayWant WantGet(int iHour) const;
    [[nodiscard]] const MapDayGrid* GridGet() const;

    MapForm& m_form;
    MainWindowHost& m_host;
    MapOverlayMenu& m_menu;
    MapOverlayControl& m_overlay;
    MapEngineFn m_fnEngine;
    bool m_bOn = false;
    std::vector<int> m_aiRow;  // rows of the table that the list's frequencies have
    MapDayShown m_shown;
    QImage m_imgBase;                  // the picture without cells; null: not painted yet
    MapDayGrid m_apShown;              // whose points the picture shows
    std::vector<AreaPoint> m_aPoints;  // of all boxes, with the values shown
    QTimer m_tmrPlay;
    QTimer m_tmrWork;  // work that lasts is told
    bool m_bStopped = false;
    MapDayRun m_run;
};
