/// @file MapOverlayControl.h
/// The SNR overlay: shown or hidden by its menu item, predicted for the view, painted into the
/// picture, and kept for the tips. A failed run is told in a box, in the main window's status line
/// and in the read-out.
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
    /// The picture shows cells of the overlay.
    [[nodiscard]] bool HasCells() const { return IsShown() && !m_grid.IsEmpty(); }
    /// What the cells that are shown were predicted for; REQUIRES: HasCells.
    [[nodiscard]] const AreaRequest& RequestGet() const { return m_request; }
    /// SNR of the grid point nearest to a position; none while the overlay is hidden or computed.
    /// With Smooth the value between the points, wherever there is one.
    [[nodiscard]] std::optional<float> OverlayGetSnr(double dLat, double dLon) const;

    /// Draws the overlay into the picture.
    void Show();
    /// Asks for the overlay anew once nothing has moved for a moment, if it is shown.
    void Later();
    /// The picture is painted anew: it has no cells and nothing that has failed.
    void PictureForget();
    /// Nothing has failed any more.
    void FailureForget() { FailureSet({}); }
    /// What is shown is painted evenly between the grid points.
    [[nodiscard]] bool IsSmooth() const { return m_form.mnuOverlaySmooth->isChecked(); }
    /// Tells in the status line and on the map why there is no overlay; nothing takes it back.
    void FailureSet(const std::optional<Failure>& failure);
    /// Turns the picture into an outline map.
    void MapOutline();

Q_SIGNALS:
    /// The picture is to be painted anew, without cells.
    void PictureWanted();
    /// The moment of Later is over.
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
    std::vector<OverlayShown> m_aShown;  // its boxes, for another look of the same values
    AreaRequest m_request;               // of its last box
    std::optional<Failure> m_failure;    // why the last run failed
};
