/// @file DriveC.h
/// Drive C for one test: outside Windows a Wine prefix of its own; on Windows the real drive and
/// the real registry, cleaned at the end, so only in a throw-away prefix (tests/wine/prefix.sh).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/TempFolder.h"

class DriveC {
public:
    /// Fails the test on a Windows machine that is not thrown away.
    DriveC();
    ~DriveC();
    DriveC(const DriveC&) = delete;
    DriveC& operator=(const DriveC&) = delete;

    /// Host path of a name on the drive (parents are made).
    [[nodiscard]] std::string Path(std::string_view sName) const;
    /// Writes a file of the drive and returns its host path.
    std::string Write(std::string_view sName, std::string_view sBytes) const;
    /// Airmail's "Install Folder". sValue as the Wine prefix's registry file spells it: "..." with
    /// escapes, str(2):"..." or dword:...; another text leaves no value.
    void RegistryWrite(const std::string& sValue) const;

private:
    TempFolder m_folder;
#ifdef _WIN32
    mutable std::vector<std::string> m_asMade;  // the topmost folders and files made here
#else
    EnvironmentSet m_prefix{"WINEPREFIX", m_folder.Path()};
#endif
};
