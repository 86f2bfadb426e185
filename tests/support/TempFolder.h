/// @file TempFolder.h
/// A folder for one test, removed afterwards; environment variables set for one test.
#pragma once

#include <optional>
#include <string>
#include <string_view>

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Full path of a name in the folder; creates its parent folders.
    [[nodiscard]] std::string Path(std::string_view sName = {}) const;
    /// Writes a file in the folder and returns its full path.
    std::string Write(std::string_view sName, std::string_view sBytes) const;

private:
    std::string m_sFolder;
};

/// A whole file as bytes; a missing file fails the test and gives an empty text.
std::string BytesRead(const std::string& sPath);

/// Sets an environment variable while it exists (nothing: unset).
class EnvironmentSet {
public:
    EnvironmentSet(std::string sName, std::optional<std::string> sValue);
    ~EnvironmentSet();
    EnvironmentSet(const EnvironmentSet&) = delete;
    EnvironmentSet& operator=(const EnvironmentSet&) = delete;

private:
    std::string m_sName;
    std::optional<std::string> m_sBefore;
};
