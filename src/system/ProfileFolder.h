/// @file ProfileFolder.h
/// Which folders are the user's to write to, and where the user's own settings go when they cannot
/// lie beside the program. Private to the platform services.
#pragma once

#include <filesystem>

/// True for folders that packages own (/usr; Program Files, Windows), whoever may write to them.
[[nodiscard]] bool FolderIsSystemOwned(const std::filesystem::path& pthFolder);
/// True when this user may make files there. A folder without any write permission is not writable,
/// not even for the superuser, so that everybody meets the same rule.
[[nodiscard]] bool FolderIsWritable(const std::filesystem::path& pthFolder);
/// %APPDATA%\Hopcast, or $XDG_CONFIG_HOME/hopcast (default ~/.config/hopcast).
[[nodiscard]] std::filesystem::path ProfileFolderGet();
