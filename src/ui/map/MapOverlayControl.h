/// @file MapOverlayControl.h
/// The SNR overlay: its menu item shows and hides it; it is predicted for the view, painted into
/// the picture and kept for the tips. A failed run is reported in a message box, in the main
/// window's status line and in the read-out.
///
/// Tests:   tests/ui/map/MapOverlayControlTest.cpp, MapOverlayAgainTest.cpp
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>

#include "propagation/AreaBoxes.h"
#include "propagation/Prediction.h"
#include "ui/map/MapForm.h"
#include "ui/map/MapOverlay.h"
#include "ui/map/MapOverlayGrid.h"

class MainWindowHost;
class MapOverlayMenu;

class MapOverlayControl final : public QObject {
    Q_OBJECT
public:
    MapOverlayControl(MapForm& form, MainWindowHost& host, MapOverlayMenu& menu);

    [[nodiscard]] bool IsShown() const { return m_form.mnuOverlayDraw->isChecked(); }
    /// True while the picture shows cells of the overlay.
    [[nodiscard]] bool HasCells() const { return IsShown() && !m_grid.IsEmpty(); }
    /// The request of the cells that are shown.
    /// REQUIRES: HasCells
    [[nodiscard]] const AreaRequest& RequestGet() const { return m_request; }
    /// SNR of the grid point nearest to a position, or with Smooth the value between the points
    /// where there is one; none while the overlay is hidden or computed.
    [[nodiscard]] std::optional<float> OverlayGetSnr(double dLat, double dLon) const;

    /// Draws the overlay into the picture.
    void Show();
    /// Predicts the overlay again, if it is shown, once nothing has moved for a moment.
    void Later();
    /// To be called when the picture is painted again: it has no cells, and no failure to report.
    void PictureForget();
    /// Clears the reported failure.
    void FailureForget() { FailureSet({}); }
    /// True if the values are interpolated between the grid points.
    [[nodiscard]] bool IsSmooth() const { return m_form.mnuOverlaySmooth->isChecked(); }
    /// Reports in the status line and on the map why there is no overlay; nothing clears it.
    void FailureSet(const std::optional<Failure>& failure);
    /// Turns the picture into an outline map.
    void MapOutline();

Q_SIGNALS:
    /// The picture is to be painted again, without cells.
    void PictureNeeded();
    /// The moment that Later waits for is over.
    void Due();

private:
    class Busy;

    void mnuOverlayDrawClick();
    std::optional<Failure> OverlayDraw();
    std::optional<Failure> OverlayDrawBox(const AreaBox& box);
    void BoxPaint(const OverlayShown& shown);
    void SmoothClick();

    MapForm& m_form;
    MainWindowHost& m_host;
    MapOverlayMenu& m_menu;
    bool m_bBusy = false;
    QTimer m_tmrLater;
    OverlayGrid m_grid;                  // of the picture that is shown
    std::vector<OverlayShown> m_aShown;  // its boxes, to paint the same values in another way
    AreaRequest m_request;               // of its last box
    std::optional<Failure> m_failure;    // of the last run
};
