#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>

#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFileMax = std::size_t{64} << 20;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\v\f";

/// One line of the file as offsets into its bytes.
struct Line {
    std::size_t nStart;
    std::size_t nEnd;   ///< behind the last byte of the text
    std::size_t nNext;  ///< behind the line end (LF, CR LF or a lone CR)
};

/// Where a key stands in the file, or would.
struct Place {
    std::optional<Line> m_section;  ///< the first section line of this name
    std::optional<Line> m_key;      ///< the first line of this key in that section
    std::size_t nInsert = 0;        ///< behind the section's last line that is not blank
};

std::string_view BlanksTrim(std::string_view sText)
{
    const std::size_t nStart = sText.find_first_not_of(kBlanks);
    if (nStart == std::string_view::npos)
        return {};
    return sText.substr(nStart, sText.find_last_not_of(kBlanks) - nStart + 1);
}

bool HasByteOrderMark(std::string_view sBytes)
{
    return sBytes.substr(0, kByteOrderMark.size()) == kByteOrderMark;
}

Line LineAt(std::string_view sBytes, std::size_t nStart)
{
    const std::size_t nEnd = std::min(sBytes.find_first_of("\r\n", nStart), sBytes.size());
    const std::size_t nEndLength = sBytes.substr(nEnd, 2) == "\r\n" ? 2 : 1;
    return {nStart, nEnd, std::min(nEnd + nEndLength, sBytes.size())};
}

std::string_view LineText(std::string_view sBytes, const Line& line)
{
    return BlanksTrim(sBytes.substr(line.nStart, line.nEnd - line.nStart));
}

/// The name between the brackets of a section line; nothing for any other line.
std::optional<std::string_view> SectionName(std::string_view sLine)
{
    if (sLine.empty() || sLine.front() != '[')
        return std::nullopt;
    const std::size_t nEnd = sLine.find(']');
    return BlanksTrim(sLine.substr(1, nEnd == std::string_view::npos ? nEnd : nEnd - 1));
}

bool LineIsKey(std::string_view sLine, std::string_view sKey)
{
    const std::size_t nEqual = sLine.find('=');
    return nEqual != std::string_view::npos && sLine.front() != ';'
           && TextEqualNoCase(BlanksTrim(sLine.substr(0, nEqual)), sKey);
}

/// Only the first section of a name counts, and in it the first key of a name.
Place PlaceFind(std::string_view sBytes, std::string_view sSection, std::string_view sKey)
{
    Place place;
    for (std::size_t nStart = HasByteOrderMark(sBytes) ? kByteOrderMark.size() : 0;
         nStart < sBytes.size();) {
        const Line line = LineAt(sBytes, nStart);
        nStart = line.nNext;
        const std::string_view sLine = LineText(sBytes, line);
        const auto sName = SectionName(sLine);
        if (sName && place.m_section)
            break;
        if (sName && TextEqualNoCase(*sName, sSection))
            place.m_section = line;
        if (!place.m_section || sLine.empty())
            continue;
        place.nInsert = line.nNext;
        if (!sName && LineIsKey(sLine, sKey)) {
            place.m_key = line;
            break;
        }
    }
    return place;
}

std::string_view QuotesDrop(std::string_view sValue)
{
    if (sValue.size() >= 2 && (sValue.front() == '"' || sValue.front() == '\'')
        && sValue.front() == sValue.back())
        return sValue.substr(1, sValue.size() - 2);
    return sValue;
}

/// Text to the alphabet of the file: Windows-1252, or UTF-8 when its byte order mark says so.
std::string FileText(std::string_view sText, bool bUtf8)
{
    return bUtf8 ? std::string(sText) : Windows1252FromUtf8(sText);
}

/// At most nBytes bytes; of UTF-8 whole characters only.
std::string_view TextCut(std::string_view sText, std::size_t nBytes, bool bUtf8)
{
    if (sText.size() <= nBytes)
        return sText;
    while (bUtf8 && nBytes > 0 && (static_cast<unsigned char>(sText[nBytes]) & 0xC0U) == 0x80U)
        --nBytes;
    return sText.substr(0, nBytes);
}

/// The file's own line end; CR LF for a new file.
std::string_view LineEndGet(std::string_view sBytes)
{
    const std::size_t nLineFeed = sBytes.find('\n');
    const bool bLineFeedOnly =
        nLineFeed != std::string_view::npos && (nLineFeed == 0 || sBytes[nLineFeed - 1] != '\r');
    return bLineFeedOnly ? "\n" : "\r\n";
}

std::string KeyPut(std::string sBytes, std::string_view sSection, std::string_view sKey,
                   std::string_view sValue)
{
    const Place place = PlaceFind(sBytes, sSection, sKey);
    if (place.m_key) {  // what stands before the value stays as the user wrote it
        const std::size_t nEqual = sBytes.find('=', place.m_key->nStart);
        const std::size_t nValue =
            std::min(sBytes.find_first_not_of(kBlanks, nEqual + 1), place.m_key->nEnd);
        return sBytes.replace(nValue, place.m_key->nEnd - nValue, sValue);
    }
    const std::string sLineEnd(LineEndGet(sBytes));
    std::string sNew;
    const std::size_t nInsert = place.m_section ? place.nInsert : sBytes.size();
    if (nInsert > 0 && sBytes[nInsert - 1] != '\n' && sBytes[nInsert - 1] != '\r'
        && sBytes != kByteOrderMark)
        sNew += sLineEnd;
    if (!place.m_section)
        sNew.append("[").append(sSection).append("]").append(sLineEnd);
    sNew.append(sKey).append("=").append(sValue).append(sLineEnd);
    return sBytes.insert(nInsert, sNew);
}

}  // namespace

std::string PrivateProfileGet(std::string_view sSection, std::string_view sKey,
                              std::string_view sDefault, int nBufferSize, std::string_view sFile)
{
    const std::size_t nMax = nBufferSize > 1 ? static_cast<std::size_t>(nBufferSize - 1) : 0;
    const auto resBytes = FileRead(sFile, kFileMax);
    const std::string_view sBytes =
        resBytes ? std::string_view(resBytes.ValueGet()) : std::string_view();
    const bool bUtf8 = HasByteOrderMark(sBytes);
    const Place place =
        PlaceFind(sBytes, BlanksTrim(FileText(sSection, bUtf8)), BlanksTrim(FileText(sKey, bUtf8)));
    if (!place.m_key)
        return Utf8FromWindows1252(std::string_view(Windows1252FromUtf8(sDefault)).substr(0, nMax));
    const std::size_t nEqual = sBytes.find('=', place.m_key->nStart);
    const std::string_view sValue =
        QuotesDrop(BlanksTrim(sBytes.substr(nEqual + 1, place.m_key->nEnd - nEqual - 1)));
    const std::string_view sCut = TextCut(sValue, nMax, bUtf8);
    return bUtf8 ? std::string(sCut) : Utf8FromWindows1252(sCut);
}

int PrivateProfileWrite(std::string_view sSection, std::string_view sKey, std::string_view sValue,
                        std::string_view sFile)
{
    if (const int nErrno = FileReplaceCheck(sFile))
        return nErrno;
    std::string sBytes;
    std::error_code ec;
    if (fs::is_regular_file(PathToHost(sFile), ec)) {
        auto resBytes = FileRead(sFile, kFileMax);
        if (!resBytes)
            return EACCES;  // never replaced by a file that holds one key
        sBytes = std::move(resBytes.ValueGet());
    }
    const bool bUtf8 = HasByteOrderMark(sBytes);
    std::string sText(sValue);
    // A line end would make the rest of the value a line of its own.
    std::replace_if(
        sText.begin(), sText.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; },
        ' ');
    const std::string sNewBytes = KeyPut(sBytes, BlanksTrim(FileText(sSection, bUtf8)),
                                         BlanksTrim(FileText(sKey, bUtf8)), FileText(sText, bUtf8));
    return sNewBytes == sBytes ? 0 : FileReplaceErrno(sFile, sNewBytes);
}
