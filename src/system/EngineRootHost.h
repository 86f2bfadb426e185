/// @file EngineRootHost.h
/// What EngineRootLib needs of the platform. Private to EngineRootLib.
#pragma once

#include <string>
#include <vector>

/// Where a private root may lie, in order of preference.
[[nodiscard]] std::vector<std::string> PrivateRootFolders();

/// Folders that may hold voacapl.
[[nodiscard]] std::string EngineSearchPathGet();
/// True when voacapl, which the VOACAP launcher runs, is in one of these folders.
[[nodiscard]] bool VoacaplIsThere(const std::string& sSearchPath);
