/// @file EngineRootHost.h
/// What EngineRootLib needs of the platform. Private to EngineRootLib.
#pragma once

#include <string>
#include <vector>

/// Where a private root may lie, in order of preference.
[[nodiscard]] std::vector<std::string> PrivateRootFolders();

/// A new empty folder that only this user may enter, among the machine's temporary ones; empty when
/// none can be made, and on Windows, where the folders above are always writable.
[[nodiscard]] std::string TemporaryRootMake();

/// Folders that may hold voacapl.
[[nodiscard]] std::string EngineSearchPathGet();
/// True when voacapl, which the VOACAP launcher runs, is in one of these folders.
[[nodiscard]] bool VoacaplIsThere(const std::string& sSearchPath);
