#include <gtest/gtest.h>

#include "ui/common/LocationText.h"

namespace {

constexpr auto kLat = LocationKind::Latitude;
constexpr auto kLon = LocationKind::Longitude;

TEST(LocationText, IsReadAsTheParserReadsIt)
{
    const auto res = LocationFromText(kLon, QStringLiteral("122°15′W"));
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_EQ(res.ValueGet().dLon, -122.25);
    EXPECT_FALSE(res.ValueGet().dLat);
    EXPECT_FALSE(LocationFromText(kLat, QStringLiteral("122°15′W")));
}

TEST(LocationText, IsTheFieldsForm)
{
    EXPECT_EQ(LocationToText(kLat, 38.5), QStringLiteral("38°30.00'N"));
    EXPECT_EQ(LocationToText(kLon, -122.25), QStringLiteral("122°15.00'W"));
}

}  // namespace
