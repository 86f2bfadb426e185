#include "ui/common/GridCells.h"

void GridCells::TextSet(int iRow, int iCol, const QString& sText)
{
    m_model.CellChange(iRow, iCol, [&](GridCell& cell) { cell.sText = sText; });
}

void GridCells::ColorSet(int iRow, int iCol, const QColor& clrBack, const QColor& clrFore)
{
    m_model.CellChange(iRow, iCol, [&](GridCell& cell) {
        cell.clrBack = clrBack;
        cell.clrFore = clrFore;
    });
}

void GridCells::BoldSet(int iRow, int iCol, bool bBold)
{
    m_model.CellChange(iRow, iCol, [&](GridCell& cell) { cell.bBold = bBold; });
}

void GridCells::FrameSet(int iRow, int iCol, bool bFrame)
{
    m_model.CellChange(iRow, iCol, [&](GridCell& cell) { cell.bFrame = bFrame; });
}

void GridCells::HatchSet(int iRow, int iCol, bool bHatch)
{
    m_model.CellChange(iRow, iCol, [&](GridCell& cell) { cell.bHatch = bHatch; });
}

void GridCells::MetSet(int iRow, int iCol, bool bMet)
{
    if (CellGet(iRow, iCol).bMet != bMet)
        m_model.CellChange(iRow, iCol, [&](GridCell& cell) { cell.bMet = bMet; });
}

void GridCells::AlignmentSet(int iRow, int iCol, Qt::Alignment eAlignment)
{
    m_model.CellChange(iRow, iCol, [&](GridCell& cell) { cell.eAlignment = eAlignment; });
}
