#include "propagation/Engine.h"

namespace {

/// Each piece is one area run for one hour and frequency; hour by hour.
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
    [[nodiscard]] std::optional<Failure> Run(std::size_t iPiece, AreaDay& day,
                                             const std::stop_token& stop) override
    {
        constexpr float kKhzPerMhz = 1000.0F;
        const std::size_t nFrequencies = m_request.afFrequency.size();
        const std::size_t iFrequency = iPiece % nFrequencies;
        AreaRequest request = m_request.area;
        request.iHour = static_cast<int>(iPiece / nFrequencies);
        request.fFrequency = m_request.afFrequency[iFrequency] / kKhzPerMhz;
        AreaPrediction prediction = m_engine.PredictArea(request, stop);
        if (!prediction.bOk)
            return prediction.aFailures.back();
        for (std::size_t i = 0; i < prediction.aPoints.size(); ++i) {
            const AreaPoint& pnt = prediction.aPoints[i];
            if (iPiece == 0)
                day.aPlaces[i] = {pnt.dLat, pnt.dLon};
            day.SnrGet(i, request.iHour, iFrequency) = pnt.fSnr;
        }
        return {};
    }

private:
    const Engine& m_engine;
    AreaDayRequest m_request;
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
