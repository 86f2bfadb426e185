/// @file ClockSet.h
/// A clock of the test's own while it lives.
#pragma once

#include <utility>

#include "system/ClockLib.h"

class ClockSet {
public:
    explicit ClockSet(ClockSource source) : m_before(ClockSetHandler(std::move(source))) {}
    /// UTC and local time stand still.
    ClockSet(const DateTime& dtUtc, const DateTime& dtLocal)
        : ClockSet(ClockSource{[dtUtc] { return dtUtc; }, [dtLocal] { return dtLocal; }, {}})
    {
    }
    ~ClockSet() { ClockSetHandler(std::move(m_before)); }
    ClockSet(const ClockSet&) = delete;
    ClockSet& operator=(const ClockSet&) = delete;

private:
    ClockSource m_before;
};
