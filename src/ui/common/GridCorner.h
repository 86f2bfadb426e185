/// @file GridCorner.h
/// The mouse over the corner of a grid, which is a button of Qt's that no mouse move of the grid
/// reaches: the tooltip of the cell before would stay.
///
/// Tests:   tests/ui/main/FrmMainTableTest.cpp, tests/ui/details/FrmDetailsTest.cpp
#pragma once

#include <QObject>

class GridControl;

class GridCorner final : public QObject {
public:
    /// @param sToolTip  of the corner; empty for none
    GridCorner(GridControl& grd, QString sToolTip);

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    GridControl& m_grd;
    QString m_sToolTip;
};
