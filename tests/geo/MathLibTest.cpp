#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

#include "geo/MathLib.h"
#include "support/MsgRecorder.h"
#include "system/RunErrorText.h"

namespace {

struct TextCase {
    double dAngle;
    const char* sExpected;
};
std::ostream& operator<<(std::ostream& stm, const TextCase& c) { return stm << c.dAngle; }
class LatitudeText : public testing::TestWithParam<TextCase> {};
TEST_P(LatitudeText, Prints) { EXPECT_EQ(LatitudeToText(GetParam().dAngle), GetParam().sExpected); }
INSTANTIATE_TEST_SUITE_P(
    All, LatitudeText,
    testing::Values(TextCase{38.5, "38°30.00'N"}, TextCase{0.0, "00°00.00'N"},
                    TextCase{-0.0, "00°00.00'N"}, TextCase{-0.5, "00°30.00'S"},
                    TextCase{38.99999, "38°60.00'N"},  // the pattern rounds the minutes alone
                    TextCase{-90, "90°00.00'S"}, TextCase{5.0001, "05°00.01'N"}));
class LongitudeText : public testing::TestWithParam<TextCase> {};
TEST_P(LongitudeText, Prints)
{
    EXPECT_EQ(LongitudeToText(GetParam().dAngle), GetParam().sExpected);
}
INSTANTIATE_TEST_SUITE_P(All, LongitudeText,
                         testing::Values(TextCase{-122.25, "122°15.00'W"},
                                         TextCase{0.0, "000°00.00'E"}, TextCase{180, "180°00.00'E"},
                                         TextCase{-7.5, "007°30.00'W"}));

struct ParseCase {
    const char* sText;
    double dExpected;
};
std::ostream& operator<<(std::ostream& stm, const ParseCase& c) { return stm << c.sText; }
class LatitudeParse : public testing::TestWithParam<ParseCase> {};
TEST_P(LatitudeParse, Decodes)
{
    double dLatitude = 99;
    ASSERT_TRUE(TextToLatitude(GetParam().sText, dLatitude, CallMessages()));
    EXPECT_DOUBLE_EQ(dLatitude, GetParam().dExpected);
}
INSTANTIATE_TEST_SUITE_P(All, LatitudeParse,
                         testing::Values(ParseCase{"38°30.00'N", 38.5},
                                         ParseCase{"5°30.00'S", -5.5}, ParseCase{"5°30.00's", 5.5},
                                         ParseCase{"5°30.00' S", 5.5}, ParseCase{"5°30.00'S ", 5.5},
                                         ParseCase{"5°30.00'", 5.5}, ParseCase{"5°30.00'W", 5.5},
                                         ParseCase{"10°70.00'N", 10 + 70.0 / 60},
                                         ParseCase{" 5 ° 30 'S", -5.5}, ParseCase{"-5°30'N", -4.5},
                                         ParseCase{"200°00.00'S", -200}));
class LongitudeParse : public testing::TestWithParam<ParseCase> {};
TEST_P(LongitudeParse, Decodes)
{
    double dLongitude = 999;
    ASSERT_TRUE(TextToLongitude(GetParam().sText, dLongitude, CallMessages()));
    EXPECT_DOUBLE_EQ(dLongitude, GetParam().dExpected);
}
INSTANTIATE_TEST_SUITE_P(All, LongitudeParse,
                         testing::Values(ParseCase{"122°15.00'W", -122.25},
                                         ParseCase{"122°15.00'w", 122.25},
                                         ParseCase{"122°15.00'E", 122.25},
                                         ParseCase{"122°15.00'S", 122.25}));

class PositionBad : public testing::TestWithParam<const char*> {};
TEST_P(PositionBad, FailsWithTheTextAsTypedAndKeepsTheOutput)
{
    const std::string sText = GetParam();
    double dAngle = 12.25;
    EXPECT_FALSE(TextToLatitude(sText, dAngle, nullptr));
    EXPECT_FALSE(TextToLongitude(sText, dAngle, nullptr));
    MsgRecorder msg;
    EXPECT_FALSE(TextToLatitude(sText, dAngle, CallMessages()));
    EXPECT_FALSE(TextToLongitude(sText, dAngle, CallMessages()));
    EXPECT_EQ(dAngle, 12.25);
    ASSERT_EQ(msg.m_aShown.size(), 2u);
    EXPECT_EQ(msg.m_aShown[0].eIcon, MsgIcon::Exclamation);
    EXPECT_EQ(msg.m_aShown[0].sText, "Unable for decode Latitude " + sText);
    EXPECT_EQ(msg.m_aShown[1].sText, "Unable for decode Longitude " + sText);
}
INSTANTIATE_TEST_SUITE_P(All, PositionBad,
                         testing::Values("", "38 30.00 N", "38°30.00N", "38'30.00°N", "°30.00'N",
                                         "38°'N", "x°30.00'N", "38°3x.00'N", "1e1°00.00'N",
                                         "nan°00.00'N", "38,5°00.00'N"));

TEST(PositionText, RoundTripsWithinHalfAHundredthOfAMinute)
{
    for (double dAngle = -89.99; dAngle < 90; dAngle += 0.3137) {
        double dBack = 0;
        ASSERT_TRUE(TextToLatitude(LatitudeToText(dAngle), dBack, CallMessages()));
        EXPECT_NEAR(dBack, dAngle, 0.005 / 60 + 1e-12);
        ASSERT_TRUE(TextToLongitude(LongitudeToText(2 * dAngle), dBack, CallMessages()));
        EXPECT_NEAR(dBack, 2 * dAngle, 0.005 / 60 + 1e-12);
    }
}

TEST(GreatCircleAngle, IsZeroForOnePlaceAndPiForAntipodes)
{
    EXPECT_EQ(GreatCircleAngle(38, -122, 38, -122), 0.0);
    EXPECT_DOUBLE_EQ(GreatCircleAngle(0, 0, 0, 180), kPi);
    EXPECT_NEAR(GreatCircleAngle(40.42, -3.7, -40.42, 176.3), kPi, 1e-6);
    EXPECT_DOUBLE_EQ(GreatCircleAngle(90, 0, -90, 77), kPi);
}

TEST(GreatCircleAngle, GivesTheQuarterAndTheCosineLaw)
{
    EXPECT_NEAR(GreatCircleAngle(0, 0, 90, 0), kPi / 2, 1e-14);
    // San Francisco Bay to Baja California by the spherical law of cosines.
    const double dR = kPi / 180;
    const double dExpected = std::acos(std::sin(38 * dR) * std::sin(24 * dR)
                                       + std::cos(38 * dR) * std::cos(24 * dR) * std::cos(12 * dR));
    EXPECT_NEAR(GreatCircleAngle(38, -122, 24, -110), dExpected, 1e-12);
    EXPECT_TRUE(std::isnan(GreatCircleAngle(std::nan(""), 0, 1, 1)));
}

TEST(ArcSin, AgreesInsideAndFailsAtTheEnds)
{
    for (const double dX : {-0.999, -0.5, 0.0, 0.25, 0.75, 0.999999})
        EXPECT_NEAR(ArcSin(dX).ValueGet(), std::asin(dX), 1e-12);
    EXPECT_EQ(ArcSin(1.0).TextGet(), kDivisionByZero);
    EXPECT_EQ(ArcSin(-1.0).TextGet(), kDivisionByZero);
    EXPECT_EQ(ArcSin(1.5).TextGet(), kInvalidCall);
}

TEST(Mercator, ProjectsAndComesBack)
{
    EXPECT_NEAR(MercatorY(0), 0, 1e-12);
    EXPECT_NEAR(MercatorY(45), 0.881373587, 1e-8);  // ln(1 + sqrt 2)
    EXPECT_NEAR(MercatorLatitude(0.881373587019543), 45, 1e-9);
    for (double dLat = -85; dLat <= 85; dLat += 2.5)
        EXPECT_NEAR(MercatorLatitude(MercatorY(dLat)), dLat, 1e-9);
}

TEST(MathLib, NotANumberStaysOne)
{
    const double dNan = std::nan("");
    EXPECT_TRUE(std::isnan(MercatorY(dNan)));
    EXPECT_TRUE(std::isnan(MercatorLatitude(dNan)));
    EXPECT_TRUE(std::isnan(Log10(dNan)));
    EXPECT_TRUE(std::isnan(ArcSin(dNan).ValueGet()));
    EXPECT_TRUE(std::isnan(GreatCircleAngle(1, 1, 1, dNan)));
}

TEST(SmallHelpers, FollowTheirRules)
{
    EXPECT_DOUBLE_EQ(Log10(1000), 3);
    EXPECT_EQ(Min(1, 2), 1);
    EXPECT_EQ(Min(2, 1), 1);
    EXPECT_EQ(Max(1, 2), 2);
    EXPECT_EQ(Max(2, 1), 2);
    // Every comparison with NaN is false, so the second argument is taken.
    EXPECT_EQ(Min(std::nan(""), 2), 2);
    EXPECT_EQ(Max(std::nan(""), 2), 2);
    EXPECT_TRUE(std::isnan(Min(2, std::nan(""))));
}

}  // namespace
