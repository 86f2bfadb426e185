/// @file ApartIni.h
/// An independent reader of initialisation files, written from docs/files.md. Its approach differs:
/// the whole file becomes a list of sections and keys before anything is looked up.
#pragma once

#include <string>
#include <utility>
#include <vector>

class ApartIni {
public:
    /// Bytes in Windows-1252, or in UTF-8 or UTF-16 if they begin with a byte order mark.
    explicit ApartIni(const std::string& sBytes);

    /// The value in UTF-8, cut to nMost characters; empty if there is none.
    [[nodiscard]] std::string Get(const std::string& sSection, const std::string& sKey,
                                  std::size_t nMost) const;

private:
    struct Section {
        std::string sName;  ///< in lower case, like the keys
        std::vector<std::pair<std::string, std::u32string>> aKeys;
    };
    std::vector<Section> m_aSections;
};
