#include <gtest/gtest.h>

#include "system/ErrorTextLib.h"

namespace {

TEST(SystemErrorText, GivesTheSystemsWords)
{
#ifdef _WIN32
    const std::string sText = SystemErrorText(5);  // Wine's words differ slightly from Windows'
    EXPECT_TRUE(sText == "Access is denied.\r\n" || sText == "Access denied.\r\n") << sText;
#else
    EXPECT_EQ(SystemErrorText(13), "Permission denied");
    EXPECT_EQ(SystemErrorText(28), "No space left on device");
#endif
}

TEST(SystemErrorText, NamesTheCodeWhenTheSystemHasNoText)
{
    EXPECT_EQ(SystemErrorText(99999), "Error Code 99999");
    EXPECT_EQ(SystemErrorText(-7), "Error Code -7");
}

}  // namespace
