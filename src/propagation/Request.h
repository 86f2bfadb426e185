/// @file Request.h
/// The inputs of one prediction: everything that goes into a deck, and the source of the sunspot
/// number.
///
/// Units:   degrees (north and east positive), kHz, dBW, dB, ms, %; MHz for an area's frequency.
/// Domain:  as in SettingsRange.h; a run calls RangeCheck first, so that no engine gets any other
///          value. A value that does not fit its field fails the deck.
/// Tests:   tests/propagation/RequestTest.cpp, RequestFromSettingsTest.cpp
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "settings/Settings.h"
#include "settings/SunSpotForecast.h"
#include "system/Result.h"

/// The mean of the CCIR and URSI maps; only Hopcast's own engine knows it.
inline constexpr const char* kCoefficientsMean = "MEAN";

/// Values that point-to-point and area decks have in common.
struct RequestModel {
    int iModel = kEngineRec533;    ///< EngineModel
    int nMonth = 1;                ///< 1..12
    std::string sIonCoefficients;  ///< foF2 coefficients, as the deck names them
    float fSunSpotNumber = 0.0F;
    SunSpotSource eSunSpotSource = SunSpotSource::Typed;  ///< for display; no deck has it
    float fNoiseLevel = 0.0F;      ///< dBW: negative point to point, positive (145) in an area
    float fTakeoffAngle = 0.0F;    ///< degrees, least takeoff angle
    float fReliability = 0.0F;     ///< %
    float fMultipathPower = 0.0F;  ///< dB, tolerance
    float fMultipathDelay = 0.0F;  ///< ms, tolerance
    float fLayerAdjustE = 1.0F;    ///< factor, as those below
    float fLayerAdjustF1 = 1.0F;
    float fLayerAdjustF2 = 1.0F;
    float fLayerAdjustEs = 1.0F;
    int iAntennaType = 0;
    /// The user's own power, W; 0: that of the antenna choice (PowerTable.h). No deck has it.
    float fPower = 0.0F;

    bool operator==(const RequestModel&) const = default;
};

/// A path, 24 hours, some frequencies.
struct Request : RequestModel {
    int nYear = 0;  ///< in the deck; 0: that of the local clock when the deck is made
    float fQIndex = 0.0F;
    double dTxLat = 0.0;
    double dTxLon = 0.0;
    double dRcLat = 0.0;
    double dRcLon = 0.0;
    int nData = 0;                            ///< frequencies in use, entries 1..nData
    std::vector<float> afFrequency = {0.0F};  ///< kHz; slot 0 is unused

    /// Entry iFrequency (1..nData), kHz.
    [[nodiscard]] float FrequencyGet(int iFrequency) const
    {
        return afFrequency.at(static_cast<std::size_t>(iFrequency));
    }
    bool operator==(const Request&) const = default;
};

/// A grid of places, one hour, one frequency.
struct AreaRequest : RequestModel {
    int iHour = 0;       ///< 0..23 UT
    int nGridSize = 40;  ///< points per side
    double dWest = 0.0;
    double dEast = 0.0;
    double dSouth = 0.0;
    double dNorth = 0.0;
    double dFixedLat = 0.0;  ///< the fixed end, the deck's transmitter
    double dFixedLon = 0.0;
    float fFrequency = 0.0F;  ///< MHz

    bool operator==(const AreaRequest&) const = default;
};

/// Checks positions, month and numbers; frequencies out of range are just left out of the run. The
/// error is in words: "latitude 95 is outside -90 to 90".
Result<void> RangeCheck(const Request& input);
/// The same for an area, including its hour, frequency, grid and bounds. Longitudes may be on
/// either scale, -180 to 180 or 0 to 360.
Result<void> RangeCheck(const AreaRequest& input);

/// The indices 1..nData whose frequencies are in range, in their order.
[[nodiscard]] std::vector<int> FrequenciesInRangeGet(const Request& input);

/// The request that the settings describe. Month, sunspot number and coefficients are copied as
/// they are, except that the mean of both maps, if it is set, replaces the coefficients for
/// Hopcast's own engine.
[[nodiscard]] Request RequestFromSettings(const Settings& settings);

/// The same for an area: the receiver is the fixed end, the noise level turns positive. The caller
/// sets hour, frequency and bounds.
[[nodiscard]] AreaRequest AreaRequestFromSettings(const Settings& settings);

/// A text that is the same for two requests that an engine must answer alike, even if their sunspot
/// numbers have different sources; the key of a cache.
[[nodiscard]] std::string RequestKey(const Request& request);
