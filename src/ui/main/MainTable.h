/// @file MainTable.h
/// What the main grid shows besides the values: hour labels in the chosen time system, the mark of
/// the selected cell, tooltips and speech.
///
/// Units:   rows and hours count from 1; -1 for none.
/// Tests:   tests/ui/main/FrmMainTableTest.cpp, FrmMainSelectionTest.cpp
#pragma once

#include <QString>

#include "settings/Settings.h"

class GridControl;

class MainTable {
public:
    MainTable(GridControl& grd, const Settings& settings);

    void HoursLayout();
    /// Moves the mark.
    /// @return the cell as kept: without a row that the table does not have
    SelectedCell Mark(SelectedCell cell);
    /// The label of an hour column as a time, "14:00".
    [[nodiscard]] QString TimeGet(int iHour) const;

private:
    void CellMark(bool bMark);
    void MouseMoved(int iRow, int iCol);
    [[nodiscard]] QString Speech(int iRow, int iCol) const;

    GridControl& m_grd;
    const Settings& m_settings;
    SelectedCell m_marked{-1, -1};  ///< kept here because the settings may lose theirs
};
