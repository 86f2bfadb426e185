/// @file ProfileFolder.h
/// Which folders the user may write to, and where the user's settings go when they cannot be beside
/// the program. Private to the platform services.
#pragma once

#include <filesystem>

/// True for folders that packages own (/usr; Program Files, Windows), even if this user may write
/// to them.
[[nodiscard]] bool FolderIsSystemOwned(const std::filesystem::path& pthFolder);
/// True when this user may make files there. A folder without any write permission is not writable
/// for the superuser either, so that the rule is the same for everybody.
[[nodiscard]] bool FolderIsWritable(const std::filesystem::path& pthFolder);
/// %APPDATA%\Hopcast, or $XDG_CONFIG_HOME/hopcast (default ~/.config/hopcast).
[[nodiscard]] std::filesystem::path ProfileFolderGet();
