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
/// A file of a root for the file services. On Windows a root may be c:\itshfbc itself, which they
/// would take to the root in use; so its path is spelled in a way that they take as it is.
[[nodiscard]] std::string RootFileAsIs(std::string sHostPath);
