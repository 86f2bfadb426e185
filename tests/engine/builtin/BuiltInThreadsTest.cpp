/// The engine of this process used by many threads. Also built with the thread sanitizer.
#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>

#include "engine/builtin/BuiltInEngine.h"
#include "engine/builtin/RandomRequests.h"
#include "propagation/Runner.h"
#include "support/TempFolder.h"

namespace {

std::vector<Request> RequestsGet(int nCount)
{
    RandomRequests random(7);
    std::vector<Request> aRequests;
    for (int i = 0; i < nCount; ++i) aRequests.push_back(random.PointGet());
    return aRequests;
}

TEST(BuiltInThreads, GiveTheNumbersOfOneThread)
{
    constexpr int kRequests = 60;
    const TempFolder folder;
    const auto pEngine = std::make_shared<BuiltInEngine>(folder.Path());
    const std::vector<Request> aRequests = RequestsGet(kRequests);
    std::vector<Runner::PredictionPtr> apAnswers(aRequests.size());
    std::atomic<bool> bEnd{false};
    {
        // There is no window's thread to post to: each answer is handled on the thread that made
        // it.
        Runner runner([](const std::function<void()>& fnCall) { fnCall(); }, 4);
        const RunnerJob job = runner.Start(
            pEngine, aRequests,
            [&](std::size_t i, const Runner::PredictionPtr& p) { apAnswers[i] = p; },
            [&] { bEnd = true; });
        while (!bEnd) std::this_thread::yield();
    }
    const BuiltInEngine alone(folder.Path());
    for (std::size_t i = 0; i < aRequests.size(); ++i) {
        ASSERT_NE(apAnswers[i], nullptr);
        const Prediction expected = alone.Predict(aRequests[i], {});
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            for (int j = 1; j <= aRequests[i].nData; ++j)
                EXPECT_EQ(apAnswers[i]->table.fSnr(iHour, j), expected.table.fSnr(iHour, j));
    }
}

TEST(BuiltInThreads, RowsOfADayMayBeComputedAtOnceAndCancelled)
{
    constexpr int kRounds = 40;
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    std::minstd_rand random(5);
    AreaRequest area = RandomRequests(9).AreaGet();
    area.nGridSize = 8;
    const AreaDayRequest request{area, {7000.0F, 14000.0F}};
    for (int i = 0; i < kRounds; ++i) {
        std::optional<Failure> failure;
        const auto pWork = engine.AreaDayPrepare(request, failure);
        ASSERT_NE(pWork, nullptr);
        AreaDay day(request);
        std::atomic<int> nDone{0};
        {
            Runner runner([](const std::function<void()>& fnCall) { fnCall(); }, 3);
            RunnerJob job = runner.Start(pWork->PiecesGet(), 3,
                                         [&](std::size_t iPiece, const std::stop_token& stop) {
                                             (void)pWork->Run(iPiece, day, stop);
                                             return [&nDone] { ++nDone; };
                                         });
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
            job.Cancel();
        }
        EXPECT_LE(nDone, area.nGridSize);
    }
}

}  // namespace
