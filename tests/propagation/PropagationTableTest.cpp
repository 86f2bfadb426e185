#include <gtest/gtest.h>

#include "propagation/PropagationTable.h"

namespace {

TEST(PropagationTable, IsEmptyAndHoldsIndexZeroOfBoth)
{
    const PropagationTable table(15);
    for (int iHour = 0; iHour <= 24; ++iHour) {
        EXPECT_EQ(table.fMUF[iHour], 0.0F);
        EXPECT_EQ(table.fLUF[iHour], 0.0F);
        for (int j = 0; j <= 15; ++j) {
            EXPECT_EQ(table.sLayer(iHour, j), "");
            EXPECT_EQ(table.fSnr(iHour, j), 0.0F);
        }
    }
}

TEST(PropagationTable, CellsAreApart)
{
    PropagationTable table(3);
    for (int iHour = 0; iHour <= 24; ++iHour)
        for (int j = 0; j <= 3; ++j) table.fSnr(iHour, j) = static_cast<float>(iHour * 10 + j);
    for (int iHour = 0; iHour <= 24; ++iHour)
        for (int j = 0; j <= 3; ++j)
            EXPECT_EQ(table.fSnr(iHour, j), static_cast<float>(iHour * 10 + j));
}

TEST(PropagationTable, ANegativeCountIsAnEmptyTable) { EXPECT_EQ(PropagationTable(-1).nData, 0); }

TEST(PropagationTable, NoFrequencyIsPresentBeforeItsRunSucceeded)
{
    PropagationTable table(12);
    for (int i = 0; i <= 13; ++i) EXPECT_FALSE(table.PresentIs(i)) << i;
    table.PresentSet(-5, 3, true);
    table.PresentSet(11, 40, true);
    table.PresentSet(2, 2, false);
    for (int i = -1; i <= 14; ++i)
        EXPECT_EQ(table.PresentIs(i), i == 1 || i == 3 || i == 11 || i == 12) << i;
}

TEST(PropagationAbsentText, NamesTheFrequenciesWithoutValuesInWholeKilohertz)
{
    PropagationTable table(3);
    table.request.nData = 3;
    table.request.afFrequency = {0.0F, 2000.0F, 7050.6F, 14000.0F};
    table.PresentSet(3, 3, true);
    EXPECT_EQ(PropagationAbsentText(table), "2000, 7051");
    table.PresentSet(1, 2, true);
    EXPECT_EQ(PropagationAbsentText(table), "");
}

TEST(PropagationRecordGet, HoldsEveryValueOfItsCell)
{
    PropagationTable table(5);
    table.fMUF[7] = 1.0F;
    table.fLUF[7] = 2.0F;
    table.sLayer(7, 4) = " 1F2 ";
    table.fTakeoffAngle(7, 4) = 3.0F;
    table.fTimeDelay(7, 4) = 4.0F;
    table.fVirtualHeight(7, 4) = 5.0F;
    table.fSdBW(7, 4) = 6.0F;
    table.fNdBW(7, 4) = 7.0F;
    table.fSnr(7, 4) = 8.0F;
    const PropagationRecord record = PropagationRecordGet(table, 7, 4, "06:00", 14100.0F);
    EXPECT_EQ(record.sTime, "06:00");
    EXPECT_EQ(record.fFrequency, 14100.0F);
    EXPECT_EQ(record.fMUF, 1.0F);
    EXPECT_EQ(record.fLUF, 2.0F);
    EXPECT_EQ(record.sLayer, " 1F2 ");
    EXPECT_EQ(record.fTakeoffAngle, 3.0F);
    EXPECT_EQ(record.fTimeDelay, 4.0F);
    EXPECT_EQ(record.fVirtualHeight, 5.0F);
    EXPECT_EQ(record.fSdBW, 6.0F);
    EXPECT_EQ(record.fNdBW, 7.0F);
    EXPECT_EQ(record.fSnr, 8.0F);
}

}  // namespace
