#include <gtest/gtest.h>

#include <string>

#include "support/TempFolder.h"
#include "system/PrivateProfileLib.h"
#include "system/RunErrorText.h"

namespace {

constexpr int kBuffer = 256;

/// Reads a key of section "Data" from a file of these bytes.
std::string Read(const std::string& sBytes, const std::string& sKey = "Key", int nBuffer = kBuffer)
{
    const TempFolder folder;
    return PrivateProfileGet("Data", sKey, "(default)", nBuffer, folder.Write("a.ini", sBytes));
}

/// Writes Key=new to section "Data" of a file of these bytes and returns the file.
std::string Write(const std::string& sBytes, const std::string& sValue = "new")
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", sBytes);
    EXPECT_EQ(PrivateProfileWrite("Data", "Key", sValue, sFile), 0);
    return BytesRead(sFile);
}

TEST(PrivateProfileGet, FindsNamesWithoutRegardToCase)
{
    EXPECT_EQ(Read("[DATA]\r\nKEY=1\r\n"), "1");
    EXPECT_EQ(Read("[data]\nkey=1", "KEY"), "1");
}

TEST(PrivateProfileGet, GivesTheDefaultForWhatIsMissing)
{
    EXPECT_EQ(Read(""), "(default)");
    EXPECT_EQ(Read("[Other]\r\nKey=1\r\n"), "(default)");
    EXPECT_EQ(Read("[Data]\r\nKey2=1\r\n[Other]\r\nKey=1\r\n"), "(default)");
    EXPECT_EQ(Read("Key=1\r\n[Data]\r\n"), "(default)") << "before any section";
    const TempFolder folder;
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "x", kBuffer, folder.Path() + "/none.ini"), "x");
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "x", kBuffer, folder.Path() + "/none/none.ini"),
              "x");
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "x", kBuffer, folder.Path()), "x");
}

TEST(PrivateProfileGet, AnEmptyValueIsEmpty)
{
    EXPECT_EQ(Read("[Data]\r\nKey=\r\n"), "");
    EXPECT_EQ(Read("[Data]\r\nKey=  \t \r\n"), "");
    EXPECT_EQ(Read("[Data]\r\nKey="), "");
}

TEST(PrivateProfileGet, TheFirstMatchWins)
{
    EXPECT_EQ(Read("[Data]\r\nKey=1\r\nKey=2\r\n[Data]\r\nKey=3\r\n"), "1");
    EXPECT_EQ(Read("[Data]\r\nOther=1\r\n[Data]\r\nKey=3\r\n"), "(default)");
}

TEST(PrivateProfileGet, DropsBlanksAndOnePairOfQuotes)
{
    EXPECT_EQ(Read("  [Data]\r\n\t Key \t=  a b \t\r\n"), "a b");
    EXPECT_EQ(Read("[Data]\r\nKey= \" a \" \r\n"), " a ");
    EXPECT_EQ(Read("[Data]\r\nKey='a'\r\n"), "a");
    EXPECT_EQ(Read("[Data]\r\nKey=\"\"a\"\"\r\n"), "\"a\"");
    EXPECT_EQ(Read("[Data]\r\nKey=\"a'\r\n"), "\"a'");
    EXPECT_EQ(Read("[Data]\r\nKey=\"\r\n"), "\"");
    EXPECT_EQ(Read("[Data]\r\nKey=\"a\" b\r\n"), "\"a\" b");
}

TEST(PrivateProfileGet, SkipsComments)
{
    EXPECT_EQ(Read("[Data]\r\n;Key=1\r\n  ; Key=2\r\nKey=3 ; kept\r\n"), "3 ; kept");
    EXPECT_EQ(Read(";[Data]\r\nKey=1\r\n"), "(default)");
#ifndef _WIN32  // Windows finds a key of that name
    EXPECT_EQ(Read("[Data]\r\n;Key=1\r\n", ";Key"), "(default)");
#endif
}

TEST(PrivateProfileGet, OnlyTheFirstEqualsSignDivides)
{
    EXPECT_EQ(Read("[Data]\r\nKey=a=b\r\n"), "a=b");
#ifndef _WIN32  // for Windows the line without a value matches first
    EXPECT_EQ(Read("[Data]\r\nKey\r\nKey=1\r\n"), "1");
#endif
}

TEST(PrivateProfileGet, CutsTheValueToTheBuffer)
{
    const std::string sFile = "[Data]\r\nKey=" + std::string(300, 'x') + "\r\n";
    EXPECT_EQ(Read(sFile, "Key", 256), std::string(255, 'x'));
    EXPECT_EQ(Read(sFile, "Key", 512), std::string(300, 'x'));
    EXPECT_EQ(Read(sFile, "Key", 1), "");
    EXPECT_EQ(Read("[Data]\r\nKey=12345\r\n", "Key", 5), "1234");
    EXPECT_EQ(Read("", "Key", 4), "(de");
}

TEST(PrivateProfileGet, ReadsWindows1252)
{
    EXPECT_EQ(Read("[Data]\r\nKey=38\xB0 \x80\r\n"), "38\xC2\xB0 \xE2\x82\xAC");
    EXPECT_EQ(Read("[Data]\r\nH\xF6he=1\r\n", "H\xC3\xB6he"), "1");
    EXPECT_EQ(Read("[Data]\r\nKey=\x81\r\n"), "\xEF\xBF\xBD") << "a byte without a meaning";
}

TEST(PrivateProfileGet, TakesEveryLineEndAndRubbish)
{
    EXPECT_EQ(Read("[Data]\rKey=1\r"), "1");
    EXPECT_EQ(Read("[Data]\nKey=1\n"), "1");
#ifndef _WIN32
    EXPECT_EQ(Read("[Data\r\nKey=1\r\n"), "1") << "an open bracket";
#endif
    EXPECT_EQ(Read("[Data] behind\r\nKey=1\r\n"), "1");
    EXPECT_EQ(Read(std::string("\0\xFF[\r\n=\r\n]\r\n[Data]\r\n=\r\nKey=1\r\n", 29)), "1");
    EXPECT_EQ(Read("[]\r\nKey=1\r\n"), "(default)");
}

TEST(PrivateProfile, IsNotFoundAlsoWhereItsFolderIsMissing)
{
    const TempFolder folder;
    EXPECT_EQ(PrivateProfile::Open(folder.Path("none.ini")).TextGet(), kFileNotFound);
    EXPECT_EQ(PrivateProfile::Open(folder.Path("none/none.ini")).TextGet(), kFileNotFound);
}

TEST(PrivateProfileWrite, ReplacesTheValueAndNothingElse)
{
#ifndef _WIN32  // Wine drops empty lines and terminates the last line
    EXPECT_EQ(
        Write("; top\r\n\r\n[Other]\r\nKey=1\r\n\r\n[Data]\r\nA=1\r\nKey=old\r\nB=2\r\n[Last]\r\n"),
        "; top\r\n\r\n[Other]\r\nKey=1\r\n\r\n[Data]\r\nA=1\r\nKey=new\r\nB=2\r\n[Last]\r\n");
    EXPECT_EQ(Write("[Data]\r\nKey=old"), "[Data]\r\nKey=new");
#endif
    EXPECT_EQ(Write("; top\r\n[Other]\r\nKey=1\r\n[Data]\r\nA=1\r\nKey=old\r\nB=2\r\n[Last]\r\n"),
              "; top\r\n[Other]\r\nKey=1\r\n[Data]\r\nA=1\r\nKey=new\r\nB=2\r\n[Last]\r\n");
    EXPECT_EQ(Write("[Data]\r\nKey=1\r\nKey=2\r\n[Data]\r\nKey=3\r\n"),
              "[Data]\r\nKey=new\r\nKey=2\r\n[Data]\r\nKey=3\r\n");
    EXPECT_EQ(Write("[Data]\r\nKey=\r\nB=1\r\n"), "[Data]\r\nKey=new\r\nB=1\r\n");
    EXPECT_EQ(Write("[Data]\r\nKey=old\r\n", ""), "[Data]\r\nKey=\r\n");
}

TEST(PrivateProfileWrite, AddsTheKeyBehindItsSection)
{
#ifndef _WIN32  // Wine drops the empty line
    EXPECT_EQ(Write("[Data]\r\nA=1\r\n\r\n[Other]\r\nB=1\r\n"),
              "[Data]\r\nA=1\r\nKey=new\r\n\r\n[Other]\r\nB=1\r\n");
#endif
    EXPECT_EQ(Write("[Data]\r\nA=1\r\n[Other]\r\nB=1\r\n"),
              "[Data]\r\nA=1\r\nKey=new\r\n[Other]\r\nB=1\r\n");
    EXPECT_EQ(Write("[Data]"), "[Data]\r\nKey=new\r\n");
    EXPECT_EQ(Write("[Data]\r\n[Data]\r\nKey=3\r\n"), "[Data]\r\nKey=new\r\n[Data]\r\nKey=3\r\n");
}

TEST(PrivateProfileWrite, AddsAMissingSectionAtTheEnd)
{
    EXPECT_EQ(Write(""), "[Data]\r\nKey=new\r\n");
    EXPECT_EQ(Write("[Other]\r\nKey=1"), "[Other]\r\nKey=1\r\n[Data]\r\nKey=new\r\n");
}

TEST(PrivateProfileWrite, MakesAMissingFile)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/new.ini";
    EXPECT_EQ(PrivateProfileWrite("Map Data", "Overlay Grid Size", "40", sFile), 0);
    EXPECT_EQ(PrivateProfileWrite("Map Data", "Overlay Min Snr", "20", sFile), 0);
    EXPECT_EQ(BytesRead(sFile), "[Map Data]\r\nOverlay Grid Size=40\r\nOverlay Min Snr=20\r\n");
}

TEST(PrivateProfileWrite, KeepsForeignBytes)
{
    EXPECT_EQ(Write("\xFF\x81\r\n[Data]\r\nZ=\xB0\r\n", "38\xC2\xB0"),
              "\xFF\x81\r\n[Data]\r\nZ=\xB0\r\nKey=38\xB0\r\n");
}

TEST(PrivateProfileWrite, ReadsBackWhatItWrote)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/a.ini";
    for (const char* sValue : {"38", "C:\\Program Files\\AirMail", "a;b", "[x]", "a=b", "-0.5"}) {
        EXPECT_EQ(PrivateProfileWrite("Data", "Key", sValue, sFile), 0);
        EXPECT_EQ(PrivateProfileGet("Data", "Key", "", kBuffer, sFile), sValue);
    }
}

}  // namespace
