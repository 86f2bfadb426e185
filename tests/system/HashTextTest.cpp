#include <gtest/gtest.h>

#include "system/HashText.h"

namespace {

TEST(HashText, IsFnv1aInBothWidths)
{
    // Test vectors from the draft on FNV.
    EXPECT_EQ(HashText32(""), "811c9dc5");
    EXPECT_EQ(HashText32("a"), "e40c292c");
    EXPECT_EQ(HashText32("foobar"), "bf9cf968");
    EXPECT_EQ(HashText64(""), "cbf29ce484222325");
    EXPECT_EQ(HashText64("a"), "af63dc4c8601ec8c");
    EXPECT_EQ(HashText64("foobar"), "85944171f73967e8");
}

TEST(HashText, TakesBytesAboveAsciiAndZeros)
{
    EXPECT_NE(HashText32("\xE9"), HashText32("i"));
    EXPECT_NE(HashText64(std::string(1, '\0')), HashText64(""));
    EXPECT_EQ(HashText32("\xFF").size(), 8U);
}

}  // namespace
