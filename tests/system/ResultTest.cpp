#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "system/Result.h"
#include "system/RunErrorText.h"

namespace {

Result<std::string> HandedOn(const Result<int>& res)
{
    if (!res)
        return res.ErrorGet();
    return std::to_string(res.ValueGet());
}

TEST(Result, HoldsAValueOrAnError)
{
    const Result<int> resGood(0);  // a value, although it converts to false
    EXPECT_TRUE(resGood);
    EXPECT_EQ(resGood.ValueGet(), 0);
    EXPECT_EQ(resGood.TextGet(), "");
    const Result<int> resBad(RunError{kTypeMismatch});
    EXPECT_FALSE(resBad);
    EXPECT_EQ(resBad.TextGet(), kTypeMismatch);
}

TEST(Result, HandsAnErrorOnUnderAnotherType)
{
    EXPECT_EQ(HandedOn(7).ValueGet(), "7");
    EXPECT_EQ(HandedOn(RunError{kOverflow}).TextGet(), kOverflow);
}

TEST(Result, CarriesValuesThatCannotBeCopied)
{
    Result<std::unique_ptr<int>> res(std::make_unique<int>(5));
    EXPECT_EQ(*std::exchange(res.ValueGet(), nullptr), 5);
    EXPECT_EQ(res.ValueGet(), nullptr);
}

TEST(Result, OfNothingIsGoodByDefault)
{
    EXPECT_TRUE(Result<void>());
    EXPECT_EQ(Result<void>().TextGet(), "");
    const Result<void> resBad(RunError{kDiskFull});
    EXPECT_FALSE(resBad);
    EXPECT_EQ(resBad.TextGet(), kDiskFull);
    EXPECT_EQ(resBad.ErrorGet().sText, kDiskFull);
}

}  // namespace
