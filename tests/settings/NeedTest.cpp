#include <gtest/gtest.h>

#include <set>

#include "settings/Need.h"
#include "settings/SettingsRange.h"

namespace {

TEST(Need, ShippedListHasDifferentNamesNumbersInRangeAndSources)
{
    std::set<std::string> asName;
    for (const Need& need : NeedsShipped()) {
        EXPECT_TRUE(asName.insert(need.sName).second) << need.sName;
        EXPECT_FALSE(need.sName.empty());
        EXPECT_FALSE(need.sSource.empty()) << need.sName;
        EXPECT_TRUE(kRangeNeed.Holds(need.fSnr)) << need.sName;
    }
    EXPECT_EQ(asName.size(), 12U);
    EXPECT_LE(asName.size(), static_cast<std::size_t>(kNeedMax));
}

TEST(Need, IsFoundByItsWholeName)
{
    const std::vector<Need> aNeed = NeedsShipped();
    ASSERT_NE(NeedFind(aNeed, "E-mail, normal"), nullptr);
    EXPECT_EQ(NeedFind(aNeed, "E-mail, normal")->fSnr, 40.0F);
    EXPECT_EQ(NeedFind(aNeed, "E-mail"), nullptr);
    EXPECT_EQ(NeedFind(aNeed, ""), nullptr);
    EXPECT_EQ(NeedFind({}, "FT8"), nullptr);
}

TEST(Need, ADecodingLimitIn2500HzStands34DbHigherIn1Hz)
{
    const std::vector<Need> aNeed = NeedsShipped();
    EXPECT_EQ(NeedFind(aNeed, "WSPR")->fSnr, -31.0F + 34.0F);
    EXPECT_EQ(NeedFind(aNeed, "JS8 normal")->fSnr, -24.0F + 34.0F);
    EXPECT_EQ(NeedFind(aNeed, "FT8")->fSnr, -21.0F + 34.0F);
    EXPECT_EQ(NeedFind(aNeed, "PSK31")->fSnr, -10.0F + 34.0F);
}

}  // namespace
