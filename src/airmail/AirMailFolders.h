/// @file AirMailFolders.h
/// The two process-wide Airmail folders and how they are found. Texts are UTF-8; Windows paths
/// without a trailing backslash (a profile may also name host folders).
///
/// Errors:  none; a missing Airmail shows later in the readers' messages.
/// Threads: one thread only.
/// Tests:   tests/airmail/AirMailFoldersTest.cpp
#pragma once

#include <string>
#include <string_view>

inline constexpr const char* kAirMailFolderDefault = "C:\\Program Files\\AirMail";

/// Where a folder's value came from.
enum class AirMailOrigin { Default, Profile, Registry, InstallLog };
/// "default", "profile", "registry" or "install log".
[[nodiscard]] const char* AirMailOriginText(AirMailOrigin eOrigin);

/// Folder with Airmail3.exe and Install.log.
[[nodiscard]] const std::string& AirMailProgramFolderGet();
/// Sets the value of a profile. A text equal to the current folder keeps its origin.
void AirMailProgramFolderSet(std::string sFolder);
[[nodiscard]] AirMailOrigin AirMailProgramOriginGet();

/// Folder with Airmail.ini and the System.*.ini station files.
[[nodiscard]] const std::string& AirMailDataFolderGet();
/// Sets the value of a profile. A text equal to the current folder keeps its origin.
void AirMailDataFolderSet(std::string sFolder);
[[nodiscard]] AirMailOrigin AirMailDataOriginGet();

struct AirMailFolder {
    std::string sPath = kAirMailFolderDefault;
    AirMailOrigin eOrigin = AirMailOrigin::Default;
};
struct AirMailFolders {
    AirMailFolder program;
    AirMailFolder data;
};
/// Both with their origins, to be restored later.
[[nodiscard]] AirMailFolders AirMailFoldersGet();
void AirMailFoldersSet(AirMailFolders folders);

/// Both back to "C:\Program Files\AirMail".
void AirMailFoldersReset();

/// Finds Airmail and updates both folders in place; silent. Keeps them if the program folder
/// contains Airmail3.exe; otherwise both become the registry's "Install Folder" (outside Windows
/// that of the Wine prefix). If the data folder then contains no Airmail.ini, it is taken from the
/// last line of the program folder's Install.log with "NewCommonRoot= ". The last character of both
/// texts (the backslash that the installer writes) is dropped, whatever it is. The first failure
/// ends the search; what was set before stays.
void AirMailFoldersFind();

/// A file's path in one of the folders as Windows spells it: the folder, a backslash, the name.
[[nodiscard]] std::string AirMailPathGet(const std::string& sFolder, std::string_view sName);
/// The same file's path on this host, for the file services.
[[nodiscard]] std::string AirMailFileGet(const std::string& sFolder, std::string_view sName);
