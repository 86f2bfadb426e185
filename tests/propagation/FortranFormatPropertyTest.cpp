/// What holds for every value and format: either the field is as wide as its format and reads back
/// to the rounded value, or there is no field.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "propagation/deck/FortranFormat.h"
#include "support/PropertyRandom.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"

namespace {

constexpr int kCases = 5000;  // for each format

double UnitGet(const FortranEntry& entry)
{
    const std::size_t nPoint = entry.sPattern.find('.');
    const std::size_t nDecimals =
        nPoint == std::string_view::npos ? 0 : entry.sPattern.size() - nPoint - 1;
    return std::pow(10.0, -static_cast<double>(nDecimals));
}

/// The least magnitude that is too wide: by the digits before the point, of which a minus takes
/// one.
double LimitGet(const FortranEntry& entry, bool bNegative)
{
    const std::size_t nPoint = entry.sPattern.find('.');
    const int nBehind =
        nPoint == std::string_view::npos ? 0 : static_cast<int>(entry.sPattern.size() - nPoint);
    return std::pow(10.0, entry.nWidth - nBehind - (bNegative ? 1 : 0));
}

template <class T>
void FieldCheck(const FortranEntry& entry, T value)
{
    const auto dValue = static_cast<double>(value);
    const double dUnit = UnitGet(entry);
    const double dLimit = LimitGet(entry, dValue < 0.0);
    // A single's shortest text may be off by half of its last binary digit.
    const double dNoise = std::is_same_v<T, float> ? std::abs(dValue) * 0x1p-24 : 0.0;
    const double dTolerance = dUnit / 2 + dNoise + std::abs(dValue) * 1e-15 + 1e-12;
    const auto res = FortranFormat(value, entry.sFormat);
    if (!res) {
        EXPECT_EQ(res.TextGet(), kInvalidCall);
        EXPECT_GE(std::abs(dValue) + dTolerance, dLimit)
            << NumberToText(dValue) << " would have fitted";
        return;
    }
    EXPECT_LE(std::abs(dValue) - dTolerance, dLimit)
        << NumberToText(dValue) << " cannot have fitted";
    const std::string& sField = res.ValueGet();
    ASSERT_EQ(sField.size(), static_cast<std::size_t>(entry.nWidth));
    const std::size_t nText = sField.find_first_not_of(' ');
    ASSERT_NE(nText, std::string::npos);
    EXPECT_EQ(sField.find(' ', nText), std::string::npos) << "blanks stand on the left alone";
    const auto resBack = NumberFromText(sField);
    ASSERT_TRUE(resBack) << sField;
    const double dBack = resBack.ValueGet();
    EXPECT_LE(std::abs(dBack - dValue), dTolerance) << sField << " of " << NumberToText(dValue);
    EXPECT_LE(std::abs(dBack / dUnit - std::round(dBack / dUnit)), 1e-6) << sField;
    // Written again, the rounded value gives the same field: nothing drifts from deck to deck. (A
    // position of exactly 0 is written differently from one that rounds to 0.)
    if (dBack != 0.0) {
        EXPECT_EQ(FortranFormat(dBack, entry.sFormat).ValueGet(), sField);
    }
}

TEST(FortranFormatProperty, FieldsKeepTheirWidthAndReadBackRounded)
{
    PropertyRandom random;
    for (const FortranEntry& entry : kFortranFormats) {
        for (int i = 0; i < kCases && !HasFailure(); ++i) {
            const double dValue =
                random.Number(random.Chance(8) ? 1e15 : 10 * LimitGet(entry, false));
            const PropertyCase place(i);
            switch (i % 3) {
                case 0:
                    FieldCheck(entry, dValue);
                    break;
                case 1:
                    FieldCheck(entry, static_cast<float>(dValue));
                    break;
                default:
                    FieldCheck(entry, RoundHalfEven(dValue));
                    break;
            }
        }
    }
}

TEST(FortranFormatProperty, ExtremesAreRefusedByEveryFormat)
{
    using Limits = std::numeric_limits<double>;
    for (const FortranEntry& entry : kFortranFormats)
        for (const double dValue : {Limits::max(), Limits::lowest(), Limits::infinity(),
                                    -Limits::infinity(), Limits::quiet_NaN()})
            EXPECT_EQ(FortranFormat(dValue, entry.sFormat).TextGet(), kInvalidCall);
}

}  // namespace
