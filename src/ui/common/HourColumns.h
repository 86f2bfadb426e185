/// @file HourColumns.h
/// A grid of frequencies by the 24 hours, whose columns share the grid's width.
///
/// Units:   pixels.
/// Tests:   tests/ui/plan/FrmDaysTest.cpp
#pragma once

#include "ui/common/GridControl.h"
#include "ui/common/HourLabels.h"

class HourColumns final : public QObject {
    Q_OBJECT
public:
    /// @param grd  must outlive this object
    explicit HourColumns(GridControl& grd);
    /// Sets the titles and widths of all columns. The rows are up to the caller.
    void Show(const HourLabels& asHour);

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void WidthsSet();

    GridControl& m_grd;
    bool m_bMinutes = false;
};
