/// @file Mailbox.h
/// Stands for the thread that receives a runner's answers, in tests without a window.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "propagation/Runner.h"

/// A miniature of the window's thread: runs calls in order, on the thread that asks for it.
class Mailbox {
public:
    [[nodiscard]] Runner::PostFn PostGet()
    {
        return [this](std::function<void()> fnCall) {
            const std::lock_guard lock(m_mutex);
            m_aCalls.push_back(std::move(fnCall));
            m_wake.notify_all();
        };
    }
    /// Runs calls as they arrive until the condition holds.
    /// @return false if that takes longer than tmMost
    bool RunUntil(const std::function<bool()>& fnDone,
                  std::chrono::seconds tmMost = std::chrono::seconds(10))
    {
        const auto tmEnd = std::chrono::steady_clock::now() + tmMost;
        while (!fnDone()) {
            std::function<void()> fnCall;
            {
                std::unique_lock lock(m_mutex);
                if (!m_wake.wait_until(lock, tmEnd, [this] { return !m_aCalls.empty(); }))
                    return false;
                fnCall = std::move(m_aCalls.front());
                m_aCalls.pop_front();
            }
            fnCall();
        }
        return true;
    }
    /// Runs the calls that have arrived.
    void RunWaiting()
    {
        std::deque<std::function<void()>> aCalls;
        {
            const std::lock_guard lock(m_mutex);
            aCalls.swap(m_aCalls);
        }
        for (const auto& fnCall : aCalls) fnCall();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_aCalls;
};
