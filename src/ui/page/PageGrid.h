/// @file PageGrid.h
/// A table as it leaves the program: heads, coloured cells, and its forms as text.
///
/// Tests:   tests/ui/page/PageGridTest.cpp
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <vector>

struct PageCell {
    QString sText;
    QColor clrBack;         ///< not valid: the paper's; of the SNR, the standard one
    bool bStrong = false;   ///< meets the need
    bool bHatched = false;  ///< there is no value
};

/// Every row of heads is as long as asCorner; aCell has a cell for each row and column.
/// Every further line of titles has the corners and the columns.
struct PageGrid {
    QStringList asCorner;                  ///< titles of the columns of heads
    QStringList asColumn;                  ///< titles of the columns of cells
    std::vector<QStringList> aRow;         ///< the heads of each row
    std::vector<PageCell> aCell;           ///< row by row
    std::vector<QStringList> aTitle = {};  ///< lines of titles below the first
    bool bTurns = false;  ///< painted with its rows as columns where the page is wider than high

    [[nodiscard]] int RowsGet() const { return static_cast<int>(aRow.size()); }
    [[nodiscard]] int ColsGet() const { return static_cast<int>(asColumn.size()); }
    [[nodiscard]] const PageCell& CellGet(int iRow, int iCol) const;
    [[nodiscard]] PageCell& CellGet(int iRow, int iCol);
};

/// Cells without values, all heads given.
[[nodiscard]] PageGrid PageGridMake(const QStringList& asCorner, const QStringList& asColumn,
                                    const std::vector<QStringList>& aRow);

/// Rows as columns: the columns of heads become lines of titles.
[[nodiscard]] PageGrid PageGridTurned(const PageGrid& grid);

/// Lines of cells between tabs, the titles first; no line end behind the last line.
[[nodiscard]] QString PageGridTabs(const PageGrid& grid);
/// Comma-separated values (RFC 4180): lines end in CR LF, texts with a comma, a quotation mark or a
/// line end are quoted.
[[nodiscard]] QString PageGridCsv(const PageGrid& grid);
/// A table of HTML with the cells' colours, escaped.
[[nodiscard]] QString PageGridHtml(const PageGrid& grid);
