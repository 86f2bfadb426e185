#include "propagation/Engine.h"

#include <array>
#include <mutex>
#include <utility>
#include <vector>

#include "propagation/SnrScale.h"

namespace {

/// Each piece is one area run for one hour and frequency; hour by hour. With the spreads three
/// more, for what 10, 50 and 90 % of the days exceed.
class AreaRunsWork final : public AreaDayWork {
public:
    AreaRunsWork(const Engine& engine, AreaDayRequest request)
        : m_engine(engine), m_request(std::move(request))
    {
    }
    [[nodiscard]] std::size_t PiecesGet() const override
    {
        return std::size_t{kHourCount} * m_request.afFrequency.size();
    }
    [[nodiscard]] std::optional<AreaDayPart> PartGet(std::size_t iPiece) const override
    {
        const std::size_t nFrequencies = m_request.afFrequency.size();
        return AreaDayPart{static_cast<int>(iPiece / nFrequencies), iPiece % nFrequencies};
    }
    [[nodiscard]] std::optional<Failure> Run(std::size_t iPiece, AreaDay& day,
                                             const std::stop_token& stop) override
    {
        const AreaDayPart part = PartGet(iPiece).value_or(AreaDayPart());
        std::vector<AreaPoint> aPoints;
        if (auto failure = PointsGet(part, m_request.area.fReliability, stop, aPoints))
            return failure;
        for (std::size_t i = 0; i < aPoints.size(); ++i)
            day.SnrGet(i, part.iHour, part.iFrequency) = aPoints[i].fSnr;
        std::call_once(m_placed, [&] {
            for (std::size_t i = 0; i < aPoints.size(); ++i)
                day.aPlaces[i] = {aPoints[i].dLat, aPoints[i].dLon};
        });
        return m_request.bSpread ? SpreadFill(part, stop, day) : std::nullopt;
    }

private:
    std::optional<Failure> PointsGet(const AreaDayPart& part, float fReliability,
                                     const std::stop_token& stop,
                                     std::vector<AreaPoint>& aPoints) const
    {
        constexpr float kKhzPerMhz = 1000.0F;
        AreaRequest request = m_request.area;
        request.iHour = part.iHour;
        request.fFrequency = m_request.afFrequency[part.iFrequency] / kKhzPerMhz;
        request.fReliability = fReliability;
        AreaPrediction prediction = m_engine.PredictArea(request, stop);
        if (!prediction.bOk)
            return prediction.aFailures.back();
        aPoints = std::move(prediction.aPoints);
        return {};
    }
    std::optional<Failure> SpreadFill(const AreaDayPart& part, const std::stop_token& stop,
                                      AreaDay& day) const
    {
        constexpr std::array<float, 3> kExceeded{10.0F, 50.0F, 90.0F};  // % of the days
        std::array<std::vector<AreaPoint>, 3> aPoints;
        for (std::size_t n = 0; n < kExceeded.size(); ++n)
            if (auto failure = PointsGet(part, kExceeded.at(n), stop, aPoints.at(n)))
                return failure;
        const auto& [aGood, aMedian, aBad] = aPoints;
        for (std::size_t i = 0; i < aMedian.size(); ++i)
            if (SnrIs(aGood[i].fSnr) && SnrIs(aMedian[i].fSnr) && SnrIs(aBad[i].fSnr))
                day.SpreadGet(i, part.iHour, part.iFrequency) = {aMedian[i].fSnr,
                                                                 aMedian[i].fSnr - aBad[i].fSnr,
                                                                 aGood[i].fSnr - aMedian[i].fSnr};
        return {};
    }

    const Engine& m_engine;
    AreaDayRequest m_request;
    std::once_flag m_placed;  // by the piece that is done first, whichever that is
};

}  // namespace

std::unique_ptr<AreaDayWork> Engine::AreaDayPrepare(const AreaDayRequest& request,
                                                    std::optional<Failure>& failure) const
{
    failure = ObstacleGet();
    if (failure)
        return nullptr;
    return std::make_unique<AreaRunsWork>(*this, request);
}
