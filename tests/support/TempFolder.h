/// @file TempFolder.h
/// A folder for one test, gone with it; environment variables set for one test.
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

    /// Full path of a name below the folder (parents are made).
    [[nodiscard]] std::string Path(std::string_view sName = {}) const;
    /// Writes a file below the folder and returns its full path.
    std::string Write(std::string_view sName, std::string_view sBytes) const;

private:
    std::string m_sFolder;
};

/// Whole file as bytes; a missing file fails the test and gives an empty text.
std::string BytesRead(const std::string& sPath);

/// Sets an environment variable while it lives (nothing: unset).
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
