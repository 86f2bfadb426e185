/// @file HostPath.h
/// Converts paths between UTF-8 texts and the host's own type, and does the look-ups that depend on
/// the host. DrivePath.h turns the Windows spelling of a path into a host path.
///
/// Errors:  none; a missing variable, folder or program is an empty text.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// UTF-8 to the host's path type and back. Malformed text is no error.
[[nodiscard]] std::filesystem::path PathFromText(std::string_view sText);
[[nodiscard]] std::string TextFromPath(const std::filesystem::path& pthFile);

/// An environment variable as UTF-8; empty when it is not set.
[[nodiscard]] std::string EnvironmentGet(const char* sName);

/// sRest (either separator) below the host folder sFolder. Outside Windows a component that does
/// not exist as spelled is looked up without regard to case; if nothing matches, the spelling is
/// kept.
[[nodiscard]] std::string HostPathBelow(const std::string& sFolder, std::string_view sRest);

#ifdef _WIN32
[[nodiscard]] std::wstring WideFromUtf8(std::string_view sText);
[[nodiscard]] std::string Utf8FromWide(std::wstring_view sText);
/// UTF-8 to the code page of the system's "A" calls.
[[nodiscard]] std::string AnsiFromUtf8(std::string_view sText);
[[nodiscard]] std::string Utf8FromAnsi(std::string_view sBytes);
#else
/// The user's home folder: HOME, else the user database.
[[nodiscard]] std::string HomeFolderGet();
/// The folder of a base folder variable (XDG_DATA_HOME ...): its value if absolute, else sDefault
/// below home.
[[nodiscard]] std::string BaseFolderGet(const char* sVariable, std::string_view sDefault);
/// Full path of the executable sName in the folders of sSearchPath (separated by ':'), or empty.
[[nodiscard]] std::string ProgramSearch(std::string_view sName, std::string_view sSearchPath);
#endif
