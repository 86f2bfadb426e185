#include <QSignalSpy>

#include "MapDayFakes.h"
#include "engine/builtin/BuiltInEngine.h"
#include "ui/map/MapDayRun.h"

namespace {

MapDayRequest AskedMake(int nGridSize)
{
    Settings settings;
    settings.m_fPropagationSunSpotNumber = 100;
    MapDayRequest request;
    request.area = AreaRequestFromSettings(settings);
    request.area.nGridSize = nGridSize;
    request.afFrequency = {7000.0F, 14000.0F};
    request.aBoxes = {{-30, 30, 150, 180}, {-30, 30, -180, -150}};
    return request;
}

bool EndsSoon(const MapDayRun& run)
{
    return QTest::qWaitFor([&] { return !run.RunningIs(); }, 60000);
}

TEST(MapDayRun, TheEngineInThisProcessAnswersCoarselyFirst)
{
    const TempFolder folder;
    MapDayRun run;
    std::vector<int> anGrid;
    QObject::connect(&run, &MapDayRun::Renewed, [&] {
        if (const MapDayGrid* pGrid = run.GridGet({5, {}}))
            anGrid.push_back(pGrid->at(0)->request.area.nGridSize);
    });
    run.Ask(AskedMake(24), std::make_shared<BuiltInEngine>(folder.Path()), {});
    EXPECT_TRUE(run.RunningIs());
    EXPECT_EQ(run.GridGet({5, {}}), nullptr);
    EXPECT_EQ(run.CountGet(), 2u * (10 + 24));
    ASSERT_TRUE(EndsSoon(run));
    EXPECT_EQ(anGrid, (std::vector<int>{10, 24}));
    EXPECT_TRUE(run.HoursGet().all());
    EXPECT_TRUE(run.SpreadIs()) << "also unasked";
    EXPECT_EQ(run.GridGet({5, {}})->size(), 2u);
    MapDayRequest request = AskedMake(24);
    request.bSpread = true;
    run.Ask(request, std::make_shared<BuiltInEngine>(folder.Path()), {});
    EXPECT_FALSE(run.RunningIs()) << "another layer of the same day";
}

TEST(MapDayRun, WorkThatWasStoppedGoesOnWhereItEnded)
{
    const auto pEngine = std::make_shared<EngineOfAreas>();
    MapDayRun run;
    pEngine->Let(5);
    run.Ask(AskedMake(4), pEngine, {20, {}});
    ASSERT_TRUE(QTest::qWaitFor([&] { return run.DoneGet() == 5 && pEngine->m_nBegun == 6; }));
    run.Stop();
    EXPECT_FALSE(run.RunningIs());
    EXPECT_NE(run.GridGet({20, {}}), nullptr);
    EXPECT_NE(run.GridGet({20, 1}), nullptr);
    EXPECT_EQ(run.GridGet({21, {}}), nullptr);
    EXPECT_EQ(run.HoursGet().count(), 1u);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pEngine->m_nStopped == 1; }));
    pEngine->Let(1000);
    run.Ask(AskedMake(4), pEngine, {3, {}});
    ASSERT_TRUE(EndsSoon(run));
    EXPECT_EQ(pEngine->m_nRuns, 2 * 24 * 2);
    EXPECT_TRUE(run.HoursGet().all());
    run.Ask(AskedMake(4), pEngine, {3, {}});
    EXPECT_FALSE(run.RunningIs()) << "all is there";
}

TEST(MapDayRun, AFrequencyAloneIsAskedForByItself)
{
    const auto pEngine = std::make_shared<EngineOfAreas>();
    pEngine->Let(1000);
    MapDayRun run;
    run.Ask(AskedMake(4), pEngine, {0, 1});
    ASSERT_TRUE(EndsSoon(run));
    EXPECT_EQ(pEngine->m_nRuns, 2 * 24);
    EXPECT_NE(run.GridGet({9, 1}), nullptr);
    EXPECT_EQ(run.GridGet({9, 0}), nullptr);
    EXPECT_EQ(run.GridGet({9, {}}), nullptr);
    EXPECT_EQ(run.GridGet({9, 1})->at(1)->SnrGet(3, 9, 1),
              EngineOfAreas::SnrGet(-30.0, 9, 14000.0F, 50.0F));
}

TEST(MapDayRun, TheFirstFailureEndsTheWork)
{
    const auto pEngine = std::make_shared<EngineOfAreas>();
    pEngine->m_failure = Failure{FailureKind::Timeout, "slow"};
    pEngine->Let(1000);
    MapDayRun run;
    std::vector<std::string> asFailure;
    QObject::connect(&run, &MapDayRun::Failed,
                     [&](const Failure& failure) { asFailure.push_back(failure.sText); });
    run.Ask(AskedMake(4), pEngine, {});
    ASSERT_TRUE(EndsSoon(run));
    QTest::qWait(30);
    EXPECT_EQ(asFailure, std::vector<std::string>{"slow"});
    pEngine->m_failure.reset();
    run.Ask(AskedMake(4), pEngine, {});
    ASSERT_TRUE(EndsSoon(run));
    EXPECT_TRUE(run.HoursGet().all()) << "asked for again it is tried again";
}

TEST(MapDayRun, DaysAreKeptUpToTheirRoomTheOldestGoFirst)
{
    const auto pEngine = std::make_shared<EngineOfAreas>();
    MapDayRun run;
    MapDayRequest request = AskedMake(300);  // 2 x 300 x 300 x 24 x 2 values: 35 MB
    for (int nMonth = 1; nMonth <= 12; ++nMonth) {
        request.area.nMonth = nMonth;
        run.Ask(request, pEngine, {});
        EXPECT_LE(run.CacheBytesGet(), MapDayRun::kCacheBytes);
    }
    EXPECT_GT(run.CacheBytesGet(), MapDayRun::kCacheBytes / 2);
}

TEST(MapDayRun, GoesAwayAtOnceDuringWork)
{
    const auto pEngine = std::make_shared<EngineOfAreas>();
    pEngine->Let(1);
    {
        MapDayRun run;
        run.Ask(AskedMake(4), pEngine, {});
        ASSERT_TRUE(QTest::qWaitFor([&] { return pEngine->m_nBegun == 2; }));
    }
    EXPECT_EQ(pEngine->m_nStopped, 1);
}

}  // namespace
