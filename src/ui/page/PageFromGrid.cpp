#include "ui/page/PageFromGrid.h"

#include <QHeaderView>

#include "ui/common/GridControl.h"

PageGrid PageFromGrid(const GridControl& grd)
{
    std::vector<int> aiCol;
    for (int iCol = 1; iCol < grd.ColsGet(); ++iCol)
        if (!grd.isColumnHidden(iCol - 1))
            aiCol.push_back(iCol);
    QStringList asColumn;
    for (const int iCol : aiCol) asColumn.append(grd.TextGet(0, iCol));
    const bool bHeads = !grd.verticalHeader()->isHidden();
    std::vector<QStringList> aRow;
    for (int iRow = 1; iRow < grd.RowsGet(); ++iRow)
        aRow.push_back(bHeads ? QStringList(grd.TextGet(iRow, 0)) : QStringList());
    PageGrid grid =
        PageGridMake(bHeads ? QStringList(grd.TextGet(0, 0)) : QStringList(), asColumn, aRow);
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
        for (int iCol = 0; iCol < grid.ColsGet(); ++iCol) {
            const GridCell& cell = grd.CellGet(iRow + 1, aiCol[static_cast<std::size_t>(iCol)]);
            grid.CellGet(iRow, iCol) = {cell.sText, cell.clrBack, cell.bMet, cell.bHatch};
        }
    }
    return grid;
}
