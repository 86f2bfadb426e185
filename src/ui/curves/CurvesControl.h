/// @file CurvesControl.h
/// The curves of a day as a control with a marked cell that keys and mouse move.
///
/// Keys:    left and right move by an hour, up and down to the next higher or lower frequency, Home
///          and End to the first and last hour; Enter picks the cell.
/// Speech:  the control's accessible name is the marked cell in words.
/// Tests:   tests/ui/plan/FrmCurvesTest.cpp
#pragma once

#include <QWidget>

#include "ui/curves/CurvesPlot.h"

class CurvesControl final : public QWidget {
    Q_OBJECT
public:
    explicit CurvesControl(QWidget* pParent);

    /// Shows a day. The mark keeps its frequency's index in the table.
    void DayShow(const DayCurves& day, const CurvesView& view, const QString& sZone);
    /// Shows nothing: there is no table.
    void Clear();
    /// Marks a cell; none if the day does not have it.
    /// @param iFrequency  index in the table
    /// @param iHour       0 to 23, UTC
    void Mark(int iFrequency, int iHour);
    void NowSet(double dNow);

    [[nodiscard]] const DayCurves& DayGet() const { return m_day; }
    [[nodiscard]] const CurvesView& ViewGet() const { return m_view; }
    /// The marked cell; none if its frequency is not shown.
    [[nodiscard]] std::optional<CurvesCell> MarkGet() const;
    /// A cell in words.
    [[nodiscard]] QString TextGet(const CurvesCell& cell) const;
    /// Where a cell is painted.
    [[nodiscard]] QRectF CellRect(const CurvesCell& cell) const;

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// @param iFrequency  index in the table
    /// @param iHour       0 to 23, UTC
    void CellChosen(int iFrequency, int iHour);
    void CellEntered();  ///< Enter or a double click on the marked cell

protected:
    bool event(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

private:
    [[nodiscard]] QFont FontGet() const;
    [[nodiscard]] CurvesPlot PlotGet() const;
    [[nodiscard]] CurvesCell BeginGet() const;
    [[nodiscard]] int RibbonBeside(int iRibbon, int nUp) const;
    void Choose(const CurvesCell& cell);
    void NameShow();
    void ColoursTake();

    DayCurves m_day;
    CurvesView m_view;
    QString m_sZone;
    int m_iFrequency = -1;  // the marked one, as index in the table
    bool m_bDay = false;
};
