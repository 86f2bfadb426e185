#include <gtest/gtest.h>

#include <limits>

#include "propagation/SnrScale.h"
#include "ui/common/GridControl.h"
#include "ui/main/TableView.h"

namespace {

TEST(TableShow, ShowsNotANumberAsTheLeastInGreyAndKeepsIt)
{
    PropagationTable table(2);
    table.PresentSet(1, 2, true);
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
    table.PresentSet(1, 1, true);
    GridControl grd;
    grd.RowsSet(3);
    grd.ColsSet(25);
    grd.TextSet(2, 1, QStringLiteral("old"));
    TableShow(table, grd);
    EXPECT_EQ(grd.TextGet(2, 1), QStringLiteral("old"));
    EXPECT_EQ(grd.TextGet(1, 24), QStringLiteral("0"));
}

TEST(TableShow, AFrequencyWithoutValuesIsEmptyAndHatchedUntilItHasSome)
{
    PropagationTable table(2);
    table.PresentSet(2, 2, true);
    GridControl grd;
    grd.RowsSet(3);
    grd.ColsSet(25);
    grd.TextSet(1, 7, QStringLiteral("old"));
    TableShow(table, grd);
    for (int iHour = 1; iHour <= 24; ++iHour) {
        EXPECT_EQ(grd.TextGet(1, iHour), QString());
        EXPECT_FALSE(grd.CellGet(1, iHour).clrBack.isValid());
        EXPECT_TRUE(grd.CellGet(1, iHour).bHatch);
        EXPECT_EQ(grd.TextGet(2, iHour), QStringLiteral("0"));
        EXPECT_FALSE(grd.CellGet(2, iHour).bHatch);
    }
    table.PresentSet(1, 1, true);
    TableShow(table, grd);
    EXPECT_EQ(grd.TextGet(1, 7), QStringLiteral("0"));
    EXPECT_FALSE(grd.CellGet(1, 7).bHatch);
}

TEST(TableRowsLayout, ARowOfAnotherFrequencyLosesItsValues)
{
    PropagationTable table(2);
    table.PresentSet(1, 2, true);
    table.request.nData = 2;
    table.request.afFrequency = {0.0F, 7051.0F, 14000.0F};
    GridControl grd;
    grd.ColsSet(25);
    TableRowsLayout(table.request, table, grd);
    TableShow(table, grd);
    Request input;
    input.nData = 3;
    input.afFrequency = {0.0F, 7050.6F, 18100.0F, 14000.0F};
    TableRowsLayout(input, table, grd);
    ASSERT_EQ(grd.RowsGet(), 4);
    EXPECT_EQ(grd.TextGet(1, 0), QStringLiteral("7051"));
    EXPECT_EQ(grd.TextGet(1, 5), QStringLiteral("0")) << "the same label, the same values";
    EXPECT_EQ(grd.TextGet(2, 0), QStringLiteral("18100"));
    EXPECT_EQ(grd.TextGet(2, 5), QString());
    EXPECT_FALSE(grd.CellGet(2, 5).clrBack.isValid());
    EXPECT_EQ(grd.TextGet(3, 5), QString());
}

}  // namespace
