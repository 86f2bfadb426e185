#include <filesystem>
#include <fstream>

#include "MapFakes.h"
#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "ui/map/MapGraticule.h"

namespace {

class frmMapOverlay : public MapWindow {
protected:
    void ZoomSmall() { QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton); }
    [[nodiscard]] bool IsShown() const { return m_pMap->mnuOverlayDraw->isChecked(); }
    EngineFake m_engine;
};

TEST_F(frmMapOverlay, AFailureIsToldToTheMainWindowUntilItIsDrawnOrHidden)
{
    const MsgRecorder msg;
    ZoomSmall();
    m_engine.m_bStart = false;
    OverlayChoose();
    EXPECT_EQ(m_host.m_sOverlayFailed, "Unable to execute REC533 program.");
    m_engine.m_bStart = true;
    m_pMap->Update();
    EXPECT_EQ(m_host.m_sOverlayFailed, "");
    m_engine.m_fnSpoil = [](const std::string&) { return std::string(); };
    m_pMap->Update();
    EXPECT_EQ(m_host.m_sOverlayFailed.rfind("Unable to read the area's grid, ", 0), 0u);
    OverlayChoose();  // hides it
    EXPECT_EQ(m_host.m_sOverlayFailed, "");
    EXPECT_EQ(msg.m_aShown.size(), 2u);
}

TEST_F(frmMapOverlay, DrawRunsTheEngineForTheViewAndPaintsCells)
{
    ZoomSmall();
    m_host.m_settings.m_selected = {7, 13};
    m_pMap->m_posRc = {25, -111};  // the fixed end is the map's own receiver
    m_engine.m_fnSnr = [](double, double dLon) { return dLon < -116 ? 52.0 : 41.0; };
    OverlayChoose();
    EXPECT_TRUE(IsShown());
    ASSERT_EQ(m_engine.m_aRuns.size(), 1u);
    const AreaRun& run = m_engine.m_aRuns[0];
    EXPECT_EQ(run.nGridSize, 40);
    EXPECT_NEAR(run.dWest, m_pMap->m_view.m_box.dLeft - 360, 0.006);
    EXPECT_NEAR(run.dEast, m_pMap->m_view.m_box.dRight - 360, 0.006);
    EXPECT_NEAR(run.dSouth, m_pMap->m_view.m_box.dBottom, 0.006);
    EXPECT_NEAR(run.dNorth, m_pMap->m_view.m_box.dTop, 0.006);
    EXPECT_NE(run.sDeck.find("Freqs    : 14.000"), std::string::npos) << run.sDeck;
    EXPECT_NE(run.sDeck.find("Hours    :     12"), std::string::npos);
    EXPECT_NE(run.sDeck.find("Transmit : 25.00N   111.00W"), std::string::npos);
    EXPECT_NE(run.sDeck.find("System   :  145"), std::string::npos);  // noise without its sign
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 14000.0KHz @ 12:00"));
    EXPECT_EQ(PixelAt(30.3, -119.3), qRgb(0, 0, 255));
    EXPECT_EQ(PixelAt(30.3, -113.3), qRgb(0, 0, 128));
    EXPECT_EQ(m_pMap->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(frmMapOverlay, OutlinesAndGraticuleStayBlackUnderCells)
{
    ZoomSmall();
    OverlayChoose();
    const std::vector<GraticuleLine> aLines = MeridiansGet(m_pMap->m_view);
    ASSERT_FALSE(aLines.empty());
    EXPECT_EQ(m_pMap->pctMap->m_img.pixel(aLines[0].nPixel, 20), qRgb(0, 0, 0));
    int nBlack = 0;
    for (int x = 60; x < m_pMap->pctMap->m_img.width(); ++x)
        nBlack += m_pMap->pctMap->m_img.pixel(x, 300) == qRgb(0, 0, 0) ? 1 : 0;
    EXPECT_GT(nBlack, int(aLines.size()));  // coastlines, too
}

TEST_F(frmMapOverlay, LowPointsStayWhiteAndTheMinimumIsPainted)
{
    ZoomSmall();
    m_engine.m_fnSnr = [](double, double dLon) { return dLon < -116 ? 19.9 : 20.0; };
    OverlayChoose();
    EXPECT_EQ(PixelAt(30.3, -119.3), qRgb(255, 255, 255));
    EXPECT_EQ(PixelAt(30.3, -113.3), qRgb(128, 128, 128));
}

TEST_F(frmMapOverlay, WholeWorldIsTwoRunsSplitAtTheDateLine)
{
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[0].dWest, 0);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[0].dEast, 180);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[1].dWest, -180);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[1].dEast, 0);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[1].dNorth, 89.9);
    EXPECT_EQ(PixelAt(-30, 90.5), qRgb(0, 0, 255));
    EXPECT_EQ(PixelAt(-30, 230.5), qRgb(0, 0, 255));
}

TEST_F(frmMapOverlay, SecondHalfIsNotTriedAfterTheFirstFailed)
{
    MsgRecorder msg;
    m_engine.m_bStart = false;
    OverlayChoose();
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].sText, "Unable to execute REC533 program.");
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(ColoredCount(), 0);  // the outline map
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
}

TEST_F(frmMapOverlay, ChoosingDrawAgainHidesTheOverlay)
{
    const QImage imgPlain = m_pMap->pctMap->m_img.copy();
    OverlayChoose();
    EXPECT_NE(m_pMap->pctMap->m_img, imgPlain);
    OverlayChoose();
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(m_pMap->pctMap->m_img, imgPlain);
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
}

TEST_F(frmMapOverlay, ChoosingAFrequencyOrAnHourWhileShownHidesIt)
{
    ZoomSmall();
    OverlayChoose();
    m_pMap->mnuOverlayFrequencyData[3]->trigger();
    EXPECT_FALSE(IsShown());
    m_pMap->mnuOverlayTimeData[3]->trigger();
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(m_engine.m_aRuns.size(), 1u);
    OverlayChoose();
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 8000.0KHz @ 03:00"));
    m_pMap->mnuOverlayTimeData[4]->trigger();
    EXPECT_FALSE(IsShown());
}

TEST_F(frmMapOverlay, ZoomButtonsBandAndScrollBarsRemoveIt)
{
    const std::pair<const char*, std::function<void()>> aCommands[] = {
        {"zoom in", [this] { QTest::mouseClick(m_pMap->cmdZoomIn, Qt::LeftButton); }},
        {"zoom out", [this] { QTest::mouseClick(m_pMap->cmdZoomOut, Qt::LeftButton); }},
        {"to the ends", [this] { QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton); }},
        {"band",
         [this] {
             Drag(m_pMap->pctMap, {300, 200}, {500, 400});
         }},
        {"across", [this] { QTest::keyClick(m_pMap, Qt::Key_Right); }},
        {"down", [this] { QTest::keyClick(m_pMap, Qt::Key_Down); }},
    };
    for (const auto& [sName, fnCommand] : aCommands) {
        ZoomSmall();
        OverlayChoose();
        ASSERT_TRUE(IsShown()) << sName;
        fnCommand();
        EXPECT_FALSE(IsShown()) << sName;
        EXPECT_GT(ColoredCount(), 1000) << sName;  // sea and land again
    }
}

TEST_F(frmMapOverlay, ZoomOffAndPopupLeaveAnOutlineMapWithoutCells)
{
    const QPoint ptMiddle = m_pMap->pctMap->rect().center();
    const std::pair<const char*, std::function<void()>> aCommands[] = {
        {"off", [this] { QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton); }},
        {"center", [&] { MapMenuChoose(m_pMap->pctMap, ptMiddle, m_pMap->mnuMapCenter); }},
        {"in", [&] { MapMenuChoose(m_pMap->pctMap, ptMiddle, m_pMap->mnuMapZoomIn); }},
        {"out", [&] { MapMenuChoose(m_pMap->pctMap, ptMiddle, m_pMap->mnuMapZoomOut); }},
    };
    for (const auto& [sName, fnCommand] : aCommands) {
        ZoomSmall();
        OverlayChoose();
        EXPECT_GT(ColoredCount(), 1000) << sName;
        const std::size_t nRuns = m_engine.m_aRuns.size();
        fnCommand();
        EXPECT_TRUE(IsShown()) << sName;
        EXPECT_EQ(ColoredCount(), 0) << sName;
        EXPECT_EQ(m_engine.m_aRuns.size(), nRuns) << sName;
        EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map")) << sName;
        OverlayChoose();  // hides it
    }
}

TEST_F(frmMapOverlay, UpdateDrawsItAnew)
{
    ZoomSmall();
    OverlayChoose();
    m_engine.m_fnSnr = [](double, double) { return 66.0; };
    m_pMap->Update();
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_EQ(PixelAt(30.3, -119.3), qRgb(255, 0, 255));
    ZoomSmall();
    m_pMap->Update();
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);  // it was not shown
}

TEST_F(frmMapOverlay, ApplyRunsTheOverlayForTheNewReceiver)
{
    ZoomSmall();
    OverlayChoose();
    m_pMap->m_posRc = {30, -100};
    QTest::mouseClick(m_pMap->cmdApply, Qt::LeftButton);
    ASSERT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_NE(m_engine.m_aRuns[1].sDeck.find("Transmit : 30.00N   100.00W"), std::string::npos);
}

TEST_F(frmMapOverlay, TipTellsTheNearestPointsSnrAndTheRange)
{
    ZoomSmall();
    m_engine.m_fnSnr = [](double dLat, double dLon) { return dLat + dLon / 1000; };
    OverlayChoose();
    const QPoint pt(333, 222);
    const LatLon pos = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
    const std::string sTip = TipAt(pt).toStdString();
    const std::string sStart =
        "Lat " + LatitudeToText(pos.dLat) + ", Lon " + LongitudeToText(pos.dLon) + ", Snr ";
    ASSERT_EQ(sTip.substr(0, sStart.size()), sStart);
    // One degree of arc is 60 nautical miles.
    const double dRange = GreatCircleAngle(24, -110, pos.dLat, pos.dLon) * 180 / kPi * 60;
    EXPECT_EQ(sTip.substr(sTip.find(" dB")), " dB, Rng " + NumberFormat(dRange, "0"));
    const double dSnr = std::stod(sTip.substr(sStart.size()));
    const double dStep = (m_engine.m_aRuns[0].dNorth - m_engine.m_aRuns[0].dSouth) / 39;
    EXPECT_NEAR(dSnr, pos.dLat + pos.dLon / 1000, dStep / 2 + 0.1);
    OverlayChoose();
    EXPECT_EQ(TipAt(pt).toStdString().find("Snr"), std::string::npos);
}

TEST_F(frmMapOverlay, TipKeepsThePointsOfThePictureWhateverTheFile)
{
    ZoomSmall();
    OverlayChoose();
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral("Snr 52.0 dB")));
    std::filesystem::remove(m_engine.GridPath());
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral("Snr 52.0 dB")));
    // A picture without cells has no points for the tip.
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    EXPECT_FALSE(TipAt({300, 200}).contains(QStringLiteral("Snr")));
}

TEST_F(frmMapOverlay, NoTipLookUpWhileBusy)
{
    ZoomSmall();
    OverlayChoose();
    QString sTip;
    Qt::CursorShape eShape = Qt::ArrowCursor;
    m_engine.m_fnWhileRunning = [&] {
        sTip = TipAt({300, 200});
        eShape = m_pMap->cursor().shape();
    };
    m_pMap->Update();
    EXPECT_FALSE(sTip.isEmpty());
    EXPECT_FALSE(sTip.contains(QStringLiteral("Snr")));
    EXPECT_EQ(eShape, Qt::BusyCursor);
    EXPECT_EQ(m_pMap->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(TipAt({300, 200}).contains(QStringLiteral("Snr")));
}

TEST_F(frmMapOverlay, LegendStandsAtTheEdgeWhileShown)
{
    ZoomSmall();
    const auto EdgeGrab = [this] {
        const QRect rct = m_pMap->pctMap->rect();
        return m_pMap->pctMap->grab(QRect(rct.width() - 60, rct.height() / 2 - 20, 50, 40))
            .toImage();
    };
    m_engine.m_fnSnr = [](double, double) { return 0.0; };
    OverlayChoose();
    QImage imgPicture = m_pMap->pctMap->m_img;
    QPixmap pix = QPixmap::fromImage(imgPicture);
    const QRect rct = m_pMap->pctMap->rect();
    EXPECT_NE(EdgeGrab(), pix.copy(rct.width() - 60, rct.height() / 2 - 20, 50, 40).toImage());
}

// Damaged grid files.

class frmMapBadGrid : public frmMapOverlay {
protected:
    frmMapBadGrid()
    {
        ZoomSmall();
        m_host.m_settings.m_iMapOverlayGridSize = 3;
    }
    /// Draws the overlay from a spoilt grid, which gives one box and an outline map without cells;
    /// afterwards the map still works.
    void BadExpect(const std::string& sText, const std::function<std::string(std::string)>& fnSpoil)
    {
        m_engine.m_fnSpoil = fnSpoil;
        MsgRecorder msg;
        OverlayChoose();
        ASSERT_EQ(msg.m_aShown.size(), 1u);
        EXPECT_EQ(msg.m_aShown[0].sText, "Unable to read the area's grid, " + sText);
        EXPECT_EQ(ColoredCount(), 0);
        EXPECT_EQ(m_pMap->cursor().shape(), Qt::ArrowCursor);
        m_engine.m_fnSpoil = {};
        m_pMap->Update();
        EXPECT_EQ(msg.m_aShown.size(), 1u);
        EXPECT_GT(ColoredCount(), 1000);
    }
};

TEST_F(frmMapBadGrid, Letters)
{
    BadExpect("Type mismatch", [](std::string sGrid) { return sGrid.replace(80, 3, "abc"); });
}

TEST_F(frmMapBadGrid, HeadWithoutSnr)
{
    BadExpect("Invalid procedure call or argument",
              [](std::string sGrid) { return sGrid.replace(sGrid.find("SNxx"), 4, "MUFx"); });
}

TEST_F(frmMapBadGrid, Empty)
{
    BadExpect("Input past end of file", [](const std::string&) { return std::string(); });
}

TEST_F(frmMapBadGrid, MorePointsThanAskedFor)
{
    BadExpect("Subscript out of range", [](const std::string& sGrid) {
        return sGrid + sGrid.substr(sGrid.find("xx\n") + 3);
    });
}

TEST_F(frmMapBadGrid, TenMillionLinesEndSoon)
{
    BadExpect("Subscript out of range", [](const std::string& sGrid) {
        const std::string sRow = sGrid.substr(sGrid.rfind('\n', sGrid.size() - 2) + 1);
        std::string sLong = sGrid;
        for (int i = 0; i < 10'000'000; ++i) sLong += sRow;
        return sLong;
    });
}

TEST_F(frmMapBadGrid, CutAtAnyByte)
{
    const AreaRun run{{}, -125, -105, 20, 45, 3};
    const std::string sWhole = m_engine.GridMake(run);
    MsgRecorder msg;
    OverlayChoose();
    ASSERT_TRUE(IsShown());
    // Cutting the line end off the last line loses nothing.
    for (std::size_t nCut = 0; nCut + 1 < sWhole.size(); ++nCut) {
        m_engine.m_fnSpoil = [nCut](const std::string& sGrid) { return sGrid.substr(0, nCut); };
        msg.m_aShown.clear();
        m_pMap->Update();
        ASSERT_EQ(msg.m_aShown.size(), 1u) << nCut;
        const std::string sText = msg.m_aShown[0].sText.substr(msg.m_aShown[0].sText.find(',') + 2);
        ASSERT_TRUE(sText == "Type mismatch" || sText == "Input past end of file"
                    || sText == "Invalid procedure call or argument")
            << nCut << ": " << sText;
    }
}

TEST_F(frmMapBadGrid, Vanished)
{
    m_engine.m_bWriteGrid = false;
    MsgRecorder msg;
    OverlayChoose();
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].sText, "PropagationAreaOpenFile, File not found");
    EXPECT_EQ(ColoredCount(), 0);
    EXPECT_FALSE(TipAt({300, 200}).contains(QStringLiteral("Snr")));
    EXPECT_EQ(msg.m_aShown.size(), 1u);
}

TEST_F(frmMapBadGrid, PointOutsideTheWorldIsNotPainted)
{
    m_engine.m_fnSpoil = [](std::string sGrid) {
        const std::size_t nRow = sGrid.find("xx\n") + 3;
        return sGrid.replace(nRow + 6, 20, "  999.0000 -999.0000");
    };
    OverlayChoose();
    EXPECT_TRUE(IsShown());
    EXPECT_GT(ColoredCount(), 1000);
}

TEST_F(frmMapBadGrid, GridSizeSettingOutOfRangeIsTamed)
{
    m_host.m_settings.m_iMapOverlayGridSize = -5;
    OverlayChoose();
    EXPECT_EQ(m_engine.m_aRuns.at(0).nGridSize, 2);
    EXPECT_GT(ColoredCount(), 1000);
}

}  // namespace
