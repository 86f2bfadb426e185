#include <gtest/gtest.h>

#include "propagation/AntennaPower.h"
#include "settings/Settings.h"

namespace {

TEST(AntennaPower, OfREC533IsFiveKilowattsFromTheSecondTypeOn)
{
    EXPECT_EQ(AntennaPowerGet(kEngineRec533, 0), 100.0);
    EXPECT_EQ(AntennaPowerGet(kEngineRec533, 1), 5000.0);
    EXPECT_EQ(AntennaPowerGet(kEngineRec533, 2), std::nullopt);
}

TEST(AntennaPower, OfTheOtherEnginesIsFiveKilowattsOnlyWithTheThirdType)
{
    for (const int iModel : {kEngineIcepac, kEngineVoacap}) {
        EXPECT_EQ(AntennaPowerGet(iModel, 0), 100.0);
        EXPECT_EQ(AntennaPowerGet(iModel, 1), 100.0);
        EXPECT_EQ(AntennaPowerGet(iModel, 2), 5000.0);
        EXPECT_EQ(AntennaPowerGet(iModel, 3), std::nullopt);
    }
}

}  // namespace
