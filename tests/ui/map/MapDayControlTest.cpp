// The map's day with an engine that answers area by area.
#include "MapDayFakes.h"

namespace {

class MapDay : public MapDayWindow {};

constexpr int kAll = 24 * 3;

TEST_F(MapDay, TheOverlayAsItsItemShowsItAsksForNoDay)
{
    OverlayShow();
    EXPECT_TRUE(m_pMap->barHour->isVisible());
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 10000.0KHz @ 06:00"));
    m_pEngine->Let(1);
    QTest::qWait(50);
    EXPECT_EQ(m_pEngine->m_nRuns, 0);
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral("Snr 52.0 dB"))) << "of the program";
}

TEST_F(MapDay, TheBarStandsBelowTheMapWhichKeepsScaleAndCentre)
{
    m_pMap->resize(800, 600);
    m_pMap->m_view.ZoomSet(m_pMap->m_view.BoxGetZoom({50, 200, 10, 260}));
    m_pMap->Update();
    const QRect rctFrame = m_pMap->pctFrame->geometry();
    const QRect rctSource = m_pMap->m_view.m_rctSource;
    const double dScale = m_pMap->m_view.m_dScale;
    const LatLon center = m_pMap->m_view.CenterGet();
    for (int n = 0; n < 3; ++n) {
        OverlayShow();
        const QRect rctBar = m_pMap->barHour->geometry();
        EXPECT_GT(rctBar.top(), m_pMap->pctFrame->geometry().bottom());
        EXPECT_LT(rctBar.bottom(), m_pMap->cmdZoomOff->y());
        EXPECT_EQ(rctBar.left(), rctFrame.left());
        EXPECT_EQ(rctBar.right(), rctFrame.right());
        EXPECT_EQ(m_pMap->m_view.m_dScale, dScale);
        EXPECT_NEAR(m_pMap->m_view.CenterGet().dLat, center.dLat, 0.2);
        EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, center.dLon, 0.2);
        m_pMap->mnuOverlayDraw->trigger();
        EXPECT_EQ(m_pMap->pctFrame->geometry(), rctFrame);
        EXPECT_EQ(m_pMap->m_view.m_rctSource, rctSource) << "back and forth moves nothing";
    }
}

TEST_F(MapDay, MovingTheBarShowsTheHourOfTheDayOnceItIsThere)
{
    OverlayShow();
    HourKey(Qt::Key_Right);
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map")) << "not there yet";
    EXPECT_FALSE(TipAt({300, 200}).contains(QStringLiteral("Snr")));
    m_pEngine->Let(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 07:00")));
    EXPECT_EQ(m_host.m_settings.m_selected.iHour, 8) << "the main window's selection goes along";
    const QPoint pt(300, 200);
    const QString sSnr =
        QString::number(EngineOfAreas::SnrGet(GridLatOf(pt), 7, 10000.0F, 50.0F), 'f', 1);
    EXPECT_TRUE(TipAt(pt).contains(QStringLiteral("Snr %1 dB, Rng ").arg(sSnr)))
        << TipAt(pt).toStdString() << sSnr.toStdString();
}

TEST_F(MapDay, OtherEnginesGoHourByHourFromTheOneShownOnItsFrequencyAlone)
{
    OverlayShow();
    HourKey(Qt::Key_Right);
    m_pEngine->Let(2);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 07:00")));
    ASSERT_TRUE(RunsBecome(2));
    HourKey(Qt::Key_Right);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 08:00")));
    m_pEngine->Let(kAll);
    ASSERT_TRUE(RunsBecome(24)) << "the other frequencies are not asked for";
    QTest::qWait(50);
    EXPECT_EQ(m_pEngine->m_nRuns, 24);
    HourKey(Qt::Key_Up);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 14000.0KHz @ 08:00")));
    ASSERT_TRUE(RunsBecome(48));
}

TEST_F(MapDay, ProgressIsToldAndEscapeStopsTheWorkAndKeepsWhatIsThere)
{
    LayerChoose(1);
    m_pEngine->Let(4);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return m_pMap->barHour->lblWork->text() == QStringLiteral("4 of 72"); }));
    ASSERT_TRUE(BegunBecome(5));
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    ASSERT_TRUE(m_pMap && m_pMap->isVisible());
    EXPECT_EQ(m_pMap->barHour->lblWork->text(), QStringLiteral("stopped"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_pEngine->m_nStopped == 1; }));
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral(" kHz, Snr ")));
    HourKey(Qt::Key_Right);  // asks again from there on
    m_pEngine->Let(kAll);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 07:00")));
    ASSERT_TRUE(RunsBecome(kAll)) << "no run twice";
    QTest::qWait(50);
    EXPECT_EQ(m_pEngine->m_nRuns, kAll);
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    EXPECT_TRUE(IsGoneSoon()) << "nothing under way: it is Cancel";
}

TEST_F(MapDay, LayersTellTheirValuesInTipsAndLegends)
{
    m_pEngine->Let(100'000);
    const QPoint pt(300, 200);
    const double dLat = GridLatOf(pt);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    float fBest = 0.0F;
    for (const float fKhz : {7000.0F, 10000.0F, 14000.0F})
        if (fBest == 0.0F
            || EngineOfAreas::SnrGet(dLat, 6, fKhz, 50) > EngineOfAreas::SnrGet(dLat, 6, fBest, 50))
            fBest = fKhz;
    EXPECT_TRUE(TipAt(pt).contains(QStringLiteral(", %1 kHz, Snr ").arg(double{fBest})))
        << TipAt(pt).toStdString();
    LayerChoose(2);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Days in Ten, 10000.0KHz @ 06:00")));
    const AreaSpread spread{EngineOfAreas::SnrGet(dLat, 6, 10000, 50), 10.0F, 5.0F};
    DaysCell cell;
    cell.fShare =
        static_cast<float>(DaysShareGet({spread.fMedian, 10.0, 5.0}, 40.0, DaySteps::P842));
    EXPECT_TRUE(TipAt(pt).contains(QStringLiteral(", %1 days in ten").arg(cell.DaysInTenGet())))
        << TipAt(pt).toStdString();
    LayerChoose(3);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Hours Open a Day")));
    int nOpen = 0;
    for (int iHour = 0; iHour < 24; ++iHour) {
        float fSnr = -99.0F;
        for (const float fKhz : {7000.0F, 10000.0F, 14000.0F})
            fSnr = std::max(fSnr, EngineOfAreas::SnrGet(dLat, iHour, fKhz, 50));
        nOpen += fSnr >= 40.0F ? 1 : 0;
    }
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return TipAt(pt).contains(QStringLiteral(", %1 hours open, Rng ").arg(nOpen)); },
        20000))
        << TipAt(pt).toStdString() << nOpen;
}

TEST_F(MapDay, AnotherNeedIsJudgedWithoutARun)
{
    m_pEngine->Let(kAll);
    LayerChoose(3);
    ASSERT_TRUE(RunsBecome(kAll));
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Hours Open a Day")));
    const QString sBefore = TipAt({300, 200});
    m_host.m_settings.m_sNeedSelected = "AM broadcast";  // 62 dB is never reached
    Q_EMIT m_host.SettingsSignalGet().NeedChosen();
    EXPECT_NE(TipAt({300, 200}), sBefore);
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral(", 0 hours open")));
    EXPECT_EQ(m_pEngine->m_nRuns, kAll);
}

TEST_F(MapDay, PlayGoesOverMidnightAndWaitsForHoursThatAreNotThereYet)
{
    OverlayShow();
    HourKey(Qt::Key_End);
    Day().PlayPaceSet(1);
    HourKey(Qt::Key_Space);
    EXPECT_TRUE(Day().PlayingIs());
    m_pEngine->Let(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 23:00")));
    QTest::qWait(50);
    EXPECT_EQ(m_pMap->barHour->hscHour->value(), 23) << "waits";
    m_pEngine->Let(kAll);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 05:00")));
    HourKey(Qt::Key_Space);
    EXPECT_FALSE(Day().PlayingIs());
}

TEST_F(MapDay, SpacePlaysOnlyWithTheFocusOnTheBar)
{
    OverlayShow();
    m_pMap->vscMap->setFocus();
    QTest::keyClick(m_pMap->vscMap, Qt::Key_Space);
    EXPECT_FALSE(Day().PlayingIs());
    QTest::mouseClick(m_pMap->barHour->cmdPlay, Qt::LeftButton);
    EXPECT_TRUE(Day().PlayingIs());
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    EXPECT_FALSE(Day().PlayingIs());
    EXPECT_TRUE(m_pMap && m_pMap->isVisible());
}

TEST_F(MapDay, WorkThatEscapeHasStoppedIsNotBegunAnewByThePlay)
{
    OverlayShow();
    Day().PlayPaceSet(1);
    HourKey(Qt::Key_Space);
    ASSERT_TRUE(BegunBecome(1));
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_pEngine->m_nStopped == 1; }));
    QTest::qWait(50);
    EXPECT_FALSE(Day().RunGet().RunningIs());
    EXPECT_EQ(m_pEngine->m_nBegun, 1);
    EXPECT_EQ(m_pMap->barHour->lblWork->text(), QStringLiteral("stopped"));
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    EXPECT_TRUE(IsGoneSoon()) << "nothing under way: it is Cancel";
}

TEST_F(MapDay, ARubberBandLeavesNothingBehindInAPictureThatWasRenewedBelowIt)
{
    m_pEngine->Let(kAll);
    LayerChoose(1);
    ASSERT_TRUE(RunsBecome(kAll));
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Day().RunGet().RunningIs(); }));
    HourKey(Qt::Key_Right);
    const QImage img = m_pMap->pctMap->m_img.copy();
    HourKey(Qt::Key_Left);
    const auto Move = [&](QPoint pt) {
        QMouseEvent evt(QEvent::MouseMove, pt, m_pMap->pctMap->mapToGlobal(pt), Qt::NoButton,
                        Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_pMap->pctMap, &evt);
    };
    QTest::mousePress(m_pMap->pctMap, Qt::LeftButton, {}, {300, 200});
    Move({400, 300});
    HourKey(Qt::Key_Right);  // as playing does
    EXPECT_EQ(m_pMap->pctMap->m_img, img);
    Move({310, 210});
    QTest::mouseRelease(m_pMap->pctMap, Qt::LeftButton, {}, {310, 210});
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Best Frequency @ 07:00"));
    EXPECT_EQ(m_pMap->pctMap->m_img, img);
}

TEST_F(MapDay, EscapeEndsThePlayOfADayThatIsThere)
{
    m_pEngine->Let(kAll);
    OverlayShow();
    HourKey(Qt::Key_Right);
    ASSERT_TRUE(RunsBecome(24));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Day().RunGet().RunningIs(); }));
    HourKey(Qt::Key_Space);
    ASSERT_TRUE(Day().PlayingIs());
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    EXPECT_FALSE(Day().PlayingIs());
    EXPECT_TRUE(m_pMap && m_pMap->isVisible());
    EXPECT_TRUE(m_pMap->barHour->lblWork->text().isEmpty());
}

TEST_F(MapDay, ArrowsScrollTheMapSaveWithTheFocusOnTheBar)
{
    OverlayShow();
    const MapBox box = m_pMap->m_view.m_box;
    m_pMap->barHour->hscHour->setFocus();
    HourKey(Qt::Key_Left);
    EXPECT_EQ(m_pMap->barHour->hscHour->value(), 5);
    EXPECT_DOUBLE_EQ(m_pMap->m_view.m_box.dLeft, box.dLeft);
    EXPECT_TRUE(m_pMap->mnuOverlayDraw->isChecked());
    m_pMap->vscMap->setFocus();
    QTest::keyClick(m_pMap->vscMap, Qt::Key_Left);
    EXPECT_LT(m_pMap->m_view.m_box.dLeft, box.dLeft);
    EXPECT_FALSE(m_pMap->barHour->isVisible()) << "scrolling removes the overlay, and the bar";
}

TEST_F(MapDay, HidingTheOverlayEndsTheDayAndTheItemShowsItsOwnPictureAgain)
{
    LayerChoose(1);
    EXPECT_TRUE(m_pMap->mnuOverlayDraw->isChecked());
    ASSERT_TRUE(BegunBecome(1));
    m_pMap->mnuOverlayDraw->trigger();
    EXPECT_FALSE(m_pMap->mnuOverlayDraw->isChecked());
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_pEngine->m_nStopped == 1; }));
    OverlayShow();
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 10000.0KHz @ 06:00"));
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral("Snr 52.0 dB")));
}

TEST_F(MapDay, OtherSettingsAreAskedForAnewAndTheirOldPictureGoes)
{
    m_pEngine->Let(kAll);
    LayerChoose(1);
    ASSERT_TRUE(RunsBecome(kAll));
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    m_host.m_settings.m_iPropagationMonth = 7;
    m_pMap->Update();
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
    EXPECT_FALSE(TipAt({300, 200}).contains(QStringLiteral("kHz")));
    m_pEngine->Let(kAll);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    ASSERT_TRUE(RunsBecome(2 * kAll));
    m_host.m_settings.m_iPropagationMonth = 6;
    m_pMap->Update();
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Best Frequency @ 06:00")) << "kept";
    EXPECT_EQ(m_pEngine->m_nRuns, 2 * kAll);
}

TEST_F(MapDay, TheListAndTheSunspotNumberAreThoseOfTheRunThatIsOver)
{
    m_pEngine->Let(100'000);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    // Another list, and a sunspot number that only the run finds out: windows are told before and
    // after the run.
    m_host.m_inputTable = RequestFromSettings(m_host.m_settings);
    m_host.m_settings.m_nData = 2;
    m_host.m_settings.FrequencySet(2, 21000.0F);
    m_host.Update();
    m_host.m_settings.m_fPropagationSunSpotNumber = 33.0F;
    m_host.m_inputTable = RequestFromSettings(m_host.m_settings);
    Q_EMIT m_host.SettingsSignalGet().TableRenewed();
    ASSERT_EQ(m_pMap->barHour->cmbFrequency->count(), 2);
    EXPECT_EQ(m_pMap->barHour->cmbFrequency->itemText(1), QStringLiteral("21000 kHz"));
    ASSERT_NE(Day().RunGet().RequestGet(), nullptr);
    EXPECT_EQ(Day().RunGet().RequestGet()->area.fSunSpotNumber, 33.0F);
    EXPECT_EQ(Day().RunGet().RequestGet()->afFrequency, (std::vector<float>{7000.0F, 21000.0F}));
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    EXPECT_EQ(Day().RequestGet().fSunSpotNumber, 33.0F);
}

TEST_F(MapDay, PictureBarAndTipsGoWithTheChoiceThatTheMenuTakesFromTheTable)
{
    m_pEngine->Let(100'000);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    ASSERT_TRUE(RunsBecome(kAll));
    m_host.m_settings.m_selected = {2, 13};
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    m_pMap->mnuOverlay->close();
    EXPECT_EQ(m_pMap->barHour->hscHour->value(), 12);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 12:00")));
    EXPECT_EQ(Day().ShownGet().iHour, 12);
    EXPECT_EQ(m_host.m_settings.m_selected.iHour, 13) << "nobody has chosen on the map";
    LayerChoose(2);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Days in Ten, 10000.0KHz @ 12:00")));
    m_host.m_settings.m_selected = {3, 13};
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    m_pMap->mnuOverlay->close();
    EXPECT_EQ(m_pMap->barHour->cmbFrequency->currentIndex(), 2);
    EXPECT_TRUE(TitleBecomes(QStringLiteral("Days in Ten, 14000.0KHz @ 12:00")));
}

TEST_F(MapDay, TheBarsListIsTheTablesBeforeTheDayHasBegun)
{
    OverlayShow();
    ASSERT_EQ(m_pMap->barHour->cmbFrequency->count(), 3);
    m_host.m_settings.m_nData = 2;
    Q_EMIT m_host.SettingsSignalGet().TableRenewed();
    ASSERT_EQ(m_pMap->barHour->cmbFrequency->count(), 2);
    EXPECT_EQ(m_pEngine->m_nBegun, 0) << "the overlay's own picture stays";
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 10000.0KHz @ 06:00"));
}

TEST_F(MapDay, AFailureIsToldWithoutABoxAndWhatIsThereStays)
{
    OverlayShow();
    HourKey(Qt::Key_Right);
    m_pEngine->Let(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 07:00")));
    m_pEngine->m_failure = Failure{FailureKind::BadOutput, "it broke"};
    m_pEngine->Let(1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_host.m_sOverlayFailed == "it broke"; }));
    EXPECT_EQ(m_pMap->txtCursor->text(), QStringLiteral("No overlay: it broke"));
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 10000.0KHz @ 07:00"));
    EXPECT_TRUE(m_pMap->barHour->lblWork->text().isEmpty()) << "the work is over";
}

TEST_F(MapDay, AnEngineThatIsNotThereIsTold)
{
    m_pEngine->m_obstacle = Failure{FailureKind::NotInstalled, "VOACAP not found."};
    LayerChoose(3);
    EXPECT_EQ(m_host.m_sOverlayFailed, "VOACAP not found.");
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
    m_pEngine->m_obstacle.reset();
    m_pEngine->Let(kAll);
    LayerChoose(1);
    EXPECT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    EXPECT_TRUE(m_host.m_sOverlayFailed.empty());
}

TEST_F(MapDay, ClosingDuringWorkEndsIt)
{
    LayerChoose(3);
    m_pEngine->Let(1);
    ASSERT_TRUE(BegunBecome(2));
    m_pMap->close();
    EXPECT_TRUE(IsGoneSoon());
    EXPECT_EQ(m_pEngine->m_nStopped, 1);
}

TEST_F(MapDay, SmoothRunsBetweenThePointsOfTheDayInPictureAndTip)
{
    m_pEngine->Let(kAll);
    OverlayShow();
    HourKey(Qt::Key_Right);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Snr Overlay, 10000.0KHz @ 07:00")));
    const QImage imgCells = m_pMap->pctMap->m_img;
    m_pMap->mnuOverlaySmooth->trigger();
    EXPECT_NE(m_pMap->pctMap->m_img, imgCells);
    const QPoint pt(300, 200);
    const double dLat = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y()).dLat;
    // Here the engine's values change evenly between points.
    const double dSnr = EngineOfAreas::SnrGet(dLat, 7, 10000.0F, 50.0F);
    const QString sTip = TipAt(pt);
    const double dTip =
        sTip.mid(sTip.indexOf(QStringLiteral("Snr ")) + 4).section(u' ', 0, 0).toDouble();
    EXPECT_NEAR(dTip, dSnr, 0.2) << sTip.toStdString();
    EXPECT_NE(GridLatOf(pt), dLat);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 07:00")));
    const QImage imgBest = m_pMap->pctMap->m_img;
    m_pMap->mnuOverlaySmooth->trigger();
    EXPECT_EQ(m_pMap->pctMap->m_img, imgBest) << "frequencies have nothing between them";
}

TEST_F(MapDay, PlayingForDaysHoldsNoMoreMemory)
{
    m_pEngine->Let(kAll);
    LayerChoose(1);
    ASSERT_TRUE(RunsBecome(kAll));
    const std::size_t nBytes = Day().RunGet().CacheBytesGet();
    EXPECT_GT(nBytes, 0u);
    int nHours = 0;
    Day().PlayPaceSet(0);
    HourKey(Qt::Key_Space);
    int iLast = -1;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const int iHour = m_pMap->barHour->hscHour->value();
            nHours += iHour != iLast ? 1 : 0;
            iLast = iHour;
            return nHours > 3 * 24;
        },
        60000));
    EXPECT_EQ(Day().RunGet().CacheBytesGet(), nBytes);
    EXPECT_EQ(m_pEngine->m_nRuns, kAll);
}

TEST_F(MapDay, AChoiceInTheRequiredMenusHidesTheDayAsItHidesTheOverlay)
{
    LayerChoose(1);
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    m_pMap->mnuOverlay->close();
    m_pMap->mnuOverlayTimeData[3]->trigger();
    EXPECT_FALSE(m_pMap->mnuOverlayDraw->isChecked());
    EXPECT_FALSE(m_pMap->barHour->isVisible());
}

TEST_F(MapDay, ZoomOffComputesTheNewView)
{
    m_pEngine->Let(100'000);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    EXPECT_TRUE(TipAt(PointOf(-30, 90)).contains(QStringLiteral("kHz, Snr")));
}

TEST_F(MapDay, AViewTooCloseToAPoleForAnAreaShowsNoCellsOfTheOneBefore)
{
    m_pEngine->Let(100'000);
    LayerChoose(1);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Best Frequency @ 06:00")));
    m_pMap->m_view.ZoomSet(m_pMap->m_view.BoxGetZoom({89.98, 200, 89.95, 200.05}));
    ASSERT_TRUE(OverlayGetBoxes(m_pMap->m_view.m_box, m_pMap->m_view.m_dEdge).empty());
    m_host.m_settings.m_nData = 1;
    m_pMap->Update();
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
    EXPECT_FALSE(Day().HasCells());
    HourKey(Qt::Key_Right);
    EXPECT_FALSE(Day().HasCells());
    EXPECT_FALSE(TipAt({300, 200}).contains(QStringLiteral("kHz")));
}

TEST_F(MapDay, TheCaptionSaysWhatTheLayerIs)
{
    m_pEngine->Let(100'000);
    LayerChoose(3);
    ASSERT_TRUE(TitleBecomes(QStringLiteral("Hours Open a Day")));
    const QString sCaption = CaptionGet();
    EXPECT_TRUE(sCaption.contains(QStringLiteral("hours open a day on the best of 3 frequencies")))
        << sCaption.toStdString();
    EXPECT_TRUE(sCaption.endsWith(QStringLiteral("need: E-mail, normal, 40 dB")));
    EXPECT_FALSE(sCaption.contains(QStringLiteral("06:00")));
}

}  // namespace
