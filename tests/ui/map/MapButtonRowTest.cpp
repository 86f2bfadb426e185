#include <gtest/gtest.h>

#include <array>

#include "ui/map/MapButtonRow.h"

namespace {

constexpr std::array kContent{50, 60, 60, 200, 20, 20, 40, 40, 40};  // 530 pixels

int EndGet(const ButtonRow& row) { return row.aPlaces.back().nLeft + row.aPlaces.back().nWidth; }

TEST(MapButtonRow, LastButtonsStandAtTheRightEdgeOfAWideWindow)
{
    const ButtonRow row = ButtonRowGet(kContent, 3, 1000, 0);
    EXPECT_EQ(row.aPlaces[0].nLeft, 10);
    EXPECT_EQ(row.aPlaces[0].nWidth, 70);
    EXPECT_EQ(row.aPlaces[1].nLeft, 86);
    EXPECT_EQ(EndGet(row), 990);
    EXPECT_EQ(row.nOver, 0);
}

TEST(MapButtonRow, MarginsShrinkBeforeAnythingIsCut)
{
    for (int nWidth = 640; nWidth < 1000; ++nWidth) {
        const ButtonRow row = ButtonRowGet(kContent, 3, nWidth, 0);
        ASSERT_EQ(row.nOver, 0) << nWidth;
        ASSERT_LE(EndGet(row), nWidth - 10);
        for (std::size_t i = 0; i < kContent.size(); ++i) {
            ASSERT_GE(row.aPlaces[i].nWidth, kContent[i] + 8);
            if (i > 0) {
                ASSERT_GE(row.aPlaces[i].nLeft,
                          row.aPlaces[i - 1].nLeft + row.aPlaces[i - 1].nWidth + 2);
            }
        }
    }
}

TEST(MapButtonRow, ScrollsWhereEvenTheSmallestMarginsDoNotFit)
{
    const ButtonRow row = ButtonRowGet(kContent, 3, 400, 0);
    EXPECT_GT(row.nOver, 200);
    EXPECT_EQ(row.aPlaces[0].nLeft, 10);
    EXPECT_GT(EndGet(row), 400);
    const ButtonRow rowEnd = ButtonRowGet(kContent, 3, 400, 100000);
    EXPECT_EQ(EndGet(rowEnd), 390);
}

}  // namespace
