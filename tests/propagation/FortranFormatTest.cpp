#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "propagation/deck/FortranFormat.h"
#include "support/MsgRecorder.h"
#include "system/RunErrorText.h"

namespace {

struct FormatCase {
    const char* sName;
    float fValue;
    const char* sFormat;
    const char* sExpected;
};

std::ostream& operator<<(std::ostream& stm, const FormatCase& c) { return stm << c.sName; }

class FortranFormatField : public testing::TestWithParam<FormatCase> {};

// clang-format off
constexpr FormatCase kFormatCases[] = {
    {"I5", 23.0F, "I5", "   23"},
    {"I5OfZero", 0.0F, "I5", "    0"},
    {"I5Negative", -145.0F, "I5", " -145"},
    {"I5RoundsHalfAway", 2.5F, "I5", "    3"},
    {"I5RoundsNegativeHalfAway", -2.5F, "I5", "   -3"},
    {"I5FillsItsWidth", 99999.0F, "I5", "99999"},
    {"I7", 170.4F, "I7", "    170"},
    {"I10", 1.0F, "I10", "         1"},
    {"F50KeepsThePoint", 145.0F, "F5.0", " 145."},
    {"F50OfZero", 0.0F, "F5.0", "   0."},
    {"F50Rounds", 144.5F, "F5.0", " 145."},
    {"F51", 14.1F, "F5.1", " 14.1"},
    {"F51OfHalfHasNoDigit", 0.5F, "F5.1", "   .5"},
    {"F51OfZero", 0.0F, "F5.1", "   .0"},
    {"F51NegativeHalf", -0.5F, "F5.1", "  -.5"},
    {"F51RoundsToZeroWithoutMinus", -0.04F, "F5.1", "   .0"},
    {"F51SingleRoundsOnItsOwnDigits", 1.85F, "F5.1", "  1.9"},
    {"F51SingleBelowAHundred", 99.95F, "F5.1", "100.0"},
    {"F51FillsItsWidth", 999.9F, "F5.1", "999.9"},
    {"F52", 0.7F, "F5.2", "  .70"},
    {"F52One", 1.0F, "F5.2", " 1.00"},
    {"F62", 122.25F, "F6.2", "122.25"},
    {"F62OfZeroKeepsItsDigit", 0.0F, "F6.2", "  0.00"},
    {"F62OfNegativeZero", -0.0F, "F6.2", "  0.00"},
    {"F62BelowOneHasNoDigit", 0.13F, "F6.2", "   .13"},
    {"F62RoundsToZeroWithoutDigit", 0.001F, "F6.2", "   .00"},
    {"F71", 10.125F, "F7.1", "   10.1"},
    {"F72", 11.0F, "F7.2", "  11.00"},
    {"F73", 14.0F, "F7.3", " 14.000"},
    {"F73BelowOne", 0.5F, "F7.3", "   .500"},
    {"F102", -130.0F, "F10.2", "   -130.00"},
    {"F102OfZero", 0.0F, "F10.2", "       .00"},
    {"F103", 10.0F, "F10.3", "    10.000"},
};
// clang-format on

TEST_P(FortranFormatField, IsAsWideAsItsFormatAndFilledFromTheLeft)
{
    const FormatCase& c = GetParam();
    const auto resField = FortranFormat(c.fValue, c.sFormat);
    ASSERT_TRUE(resField) << resField.TextGet();
    EXPECT_EQ(resField.ValueGet(), c.sExpected);
}

INSTANTIATE_TEST_SUITE_P(Table, FortranFormatField, testing::ValuesIn(kFormatCases),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST(FortranFormatTable, HoldsTheTwelveFormatsWithTheirWidths)
{
    EXPECT_EQ(kFortranFormats.size(), 12U);
    EXPECT_EQ(FortranWidth("I5"), 5);
    EXPECT_EQ(FortranWidth("F10.3"), 10);
    EXPECT_EQ(FortranWidth("F5.3"), 0);
    for (const FortranEntry& entry : kFortranFormats) {
        const auto resField = FortranFormat(1, entry.sFormat);
        ASSERT_TRUE(resField);
        EXPECT_EQ(resField.ValueGet().size(), static_cast<std::size_t>(entry.nWidth))
            << entry.sFormat;
    }
}

TEST(FortranFormat, DoubleRoundsOnItsOwnDigits)
{
    EXPECT_EQ(FortranFormat(1.005, "F6.2").ValueGet(), "  1.01");
    EXPECT_EQ(FortranFormat(51.5, "F6.2").ValueGet(), " 51.50");
}

TEST(FortranFormat, TextLongerThanTheFieldIsAnErrorAndNeverAShiftedCard)
{
    for (const float fValue : {100000.0F, -10000.0F}) {
        const auto resField = FortranFormat(fValue, "I5");
        ASSERT_FALSE(resField);
        EXPECT_EQ(resField.TextGet(), kInvalidCall);
    }
    EXPECT_FALSE(FortranFormat(999.95F, "F5.1"));  // rounds to 1000.0
    EXPECT_FALSE(FortranFormat(-100.5F, "F5.1"));
    EXPECT_FALSE(FortranFormat(1000.0F, "F6.2"));
}

TEST(FortranFormat, NotANumberAndInfinityAreErrors)
{
    for (const double dValue :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        const auto resField = FortranFormat(dValue, "F5.1");
        ASSERT_FALSE(resField);
        EXPECT_EQ(resField.TextGet(), kInvalidCall);
    }
}

TEST(FortranFormat, UnknownFormatIsToldAndYieldsAnEmptyText)
{
    MsgRecorder msg;
    const auto resField = FortranFormat(1.0F, "F9.9", CallMessages());
    ASSERT_TRUE(resField);
    EXPECT_EQ(resField.ValueGet(), "");
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, "FortranFormat, Unknown format F9.9");
}

}  // namespace
