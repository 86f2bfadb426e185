/// @file ApartIni.h
/// Initialisation files, read apart from the program's reader: from docs/files.md. Another way: the
/// whole file becomes a list of sections with their keys at once, before anything is looked up.
#pragma once

#include <string>
#include <utility>
#include <vector>

class ApartIni {
public:
    /// Windows-1252, or UTF-8 or UTF-16 by its byte order mark.
    explicit ApartIni(const std::string& sBytes);

    /// The value in UTF-8, cut to nMost characters; empty where there is none.
    [[nodiscard]] std::string Get(const std::string& sSection, const std::string& sKey,
                                  std::size_t nMost) const;

private:
    struct Section {
        std::string sName;  ///< in lower case, as the keys
        std::vector<std::pair<std::string, std::u32string>> aKeys;
    };
    std::vector<Section> m_aSections;
};
