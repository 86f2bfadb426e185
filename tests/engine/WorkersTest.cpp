// One procedure on several threads: all end before the caller goes on, also when one of them
// throws.

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <thread>

#include "engine/run533/Workers.h"

namespace {

using run533::WorkersRun;

TEST(Workers, EachRunsItOnce)
{
    for (const int nThreads : {0, 1, 4}) {
        std::atomic<int> nRuns{0};
        WorkersRun(nThreads, [&] { ++nRuns; });
        EXPECT_EQ(nRuns, nThreads == 4 ? 4 : 1);
    }
}

// What no thread caught would end the program.
TEST(Workers, WhatAnotherThreadThrowsArrivesWhenAllHaveEnded)
{
    const auto idOwn = std::this_thread::get_id();
    std::atomic<int> nEnded{0};
    EXPECT_THROW(WorkersRun(3,
                            [&] {
                                ++nEnded;
                                if (std::this_thread::get_id() != idOwn)
                                    throw std::bad_alloc();
                            }),
                 std::bad_alloc);
    EXPECT_EQ(nEnded, 3);
}

TEST(Workers, WhatTheCallersOwnThreadThrowsWaitsForTheOthers)
{
    const auto idOwn = std::this_thread::get_id();
    std::atomic<int> nEnded{0};
    EXPECT_THROW(WorkersRun(3,
                            [&] {
                                if (std::this_thread::get_id() == idOwn)
                                    throw std::bad_alloc();
                                ++nEnded;
                            }),
                 std::bad_alloc);
    EXPECT_EQ(nEnded, 2);
}

}  // namespace
