/// @file EngineRootHost.h
/// What EngineRootLib needs of the platform. Private to EngineRootLib.
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

/// While it lives, every path is a path of the host, also one below c:\itshfbc: there the fixed
/// root is itself a host path on Windows, and mapping it would ask for the root that is being
/// sought.
class HostPathsOnly {
public:
    HostPathsOnly() { ++CountGet(); }
    ~HostPathsOnly() { --CountGet(); }
    HostPathsOnly(const HostPathsOnly&) = delete;
    HostPathsOnly& operator=(const HostPathsOnly&) = delete;

    [[nodiscard]] static bool IsInForce() { return CountGet() > 0; }

private:
    static int& CountGet()
    {
        thread_local int nCount = 0;
        return nCount;
    }
};
