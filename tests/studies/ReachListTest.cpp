#include <gtest/gtest.h>

#include <map>

#include "studies/reach/ReachList.h"

namespace {

constexpr float kNone = -999.0F;

/// A search from 15 UTC for 6 hours with a need of 40. Its places have these SNRs by hour on 7000
/// kHz, and 1 dB less on 14000 kHz.
Reach ReachOf(const std::vector<std::pair<Place, std::map<int, float>>>& aPlaces)
{
    ReachInput input;
    input.base.nData = 2;
    input.base.afFrequency = {0.0F, 7000.0F, 14000.0F};
    input.iFrom = 15;
    input.nHours = 6;
    std::vector<Place> aOnly;
    for (const auto& [place, mapSnr] : aPlaces) aOnly.push_back(place);
    Reach reach(input, aOnly);
    for (std::size_t n = 0; n < aPlaces.size(); ++n) {
        Prediction prediction;
        prediction.bOk = true;
        prediction.table = PropagationTable(2);
        prediction.table.request = ReachRequestGet(input, aOnly[n]);
        prediction.table.fRange = 1000.0F - 100.0F * static_cast<float>(n);
        prediction.table.fAzimuthRcTx = 10.0F * static_cast<float>(n);
        prediction.table.PresentSet(1, 2, true);
        for (int iHour = 0; iHour < kReachHours; ++iHour) {
            const auto it = aPlaces[n].second.find(iHour);
            const float fSnr = it == aPlaces[n].second.end() ? kNone : it->second;
            prediction.table.fSnr(iHour + 1, 1) = fSnr;
            prediction.table.fSnr(iHour + 1, 2) = fSnr - 1.0F;
        }
        reach.Add(n, prediction);
    }
    return reach;
}

Place Named(const std::string& sKey, const std::string& sDescription = {})
{
    Place place;
    place.sSystem = "HAM";
    place.sKey = sKey;
    place.sDescription = sDescription;
    return place;
}

/// Open now with 45; opens at 18 with 60; never above 39; without a value in these hours.
Reach ReachMake()
{
    return ReachOf({{Named("B", "Lago"), {{15, 45.0F}}},
                    {Named("c", "San Luis"), {{15, 20.0F}, {18, 60.0F}}},
                    {Named("A"), {{16, 39.0F}}},
                    {Named("D"), {{3, 70.0F}}}});
}

std::vector<std::size_t> ListOf(const Reach& reach, ReachOrder eOrder)
{
    return ReachListGet(reach, {eOrder, {}});
}

using Rows = std::vector<std::size_t>;

TEST(ReachList, IsInTheOrderAskedFor)
{
    const Reach reach = ReachMake();
    EXPECT_EQ(ListOf(reach, ReachOrder::Use), (Rows{0, 1, 2, 3}));
    EXPECT_EQ(ListOf(reach, ReachOrder::Station), (Rows{2, 0, 1, 3}));
    EXPECT_EQ(ListOf(reach, ReachOrder::Range), (Rows{3, 2, 1, 0}));
    EXPECT_EQ(ListOf(reach, ReachOrder::Bearing), (Rows{0, 1, 2, 3}));
    EXPECT_EQ(ListOf(reach, ReachOrder::Open), (Rows{0, 1, 2, 3}));
}

TEST(ReachList, BeginsWithTheBestAndEndsWithWhatHasNoValue)
{
    Reach reach = ReachMake();
    reach.Judge(40.0F, 18, 6);
    EXPECT_EQ(ListOf(reach, ReachOrder::Now).front(), 1U);
    EXPECT_EQ(ListOf(reach, ReachOrder::Margin).front(), 1U);
    EXPECT_EQ(ListOf(reach, ReachOrder::Frequency).front(), 1U);
    EXPECT_EQ(ListOf(reach, ReachOrder::Now), (Rows{1, 0, 2, 3}));
}

TEST(ReachList, KeepsWhatHasTheTextInAnyCase)
{
    const Reach reach = ReachMake();
    EXPECT_EQ(ReachListGet(reach, {ReachOrder::Use, "lUIS"}), (Rows{1}));
    EXPECT_EQ(ReachListGet(reach, {ReachOrder::Use, "ham"}).size(), 4U);
    EXPECT_TRUE(ReachListGet(reach, {ReachOrder::Use, "Friday"}).empty());
}

TEST(ReachList, KeepsWhatHasTheMarginAtItsBestHourOfThoseThatCount)
{
    Reach reach = ReachMake();
    EXPECT_EQ(ReachListGet(reach, {ReachOrder::Use, {}, 0.0F}), (Rows{0, 1}));
    EXPECT_EQ(ReachListGet(reach, {ReachOrder::Use, {}, 6.0F}), (Rows{1}));
    EXPECT_EQ(ReachListGet(reach, {ReachOrder::Use, {}, -1.0F}), (Rows{0, 1, 2}));
    reach.Judge(40.0F, 15, 2);
    EXPECT_EQ(ReachListGet(reach, {ReachOrder::Use, {}, 0.0F}), (Rows{0}));
}

TEST(ReachList, TheChannelIsThatOfNowOrOfTheOpening)
{
    const Reach reach = ReachMake();
    EXPECT_EQ(ReachChannelGet(reach, reach.RowsGet()[0]), 7000.0F);
    EXPECT_EQ(ReachChannelGet(reach, reach.RowsGet()[1]), 7000.0F);
    EXPECT_EQ(ReachChannelGet(reach, reach.RowsGet()[2]), 0.0F) << "nothing now, and no opening";
    EXPECT_EQ(ReachBestHourGet(reach, reach.RowsGet()[1]), 18);
    EXPECT_EQ(ReachBestHourGet(reach, reach.RowsGet()[3]), -1) << "3 UTC does not count";
}

}  // namespace
