// What only Windows has: its folders, its code page, its read-only files.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

#include "propagation/itshfbc/EngineRoot.h"
#include "support/DriveC.h"
#include "support/TempFolder.h"
#include "system/ErrorTextLib.h"
#include "system/FileLib.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

constexpr int kBuffer = 256;
/// Umlauts, which Windows-1252 has, and letters that it lacks.
constexpr const char* kFolders[] = {
    "Gr\xC3\xB6\xC3\x9F"
    "e",
    "\xCE\x9A\xCF\x8D\xCE\xBC\xCE\xB1 \xE6\xB3\xA2"};

class PlatformWin32 : public testing::Test {
protected:
    DriveC m_drive;
    TempFolder m_folder;
    EnvironmentSet m_root{"HOPCAST_ITSHFBC", std::nullopt};
};

TEST_F(PlatformWin32, ProfilesAreWrittenAndReadInFoldersOfAnyAlphabet)
{
    for (const char* sFolder : kFolders) {
        const std::string sFile = m_folder.Path(std::string(sFolder) + "/" + sFolder + ".ini");
        EXPECT_EQ(PrivateProfileWrite("Data", "Key", "27\xC2\xB0", sFile), 0) << sFolder;
        EXPECT_EQ(PrivateProfileWrite("Data", "Other", "2", sFile), 0) << sFolder;
        EXPECT_EQ(PrivateProfileGet("Data", "Key", "", kBuffer, sFile), "27\xC2\xB0") << sFolder;
        EXPECT_EQ(FilesList(m_folder.Path(sFolder) + "\\*").size(), 1U) << sFolder;
    }
    EXPECT_EQ(BytesRead(m_folder.Path(std::string(kFolders[0]) + "/" + kFolders[0] + ".ini")),
              "[Data]\r\nKey=27\xB0\r\nOther=2\r\n");
}

TEST_F(PlatformWin32, ABareProfileNameIsOfTheCurrentFolderAndNotOfWindows)
{
    const fs::path pthBefore = fs::current_path();
    fs::current_path(m_folder.Path());
    EXPECT_EQ(PrivateProfileWrite("Data", "Key", "1", "bare.ini"), 0);
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "", kBuffer, "bare.ini"), "1");
    fs::current_path(pthBefore);
    EXPECT_EQ(BytesRead(m_folder.Path("bare.ini")), "[Data]\r\nKey=1\r\n");
}

TEST_F(PlatformWin32, AReadOnlyProfileIsLeftAloneAndTold)
{
    const std::string sFile = m_folder.Write("a.ini", "[Data]\r\nKey=1\r\n");
    SetFileAttributesW(fs::path(sFile).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(PrivateProfileWrite("Data", "Key", "2", sFile), ERROR_ACCESS_DENIED);
    EXPECT_EQ(FileReplace(sFile, "x").TextGet(), kPermissionDenied);
    EXPECT_EQ(BytesRead(sFile), "[Data]\r\nKey=1\r\n");
    SetFileAttributesW(fs::path(sFile).c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(PrivateProfileWrite("Data", "Key", "2", m_folder.Path() + "\\none\\a.ini"),
              ERROR_PATH_NOT_FOUND);
}

TEST_F(PlatformWin32, AFileHeldByAnotherProgramIsNotReplacedNorDeleted)
{
    const std::string sFile = m_folder.Write("sound.out", "old");
    const HANDLE hFile = CreateFileW(fs::path(sFile).c_str(), GENERIC_READ, 0, nullptr,
                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    EXPECT_EQ(FileReplace(sFile, "new").TextGet(), kPermissionDenied);
    EXPECT_EQ(FileDelete(sFile).TextGet(), kPermissionDenied);
    EXPECT_EQ(OutputFile::Open(sFile).TextGet(), kPermissionDenied);
    EXPECT_EQ(TextFile::Open(sFile).TextGet(), kPermissionDenied);
    CloseHandle(hFile);
    EXPECT_EQ(BytesRead(sFile), "old");
    EXPECT_TRUE(FilesList(m_folder.Path() + "\\.hopcast-*").empty()) << "a temporary file is left";
    EXPECT_TRUE(FileReplace(sFile, "new"));
}

TEST_F(PlatformWin32, ProgramFilesKeepNoProfile)
{
    const EnvironmentSet data("APPDATA", m_folder.Path("data"));
    const std::string sProgram = m_drive.Write("Program Files/Hopcast/Hopcast.EXE", "MZ");
    m_drive.Write("Program Files/Hopcast/Hopcast.ini", "[Data]\r\nKey=shipped\r\n");
    const std::string sProfile = ProfileFileFor(sProgram);
    EXPECT_EQ(sProfile, m_folder.Path("data") + "\\Hopcast\\Hopcast.ini");
    EXPECT_EQ(BytesRead(sProfile), "[Data]\r\nKey=shipped\r\n");
    const std::string sOwn = m_folder.Write("own/hopcast.exe", "MZ");
    EXPECT_EQ(fs::path(ProfileFileFor(sOwn)), fs::path(m_folder.Path("own/hopcast.ini")));
}

TEST_F(PlatformWin32, AReplacedFileIsNeverWrittenUnderANameThatIsTaken)
{
    const std::string sFile = m_folder.Write("a.ini", "old");
    const std::string sNumber = std::to_string(GetCurrentProcessId());
    const std::string sFixed = m_folder.Write("a.ini.hopcast-" + sNumber, "another's");
    const std::string sFirst = m_folder.Write(".hopcast-" + sNumber + "-0", "another's too");
    EXPECT_TRUE(FileReplace(sFile, "new"));
    EXPECT_EQ(BytesRead(sFile), "new");
    EXPECT_EQ(BytesRead(sFixed), "another's");
    EXPECT_EQ(BytesRead(sFirst), "another's too");
    EXPECT_EQ(FilesList(m_folder.Path() + "\\*").size(), 3U) << "a temporary file is left";
    const std::string sLarge(std::size_t{5} << 20, 'x');
    EXPECT_TRUE(FileReplace(sFile, sLarge));
    EXPECT_EQ(BytesRead(sFile), sLarge);
    EXPECT_EQ(FileReplace(m_folder.Path() + "\\none\\a.ini", "x").TextGet(), kPathNotFound);
}

TEST_F(PlatformWin32, ThePrivateRootIsTheUsersOwn)
{
    for (const char* sFolder : kFolders) {
        const EnvironmentSet local("LOCALAPPDATA", m_folder.Path(sFolder));
        const std::string sRoot = m_folder.Path(sFolder) + "\\Hopcast\\itshfbc";
        m_folder.Write("shipped/rec533w.exe", "MZ of ours");
        const std::string sShipped = m_folder.Path("shipped");
        ASSERT_TRUE(EngineRootProvisionFrom(sShipped, ""));
        EXPECT_EQ(fs::path(EngineRootGet().sFolder), fs::path(sRoot));
        EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Private);
        EXPECT_EQ(BytesRead(EngineRootGet().Path("C:/ITSHFBC/bin_win\\rec533w.exe")), "MZ of ours");
        EXPECT_EQ(BytesRead(sRoot + "\\bin_win\\rec533w.exe"), "MZ of ours");
        EXPECT_TRUE(EngineIsBuiltIn("rec533w.exe"));
        m_folder.Write("shipped/rec533w.exe", "MZ of ours, newer\n\x1A\r\n");
        ASSERT_TRUE(EngineRootProvisionFrom(sShipped, ""));
        EXPECT_EQ(BytesRead(sRoot + "\\bin_win\\rec533w.exe"), "MZ of ours, newer\n\x1A\r\n");
        EXPECT_FALSE(fs::exists("c:\\itshfbc"));
    }
}

TEST_F(PlatformWin32, AnOlderHopcastsFixedRootIsLeftAndNoLongerUsed)
{
    const EnvironmentSet local("LOCALAPPDATA", m_folder.Path("local"));
    const std::string sRoot = m_folder.Path("local") + "\\Hopcast\\itshfbc";
    m_folder.Write("shipped/rec533w.exe", "MZ of ours");
    ASSERT_TRUE(EngineRootProvisionFrom(m_folder.Path("shipped"), ""));
    // An older version made this on drive C: the same program and the same list.
    const std::string sList = BytesRead(sRoot + "\\hopcast-engines.txt");
    m_drive.Write("itshfbc/bin_win/rec533w.exe", "MZ of ours");
    m_drive.Write("itshfbc/hopcast-engines.txt", sList);
    EXPECT_EQ(EngineRootGet().sFolder, sRoot);
    EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Private);
    m_folder.Write("shipped/rec533w.exe", "MZ of ours, newer");
    ASSERT_TRUE(EngineRootProvisionFrom(m_folder.Path("shipped"), ""));
    EXPECT_EQ(BytesRead(sRoot + "\\bin_win\\rec533w.exe"), "MZ of ours, newer");
    EXPECT_EQ(BytesRead("c:\\itshfbc\\bin_win\\rec533w.exe"), "MZ of ours");
    EXPECT_EQ(BytesRead("c:\\itshfbc\\hopcast-engines.txt"), sList);
    // With a foreign program beside it, it is an installed package.
    m_drive.Write("itshfbc/bin_win/voacapw.exe", "MZ of ITS");
    EXPECT_EQ(EngineRootGet().sFolder, "c:\\itshfbc");
    EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Installed);
    EXPECT_FALSE(EngineIsBuiltIn("voacapw.exe"));
}

}  // namespace
