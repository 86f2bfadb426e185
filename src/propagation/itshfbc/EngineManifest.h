/// @file EngineManifest.h
/// The list of what Hopcast put into an engine root: a line "NAME MARK" for each program, where the
/// mark tells a link's target or a copy's content. Private to EngineRoot.
///
/// Paths:   host paths.
/// Tests:   tests/propagation/EngineRootPosixTest.cpp
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "system/Result.h"

/// "copy SIZE HASH" of a file's content; empty when it cannot be read. Read again only when size or
/// time of the file changed: each attempt of a run looks the root up.
[[nodiscard]] std::string CopyMark(const std::filesystem::path& pthFile);

/// What stands in a root under a program's name; empty when nothing does.
[[nodiscard]] std::string EngineMark(const std::filesystem::path& pthProgram);

/// A line of the list.
[[nodiscard]] std::string LineMake(const std::string& sName, const std::string& sMark);

[[nodiscard]] std::vector<std::string> ManifestRead(const std::string& sRoot);
[[nodiscard]] Result<void> ManifestWrite(const std::string& sRoot,
                                         const std::vector<std::string>& asLines);
[[nodiscard]] bool ProgramIsListed(const std::vector<std::string>& asManifest,
                                   const std::string& sName, const std::string& sMark);
