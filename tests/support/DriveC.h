/// @file DriveC.h
/// Drive C for one test. Outside Windows it is a Wine prefix of the test's own. On Windows it is
/// the real drive and registry, cleaned up at the end, so use it only in a throw-away prefix
/// (tests/wine/prefix.sh).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/TempFolder.h"

class DriveC {
public:
    /// Fails the test on a Windows machine that is not a throw-away one.
    DriveC();
    ~DriveC();
    DriveC(const DriveC&) = delete;
    DriveC& operator=(const DriveC&) = delete;

    /// Host path of a name on the drive; creates its parent folders.
    [[nodiscard]] std::string Path(std::string_view sName) const;
    /// Writes a file on the drive and returns its host path.
    std::string Write(std::string_view sName, std::string_view sBytes) const;
    /// Sets Airmail's "Install Folder". sValue is in the spelling of the Wine prefix's registry
    /// file: "..." with escapes, str(2):"..." or dword:...; any other text sets no value.
    void RegistryWrite(const std::string& sValue) const;

private:
    TempFolder m_folder;
#ifdef _WIN32
    mutable std::vector<std::string> m_asMade;  // the topmost folders and files created here
#else
    EnvironmentSet m_prefix{"WINEPREFIX", m_folder.Path()};
#endif
};
