/// @file frmReach.h
/// "Who Can I Reach": every station of Airmail's lists and of the user's own, by when and on which
/// frequency it can be heard here. Fills while the predictions come in.
///
/// Keys:    Enter takes a station as transmitter, Escape stops the search, then closes the window.
/// Errors:  a place that cannot be used, or whose prediction fails, stops no other.
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

    /// Reads the places anew, and asks for all of them.
    void Search();
    [[nodiscard]] Page PageGet() const override;
    [[nodiscard]] bool RunningIs() const { return m_bRunning; }
    /// The answers so far; null before the first search.
    [[nodiscard]] const Reach* ReachGet() const { return m_pReach.get(); }

    ReachForm* frm;
    GridControl* grdReach;
    QTimer* tmrNow;
    QLabel* lblHint;  ///< instead of rows: why there are none; or that they are of older settings

protected:
    bool WorkStop() override;

private:
    void GridConnect();
    void PlacesRead();
    void Ask();
    void Judge();
    void ListShow();
    void ListSoon();
    void RowsEnd();
    void HintShow();
    void FromShow();
    void HourFollow();
    void PowerTake(double dPower);
    void FaultsShow();
    void SettingsSee();
    void Take(int iRow, int iCol);
    void TipShow(int iRow, int iCol);
    [[nodiscard]] Request BaseGet() const;
    [[nodiscard]] ReachAsked AskedGet() const;
    [[nodiscard]] std::vector<Place> PlacesWanted() const;

    std::vector<Place> m_aPlaces;       // of every kind
    std::vector<PlaceFault> m_aFaults;  // entries of the lists that cannot be used
    HourLabels m_asHour;
    std::unique_ptr<Reach> m_pReach;
    std::vector<std::size_t> m_aListed;  // by row of the grid, from 0
    QTimer m_tmrList;                    // gathers answers before the list is made anew
    QTimer m_tmrProgress;
    std::string m_sObstacle;  // why the engine cannot be asked; empty where it can
    bool m_bRunning = false;
    bool m_bOld = false;    // the settings went on, the answers did not
    bool m_bMoved = false;  // the user chose a row
    Runner m_runner;
    RunnerJob m_job;
};
