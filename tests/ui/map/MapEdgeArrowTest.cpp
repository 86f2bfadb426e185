#include <gtest/gtest.h>

#include <cmath>

#include "ui/map/MapEdgeArrow.h"

namespace {

const QRect kMap(0, 0, 400, 200);

TEST(MapEdgeArrow, PointsFromTheEdgeToAMarkerOutside)
{
    const auto right = EdgeArrowGet(kMap, {5000, 100});
    ASSERT_TRUE(right);
    EXPECT_NEAR(right->m_ptTip.x(), 397, 0.01);
    EXPECT_NEAR(right->m_ptTip.y(), 100, 0.01);
    EXPECT_NEAR(right->dAngle, 0, 1e-9);
    const auto above = EdgeArrowGet(kMap, {200, -70});
    ASSERT_TRUE(above);
    EXPECT_NEAR(above->m_ptTip.x(), 200, 0.01);
    EXPECT_NEAR(above->m_ptTip.y(), 3, 0.01);
    EXPECT_NEAR(above->dAngle, -90, 1e-9);
}

TEST(MapEdgeArrow, AMarkerInsideHasNone)
{
    EXPECT_FALSE(EdgeArrowGet(kMap, {0, 0}));
    EXPECT_FALSE(EdgeArrowGet(kMap, {399, 100}));
}

TEST(MapEdgeArrow, TipIsOnTheMapForEveryPlaceOutside)
{
    for (int nAngle = 0; nAngle < 360; nAngle += 7) {
        const double dTurn = nAngle * 3.14159265 / 180;
        const auto arrow =
            EdgeArrowGet(kMap, {200 + 1e7 * std::cos(dTurn), 100 + 1e7 * std::sin(dTurn)});
        ASSERT_TRUE(arrow);
        EXPECT_TRUE(QRectF(kMap).contains(arrow->m_ptTip)) << nAngle;
    }
    EXPECT_FALSE(EdgeArrowGet(kMap, {std::nan(""), 1}));
}

}  // namespace
