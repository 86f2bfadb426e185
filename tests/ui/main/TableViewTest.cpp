#include <gtest/gtest.h>

#include <limits>

#include "propagation/SnrColor.h"
#include "ui/common/GridControl.h"
#include "ui/main/TableView.h"

namespace {

TEST(TableShow, ShowsNotANumberAsTheLeastInGreyAndKeepsIt)
{
    PropagationTable table(2);
    table.fSnr(5, 1) = std::numeric_limits<float>::quiet_NaN();
    table.fSnr(6, 1) = -std::numeric_limits<float>::infinity();
    table.fSnr(7, 1) = -98.9F;
    GridControl grd;
    grd.RowsSet(3);
    grd.ColsSet(25);
    TableShow(table, grd);
    for (const int iHour : {5, 6}) {
        EXPECT_EQ(grd.TextGet(1, iHour), QStringLiteral("-99"));
        EXPECT_EQ(grd.CellGet(1, iHour).clrBack, QColor(128, 128, 128));
        EXPECT_EQ(table.fSnr(iHour, 1), kSnrLeast);
    }
    EXPECT_EQ(table.fSnr(7, 1), -98.9F);
    EXPECT_EQ(grd.TextGet(1, 7), QStringLiteral("-99"));
}

TEST(TableShow, LeavesRowsBeyondTheTableAlone)
{
    PropagationTable table(1);
    GridControl grd;
    grd.RowsSet(3);
    grd.ColsSet(25);
    grd.TextSet(2, 1, QStringLiteral("old"));
    TableShow(table, grd);
    EXPECT_EQ(grd.TextGet(2, 1), QStringLiteral("old"));
    EXPECT_EQ(grd.TextGet(1, 24), QStringLiteral("0"));
}

}  // namespace
