/// @file Deadline.h
/// The end of a wait: everything that waits for a limited time counts it here.
///
/// Tests:   tests/system/DeadlineTest.cpp
#pragma once

#include <algorithm>
#include <chrono>

class Deadline {
public:
    /// dSeconds from now; below 0 it is now, and above 1e6 (a week and a half) it is then.
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
    using Clock = std::chrono::steady_clock;  // not moved by a clock that is set
    static constexpr double kSecondsMax = 1e6;
    Clock::time_point m_tmEnd;
};
