#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

#include "propagation/QIndexLib.h"

namespace {

struct QCase {
    const char* sName;
    float fQ;
    float fKp;
};
std::ostream& operator<<(std::ostream& stm, const QCase& c) { return stm << c.sName; }

class QIndex : public testing::TestWithParam<QCase> {};

TEST_P(QIndex, GivesTheKpOfTheTwoLines)
{
    EXPECT_NEAR(PropagationQtoK(GetParam().fQ), GetParam().fKp, 0.0005F);
}

// Q worked out by hand from Kp: 0.964 Kp - 0.3 up to 2.23, 2.04 Kp - 2.7 above.
INSTANTIATE_TEST_SUITE_P(
    Lines, QIndex,
    testing::Values(QCase{"KpZero", -0.3F, 0.0F}, QCase{"KpOne", 0.664F, 1.0F},
                    QCase{"KpTwo", 1.628F, 2.0F}, QCase{"UndisturbedQ", 0.0F, 0.3112F},
                    QCase{"AtTheBreak", 1.84972F, 2.23F}, QCase{"AboveTheBreak", 1.86F, 2.2353F},
                    QCase{"KpThree", 3.42F, 3.0F}, QCase{"UsualQ", 3.0F, 2.7941F},
                    QCase{"KpFive", 7.5F, 5.0F}, QCase{"KpNine", 15.66F, 9.0F}),
    [](const auto& row) { return row.param.sName; });

TEST(QIndexEnds, NeverLeaveTheScale)
{
    EXPECT_EQ(PropagationQtoK(-5.0F), 0.0F);
    EXPECT_EQ(PropagationQtoK(-0.31F), 0.0F);
    EXPECT_EQ(PropagationQtoK(20.0F), 9.0F);
    EXPECT_EQ(PropagationQtoK(std::numeric_limits<float>::infinity()), 9.0F);
    EXPECT_TRUE(std::isnan(PropagationQtoK(std::numeric_limits<float>::quiet_NaN())));
}

TEST(QIndexEnds, NeverFallWhileQGrows)
{
    float fBefore = -1.0F;
    for (int i = -100; i <= 2000; ++i) {
        const float fKp = PropagationQtoK(static_cast<float>(i) / 100.0F);
        ASSERT_GE(fKp, fBefore) << "Q " << i / 100.0;
        fBefore = fKp;
    }
}

}  // namespace
