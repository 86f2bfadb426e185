#include <gtest/gtest.h>

#include <string>

#include "system/TextLib.h"

namespace {

TEST(Windows1252, CarriesTheDegreeSignAndTheEuro)
{
    EXPECT_EQ(Utf8FromWindows1252("38\xB0"), std::string("38") + std::string(kDegreeSign));
    EXPECT_EQ(Utf8FromWindows1252("\x80"), "\xE2\x82\xAC");
    EXPECT_EQ(Windows1252FromUtf8("\xE2\x82\xAC 38\xC2\xB0"), "\x80 38\xB0");
}

TEST(Windows1252, RoundTripsEveryByteThatHasAMeaning)
{
    for (int nByte = 0; nByte < 256; ++nByte) {
        const std::string sByte(1, static_cast<char>(nByte));
        const std::string sText = Utf8FromWindows1252(sByte);
        if (nByte == 0x81 || nByte == 0x8D || nByte == 0x8F || nByte == 0x90 || nByte == 0x9D) {
            EXPECT_EQ(sText, "\xEF\xBF\xBD") << nByte;
        } else {
            EXPECT_EQ(Windows1252FromUtf8(sText), sByte) << nByte;
        }
    }
}

TEST(Windows1252, ReplacesWhatItLacksAndWhatIsMalformed)
{
    EXPECT_EQ(Windows1252FromUtf8("\xE4\xB8\xAD"), "?");
    EXPECT_EQ(Windows1252FromUtf8("\xF0\x9F\x93\xA1x"), "?x");
    EXPECT_EQ(Windows1252FromUtf8("a\xC2"), "a?");
    EXPECT_EQ(Windows1252FromUtf8("\xC2X"), "?X");
    EXPECT_EQ(Windows1252FromUtf8("\xFFz"), "?z");
}

TEST(Windows1252, ALineEndInALongerFormThanItNeedsIsMalformed)
{
    EXPECT_EQ(Windows1252FromUtf8("a\xC0\x8A"
                                  "b"),
              "a??b");
    EXPECT_EQ(Windows1252FromUtf8("a\xE0\x80\x8A"
                                  "b"),
              "a???b");
    EXPECT_EQ(Windows1252FromUtf8("a\xF0\x80\x80\x8A"
                                  "b"),
              "a????b");
    EXPECT_EQ(Windows1252FromUtf8("\xC1\xBF"), "??");
}

TEST(Utf8Append, TakesEachLength)
{
    std::string sText;
    for (const char32_t nCode : {0x00U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xFFFFU, 0x10000U, 0x10FFFFU})
        Utf8Append(sText, nCode);
    EXPECT_EQ(sText, std::string("\0\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"
                                 "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
                                 20));
}

TEST(TextTrim, DropsBlanksAtTheEndsOnly)
{
    EXPECT_EQ(TextTrim("  a b \t"), "a b");
    EXPECT_EQ(TextTrim("   "), "");
    EXPECT_EQ(TextTrim(""), "");
}

TEST(TextCase, FoldsAsciiLettersAlone)
{
    EXPECT_EQ(TextUpper("fn42\xC3\xA4"), "FN42\xC3\xA4");
    EXPECT_TRUE(TextEqualNoCase("Multipath POWER", "multipath power"));
    EXPECT_FALSE(TextEqualNoCase("a", "ab"));
    EXPECT_FALSE(TextEqualNoCase("a", "b"));
}

TEST(TextColumns, CutsFromColumnOneOnAndEndsWithTheText)
{
    EXPECT_EQ(TextColumns("abcdef", 1, 3), "abc");
    EXPECT_EQ(TextColumns("abcdef", 5, 5), "ef");
    EXPECT_EQ(TextColumns("abcdef", 7, 2), "");
    EXPECT_EQ(TextColumns("abcdef", 2, 0), "");
}

TEST(TextLines, EndWithEitherEndAndTheLastWithNone)
{
    EXPECT_EQ(TextLines("a\r\n\n b\r\r\nc"), (std::vector<std::string_view>{"a", "", " b\r", "c"}));
    EXPECT_EQ(TextLines("a\n"), (std::vector<std::string_view>{"a"}));
    EXPECT_TRUE(TextLines("").empty());
}

TEST(TextPrintable, HasNoControlCharacters)
{
    EXPECT_EQ(TextPrintable("a\r\n\x1b\x7f\xC2\xB0"), "a    \xC2\xB0");
}

TEST(TextPrintable, HasNothingThatATerminalObeys)
{
    // C1 control (CSI), line separator, right-to-left override, a surrogate, a lone byte
    EXPECT_EQ(TextPrintable("a\xC2\x9B"
                            "31mb\xE2\x80\xA8"
                            "c\xE2\x80\xAE"
                            "d"),
              "a 31mb c d");
    EXPECT_EQ(TextPrintable("\xED\xA0\x80"), "\xEF\xBF\xBD");
    EXPECT_EQ(TextPrintable("\x9B"
                            "31m"),
              "\xEF\xBF\xBD"
              "31m");
}

TEST(TextForMessage, KeepsAPrintableTextOfTwoHundredCharacters)
{
    std::string sText;
    for (int n = 0; n < 200; ++n) sText += "\xC3\xA4";
    EXPECT_EQ(TextForMessage(sText), sText);
    EXPECT_EQ(TextForMessage(""), "");
}

TEST(TextForMessage, CutsALongerOneAndSaysSo)
{
    std::string sText;
    for (int n = 0; n < 200; ++n) sText += "\xC3\xA4";
    EXPECT_EQ(TextForMessage(sText + "b"), sText + "...");
}

TEST(TextForMessage, IsOneLineWithoutControlCharacters)
{
    EXPECT_EQ(TextForMessage("KEY\x1b[2J\r\nnext\tcell"), "KEY [2J  next cell");
}

}  // namespace
