/// @file UserFolders.h
/// Folders of the user's own, and the machine's temporary ones, in which an engine root can lie.
///
/// Paths:   host paths, UTF-8.
/// Tests:   tests/propagation/EngineRootPosixTest.cpp
#pragma once

#include <string>
#include <vector>

/// Where a private root may lie, in order of preference.
[[nodiscard]] std::vector<std::string> PrivateRootFolders();

/// A new empty folder that only this user may enter, among the machine's temporary ones; empty when
/// none can be made, and on Windows, where the folder above is the user's own.
[[nodiscard]] std::string TemporaryRootMake();

/// Removes the temporary roots of programs that were killed more than a day ago.
void TemporaryRootsRemove();
/// Held in a temporary root while its program lives.
inline constexpr const char* kRootOwnerLock = "hopcast-owner.lock";
/// Names the programs that Hopcast put into a root, so that no other is ever touched. One a line:
/// "rec533w.exe link TARGET" or "rec533w.exe copy SIZE HASH".
inline constexpr const char* kManifest = "hopcast-engines.txt";

/// Folders that may hold voacapl.
[[nodiscard]] std::string EngineSearchPathGet();
/// True when voacapl, which the VOACAP launcher runs, is in one of these folders.
[[nodiscard]] bool VoacaplIsThere(const std::string& sSearchPath);
