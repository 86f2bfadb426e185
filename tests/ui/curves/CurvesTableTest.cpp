#include <gtest/gtest.h>

#include <limits>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/curves/CurvesTable.h"

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

struct Day {
    Day()
    {
        day.afMuf.fill(21000.0F);
        day.afFot.fill(kNone);
        day.afLuf.fill(5000.4F);
        day.aRibbons = {{1, 14100.0F, {}}, {3, 7101.5F, {}}};
        for (std::size_t n = 0; n < kCurveHours; ++n) {
            day.aRibbons[0].afSnr[n] = static_cast<float>(30 + n);
            day.aRibbons[1].afSnr[n] = kNone;
            asHour[n] = QStringLiteral("h%1").arg(n);
        }
    }
    DayCurves day;
    HourLabels asHour;
};

TEST(CurvesTable, HasARowForEachHourWithTheThreeCurvesAndEachFrequency)
{
    const Day d;
    const PageGrid grid = CurvesTableGet(d.day, d.asHour, QStringLiteral("Zulu"), 40.0F);
    EXPECT_EQ(grid.asCorner, QStringList{QStringLiteral("Zulu")});
    EXPECT_EQ(grid.asColumn.join(u' '), QStringLiteral("MUF FOT LUF 14100 7101.5"));
    ASSERT_EQ(grid.RowsGet(), 24);
    for (int iHour = 0; iHour < 24; ++iHour) {
        EXPECT_EQ(grid.aRow[static_cast<std::size_t>(iHour)].first(),
                  QStringLiteral("h%1").arg(iHour));
        EXPECT_EQ(grid.CellGet(iHour, 0).sText, QStringLiteral("21000"));
        EXPECT_EQ(grid.CellGet(iHour, 2).sText, QStringLiteral("5000"));
        const PageCell& cell = grid.CellGet(iHour, 3);
        EXPECT_EQ(cell.sText, QString::number(30 + iHour));
        EXPECT_EQ(cell.bStrong, iHour >= 10);
        EXPECT_EQ(cell.clrBack, ColorFromBgr(SnrGetColor(static_cast<float>(30 + iHour))));
    }
}

TEST(CurvesTable, WhatHasNoValueIsEmptyAndHatched)
{
    const Day d;
    const PageGrid grid = CurvesTableGet(d.day, d.asHour, QStringLiteral("Zulu"), 40.0F);
    for (const int iCol : {1, 4}) {
        EXPECT_TRUE(grid.CellGet(5, iCol).sText.isEmpty());
        EXPECT_TRUE(grid.CellGet(5, iCol).bHatched);
        EXPECT_FALSE(grid.CellGet(5, iCol).bStrong);
    }
    EXPECT_FALSE(grid.CellGet(5, 3).bHatched);
}

TEST(CurvesTable, ACellInWordsHasFrequencyHourAndValue)
{
    const Day d;
    EXPECT_EQ(CurvesCellText(d.day.aRibbons[0], 15, d.asHour, QStringLiteral("Zulu")),
              QStringLiteral("14100 kHz, h15 Zulu: 45 dB"));
    EXPECT_EQ(CurvesCellText(d.day.aRibbons[1], 2, d.asHour, QStringLiteral("Local")),
              QStringLiteral("7101.5 kHz, h2 Local: no value"));
}

}  // namespace
