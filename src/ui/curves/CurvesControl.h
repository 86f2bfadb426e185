/// @file CurvesControl.h
/// The curves of a day as one control: a mark on a cell, moved by keys and mouse.
///
/// Keys:    left and right an hour, up and down to the next higher and lower frequency, Home and
/// End
///          the first and the last hour, Enter takes the cell.
/// Speech:  the control's name is the marked cell in words.
/// Tests:   tests/ui/plan/FrmCurvesTest.cpp
#pragma once

#include <QWidget>

#include "ui/curves/CurvesPlot.h"

class CurvesControl final : public QWidget {
    Q_OBJECT
public:
    explicit CurvesControl(QWidget* pParent);

    /// Shows a day. The mark stays with its frequency's index in the table.
    void DayShow(const DayCurves& day, const CurvesView& view, const QString& sZone);
    /// Nothing is shown: there is no table.
    void Clear();
    /// Marks a cell; one that the day does not have marks none.
    /// @param iFrequency  index in the table
    /// @param iHour       0 to 23, UT
    void Mark(int iFrequency, int iHour);
    void NowSet(double dNow);

    [[nodiscard]] const DayCurves& DayGet() const { return m_day; }
    [[nodiscard]] const CurvesView& ViewGet() const { return m_view; }
    /// The marked cell; none when its frequency is not shown.
    [[nodiscard]] std::optional<CurvesCell> MarkGet() const;
    /// A cell in words.
    [[nodiscard]] QString TextGet(const CurvesCell& cell) const;
    /// Where a cell is painted now.
    [[nodiscard]] QRectF CellRect(const CurvesCell& cell) const;

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// @param iFrequency  index in the table; @param iHour  0 to 23, UT
    void CellChosen(int iFrequency, int iHour);
    void CellEntered();  ///< the marked cell, by Enter or a double click

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
    int m_iFrequency = -1;  // marked, index in the table
    bool m_bDay = false;
};
