/// @file HourColumns.h
/// A grid of frequencies by the 24 hours whose columns take the room that the grid has.
///
/// Units:   pixels.
/// Tests:   tests/ui/plan/FrmDaysTest.cpp
#pragma once

#include "ui/common/GridControl.h"
#include "ui/common/HourLabels.h"

class HourColumns final : public QObject {
    Q_OBJECT
public:
    /// @param grd  outlives it
    explicit HourColumns(GridControl& grd);
    /// Titles and widths of all columns. Rows are the caller's.
    void Show(const HourLabels& asHour);

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void WidthsSet();

    GridControl& m_grd;
    bool m_bMinutes = false;
};
