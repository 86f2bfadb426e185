/// What holds for every position: its text has one form and reads back to within half a hundredth
/// of a minute.
#include <gtest/gtest.h>

#include <cmath>

#include "geo/MathLib.h"
#include "support/PropertyRandom.h"
#include "system/TextLib.h"

namespace {

constexpr int kCases = 20000;                    // for each axis
constexpr double kHalfHundredth = 0.005 / 60.0;  // degrees
constexpr double kNoise = 1e-12;                 // rounding when degrees and minutes are added

struct Axis {
    std::string (*fnToText)(double);
    bool (*fnFromText)(std::string_view, double&, Messages*);
    double dMost;
    std::size_t nDegrees;  // digits
    char chrPositive, chrNegative;
};

void RoundTripCheck(const Axis& axis, double dAngle)
{
    const std::string sText = axis.fnToText(dAngle);
    // 38°30.00'N: degrees, degree sign, five characters of minutes, their sign, a letter
    ASSERT_EQ(sText.size(), axis.nDegrees + kDegreeSign.size() + 7) << sText;
    EXPECT_EQ(sText.find(kDegreeSign), axis.nDegrees) << sText;
    EXPECT_EQ(sText[sText.size() - 2], '\'') << sText;
    EXPECT_EQ(sText.back(), dAngle < 0.0 ? axis.chrNegative : axis.chrPositive) << sText;
    double dBack = 0.0;
    ASSERT_TRUE(axis.fnFromText(sText, dBack, nullptr)) << sText;
    EXPECT_LE(std::abs(dBack - dAngle), kHalfHundredth + kNoise) << sText;
    // The text of the value read differs at most in spelling (60.00 minutes).
    double dAgain = 0.0;
    ASSERT_TRUE(axis.fnFromText(axis.fnToText(dBack), dAgain, nullptr));
    EXPECT_LE(std::abs(dAgain - dBack), kNoise) << sText;
}

TEST(PositionTextProperty, TextReadsBackWithinHalfAHundredthOfAMinute)
{
    constexpr Axis kAxes[] = {{LatitudeToText, TextToLatitude, 90.0, 2, 'N', 'S'},
                              {LongitudeToText, TextToLongitude, 180.0, 3, 'E', 'W'}};
    PropertyRandom random;
    for (const Axis& axis : kAxes) {
        for (int i = 0; i < kCases && !HasFailure(); ++i) {
            const double dAngle =
                i % 2 == 0 ? random.Number(axis.dMost) : random.Real(-axis.dMost, axis.dMost);
            const PropertyCase place(i);
            RoundTripCheck(axis, dAngle);
        }
    }
}

}  // namespace
