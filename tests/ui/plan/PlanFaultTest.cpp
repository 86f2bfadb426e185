// The planning windows with engine programs that misbehave.
#include <QLabel>
#include <chrono>
#include <optional>
#include <ostream>

#include "PlanRig.h"
#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/itshfbc/ProcessEngine.h"
#include "ui/compare/frmCompare.h"
#include "ui/days/frmDays.h"
#include "ui/map/MapDayControl.h"
#include "ui/map/frmMap.h"

namespace {

constexpr const char* kNotFinished = "PropagationRec533, Shell do not finish.";

struct Fault {
    const char* sName;
    const char* sScript;
    const char* sMapText;
};

constexpr const char* kTooLong = "the engine took too long";

constexpr Fault kFaults[] = {
    {"Hangs", "exec sleep 100", kTooLong},
    {"Dies", "kill -9 $$", "PropagationAreaOpen, Shell do not finish."},
    {"PrintsForEver", "while echo; do sleep 0.01; done", kTooLong},
};

std::ostream& operator<<(std::ostream& stm, const Fault& fault) { return stm << fault.sName; }

/// Main window and planning windows with shell scripts in place of REC533.
class PlanOnPrograms : public testing::Test {
protected:
    PlanOnPrograms()
    {
        ProcessSetHandler({});
        rig.m_pEngine = std::make_shared<ProcessEngine>(kEngineRec533);
        rig.OwnPlacesWrite("Near,N18 W130,,\nFar,N47 30 E8 30,,\n");
        Engine("");
    }
    // The windows must go before the root checks what they have left.
    void TearDown() override { rig.m_pFrm.reset(); }

    void Engine(const std::string& sFault) const
    {
        root.Engine("rec533w.exe",
                    sFault + "\ncp '" + CapturedPath("rec533/p2p_01", ".out") + "' $out");
    }
    /// The same with the grids of an area.
    void AreaEngine(const std::string& sFault) const
    {
        root.Engine("rec533w.exe",
                    sFault + "\ncp '" + CapturedPath("rec533/area_01", ".rg1") + "' $out");
    }
    frmMain& Start()
    {
        frmMain& frm = rig.StartWithEngine();
        EXPECT_TRUE(rig.m_msg.m_aShown.empty());
        return frm;
    }
    static void WaitUntilDone(const auto& frm)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 30000));
    }
    void LimitSet(double dSeconds)
    {
        limit.reset();
        limit.emplace(dSeconds);
    }
    /// Waits until nCalls runs have begun.
    void EngineAwait(int nCalls) const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return root.CallCount() >= nCalls; }, 20000));
    }

    PlanRig rig;
    FakeRoot root;
    std::optional<EngineLimit> limit{std::in_place, 1.0};
};

class PlanFault : public PlanOnPrograms, public testing::WithParamInterface<Fault> {};

INSTANTIATE_TEST_SUITE_P(Engines, PlanFault, testing::ValuesIn(kFaults),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST_P(PlanFault, StationsSayWhyAndTheNextSearchAnswers)
{
    frmMain& frmM = Start();
    Engine(GetParam().sScript);
    rig.ReachOpenSoon();
    frmReach& frm = *frmM.m_pReach;
    WaitUntilDone(frm);
    for (const ReachRow& row : frm.ReachGet()->RowsGet()) EXPECT_EQ(row.sFailure, kNotFinished);
    EXPECT_EQ(frm.grdReach->RowsGet(), 3) << "each station is listed still";
    EXPECT_TRUE(rig.m_msg.m_aShown.empty()) << "a study shows no box";
    Engine("");
    frm.frm->cmdFind->click();
    WaitUntilDone(frm);
    for (const ReachRow& row : frm.ReachGet()->RowsGet())
        EXPECT_EQ(row.eState, ReachState::Answered) << row.sFailure;
}

TEST_P(PlanFault, DaysSayWhyAndFollowTheNextTable)
{
    frmMain& frmM = Start();
    Engine(GetParam().sScript);
    frmDays& frm = rig.WindowOpen(Qt::Key_B, frmM.m_pDays);
    WaitUntilDone(frm);
    EXPECT_TRUE(frm.lblHint->text().contains(QLatin1String(kNotFinished)))
        << frm.lblHint->text().toStdString();
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    Engine("");
    frmM.Update();
    WaitUntilDone(frm);
    EXPECT_FALSE(frm.lblHint->text().contains(QLatin1String(kNotFinished)));
    EXPECT_FALSE(frm.DaysTableGet().table.request.nData == 0);
}

TEST_P(PlanFault, ComparisonSaysWhyAndFollowsTheNextTable)
{
    frmMain& frmM = Start();
    Engine(GetParam().sScript);
    frmCompare& frm = rig.WindowOpen(Qt::Key_M, frmM.m_pCompare);
    WaitUntilDone(frm);
    EXPECT_TRUE(frm.lblHint->text().contains(QLatin1String(kNotFinished)))
        << frm.lblHint->text().toStdString();
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    Engine("");
    frmM.Update();
    WaitUntilDone(frm);
    EXPECT_FALSE(frm.lblHint->text().contains(QLatin1String(kNotFinished)));
}

TEST_P(PlanFault, ADayOfTheMapSaysWhyAndIsShownOnceTheEngineWorks)
{
    frmMain& frmM = Start();
    frmM.m_settings.m_iMapOverlayGridSize = AreaCases().front().nGridSize;
    frmM.mnuViewWorldMap->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frmM.m_pMap));
    frmMap& map = *frmM.m_pMap;
    const auto& day = *map.findChild<MapDayControl*>();
    auto* const pLayer = map.findChild<QAction*>(QStringLiteral("mnuOverlayLayer1"));
    AreaEngine(GetParam().sScript);
    pLayer->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !day.RunGet().RunningIs(); }, 30000));
    EXPECT_TRUE(map.txtCursor->text().startsWith(QStringLiteral("No overlay: ")
                                                 + QLatin1String(GetParam().sMapText)))
        << map.txtCursor->text().toStdString();
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    AreaEngine("");
    pLayer->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return day.HasCells(); }, 30000))
        << map.txtCursor->text().toStdString();
    map.close();  // before the other hours are done
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_pMap.isNull());
}

TEST_F(PlanOnPrograms, AWindowClosedWhileItsEngineHangsLeavesNoProcessAndTheMainOneWorks)
{
    LimitSet(60.0);
    frmMain& frmM = Start();
    int nCalls = root.CallCount();
    Engine("exec sleep 100");
    const auto tmStart = std::chrono::steady_clock::now();
    rig.ReachOpenSoon();
    EngineAwait(++nCalls);
    frmM.m_pReach->close();
    rig.WindowOpen(Qt::Key_B, frmM.m_pDays);
    EngineAwait(++nCalls);
    frmM.m_pDays->close();
    rig.WindowOpen(Qt::Key_M, frmM.m_pCompare);
    EngineAwait(++nCalls);
    frmM.m_pCompare->close();
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_pReach.isNull() && frmM.m_pDays.isNull() && frmM.m_pCompare.isNull());
    EXPECT_LT(std::chrono::steady_clock::now() - tmStart, std::chrono::seconds(50))
        << "nobody waited for the engine's limit";
    Engine("");
    frmM.Update();
    EXPECT_TRUE(frmM.lblTrouble->text().isEmpty()) << frmM.lblTrouble->text().toStdString();
}

TEST_F(PlanOnPrograms, TheProgramClosedWhileEnginesHangLeavesNoProcess)
{
    LimitSet(60.0);
    frmMain& frmM = Start();
    const int nCalls = root.CallCount();
    Engine("exec sleep 100");
    rig.ReachOpenSoon();
    EngineAwait(nCalls + 1);
    rig.WindowOpen(Qt::Key_B, frmM.m_pDays);
    frmM.close();
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_pReach.isNull() && frmM.m_pDays.isNull());
}

}  // namespace
