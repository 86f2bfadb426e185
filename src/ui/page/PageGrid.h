/// @file PageGrid.h
/// A table for export: heads, coloured cells, and its text formats.
///
/// Tests:   tests/ui/page/PageGridTest.cpp
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <vector>

struct PageCell {
    QString sText;
    QColor clrBack;        ///< invalid: the paper's; for an SNR, the colour of the standard palette
    bool bStrong = false;  ///< meets the need
    bool bHatched = false;  ///< no value
};

/// Each row has as many heads as asCorner; aCell has one cell for each row and column. Each further
/// title line covers the corners and the columns.
struct PageGrid {
    QStringList asCorner;                  ///< titles of the head columns
    QStringList asColumn;                  ///< titles of the cell columns
    std::vector<QStringList> aRow;         ///< the heads of each row
    std::vector<PageCell> aCell;           ///< row by row
    std::vector<QStringList> aTitle = {};  ///< title lines below the first
    bool bTurns = false;  ///< painted with rows as columns where the page is wider than high

    [[nodiscard]] int RowsGet() const { return static_cast<int>(aRow.size()); }
    [[nodiscard]] int ColsGet() const { return static_cast<int>(asColumn.size()); }
    [[nodiscard]] const PageCell& CellGet(int iRow, int iCol) const;
    [[nodiscard]] PageCell& CellGet(int iRow, int iCol);
};

/// A table with all its heads and empty cells.
[[nodiscard]] PageGrid PageGridMake(const QStringList& asCorner, const QStringList& asColumn,
                                    const std::vector<QStringList>& aRow);

/// Swaps rows and columns: the head columns become title lines.
[[nodiscard]] PageGrid PageGridTurned(const PageGrid& grid);

/// Tab-separated lines, titles first; no line end after the last line.
[[nodiscard]] QString PageGridTabs(const PageGrid& grid);
/// Comma-separated values (RFC 4180): lines end in CR LF; texts with a comma, a quotation mark or a
/// line end are quoted.
[[nodiscard]] QString PageGridCsv(const PageGrid& grid);
/// An HTML table with the cells' colours; texts are escaped.
[[nodiscard]] QString PageGridHtml(const PageGrid& grid);
