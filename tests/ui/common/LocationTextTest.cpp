#include <gtest/gtest.h>

#include "ui/common/LocationText.h"

namespace {

struct LocationCase {
    const char* sName;
    LocationKind eKind;
    const char* sText;
    std::optional<double> dExpected;
};
std::ostream& operator<<(std::ostream& stm, const LocationCase& c) { return stm << c.sName; }

class LocationTexts : public testing::TestWithParam<LocationCase> {};

TEST_P(LocationTexts, AreReadWhollyOrNotAtAll)
{
    const LocationCase& c = GetParam();
    const auto dValue = LocationFromText(c.eKind, QString::fromUtf8(c.sText));
    ASSERT_EQ(dValue.has_value(), c.dExpected.has_value());
    if (dValue) {
        EXPECT_DOUBLE_EQ(*dValue, *c.dExpected);
    }
}

constexpr auto kLat = LocationKind::Latitude;
constexpr auto kLon = LocationKind::Longitude;

INSTANTIATE_TEST_SUITE_P(
    Forms, LocationTexts,
    testing::Values(
        LocationCase{"field_form", kLat, "38°30.00'N", 38.5},
        LocationCase{"field_form_south", kLat, "38°30.00'S", -38.5},
        LocationCase{"longitude", kLon, "122°15.00'W", -122.25},
        LocationCase{"blank_for_degree_sign", kLat, "38 30.0N", 38.5},
        LocationCase{"blanks_around", kLon, "  122 15.0 w \n", -122.25},
        LocationCase{"decimal", kLat, "38.5", 38.5},
        LocationCase{"decimal_minus", kLon, "-122.25", -122.25},
        LocationCase{"decimal_plus", kLon, "+10", 10.0},
        LocationCase{"decimal_letter", kLat, "38.5 S", -38.5},
        LocationCase{"decimal_degree_sign", kLat, "38.5°", 38.5},
        LocationCase{"typographic_minute_sign", kLat, "38°30′N", 38.5},
        LocationCase{"whole_degrees", kLat, "38N", 38.0}, LocationCase{"pole", kLat, "90", 90.0},
        LocationCase{"date_line", kLon, "180 0 E", 180.0}, LocationCase{"empty", kLat, "", {}},
        LocationCase{"rubbish", kLat, "north", {}}, LocationCase{"beyond_pole", kLat, "90.1", {}},
        LocationCase{"beyond_date_line", kLon, "181", {}},
        LocationCase{"sixty_minutes", kLat, "38 60 N", {}},
        LocationCase{"other_box", kLat, "122°15.00'W", {}},
        LocationCase{"latitude_in_longitude_box", kLon, "38°30.00'N", {}},
        LocationCase{"sign_and_letter", kLat, "-38.5S", {}},
        LocationCase{"part_of_degrees_and_minutes", kLat, "38.5 30 N", {}},
        LocationCase{"something_behind", kLat, "38.5 N x", {}},
        LocationCase{"pair", kLat, "38.5, -122.25", {}}, LocationCase{"comma", kLat, "38,5", {}},
        LocationCase{"exponent", kLat, "3e1", {}},
        LocationCase{"grid_square_latitude", kLat, "FN42", 42.0 + 30.782608695652176 / 60},
        LocationCase{"grid_square_longitude", kLon, " fn42mm\n", -70.97391304347826},
        LocationCase{"grid_square_beyond_R", kLat, "FS42", {}},
        LocationCase{"grid_square_letters_beyond_X", kLat, "FN42YA", {}},
        LocationCase{"grid_square_of_five", kLat, "FN42M", {}},
        LocationCase{"far_too_long", kLat, "00000038.5", {}}),
    [](const auto& param) { return std::string(param.param.sName); });

TEST(LocationText, IsTheFieldsForm)
{
    EXPECT_EQ(LocationToText(kLat, 38.5), QStringLiteral("38°30.00'N"));
    EXPECT_EQ(LocationToText(kLon, -122.25), QStringLiteral("122°15.00'W"));
}

}  // namespace
