/// @file HouseFiles.h
/// What several tests of this folder read.
#pragma once

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

/// Sources and headers of the programs.
inline std::vector<std::filesystem::path> SourcesGet()
{
    std::vector<std::filesystem::path> aFile;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER)) {
        const std::string sEnd = entry.path().extension().string();
        if (sEnd == ".cpp" || sEnd == ".h")
            aFile.push_back(entry.path());
    }
    return aFile;
}

/// The first group of every match.
inline std::vector<std::string> MatchesGet(const std::string& sText, const std::regex& rgx)
{
    std::vector<std::string> asFound;
    for (std::sregex_iterator it(sText.begin(), sText.end(), rgx), itEnd; it != itEnd; ++it)
        asFound.push_back((*it)[1].str());
    return asFound;
}
