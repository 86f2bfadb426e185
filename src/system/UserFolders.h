/// @file UserFolders.h
/// The user's folders and the machine's temporary ones in which an engine root can be.
///
/// Paths:   host paths, UTF-8.
/// Tests:   tests/propagation/EngineRootPosixTest.cpp
#pragma once

#include <string>
#include <vector>

/// Where a private root may be, in order of preference.
[[nodiscard]] std::vector<std::string> PrivateRootFolders();

/// A new empty folder among the machine's temporary ones that only this user may enter. The path is
/// empty when none can be made, and on Windows, where only the user can enter the folder of
/// PrivateRootFolders anyway.
[[nodiscard]] std::string TemporaryRootMake();

/// Removes the temporary roots of programs that were killed more than a day ago: those with a list
/// of engines or an owner's lock that nobody holds.
void TemporaryRootsRemove();
/// A lock held in a temporary root while its program, or its run, lives.
inline constexpr const char* kRootOwnerLock = "hopcast-owner.lock";
/// Lists the programs that Hopcast put into a root, so that no other is ever touched. One per line:
/// "rec533w.exe link TARGET" or "rec533w.exe copy SIZE HASH".
inline constexpr const char* kManifest = "hopcast-engines.txt";

/// Folders in which to look for voacapl.
[[nodiscard]] std::string EngineSearchPathGet();
/// True when voacapl, which the VOACAP launcher runs, is in one of these folders.
[[nodiscard]] bool VoacaplIsInstalled(const std::string& sSearchPath);
