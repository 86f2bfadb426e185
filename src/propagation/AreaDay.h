/// @file AreaDay.h
/// A day of an area: the SNR of every point, hour and frequency, and how it spreads over the days.
///
/// Units:   degrees, kHz, dB.
/// Tests:   tests/engine/builtin/BuiltInEngineTest.cpp, tests/app/PredictDayTest.cpp
#pragma once

#include <cassert>
#include <cstddef>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

#include "propagation/Prediction.h"

struct AreaDayRequest {
    AreaRequest area;                ///< without its hour and frequency
    std::vector<float> afFrequency;  ///< kHz
    bool bSpread = false;            ///< the spreads too; engines that print none run thrice more

    bool operator==(const AreaDayRequest&) const = default;
};

/// How an SNR spreads over the days of the month; not-a-number where there is none.
struct AreaSpread {
    float fMedian = PropagationTable::kNotPrinted;
    float fLower = PropagationTable::kNotPrinted;  ///< from the median to what 90 % exceed
    float fUpper = PropagationTable::kNotPrinted;  ///< from the median to what 10 % exceed

    bool operator==(const AreaSpread&) const = default;
};

struct AreaDay {
    /// Space for the request's points, all of them at 0, 0 and without SNR.
    explicit AreaDay(const AreaDayRequest& request);

    struct Place {
        double dLat = 0.0;
        double dLon = 0.0;
    };
    /// SNR of point iPoint, hour 0..23 UTC and frequency iFrequency from 0; not-a-number if there
    /// is none.
    [[nodiscard]] float& SnrGet(std::size_t iPoint, int iHour, std::size_t iFrequency)
    {
        return m_afSnr[Index(iPoint, iHour, iFrequency)];
    }
    [[nodiscard]] const float& SnrGet(std::size_t iPoint, int iHour, std::size_t iFrequency) const
    {
        return m_afSnr[Index(iPoint, iHour, iFrequency)];
    }
    /// The spread of the same; REQUIRES: a request for it.
    [[nodiscard]] AreaSpread& SpreadGet(std::size_t iPoint, int iHour, std::size_t iFrequency)
    {
        assert(request.bSpread);
        return m_aSpread[Index(iPoint, iHour, iFrequency)];
    }
    [[nodiscard]] const AreaSpread& SpreadGet(std::size_t iPoint, int iHour,
                                              std::size_t iFrequency) const
    {
        assert(request.bSpread);
        return m_aSpread[Index(iPoint, iHour, iFrequency)];
    }
    /// Bytes that the day takes, about.
    [[nodiscard]] std::size_t BytesGet() const
    {
        return aPlaces.size() * sizeof(Place) + m_afSnr.size() * sizeof(float)
               + m_aSpread.size() * sizeof(AreaSpread);
    }

    AreaDayRequest request;
    std::vector<Place> aPlaces;  ///< in grid order, as in AreaPrediction

private:
    [[nodiscard]] std::size_t Index(std::size_t iPoint, int iHour, std::size_t iFrequency) const
    {
        const std::size_t nFrequencies = request.afFrequency.size();
        assert(iPoint < aPlaces.size() && iHour >= 0 && iHour < kHourCount
               && iFrequency < nFrequencies);
        return (iPoint * std::size_t{kHourCount} + static_cast<std::size_t>(iHour)) * nFrequencies
               + iFrequency;
    }

    std::vector<float> m_afSnr;
    std::vector<AreaSpread> m_aSpread;
};

/// The part of a day that a piece of work fills for all points.
struct AreaDayPart {
    int iHour = 0;
    std::size_t iFrequency = 0;

    bool operator==(const AreaDayPart&) const = default;
};

/// An area's day in pieces, which may be computed at the same time.
class AreaDayWork {
public:
    AreaDayWork() = default;
    AreaDayWork(const AreaDayWork&) = delete;
    AreaDayWork& operator=(const AreaDayWork&) = delete;
    virtual ~AreaDayWork() = default;

    [[nodiscard]] virtual std::size_t PiecesGet() const = 0;
    /// Nothing where a piece fills some points for all hours and frequencies; so the first hour is
    /// not there before the last one.
    [[nodiscard]] virtual std::optional<AreaDayPart> PartGet(std::size_t /*iPiece*/) const
    {
        return {};
    }
    /// Fills the piece's part of the day. @return nothing, or why it failed.
    [[nodiscard]] virtual std::optional<Failure> Run(std::size_t iPiece, AreaDay& day,
                                                     const std::stop_token& stop) = 0;
};
