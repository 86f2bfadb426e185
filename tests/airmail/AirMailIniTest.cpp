#include <gtest/gtest.h>

#include <filesystem>

#include "airmail/AirMailFixture.h"
#include "airmail/AirMailIni.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace fs = std::filesystem;

namespace {

class AirMailIni : public AirMailFixture {
protected:
    std::string VersionWith(const std::string& sValue) const
    {
        AirMailWrite("Airmail.ini", "[Settings]\r\nLast Program Version=" + sValue + "\r\n");
        return AirMailVersionText();
    }
    // A read that must fail with the usual box.
    void MissingExpect() const
    {
        MsgRecorder msg;
        EXPECT_EQ(AirMailIniGet("Airmail.ini", "Propagation", "SSN", CallMessages()), "");
        const MsgShown shown = OneShown(msg);
        EXPECT_EQ(shown.eIcon, MsgIcon::Exclamation);
        EXPECT_EQ(shown.sText,
                  "Unable to find AirMail's Propagation, SSN in \"Airmail.ini\"." + kHintDefault);
    }
};

TEST_F(AirMailIni, ReadsAValueInTheProgramsAlphabet)
{
    AirMailWrite("Airmail.ini", "[Position Report]\r\nComment=wind \x80 5, 27\xB0\r\n");
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "Position Report", "Comment", CallMessages()),
              "wind \xE2\x82\xAC 5, 27\xC2\xB0");
}

TEST_F(AirMailIni, SectionsKeysAndFilesAreFoundInAnyCase)
{
    AirMailWrite("AIRMAIL.ini", "[propagation]\r\n; SSN=1\r\nssn = 85\r\nSSN=90\r\n");
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "Propagation", "SSN", CallMessages()), "85");
}

TEST_F(AirMailIni, ValueIsCutTo511Characters)
{
    AirMailWrite("Airmail.ini", "[A]\r\nb=" + std::string(511, 'x') + "y\r\n");
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "A", "b", CallMessages()), std::string(511, 'x'));
}

TEST_F(AirMailIni, WhatIsMissingOrEmptyIsTold)
{
    MissingExpect();  // no file
    AirMailWrite("Airmail.ini", "[Other]\r\nSSN=1\r\n");
    MissingExpect();
    AirMailWrite("Airmail.ini", "[Propagation]\r\nLatitude=1\r\n");
    MissingExpect();
    AirMailWrite("Airmail.ini", "[Propagation]\r\nSSN=\r\n");
    MissingExpect();
    AirMailWrite("Airmail.ini", "[Propagation]\r\nSSN=   \r\n");
    MissingExpect();
}

TEST_F(AirMailIni, WhatIsMissingStaysSilentWhenNotAsked)
{
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "Propagation", "SSN", nullptr), "");
}

TEST_F(AirMailIni, FilesThatAreNoneAreToldAsMissing)
{
    const std::string sFile = AirMailPath("Airmail.ini");
    fs::create_directory(sFile);
    MissingExpect();
#ifndef _WIN32
    fs::remove(sFile);
    fs::create_symlink("nowhere", sFile);
    MissingExpect();
#endif
}

#ifndef _WIN32
TEST_F(AirMailIni, FileWithoutReadPermissionIsToldAsMissing)
{
    const std::string sFile = AirMailWrite("Airmail.ini", "[Propagation]\r\nSSN=85\r\n");
    fs::permissions(sFile, fs::perms::none);
    AsUnprivileged([&] { MissingExpect(); });
    fs::permissions(sFile, fs::perms::owner_all);
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "Propagation", "SSN", CallMessages()), "85");
}

#endif

TEST_F(AirMailIni, LongLinesAndNulBytesDoNoHarm)
{
    AirMailWrite("Airmail.ini", std::string(1000000, 'x') + "\r\n[" + std::string(1000000, 'y')
                                    + "]\r\n[Propagation]\r\n" + std::string(1000000, '=') + "\r\n"
                                    + std::string(1000, '\0') + "\r\nSSN=85\r\n");
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "Propagation", "SSN", CallMessages()), "85");
    EXPECT_EQ(AirMailIniGet("Airmail.ini", std::string(1000000, 'z'), "SSN", nullptr), "");
}

TEST_F(AirMailIni, HintNamesTheDataFolderInForce)
{
    EXPECT_EQ(AirMailFolderHint(), kHintDefault);
    AirMailDataFolderSet("D:\\Mail & More");
    EXPECT_EQ(AirMailFolderHint(),
              "\r\rPlease check that the AirMail Data folder \"D:\\Mail & More\" is correct.");
    EXPECT_EQ(AirMailFolderHint().find('\n'), std::string::npos);
}

TEST_F(AirMailIni, ForeignTextsInMessagesAreCutAndPrintable)
{
    MsgRecorder msg;
    AirMailDataFolderSet("D:\\\x1b]0;x\x07" + std::string(300, 'd'));
    EXPECT_EQ(AirMailIniGet("System.\x1b.ini", "Station Info", "K\r\nEY", CallMessages()), "");
    EXPECT_EQ(OneShown(msg).sText,
              "Unable to find AirMail's Station Info, K  EY in \"System. .ini\".\r\rPlease check "
              "that the AirMail Data folder \"D:\\ ]0;x "
                  + std::string(191, 'd') + "...\" is correct.");
}

TEST_F(AirMailIni, VersionIsPrintable)
{
    EXPECT_EQ(VersionWith("9\x1b[2J"), "Airmail 9 [2J.  This program was tested with 3.1.936.");
}

TEST_F(AirMailIni, DataFolderMayBeAFolderOfTheHost)
{
    m_folder.Write("mail/airmail.INI", "[Propagation]\r\nSSN=85\r\n");
    AirMailDataFolderSet(m_folder.Path("mail"));
    EXPECT_EQ(AirMailIniGet("Airmail.ini", "Propagation", "SSN", CallMessages()), "85");
}

TEST_F(AirMailIni, VersionTestedWithStandsAlone)
{
    EXPECT_EQ(VersionWith("3.1.936"), "Airmail 3.1.936");
}

TEST_F(AirMailIni, OtherVersionsGetTheNotice)
{
    for (const std::string sVersion : {"3.1.935", "3.4.062", "3.1.936a", "beta"})
        EXPECT_EQ(VersionWith(sVersion),
                  "Airmail " + sVersion + ".  This program was tested with 3.1.936.");
    // Without the quotes the reader would drop the blank.
    EXPECT_EQ(VersionWith("\"3.1.936 \""),
              "Airmail 3.1.936 .  This program was tested with 3.1.936.");
}

TEST_F(AirMailIni, UnknownVersionIsToldWithoutABox)
{
    EXPECT_EQ(AirMailVersionText(), "Unable to get current version number.");
    EXPECT_EQ(VersionWith(""), "Unable to get current version number.");
}

TEST_F(AirMailIni, SunSpotNumberIsTheTextOfItsKey)
{
    AirMailWrite("Airmail.ini", "[Propagation]\r\nSSN=112.5\r\n");
    EXPECT_EQ(AirMailSunSpotNumberGet(CallMessages()), "112.5");
    AirMailWrite("Airmail.ini", "[Propagation]\r\nSSN=\r\n");
    EXPECT_EQ(AirMailSunSpotNumberGet(nullptr), "");
    MsgRecorder msg;
    EXPECT_EQ(AirMailSunSpotNumberGet(CallMessages()), "");
    EXPECT_EQ(OneShown(msg).sText,
              "Unable to find AirMail's Propagation, SSN in \"Airmail.ini\"." + kHintDefault);
}

}  // namespace
