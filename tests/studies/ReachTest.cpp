#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "studies/reach/Reach.h"
#include "system/NumberLib.h"

namespace {

constexpr float kNone = -999.0F;

Place PlaceAt(double dLat, double dLon, std::vector<float> afFrequency = {})
{
    Place place;
    place.sKey = "P";
    place.dLat = dLat;
    place.dLon = dLon;
    place.afFrequency = std::move(afFrequency);
    return place;
}

ReachInput AskedMake()
{
    ReachInput input;
    input.base.nData = 2;
    input.base.afFrequency = {0.0F, 7000.0F, 14000.0F};
    input.base.dRcLat = 10.0;
    input.base.dRcLon = 20.0;
    input.base.dTxLat = 99.0;
    input.base.fPower = 100.0F;
    input.fNeed = 40.0F;
    input.iFrom = 15;
    input.nHours = 6;
    return input;
}

/// A prediction whose frequencies have these SNRs by hour of UTC, and no others.
Prediction PredictionOf(const Request& request, const std::vector<std::map<int, float>>& aSnr)
{
    Prediction prediction;
    prediction.bOk = true;
    prediction.table = PropagationTable(request.nData);
    prediction.table.request = request;
    prediction.table.fRange = 1234.5F;
    prediction.table.fAzimuthRcTx = 56.75F;
    for (int i = 1; i <= request.nData; ++i) {
        prediction.table.PresentSet(i, i, true);
        for (int iHour = 0; iHour < kReachHours; ++iHour) {
            const auto& mapSnr = aSnr.at(static_cast<std::size_t>(i - 1));
            const auto it = mapSnr.find(iHour);
            prediction.table.fSnr(iHour + 1, i) = it == mapSnr.end() ? kNone : it->second;
        }
    }
    return prediction;
}

std::array<ReachHour, kReachHours> HoursOf(const std::vector<int>& aiOpen)
{
    std::array<ReachHour, kReachHours> aHours;
    for (const int i : aiOpen) aHours.at(static_cast<std::size_t>(i)) = {50.0F, 7000.0F};
    return aHours;
}

std::string TwoDigits(int iHour) { return NumberFormat(static_cast<double>(iHour), "00"); }

TEST(ReachRequest, IsTheBaseWithThePlaceAsTransmitterAndHereAsReceiver)
{
    const ReachInput input = AskedMake();
    Request expected = input.base;
    expected.dTxLat = -5.0;
    expected.dTxLon = 6.0;
    EXPECT_EQ(ReachRequestGet(input, PlaceAt(-5, 6)), expected);
}

TEST(ReachRequest, HasThePlacesOwnFrequenciesWhereTheyAreAskedForAndThere)
{
    ReachInput input = AskedMake();
    const Place place = PlaceAt(1, 2, {5881.0F, 7971.5F, 10317.0F});
    EXPECT_EQ(ReachRequestGet(input, place).nData, 2);
    input.bOwnFrequencies = true;
    const Request request = ReachRequestGet(input, place);
    EXPECT_EQ(request.nData, 3);
    EXPECT_EQ(request.afFrequency, (std::vector<float>{0.0F, 5881.0F, 7971.5F, 10317.0F}));
    EXPECT_EQ(ReachRequestGet(input, PlaceAt(1, 2)).afFrequency, input.base.afFrequency);
}

TEST(ReachRow, HasTheBestFrequencyOfEachHour)
{
    const ReachInput input = AskedMake();
    const Place place = PlaceAt(1, 2);
    const ReachRow row = ReachRowGet(
        input, place,
        PredictionOf(ReachRequestGet(input, place),
                     {{{15, 48.0F}, {16, 30.0F}, {17, -120.0F}}, {{15, 47.0F}, {16, 30.0F}}}));
    EXPECT_EQ(row.eState, ReachState::Answered);
    EXPECT_EQ(row.aHours[15].fSnr, 48.0F);
    EXPECT_EQ(row.aHours[15].fFrequency, 7000.0F);
    EXPECT_EQ(row.aHours[16].fFrequency, 7000.0F) << "of two alike the first";
    for (const std::size_t i : {17U, 18U}) {
        EXPECT_TRUE(std::isnan(row.aHours[i].fSnr)) << i;
        EXPECT_EQ(row.aHours[i].fFrequency, 0.0F);
    }
    EXPECT_EQ(row.fMargin, 8.0F);
    EXPECT_EQ(row.dRange, 1234.5);
    EXPECT_EQ(row.dBearing, 56.75);
}

TEST(ReachRow, LeavesOutAFrequencyThatHasNoValues)
{
    const ReachInput input = AskedMake();
    const Place place = PlaceAt(1, 2);
    Prediction prediction =
        PredictionOf(ReachRequestGet(input, place), {{{15, 48.0F}}, {{15, 40.0F}}});
    prediction.table.PresentSet(1, 1, false);
    EXPECT_EQ(ReachRowGet(input, place, prediction).aHours[15].fFrequency, 14000.0F);
    EXPECT_EQ(ReachCellsGet(prediction).size(), 24U);
    prediction.table.PresentSet(2, 2, false);
    prediction.aFailures.push_back({FailureKind::BadOutput, "Nothing came."});
    const ReachRow row = ReachRowGet(input, place, prediction);
    EXPECT_EQ(row.eState, ReachState::Failed);
    EXPECT_EQ(row.sFailure, "Nothing came.");
    EXPECT_EQ(row.opening.nWait, -1);
}

TEST(ReachCells, AreEveryHourAndFrequency)
{
    const ReachInput input = AskedMake();
    const auto aCells = ReachCellsGet(PredictionOf(input.base, {{{0, 1.0F}}, {{0, 2.0F}}}));
    ASSERT_EQ(aCells.size(), 48U);
    EXPECT_EQ(aCells[1].iHour, 0);
    EXPECT_EQ(aCells[1].fFrequency, 14000.0F);
    EXPECT_EQ(aCells[1].fSnr, 2.0F);
    EXPECT_EQ(aCells[47].iHour, 23);
}

TEST(ReachRow, KeepsItsCellsWhereTheyAreAskedFor)
{
    ReachInput input = AskedMake();
    const Place place = PlaceAt(1, 2);
    const Prediction prediction =
        PredictionOf(ReachRequestGet(input, place), {{{0, 1.0F}}, {{0, 2.0F}}});
    EXPECT_TRUE(ReachRowGet(input, place, prediction).aCells.empty());
    input.bCells = true;
    EXPECT_EQ(ReachRowGet(input, place, prediction).aCells.size(), 48U);
}

struct OpeningCase {
    const char* sName;
    std::vector<int> aiOpen;
    int iFrom, nHours, nWait, nLength;
    const char* sText;
};
std::ostream& operator<<(std::ostream& stm, const OpeningCase& c) { return stm << c.sName; }

class ReachOpenings : public testing::TestWithParam<OpeningCase> {};

TEST_P(ReachOpenings, AreFoundWithinTheHoursAndLastAsLongAsTheyDo)
{
    const OpeningCase& c = GetParam();
    const ReachOpening opening = ReachOpeningGet(HoursOf(c.aiOpen), 40.0F, c.iFrom, c.nHours);
    EXPECT_EQ(opening.nWait, c.nWait);
    EXPECT_EQ(opening.nLength, c.nLength);
    EXPECT_EQ(ReachOpeningText(opening, c.iFrom, TwoDigits), c.sText);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReachOpenings,
    testing::Values(
        OpeningCase{"Never", {}, 15, 24, -1, 0, "-"},
        OpeningCase{"NowOverMidnight", {22, 23, 0, 1, 2}, 23, 6, 0, 4, "now-02"},
        OpeningCase{"NowOneHour", {15}, 15, 6, 0, 1, "now-15"},
        OpeningCase{"Later", {18, 19}, 15, 6, 3, 2, "from 18"},
        OpeningCase{"LaterOverMidnight", {23, 0, 1}, 20, 6, 3, 3, "from 23"},
        OpeningCase{"TomorrowMorning", {1}, 20, 6, 5, 1, "from 01"},
        OpeningCase{"OneHourTooLate", {2}, 20, 6, -1, 0, "-"},
        OpeningCase{"TheHourBefore", {19}, 20, 24, 23, 1, "from 19"},
        OpeningCase{"OutlastsTheHours", {16, 17, 18, 19}, 15, 2, 1, 4, "from 16"},
        OpeningCase{
            "HalfADay", {12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23}, 15, 1, 0, 9, "now-23"},
        OpeningCase{
            "AllDay",
            {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23},
            15,
            6,
            0,
            24,
            "all day"}),
    [](const auto& test) { return std::string(test.param.sName); });

TEST(ReachOpening, TheNeedItselfIsEnough)
{
    auto aHours = HoursOf({5});
    EXPECT_EQ(ReachOpeningGet(aHours, 50.0F, 5, 1).nWait, 0);
    EXPECT_EQ(ReachOpeningGet(aHours, 50.1F, 5, 24).nWait, -1);
}

/// Six places whose predictions have SNRs on the first of two frequencies only.
class ReachRanking : public testing::Test {
protected:
    ReachRanking() : m_reach(AskedMake(), std::vector<Place>(6, PlaceAt(1, 2))) {}
    void Add(std::size_t iPlace, const std::map<int, float>& mapSnr)
    {
        m_reach.Add(iPlace, PredictionOf(m_reach.InputGet().base, {mapSnr, {}}));
    }
    using Order = std::vector<std::size_t>;
    Reach m_reach;
};

TEST_F(ReachRanking, IsOpenNowByMarginThenByNextOpeningThenClosedFailedAndWaiting)
{
    m_reach.Add(5, Prediction());
    Add(1, {{15, 45.0F}});
    Add(2, {{17, 90.0F}});
    Add(3, {{16, 41.0F}});
    Add(4, {{15, 48.0F}});
    EXPECT_EQ(m_reach.DoneGet(), 5U);
    EXPECT_EQ(m_reach.RankingGet(), (Order{4, 1, 3, 2, 5, 0}));
    Add(0, {{22, 90.0F}, {16, 39.0F}});  // opens after the hours that count
    EXPECT_EQ(m_reach.RankingGet(), (Order{4, 1, 3, 2, 0, 5}));
    EXPECT_EQ(m_reach.RowsGet()[5].eState, ReachState::Failed);
}

TEST_F(ReachRanking, OfEqualOpeningsTakesTheBetterOneAndOfEqualRowsThePlacesOrder)
{
    Add(0, {{17, 41.0F}});
    Add(1, {{17, 60.0F}});
    Add(2, {{17, 41.0F}});
    Add(3, {{16, 20.0F}});
    Add(4, {{16, 30.0F}});
    Add(5, {});
    EXPECT_EQ(m_reach.RankingGet(), (Order{1, 0, 2, 4, 3, 5}));
}

TEST_F(ReachRanking, IsJudgedAnewForAnotherNeedAndOtherHours)
{
    Add(0, {{15, 45.0F}, {2, 80.0F}});
    Add(1, {{17, 90.0F}});
    m_reach.Judge(50.0F, 15, 6);
    EXPECT_EQ(m_reach.RowsGet()[0].fMargin, -5.0F);
    EXPECT_EQ(m_reach.RankingGet()[0], 1U);
    m_reach.Judge(50.0F, 22, 6);
    EXPECT_EQ(m_reach.RankingGet()[0], 0U);
    EXPECT_EQ(m_reach.RowsGet()[0].opening.nWait, 4);
    EXPECT_EQ(m_reach.RowsGet()[2].eState, ReachState::Waiting);
    EXPECT_EQ(m_reach.RowsGet()[2].opening.nWait, -1);
}

TEST_F(ReachRanking, ASecondAnswerOfAPlaceReplacesTheFirst)
{
    Add(0, {{15, 45.0F}});
    Add(0, {{15, 60.0F}});
    EXPECT_EQ(m_reach.DoneGet(), 1U);
    EXPECT_EQ(m_reach.RowsGet()[0].fMargin, 20.0F);
    EXPECT_EQ(m_reach.RowsGet()[3].iPlace, 3U);
}

TEST(Reach, KnowsRangeAndBearingFromHereBeforeAnyAnswer)
{
    ReachInput input = AskedMake();
    input.base.dRcLat = 0.0;
    input.base.dRcLon = 0.0;
    const Reach reach(input, {PlaceAt(0, 90), PlaceAt(0, 0), PlaceAt(0, 180), PlaceAt(-30, 0)});
    EXPECT_NEAR(reach.RowsGet()[0].dRange, 90 * 60, 10.0);
    EXPECT_NEAR(reach.RowsGet()[0].dBearing, 90.0, 1e-9);
    EXPECT_EQ(reach.RowsGet()[1].dRange, 0.0);
    EXPECT_EQ(reach.RowsGet()[1].dBearing, 0.0);
    EXPECT_NEAR(reach.RowsGet()[2].dRange, 180 * 60, 20.0);
    EXPECT_NEAR(reach.RowsGet()[3].dBearing, 180.0, 1e-9);
    EXPECT_TRUE(Reach(input, {}).RankingGet().empty());
}

}  // namespace
