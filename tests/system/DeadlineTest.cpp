#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <thread>

#include "system/Deadline.h"

TEST(Deadline, IsAheadUntilItsTimeIsUp)
{
    const Deadline deadline(0.05);
    EXPECT_GT(deadline.LeftGet(), 0.0);
    EXPECT_LE(deadline.LeftGet(), 0.05);
    while (deadline.LeftGet() > 0.0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_TRUE(deadline.IsOver());
    EXPECT_EQ(deadline.LeftGet(), 0.0) << "never below";
}

TEST(Deadline, NoTimeIsOverAtOnce)
{
    EXPECT_TRUE(Deadline(0.0).IsOver());
    EXPECT_TRUE(Deadline(-1.0).IsOver());
    EXPECT_TRUE(Deadline(std::numeric_limits<double>::quiet_NaN()).IsOver());
    EXPECT_EQ(Deadline(-1.0).LeftGet(), 0.0);
}

TEST(Deadline, ATimeWithoutEndIsAWeekAndAHalf)
{
    const Deadline deadline(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(deadline.IsOver());
    EXPECT_GT(deadline.LeftGet(), 9.9e5);
    EXPECT_LE(deadline.LeftGet(), 1e6);
}
