// Texts in files under the system's code page. CTest runs these tests with several
// (HOPCAST_CODE_PAGE).
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <string>

#include "support/TempFolder.h"
#include "system/AnsiLib.h"
#include "system/PrivateProfileLib.h"

namespace {

constexpr int kBuffer = 256;
constexpr UINT kUtf8 = 65001;
constexpr UINT kChinese = 936;
constexpr UINT kJapanese = 932;

/// A file in Windows-1252, as older machines and Airmail write it.
constexpr const char* kOldFile =
    "; Gr\xFC\xDF"
    "e\r\n[Position Report]\r\nCurrent Latitude=38\xB0"
    "30.00'N\r\nCurrent Longitude=\"122\xB0"
    "15.00'W\"\r\n[Data]\r\nFolder=C:\\B\xFC \\\r\nPlain=1\r\n"
    "Malm\xF8ya=Norge\r\nPort=M\xE9xico\r\n";

std::string ValueGet(const std::string& sFile, const char* sSection, const char* sKey)
{
    return PrivateProfileGet(sSection, sKey, "", kBuffer, sFile);
}

std::string AirmailGet(const std::string& sFile, const char* sSection, const char* sKey)
{
    return PrivateProfileGetWindows1252(sSection, sKey, "", kBuffer, sFile);
}

TEST(CodePageWin32, IsTheOneOfThisRun)
{
    const char* sCodePage = std::getenv("HOPCAST_CODE_PAGE");
    EXPECT_EQ(std::to_string(GetACP()), sCodePage != nullptr ? sCodePage : "1252");
}

TEST(CodePageWin32, TextsOfAirmailAreReadUnderEveryOne)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("Airmail.ini", kOldFile);
    EXPECT_EQ(AirmailGet(sFile, "Position Report", "Current Latitude"),
              "38\xC2\xB0"
              "30.00'N");
    EXPECT_EQ(AirmailGet(sFile, "POSITION REPORT", "current longitude"),
              "122\xC2\xB0"
              "15.00'W");
    EXPECT_EQ(AirmailGet(sFile, "Data", "Malm\xC3\xB8ya"), "Norge");
    EXPECT_EQ(AirmailGet(sFile, "Data", "Port"), "M\xC3\xA9xico");
    EXPECT_EQ(PrivateProfileGetWindows1252("Position Report", "Current Latitude", "", 4, sFile),
              "38\xC2\xB0");
    EXPECT_EQ(PrivateProfileGetWindows1252("Position Report", "None", "27", kBuffer, sFile), "27");
}

TEST(CodePageWin32, AFolderWrittenUnder1252IsReadUnderEveryOne)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("old.ini", kOldFile);
    EXPECT_EQ(ValueGet(sFile, "Data", "Folder"), "C:\\B\xC3\xBC \\");
}

TEST(CodePageWin32, WhatWasReadFromAnOldFileAndIsWrittenIsReadAgain)
{
    // Every byte must have a meaning in the code page: the accent has one in the Chinese but not in
    // the Japanese, and the last two bytes are one character in either.
    const bool bAccent = GetACP() != kJapanese;
    const TempFolder folder;
    const std::string sFile =
        folder.Write("old.ini", "[Data]\r\nOne=C:\\M" + std::string(bAccent ? "\xE9" : "e")
                                    + " x\r\nTwo=C:\\Gr\xF6\xDF\r\nPlain=1\r\n");
    const std::string sOne = ValueGet(sFile, "Data", "One");
    const std::string sTwo = ValueGet(sFile, "Data", "Two");
    EXPECT_EQ(PrivateProfileWrite("Data", "One", sOne, sFile), 0);
    EXPECT_EQ(PrivateProfileWrite("Data", "Two", sTwo, sFile), 0);
    EXPECT_EQ(PrivateProfileWrite("Data", "Plain", "2", sFile), 0);
    EXPECT_EQ(ValueGet(sFile, "Data", "One"), sOne);
    EXPECT_EQ(ValueGet(sFile, "Data", "Two"), sTwo);
    EXPECT_EQ(ValueGet(sFile, "Data", "Plain"), "2");
    if (GetACP() == 1252 || GetACP() == kUtf8) {
        EXPECT_EQ(sOne, "C:\\M\xC3\xA9 x");
        EXPECT_EQ(sTwo, "C:\\Gr\xC3\xB6\xC3\x9F");
    }
}

TEST(CodePageWin32, FoldersInTheMachinesOwnAlphabetAreKept)
{
    const TempFolder folder;
    const std::string sFile = folder.Path("new.ini");
    // "data" in Chinese, "wave" in Japanese, umlauts in Western Europe; UTF-8 has all of them.
    const std::string sName = GetACP() == kChinese    ? "C:\\\xE6\x95\xB0\xE6\x8D\xAE\\"
                              : GetACP() == kJapanese ? "C:\\\xE6\xB3\xA2\\"
                              : GetACP() == kUtf8     ? "C:\\\xCE\x9A\xC3\xBC\xE6\x95\xB0\\"
                                                      : "C:\\Gr\xC3\xB6\xC3\x9F"
                                                        "e\\";
    EXPECT_EQ(PrivateProfileWrite("Data", "Folder", sName, sFile), 0);
    EXPECT_EQ(PrivateProfileWrite("Data", "Other", "1", sFile), 0);
    EXPECT_EQ(ValueGet(sFile, "Data", "Folder"), sName);
    EXPECT_EQ(Utf8FromFileBytes(FileBytesFromUtf8(sName)), sName);
}

TEST(CodePageWin32, BytesOfNoAlphabetAreReplacedAndNeverLost)
{
    for (int nByte = 0x80; nByte <= 0xFF; ++nByte) {
        const std::string sByte(1, static_cast<char>(nByte));
        EXPECT_GT(Utf8FromFileBytes("a" + sByte + "b").size(), 1U) << nByte;
        EXPECT_EQ(Utf8FromFileBytes("1" + sByte + "2").substr(0, 1), "1") << nByte;
    }
    EXPECT_EQ(Utf8FromFileBytes(""), "");
    EXPECT_EQ(Utf8FromFileBytes("plain"), "plain");
}

}  // namespace
