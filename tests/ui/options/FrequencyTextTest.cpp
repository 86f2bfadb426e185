#include <gtest/gtest.h>

#include <map>
#include <ostream>

#include "support/MsgRecorder.h"
#include "system/TextLib.h"
#include "ui/options/FrequencyText.h"

namespace {

constexpr int kCountBefore = 7;

struct Parsed {
    bool bOk = false;
    int nCount = kCountBefore;
    std::map<int, float> aStored;
    std::vector<MsgShown> aShown;
};

Parsed Parse(const std::string& sText)
{
    const MsgRecorder msg;
    Parsed parsed;
    parsed.bOk = FrequencyListFromText(
        sText, [&](int i, float fKhz) { parsed.aStored[i] = fKhz; }, parsed.nCount);
    parsed.aShown = msg.m_aShown;
    return parsed;
}

std::string Lines(int nLines)
{
    std::string sText = "1000";
    for (int i = 2; i <= nLines; ++i) sText += "\r\n" + std::to_string(1000 * i);
    return sText;
}

std::string Refusal(const std::string& sPiece)
{
    return "Unable to convert \"" + sPiece
           + "\" to a frequency.  Please check for spaces or empty lines.";
}

TEST(FrequencyText, TwoLinesAreTwoFrequencies)
{
    const Parsed parsed = Parse("2000\r\n10000");
    EXPECT_TRUE(parsed.bOk);
    EXPECT_EQ(parsed.nCount, 2);
    EXPECT_EQ(parsed.aStored, (std::map<int, float>{{1, 2000.0F}, {2, 10000.0F}}));
    EXPECT_TRUE(parsed.aShown.empty());
}

TEST(FrequencyText, BlanksAroundANumberAreAccepted)
{
    const Parsed parsed = Parse("  7100.5 \r\n\t14200");
    EXPECT_TRUE(parsed.bOk);
    EXPECT_EQ(parsed.aStored, (std::map<int, float>{{1, 7100.5F}, {2, 14200.0F}}));
}

struct HintCase {
    const char* sText;
    int iLine;
    const char* sHint;
};

TEST(FrequencyText, TheRefusedLineIsToldWithAHint)
{
    for (const HintCase& c : {HintCase{"7100\r\n13,992", 2, "13,992 has a comma"},
                              {"7100\r\n", 2, "Line 2 is empty"},
                              {"\t \r\n7100", 1, "Line 1 is empty"},
                              {"7000 14000", 1, "7000 14000 has a space"},
                              {"7100\r\n7200\r\n14.2MHz", 3, "14.2MHz has a letter"},
                              {" 1.2.3 ", 1, "1.2.3 is not a number"},
                              {"1,000000000000000000000", 1, "Line 1 has a comma"}}) {
        const MsgRecorder msg;
        FrequencyRefused refused;
        int nCount = 0;
        EXPECT_FALSE(FrequencyListFromText(
            c.sText, [](int, float) {}, nCount, &refused));
        EXPECT_EQ(refused.iLine, c.iLine) << c.sText;
        EXPECT_EQ(refused.sHint, c.sHint);
    }
}

TEST(FrequencyText, OfTooManyLinesTheSixteenthIsTold)
{
    const MsgRecorder msg;
    FrequencyRefused refused;
    int nCount = 0;
    EXPECT_FALSE(FrequencyListFromText(
        Lines(17), [](int, float) {}, nCount, &refused));
    EXPECT_EQ(refused.iLine, 16);
    EXPECT_EQ(refused.sHint, "Line 16 is one too many");
}

struct RefusedCase {
    const char* sName;
    const char* sText;
    const char* sPiece;
    std::size_t nStored;
};
std::ostream& operator<<(std::ostream& stm, const RefusedCase& c) { return stm << c.sName; }

class FrequencyTextRefused : public testing::TestWithParam<RefusedCase> {};

TEST_P(FrequencyTextRefused, StopsAtTheBadLineAndKeepsTheCount)
{
    const Parsed parsed = Parse(GetParam().sText);
    EXPECT_FALSE(parsed.bOk);
    EXPECT_EQ(parsed.nCount, kCountBefore);
    EXPECT_EQ(parsed.aStored.size(), GetParam().nStored);
    ASSERT_EQ(parsed.aShown.size(), 1U);
    EXPECT_EQ(parsed.aShown[0].eIcon, MsgIcon::None);
    EXPECT_EQ(parsed.aShown[0].sText, Refusal(TextForMessage(GetParam().sPiece)));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, FrequencyTextRefused,
    testing::Values(RefusedCase{"Empty", "", "", 0}, RefusedCase{"BreakAtEnd", "1\r\n2\r\n", "", 2},
                    RefusedCase{"EmptyLineBetween", "1\r\n\r\n3", "", 1},
                    RefusedCase{"BlankLine", "1\r\n  \r\n3", "  ", 1},
                    RefusedCase{"Letter", "1\r\n2\r\n3k\r\n4", "3k", 2},
                    RefusedCase{"Exponent", "1e4", "1e4", 0},
                    RefusedCase{"TwoOnALine", "7000 14000", "7000 14000", 0},
                    RefusedCase{"Comma", "7100,5", "7100,5", 0},
                    RefusedCase{"LoneLineFeed", "1\n2", "1\n2", 0},
                    RefusedCase{"TooLarge", "1\r\n999999999999999999999999999999999999999999",
                                "999999999999999999999999999999999999999999", 1}),
    [](const auto& row) { return row.param.sName; });

TEST(FrequencyText, FifteenLinesAreAllTaken)
{
    const Parsed parsed = Parse(Lines(15));
    EXPECT_TRUE(parsed.bOk);
    EXPECT_EQ(parsed.nCount, 15);
    EXPECT_EQ(parsed.aStored.at(15), 15000.0F);
}

TEST(FrequencyText, OfSixteenLinesTheFirstFifteenAreTakenAndOneBoxSaysSo)
{
    const Parsed parsed = Parse(Lines(16));
    EXPECT_FALSE(parsed.bOk);
    EXPECT_EQ(parsed.nCount, 15);
    EXPECT_EQ(parsed.aStored.size(), 15U);
    ASSERT_EQ(parsed.aShown.size(), 1U);
    EXPECT_EQ(parsed.aShown[0].eIcon, MsgIcon::None);
    EXPECT_NE(parsed.aShown[0].sText.find("15"), std::string::npos);
}

TEST(FrequencyText, ABreakBehindTheFifteenthLineIsALineTooMany)
{
    const Parsed parsed = Parse(Lines(15) + "\r\n");
    EXPECT_FALSE(parsed.bOk);
    EXPECT_EQ(parsed.nCount, 15);
    EXPECT_EQ(parsed.aShown.size(), 1U);
}

TEST(FrequencyText, IsWholeKilohertzWithoutABreakAtTheEnd)
{
    const auto Get = [](int i) { return i == 1 ? 7100.5F : 14200.0F; };
    EXPECT_EQ(FrequencyListToText(2, Get), "7101\r\n14200");
    EXPECT_EQ(FrequencyListToText(1, Get), "7101");
    EXPECT_EQ(FrequencyListToText(0, Get), "");
}

TEST(FrequencyText, MiddleOfABandIsWholeKilohertz)
{
    EXPECT_EQ(BandMiddleGet("1800 - 2000"), "1900");
    EXPECT_EQ(BandMiddleGet("7225 - 7300         (40 m)"), "7263");
    EXPECT_EQ(BandMiddleGet("18110- 18168"), "18139");
    EXPECT_EQ(BandMiddleGet("no band"), std::nullopt);
    EXPECT_EQ(BandMiddleGet("1800 - high"), std::nullopt);
    EXPECT_EQ(BandMiddleGet(""), std::nullopt);
}

}  // namespace
