/// @file frmCurves.h
/// "Day Curves": the main window's table as curves over the 24 hours of the day. It follows each
/// new table and the selected cell, and can move the selection.
///
/// Keys:    those of CurvesControl; Enter brings the main window to the front.
/// Tests:   tests/ui/plan/FrmCurvesTest.cpp
#pragma once

#include <QTimer>

#include "settings/Need.h"
#include "ui/common/HourLabels.h"
#include "ui/curves/CurvesControl.h"
#include "ui/plan/PlanWindow.h"

class frmCurves final : public PlanWindow {
    Q_OBJECT
public:
    explicit frmCurves(PlanHost& host);

    [[nodiscard]] Page PageGet() const override;

    QLabel* lblHint;  ///< that there is no table yet, or that it is for older settings
    CurvesControl* pctCurves;
    QTimer* tmrNow;

private:
    void TableShow();
    void CellShow();
    void NowShow();
    void Take(int iFrequency, int iHour);
    [[nodiscard]] QString PathText() const;

    HourLabels m_asHour;
};
