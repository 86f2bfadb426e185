/// @file GridCells.h
/// The contents of a grid's cells as the windows set them: text, colours, bold type, frame,
/// hatching, corner, alignment, speech. Cells outside the grid are ignored.
///
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <utility>

#include "ui/common/GridModel.h"

class GridCells {
public:
    explicit GridCells(GridModel& model) : m_model(model) {}
    GridCells(const GridCells&) = delete;
    GridCells& operator=(const GridCells&) = delete;

    [[nodiscard]] int RowsGet() const { return m_model.RowsGet(); }
    [[nodiscard]] int ColsGet() const { return m_model.ColsGet(); }

    void TextSet(int iRow, int iCol, const QString& sText);
    [[nodiscard]] QString TextGet(int iRow, int iCol) const { return CellGet(iRow, iCol).sText; }
    void ColorSet(int iRow, int iCol, const QColor& clrBack, const QColor& clrFore);
    void BoldSet(int iRow, int iCol, bool bBold);
    void FrameSet(int iRow, int iCol, bool bFrame);
    void HatchSet(int iRow, int iCol, bool bHatch);  ///< thin lines: no value
    void MetSet(int iRow, int iCol, bool bMet);      ///< a small corner: the value meets the need
    void AlignmentSet(int iRow, int iCol, Qt::Alignment eAlignment);
    [[nodiscard]] const GridCell& CellGet(int iRow, int iCol) const
    {
        return m_model.CellGet(iRow, iCol);
    }
    void SpeechSet(GridSpeechFn fnSpeech) { m_model.SpeechSet(std::move(fnSpeech)); }

protected:
    ~GridCells() = default;
    [[nodiscard]] GridModel& ModelGet() { return m_model; }

private:
    GridModel& m_model;
};
