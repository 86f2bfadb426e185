#include "ui/common/GridModel.h"

#include <QFont>
#include <algorithm>

GridModel::GridModel(QObject* pParent) : QAbstractTableModel(pParent) {}

bool GridModel::HasCell(int iRow, int iCol) const
{
    return iRow >= 0 && iRow < m_nRows && iCol >= 0 && iCol < m_nCols;
}

const GridCell& GridModel::CellGet(int iRow, int iCol) const
{
    static const GridCell kNone;
    return HasCell(iRow, iCol) ? m_aCells[Index(iRow, iCol)] : kNone;
}

void GridModel::CellChange(int iRow, int iCol, const std::function<void(GridCell&)>& fnChange)
{
    if (!HasCell(iRow, iCol))
        return;
    fnChange(m_aCells[Index(iRow, iCol)]);
    ChangeReport(iRow, iCol);
}

void GridModel::ChangeReport(int iRow, int iCol)
{
    if (!m_bRedraw) {
        m_bChanged = true;
        return;
    }
    if (iRow == 0 && iCol > 0) {
        Q_EMIT headerDataChanged(Qt::Horizontal, iCol - 1, iCol - 1);
    } else if (iCol == 0 && iRow > 0) {
        Q_EMIT headerDataChanged(Qt::Vertical, iRow - 1, iRow - 1);
    } else if (iRow > 0) {
        const QModelIndex idx = index(iRow - 1, iCol - 1);
        Q_EMIT dataChanged(idx, idx);
    }
}

void GridModel::RedrawSet(bool bRedraw)
{
    m_bRedraw = bRedraw;
    if (!m_bRedraw || !m_bChanged)
        return;
    m_bChanged = false;
    if (m_nCols > 1)
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_nCols - 2);
    if (m_nRows > 1)
        Q_EMIT headerDataChanged(Qt::Vertical, 0, m_nRows - 2);
    if (m_nRows > 1 && m_nCols > 1)
        Q_EMIT dataChanged(index(0, 0), index(m_nRows - 2, m_nCols - 2));
}

void GridModel::SizeSet(int nRows, int nCols)
{
    const auto nWidth = static_cast<std::size_t>(nCols);
    std::vector<GridCell> aCells(static_cast<std::size_t>(nRows) * nWidth);
    for (int iRow = 0; iRow < std::min(nRows, m_nRows); ++iRow)
        for (int iCol = 0; iCol < std::min(nCols, m_nCols); ++iCol)
            aCells[static_cast<std::size_t>(iRow) * nWidth + static_cast<std::size_t>(iCol)] =
                std::move(m_aCells[Index(iRow, iCol)]);
    m_aCells = std::move(aCells);
    m_nRows = nRows;
    m_nCols = nCols;
}

void GridModel::RowsSet(int nRows)
{
    nRows = std::max(nRows, 1);
    if (nRows > m_nRows) {
        beginInsertRows({}, m_nRows - 1, nRows - 2);
        SizeSet(nRows, m_nCols);
        endInsertRows();
    } else if (nRows < m_nRows) {
        beginRemoveRows({}, nRows - 1, m_nRows - 2);
        SizeSet(nRows, m_nCols);
        endRemoveRows();
    }
}

void GridModel::ColsSet(int nCols)
{
    nCols = std::max(nCols, 1);
    if (nCols > m_nCols) {
        beginInsertColumns({}, m_nCols - 1, nCols - 2);
        SizeSet(m_nRows, nCols);
        endInsertColumns();
    } else if (nCols < m_nCols) {
        beginRemoveColumns({}, nCols - 1, m_nCols - 2);
        SizeSet(m_nRows, nCols);
        endRemoveColumns();
    }
}

int GridModel::rowCount(const QModelIndex& index) const
{
    return index.isValid() ? 0 : m_nRows - 1;
}

int GridModel::columnCount(const QModelIndex& index) const
{
    return index.isValid() ? 0 : m_nCols - 1;
}

QVariant GridModel::CellData(const GridCell& cell, int nRole)
{
    switch (nRole) {
        case Qt::DisplayRole:
            return cell.sText;
        case Qt::BackgroundRole:
            return cell.clrBack.isValid() ? QVariant(cell.clrBack) : QVariant();
        case Qt::ForegroundRole:
            return cell.clrFore.isValid() ? QVariant(cell.clrFore) : QVariant();
        case Qt::TextAlignmentRole:
            return cell.eAlignment.toInt();
        case Qt::FontRole: {
            if (!cell.bBold)
                return {};
            QFont fnt;
            fnt.setBold(true);
            return fnt;
        }
        case kFrameRole:
            return cell.bFrame;
        default:
            return {};
    }
}

QVariant GridModel::data(const QModelIndex& index, int nRole) const
{
    if (!index.isValid())
        return {};
    const int iRow = index.row() + 1;
    const int iCol = index.column() + 1;
    if (nRole == Qt::AccessibleTextRole && m_fnSpeech)
        return m_fnSpeech(iRow, iCol);
    return CellData(CellGet(iRow, iCol), nRole);
}

QVariant GridModel::headerData(int iSection, Qt::Orientation eOrientation, int nRole) const
{
    const bool bTop = eOrientation == Qt::Horizontal;
    return CellData(bTop ? CellGet(0, iSection + 1) : CellGet(iSection + 1, 0), nRole);
}
