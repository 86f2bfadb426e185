/// @file PathLib.h
/// The fixed Windows paths, and where they lie on this host.
///
/// Paths that begin with a drive letter ("c:\itshfbc\RUN\sound.dat") are the contract with the
/// engines and Airmail; every file service maps them by PathToHost. Host paths pass unchanged.
/// Texts are UTF-8.
/// Tests:   tests/system/PathLibPosixTest.cpp
#pragma once

#include <string>
#include <string_view>

/// The root folder of the engine package as it is named to the engines.
inline constexpr std::string_view kEngineRoot = "c:\\itshfbc";

/// True for a text that begins with a drive: a letter and a colon, then a separator or the end.
[[nodiscard]] bool PathHasDrive(std::string_view sPath);

/// True for c:\itshfbc and for every path below it, in either case and with either separator.
[[nodiscard]] bool PathIsEngineRoot(std::string_view sPath);

/// A Windows path as a path of this host. Below c:\itshfbc: the engine root (EngineRootGet). Other
/// drive-C paths: the same on Windows, elsewhere the Wine prefix's drive_c (WINEPREFIX or ~/.wine);
/// other drives by the prefix's dosdevices (drive Z without one: the whole host). Outside Windows a
/// component that does not exist as spelled is looked up without regard to case; where nothing
/// fits, the spelling is kept. A text without a drive letter is returned unchanged.
[[nodiscard]] std::string PathToHost(std::string_view sPath);

/// A host path as a Windows program started through Wine would name it ("Z:\..." outside drive C).
/// On Windows the path itself.
[[nodiscard]] std::string PathToWindows(std::string_view sHostPath);

/// The Wine prefix (host path), whether it exists or not; empty on Windows.
[[nodiscard]] std::string WinePrefixGet();

/// Full host path of the running program's file and of its folder.
[[nodiscard]] std::string ProgramFileGet();
[[nodiscard]] std::string ProgramFolderGet();

/// What keeps the user's home folder from being used, in words; empty when nothing does. Outside
/// Windows HOME must be a full path, or Hopcast's folders would be where the program was started.
[[nodiscard]] std::string HomeFolderProblemGet();

/// Joins with the host's separator; a separator at sFolder's end is not doubled.
[[nodiscard]] std::string PathJoin(std::string_view sFolder, std::string_view sName);

/// Profile file of a program: beside the program with its base name and ".ini"; where that folder
/// is not writable by the user or belongs to the system (/usr, Program Files), the same file name
/// in %APPDATA%\Hopcast or $XDG_CONFIG_HOME/hopcast (default ~/.config/hopcast). The first such use
/// copies the shipped profile there, if there is one: it lies beside the program or in its
/// ../share/hopcast.
[[nodiscard]] std::string ProfileFileDefault();
/// The same for the program whose file is told (host path).
[[nodiscard]] std::string ProfileFileFor(const std::string& sProgramFile);

/// Where a profile is read from: the file itself; but the shipped profile in the place of a default
/// one that is not there, as in a home where nothing can be written.
[[nodiscard]] std::string ProfileFileToRead(const std::string& sProfileFile);
/// The same for the program whose file is told (host path).
[[nodiscard]] std::string ProfileFileToReadFor(const std::string& sProgramFile,
                                               const std::string& sProfileFile);

/// Makes the folder of the default profile anew when it is missing; leaves other profiles' alone.
/// @return 0, or the system's error code (for SystemErrorText).
[[nodiscard]] int ProfileFolderMake(const std::string& sProfileFile);
/// The same for the program whose file is told (host path).
[[nodiscard]] int ProfileFolderMakeFor(const std::string& sProgramFile,
                                       const std::string& sProfileFile);
