/// The runner with an engine that computes next to nothing. Also built with the thread sanitizer.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <optional>
#include <random>
#include <set>
#include <system_error>
#include <thread>

#include "propagation/Mailbox.h"
#include "propagation/Runner.h"

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

/// Answers with the transmitter's latitude as the SNR of every cell, after tmRun.
class EngineFake : public Engine {
public:
    explicit EngineFake(int nAtOnce = 8, Clock::duration tmRun = 0ms)
        : m_nAtOnce(nAtOnce), m_tmRun(tmRun)
    {
    }
    [[nodiscard]] int ModelGet() const override { return kEngineRec533; }
    [[nodiscard]] std::string NameGet() const override { return "FAKE"; }
    [[nodiscard]] std::string VersionGet() const override { return {}; }
    [[nodiscard]] EngineLimits LimitsGet() const override { return {15, m_nAtOnce}; }
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override { return {}; }
    [[nodiscard]] Prediction Predict(const Request& request,
                                     const std::stop_token& stop) const override
    {
        ++m_nRuns;
        const int nNow = ++m_nNow;
        int nMost = m_nMost;
        while (nMost < nNow && !m_nMost.compare_exchange_weak(nMost, nNow)) {
        }
        const auto tmEnd = Clock::now() + m_tmRun;
        while (Clock::now() < tmEnd && !stop.stop_requested()) std::this_thread::sleep_for(1ms);
        --m_nNow;
        Prediction prediction;
        prediction.sEngine = NameGet();
        prediction.table = PropagationTable(request.nData);
        prediction.table.request = request;
        if (stop.stop_requested()) {
            prediction.aFailures.push_back({FailureKind::Cancelled, "Cancelled."});
            return prediction;
        }
        prediction.bOk = !m_bFails;
        if (m_bFails || m_bFailsInPart)
            prediction.aFailures.push_back({FailureKind::BadOutput, "Nothing."});
        for (int j = 1; j <= request.nData; ++j)
            prediction.table.fSnr(1, j) = static_cast<float>(request.dTxLat);
        return prediction;
    }
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& request,
                                             const std::stop_token& /*stop*/) const override
    {
        AreaPrediction prediction;
        prediction.request = request;
        return prediction;
    }

    [[nodiscard]] std::string IdentityGet() const override { return m_sIdentity; }

    std::string m_sIdentity = "FAKE";
    bool m_bFails = false;
    bool m_bFailsInPart = false;  // a chunk of frequencies fails, the rest is there
    mutable std::atomic<int> m_nRuns{0};
    mutable std::atomic<int> m_nMost{0};  // most runs at the same time

private:
    int m_nAtOnce;
    Clock::duration m_tmRun;
    mutable std::atomic<int> m_nNow{0};
};

std::vector<Request> RequestsOf(int nCount, double dLatFirst = 1.0)
{
    std::vector<Request> aRequests;
    for (int i = 0; i < nCount; ++i) {
        Request request;
        request.nData = 1;
        request.afFrequency = {0.0F, 7000.0F};
        request.dTxLat = dLatFirst + i;
        aRequests.push_back(request);
    }
    return aRequests;
}

TEST(Runner, AnswersEveryRequestOnceAndThenEnds)
{
    Mailbox box;
    Runner runner(box.PostGet(), 4);
    const auto pEngine = std::make_shared<EngineFake>();
    std::set<std::size_t> aAnswered;
    bool bEnd = false;
    const RunnerJob job = runner.Start(
        pEngine, RequestsOf(100),
        [&](std::size_t i, const Runner::PredictionPtr& pPrediction) {
            EXPECT_FALSE(bEnd);
            EXPECT_TRUE(aAnswered.insert(i).second);
            EXPECT_EQ(pPrediction->table.fSnr(1, 1), static_cast<float>(1 + i));
            EXPECT_EQ(pPrediction->table.request.dTxLat, 1.0 + static_cast<double>(i));
        },
        [&] { bEnd = true; });
    EXPECT_TRUE(box.RunUntil([&] { return bEnd; }));
    EXPECT_EQ(aAnswered.size(), 100U);
    EXPECT_EQ(job.CountGet(), 100U);
    EXPECT_EQ(job.DoneGet(), 100U);
    EXPECT_FALSE(job.IsRunning());
    EXPECT_EQ(pEngine->m_nRuns, 100);
}

TEST(Runner, AnEmptyListEndsWithoutAnAnswer)
{
    Mailbox box;
    Runner runner(box.PostGet(), 1);
    bool bEnd = false;
    const RunnerJob job = runner.Start(
        std::make_shared<EngineFake>(), {},
        [](std::size_t, const Runner::PredictionPtr&) { FAIL(); }, [&] { bEnd = true; });
    EXPECT_TRUE(box.RunUntil([&] { return bEnd; }));
    EXPECT_EQ(job.CountGet(), 0U);
}

TEST(Runner, KeepsToTheEnginesLimitOverAllItsJobs)
{
    Mailbox box;
    Runner runner(box.PostGet(), 8);
    const auto pEngine = std::make_shared<EngineFake>(2, 3ms);
    int nAnswers = 0;
    const auto fnAnswer = [&](std::size_t, const Runner::PredictionPtr&) { ++nAnswers; };
    const RunnerJob job1 = runner.Start(pEngine, RequestsOf(10), fnAnswer);
    const RunnerJob job2 = runner.Start(pEngine, RequestsOf(10, 50.0), fnAnswer);
    EXPECT_TRUE(box.RunUntil([&] { return nAnswers == 20; }));
    EXPECT_LE(pEngine->m_nMost, 2);
}

TEST(Runner, OneEnginesQueueDoesNotHoldUpAnother)
{
    Mailbox box;
    Runner runner(box.PostGet(), 2);
    const auto pSlow = std::make_shared<EngineFake>(1, 300ms);
    const auto pQuick = std::make_shared<EngineFake>(1);
    bool bQuick = false;
    int nSlow = 0;
    const RunnerJob jobSlow = runner.Start(
        pSlow, RequestsOf(5), [&](std::size_t, const Runner::PredictionPtr&) { ++nSlow; });
    const RunnerJob jobQuick = runner.Start(
        pQuick, RequestsOf(20, 90.0), [](std::size_t, const Runner::PredictionPtr&) {},
        [&] { bQuick = true; });
    EXPECT_TRUE(box.RunUntil([&] { return bQuick; }));
    EXPECT_LT(nSlow, 5);
}

TEST(Runner, NoAnswerComesAfterACancel)
{
    Mailbox box;
    Runner runner(box.PostGet(), 2);
    int nAnswers = 0;
    RunnerJob job;
    job = runner.Start(
        std::make_shared<EngineFake>(2, 1ms), RequestsOf(1000),
        [&](std::size_t, const Runner::PredictionPtr&) {
            if (++nAnswers == 5)
                job.Cancel();
        },
        [] { FAIL() << "the end of cancelled work was told"; });
    EXPECT_TRUE(box.RunUntil([&] { return nAnswers == 5; }));
    std::this_thread::sleep_for(20ms);
    box.RunWaiting();
    EXPECT_EQ(nAnswers, 5);
    EXPECT_FALSE(job.IsRunning());
}

TEST(Runner, ADroppedHandleCancels)
{
    Mailbox box;
    Runner runner(box.PostGet(), 1);
    const auto pEngine = std::make_shared<EngineFake>(1, 20ms);
    {
        const RunnerJob job = runner.Start(pEngine, RequestsOf(1000),
                                           [](std::size_t, const Runner::PredictionPtr&) {});
    }
    std::this_thread::sleep_for(60ms);
    EXPECT_LE(pEngine->m_nRuns, 1);
    box.RunWaiting();
}

TEST(Runner, TheSameRequestIsComputedOnce)
{
    Mailbox box;
    Runner runner(box.PostGet(), 1);
    const auto pEngine = std::make_shared<EngineFake>();
    std::vector<Request> aRequests = RequestsOf(1);
    aRequests.push_back(aRequests[0]);
    aRequests[1].eSunSpotSource = SunSpotSource::AirMail;
    std::vector<SunSpotSource> aeSources;
    const RunnerJob job = runner.Start(
        pEngine, aRequests, [&](std::size_t, const Runner::PredictionPtr& pPrediction) {
            aeSources.push_back(pPrediction->table.request.eSunSpotSource);
        });
    EXPECT_TRUE(box.RunUntil([&] { return aeSources.size() == 2; }));
    EXPECT_EQ(pEngine->m_nRuns, 1);
    EXPECT_EQ(aeSources,
              (std::vector{SunSpotSource::Typed, SunSpotSource::AirMail}));  // one for each request
    EXPECT_GT(runner.CacheBytesGet(), 0U);
}

TEST(Runner, AnExchangedEngineIsAskedAnew)
{
    Mailbox box;
    Runner runner(box.PostGet(), 1);
    const auto pEngine = std::make_shared<EngineFake>();
    int nAnswers = 0;
    for (const char* sIdentity : {"program of Monday", "program of Tuesday", "program of Monday"}) {
        pEngine->m_sIdentity = sIdentity;
        const int nBefore = nAnswers;
        const RunnerJob job = runner.Start(
            pEngine, RequestsOf(1), [&](std::size_t, const Runner::PredictionPtr&) { ++nAnswers; });
        EXPECT_TRUE(box.RunUntil([&] { return nAnswers > nBefore; }));
    }
    EXPECT_EQ(pEngine->m_nRuns, 2);
}

TEST(Runner, AnAnswerIsCountedBeforeItIsHandled)
{
    RunnerJob job;
    std::atomic<bool> bJobThere{false};
    std::atomic<int> nAnswers{0};
    std::atomic<int> nUncounted{0};
    std::atomic<bool> bEnd{false};
    // Answers are handled on the worker's own thread, as soon as they are posted.
    Runner runner([](const std::function<void()>& fnCall) { fnCall(); }, 1);
    job = runner.Start(
        50, 1,
        [&](std::size_t, const std::stop_token&) {
            while (!bJobThere) std::this_thread::yield();
            return [&] {
                if (job.DoneGet() != static_cast<std::size_t>(++nAnswers))
                    ++nUncounted;
            };
        },
        [&] { bEnd = true; });
    bJobThere = true;
    for (const auto tmEnd = Clock::now() + 10s; !bEnd && Clock::now() < tmEnd;)
        std::this_thread::sleep_for(1ms);
    EXPECT_TRUE(bEnd);
    EXPECT_EQ(nAnswers, 50);
    EXPECT_EQ(nUncounted, 0);
}

/// Calls a function when the last job that holds it is destroyed.
struct AtEnd {
    explicit AtEnd(std::function<void()> fn) : fnEnd(std::move(fn)) {}
    ~AtEnd() { fnEnd(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;
    std::function<void()> fnEnd;
};

TEST(Runner, WhatAJobHoldsMayAskTheRunnerWhenItGoes)
{
    for (const bool bCancelled : {false, true}) {
        Mailbox box;
        std::promise<int> promiseWorkers;
        auto futureWorkers = promiseWorkers.get_future();
        auto pRunner = std::make_unique<Runner>(box.PostGet(), 2);
        {
            auto pHeld = std::make_shared<AtEnd>(
                [&, pRunner = pRunner.get()] { promiseWorkers.set_value(pRunner->WorkersGet()); });
            RunnerJob job = pRunner->Start(
                4, 2, [pHeld = std::move(pHeld)](std::size_t, const std::stop_token&) {
                    std::this_thread::sleep_for(1ms);
                    return std::function<void()>();
                });
            if (bCancelled)
                job.Cancel();
            else
                while (job.IsRunning()) std::this_thread::sleep_for(1ms);
            box.RunWaiting();
        }
        const RunnerJob jobNext =
            pRunner->Start(1, 1, [](std::size_t, const std::stop_token&) { return [] {}; });
        const bool bGone = futureWorkers.wait_for(10s) == std::future_status::ready;
        ASSERT_TRUE(bGone) << "it waits for a lock that its own thread holds";
        EXPECT_EQ(futureWorkers.get(), 2);
    }
}

/// Starts a worker's thread nCount times, then fails.
class ThreadsShort {
public:
    explicit ThreadsShort(int nCount)
        : m_fnBefore(
            Runner::ThreadSetHandler([nLeft = nCount](std::function<void()> fnWork) mutable {
                if (nLeft-- <= 0)
                    throw std::system_error(
                        std::make_error_code(std::errc::resource_unavailable_try_again));
                return std::thread(std::move(fnWork));
            }))
    {
    }
    ~ThreadsShort() { Runner::ThreadSetHandler(std::move(m_fnBefore)); }
    ThreadsShort(const ThreadsShort&) = delete;
    ThreadsShort& operator=(const ThreadsShort&) = delete;

private:
    Runner::ThreadFn m_fnBefore;
};

TEST(Runner, WorksWithAsManyThreadsAsThereAre)
{
    for (const int nThreads : {3, 1, 0}) {
        const ThreadsShort threads(nThreads);
        Mailbox box;
        Runner runner(box.PostGet(), 8);
        EXPECT_EQ(runner.WorkersGet(), nThreads);
        int nAnswers = 0;
        bool bEnd = false;
        const RunnerJob job = runner.Start(
            std::make_shared<EngineFake>(), RequestsOf(20),
            [&](std::size_t, const Runner::PredictionPtr& pPrediction) {
                EXPECT_TRUE(pPrediction->bOk);
                ++nAnswers;
            },
            [&] { bEnd = true; });
        EXPECT_TRUE(box.RunUntil([&] { return bEnd; })) << nThreads;
        EXPECT_EQ(nAnswers, 20) << nThreads;
    }
}

TEST(Runner, AThreadThatIsThereLaterIsTaken)
{
    std::optional<ThreadsShort> threads(std::in_place, 0);
    Mailbox box;
    Runner runner(box.PostGet(), 2);
    EXPECT_EQ(runner.WorkersGet(), 0);
    threads.reset();
    std::atomic<std::thread::id> idWorker{};
    bool bEnd = false;
    const RunnerJob job = runner.Start(
        1, 1,
        [&](std::size_t, const std::stop_token&) {
            idWorker = std::this_thread::get_id();
            return std::function<void()>();
        },
        [&] { bEnd = true; });
    EXPECT_TRUE(box.RunUntil([&] { return bEnd; }));
    EXPECT_EQ(runner.WorkersGet(), 1);
    EXPECT_NE(idWorker.load(), std::this_thread::get_id());
}

/// Expects that the same request, asked twice, runs twice and that nothing is kept of it.
void ExpectNotKept(const std::shared_ptr<EngineFake>& pEngine, bool bOk)
{
    Mailbox box;
    Runner runner(box.PostGet(), 1);
    int nAnswers = 0;
    std::vector<Request> aRequests = RequestsOf(1);
    aRequests.push_back(aRequests[0]);
    const RunnerJob job = runner.Start(pEngine, aRequests,
                                       [&](std::size_t, const Runner::PredictionPtr& pPrediction) {
                                           EXPECT_EQ(pPrediction->bOk, bOk);
                                           ++nAnswers;
                                       });
    EXPECT_TRUE(box.RunUntil([&] { return nAnswers == 2; }));
    EXPECT_EQ(pEngine->m_nRuns, 2);
    EXPECT_EQ(runner.CacheBytesGet(), 0U);
}

TEST(Runner, AFailureIsNotKept)
{
    const auto pEngine = std::make_shared<EngineFake>();
    pEngine->m_bFails = true;
    ExpectNotKept(pEngine, false);
}

TEST(Runner, AnAnswerWithAFailedPartIsNotKept)
{
    const auto pEngine = std::make_shared<EngineFake>();
    pEngine->m_bFailsInPart = true;
    ExpectNotKept(pEngine, true);
}

TEST(Runner, TheOldestAnswersGoWhereThereIsNoRoom)
{
    Mailbox box;
    const std::size_t nRoom = 4 * (TableBytesGet(PropagationTable(1)) + 300);
    Runner runner(box.PostGet(), 1, nRoom);
    const auto pEngine = std::make_shared<EngineFake>();
    int nAnswers = 0;
    const auto fnAnswer = [&](std::size_t, const Runner::PredictionPtr&) { ++nAnswers; };
    const RunnerJob job1 = runner.Start(pEngine, RequestsOf(20), fnAnswer);
    EXPECT_TRUE(box.RunUntil([&] { return nAnswers == 20; }));
    EXPECT_LE(runner.CacheBytesGet(), nRoom);
    const RunnerJob job2 = runner.Start(pEngine, RequestsOf(1, 20.0), fnAnswer);  // the latest
    EXPECT_TRUE(box.RunUntil([&] { return nAnswers == 21; }));
    EXPECT_EQ(pEngine->m_nRuns, 20);
    const RunnerJob job3 = runner.Start(pEngine, RequestsOf(1, 1.0), fnAnswer);  // the oldest
    EXPECT_TRUE(box.RunUntil([&] { return nAnswers == 22; }));
    EXPECT_EQ(pEngine->m_nRuns, 21);
}

TEST(Runner, AnyWorkRunsInPieces)
{
    Mailbox box;
    Runner runner(box.PostGet(), 3);
    std::vector<int> anDone(50, 0);
    std::size_t nPosted = 0;
    bool bEnd = false;
    const RunnerJob job = runner.Start(
        anDone.size(), 3,
        [&](std::size_t i, const std::stop_token&) {
            anDone[i] = 1;
            return [&nPosted] { ++nPosted; };
        },
        [&] { bEnd = true; });
    EXPECT_TRUE(box.RunUntil([&] { return bEnd; }));
    EXPECT_EQ(nPosted, anDone.size());
    EXPECT_EQ(std::count(anDone.begin(), anDone.end(), 1), 50);
}

TEST(Runner, RandomCancelsAndClosingsLeaveNothingBehind)
{
    constexpr int kRounds = 1000;
    std::minstd_rand random(20261121);
    const auto pEngine = std::make_shared<EngineFake>(4, 1ms);
    for (int i = 0; i < kRounds; ++i) {
        Mailbox box;
        int nAnswers = 0;
        std::vector<RunnerJob> aJobs;
        {
            Runner runner(box.PostGet(), 1 + static_cast<int>(random() % 4));
            for (std::size_t n = random() % 3 + 1; n > 0; --n)
                aJobs.push_back(
                    runner.Start(pEngine, RequestsOf(static_cast<int>(random() % 20), i * 100.0),
                                 [&](std::size_t, const Runner::PredictionPtr&) { ++nAnswers; }));
            for (unsigned n = random() % 4; n > 0; --n) {
                box.RunWaiting();
                if (random() % 2 == 0)
                    aJobs[random() % aJobs.size()].Cancel();
                std::this_thread::sleep_for(std::chrono::microseconds(random() % 500));
            }
        }
        for (RunnerJob& job : aJobs) job.Cancel();
        const int nBefore = nAnswers;
        box.RunWaiting();
        EXPECT_EQ(nAnswers, nBefore);
    }
}

}  // namespace
