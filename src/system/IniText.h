/// @file IniText.h
/// The text of an initialisation file, parsed once for many keys. Private to our own
/// private-profile service (outside Windows).
///
/// Texts:   UTF-8 to the caller; in the file Windows-1252, or UTF-8 or UTF-16 if a byte order mark
///          says so. What cannot be expressed in the file's encoding is replaced.
/// Domain:  files below 4 GB.
/// Tests:   tests/system/PrivateProfileLibTest.cpp, PrivateProfileLibPosixTest.cpp
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class IniText {
public:
    explicit IniText(std::string sBytes);

    /// The value of the first key of this name in the first section of this name, at most
    /// nCharacters of it; nothing when it is missing.
    [[nodiscard]] std::optional<std::string> ValueGet(std::string_view sSection,
                                                      std::string_view sKey,
                                                      std::size_t nCharacters) const;
    /// Sets a value; a new key goes after its section's last line, a new section to the end.
    void ValuePut(std::string_view sSection, std::string_view sKey, std::string_view sValue);
    /// The whole file with the changes.
    [[nodiscard]] std::string BytesGet() const;

private:
    enum class Alphabet { Windows1252, Utf8, Utf16Little, Utf16Big };
    struct Span {
        std::uint32_t nStart;
        std::uint32_t nEnd;
    };
    struct Key {
        Span name;
        Span value;  ///< from the first character after "=" and blanks to the line's end
    };
    struct Section {
        Span name;
        std::uint32_t nFirstKey;  ///< its keys end where those of the next section begin
        std::uint32_t nInsert;    ///< after its last line that is not blank
    };
    /// New lines for one place of the text.
    struct Addition {
        std::string sSection;
        std::optional<std::size_t> nSection;  ///< nothing: a new section
        std::vector<std::pair<std::string, std::string>> aLine;
    };
    struct Change {
        std::size_t nKey;
        std::string sValue;
    };
    struct Edit {
        Span span;
        std::string sText;
    };

    void Parse();
    void LineAdd(std::uint32_t nStart, std::uint32_t nEnd, std::uint32_t nNext);
    [[nodiscard]] std::string_view TextOf(const Span& span) const;
    [[nodiscard]] std::string FileText(std::string_view sText) const;
    [[nodiscard]] std::optional<std::size_t> SectionFind(std::string_view sName) const;
    [[nodiscard]] std::optional<std::size_t> KeyFind(std::size_t nSection,
                                                     std::string_view sName) const;
    [[nodiscard]] std::string LineEndGet() const;
    [[nodiscard]] std::vector<Edit> EditsGet() const;
    [[nodiscard]] std::string LinesMake(const Addition& add, std::size_t nAt) const;

    std::string m_sText;  ///< Windows-1252, or UTF-8 with its mark
    Alphabet m_eAlphabet = Alphabet::Windows1252;
    std::vector<Section> m_aSection;
    std::vector<Key> m_aKey;
    std::vector<Change> m_aChange;
    std::vector<Addition> m_aAddition;
};
