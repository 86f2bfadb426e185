#include <gtest/gtest.h>

#include "ui/curves/Spread.h"

namespace {

TEST(Spread, LeavesAloneWhatIsFarEnoughApart)
{
    const std::vector<double> aWanted{10, 20, 45};
    EXPECT_EQ(Spread(aWanted, 10, 0, 100), aWanted);
    EXPECT_TRUE(Spread({}, 10, 0, 100).empty());
}

TEST(Spread, MovesAGroupApartRoundItsMiddle)
{
    EXPECT_EQ(Spread({50, 50, 50}, 10, 0, 100), (std::vector<double>{40, 50, 60}));
    EXPECT_EQ(Spread({10, 50, 52, 90}, 10, 0, 100), (std::vector<double>{10, 46, 56, 90}));
}

TEST(Spread, AGroupThatMeetsAnotherJoinsIt)
{
    EXPECT_EQ(Spread({44, 50, 50}, 10, 0, 100), (std::vector<double>{38, 48, 58}));
}

TEST(Spread, StaysWithinTheEnds)
{
    EXPECT_EQ(Spread({1, 2, 99, 99}, 10, 0, 100), (std::vector<double>{0, 10, 90, 100}));
}

}  // namespace
