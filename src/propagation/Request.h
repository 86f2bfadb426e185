/// @file Request.h
/// One prediction that is asked for, as a value: everything that its result depends on.
///
/// Units:   those of PropagationInput.
/// Domain:  nothing is checked here; a value that does not fit its field fails the prediction.
/// Tests:   tests/propagation/RequestTest.cpp
#pragma once

#include <cstdint>
#include <string>

#include "propagation/PropagationInput.h"

/// Where the sunspot number comes from.
enum class SunSpotSource { Given, Airmail, Forecast };

/// A path, 24 hours, up to 15 frequencies.
struct Request : PropagationInput {
    int nYear = 0;  ///< of the deck; 0: the year of the local clock when the deck is made
    SunSpotSource eSunSpotSource = SunSpotSource::Given;

    bool operator==(const Request&) const = default;
};

/// A grid of receivers, one hour, one frequency.
struct AreaRequest : PropagationAreaInput {
    SunSpotSource eSunSpotSource = SunSpotSource::Given;

    bool operator==(const AreaRequest&) const = default;
};

/// A text that is the same for two requests when the same engine must answer them alike, whatever
/// the sunspot number's source; the key of a cache.
[[nodiscard]] std::string RequestKey(const Request& request);
