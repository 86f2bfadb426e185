/// The table as shown: labels, texts, colours, tooltips, speech.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "propagation/PowerTable.h"
#include "propagation/SnrScale.h"
#include "ui/details/frmDetails.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

QStringList HoursGet(const frmMain& frm)
{
    QStringList asHours;
    for (int iHour = 1; iHour <= 24; ++iHour) asHours.append(frm.grdData->TextGet(0, iHour));
    return asHours;
}

TEST(FrmMainTable, HasOneRowPerFrequencyAndOneColumnPerHour)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->RowsGet(), 16);
    EXPECT_EQ(frm.grdData->ColsGet(), 25);
    EXPECT_EQ(frm.grdData->TextGet(1, 0), QStringLiteral("2000"));
    EXPECT_EQ(frm.grdData->TextGet(15, 0), QStringLiteral("30000"));
    EXPECT_EQ(frm.grdData->TextGet(0, 0), QString());
}

TEST(FrmMainTable, HourColumnsAreAsWideAsTheirToken)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    const int nWidth = frm.fontMetrics().horizontalAdvance(QStringLiteral("---00"));
    for (int iHour = 1; iHour <= 24; ++iHour) EXPECT_EQ(frm.grdData->ColWidthGet(iHour), nWidth);
}

TEST(FrmMainTable, WholeTableIsVisibleAtTheDefaultSize)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(frm.grdData->verticalScrollBar()->maximum(), 0);
}

TEST(FrmMainTable, ZuluHoursRunFromZero)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    const QStringList asHours = HoursGet(frm);
    EXPECT_EQ(asHours.first(), QStringLiteral("00"));
    EXPECT_EQ(asHours.at(9), QStringLiteral("09"));
    EXPECT_EQ(asHours.last(), QStringLiteral("23"));
    EXPECT_EQ(frm.grdData->CellGet(0, 5).eAlignment, Qt::AlignCenter);
}

struct ZoneCase {
    const char* sName;
    DateTime dtUtc;
    DateTime dtLocal;
    const char* sFirst;
    int iZeroColumn;  ///< first column after midnight
    const char* sZero;
    const char* sClock;
};
std::ostream& operator<<(std::ostream& stm, const ZoneCase& c) { return stm << c.sName; }

class FrmMainZone : public testing::TestWithParam<ZoneCase> {};

TEST_P(FrmMainZone, LocalHoursFollowTheComputersZone)
{
    MainRig rig;
    rig.ProfileAdd("[Time Data]\nCode=1\n");
    rig.m_dtUtc = GetParam().dtUtc;
    rig.m_dtLocal = GetParam().dtLocal;
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->TextGet(0, 1), QString::fromLatin1(GetParam().sFirst));
    EXPECT_EQ(HoursGet(frm).indexOf(QLatin1String(GetParam().sZero)) + 1, GetParam().iZeroColumn);
    EXPECT_EQ(frm.lblTime->text(), QString::fromLatin1(GetParam().sClock));
    // The selected column is that of the UTC hour, whatever its label.
    EXPECT_EQ(frm.DataGetSelected().iHour, GetParam().dtUtc.nHour + 1);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Zones, FrmMainZone, testing::Values(
    ZoneCase{"utc_plus_10", {2026, 11, 21, 13, 5, 0}, {2026, 11, 21, 23, 5, 0}, "10", 15, "00", "Local: 23:05"},
    ZoneCase{"utc_plus_10_next_day", {2026, 11, 21, 20, 5, 0}, {2026, 11, 22, 6, 5, 0}, "10", 15, "00", "Local: 06:05"},
    ZoneCase{"utc_plus_14", {2026, 11, 21, 13, 5, 0}, {2026, 11, 22, 3, 5, 0}, "14", 11, "00", "Local: 03:05"},
    ZoneCase{"utc_minus_7", {2026, 11, 21, 13, 5, 0}, {2026, 11, 21, 6, 5, 0}, "17", 8, "00", "Local: 06:05"},
    ZoneCase{"utc_minus_7_day_before", {2026, 11, 21, 3, 5, 0}, {2026, 11, 20, 20, 5, 0}, "17", 8, "00", "Local: 20:05"},
    ZoneCase{"a_minute_passes_between_the_clocks", {2026, 11, 21, 13, 59, 59}, {2026, 11, 22, 0, 0, 0}, "10", 15, "00", "Local: 00:00"},
    ZoneCase{"utc_plus_5_30_first_half", {2026, 11, 21, 13, 5, 0}, {2026, 11, 21, 18, 35, 0}, "05:30", 20, "00:30", "Local: 18:35"},
    ZoneCase{"utc_plus_5_30_second_half", {2026, 11, 21, 13, 45, 0}, {2026, 11, 21, 19, 15, 0}, "05:30", 20, "00:30", "Local: 19:15"},
    ZoneCase{"utc_minus_3_30", {2026, 11, 21, 2, 5, 0}, {2026, 11, 20, 22, 35, 0}, "20:30", 5, "00:30", "Local: 22:35"},
    ZoneCase{"utc_plus_5_45", {2026, 11, 21, 13, 5, 0}, {2026, 11, 21, 18, 50, 0}, "05:45", 20, "00:45", "Local: 18:50"}));
// clang-format on

/// The Chatham Islands, 13 hours 45 minutes ahead of UTC.
struct QuarterRig : MainRig {
    QuarterRig()
    {
        ProfileAdd("[Time Data]\nCode=1\n");
        m_dtLocal = {2026, 11, 22, 2, 50, 0};
    }
};

TEST(FrmMainTable, LabelsWithMinutesAreWhollySeen)
{
    QuarterRig rig;
    const frmMain& frm = rig.Start();
    ASSERT_EQ(frm.grdData->TextGet(0, 1), QStringLiteral("13:45"));
    for (int iHour = 1; iHour <= 24; ++iHour)
        EXPECT_GT(frm.grdData->ColWidthGet(iHour),
                  frm.grdData->fontMetrics().horizontalAdvance(frm.grdData->TextGet(0, iHour)));
}

TEST(FrmMainTable, DetailsTellALabelWithMinutesAsItIs)
{
    QuarterRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {3, 5});
    ASSERT_NE(frm.m_pDetails, nullptr);
    EXPECT_EQ(frm.m_pDetails->windowTitle(),
              QStringLiteral("Hopcast - Details by Frequency - 17:45"));
    EXPECT_EQ(frm.m_pDetails->lblHour->text(), QStringLiteral("17:45 Local"));
}

TEST(FrmMainTable, TheTipOfHoursTellsWhetherTheyHaveMinutes)
{
    QuarterRig rig;
    frmMain& frm = rig.Start();
    CellMouseMove(*frm.grdData, {0, 5});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Local Time (hh:mm)"));
}

TEST(FrmMainTable, OtherTimeCodesLeaveTheClockAlone)
{
    MainRig rig;
    rig.ProfileAdd("[Time Data]\nCode=7\n");
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu:  00:00"));
    EXPECT_EQ(frm.grdData->TextGet(0, 1), QStringLiteral("00"));
}

TEST(FrmMainTable, ClockChangesOnItsTickOnly)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.tmrTime->interval(), 60000);
    EXPECT_TRUE(frm.tmrTime->isActive());
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu: 13:05"));
    rig.m_dtUtc.nMinute = 6;
    MainRig::EventsRun();
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu: 13:05"));
    frm.tmrTime->setInterval(1);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return frm.lblTime->text() == QStringLiteral("Zulu: 13:06"); }));
}

TEST(FrmMainTable, TimeCodeTakesEffectAtTheTickAndAtTheUpdate)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_dtLocal.nHour = 23;
    frm.m_settings.m_iTimeCode = 1;
    frm.tmrTime->setInterval(1);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return frm.lblTime->text() == QStringLiteral("Local: 23:05"); }));
    EXPECT_EQ(frm.grdData->TextGet(0, 1), QStringLiteral("00"));
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.grdData->TextGet(0, 1), QStringLiteral("10"));
}

struct BandCase {
    double dSnr;
    const char* sText;
    QRgb nColor;
};
std::ostream& operator<<(std::ostream& stm, const BandCase& c) { return stm << c.dSnr; }

class FrmMainBand : public testing::TestWithParam<BandCase> {};

TEST_P(FrmMainBand, ColoursTheCell)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int iHour, int i) {
        return iHour == 2 && i == 3 ? GetParam().dSnr : 50.0;
    };
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->TextGet(3, 2), QString::fromLatin1(GetParam().sText));
    EXPECT_EQ(frm.grdData->CellGet(3, 2).clrBack.rgb(), GetParam().nColor);
    EXPECT_EQ(frm.grdData->CellGet(3, 2).clrFore, TextColorOn(QColor(GetParam().nColor)));
    EXPECT_EQ(frm.grdData->CellGet(3, 3).clrBack.rgb(), qRgb(0, 0, 255));
}

INSTANTIATE_TEST_SUITE_P(
    Thresholds, FrmMainBand,
    testing::Values(
        BandCase{70, "70", qRgb(255, 128, 255)}, BandCase{69.9, "70", qRgb(255, 0, 255)},
        BandCase{65, "65", qRgb(255, 0, 255)}, BandCase{64.9, "65", qRgb(192, 0, 192)},
        BandCase{60, "60", qRgb(192, 0, 192)}, BandCase{59.9, "60", qRgb(128, 0, 128)},
        BandCase{55, "55", qRgb(128, 0, 128)}, BandCase{54.9, "55", qRgb(0, 0, 255)},
        BandCase{50, "50", qRgb(0, 0, 255)}, BandCase{49.9, "50", qRgb(0, 0, 192)},
        BandCase{45, "45", qRgb(0, 0, 192)}, BandCase{44.9, "45", qRgb(0, 0, 128)},
        BandCase{40, "40", qRgb(0, 0, 128)}, BandCase{39.9, "40", qRgb(128, 128, 128)},
        BandCase{2.5, "3", qRgb(128, 128, 128)}, BandCase{-0.4, "0", qRgb(128, 128, 128)},
        BandCase{-99, "-99", qRgb(128, 128, 128)}, BandCase{-150, "-99", qRgb(128, 128, 128)}));

TEST(FrmMainTable, UnderAnOwnPowerColourAndNumberOfACellAgree)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int, int) { return 49.7; };
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->CellGet(1, 1).clrBack, ColorFromBgr(SnrGetColor(49.7F)));
    frm.m_settings.m_fStationPower = static_cast<float>(PowerInForceGet(
        0.0, kEngineVoacap, frm.m_settings.m_iPropagationAntennaType, DeckKind::PointToPoint));
    frm.Update();
    EXPECT_EQ(frm.grdData->TextGet(1, 1), QStringLiteral("50"));
    EXPECT_EQ(frm.grdData->CellGet(1, 1).clrBack, ColorFromBgr(SnrGetColor(50.0F)));
}

TEST(FrmMainTable, ValuesBelowTheLeastAreReplacedInTheTableItself)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int, int) { return -150.0; };
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.TableGet().fSnr(1, 1), -99.0F);
    EXPECT_EQ(frm.TableGet().fSnr(24, 15), -99.0F);
}

TEST(FrmMainTable, RowsFollowALongerAndAShorterList)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_nData = 3;
    rig.m_engine.nChunks = 1;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.grdData->RowsGet(), 4);
    frm.m_settings.m_nData = 9;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.grdData->RowsGet(), 10);
    EXPECT_EQ(frm.grdData->TextGet(9, 24), QStringLiteral("33"));
}

TEST(FrmMainTable, ToolTipsTellWhatTheMouseIsOver)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->toolTip(),
              QStringLiteral("Predicted SNR by Hour and Frequency (bigger is better)"));
    CellMouseMove(*frm.grdData, {0, 4});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Zulu Time (hh)"));
    CellMouseMove(*frm.grdData, {6, 0});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Frequency (kHz)"));
    CellMouseMove(*frm.grdData, {6, 4});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Signal-to-Noise (dB)"));
    CellMouseMove(*frm.grdData, {0, 0});
    EXPECT_EQ(frm.grdData->toolTip(), QString());
    frm.m_settings.m_iTimeCode = 1;
    CellMouseMove(*frm.grdData, {0, 5});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Local Time (hh)"));
    frm.m_settings.m_iTimeCode = 5;
    CellMouseMove(*frm.grdData, {0, 6});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Local Time (hh)"));
}

TEST(FrmMainTable, ToolTipShowsAfreshAtEachNewPosition)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouseMove(*frm.grdData, {6, 4});
    ToolTipRecorder recorder(frm.grdData);
    CellMouseMove(*frm.grdData, {6, 4});  // the same point again
    EXPECT_TRUE(recorder.m_asText.isEmpty());
    CellMouseMove(*frm.grdData, {6, 4}, {1, 1});
    EXPECT_EQ(recorder.m_asText, (QStringList{QString(), QStringLiteral("Signal-to-Noise (dB)")}));
}

TEST(FrmMainTable, ControlsHaveTheirToolTips)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    const std::vector<std::pair<QWidget*, const char*>> aTips{
        {frm.txtLat0, "Receiver Latitude"},
        {frm.txtLon0, "Receiver Longitude"},
        {frm.txtLat1, "Transmitter Latitude"},
        {frm.txtLon1, "Transmitter Longitude"},
        {frm.cmdUpdate, "Update Propagation Table"},
        {frm.cmdRcAirmail, "Set Receiver Location from Airmail's Database"},
        {frm.cmdTxAirmail, "Set Tranmitter Loction from Airmail's Database"},
        {frm.cmdRcMap, "Edit Lat and Lon via World Map"},
        {frm.cmdTxMap, "Edit Lat and Lon via World Map"},
        {frm.lblRange, "Range (mni)"},
        {frm.lblRcBearing, "Bearing Tx to Rc (Deg)"},
        {frm.lblTxBearing, "Bearing Rc to Tx (Deg)"},
        {frm.lblTime, "Time (hh:mm)"}};
    for (const auto& [pWidget, sTip] : aTips)
        EXPECT_EQ(pWidget->toolTip(), QString::fromUtf8(sTip)) << sTip;
    EXPECT_EQ(frm.fraRange->title(), QStringLiteral("Range and Bearing"));
    EXPECT_FALSE(frm.cmdRcAirmail->icon().isNull());
    EXPECT_FALSE(frm.cmdTxAirmail->icon().isNull());
}

TEST(FrmMainTable, LegendShowsEachBandInItsColour)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    QStringList asBand;
    for (const QLabel* pBand : frm.pctLegend->findChildren<QLabel*>()) {
        asBand.append(pBand->text());
        if (!pBand->autoFillBackground())
            continue;
        const float fSnr = pBand->text().remove(QLatin1Char('+')).toFloat();  // "< 40" becomes 0
        EXPECT_EQ(pBand->palette().color(QPalette::Window), ColorFromBgr(frm.SnrGetColor(fSnr)));
    }
    EXPECT_EQ(asBand.join(QLatin1Char('|')),
              QStringLiteral("SNR (dB in 1 Hz)|< 40|40|45|50|55|60|65|70+"));
}

TEST(FrmMainTable, SpeaksFrequencyHourAndValue)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const auto Spoken = [&] {
        return frm.grdData->model()->index(6, 13).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(Spoken(), QStringLiteral("14000 kHz, 13 Zulu, 21 dB"));
    frm.m_settings.m_iTimeCode = 1;
    EXPECT_EQ(Spoken(), QStringLiteral("14000 kHz, 13 Local, 21 dB"));
    frm.grdData->TextSet(7, 14, {});
    EXPECT_EQ(Spoken(), QStringLiteral("14000 kHz, 13 Local, no value"));
}

TEST(FrmMainTable, TheCornerHasNoToolTip)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouseMove(*frm.grdData, {3, 6});
    EXPECT_NE(frm.grdData->toolTip(), QString());
    auto* pCorner = frm.grdData->findChild<QAbstractButton*>({}, Qt::FindDirectChildrenOnly);
    ASSERT_NE(pCorner, nullptr);
    MouseMoveTo(*pCorner, {3, 3});
    EXPECT_EQ(frm.grdData->toolTip(), QString());
}

}  // namespace
