/// @file frmDays.h
/// "Good and Bad Days": on how many days in ten each frequency meets the need, hour by hour, and
/// for the current row the band between a bad and a good day. It shows the main window's
/// prediction. If that has no deciles, its engine is run once more; an engine that gives none is
/// run for three reliabilities.
///
/// Units:   dB in 1 Hz; kHz.
/// Keys:    Enter selects a cell in the main window. Escape stops the work, then closes the window.
/// Errors:  shown in place of the numbers.
/// Tests:   tests/ui/plan/FrmDaysTest.cpp
#pragma once

#include <QProgressBar>
#include <QTimer>
#include <array>

#include "propagation/Runner.h"
#include "ui/common/HourColumns.h"
#include "ui/common/NeedChooser.h"
#include "ui/days/DaysBand.h"
#include "ui/days/DaysGrid.h"
#include "ui/plan/PlanWindow.h"

class frmDays final : public PlanWindow {
    Q_OBJECT
public:
    explicit frmDays(PlanHost& host);
    ~frmDays() override;

    [[nodiscard]] Page PageGet() const override;
    [[nodiscard]] bool RunningIs() const { return m_bRunning; }
    /// The days shown; without rows before the first prediction.
    [[nodiscard]] const DaysTable& DaysTableGet() const { return m_days; }

    NeedChooser* cmdNeed;
    QLabel* lblNeed;
    QProgressBar* prgDone;
    QLabel* lblHint;  ///< why there are no numbers, or which are missing
    GridControl* grdDays;
    QLabel* lblCell;  ///< the current cell in words
    DaysBandView* picBand;

protected:
    bool WorkStop() override;

private:
    void HeadMake();
    void GridConnect();
    void Renew();
    void Ask(std::vector<Request> aRequests);
    void AnswerTake(std::size_t iRequest, const Prediction& prediction);
    void AnswersEnd();
    void Take(PropagationTable table);
    void Judge();
    void HintShow();
    void BandShow();
    void CellFollow();
    void CellTake(int iRow, int iCol);
    void WorkEnd();
    [[nodiscard]] bool OldIs() const;
    [[nodiscard]] QString CellText(int iRow, int iCol) const;
    [[nodiscard]] DaysBand BandGet() const;

    DaysTable m_days;
    HourColumns* m_pHours;
    HourLabels m_asHour;
    Request m_request;                         // the request of the runs in progress
    std::vector<PropagationTable> m_aAnswers;  // by request
    std::string m_sFault;                      // why there is no newer answer
    QTimer m_tmrProgress;
    bool m_bRunning = false;
    Runner m_runner;
    RunnerJob m_job;
};
