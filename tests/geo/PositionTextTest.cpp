#include <gtest/gtest.h>

#include <ostream>

#include "geo/PositionText.h"

namespace {

constexpr auto kLat = PositionAxis::Latitude;
constexpr auto kLon = PositionAxis::Longitude;
constexpr double kNoise = 1e-12;

struct AngleCase {
    const char* sName;
    PositionAxis eAxis;
    const char* sText;
    std::optional<double> dExpected;
};
std::ostream& operator<<(std::ostream& stm, const AngleCase& c) { return stm << c.sName; }

void AngleExpect(const AngleCase& c, PositionForm eForm)
{
    const auto res = AngleFromText(c.sText, c.eAxis, eForm);
    ASSERT_EQ(static_cast<bool>(res), c.dExpected.has_value()) << c.sText;
    if (res)
        EXPECT_NEAR(res.ValueGet(), *c.dExpected, kNoise);
    else
        EXPECT_FALSE(res.TextGet().empty());
}

class PastedAngle : public testing::TestWithParam<AngleCase> {};
TEST_P(PastedAngle, IsReadWhollyOrNotAtAll) { AngleExpect(GetParam(), PositionForm::Pasted); }
INSTANTIATE_TEST_SUITE_P(
    Forms, PastedAngle,
    testing::Values(AngleCase{"field_form", kLat, "38°30.00'N", 38.5},
                    AngleCase{"field_form_south", kLat, "38°30.00'S", -38.5},
                    AngleCase{"longitude", kLon, "122°15.00'W", -122.25},
                    AngleCase{"blank_for_degree_sign", kLat, "38 30.0N", 38.5},
                    AngleCase{"blanks_around", kLon, "  122 15.0 w \n", -122.25},
                    AngleCase{"decimal", kLat, "38.5", 38.5},
                    AngleCase{"decimal_minus", kLon, "-122.25", -122.25},
                    AngleCase{"typographic_minus", kLon, "−122.25", -122.25},
                    AngleCase{"decimal_plus", kLon, "+10", 10.0},
                    AngleCase{"decimal_letter", kLat, "38.5 S", -38.5},
                    AngleCase{"decimal_degree_sign", kLat, "38.5°", 38.5},
                    AngleCase{"decimal_comma", kLat, "38,5", 38.5},
                    AngleCase{"decimal_comma_minus", kLon, "-110,403", -110.403},
                    AngleCase{"decimal_comma_minutes", kLat, "24°18,5'N", 24 + 18.5 / 60},
                    AngleCase{"leading_letter", kLat, "S38.5", -38.5},
                    AngleCase{"leading_letter_and_blank", kLon, "w 122 15", -122.25},
                    AngleCase{"typographic_minute_sign", kLat, "38°30′N", 38.5},
                    AngleCase{"seconds", kLat, "24°18'30\"N", 24.0 + 18.5 / 60},
                    AngleCase{"seconds_with_fraction", kLat, "24°18'30.6\"S", -(24.0 + 18.51 / 60)},
                    AngleCase{"seconds_typographic", kLon, "W110°24′12″", -(110.0 + 24.2 / 60)},
                    AngleCase{"seconds_of_two_apostrophes", kLat, "24°18'30''N", 24.0 + 18.5 / 60},
                    AngleCase{"seconds_by_blanks", kLat, "24 18 30 N", 24.0 + 18.5 / 60},
                    AngleCase{"seconds_by_colons", kLon, "-110:24:12", -(110.0 + 24.2 / 60)},
                    AngleCase{"whole_degrees", kLat, "38N", 38.0},
                    AngleCase{"pole", kLat, "90", 90.0},
                    AngleCase{"date_line", kLon, "180 0 E", 180.0}));
INSTANTIATE_TEST_SUITE_P(
    Refused, PastedAngle,
    testing::Values(
        AngleCase{"empty", kLat, "", {}}, AngleCase{"blank", kLat, "  ", {}},
        AngleCase{"letter_alone", kLat, "N", {}}, AngleCase{"sign_alone", kLat, "-", {}},
        AngleCase{"rubbish", kLat, "north", {}}, AngleCase{"beyond_pole", kLat, "90.1", {}},
        AngleCase{"beyond_date_line", kLon, "181", {}},
        AngleCase{"sixty_minutes", kLat, "38 60 N", {}},
        AngleCase{"sixty_seconds", kLat, "38 30 60 N", {}},
        AngleCase{"other_box", kLat, "122°15.00'W", {}},
        AngleCase{"latitude_in_longitude_box", kLon, "38°30.00'N", {}},
        AngleCase{"sign_and_letter", kLat, "-38.5S", {}},
        AngleCase{"letter_and_sign", kLat, "S-38.5", {}},
        AngleCase{"letters_at_both_ends", kLat, "N38.5N", {}},
        AngleCase{"part_of_degrees_and_minutes", kLat, "38.5 30 N", {}},
        AngleCase{"minutes_first", kLat, "30'N", {}},
        AngleCase{"seconds_without_minutes", kLat, "38°30\"N", {}},
        AngleCase{"minutes_of_seconds_with_fraction", kLat, "38°30.5'15\"N", {}},
        AngleCase{"four_parts", kLat, "38 30 15 10", {}},
        AngleCase{"colon_behind", kLat, "38:", {}}, AngleCase{"comma_behind", kLat, "38,", {}},
        AngleCase{"something_behind", kLat, "38.5 N x", {}},
        AngleCase{"pair", kLat, "38.5, -122.25", {}}, AngleCase{"exponent", kLat, "3e1", {}},
        AngleCase{"two_points", kLat, "38.5.5", {}}, AngleCase{"run_on", kLon, "1205", {}},
        AngleCase{"no_utf8", kLat, "38\xB0", {}}, AngleCase{"nothing_is_nan", kLat, "nan", {}},
        AngleCase{"far_too_long", kLat, "00000038.5", {}}));

class ArgumentAngle : public testing::TestWithParam<AngleCase> {};
TEST_P(ArgumentAngle, IsReadStrictly) { AngleExpect(GetParam(), PositionForm::Argument); }
INSTANTIATE_TEST_SUITE_P(
    All, ArgumentAngle,
    testing::Values(
        AngleCase{"decimal", kLat, " -38.5 ", -38.5}, AngleCase{"bare_point", kLat, ".5", 0.5},
        AngleCase{"range_is_the_callers", kLat, "1040.", 1040.0},
        AngleCase{"minutes", kLon, "122°15.00'W", -122.25},
        AngleCase{"small_letter", kLat, " 5°30's ", -5.5},
        AngleCase{"blank_before_the_letter", kLat, "5°30' S", -5.5},
        AngleCase{"seconds", kLat, "5°30'36\"S", -5.51}, AngleCase{"no_letter", kLat, "5°30'", {}},
        AngleCase{"no_minute_sign", kLat, "5°30N", {}}, AngleCase{"other_axis", kLat, "5°30'E", {}},
        AngleCase{"something_before_the_letter", kLat, "5°30'xS", {}},
        AngleCase{"two_letters", kLat, "5°30'NS", {}},
        AngleCase{"seventy_minutes", kLat, "5°70'N", {}}, AngleCase{"sign", kLat, "-5°30'N", {}},
        AngleCase{"leading_letter", kLat, "N5°30'", {}},
        AngleCase{"decimal_comma", kLat, "5,5", {}},
        AngleCase{"decimal_comma_minutes", kLat, "5°30,5'N", {}},
        AngleCase{"blank_for_degree_sign", kLat, "5 30 N", {}}));

class EntryAngle : public testing::TestWithParam<AngleCase> {};
TEST_P(EntryAngle, IsReadLeniently) { AngleExpect(GetParam(), PositionForm::Entry); }
INSTANTIATE_TEST_SUITE_P(
    All, EntryAngle,
    testing::Values(AngleCase{"field", kLat, "38°30.00'S", -38.5},
                    AngleCase{"small_letter_is_north", kLat, "38°30.00's", 38.5},
                    AngleCase{"blank_before_the_letter_is_north", kLat, "38°30.00' S", 38.5},
                    AngleCase{"other_letter_is_east", kLon, "38°30.00'S", 38.5},
                    AngleCase{"seventy_minutes", kLat, "10°70'N", 10 + 70.0 / 60},
                    AngleCase{"no_degree_sign", kLat, "38 30.00'N", {}},
                    AngleCase{"no_apostrophe", kLat, "38°30.00N", {}}));

struct PairCase {
    const char* sName;
    const char* sText;
    double dLat;
    double dLon;
};
std::ostream& operator<<(std::ostream& stm, const PairCase& c) { return stm << c.sName; }
class PastedPair : public testing::TestWithParam<PairCase> {};
TEST_P(PastedPair, GivesBothWhateverTheAxis)
{
    for (const PositionAxis eAxis : {kLat, kLon}) {
        const auto res = PositionFromText(GetParam().sText, eAxis);
        ASSERT_TRUE(res) << res.TextGet();
        ASSERT_TRUE(res.ValueGet().dLat && res.ValueGet().dLon);
        EXPECT_NEAR(*res.ValueGet().dLat, GetParam().dLat, kNoise);
        EXPECT_NEAR(*res.ValueGet().dLon, GetParam().dLon, kNoise);
    }
}
constexpr double kBayLat = 24.0 + 18.5 / 60;
constexpr double kBayLon = -(110.0 + 24.2 / 60);
INSTANTIATE_TEST_SUITE_P(
    All, PastedPair,
    testing::Values(PairCase{"decimal", "24.308, -110.403", 24.308, -110.403},
                    PairCase{"no_blank", "24.308,-110.403", 24.308, -110.403},
                    PairCase{"both_positive", "24.308,110.403", 24.308, 110.403},
                    PairCase{"whole_and_decimal", "24,110.403", 24, 110.403},
                    PairCase{"whole", "-24, 110", -24, 110},
                    PairCase{"blank", "24.308 -110.403\n", 24.308, -110.403},
                    PairCase{"tab", "24.308\t110.403", 24.308, 110.403},
                    PairCase{"semicolon", "24,308; -110,403", 24.308, -110.403},
                    PairCase{"decimal_commas", "24,308, -110,403", 24.308, -110.403},
                    PairCase{"field_form", "24°18.50'N 110°24.20'W", kBayLat, kBayLon},
                    PairCase{"nothing_between", "24°18.50'N110°24.20'W", kBayLat, kBayLon},
                    PairCase{"comma", "24°18.50'N, 110°24.20'W", kBayLat, kBayLon},
                    PairCase{"leading", "N24°18.50' W110°24.20'", kBayLat, kBayLon},
                    PairCase{"longitude_first", "110°24.20'W 24°18.50'N", kBayLat, kBayLon},
                    PairCase{"longitude_first_leading", "W 110 24.2, N 24 18.5", kBayLat, kBayLon},
                    PairCase{"seconds", "24°18'30\"N 110°24'12\"W", kBayLat, kBayLon},
                    PairCase{"minutes_by_blanks", "24 18.5 110 24.2", kBayLat, -kBayLon},
                    PairCase{"letters_and_decimals", "24.308 S, 110.403 E", -24.308, 110.403},
                    PairCase{"square", " fn42mm\r\n", 42.0 + 30.782608695652176 / 60,
                             -70.97391304347826}),
    [](const auto& param) { return std::string(param.param.sName); });

class PastedRefused : public testing::TestWithParam<const char*> {};
TEST_P(PastedRefused, IsNoPair)
{
    EXPECT_FALSE(PositionFromText(GetParam(), kLat)) << GetParam();
    EXPECT_FALSE(PositionFromText(GetParam(), kLon)) << GetParam();
}
INSTANTIATE_TEST_SUITE_P(All, PastedRefused,
                         testing::Values("24.308,", ",24.308", "24.3, 110.4, 5", "24.3,,110.4",
                                         "24.3 N, 110.4", "24.3, 110.4 W", "24.3 N 25.3 S",
                                         "110.4 W 24.3", "110 W 111 E", "24-18.5", "24.3-110.4",
                                         "91.5, 110.5", "24.5, 181.5", "24,5,110,5", "1,2,3",
                                         "24 18 110 24", "24.3 N x 110.4 W", "FN4", "FN42M", "FS42",
                                         "SN42", "FN4A", "FN42YA", "FN42AY", "FN42MM99"));

TEST(PositionText, SaysWhyAPastedTextIsRefused)
{
    EXPECT_EQ(PositionFromText(" north\n", kLat).TextGet(), "\"north\" is not a position");
    EXPECT_EQ(PositionFromText("99.5", kLat).TextGet(), "latitude 99.5° is beyond 90°");
    EXPECT_EQ(PositionFromText("24.5, -181.5", kLat).TextGet(), "longitude -181.5° is beyond 180°");
    EXPECT_EQ(PositionFromText("122°15.00'W", kLat).TextGet(), "\"122°15.00'W\" is a longitude");
    EXPECT_EQ(PositionFromText("12 S", kLon).TextGet(), "\"12 S\" is a latitude");
}

TEST(PositionText, ALoneAngleLeavesTheOtherAxisOpen)
{
    const auto resLat = PositionFromText("24.308", kLat);
    ASSERT_TRUE(resLat);
    EXPECT_EQ(resLat.ValueGet().dLat, 24.308);
    EXPECT_FALSE(resLat.ValueGet().dLon);
    const auto resLon = PositionFromText("24.308", kLon);
    ASSERT_TRUE(resLon);
    EXPECT_EQ(resLon.ValueGet().dLon, 24.308);
    EXPECT_FALSE(resLon.ValueGet().dLat);
}

}  // namespace
