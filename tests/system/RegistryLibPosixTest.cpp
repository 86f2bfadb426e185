#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "support/TempFolder.h"
#include "system/RegistryLib.h"

namespace {

constexpr int kBuffer = 256;
constexpr const char* kKey = "Software\\Sirius Cybernetics\\AirMail\\Installation";
constexpr const char* kHead =
    "WINE REGISTRY Version 2\n;; All keys relative to "
    "\\\\User\\\\S-1-5-21-0-0-0-1000\n\n#arch=win64\n\n";
constexpr const char* kSection =
    "[Software\\\\Sirius Cybernetics\\\\AirMail\\\\Installation] 1700000000\n#time=1da0c\n";

class RegistryLibPosix : public testing::Test {
protected:
    TempFolder m_folder;
    EnvironmentSet m_prefix{"WINEPREFIX", m_folder.Path()};

    std::optional<RegistryString> Get(const std::string& sLines,
                                      const std::string& sName = "Install Folder",
                                      int nMaxBytes = kBuffer)
    {
        m_folder.Write("user.reg", sLines);
        return RegistryStringGet(kKey, sName, nMaxBytes);
    }
    std::string ValueGet(const std::string& sValue)
    {
        const auto value =
            Get(std::string(kHead) + kSection + "\"Install Folder\"=" + sValue + "\n");
        return value ? value->sValue + '/' + std::to_string(value->nBytes) : "(none)";
    }
};

TEST_F(RegistryLibPosix, ReadsAString)
{
    const auto value =
        Get(std::string(kHead) + "[Software\\\\Other] 1\n\"Install Folder\"=\"no\"\n\n" + kSection
            + "\"A\"=\"1\"\n\"Install Folder\"=\"C:\\\\Program Files\\\\AirMail\\\\\"\n");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->sValue, "C:\\Program Files\\AirMail\\");
    EXPECT_EQ(value->nBytes, 26) << "with its NUL";
}

TEST_F(RegistryLibPosix, NamesHaveNoCase)
{
    EXPECT_TRUE(Get(
        "[software\\\\SIRIUS cybernetics\\\\airmail\\\\installation]\n\"install FOLDER\"=\"x\"\n"));
}

TEST_F(RegistryLibPosix, WhatIsMissingIsNothing)
{
    EXPECT_FALSE(RegistryStringGet(kKey, "Install Folder", kBuffer)) << "no file";
    EXPECT_FALSE(Get(""));
    EXPECT_FALSE(Get(kHead));
    EXPECT_FALSE(Get(std::string(kSection) + "\"Other\"=\"x\"\n"));
    EXPECT_FALSE(Get(std::string(kSection) + "\n[Software\\\\Next] 1\n\"Install Folder\"=\"x\"\n"));
    EXPECT_FALSE(
        Get("[Software\\\\Sirius Cybernetics\\\\AirMail\\\\Installation\\\\Sub] 1\n"
            "\"Install Folder\"=\"x\"\n"));
}

TEST_F(RegistryLibPosix, BothStringFormsAreTakenAndOthersAreNot)
{
    EXPECT_EQ(ValueGet("\"abc\""), "abc/4");
    EXPECT_EQ(ValueGet("str(2):\"%HOME%\\\\x\""), "%HOME%\\x/9");
    EXPECT_EQ(ValueGet("\"\""), "/1");
    EXPECT_EQ(ValueGet("dword:00000001"), "(none)");
    EXPECT_EQ(ValueGet("hex:01,02,\\"), "(none)");
    EXPECT_EQ(ValueGet("str(7):\"a\\0b\\0\""), "(none)");
    EXPECT_EQ(ValueGet("\"cut in mid-li"), "(none)");
    EXPECT_EQ(ValueGet(""), "(none)");
}

TEST_F(RegistryLibPosix, UndoesEscapes)
{
    EXPECT_EQ(ValueGet(R"("a\"b\\c]")"), "a\"b\\c]/7");
    EXPECT_EQ(ValueGet(R"("K\xf6ln")"), "K\xC3\xB6ln/5");
    EXPECT_EQ(ValueGet(R"("K\x00f6b")"),
              "K\xC3\xB6"
              "b/4")
        << "four digits, then a letter";
    EXPECT_EQ(ValueGet(R"("\x20ac")"), "\xE2\x82\xAC/2");
    EXPECT_EQ(ValueGet(R"("\xd83d\xde00")"), "\xF0\x9F\x98\x80/2") << "two halves of one character";
    EXPECT_EQ(ValueGet(R"("a\tb\nc\101")"), "a\tb\ncA/7");
    EXPECT_EQ(ValueGet(R"("a\0b")"), "a/4");
    EXPECT_EQ(ValueGet(R"("\x")"), std::string("/2"));
    EXPECT_EQ(ValueGet(R"("a\)"), "(none)");
}

TEST_F(RegistryLibPosix, HalfACharacterIsReplaced)
{
    EXPECT_EQ(ValueGet(R"("a\xd83d")"), "a\xEF\xBF\xBD/3");
    EXPECT_EQ(ValueGet(R"("\xdea2 b")"), "\xEF\xBF\xBD b/4");
    EXPECT_EQ(ValueGet(R"("\xd83dX\xde00")"), "\xEF\xBF\xBDX\xEF\xBF\xBD/4") << "not side by side";
}

TEST_F(RegistryLibPosix, AByteBeyondAsciiIsTheCharacterOfItsNumber)
{
    EXPECT_EQ(ValueGet("\"K\xF6ln\""), "K\xC3\xB6ln/5");
}

TEST_F(RegistryLibPosix, TheLastValueOfANameCounts)
{
    const auto value =
        Get(std::string(kSection) + "\"Install Folder\"=\"a\"\n\"Install Folder\"=\"b\"\n");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->sValue, "b");
}

TEST_F(RegistryLibPosix, TheDefaultValueHasNoName)
{
    EXPECT_TRUE(Get(std::string(kSection) + "@=\"x\"\n", ""));
    EXPECT_FALSE(Get(std::string(kSection) + "@=\"x\"\n"));
}

TEST_F(RegistryLibPosix, ALongerValueThanTheBufferFails)
{
    const std::string sLines =
        std::string(kSection) + "\"Install Folder\"=\"" + std::string(255, 'x') + "\"\n";
    EXPECT_TRUE(Get(sLines, "Install Folder", 256));
    EXPECT_FALSE(Get(sLines, "Install Folder", 255));
    EXPECT_FALSE(Get(sLines, "Install Folder", 0));
    EXPECT_FALSE(Get(sLines, "Install Folder", -1));
}

TEST_F(RegistryLibPosix, AFileCutAnywhereIsRead)
{
    const std::string sWhole =
        std::string(kHead) + kSection + "\"Install Folder\"=str(2):\"C:\\\\\\xf6\"\r\n";
    for (std::size_t n = 0; n < sWhole.size() - 3; ++n) EXPECT_FALSE(Get(sWhole.substr(0, n))) << n;
    ASSERT_TRUE(Get(sWhole));
    EXPECT_EQ(Get(sWhole)->sValue, "C:\\\xC3\xB6");
}

}  // namespace
