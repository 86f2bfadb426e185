#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "system/AnsiLib.h"
#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/PrivateProfileLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr UINT kWindows1252 = 1252;

/// How a file's bytes become texts, and back.
struct Alphabet {
    std::string (*fnText)(std::string_view sBytes);
    std::string (*fnBytes)(std::string_view sText);
};

std::wstring FullPathGet(const std::wstring& sFile)
{
    std::wstring sPath(GetFullPathNameW(sFile.c_str(), 0, nullptr, nullptr), L'\0');
    sPath.resize(
        GetFullPathNameW(sFile.c_str(), static_cast<DWORD>(sPath.size()), sPath.data(), nullptr));
    return sPath;
}

/// The path in the system's short names, which are in its code page; empty when it does not exist
/// or has none.
std::wstring ShortPathGet(const std::wstring& sPath)
{
    std::wstring sShort(GetShortPathNameW(sPath.c_str(), nullptr, 0), L'\0');
    sShort.resize(
        GetShortPathNameW(sPath.c_str(), sShort.data(), static_cast<DWORD>(sShort.size())));
    return sShort;
}

bool IsAnsi(const std::wstring& sText)
{
    return WideFromUtf8(Utf8FromAnsi(AnsiFromUtf8(Utf8FromWide(sText)))) == sText;
}

/// The file for the "A" calls. They would look for a bare name in the Windows folder, so this is a
/// full path. For letters outside their code page it uses short names, which a file has once it
/// exists.
std::string AnsiFileGet(std::string_view sFile, bool bMake)
{
    std::wstring sPath = FullPathGet(WideFromUtf8(sFile));
    if (!IsAnsi(sPath)) {
        if (bMake) {
            const HANDLE hFile = CreateFileW(sPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                             OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
            if (hFile != INVALID_HANDLE_VALUE)
                CloseHandle(hFile);
        }
        const std::size_t nName = sPath.find_last_of(L'\\') + 1;
        const std::wstring sShort = ShortPathGet(sPath);
        sPath =
            sShort.empty() ? ShortPathGet(sPath.substr(0, nName)) + sPath.substr(nName) : sShort;
    }
    return AnsiFromUtf8(Utf8FromWide(sPath));
}

bool IsAscii(std::string_view sBytes)
{
    return std::all_of(sBytes.begin(), sBytes.end(), [](char c) { return (c & 0x80) == 0; });
}

std::string_view QuotesDrop(std::string_view sValue)
{
    if (sValue.size() >= 2 && (sValue.front() == '"' || sValue.front() == '\'')
        && sValue.front() == sValue.back())
        return sValue.substr(1, sValue.size() - 2);
    return sValue;
}

/// The bytes of a value as they are in the file, found by the rules of the system's call.
std::optional<std::string> FileValueGet(std::string_view sSection, std::string_view sKey,
                                        std::string_view sFile, const Alphabet& alphabet)
{
    constexpr std::size_t kFileMax = std::size_t{64} << 20;
    const auto resBytes = FileRead(sFile, kFileMax);
    bool bInside = false;
    for (std::string_view sLine :
         TextLines(resBytes ? std::string_view(resBytes.ValueGet()) : std::string_view())) {
        sLine = TextTrim(sLine);
        if (sLine.starts_with('[')) {
            if (bInside)
                break;
            const std::string_view sName = TextTrim(sLine.substr(1, sLine.find(']') - 1));
            bInside = TextEqualNoCase(alphabet.fnText(sName), sSection);
            continue;
        }
        const std::size_t nEqual = sLine.find('=');
        if (bInside && nEqual != std::string_view::npos && sLine.front() != ';'
            && TextEqualNoCase(alphabet.fnText(TextTrim(sLine.substr(0, nEqual))), sKey))
            return std::string(QuotesDrop(TextTrim(sLine.substr(nEqual + 1))));
    }
    return std::nullopt;
}

std::string ValueGet(std::string_view sSection, std::string_view sKey, std::string_view sDefault,
                     int nBufferSize, std::string_view sFile, const Alphabet& alphabet)
{
    const auto nMax = static_cast<std::size_t>(std::max(nBufferSize, 1) - 1);
    std::string sBuffer(nMax + 1, '\0');
    const DWORD nLength = GetPrivateProfileStringA(
        alphabet.fnBytes(sSection).c_str(), alphabet.fnBytes(sKey).c_str(),
        alphabet.fnBytes(sDefault).c_str(), sBuffer.data(), static_cast<DWORD>(sBuffer.size()),
        AnsiFileGet(sFile, false).c_str());
    sBuffer.resize(nLength);
    if (GetACP() != kWindows1252) {
        // The call converts through the system's code page and loses the bytes that have no meaning
        // there, and with them the degree signs of Airmail's positions.
        const auto sValue = FileValueGet(sSection, sKey, sFile, alphabet);
        const bool bPlain = IsAscii(sSection) && IsAscii(sKey);
        if (sValue && !(bPlain && IsAscii(*sValue)))
            sBuffer = sValue->substr(0, nMax);
    }
    return alphabet.fnText(sBuffer);
}

}  // namespace

std::string PrivateProfileGet(std::string_view sSection, std::string_view sKey,
                              std::string_view sDefault, int nBufferSize, std::string_view sFile)
{
    return ValueGet(sSection, sKey, sDefault, nBufferSize, sFile,
                    {Utf8FromFileBytes, FileBytesFromUtf8});
}

std::string PrivateProfileGetWindows1252(std::string_view sSection, std::string_view sKey,
                                         std::string_view sDefault, int nBufferSize,
                                         std::string_view sFile)
{
    return ValueGet(sSection, sKey, sDefault, nBufferSize, sFile,
                    {Utf8FromWindows1252, Windows1252FromUtf8});
}

int PrivateProfileWrite(std::string_view sSection, std::string_view sKey, std::string_view sValue,
                        std::string_view sFile)
{
    if (FileReplaceCheck(sFile) == EACCES)
        return ERROR_ACCESS_DENIED;  // before the call, which checks the disk only
    const BOOL bWritten = WritePrivateProfileStringA(
        FileBytesFromUtf8(sSection).c_str(), FileBytesFromUtf8(sKey).c_str(),
        FileBytesFromUtf8(sValue).c_str(), AnsiFileGet(sFile, true).c_str());
    if (bWritten)
        return 0;
    const DWORD nCode = GetLastError();
    return static_cast<int>(nCode != ERROR_SUCCESS ? nCode : ERROR_WRITE_FAULT);
}

struct PrivateProfile::Content {
    std::string sFile;
};

PrivateProfile::PrivateProfile(std::shared_ptr<const Content> pContent)
    : m_pContent(std::move(pContent))
{
}

Result<void> PrivateProfileCheck(std::string_view sFile)
{
    constexpr std::uintmax_t kFileMax = std::uintmax_t{64} << 20;
    const std::filesystem::path pthFile = PathFromText(sFile);
    std::error_code ec;
    if (std::filesystem::is_directory(pthFile, ec))
        return RunError{"it is a folder"};
    if (std::filesystem::status(pthFile, ec).type() == std::filesystem::file_type::not_found)
        return RunError{kFileNotFound};  // also when its folder is missing
    if (std::filesystem::exists(pthFile, ec) && !std::filesystem::is_regular_file(pthFile, ec))
        return RunError{"it is a device"};
    if (const auto resFile = TextFile::Open(sFile); !resFile)
        return resFile.ErrorGet();
    if (std::filesystem::file_size(pthFile, ec) > kFileMax && !ec)
        return RunError{"it is larger than 64 MB"};
    return {};
}

/// The calls read the file again for each key.
Result<PrivateProfile> PrivateProfile::Open(std::string_view sFile)
{
    if (const auto res = PrivateProfileCheck(sFile); !res)
        return res.ErrorGet();
    return PrivateProfile(std::make_shared<const Content>(Content{std::string(sFile)}));
}

std::string PrivateProfile::Get(std::string_view sSection, std::string_view sKey,
                                std::string_view sDefault, int nBufferSize) const
{
    return PrivateProfileGet(sSection, sKey, sDefault, nBufferSize, m_pContent->sFile);
}

int PrivateProfileWriteAll(std::span<const PrivateProfileValue> aValue, std::string_view sFile)
{
    for (const PrivateProfileValue& value : aValue) {
        if (const int nCode = PrivateProfileWrite(value.sSection, value.sKey, value.sValue, sFile))
            return nCode;
    }
    return 0;
}
