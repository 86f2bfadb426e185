// The windows when memory is scarce. Not with sanitizers, which need the whole address space.
#ifndef __SANITIZE_ADDRESS__
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

#include "settings/SettingsRange.h"
#include "ui/compare/frmCompare.h"
#include "ui/days/frmDays.h"
#include "ui/map/HourBar.h"
#include "ui/map/MapDayControl.h"
#include "ui/map/frmMap.h"
#include "ui/plan/PlanRig.h"

namespace {

constexpr rlim_t kMegabyte = rlim_t{1} << 20;
constexpr int kWaitMax = 300000;  // ms

/// Limits the process to its present address space plus nBytes while the object exists.
class MoreMemory {
public:
    explicit MoreMemory(rlim_t nBytes)
    {
        std::ifstream stm("/proc/self/statm");
        rlim_t nPages = 0;
        stm >> nPages;
        getrlimit(RLIMIT_AS, &m_before);
        const rlimit limit{nPages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + nBytes,
                           m_before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
    }
    ~MoreMemory() { setrlimit(RLIMIT_AS, &m_before); }
    MoreMemory(const MoreMemory&) = delete;
    MoreMemory& operator=(const MoreMemory&) = delete;

private:
    rlimit m_before{};
};

class ScarceMemory : public testing::Test {
protected:
    ScarceMemory()
    {
        // Otherwise each thread would reserve address space that it does not use.
        mallopt(M_ARENA_MAX, 1);
        rig.OwnPlacesWrite("Near,N18 W130,,\nFar,N47 30 E8 30,,\n");
        frm = &rig.StartWithEngine();
    }
    void MapShow(int nGridSize)
    {
        frm->m_settings.m_iMapOverlayGridSize = nGridSize;
        frm->mnuViewWorldMap->trigger();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(frm->m_pMap));
        day = frm->m_pMap->findChild<MapDayControl*>();
        DayAsk();
    }
    void DayAsk() const
    {
        frm->m_pMap->findChild<QAction*>(QStringLiteral("mnuOverlayLayer1"))->trigger();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !day->RunGet().RunningIs(); }, kWaitMax));
    }

    PlanRig rig;
    frmMain* frm = nullptr;
    const MapDayControl* day = nullptr;
};

TEST_F(ScarceMemory, TheFinestDayOfTheMapAndEveryStudyNeedNoMoreThan200MegabytesBeyondTheStart)
{
    const MoreMemory more(200 * kMegabyte);
    MapShow(kGridSizeMax);
    ASSERT_TRUE(day->HasCells());
    EXPECT_TRUE(day->RunGet().HoursGet().all());
    EXPECT_GT(day->RequestGet().nGridSize, 50);
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("map.png"));
    frm->m_pMap->mnuMapExport->trigger();
    EXPECT_FALSE(QImage(rig.m_sAnswer).isNull());

    const frmReach& frmR = rig.ReachOpen();
    EXPECT_EQ(frmR.ReachGet()->DoneGet(), 2U);
    const frmDays& frmD = rig.WindowOpen(Qt::Key_B, frm->m_pDays);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frmD.RunningIs(); }, kWaitMax));
    EXPECT_GT(frmD.DaysTableGet().table.nData, 0);
    const frmCompare& frmC = rig.WindowOpen(Qt::Key_M, frm->m_pCompare);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frmC.RunningIs(); }, kWaitMax));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST_F(ScarceMemory, ADayForWhichThereIsNoneIsToldAndASmallerOneIsShown)
{
    MapShow(6);
    ASSERT_TRUE(day->HasCells());
    frm->m_settings.m_iMapOverlayGridSize = kGridSizeMax;
    {
        const MoreMemory more(30 * kMegabyte);
        DayAsk();
    }
    EXPECT_EQ(frm->m_pMap->txtCursor->text(),
              QStringLiteral("No overlay: Out of memory. Choose a smaller grid or fewer "
                             "frequencies."));
    frm->m_settings.m_iMapOverlayGridSize = 7;
    DayAsk();
    ASSERT_TRUE(day->HasCells());
    EXPECT_EQ(day->RequestGet().nGridSize, 7);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

}  // namespace
#endif
