/// Stations and the day of an area, with engine programs that misbehave behind the runner.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/Mailbox.h"
#include "propagation/itshfbc/ProcessEngine.h"
#include "studies/reach/Reach.h"
#include "support/Faults.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr double kLimit = 1.0;  // seconds for an attempt
constexpr std::chrono::seconds kAnswerMax = 60s;
constexpr const char* kProgram = "rec533w.exe";

/// What an engine does instead of its work, for a path or an area.
struct Fault {
    const char* sName;
    const char* sScript;
    FailureKind eKind;
    const char* sAreaText;
};

constexpr const char* kNotFinished = "PropagationAreaOpen, Shell do not finish.";

constexpr Fault kFaults[] = {
    {"Hangs", "exec sleep 100", FailureKind::Timeout, kNotFinished},
    {"HangsWithChildrenOfItsOwn",
     "sleep 100 & echo $! >> pids\ntrap '' TERM INT HUP\nwhile :; do sleep 100; done",
     FailureKind::Timeout, kNotFinished},
    {"DiesByASignal", "kill -9 $$", FailureKind::BadOutput, kNotFinished},
    {"EndsWithAnError", "echo no map; exit 1", FailureKind::BadOutput, kNotFinished},
    {"PrintsForEver", "while echo; do sleep 0.01; done", FailureKind::Timeout, kNotFinished},
    {"LeavesNoOutput", "exit 0", FailureKind::BadOutput, "PropagationAreaOpenFile, File not found"},
    {"HasNoRoomForItsOutput", "trap '' XFSZ; ulimit -f 2; cat $good > $out 2> /dev/null; exit 0",
     FailureKind::BadOutput, "Unable to read the area's grid, Type mismatch"},
};

std::ostream& operator<<(std::ostream& stm, const Fault& fault) { return stm << fault.sName; }

class StudiesWork : public testing::Test {
protected:
    static constexpr float kSick = 13333.0F;  // kHz of the place whose engine misbehaves
    static constexpr const char* kPath = "rec533/p2p_01";
    static constexpr const char* kArea = "rec533/area_01";

    /// An engine that answers with a captured output unless it misbehaves.
    /// @param sWhen  shell command that succeeds if the engine is to misbehave
    void EngineScript(const std::string& sGood, const std::string& sWhen,
                      const std::string& sFault) const
    {
        m_root.Engine(kProgram, "good='" + sGood + "'\nif " + sWhen + "; then\n" + sFault
                                    + "\nfi\ncp $good $out");
    }
    void PathEngine(const std::string& sFault) const
    {
        EngineScript(CapturedPath(kPath, ".out"), "grep -q '13[.]3' $deck", sFault);
    }
    static std::vector<Place> PlacesMake()
    {
        std::vector<Place> aPlaces(3);
        for (std::size_t i = 0; i < aPlaces.size(); ++i) {
            aPlaces[i].sKey = "P" + std::to_string(i);
            aPlaces[i].dLat = 10.0 * static_cast<double>(i + 1);
            aPlaces[i].dLon = 20.0;
        }
        aPlaces[1].afFrequency = {kSick};
        return aPlaces;
    }
    static Reach ReachMake()
    {
        ReachInput input;
        input.base = InputMake(CircuitCaseGet(kPath));
        input.bOwnFrequencies = true;
        return {input, PlacesMake()};
    }
    /// Asks for all places and waits until all have answered.
    void ReachRun(Runner& runner, Reach& reach)
    {
        bool bEnd = false;
        const RunnerJob job = ReachStart(
            runner, m_pEngine, reach, [](std::size_t) {}, [&] { bEnd = true; });
        ASSERT_TRUE(m_box.RunUntil([&] { return bEnd; }, kAnswerMax));
    }
    /// Runs all pieces of an area's day, up to the first failure.
    std::optional<Failure> DayRun(AreaDay& day)
    {
        std::optional<Failure> failure;
        const auto pWork = m_pEngine->AreaDayPrepare(day.request, failure);
        if (pWork == nullptr)
            return failure;
        bool bEnd = false;
        Runner runner(m_box.PostGet(), 3);
        RunnerJob job = runner.Start(
            pWork->PiecesGet(), m_pEngine->LimitsGet().nAtOnce,
            [&](std::size_t iPiece, const std::stop_token& stop) -> std::function<void()> {
                auto failed = pWork->Run(iPiece, day, stop);
                return [&failure, failed = std::move(failed)] {
                    if (failed && !failure)
                        failure = failed;
                };
            },
            [&] { bEnd = true; });
        EXPECT_TRUE(m_box.RunUntil([&] { return bEnd || failure; }, kAnswerMax));
        job.Cancel();
        return failure;
    }
    static AreaDayRequest DayRequestMake()
    {
        AreaDayRequest request;
        request.area = AreaInputMake(AreaCases().front());
        request.area.iModel = kEngineRec533;
        request.afFrequency = {7000.0F};
        return request;
    }

    FakeRoot m_root;
    const EngineLimit m_limit{kLimit};
    Mailbox m_box;
    std::shared_ptr<const Engine> m_pEngine = std::make_shared<ProcessEngine>(kEngineRec533);
};

class StudiesFault : public StudiesWork, public testing::WithParamInterface<Fault> {};

INSTANTIATE_TEST_SUITE_P(Engines, StudiesFault, testing::ValuesIn(kFaults),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST_P(StudiesFault, OnePlaceFailsWithItsReasonAndTheOthersAreAnswered)
{
    PathEngine(GetParam().sScript);
    Runner runner(m_box.PostGet(), 3);
    Reach reach = ReachMake();
    ReachRun(runner, reach);
    const auto& aRows = reach.RowsGet();
    EXPECT_EQ(aRows[0].eState, ReachState::Answered) << aRows[0].sFailure;
    EXPECT_EQ(aRows[2].eState, ReachState::Answered) << aRows[2].sFailure;
    EXPECT_EQ(aRows[1].eState, ReachState::Failed);
    const Prediction alone =
        m_pEngine->Predict(ReachRequestGet(reach.InputGet(), reach.PlacesGet()[1]), {});
    ASSERT_FALSE(alone.aFailures.empty());
    EXPECT_EQ(alone.aFailures.back().eKind, GetParam().eKind);
    EXPECT_EQ(aRows[1].sFailure, alone.aFailures.back().sText) << "as the single prediction says";
    EXPECT_FALSE(aRows[1].sFailure.empty());

    // No failure is cached.
    PathEngine("true");
    Reach again = ReachMake();
    ReachRun(runner, again);
    for (const ReachRow& row : again.RowsGet())
        EXPECT_EQ(row.eState, ReachState::Answered) << row.iPlace << row.sFailure;
}

TEST_P(StudiesFault, AnAreasDayEndsAtTheFirstFailureAndLeavesNoProcess)
{
    EngineScript(CapturedPath(kArea, ".rg1"), "[ $n -ge 3 ]", GetParam().sScript);
    AreaDay day(DayRequestMake());
    const auto failure = DayRun(day);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->eKind, GetParam().eKind);
    EXPECT_EQ(failure->sText, GetParam().sAreaText);
    EXPECT_LE(m_root.CallCount(), 4) << "the rest of the day is not tried";
    EXPECT_FALSE(std::isnan(day.SnrGet(0, 0, 0))) << "what was there stays";
}

TEST_F(StudiesWork, ADeckWithoutRoomFailsEachPlaceAndTheNextSearchIsWhole)
{
    PathEngine("true");
    Runner runner(m_box.PostGet(), 3);
    Reach reach = ReachMake();
    {
        const FileSizeLimit limit(100);
        ReachRun(runner, reach);
    }
    for (const ReachRow& row : reach.RowsGet())
        EXPECT_EQ(row.sFailure, "PropagationRec533, Output Disk full");
    EXPECT_EQ(m_root.CallCount(), 0);
    Reach again = ReachMake();
    ReachRun(runner, again);
    for (const ReachRow& row : again.RowsGet()) EXPECT_EQ(row.eState, ReachState::Answered);
}

TEST_F(StudiesWork, ACancelOfAHangingEngineLeavesNeitherAnswerNorProcessNorLock)
{
    const EngineLimit limit(60.0);
    PathEngine("exec sleep 100");
    Reach reach = ReachMake();
    const auto tmStart = Clock::now();
    {
        Runner runner(m_box.PostGet(), 3);
        RunnerJob job = ReachStart(
            runner, m_pEngine, reach, [](std::size_t) {}, [] { ADD_FAILURE(); });
        // Only the sick place's engine still runs.
        ASSERT_TRUE(m_box.RunUntil([&] { return reach.DoneGet() == 1; }, kAnswerMax));
        while (m_root.CallCount() < 2) std::this_thread::sleep_for(1ms);
        job.Cancel();
        EXPECT_EQ(reach.DoneGet(), 1U);
    }
    EXPECT_LT(Clock::now() - tmStart, 30s) << "nobody waited for the engine's limit";
    m_box.RunWaiting();
    EXPECT_EQ(reach.DoneGet(), 1U) << "no answer after a cancel";
    PathEngine("true");
    Runner runner(m_box.PostGet(), 1);
    Reach again = ReachMake();
    ReachRun(runner, again);
    for (const ReachRow& row : again.RowsGet()) EXPECT_EQ(row.eState, ReachState::Answered);
}

}  // namespace
