/// @file PrivateProfileLib.h
/// Initialisation files, key by key: on Windows GetPrivateProfileStringA and
/// WritePrivateProfileStringA, elsewhere our own code that behaves alike. Section and key names
/// match without regard to case, the first match wins, blanks around key and value are dropped, as
/// is one pair of enclosing quotes, lines starting with ';' are skipped, values are cut to the
/// buffer's length less one; writing keeps other lines and their order, and replaces the file
/// atomically. Only the first section of a name is searched. A new key goes after its section's
/// last line, a new section to the end of the file; line ends are the file's own, CR LF in a new
/// one. A write that would change no byte leaves the file as it is, but still fails if the file
/// cannot be written.
///
/// Texts:   UTF-8 in the program, Windows-1252 in the file; UTF-16 when the file begins with its
///          byte order mark, outside Windows UTF-8 too. For other code pages of Windows see
///          AnsiLib.h.
/// Tests:   tests/system/PrivateProfileLibTest.cpp
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "system/Result.h"

/// @param nBufferSize  characters of the caller's buffer; the value is cut to one less.
/// @return the value; sDefault when file, section or key is missing (an empty value is empty).
[[nodiscard]] std::string PrivateProfileGet(std::string_view sSection, std::string_view sKey,
                                            std::string_view sDefault, int nBufferSize,
                                            std::string_view sFile);

/// The same for another program's file that is Windows-1252 on every machine, as Airmail's are.
#ifdef _WIN32
[[nodiscard]] std::string PrivateProfileGetWindows1252(std::string_view sSection,
                                                       std::string_view sKey,
                                                       std::string_view sDefault, int nBufferSize,
                                                       std::string_view sFile);
#else
[[nodiscard]] inline std::string PrivateProfileGetWindows1252(std::string_view sSection,
                                                              std::string_view sKey,
                                                              std::string_view sDefault,
                                                              int nBufferSize,
                                                              std::string_view sFile)
{
    return PrivateProfileGet(sSection, sKey, sDefault, nBufferSize, sFile);
}
#endif
/// Checks, without reading it, whether a file can be opened as PrivateProfile.
/// @return "File not found", "Permission denied" ..., or the reason in words: "it is a folder",
///         "it is a device", "it is larger than 64 MB".
Result<void> PrivateProfileCheck(std::string_view sFile);

/// A file to read many keys from; outside Windows it is read once.
class PrivateProfile {
public:
    /// An ordinary file of up to 64 MB or, outside Windows, a pipe, which is read to its end.
    /// @return an error of PrivateProfileCheck, or "no data came for 60 s".
    static Result<PrivateProfile> Open(std::string_view sFile);
    /// As PrivateProfileGet.
    [[nodiscard]] std::string Get(std::string_view sSection, std::string_view sKey,
                                  std::string_view sDefault, int nBufferSize) const;

private:
    struct Content;
    explicit PrivateProfile(std::shared_ptr<const Content> pContent);
    std::shared_ptr<const Content> m_pContent;
};

struct PrivateProfileValue {
    std::string sSection;
    std::string sKey;
    std::string sValue;
};

/// Writes many keys in their order. Outside Windows the file is replaced once with all of them, so
/// that it is whole whatever happens; on Windows they are written one by one until one fails.
/// @return 0, or the system's error code (for SystemErrorText).
[[nodiscard]] int PrivateProfileWriteAll(std::span<const PrivateProfileValue> aValue,
                                         std::string_view sFile);

/// Writes one key; a missing section or file is made, a missing folder is not. Line ends in the
/// value become blanks outside Windows.
/// @return 0, or the system's error code (for SystemErrorText).
[[nodiscard]] int PrivateProfileWrite(std::string_view sSection, std::string_view sKey,
                                      std::string_view sValue, std::string_view sFile);
