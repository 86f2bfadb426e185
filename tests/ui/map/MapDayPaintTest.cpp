#include <gtest/gtest.h>

#include <QColor>
#include <cmath>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/map/MapDayPaint.h"

namespace {

class MapDayPainted : public testing::Test {
protected:
    MapDayPainted() : m_day(RequestMake())
    {
        m_shown.iHour = 6;
        m_shown.iFrequency = 1;
        m_shown.afFrequency = m_day.request.afFrequency;
        m_shown.fMinSnr = 20.0F;
        m_shown.need = {"E-mail, normal", 40.0F, ""};
        m_shown.hours.set();
        m_shown.fnSnrColor = [](float fSnr) { return SnrGetColor(fSnr); };
        for (std::size_t i = 0; i < 3; ++i) {
            m_day.SnrGet(0, 6, i) = 48.0F + static_cast<float>(i);
            m_day.SpreadGet(0, 6, i) = {48.0F, 10.0F, 5.0F};
        }
        m_day.SnrGet(1, 6, 1) = 19.9F;
    }
    static AreaDayRequest RequestMake()
    {
        AreaDayRequest request;
        request.area.nGridSize = 2;
        request.area.iModel = kEngineVoacap;
        request.afFrequency = {21000.0F, 7000.0F, 14000.0F};
        request.bSpread = true;
        return request;
    }
    void Layer(MapDayLayerKind eLayer) { m_shown.eLayer = eLayer; }
    [[nodiscard]] QString RowsGet() const
    {
        QStringList asRow;
        for (const LegendRow& row : DayLegendGet(m_shown).aRows) asRow.append(row.sText);
        return asRow.join(u'|');
    }
    AreaDay m_day;
    MapDayShown m_shown;
};

TEST_F(MapDayPainted, SnrIsThatOfTheFrequencyInTheColoursOfTheScale)
{
    EXPECT_EQ(DayValueGet(m_shown, m_day, 0), 49.0F);
    EXPECT_FALSE(DayValueGet(m_shown, m_day, 2));
    EXPECT_EQ(DayColorGet(m_shown, 49.0F), SnrGetColor(49.0F));
    EXPECT_EQ(DayTipGet(m_shown, m_day, 0), QStringLiteral(", Snr 49.0 dB"));
    EXPECT_EQ(DayTipGet(m_shown, m_day, 2), QStringLiteral(", no value"));
    EXPECT_EQ(DayLegendGet(m_shown).sHead, QStringLiteral("SNR (dB in 1 Hz)"));
    EXPECT_EQ(DayTitleGet(m_shown), QStringLiteral("Snr Overlay, 7000.0KHz @ 06:00"));
}

TEST_F(MapDayPainted, BestFrequencyIsPaintedFromTheLeastSnrOnAndToldBelowIt)
{
    Layer(MapDayLayerKind::BestFrequency);
    EXPECT_EQ(DayValueGet(m_shown, m_day, 0), 2.0F);
    EXPECT_EQ(DayTipGet(m_shown, m_day, 0), QStringLiteral(", 14000 kHz, Snr 50.0 dB"));
    EXPECT_FALSE(DayValueGet(m_shown, m_day, 1));
    EXPECT_EQ(DayTipGet(m_shown, m_day, 1), QStringLiteral(", 7000 kHz, Snr 19.9 dB"));
    EXPECT_EQ(DayTipGet(m_shown, m_day, 2), QStringLiteral(", no value"));
    EXPECT_EQ(RowsGet(), QStringLiteral("21000|14000|7000")) << "from the highest down";
    EXPECT_EQ(DayLegendGet(m_shown).sFoot, QStringLiteral("drawn from 20 dB"));
    EXPECT_EQ(DayTitleGet(m_shown), QStringLiteral("Best Frequency @ 06:00"));
}

TEST_F(MapDayPainted, EachFrequencyHasTheColourOfItsLegend)
{
    Layer(MapDayLayerKind::BestFrequency);
    m_shown.afFrequency.clear();
    for (int i = 15; i > 0; --i) m_shown.afFrequency.push_back(2000.0F * static_cast<float>(i));
    const std::vector<LegendRow> aRows = DayLegendGet(m_shown).aRows;
    ASSERT_EQ(aRows.size(), 15u);
    for (std::size_t i = 0; i < aRows.size(); ++i) {
        const QColor clr = ColorFromBgr(DayColorGet(m_shown, static_cast<float>(i)));
        EXPECT_EQ(clr.rgb(), aRows[i].nColor) << i;
        EXPECT_GT(clr.lightness(), 60) << "coast lines stay to be seen";
        for (std::size_t j = 0; j < i; ++j) {
            const QColor clrOther(aRows[j].nColor);
            EXPECT_GT(std::abs(clr.red() - clrOther.red())
                          + std::abs(clr.green() - clrOther.green())
                          + std::abs(clr.blue() - clrOther.blue()),
                      30)
                << i << " " << j;
        }
    }
}

TEST_F(MapDayPainted, DaysInTenFollowTheNeed)
{
    Layer(MapDayLayerKind::DaysInTen);
    EXPECT_EQ(DayValueGet(m_shown, m_day, 0), 8.0F);
    EXPECT_EQ(DayTipGet(m_shown, m_day, 0), QStringLiteral(", 8 days in ten"));
    m_shown.need.fSnr = 53.0F;
    EXPECT_EQ(DayValueGet(m_shown, m_day, 0), 1.0F);
    EXPECT_FALSE(DayValueGet(m_shown, m_day, 1)) << "no deciles";
    EXPECT_EQ(DayTipGet(m_shown, m_day, 1), QStringLiteral(", no value"));
    EXPECT_EQ(RowsGet(), QStringLiteral("10|9|8|7|6|5|4|3|2|1|0"));
    EXPECT_EQ(DayLegendGet(m_shown).sHead, QStringLiteral("Days in ten, 7000 kHz"));
    EXPECT_EQ(DayLegendGet(m_shown).sFoot, QStringLiteral("for E-mail, normal, 53 dB"));
    for (int nDays = 0; nDays <= 10; ++nDays)
        EXPECT_EQ(ColorFromBgr(DayColorGet(m_shown, static_cast<float>(nDays))).rgb(),
                  DayLegendGet(m_shown).aRows.at(static_cast<std::size_t>(10 - nDays)).nColor);
}

TEST_F(MapDayPainted, HoursOpenShareAColourByThreesAndZeroStandsAlone)
{
    Layer(MapDayLayerKind::HoursOpen);
    m_day.SnrGet(0, 23, 2) = 40.0F;
    m_day.SnrGet(0, 0, 2) = 39.9F;
    EXPECT_EQ(DayValueGet(m_shown, m_day, 0), 2.0F);
    EXPECT_EQ(DayTipGet(m_shown, m_day, 0), QStringLiteral(", 2 hours open"));
    EXPECT_EQ(DayValueGet(m_shown, m_day, 3), 0.0F);
    EXPECT_EQ(
        RowsGet(),
        QStringLiteral("22 to 24|19 to 21|16 to 18|13 to 15|10 to 12|7 to 9|4 to 6|1 to 3|0"));
    for (int nHours = 0; nHours <= 24; ++nHours)
        EXPECT_EQ(
            ColorFromBgr(DayColorGet(m_shown, static_cast<float>(nHours))).rgb(),
            DayLegendGet(m_shown).aRows.at(static_cast<std::size_t>(8 - (nHours + 2) / 3)).nColor)
            << nHours;
    m_shown.hours.reset(23);
    EXPECT_EQ(DayValueGet(m_shown, m_day, 0), 1.0F);
    EXPECT_EQ(DayLegendGet(m_shown).sHead, QStringLiteral("Hours open of 23"));
}

TEST_F(MapDayPainted, PointsWithoutAValueAreNumbersThatNoLimitLetsThrough)
{
    const std::vector<AreaPoint> aPoints = DayPointsGet(m_shown, m_day);
    ASSERT_EQ(aPoints.size(), 4u);
    EXPECT_EQ(aPoints[0].fSnr, 49.0F);
    EXPECT_TRUE(std::isnan(aPoints[2].fSnr));
}

TEST_F(MapDayPainted, TheFootSaysWhatTheLayerIsAndLeavesOutWhatItIsNotOf)
{
    const std::string sArea = "7000 kHz \xC2\xB7 06:00 UTC \xC2\xB7 dB in 1 Hz \xC2\xB7 100 W";
    EXPECT_EQ(DayFootGet(m_shown, sArea), sArea);
    Layer(MapDayLayerKind::BestFrequency);
    EXPECT_EQ(DayFootGet(m_shown, sArea),
              "best of 3 frequencies \xC2\xB7 06:00 UTC \xC2\xB7 dB in 1 Hz \xC2\xB7 100 W");
    Layer(MapDayLayerKind::DaysInTen);
    EXPECT_EQ(DayFootGet(m_shown, sArea),
              "days in ten \xC2\xB7 " + sArea + " \xC2\xB7 need: E-mail, normal, 40 dB");
    Layer(MapDayLayerKind::HoursOpen);
    EXPECT_EQ(DayFootGet(m_shown, sArea),
              "hours open a day on the best of 3 frequencies \xC2\xB7 dB in 1 Hz \xC2\xB7 100 W "
              "\xC2\xB7 need: E-mail, normal, 40 dB");
}

}  // namespace
