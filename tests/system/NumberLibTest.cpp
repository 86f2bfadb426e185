#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

#include "system/NumberLib.h"
#include "system/RunErrorText.h"

namespace {

struct PatternCase {
    double dValue;
    const char* sPattern;
    const char* sExpected;
};
std::ostream& operator<<(std::ostream& stm, const PatternCase& c)
{
    return stm << c.dValue << " as " << c.sPattern;
}
class NumberPattern : public testing::TestWithParam<PatternCase> {};
TEST_P(NumberPattern, PrintsAsTold)
{
    EXPECT_EQ(NumberFormat(GetParam().dValue, GetParam().sPattern), GetParam().sExpected);
}
INSTANTIATE_TEST_SUITE_P(
    Doubles, NumberPattern,
    testing::Values(
        PatternCase{2.5, "0", "3"}, PatternCase{-2.5, "0", "-3"}, PatternCase{0.5, "0", "1"},
        PatternCase{0.49, "0", "0"}, PatternCase{-0.4, "0", "0"}, PatternCase{-0.04, ".0", ".0"},
        PatternCase{0.5, ".0", ".5"}, PatternCase{-0.5, ".0", "-.5"},
        PatternCase{145, "0.", "145."}, PatternCase{0, "0.", "0."}, PatternCase{0, ".00", ".00"},
        PatternCase{9.995, ".00", "10.00"}, PatternCase{1.005, ".00", "1.01"},
        PatternCase{99.96, ".0", "100.0"}, PatternCase{5, "00", "05"}, PatternCase{7, "000", "007"},
        PatternCase{1234, "00", "1234"}, PatternCase{9.999, "00.00", "10.00"},
        PatternCase{59.9994, "00.00", "60.00"}, PatternCase{0, "0.0", "0.0"},
        PatternCase{-0.04, "0.0", "0.0"}, PatternCase{-0.05, "0.0", "-0.1"},
        PatternCase{1e22, "0", "10000000000000000000000"}, PatternCase{14.1, ".000", "14.100"}));

TEST(NumberFormat, RoundsASingleOnItsOwnShortestText)
{
    // 99.95 as a single is 99.9499969...; its shortest text is 99.95 and rounds up.
    EXPECT_EQ(NumberFormat(99.95F, ".0"), "100.0");
    EXPECT_EQ(NumberFormat(0.25F, ".0"), ".3");
    EXPECT_EQ(NumberFormat(2.5F, "0"), "3");
}

TEST(NumberFormat, NamesWhatIsNoNumber)
{
    EXPECT_EQ(NumberFormat(std::nan(""), "0"), "nan");
    EXPECT_EQ(NumberFormat(-std::numeric_limits<float>::infinity(), ".0"), "-inf");
}

struct ReadCase {
    const char* sText;
    double dExpected;
};
std::ostream& operator<<(std::ostream& stm, const ReadCase& c)
{
    return stm << '"' << c.sText << '"';
}
class NumberStrict : public testing::TestWithParam<ReadCase> {};
TEST_P(NumberStrict, Reads)
{
    const auto res = NumberFromText(GetParam().sText);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_DOUBLE_EQ(res.ValueGet(), GetParam().dExpected);
    const auto resSingle = NumberFromTextSingle(GetParam().sText);
    ASSERT_TRUE(resSingle);
    EXPECT_FLOAT_EQ(resSingle.ValueGet(), static_cast<float>(GetParam().dExpected));
}
INSTANTIATE_TEST_SUITE_P(Good, NumberStrict,
                         testing::Values(ReadCase{"12.3", 12.3}, ReadCase{"1040.", 1040},
                                         ReadCase{".5", 0.5}, ReadCase{"  7  ", 7},
                                         ReadCase{"+3", 3}, ReadCase{"-3.25", -3.25},
                                         ReadCase{"-.5", -0.5}, ReadCase{"0", 0},
                                         ReadCase{"\t4", 4}, ReadCase{"00012", 12}));

class NumberStrictBad : public testing::TestWithParam<const char*> {};
TEST_P(NumberStrictBad, IsATypeMismatch)
{
    const auto res = NumberFromText(GetParam());
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(), kTypeMismatch);
    EXPECT_FALSE(NumberFromTextSingle(GetParam()));
}
INSTANTIATE_TEST_SUITE_P(Bad, NumberStrictBad,
                         testing::Values("", " ", "-", "+", ".", "-.", "1e5", "inf", "nan", "1,5",
                                         "12 3", "*****", "0x10", "1.2.3", "--1", "+-1", "-+1",
                                         "1-", "a", "12a", "-8178-5947"));

TEST(NumberFromText, TellsWhatIsTooLarge)
{
    const auto res = NumberFromTextSingle("1" + std::string(60, '0'));
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(), kOverflow);
    EXPECT_TRUE(NumberFromText("1" + std::string(60, '0')));
    const auto resTiny = NumberFromTextSingle("." + std::string(60, '0') + "1");
    ASSERT_TRUE(resTiny);
    EXPECT_EQ(resTiny.ValueGet(), 0.0F);
}

TEST(NumberFromTextLenient, TakesExponentAndDecimalComma)
{
    EXPECT_DOUBLE_EQ(NumberFromTextLenient("1e5").ValueGet(), 1e5);
    EXPECT_DOUBLE_EQ(NumberFromTextLenient(" -2,5 ").ValueGet(), -2.5);
    EXPECT_DOUBLE_EQ(NumberFromTextLenient("1.5E-1").ValueGet(), 0.15);
    EXPECT_DOUBLE_EQ(NumberFromTextLenient("+38").ValueGet(), 38);
    for (const char* sBad : {"", "1,2,3", "1.000,5", "inf", "nan", "abc", "1e", "+-1", "e5"})
        EXPECT_FALSE(NumberFromTextLenient(sBad)) << sBad;
}

TEST(NumberToText, IsTheShortestPlainText)
{
    EXPECT_EQ(NumberToText(1.0F), "1");
    EXPECT_EQ(NumberToText(-145.0F), "-145");
    EXPECT_EQ(NumberToText(0.7F), "0.7");
    EXPECT_EQ(NumberToText(38.0), "38");
    EXPECT_EQ(NumberToText(100000.0F), "100000");
    EXPECT_EQ(NumberToText(1e-7), "0.0000001");
    EXPECT_EQ(NumberToText(-0.0), "0");
    EXPECT_EQ(NumberToText(-0.25), "-0.25");
    EXPECT_EQ(NumberToText(-12), "-12");
}

TEST(RoundHalfEven, GoesToTheEvenNeighbour)
{
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-2.6), -3);
    EXPECT_EQ(RoundHalfEven(2.51), 3);
    EXPECT_EQ(RoundHalfEven(1e30), std::numeric_limits<int>::max());
    EXPECT_EQ(RoundHalfEven(-1e30), std::numeric_limits<int>::min());
    EXPECT_EQ(RoundHalfEven(std::nan("")), 0);
}

}  // namespace
