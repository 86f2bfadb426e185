/// @file ClockSet.h
/// Replaces the clock for as long as it exists.
#pragma once

#include <utility>

#include "system/ClockLib.h"

class ClockSet {
public:
    explicit ClockSet(ClockSource source) : m_before(ClockSetHandler(std::move(source))) {}
    /// UTC and local time stay at these values.
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
