/// @file Deadline.h
/// The end of a wait: every wait with a time limit uses it.
///
/// Tests:   tests/system/DeadlineTest.cpp
#pragma once

#include <algorithm>
#include <chrono>

class Deadline {
public:
    /// dSeconds from now; taken as 0 below 0, and as 1e6 (a week and a half) above that.
    explicit Deadline(double dSeconds)
        : m_tmEnd(Clock::now()
                  + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(
                      dSeconds > 0.0 ? std::min(dSeconds, kSecondsMax) : 0.0)))
    {
    }

    /// Seconds, never below 0.
    [[nodiscard]] double LeftGet() const
    {
        const std::chrono::duration<double> tmLeft = m_tmEnd - Clock::now();
        return std::max(0.0, tmLeft.count());
    }
    [[nodiscard]] bool IsOver() const { return Clock::now() >= m_tmEnd; }

private:
    using Clock = std::chrono::steady_clock;  // not affected when the computer's clock is set
    static constexpr double kSecondsMax = 1e6;
    Clock::time_point m_tmEnd;
};
