/// @file AreaDay.h
/// A day of an area: the SNR of every point, hour and frequency.
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
};

/// An area's day in pieces, which may be computed at the same time.
class AreaDayWork {
public:
    AreaDayWork() = default;
    AreaDayWork(const AreaDayWork&) = delete;
    AreaDayWork& operator=(const AreaDayWork&) = delete;
    virtual ~AreaDayWork() = default;

    [[nodiscard]] virtual std::size_t PiecesGet() const = 0;
    /// Fills the piece's part of the day. @return nothing, or why it failed.
    [[nodiscard]] virtual std::optional<Failure> Run(std::size_t iPiece, AreaDay& day,
                                                     const std::stop_token& stop) = 0;
};
