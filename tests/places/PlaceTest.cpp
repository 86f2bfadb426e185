#include <gtest/gtest.h>

#include "places/Place.h"

namespace {

TEST(PlaceKind, IsThatOfTheStationMenusWhateverTheCase)
{
    EXPECT_EQ(PlaceKindOf("HAM"), PlaceKind::Ham);
    EXPECT_EQ(PlaceKindOf("ham"), PlaceKind::Ham);
    EXPECT_EQ(PlaceKindOf("SailMail"), PlaceKind::SailMail);
    EXPECT_EQ(PlaceKindOf("Coast"), PlaceKind::Other);
    EXPECT_EQ(PlaceKindOf("HAMS"), PlaceKind::Other);
    EXPECT_EQ(PlaceKindName(PlaceKind::Own), "My places");
}

TEST(OwnFrequencies, AreTheNumbersInRangeHoweverTheyAreSeparated)
{
    using F = std::vector<float>;
    EXPECT_EQ(OwnFrequenciesGet("3590,7103,14098"), (F{3590, 7103, 14098}));
    EXPECT_EQ(OwnFrequenciesGet("5085.8 / 7469.3"), (F{5085.8F, 7469.3F}));
    EXPECT_EQ(OwnFrequenciesGet("14105.5;closed on Sundays"), (F{14105.5F}));
    EXPECT_EQ(OwnFrequenciesGet("1600 1599.9 30000 30000.1 1600.0"), (F{1600, 30000}));
    EXPECT_EQ(OwnFrequenciesGet("24 h, 7e3, -7000, 7000k, inf"), F{});
    EXPECT_EQ(OwnFrequenciesGet("7103,7103"), (F{7103}));
    EXPECT_EQ(OwnFrequenciesGet(""), F{});
}

TEST(OwnFrequencies, TellTheFirstPartThatWasLeftOut)
{
    std::string sLeftOut = "untouched";
    (void)OwnFrequenciesGet("7103 14105", &sLeftOut);
    EXPECT_EQ(sLeftOut, "untouched");
    (void)OwnFrequenciesGet("7103 24 h", &sLeftOut);
    EXPECT_EQ(sLeftOut, "24");
}

TEST(PlaceFaults, AreCountedAndTheFirstFiveNamed)
{
    EXPECT_EQ(PlaceFaultsText({}), "");
    EXPECT_EQ(PlaceFaultsText({{"line 7", "it has no name"}}),
              "1 place cannot be used: line 7 (it has no name)");
    std::vector<PlaceFault> aFaults;
    for (char chr = 'a'; chr <= 'g'; ++chr) aFaults.push_back({std::string(1, chr), "bad"});
    EXPECT_EQ(PlaceFaultsText(aFaults),
              "7 places cannot be used: a (bad), b (bad), c (bad), d (bad), e (bad) and 2 more");
}

}  // namespace
