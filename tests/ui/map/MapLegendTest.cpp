#include <gtest/gtest.h>

#include <string>

#include "propagation/SnrScale.h"
#include "ui/map/MapLegend.h"

namespace {

std::string RowsText(float fMinSnr)
{
    std::string sText;
    for (const LegendRow& row : LegendGetRows(fMinSnr, SnrGetColor))
        sText += row.sText.toStdString() + (row.bDrawn ? "|" : " off|");
    return sText;
}

TEST(MapLegend, NamesTheBandsDownToTheMinimum)
{
    EXPECT_EQ(RowsText(20),
              "70 and above|65 to 70|60 to 65|55 to 60|50 to 55|45 to 50|40 to 45|20 to 40|");
}

TEST(MapLegend, BandThatTheMinimumCutsBeginsThere)
{
    EXPECT_EQ(RowsText(52.5F),
              "70 and above|65 to 70|60 to 65|55 to 60|52.5 to 55|45 to 50 off|40 "
              "to 45 off|below 40 off|");
    EXPECT_EQ(RowsText(80),
              "80 and above|65 to 70 off|60 to 65 off|55 to 60 off|50 to 55 off|45 to "
              "50 off|40 to 45 off|below 40 off|");
}

TEST(MapLegend, ColoursAreThoseOfTheScale)
{
    const std::vector<LegendRow> aRows = LegendGetRows(20, SnrGetColor);
    ASSERT_EQ(aRows.size(), 8u);
    EXPECT_EQ(aRows[0].nColor, qRgb(255, 128, 255));
    EXPECT_EQ(aRows[3].nColor, qRgb(128, 0, 128));
    EXPECT_EQ(aRows[4].nColor, qRgb(0, 0, 255));
    EXPECT_EQ(aRows[6].nColor, qRgb(0, 0, 128));
    EXPECT_EQ(aRows[7].nColor, qRgb(128, 128, 128));
}

}  // namespace
