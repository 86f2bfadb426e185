#include <gtest/gtest.h>

#include <cmath>

#include "propagation/AreaBoxes.h"

namespace {

using Boxes = std::vector<AreaBox>;

TEST(AreaBoxes, AnAreaOverLongitude180IsTwoBoxes)
{
    EXPECT_EQ(AreaBoxesGet({10, 60, 150, 230}), (Boxes{{10, 60, 150, 180}, {10, 60, -180, -130}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, 0, 360}), (Boxes{{10, 60, 0, 180}, {10, 60, -180, 0}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, -200, -100}),
              (Boxes{{10, 60, 160, 180}, {10, 60, -180, -100}}));
}

TEST(AreaBoxes, AnyOtherIsOneBoxOfLongitudesFromMinus180To180)
{
    EXPECT_EQ(AreaBoxesGet({10, 60, 20, 180}), (Boxes{{10, 60, 20, 180}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, 180, 230}), (Boxes{{10, 60, -180, -130}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, 237, 251}), (Boxes{{10, 60, -123, -109}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, -20, 30}), (Boxes{{10, 60, -20, 30}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, -180, 180}), (Boxes{{10, 60, -180, 180}}));
    EXPECT_EQ(AreaBoxesGet({10, 60, 340, 380}), (Boxes{{10, 60, -20, 20}}));
}

TEST(AreaBoxes, AnAreaWithoutWidthOrHeightHasNone)
{
    EXPECT_TRUE(AreaBoxesGet({10, 60, 20, 20}).empty());
    EXPECT_TRUE(AreaBoxesGet({60, 10, 20, 30}).empty());
    EXPECT_TRUE(AreaBoxesGet({10, 60, std::nan(""), 30}).empty());
}

TEST(AreaBoxes, PrintedBoundsAreHundredths)
{
    EXPECT_EQ(AreaBoxPrinted({38.4567, 38.5432, -122.485, -122.415}),
              (AreaBox{38.46, 38.54, -122.49, -122.42}));
    EXPECT_EQ(AreaBoxPrinted({-89.9, 89.9, -180, 180}), (AreaBox{-89.9, 89.9, -180, 180}));
}

TEST(AreaBoxes, BoundsBeyondTheirFieldsStay)
{
    EXPECT_EQ(AreaBoxPrinted({-1e300, 1e300, 0, 1}), (AreaBox{-1e300, 1e300, 0, 1}));
}

}  // namespace
