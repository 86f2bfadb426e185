#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "studies/curves/Curves.h"

namespace {

PropagationTable TableMake()
{
    PropagationTable table(3);
    table.request.nData = 3;
    table.request.nMonth = 6;
    table.request.afFrequency = {0.0F, 5000.0F, 7000.0F, 14000.0F};
    table.request.dTxLat = 52.0;
    table.request.dTxLon = 0.0;
    table.request.dRcLat = -52.0;
    table.request.dRcLon = 180.0;
    table.PresentSet(1, 1, true);
    table.PresentSet(3, 3, true);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        table.fMUF[iHour] = 10000.0F + static_cast<float>(iHour);
        table.fLUF[iHour] = 3000.0F;
        table.fSnr(iHour, 1) = static_cast<float>(iHour);
        table.fSnr(iHour, 3) = -999.0F;
    }
    table.fLUF[4] = 0.0F;
    return table;
}

TEST(DayCurves, BeginAt00UtcWhichIsTheFirstColumnOfTheTable)
{
    const DayCurves curves = DayCurvesGet(TableMake());
    EXPECT_EQ(curves.afMuf[0], 10001.0F);
    EXPECT_EQ(curves.afMuf[23], 10024.0F);
    EXPECT_EQ(curves.afLuf[2], 3000.0F);
    EXPECT_TRUE(std::isnan(curves.afLuf[3])) << "none was found";
    EXPECT_TRUE(std::isnan(curves.afFot[5])) << "not printed";
}

TEST(DayCurves, HaveARibbonForEachFrequencyWithValues)
{
    const DayCurves curves = DayCurvesGet(TableMake());
    ASSERT_EQ(curves.aRibbons.size(), 2U);
    EXPECT_EQ(curves.aRibbons[0].iFrequency, 1);
    EXPECT_EQ(curves.aRibbons[0].fFrequency, 5000.0F);
    EXPECT_EQ(curves.aRibbons[0].afSnr[0], 1.0F);
    EXPECT_EQ(curves.aRibbons[0].afSnr[23], 24.0F);
    EXPECT_EQ(curves.aRibbons[1].fFrequency, 14000.0F);
    EXPECT_TRUE(std::isnan(curves.aRibbons[1].afSnr[12]));
}

TEST(DayCurves, HaveTheSunOfEachEnd)
{
    const DayCurves curves = DayCurvesGet(TableMake());
    const auto itTx = std::ranges::max_element(curves.afSunTx);
    const auto itRc = std::ranges::max_element(curves.afSunRc);
    // In June the declination is 23.3 degrees; noon is about 12 UTC at 0 degrees east and 00 UTC at
    // 180.
    EXPECT_NEAR(*itTx, 90.0 - 52.0 + 23.3, 0.5);
    EXPECT_NEAR(*itRc, 90.0 - 52.0 - 23.3, 0.5);
    EXPECT_NEAR(static_cast<double>(itTx - curves.afSunTx.begin()) / kSunStepsAnHour, 12.0, 0.2);
    const double dRc = static_cast<double>(itRc - curves.afSunRc.begin()) / kSunStepsAnHour;
    EXPECT_TRUE(dRc < 0.3 || dRc > 23.7) << dRc;
}

TEST(SunHeight, IsTheZenithBelowTheSunAndTheNadirOpposite)
{
    const double dNoon = SunHeightGet({23.3, 0.0}, 6, 12.0);
    EXPECT_GT(dNoon, 89.0);
    EXPECT_LT(SunHeightGet({-23.3, 180.0}, 6, 12.0), -89.0);
}

}  // namespace
