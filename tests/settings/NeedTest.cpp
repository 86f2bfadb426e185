#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "settings/Need.h"

namespace {

TEST(NeedsShipped, HoldsTheTwelveNeedsWithTheirSources)
{
    const NeedList needs = NeedsShipped();
    ASSERT_EQ(needs.size(), 12U);
    EXPECT_EQ(needs[0],
              (Need{"WSPR", 3.0F, "decoding limit -31 dB in 2500 Hz, its authors' guide"}));
    EXPECT_EQ(needs[11], (Need{"AM broadcast", 62.0F, "estimate"}));
    const std::vector<std::pair<const char*, float>> aExpected{
        {"JS8 normal", 10.0F},     {"FT8", 13.0F},          {"CW by ear", 27.0F},
        {"PSK31", 24.0F},          {"RTTY", 34.0F},         {"E-mail, robust", 30.0F},
        {"E-mail, normal", 40.0F}, {"E-mail, fast", 55.0F}, {"SSB, weak", 44.0F},
        {"SSB, clear", 55.0F}};
    for (std::size_t n = 0; n < aExpected.size(); ++n) {
        EXPECT_EQ(needs[n + 1].sName, aExpected[n].first);
        EXPECT_EQ(needs[n + 1].fSnr, aExpected[n].second);
        EXPECT_FALSE(needs[n + 1].sSource.empty());
    }
}

TEST(NeedsShipped, KeepsItsOwnRules)
{
    NeedList needs;
    for (const Need& need : NeedsShipped()) {
        const auto res = NeedAdd(needs, need);
        EXPECT_TRUE(res) << res.TextGet();
    }
    EXPECT_EQ(needs, NeedsShipped());
}

TEST(NeedFind, LooksUpWithoutRegardToCaseAndBlanks)
{
    const NeedList needs = NeedsShipped();
    for (const char* sName : {"SSB, clear", "ssb, CLEAR", "  SSB, clear "}) {
        const Need* pNeed = NeedFind(needs, sName);
        ASSERT_NE(pNeed, nullptr) << sName;
        EXPECT_EQ(pNeed->fSnr, 55.0F);
    }
    for (const char* sName : {"", "SSB", "SSB, clea", "SSB,clear"})
        EXPECT_EQ(NeedFind(needs, sName), nullptr) << sName;
}

TEST(NeedFromText, TakesANameOrANumber)
{
    const NeedList needs = NeedsShipped();
    EXPECT_EQ(NeedFromText(needs, "ft8").ValueGet().sName, "FT8");
    EXPECT_EQ(NeedFromText(needs, " 12.5 ").ValueGet(), (Need{"", 12.5F, "typed"}));
    EXPECT_EQ(NeedFromText(needs, "-50").ValueGet().fSnr, -50.0F);
}

TEST(NeedFromText, TellsWhatIsNeitherAndNamesTheList)
{
    const NeedList needs{{"CW", 27.0F, "estimate"}, {"RTTY", 34.0F, "estimate"}};
    EXPECT_EQ(NeedFromText(needs, "SSB").TextGet(),
              "\"SSB\" is neither a number of dB nor a need of the list: CW; RTTY.");
    EXPECT_EQ(NeedFromText(needs, "1e2").TextGet(),
              "\"1e2\" is neither a number of dB nor a need of the list: CW; RTTY.");
    EXPECT_EQ(NeedFromText(needs, "151").TextGet(),
              "The need of 151 is outside -50 to 150 dB in 1 Hz.");
    EXPECT_FALSE(NeedFromText(needs, "-50.5"));
    EXPECT_FALSE(NeedFromText(needs, ""));
}

TEST(NeedInForce, IsTheChosenOneElseEMailNormal)
{
    NeedList needs = NeedsShipped();
    EXPECT_EQ(NeedInForce(needs, "rtty").sName, "RTTY");
    EXPECT_EQ(NeedInForce(needs, "").sName, "E-mail, normal");
    EXPECT_EQ(NeedInForce(needs, "gone").fSnr, 40.0F);
    ASSERT_TRUE(NeedChange(needs, kNeedFallback, {"E-mail, normal", 42.0F, "measured"}));
    EXPECT_EQ(NeedInForce(needs, "").fSnr, 42.0F);
    ASSERT_TRUE(NeedRemove(needs, kNeedFallback));
    EXPECT_EQ(NeedInForce(needs, "").fSnr, 40.0F);
}

TEST(NeedList, AddChangeAndRemoveGiveAnotherList)
{
    NeedList needs = NeedsShipped();
    ASSERT_TRUE(NeedAdd(needs, {"  Olivia 16/500 ", 22.0F, " estimate "}));
    ASSERT_EQ(needs.size(), 13U);
    EXPECT_EQ(needs.back(), (Need{"Olivia 16/500", 22.0F, "estimate"}));
    ASSERT_TRUE(NeedChange(needs, "olivia 16/500", {"OLIVIA", 21.5F, "own trial"}));
    EXPECT_EQ(needs.back(), (Need{"OLIVIA", 21.5F, "own trial"}));
    ASSERT_TRUE(
        NeedChange(needs, "OLIVIA", {"Olivia", 21.5F, ""}));  // the same name in another case
    ASSERT_TRUE(NeedRemove(needs, "wspr"));
    EXPECT_EQ(needs.size(), 12U);
    EXPECT_EQ(NeedFind(needs, "WSPR"), nullptr);
}

struct BadNeed {
    const char* sName;
    Need m_need;
    const char* sText;
};
std::ostream& operator<<(std::ostream& stm, const BadNeed& c) { return stm << c.sName; }

class NeedRefused : public testing::TestWithParam<BadNeed> {};

TEST_P(NeedRefused, IsToldAndLeavesTheListAlone)
{
    NeedList needs = NeedsShipped();
    const auto resAdd = NeedAdd(needs, GetParam().m_need);
    EXPECT_FALSE(resAdd);
    EXPECT_EQ(resAdd.TextGet(), GetParam().sText);
    EXPECT_EQ(NeedChange(needs, "FT8", GetParam().m_need).TextGet(), GetParam().sText);
    EXPECT_EQ(needs, NeedsShipped());
}

constexpr const char* kCharacters =
    "the settings cannot keep a character of its name or source. Use letters of western Europe, "
    "digits and signs, without double quotes.";

INSTANTIATE_TEST_SUITE_P(
    Bad, NeedRefused,
    testing::Values(
        BadNeed{"NoName", {" \t", 1.0F, ""}, "Cannot keep the need: it has no name. Type one."},
        BadNeed{
            "Duplicate",
            {"rtty", 1.0F, ""},
            "Cannot keep the need \"rtty\": the list has one of that name. Choose another name, "
            "or change that one."},
        BadNeed{"Number",
                {"40", 40.0F, ""},
                "Cannot keep the need \"40\": a number is not a name. Add a word."},
        BadNeed{"TooHigh",
                {"x", 150.5F, ""},
                "Cannot keep the need \"x\": its ratio of 150.5 is outside -50 to 150 dB in 1 "
                "Hz. Type "
                "another one."},
        BadNeed{
            "NotANumber",
            {"x", std::numeric_limits<float>::quiet_NaN(), ""},
            "Cannot keep the need \"x\": its ratio of nan is outside -50 to 150 dB in 1 Hz. Type "
            "another one."}),
    [](const auto& test) { return std::string(test.param.sName); });

TEST(NeedLimits, CharactersThatTheProfileCannotKeep)
{
    NeedList needs;
    for (const char* sName : {"a\nb", "say \"x\"", "\xD0\x96", "\xFF", "a\x7F"})
        EXPECT_EQ(NeedAdd(needs, {sName, 1.0F, ""}).TextGet(),
                  "Cannot keep the need \"" + std::string(sName) + "\": " + kCharacters);
    EXPECT_FALSE(NeedAdd(needs, {"x", 1.0F, "a\tb"}));
    EXPECT_TRUE(NeedAdd(needs, {"Z\xC3\xBCrich", 1.0F, "\xE2\x82\xAC"}));
}

TEST(NeedLimits, TextsLongerThanTheirLimitsInCharacters)
{
    NeedList needs;
    std::string sName;
    for (std::size_t n = 0; n < kNeedNameMost; ++n) sName += "\xC3\xBC";
    EXPECT_TRUE(NeedAdd(needs, {sName, 1.0F, std::string(kNeedSourceMost, 's')}));
    EXPECT_EQ(NeedAdd(needs, {sName + "x", 1.0F, ""}).TextGet(),
              "Cannot keep the need \"" + sName
                  + "x\": its name is longer than 40 characters. Shorten it.");
    EXPECT_EQ(NeedAdd(needs, {"x", 1.0F, std::string(kNeedSourceMost + 1, 's')}).TextGet(),
              "Cannot keep the need \"x\": its source is longer than 120 characters. Shorten it.");
}

TEST(NeedLimits, FiftyFirstNeedUnknownNameAndRemovalOfTheLast)
{
    NeedList needs;
    for (int n = 1; n <= kNeedMax; ++n)
        ASSERT_TRUE(NeedAdd(needs, {"n" + std::to_string(n), 1.0F, ""}));
    EXPECT_EQ(NeedAdd(needs, {"more", 1.0F, ""}).TextGet(),
              "Cannot add the need \"more\": the list holds 50 already. Remove one first.");
    EXPECT_TRUE(NeedChange(needs, "n1", {"more", 1.0F, ""}));
    EXPECT_EQ(NeedRemove(needs, "n1").TextGet(), "There is no need \"n1\" in the list.");
    EXPECT_FALSE(NeedChange(needs, "n1", {"n1", 1.0F, ""}));
    needs.resize(1);
    EXPECT_EQ(NeedRemove(needs, "more").TextGet(),
              "Cannot remove the need \"more\": it is the last one. Add another first, or restore "
              "the list.");
    EXPECT_EQ(needs.size(), 1U);
}

}  // namespace
