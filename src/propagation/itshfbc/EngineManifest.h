/// @file EngineManifest.h
/// The list of what Hopcast put into an engine root: a line "NAME MARK" for each program; the mark
/// identifies a link's target or a copy's content. Private to EngineRoot.
///
/// Paths:   host paths.
/// Tests:   tests/propagation/EngineRootPosixTest.cpp
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "system/Result.h"

/// "copy SIZE HASH" of a file's content; empty when it cannot be read. The file is read again only
/// when its size or time has changed, because each attempt of a run looks up the root.
[[nodiscard]] std::string CopyMark(const std::filesystem::path& pthFile);

/// The mark of what a root has under a program's name; empty when there is nothing.
[[nodiscard]] std::string EngineMark(const std::filesystem::path& pthProgram);

/// A line of the list.
[[nodiscard]] std::string LineMake(const std::string& sName, const std::string& sMark);

[[nodiscard]] std::vector<std::string> ManifestRead(const std::string& sRoot);
[[nodiscard]] Result<void> ManifestWrite(const std::string& sRoot,
                                         const std::vector<std::string>& asLines);
[[nodiscard]] bool ProgramIsListed(const std::vector<std::string>& asManifest,
                                   const std::string& sName, const std::string& sMark);
