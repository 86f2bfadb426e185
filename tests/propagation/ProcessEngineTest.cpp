/// Engine programs through the interface Engine: kinds of failures, limits, cancelling.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/PropagationLib.h"
#include "propagation/itshfbc/EngineManifest.h"
#include "propagation/itshfbc/ProcessEngine.h"
#include "support/TempFolder.h"
#include "system/LockLib.h"

namespace {

using namespace std::chrono_literals;

Request RequestOf(int iModel, int nFrequencies = 10)
{
    Request request = InputMake(CircuitCaseGet("rec533/p2p_01"));
    request.iModel = iModel;
    request.nData = nFrequencies;
    request.afFrequency.assign(1, 0.0F);
    for (int i = 1; i <= nFrequencies; ++i)
        request.afFrequency.push_back(static_cast<float>(i) * 1000.0F);
    return request;
}

FailureKind KindOf(const Prediction& prediction)
{
    EXPECT_FALSE(prediction.bOk);
    EXPECT_FALSE(prediction.aFailures.empty());
    return prediction.aFailures.empty() ? FailureKind::File : prediction.aFailures.back().eKind;
}

class ProcessEngines : public testing::Test {
protected:
    FakeRoot m_root;
    const ProcessEngine m_rec533{kEngineRec533};

    void Rec533(const std::string& sScript) const { m_root.Engine("rec533w.exe", sScript); }
    [[nodiscard]] Prediction Predict(int nFrequencies = 10) const
    {
        return m_rec533.Predict(RequestOf(kEngineRec533, nFrequencies), {});
    }
};

TEST_F(ProcessEngines, AnswerWithTheTableItsRequestAndTheEnginesName)
{
    m_root.EngineCopying("rec533w.exe", CapturedPath("rec533/p2p_01", ".out"));
    const Prediction prediction = Predict();
    EXPECT_TRUE(prediction.bOk);
    EXPECT_TRUE(prediction.aFailures.empty());
    EXPECT_EQ(prediction.sEngine, "REC533");
    EXPECT_EQ(prediction.table.request, RequestOf(kEngineRec533));
    EXPECT_TRUE(prediction.table.PresentIs(10));
    EXPECT_FALSE(std::isnan(prediction.table.fReliability(1, 1)));
}

TEST_F(ProcessEngines, TellWhatKindOfFailureItWas)
{
    EXPECT_EQ(KindOf(Predict()), FailureKind::NotInstalled);
    EXPECT_EQ(m_rec533.ObstacleGet()->eKind, FailureKind::NotInstalled);
    Rec533("exit 3");
    EXPECT_FALSE(m_rec533.ObstacleGet());
    EXPECT_EQ(KindOf(Predict()), FailureKind::BadOutput);
    Rec533("exit 0");
    EXPECT_EQ(KindOf(Predict()), FailureKind::BadOutput) << "no output";
    Request request = RequestOf(kEngineRec533);
    request.fSunSpotNumber = 12345.0F;
    EXPECT_EQ(KindOf(m_rec533.Predict(request, {})), FailureKind::BadInput);
    const EngineLimit limit(0.2);
    Rec533("sleep 60");
    EXPECT_EQ(KindOf(Predict()), FailureKind::Timeout);
    const auto resLock = FileLock::Take(m_root.Path("hopcast.lock"), 0.0);
    EXPECT_EQ(KindOf(Predict()), FailureKind::Busy);
}

TEST_F(ProcessEngines, AreOthersWhenTheirProgramsAreExchanged)
{
    const std::string sProgram = m_root.Path("bin_win/rec533w.exe");
    const std::string sNone = m_rec533.IdentityGet();
    Rec533("exit 0");
    const std::string sFirst = m_rec533.IdentityGet();
    EXPECT_NE(sFirst, sNone);
    EXPECT_EQ(m_rec533.IdentityGet(), sFirst);
    std::filesystem::last_write_time(sProgram, std::filesystem::last_write_time(sProgram) + 2s);
    const std::string sLater = m_rec533.IdentityGet();
    EXPECT_NE(sLater, sFirst) << "time";
    const auto time = std::filesystem::last_write_time(sProgram);
    std::filesystem::resize_file(sProgram, std::filesystem::file_size(sProgram) + 1);
    std::filesystem::last_write_time(sProgram, time);
    EXPECT_NE(m_rec533.IdentityGet(), sLater) << "size";
    EXPECT_NE(ProcessEngine(kEngineVoacap).IdentityGet(), sNone) << "each engine its own";
}

TEST_F(ProcessEngines, AreOthersWhenAnAntennaOfTheRootIsExchanged)
{
    Rec533("exit 0");
    std::string sBefore = m_rec533.IdentityGet();
    std::filesystem::create_directories(m_root.Path("antennas/default"));
    for (const char* sName : {"const17.voa", "swwhip.voa"}) {
        const std::string sFile = m_root.Path("antennas/default/") + sName;
        std::ofstream(sFile) << "one";
        const std::string sFirst = m_rec533.IdentityGet();
        EXPECT_NE(sFirst, sBefore) << sName;
        EXPECT_EQ(m_rec533.IdentityGet(), sFirst);
        std::filesystem::last_write_time(sFile, std::filesystem::last_write_time(sFile) + 2s);
        sBefore = m_rec533.IdentityGet();
        EXPECT_NE(sBefore, sFirst) << sName;
    }
}

#ifndef _WIN32  // file modes
TEST_F(ProcessEngines, TellAProgramThatCannotBeStarted)
{
    Rec533("exit 0");
    std::filesystem::permissions(m_root.Path("bin_win/rec533w.exe"),
                                 std::filesystem::perms::owner_read);
    EXPECT_EQ(KindOf(Predict()), FailureKind::NotStarted);
}
#endif

TEST_F(ProcessEngines, NameTheFrequenciesOfAChunkThatFailed)
{
    Rec533("grep -q 'FREQ.* 11.0' $deck && exit 1\ncp '" + CapturedPath("rec533/p2p_01", ".out")
           + "' $out");
    const Prediction prediction = Predict(12);
    ASSERT_EQ(prediction.aFailures.size(), 1U);
    EXPECT_EQ(prediction.aFailures[0].iFirst, 11);
    EXPECT_EQ(prediction.aFailures[0].iLast, 12);
    EXPECT_TRUE(prediction.table.PresentIs(10));
    EXPECT_FALSE(prediction.table.PresentIs(11));
}

TEST_F(ProcessEngines, ARequestStaysInTheRootThatItBeganIn)
{
    m_root.EngineCopying("rec533w.exe", CapturedPath("rec533/p2p_01", ".out"));
    const EngineWay way;
    const TempFolder tmp;
    const EnvironmentSet another("HOPCAST_ITSHFBC", tmp.Path("another"));
    PropagationTable table(12);
    std::vector<Failure> aFailures;
    EXPECT_TRUE(PropagationRun(RequestOf(kEngineRec533, 12), table, aFailures, way));
    EXPECT_EQ(KindOf(Predict()), FailureKind::NotInstalled) << "the next request seeks anew";
}

TEST_F(ProcessEngines, AnUnknownEngineIsNotInstalled)
{
    const ProcessEngine engine(9);
    EXPECT_EQ(engine.NameGet(), "");
    EXPECT_TRUE(engine.ObstacleGet());
    EXPECT_EQ(KindOf(engine.Predict(RequestOf(9), {})), FailureKind::NotInstalled);
}

TEST_F(ProcessEngines, TakeTurnsInTheRootUnlessItIsOurLauncher)
{
    EXPECT_EQ(m_rec533.LimitsGet().nAtOnce, 1);
    EXPECT_EQ(m_rec533.LimitsGet().nFrequencies, 10);
    EXPECT_EQ(ProcessEngine(kEngineVoacap).LimitsGet().nAtOnce, 1) << "somebody else's";
}

#ifndef _WIN32  // Windows has no launcher of Hopcast's
/// A root whose voacapw.exe counts as Hopcast's launcher.
class OwnLauncher : public testing::Test {
protected:
    FakeRoot m_root;
    const std::string m_sProgram = m_root.Path("bin_win/voacapw.exe");
    const std::string m_sManifest = m_root.Path("hopcast-engines.txt");
    const ProcessEngine m_voacap{kEngineVoacap};

    ~OwnLauncher() override { std::filesystem::remove(m_sManifest); }
    void Voacap(const std::string& sScript) const
    {
        m_root.Engine("voacapw.exe", sScript);
        std::ofstream(m_sManifest) << LineMake("voacapw.exe", CopyMark(m_sProgram)) << '\n';
    }
};

/// Otherwise windows with many predictions would show other numbers than the main window.
TEST_F(OwnLauncher, FindsTheRootsAntennasInAFolderOfItsOwnToo)
{
    const TempFolder folder;
    const std::string sSeen = folder.Path("seen");
    const std::string sAntenna = m_root.Path("Antennas/default/swwhip.voa");
    std::filesystem::create_directories(m_root.Path("Antennas/default"));
    std::ofstream(sAntenna) << "mine";
    Voacap("pwd > '" + sSeen + "'\ncat \"$1/antennas/default/swwhip.voa\" >> '" + sSeen + "'\ncp '"
           + CapturedPath("voacap/p2p_01", ".out") + "' $out");
    EXPECT_GE(m_voacap.LimitsGet().nAtOnce, 1);
    EXPECT_TRUE(m_voacap.Predict(RequestOf(kEngineVoacap, 3), {}).bOk);
    const std::string sTold = BytesRead(sSeen);
    EXPECT_FALSE(sTold.starts_with(m_root.Path(""))) << sTold;
    EXPECT_TRUE(sTold.ends_with("\nmine")) << sTold;
    EXPECT_EQ(BytesRead(sAntenna), "mine") << "they stay when the folder goes";
    EXPECT_FALSE(std::filesystem::exists(sTold.substr(0, sTold.find('\n'))));
}

TEST_F(OwnLauncher, RunsInTheRootWhereThereIsNoFolderOfItsOwn)
{
    const TempFolder folder;
    const EnvironmentSet temporary("TMPDIR", folder.Path("missing"));
    Voacap("cp '" + CapturedPath("voacap/p2p_01", ".out") + "' $out");
    EXPECT_TRUE(m_voacap.Predict(RequestOf(kEngineVoacap, 3), {}).bOk);
    EXPECT_EQ(m_root.CallCount(), 1);
}
#endif

TEST_F(ProcessEngines, AnAreaIsItsPointsInGridOrder)
{
    AreaRequest request = AreaInputMake(AreaCases().front());
    request.iModel = kEngineRec533;
    m_root.EngineCopying("rec533w.exe", CapturedPath("rec533/area_01", ".rg1"));
    const AreaPrediction whole = m_rec533.PredictArea(request, {});
    const auto nPoints = static_cast<std::size_t>(request.nGridSize) * request.nGridSize;
    ASSERT_TRUE(whole.bOk) << (whole.aFailures.empty() ? "" : whole.aFailures[0].sText);
    EXPECT_EQ(whole.aPoints.size(), nPoints);
    EXPECT_EQ(whole.request, request);
    ++request.nGridSize;  // now the grid has too few points
    const AreaPrediction cut = m_rec533.PredictArea(request, {});
    EXPECT_FALSE(cut.bOk);
    ASSERT_EQ(cut.aFailures.size(), 1U);
    EXPECT_EQ(cut.aFailures[0].eKind, FailureKind::BadOutput);
}

TEST_F(ProcessEngines, AStopBeforeTheStartIsACancel)
{
    m_root.EngineCopying("rec533w.exe", CapturedPath("rec533/p2p_01", ".out"));
    std::stop_source stop;
    stop.request_stop();
    const Prediction prediction = m_rec533.Predict(RequestOf(kEngineRec533, 15), stop.get_token());
    EXPECT_EQ(KindOf(prediction), FailureKind::Cancelled);
    ASSERT_EQ(prediction.aFailures.size(), 1U);
    EXPECT_EQ(prediction.aFailures[0].iFirst, 1);
    EXPECT_EQ(prediction.aFailures[0].iLast, 15);
    EXPECT_EQ(m_root.CallCount(), 0);
}

#ifndef _WIN32  // the fake engines on Windows cannot sleep
/// Half a table that passed for a whole one would be cached.
TEST_F(ProcessEngines, AStopBetweenTwoChunksIsACancel)
{
    Rec533(
        "grep -q 'FREQ.* 11.0' $deck && exec sleep 60\necho said\n{ yes junk | head -n 1000000; "
        "cat '"
        + CapturedPath("rec533/p2p_01", ".out") + "'; } > $out");
    const std::string sOutput = m_root.Path("RUN/sound.out");
    const std::string sConsole = m_root.Path("RUN/hopcast.txt");
    std::stop_source stop;
    const std::jthread thread([&] {
        while (!std::filesystem::exists(sOutput) || std::filesystem::exists(sConsole))
            std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(10ms);
        stop.request_stop();  // while the first chunk's long output is read
    });
    const Prediction prediction = m_rec533.Predict(RequestOf(kEngineRec533, 15), stop.get_token());
    EXPECT_EQ(KindOf(prediction), FailureKind::Cancelled);
    ASSERT_EQ(prediction.aFailures.size(), 1U);
    EXPECT_EQ(prediction.aFailures[0].iFirst, 11);
    EXPECT_EQ(prediction.aFailures[0].iLast, 15);
}

TEST_F(ProcessEngines, AStopEndsTheWaitForTheRoot)
{
    Rec533("exit 0");
    const auto resLock = FileLock::Take(m_root.Path("hopcast.lock"), 0.0);
    ASSERT_TRUE(resLock);
    std::stop_source stop;
    const std::jthread thread([&] {
        std::this_thread::sleep_for(50ms);
        stop.request_stop();
    });
    const auto tmStart = std::chrono::steady_clock::now();
    const Prediction prediction = m_rec533.Predict(RequestOf(kEngineRec533), stop.get_token());
    EXPECT_EQ(KindOf(prediction), FailureKind::Cancelled);
    EXPECT_EQ(m_root.CallCount(), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - tmStart, 4s) << "before the wait's limit";
}

TEST_F(ProcessEngines, AStopEndsTheEngineAndItsRun)
{
    Rec533("sleep 60");
    std::stop_source stop;
    const std::jthread thread([&] {
        std::this_thread::sleep_for(50ms);
        stop.request_stop();
    });
    const auto tmStart = std::chrono::steady_clock::now();
    const Prediction prediction = m_rec533.Predict(RequestOf(kEngineRec533, 15), stop.get_token());
    EXPECT_EQ(KindOf(prediction), FailureKind::Cancelled);
    EXPECT_EQ(prediction.aFailures.size(), 1U) << "no second attempt, no second chunk";
    EXPECT_EQ(m_root.CallCount(), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - tmStart, 4s) << "before the engine's limit";
}
#endif

}  // namespace
