#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "airmail/AirMailFixture.h"
#include "airmail/AirMailFolders.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace fs = std::filesystem;

namespace {

const std::string kDefault = "C:\\Program Files\\AirMail";

class AirMailFolders : public AirMailFixture {
protected:
    void RegistryWrite(const std::string& sValue) const { m_drive.RegistryWrite(sValue); }
    // Runs the search and expects Airmail's program in the default folder.
    static std::string DataFind()
    {
        AirMailFoldersFind();
        EXPECT_EQ(AirMailProgramFolderGet(), kDefault);
        return AirMailDataFolderGet();
    }
    std::string LogFind(const std::string& sLog) const
    {
        AirMailWrite("Airmail3.exe", "MZ");
        AirMailWrite("Install.log", sLog);
        return DataFind();
    }
};

TEST_F(AirMailFolders, StartAtTheDefaultAndGoBackToIt)
{
    EXPECT_EQ(AirMailProgramFolderGet(), kDefault);
    EXPECT_EQ(AirMailDataFolderGet(), kDefault);
    AirMailProgramFolderSet("D:\\A");
    AirMailDataFolderSet("D:\\B");
    EXPECT_EQ(AirMailProgramFolderGet(), "D:\\A");
    EXPECT_EQ(AirMailDataFolderGet(), "D:\\B");
    AirMailFoldersReset();
    EXPECT_EQ(AirMailProgramFolderGet(), kDefault);
    EXPECT_EQ(AirMailDataFolderGet(), kDefault);
}

TEST_F(AirMailFolders, KeepWhatIsThereWhenProgramAndIniAreInPlace)
{
    RegistryWrite(R"("D:\\Other\\")");
    AirMailWrite("Install.log", "NewCommonRoot= E:\\Data\\\r\n");
    AirMailWrite("Airmail3.exe", "MZ");
    AirMailWrite("Airmail.ini", "");
    EXPECT_EQ(DataFind(), kDefault);
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Default);
}

TEST_F(AirMailFolders, ProgramInPlaceMeansThatTheRegistryIsNotRead)
{
    RegistryWrite(R"("D:\\Other\\")");
    AirMailWrite("Airmail3.exe", "MZ");
    EXPECT_EQ(DataFind(), kDefault);
    // Airmail.ini is missing, so the log of the default folder is searched.
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\Data\\\r\n"), "E:\\Data");
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::InstallLog);
    EXPECT_EQ(AirMailProgramOriginGet(), AirMailOrigin::Default);
}

TEST_F(AirMailFolders, RegistryGivesBothFoldersWithoutTheBackslash)
{
    RegistryWrite(R"("C:\\Radio\\Airmail\\")");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\Radio\\Airmail");
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\Radio\\Airmail");
    EXPECT_EQ(AirMailProgramOriginGet(), AirMailOrigin::Registry);
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Registry);
}

TEST_F(AirMailFolders, RegistryTextIsReadInBothStringFormsAndWithEscapes)
{
    RegistryWrite(R"(str(2):"C:\\Radio\\")");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\Radio");
    RegistryWrite(R"("C:\\B\xe5t\\")");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\B\xC3\xA5t");
    // One character is dropped, even where its UTF-8 form takes two bytes.
    RegistryWrite(R"("C:\\Bod\xf8")");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\Bod");
}

TEST_F(AirMailFolders, RegistryTextWithoutABackslashLosesItsLastCharacter)
{
    RegistryWrite(R"("C:\\Radio\\Airmail")");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\Radio\\Airmai");
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\Radio\\Airmai");
}

TEST_F(AirMailFolders, RegistryTextOfMoreThan256BytesIsNotTaken)
{
    // 255 characters and the NUL fit.
    RegistryWrite("\"" + std::string(255, 'x') + "\"");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), std::string(254, 'x'));
    AirMailFoldersReset();
    RegistryWrite("\"" + std::string(256, 'x') + "\"");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), kDefault);
}

TEST_F(AirMailFolders, FailedRegistryStopsTheSearchAtOnce)
{
    // The log names a folder, but without the program the search never reaches it.
    AirMailWrite("Install.log", "NewCommonRoot= E:\\Data\\\r\n");
    EXPECT_EQ(DataFind(), kDefault);  // no user.reg
    RegistryWrite("dword:00000001");
    EXPECT_EQ(DataFind(), kDefault);
    RegistryWrite("\"\"");  // the NUL alone: nothing to drop
    EXPECT_EQ(DataFind(), kDefault);
    RegistryWrite("\"cut");
    EXPECT_EQ(DataFind(), kDefault);
    EXPECT_EQ(AirMailProgramOriginGet(), AirMailOrigin::Default);
}

#ifndef _WIN32
TEST_F(AirMailFolders, NoWinePrefixIsSilent)
{
    const EnvironmentSet prefix("WINEPREFIX", m_folder.Path() + "/none");
    EXPECT_EQ(DataFind(), kDefault);
}
#endif

TEST_F(AirMailFolders, RegistryProgramFolderMayNameTheDataFolderByItsLog)
{
    RegistryWrite(R"("C:\\Radio\\")");
    DriveWrite("Radio/Install.log", "NewCommonRoot= C:\\ProgramData\\Airmail\\\r\n");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailProgramFolderGet(), "C:\\Radio");
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\ProgramData\\Airmail");
    EXPECT_EQ(AirMailProgramOriginGet(), AirMailOrigin::Registry);
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::InstallLog);
    // With Airmail.ini beside the program the log is not read.
    DriveWrite("Radio/Airmail.ini", "");
    AirMailFoldersFind();
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\Radio");
}

TEST_F(AirMailFolders, LogLineLosesItsLastCharacter)
{
    EXPECT_EQ(LogFind("a\r\nNewCommonRoot= E:\\Data\\\r\nb\r\n"), "E:\\Data");
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\Data\r\n"), "E:\\Dat");
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\Data\\ \n"), "E:\\Data\\");
    EXPECT_EQ(LogFind("at 10:11 NewCommonRoot= E:\\Data\\"), "E:\\Data");
    EXPECT_EQ(LogFind("NewCommonRoot= x"), "");
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\B\xE5t\\\r\n"), "E:\\B\xC3\xA5t");
    // Only the first mark of a line counts.
    EXPECT_EQ(LogFind("NewCommonRoot= NewCommonRoot= E:\\"), "NewCommonRoot= E:");
}

TEST_F(AirMailFolders, LaterLogLineWins)
{
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\One\\\r\nNewCommonRoot= E:\\Two\\\r\nend\r\n"),
              "E:\\Two");
}

TEST_F(AirMailFolders, OtherLogLinesAreNotRecognised)
{
    EXPECT_EQ(LogFind("NewCommonRoot=E:\\Data\\\r\n"), kDefault);
    EXPECT_EQ(LogFind("newcommonroot= E:\\Data\\\r\n"), kDefault);
    EXPECT_EQ(LogFind("NewCommonRoot =  E:\\Data\\\r\n"), kDefault);
    EXPECT_EQ(LogFind(""), kDefault);
}

TEST_F(AirMailFolders, LogMarkWithNothingBehindItEndsTheSearch)
{
    EXPECT_EQ(
        LogFind("NewCommonRoot= E:\\One\\\r\nNewCommonRoot= \r\nNewCommonRoot= E:\\Two\\\r\n"),
        "E:\\One");
}

TEST_F(AirMailFolders, NamesAreFoundInAnyCase)
{
    DriveWrite("PROGRAM FILES/airmail/AIRMAIL3.EXE", "MZ");
    DriveWrite("PROGRAM FILES/airmail/INSTALL.LOG", "NewCommonRoot= E:\\Data\\\r\n");
    EXPECT_EQ(DataFind(), "E:\\Data");
    AirMailFoldersReset();
    DriveWrite("PROGRAM FILES/airmail/airmail.INI", "");
    EXPECT_EQ(DataFind(), kDefault);
}

TEST_F(AirMailFolders, FoldersNamedLikeTheFilesAreNotTheFiles)
{
    fs::create_directories(AirMailPath("Airmail.ini"));
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\Data\\\r\n"), "E:\\Data");
    AirMailFoldersReset();
    fs::remove(AirMailPath("Airmail3.exe"));
    fs::create_directories(AirMailPath("Airmail3.exe"));
    EXPECT_EQ(DataFind(), kDefault);  // no program and no registry: the log is not reached
}

#ifndef _WIN32  // making links needs a right there that users lack
TEST_F(AirMailFolders, DanglingLinksAreMissingFiles)
{
    AirMailWrite("Airmail3.exe", "MZ");
    const std::string sIni = AirMailPath("Airmail.ini");
    const std::string sLog = AirMailPath("Install.log");
    fs::create_symlink("nowhere", sIni);
    fs::create_symlink("nowhere", sLog);
    EXPECT_EQ(DataFind(), kDefault);
    fs::remove(sLog);
    EXPECT_EQ(LogFind("NewCommonRoot= E:\\Data\\\r\n"), "E:\\Data");
}
#endif

TEST_F(AirMailFolders, LogThatIsAFolderOrCannotBeReadIsSilent)
{
    AirMailWrite("Airmail3.exe", "MZ");
    const std::string sLog = AirMailPath("Install.log");
    fs::create_directory(sLog);
    EXPECT_EQ(DataFind(), kDefault);
#ifndef _WIN32
    fs::remove(sLog);
    fs::create_symlink("/proc/self/mem", sLog);  // opens, but its first bytes cannot be read
    EXPECT_EQ(DataFind(), kDefault);
#endif
}

#ifndef _WIN32  // Windows uses access lists instead, which are not tested here
TEST_F(AirMailFolders, FolderWithoutReadPermissionIsSilent)
{
    RegistryWrite(R"("C:\\Radio\\")");
    DriveWrite("Radio/Install.log", "NewCommonRoot= E:\\Data\\\r\n");
    fs::permissions(m_drive.Path("Radio"), fs::perms::none);
    AsUnprivileged([] {
        AirMailFoldersFind();
        EXPECT_EQ(AirMailDataFolderGet(), "C:\\Radio");
        EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Registry);
    });
    fs::permissions(m_drive.Path("Radio"), fs::perms::owner_all);
}

#endif

TEST_F(AirMailFolders, HugeLogIsReadInBoundedTime)
{
    AirMailWrite("Airmail3.exe", "MZ");
    constexpr std::size_t kLine = std::size_t{1} << 20;
    constexpr int kLines = 50;
    {
        std::ofstream stmLog(AirMailPath("Install.log"), std::ios::binary);
        const std::string sLine(kLine, 'x');
        for (int i = 0; i < kLines; ++i) stmLog << sLine << "\r\n";
        stmLog << "NewCommonRoot= E:\\Data\\\r\n" << std::string(kLine, '\0');
    }
    const auto tStart = std::chrono::steady_clock::now();
    EXPECT_EQ(DataFind(), "E:\\Data");
    EXPECT_LT(std::chrono::steady_clock::now() - tStart, std::chrono::seconds(10));
}

TEST_F(AirMailFolders, EndlessFolderNameIsOnlyAMissingFolder)
{
    LogFind("NewCommonRoot= E:\\" + std::string(1000000, 'x') + "\\\r\n");
    EXPECT_EQ(AirMailDataFolderGet().size(), 1000003U);
    EXPECT_EQ(AirMailVersionText(), "Unable to get current version number.");
    EXPECT_EQ(LogFind(std::string("NewCommonRoot= E:\\D\0ta\\\r\n", 25)),
              std::string("E:\\D\0ta", 7));
    EXPECT_EQ(AirMailVersionText(), "Unable to get current version number.");
}

TEST_F(AirMailFolders, ProfileIsToldAsTheOriginOnlyWhenItSaysSomethingNew)
{
    AirMailDataFolderSet(kDefault);  // a saved profile always names the folder in force
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Default);
    AirMailDataFolderSet("D:\\Mail");
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Profile);
    EXPECT_EQ(AirMailProgramOriginGet(), AirMailOrigin::Default);
    AirMailProgramFolderSet("D:\\Mail");
    EXPECT_EQ(AirMailProgramOriginGet(), AirMailOrigin::Profile);
    AirMailFoldersReset();
    EXPECT_EQ(AirMailDataOriginGet(), AirMailOrigin::Default);
    EXPECT_STREQ(AirMailOriginText(AirMailOrigin::Default), "default");
    EXPECT_STREQ(AirMailOriginText(AirMailOrigin::Profile), "profile");
    EXPECT_STREQ(AirMailOriginText(AirMailOrigin::Registry), "registry");
    EXPECT_STREQ(AirMailOriginText(AirMailOrigin::InstallLog), "install log");
}

TEST_F(AirMailFolders, PathsAreTheFolderABackslashAndTheName)
{
    EXPECT_EQ(AirMailPathGet(kDefault, "Airmail.ini"), "C:\\Program Files\\AirMail\\Airmail.ini");
    EXPECT_EQ(AirMailPathGet("", "Airmail.ini"), "\\Airmail.ini");
#ifndef _WIN32
    // A folder of the host, as a profile may name it.
    EXPECT_EQ(AirMailPathGet("/home/me/mail", "Airmail.ini"), "Z:\\home\\me\\mail\\Airmail.ini");
    EXPECT_EQ(AirMailPathGet(m_drive.Path("A"), "x"), "C:\\A\\x");
#endif
}

}  // namespace
