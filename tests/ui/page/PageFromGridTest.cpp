#include <gtest/gtest.h>

#include "ui/common/GridControl.h"
#include "ui/page/PageFromGrid.h"

namespace {

TEST(PageFromGrid, IsWhatTheGridShows)
{
    GridControl grd;
    grd.RowsSet(3);
    grd.ColsSet(4);
    for (int iRow = 0; iRow < 3; ++iRow)
        for (int iCol = 0; iCol < 4; ++iCol)
            grd.TextSet(iRow, iCol, QStringLiteral("%1/%2").arg(iRow).arg(iCol));
    grd.ColorSet(1, 1, QColor(1, 2, 3), Qt::white);
    grd.MetSet(1, 1, true);
    grd.HatchSet(2, 3, true);
    grd.ColWidthSet(2, 0);
    const PageGrid grid = PageFromGrid(grd);
    EXPECT_EQ(PageGridTabs(grid), QStringLiteral("0/0\t0/1\t0/3\n1/0\t1/1\t1/3\n2/0\t2/1\t2/3"));
    EXPECT_EQ(grid.CellGet(0, 0).clrBack, QColor(1, 2, 3));
    EXPECT_TRUE(grid.CellGet(0, 0).bStrong);
    EXPECT_FALSE(grid.CellGet(0, 1).clrBack.isValid());
    EXPECT_TRUE(grid.CellGet(1, 1).bHatched);
}

TEST(PageFromGrid, AGridWithoutRowsHasItsTitles)
{
    GridControl grd;
    grd.ColsSet(2);
    grd.TextSet(0, 1, QStringLiteral("title"));
    EXPECT_EQ(PageGridTabs(PageFromGrid(grd)), QStringLiteral("\ttitle"));
    grd.ColWidthSet(0, 0);
    EXPECT_EQ(PageGridTabs(PageFromGrid(grd)), QStringLiteral("title")) << "no heads are shown";
}

}  // namespace
