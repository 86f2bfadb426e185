#include "app/predict/PredictDay.h"

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <vector>

#include "app/predict/PredictPrint.h"
#include "propagation/AreaBoxes.h"
#include "propagation/Runner.h"
#include "system/MsgLib.h"

namespace {

/// Collects the workers' results, one at a time.
class DayWatch {
public:
    /// @param nHourPieces  pieces of an hour, whose end is reported; 0: no reports
    DayWatch(std::size_t nHourPieces, std::size_t nPieces)
        : m_nHourPieces(nHourPieces), m_nPieces(nPieces)
    {
    }
    /// @return true when no further pieces are needed.
    bool PieceDone(const std::optional<Failure>& failure)
    {
        const std::lock_guard lock(m_mutex);
        if (failure && !m_failure)
            m_failure = failure;
        ++m_nDone;
        if (m_nHourPieces > 0 && !failure && m_nDone % m_nHourPieces == 0)
            std::fprintf(stderr, "hopcast-predict: %zu of %zu hours\n", m_nDone / m_nHourPieces,
                         m_nPieces / m_nHourPieces);
        m_wake.notify_all();
        return m_failure.has_value();
    }
    std::optional<Failure> Await()
    {
        std::unique_lock lock(m_mutex);
        m_wake.wait(lock, [this] { return m_nDone == m_nPieces || m_failure; });
        return m_failure;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::size_t m_nHourPieces;
    std::size_t m_nPieces;
    std::size_t m_nDone = 0;
    std::optional<Failure> m_failure;
};

/// One box that does not cross longitude 180.
std::optional<Failure> DayFill(const Engine& engine, int nJobs, AreaDay& day)
{
    std::optional<Failure> failure;
    const auto pWork = engine.AreaDayPrepare(day.request, failure);
    if (pWork == nullptr)
        return failure;
    const bool bRows = !pWork->PartGet(0);  // in this process: no waiting
    DayWatch watch(bRows ? 0 : day.request.afFrequency.size(), pWork->PiecesGet());
    Runner runner([](const std::function<void()>& fnCall) { fnCall(); }, nJobs);
    RunnerJob job =
        runner.Start(pWork->PiecesGet(), bRows ? runner.WorkersGet() : engine.LimitsGet().nAtOnce,
                     [&](std::size_t iPiece, const std::stop_token& stop) {
                         watch.PieceDone(pWork->Run(iPiece, day, stop));
                         return std::function<void()>();
                     });
    failure = watch.Await();
    job.Cancel();
    return failure;
}

}  // namespace

std::optional<std::string> PredictDayGet(const PredictOptions& options, const Settings& settings,
                                         const Engine& engine)
{
    AreaDayRequest request;
    request.area = AreaRequestFromSettings(settings);
    for (int i = 1; i <= settings.m_nData; ++i)
        request.afFrequency.push_back(settings.FrequencyGet(i));
    const bool bOverDateLine = options.area.dEast <= options.area.dWest;
    const auto aBoxes = AreaBoxesGet({options.area.dSouth, options.area.dNorth, options.area.dWest,
                                      options.area.dEast + (bOverDateLine ? 360.0 : 0.0)});
    const auto nSide = static_cast<std::size_t>(request.area.nGridSize);
    if (nSide * nSide * kHourCount * request.afFrequency.size() * aBoxes.size() > kDayValuesMost) {
        MsgBox(MsgIcon::Exclamation,
               "A day of this area is too long a list; give a smaller --grid or fewer "
               "--frequencies.");
        return std::nullopt;
    }
    std::vector<AreaDay> aDays;
    for (const AreaBox& box : aBoxes) {
        request.area.dNorth = box.dTop;
        request.area.dSouth = box.dBottom;
        request.area.dWest = box.dLeft;
        request.area.dEast = box.dRight;
        AreaDay day(request);
        if (const auto failure = DayFill(engine, options.nJobs, day)) {
            MsgBox(failure->eIcon, failure->sText);
            if (!failure->sDetail.empty())
                MsgBox(MsgIcon::Info, failure->sDetail);
            return std::nullopt;
        }
        aDays.push_back(std::move(day));
    }
    return options.eFormat == PredictFormat::Json ? PredictDayJsonGet(aDays)
                                                  : PredictDayCsvGet(aDays);
}
