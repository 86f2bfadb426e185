/// @file frmReach.h
/// "Who Can I Reach": every station of Airmail's lists and the user's own list, with the hours and
/// frequencies on which it can be heard here. The list fills as the predictions come in.
///
/// Keys:    Enter makes a station the transmitter. Escape stops the search, then closes the window.
/// Errors:  a place that cannot be used, or whose prediction fails, does not stop the others.
/// Tests:   tests/ui/plan/FrmReachTest.cpp
#pragma once

#include <QTimer>
#include <memory>
#include <optional>

#include "propagation/Runner.h"
#include "ui/plan/PlanWindow.h"
#include "ui/reach/ReachForm.h"
#include "ui/reach/ReachGrid.h"

class frmReach final : public PlanWindow {
    Q_OBJECT
public:
    explicit frmReach(PlanHost& host);
    ~frmReach() override;

    /// Reads the places again and searches all of them.
    void Search();
    [[nodiscard]] Page PageGet() const override;
    [[nodiscard]] bool RunningIs() const { return m_bRunning; }
    /// Approximate memory of the answers that are kept, bytes.
    [[nodiscard]] std::size_t CacheBytesGet() const { return m_runner.CacheBytesGet(); }
    /// The answers so far; nullptr before the first search.
    [[nodiscard]] const Reach* ReachGet() const { return m_pReach.get(); }

    ReachForm* frm;
    GridControl* grdReach;
    QTimer* tmrNow;
    QLabel* lblHint;  ///< why there are no rows, or that they are for older settings

protected:
    bool WorkStop() override;

private:
    void GridConnect();
    void PlacesRead();
    void Ask();
    void Judge();
    void ListShow();
    void ListDelayed();
    void RowsEnd();
    void HintShow();
    void FromShow();
    void HourFollow();
    void PowerTake(double dPower);
    void FaultsShow();
    void SettingsFollow();
    void Take(int iRow, int iCol);
    void TipShow(int iRow, int iCol);
    [[nodiscard]] Request BaseGet() const;
    [[nodiscard]] ReachInput InputGet() const;
    [[nodiscard]] std::vector<Place> PlacesChosen() const;

    std::vector<Place> m_aPlaces;       // of all kinds
    std::vector<PlaceFault> m_aFaults;  // entries that cannot be used
    HourLabels m_asHour;
    std::unique_ptr<Reach> m_pReach;
    std::vector<std::size_t> m_aListed;  // by grid row, from 0
    QTimer m_tmrList;                    // collects answers between updates of the list
    QTimer m_tmrProgress;
    std::string m_sObstacle;  // why the engine cannot run; empty if it can
    bool m_bRunning = false;
    bool m_bOld = false;    // the settings have changed, the answers have not
    bool m_bMoved = false;  // the user has chosen a row
    Runner m_runner;
    RunnerJob m_job;
};
