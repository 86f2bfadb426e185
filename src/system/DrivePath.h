/// @file DrivePath.h
/// Paths as Windows programs spell them, and the paths of this host.
///
/// Texts:   UTF-8.
/// Tests:   tests/system/PathLibPosixTest.cpp
#pragma once

#include <string>
#include <string_view>

/// True for a text that begins with a drive: a letter and a colon, then a separator or the end.
[[nodiscard]] bool PathHasDrive(std::string_view sPath);

/// A Windows path as a path of this host: the same on Windows; elsewhere drive C is the Wine
/// prefix's drive_c (WINEPREFIX or ~/.wine), other drives are the prefix's dosdevices (drive Z
/// without one: the whole host). Outside Windows a component that does not exist as spelled is
/// looked up without regard to case; if nothing matches, the spelling is kept. A text without a
/// drive letter is returned unchanged.
[[nodiscard]] std::string DrivePath(std::string_view sPath);

/// A host path as a Windows program started through Wine would name it ("Z:\..." outside drive C).
/// On Windows the path itself.
[[nodiscard]] std::string PathToWindows(std::string_view sHostPath);

/// The Wine prefix (host path), even if it does not exist; empty on Windows.
[[nodiscard]] std::string WinePrefixGet();
