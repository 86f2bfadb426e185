/// @file frmCompare.h
/// "Compare Engines": the main window's path predicted by two engines, and their difference, both
/// for the power in force in the main window.
///
/// Units:   dB in 1 Hz; kHz.
/// Keys:    Enter selects a cell in the main window. Escape stops the runs, then closes the window.
/// Errors:  an engine that cannot run is greyed out in the choice; when one fails, the other's view
///          remains.
/// Tests:   tests/ui/plan/FrmCompareTest.cpp
#pragma once

#include <QComboBox>
#include <QProgressBar>
#include <QTabBar>
#include <QTimer>
#include <array>

#include "propagation/Runner.h"
#include "ui/common/HourColumns.h"
#include "ui/common/NeedChooser.h"
#include "ui/compare/CompareGrid.h"
#include "ui/plan/PlanWindow.h"

class frmCompare final : public PlanWindow {
    Q_OBJECT
public:
    explicit frmCompare(PlanHost& host);
    ~frmCompare() override;

    [[nodiscard]] Page PageGet() const override;
    [[nodiscard]] bool RunningIs() const { return m_nWaiting > 0; }
    [[nodiscard]] const CompareSides& SidesGet() const { return m_sides; }
    [[nodiscard]] CompareView ViewGet() const;

    std::array<QComboBox*, 2> acmbEngine;
    NeedChooser* cmdNeed;
    QLabel* lblNeed;
    QProgressBar* prgDone;
    QLabel* lblHint;   ///< what failed, or that the numbers are old
    QTabBar* tabView;  ///< one engine, the other, the difference
    GridControl* grdCompare;
    QLabel* lblCell;  ///< the current cell in words

protected:
    bool WorkStop() override;

private:
    void HeadMake();
    void GridConnect();
    void EnginesFill();
    void EnginesShow();
    void Ask();
    void SideAsk(std::size_t iSide);
    void SideTake(std::size_t iSide, const Request& request, const Prediction& prediction);
    void Judge();
    void ViewShow();
    void HintShow();
    void CellShow();
    void CellFollow();
    void CellTake(int iRow, int iCol);
    void FootShow();
    void WorkEnd();
    [[nodiscard]] bool OldIs() const;
    [[nodiscard]] int ModelGet(std::size_t iSide) const;
    [[nodiscard]] Request RequestOf(std::size_t iSide) const;

    CompareSides m_sides;
    HourColumns* m_pHours;
    HourLabels m_asHour;
    std::array<std::string, 2> m_asFault;  // why a side has no newer answer
    bool m_bStopped = false;
    int m_nWaiting = 0;  // sides that are being predicted
    QTimer m_tmrProgress;
    Runner m_runner;
    std::array<RunnerJob, 2> m_aJob;
};
