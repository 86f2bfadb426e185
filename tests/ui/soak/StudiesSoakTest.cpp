// The planning windows and the map's day for hours on end, with the engine in this process.
#include <QPushButton>
#include <initializer_list>

#include "ui/card/frmCard.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/map/HourBar.h"
#include "ui/map/MapDayControl.h"
#include "ui/map/frmMap.h"
#include "ui/places/frmPlaces.h"
#include "ui/plan/PlanRig.h"
#include "ui/soak/SoakWatch.h"

namespace {

constexpr int kWaitMax = 60000;  // ms

/// The main window with some places, and a new question in each round.
class SoakRig : public PlanRig {
public:
    explicit SoakRig(int nPlaces)
    {
        std::string sRows;
        for (int n = 0; n < nPlaces; ++n)
            sRows += "P" + std::to_string(n) + ",\"" + std::to_string(5 * (n % 15) - 35) + ", "
                     + std::to_string(11 * n % 360 - 180) + "\",,\n";
        OwnPlacesWrite(sRows);
    }
    void QuestionSet(int nRound) const
    {
        constexpr float kStep = 0.1F;
        m_pFrm->m_settings.m_fPropagationSunSpotNumber = kStep * static_cast<float>(nRound);
    }
};

/// A sum that is the same whenever the same sunspot number is asked for.
float SnrSum(const Reach& reach)
{
    float fSum = 0.0F;
    for (const ReachRow& row : reach.RowsGet())
        for (const ReachHour& hour : row.aHours)
            if (hour.fFrequency > 0.0F)
                fSum += hour.fSnr;
    return fSum;
}

TEST(StudiesSoak, SearchesForStations)
{
    // Enough places to fill the cache before memory is first measured.
    const int nPlaces = RoundsGet(25, 6);
    const SoakWatch watch;
    SoakRig rig(nPlaces);
    rig.StartWithEngine();
    frmReach& frm = rig.ReachOpen();
    float fFirst = 0.0F;
    const auto Search = [&](int nQuestion) {
        rig.QuestionSet(nQuestion);
        frm.frm->cmdFind->click();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, kWaitMax));
        ASSERT_EQ(frm.ReachGet()->DoneGet(), static_cast<std::size_t>(nPlaces));
        for (const ReachRow& row : frm.ReachGet()->RowsGet())
            ASSERT_EQ(row.eState, ReachState::Answered) << row.sFailure;
    };
    watch.Rounds(
        RoundsGet(2000, 20),
        [&](int nRound) {
            Search(nRound);
            if (nRound == 1)
                fFirst = SnrSum(*frm.ReachGet());
        },
        [&] { return frm.CacheBytesGet(); });
    Search(1);
    EXPECT_EQ(SnrSum(*frm.ReachGet()), fFirst);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(StudiesSoak, DaysOfAnArea)
{
    const SoakWatch watch;
    SoakRig rig(1);
    rig.ProfileAdd("[Propagation Data]\nCount=4\n");
    rig.m_engine.nChunks = 1;
    frmMain& frm = rig.StartWithEngine();
    Settings& settings = frm.m_settings;
    settings.m_iMapOverlayGridSize = 12;
    ASSERT_EQ(settings.m_nData, 4);
    frm.mnuViewWorldMap->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
    frmMap& map = *frm.m_pMap;
    const MapDayControl& day = *map.findChild<MapDayControl*>();
    const auto Layer = [&](int iLayer) {
        map.findChild<QAction*>(QStringLiteral("mnuOverlayLayer%1").arg(iLayer))->trigger();
    };
    watch.Rounds(
        RoundsGet(500, 20),
        [&](int nRound) {
            rig.QuestionSet(nRound);
            map.Update();
            Layer(1 + nRound % 3);
            ASSERT_TRUE(QTest::qWaitFor([&] { return !day.RunGet().RunningIs(); }, kWaitMax));
            ASSERT_TRUE(day.HasCells());
            ASSERT_EQ(day.RequestGet().fSunSpotNumber, settings.m_fPropagationSunSpotNumber);
            ASSERT_TRUE(day.RunGet().HoursGet().all());
            map.barHour->hscHour->setValue(nRound % 24);
            MainRig::EventsRun();
            rig.m_engine.asDeck.clear();
        },
        [&] { return day.RunGet().CacheBytesGet(); });
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(StudiesSoak, OpeningsOfEveryPlanningWindow)
{
    const SoakWatch watch;
    SoakRig rig(2);
    frmMain& frm = rig.StartWithEngine();
    const auto Opened = [](const auto& pWindow) {
        return QTest::qWaitFor([&] { return pWindow && pWindow->isVisible(); });
    };
    watch.Rounds(RoundsGet(500, 10), [&](int nRound) {
        for (QAction* pItem : {frm.mnuPlanReach, frm.mnuPlanDays, frm.mnuPlanCompare,
                               frm.mnuPlanCurves, frm.mnuPlanPlaces, frm.mnuFilePrintCard})
            pItem->trigger();
        ASSERT_TRUE(Opened(frm.m_pReach) && Opened(frm.m_pDays) && Opened(frm.m_pCompare)
                    && Opened(frm.m_pCurves) && Opened(frm.m_pPlaces) && Opened(frm.m_pCard));
        // In every other round they are closed while they work.
        if (nRound % 2 == 0) {
            ASSERT_TRUE(QTest::qWaitFor(
                [&] {
                    return !frm.m_pReach->RunningIs() && !frm.m_pDays->RunningIs()
                           && !frm.m_pCompare->RunningIs();
                },
                kWaitMax));
        }
        MainRig::EventsRun();
        for (QWidget* pWindow :
             std::initializer_list<QWidget*>{frm.m_pReach, frm.m_pDays, frm.m_pCompare,
                                             frm.m_pCurves, frm.m_pPlaces, frm.m_pCard})
            pWindow->close();
        MainRig::EventsRun();
        ASSERT_TRUE(frm.m_pReach.isNull() && frm.m_pDays.isNull() && frm.m_pCompare.isNull()
                    && frm.m_pCurves.isNull() && frm.m_pPlaces.isNull() && frm.m_pCard.isNull());
    });
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

}  // namespace
