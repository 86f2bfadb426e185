#include <gtest/gtest.h>

#include <ostream>

#include "geo/GridSquareLib.h"
#include "support/MsgRecorder.h"

namespace {

// About half a metre on the ground; the values are worked out by hand from the two formulas.
constexpr double kTolerance = 5e-6;

struct GridCase {
    const char* sGrid;
    const char* sNormalised;
    double dLatitude, dLongitude;
};

std::ostream& operator<<(std::ostream& stm, const GridCase& c) { return stm << c.sGrid; }

class GridSquare : public testing::TestWithParam<GridCase> {};

TEST_P(GridSquare, ConvertsAndNormalises)
{
    const GridCase& c = GetParam();
    std::string sGrid = c.sGrid;
    double dLat = -999.0;
    double dLon = -999.0;
    ASSERT_TRUE(GridSquareToPosition(sGrid, dLat, dLon, CallMessages()));
    EXPECT_EQ(sGrid, c.sNormalised);
    EXPECT_NEAR(dLat, c.dLatitude, kTolerance);
    EXPECT_NEAR(dLon, c.dLongitude, kTolerance);
}

INSTANTIATE_TEST_SUITE_P(
    All, GridSquare,
    testing::Values(
        // A square of four characters: the sub-square MM is added.
        GridCase{"FN42", "FN42MM", 42.513043, -70.973913},
        GridCase{"fn42", "FN42MM", 42.513043, -70.973913},
        // Characters after the sixth do not count, but stay in the text.
        GridCase{"FN42MM99", "FN42MM99", 42.513043, -70.973913},
        GridCase{"Fn42mm9", "FN42MM9", 42.513043, -70.973913},
        // A is minute 0, X is minute 59: 59 / 60 of a degree of latitude, twice of longitude.
        GridCase{"JJ00AA", "JJ00AA", 0.0, 0.0}, GridCase{"JJ00XX", "JJ00XX", 0.983333, 1.966667},
        GridCase{"JJ00BA", "JJ00BA", 0.0, 0.085507}, GridCase{"JJ00AB", "JJ00AB", 0.042754, 0.0},
        GridCase{"AA00AA", "AA00AA", -90.0, -180.0},
        GridCase{"RR99XX", "RR99XX", 89.983333, 179.966667},
        // Ranges are not checked: the codes of the characters are taken as they are.
        GridCase{"ZZ::[[", "ZZ::[[", 171.111594, 342.223188},
        GridCase{"      ", "      ", -437.410870, -874.821739},
        // A character outside ASCII is one character (code 176 here), not two bytes.
        GridCase{"JJ0\xC2\xB0", "JJ0\xC2\xB0MM", 128.513043, 1.026087}));

TEST(GridSquareLib, ShortTextsFailAndKeepTheOutputs)
{
    for (const std::string sText : {"", "f", "fn", "fn4", "fn42m"}) {
        std::string sGrid = sText;
        double dLat = 1.5;
        double dLon = 2.5;
        MsgRecorder msg;
        EXPECT_FALSE(GridSquareToPosition(sGrid, dLat, dLon, CallMessages())) << sText;
        EXPECT_EQ(dLat, 1.5);
        EXPECT_EQ(dLon, 2.5);
        ASSERT_EQ(msg.m_aShown.size(), 1U);
        EXPECT_EQ(msg.m_aShown[0].eIcon, MsgIcon::None);
    }
    MsgRecorder msg;
    std::string sGrid = "fn42m";
    double dLat = 0.0;
    double dLon = 0.0;
    EXPECT_FALSE(GridSquareToPosition(sGrid, dLat, dLon, CallMessages()));
    EXPECT_EQ(sGrid, "FN42M");
    EXPECT_EQ(msg.m_aShown.at(0).sText, "Unable to Convert Grid FN42M to Lat/Lon");
    sGrid = "";
    EXPECT_FALSE(GridSquareToPosition(sGrid, dLat, dLon, CallMessages()));
    EXPECT_EQ(msg.m_aShown.at(1).sText, "Unable to Convert Grid  to Lat/Lon");
}

TEST(GridSquareLib, ShortTextsFailInSilenceWhenNotAsked)
{
    std::string sGrid = "FN42M";
    double dLat = 0.0;
    double dLon = 0.0;
    EXPECT_FALSE(GridSquareToPosition(sGrid, dLat, dLon, nullptr));
}

}  // namespace
