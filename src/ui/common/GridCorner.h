/// @file GridCorner.h
/// The tooltip of a grid's corner. The corner is a button of Qt's and no mouse move over it reaches
/// the grid, so the last cell's tooltip would stay.
///
/// Tests:   tests/ui/main/FrmMainTableTest.cpp, tests/ui/details/FrmDetailsTest.cpp
#pragma once

#include <QObject>

class GridControl;

class GridCorner final : public QObject {
public:
    /// @param sToolTip  empty for none
    GridCorner(GridControl& grd, QString sToolTip);

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    GridControl& m_grd;
    QString m_sToolTip;
};
