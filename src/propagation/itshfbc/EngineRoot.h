/// @file EngineRoot.h
/// The engine root (c:\itshfbc to the engines) on this host, and the private one that Hopcast
/// provisions where the ITS package is not installed.
///
/// First that applies: (1) environment HOPCAST_ITSHFBC; (2) the fixed root when its bin_win holds
/// at least one of the three programs (on Windows c:\itshfbc, elsewhere itshfbc on the Wine
/// prefix's drive C); (3) the private root: on Windows %LOCALAPPDATA%\Hopcast\itshfbc, elsewhere
/// $XDG_DATA_HOME/hopcast/itshfbc (default ~/.local/share/hopcast/itshfbc). What Hopcast put into a
/// root is listed in its hopcast-engines.txt; such programs do not count in (2), so a c:\itshfbc of
/// an older Hopcast is left as it is and no longer used. Outside Windows, if no private root can be
/// written (a read-only home), provisioning makes one among the machine's temporary folders; it
/// belongs only to the running program and is removed at its end.
///
/// Tests:   tests/propagation/EngineRootPosixTest.cpp, tests/system/PlatformWin32Test.cpp
#pragma once

#include <string>
#include <string_view>

#include "system/Result.h"

/// The engine package's root folder as the engines know it.
inline constexpr std::string_view kEngineRoot = "c:\\itshfbc";

enum class EngineRootKind { Environment, Installed, Private };

struct EngineRoot {
    std::string sFolder;  ///< host path, no separator at the end
    EngineRootKind eKind = EngineRootKind::Private;

    /// Host path of a path below kEngineRoot ("c:\itshfbc\RUN\sound.dat"), in upper or lower case
    /// and with either separator. Outside Windows a component that does not exist as spelled is
    /// looked up without regard to case.
    [[nodiscard]] std::string Path(std::string_view sPath) const;
};

/// The current root. It is chosen again at each call, so that a package installed while Hopcast
/// runs is found; the runs of a request keep the one that they began with.
[[nodiscard]] EngineRoot EngineRootGet();

/// Completes the private root: bin_win, RUN, areadata, and the engines from beside the program (or
/// from its libexec folder: rec533w.exe; voacapw.exe if voacapl is installed), linked or copied.
/// Updates what an older Hopcast left, removes our voacapw.exe if its voacapl is gone, and never
/// touches a program that Hopcast did not put there. In a root with the list of engines a link to
/// nothing and an unlisted copy of the shipped engine count as ours, too. One program at a time: a
/// lock is waited for up to 10 s. With HOPCAST_ITSHFBC or an installed package nothing is touched.
/// In every root, and among the temporary ones, what killed programs left more than a day ago is
/// removed.
[[nodiscard]] Result<void> EngineRootProvision();
/// The same with the engines from sProgramFolder (host path), and with voacapl looked for in the
/// folders of sSearchPath (separated by ':').
[[nodiscard]] Result<void> EngineRootProvisionFrom(const std::string& sProgramFolder,
                                                   const std::string& sSearchPath);

/// Removes the temporary root, if there is one. It is done at the program's end in any case.
void EngineRootRelease();

/// True when the program of this name in the root's bin_win is Hopcast's own.
[[nodiscard]] bool EngineIsBuiltIn(const std::string& sProgramName,
                                   const EngineRoot& root = EngineRootGet());
