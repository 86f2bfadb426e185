/// @file PathLib.h
/// Where the running program and its profile are.
///
/// Paths:   host paths, UTF-8.
/// Tests:   tests/system/PathLibPosixTest.cpp
#pragma once

#include <string>
#include <string_view>

/// Full host path of the running program's file and of its folder.
[[nodiscard]] std::string ProgramFileGet();
[[nodiscard]] std::string ProgramFolderGet();

/// Why the user's home folder cannot be used, in words; empty when it can. Outside Windows HOME
/// must be a full path, or Hopcast's folders would be made where the program was started.
[[nodiscard]] std::string HomeFolderProblemGet();

/// Joins with the host's separator, which is not doubled if sFolder ends with one.
[[nodiscard]] std::string PathJoin(std::string_view sFolder, std::string_view sName);

/// The name of a file that belongs to another: its last suffix replaced by sEnding, or sEnding
/// appended to a name without one (hopcast.ini and ".places.csv" give hopcast.places.csv).
[[nodiscard]] std::string PathWithEnding(std::string_view sFile, std::string_view sEnding);

/// Profile file of a program: beside the program with its base name and ".ini"; if that folder is
/// not writable by the user or belongs to the system (/usr, Program Files), the same file name
/// in %APPDATA%\Hopcast or $XDG_CONFIG_HOME/hopcast (default ~/.config/hopcast). The first such use
/// copies the shipped profile there, if there is one: it is beside the program or in its
/// ../share/hopcast.
[[nodiscard]] std::string ProfileFileDefault();
/// The same for the given program file (host path).
[[nodiscard]] std::string ProfileFileFor(const std::string& sProgramFile);

/// Where a profile is read from: the file itself, or the shipped profile if it is the default one
/// and does not exist, as in a home where nothing can be written.
[[nodiscard]] std::string ProfileFileToRead(const std::string& sProfileFile);
/// The same for the given program file (host path).
[[nodiscard]] std::string ProfileFileToReadFor(const std::string& sProgramFile,
                                               const std::string& sProfileFile);

/// Makes the folder of the default profile again if it is missing; never makes that of another
/// profile.
/// @return 0, or the system's error code (for SystemErrorText).
[[nodiscard]] int ProfileFolderMake(const std::string& sProfileFile);
/// The same for the given program file (host path).
[[nodiscard]] int ProfileFolderMakeFor(const std::string& sProgramFile,
                                       const std::string& sProfileFile);
