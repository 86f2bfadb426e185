/// @file frmDetails.h
/// The details window: one hour of the prediction, with a row of all quantities for each frequency.
///
/// Keys:    arrows and Enter pick a row, Escape closes the window.
/// Tests:   tests/ui/details/FrmDetailsTest.cpp
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

#include "propagation/PropagationTable.h"
#include "propagation/SnrScale.h"
#include "ui/common/GridControl.h"
#include "ui/common/MainWindowHost.h"

class frmDetails final : public QWidget {
    Q_OBJECT
public:
    /// @param host     must outlive the window
    /// @param grdMain  the main window's table: its rows are the list of frequencies, column 0 has
    /// the labels
    frmDetails(MainWindowHost& host, GridControl& grdMain, QWidget* pParent = nullptr);

    /// Fills all rows for one hour and highlights one.
    /// @param iRow    frequency row to highlight; none if the grid lacks it
    /// @param iHour   1..24
    /// @param sHour   the hour's label, for the caption
    /// @param table   with its input; rows of frequencies without values are empty
    void Update(int iRow, int iHour, const QString& sHour, const PropagationTable& table);
    /// Makes the window as high as the main table and wide enough for all columns.
    void DataSetSize();

    QLabel* lblHour;  ///< the hour with its time system, above the grid
    GridControl* grdData;
    int m_iRow = -1;   ///< highlighted row; -1 none
    int m_iHour = -1;  ///< hour shown; -1 none

protected:
    void resizeEvent(QResizeEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    [[nodiscard]] int GridTop() const;
    [[nodiscard]] QColor SnrTextColor(const SnrBand& band) const;
    void SignalsConnect();
    void HeaderLayout();
    void RowsLayout();
    void RowFill(int iRow, const PropagationTable& table);
    void RowClear(int iRow);
    void Highlight(int iRow, int iHour);
    void RowColor(int iRow, const QColor& clrBack, const QColor& clrFore);
    void grdDataMouseMove(int iCol);
    void grdDataMouseDown(int iRow, Qt::MouseButton eButton);
    [[nodiscard]] bool Rec533Is() const;
    [[nodiscard]] QString Speech(int iRow, int iCol) const;

    MainWindowHost& m_host;
    GridControl& m_grdMain;
};
